// The lexical analyser on any bytes, with class codes, keywords, operators,
// decimal separator and skipping switches chosen by the input. Every byte
// ends in some token: each token but the end consumes text, its Lex is the
// bytes it passed, Lin and Col are exactly the line and column reached, and
// with distinct class codes each token is what its class says it is.
// Looking ahead and Restaura leave no trace.

#include <map>

#include "LectorFuzz.h"
#include "lang/AnaLex.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Vocabulario.h"

// The language's operators, a longer one, and some the lexer must refuse;
// keywords besides the function names: a variable, and some bad ones.
const std::array<const char*, 24> kOperadores = {
    "+",  "-",  "*",  "\xC2\xB7", "/", "^", "(",  ")", "=",  ">=", "=>", "<=",
    "=<", "<>", "><", "-->",      "<", ">", "+a", "'", "\"", "_",  "",   "a"};
const std::array<const char*, 10> kPalabrasExtra = {"pi", "e",  "x",   "a_1",       "",
                                                    "1a", "_a", "a b", "a\xC3\xB1", "\xC3\xB1"};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const bool mirar = opciones & 16, distintas = opciones & 128;
  AnaLex lex;
  // All the analyser tells of where it stands, the position first.
  const auto foto = [&] {
    return std::array{lex.PtrBuffer(), lex.Lin(),    lex.Col(),
                      lex.UltInd(),    lex.IndCls(), lex.LongLex()};
  };
  lex.IgnFL(opciones & 1);
  lex.IgnCom(opciones & 2);
  lex.PuntoDec(opciones & 4 ? "," : ".");
  if (opciones & 32) lex.PuntoDec(in.TextoCorto(2)); // anything but "." and "," is ignored
  const char separador = lex.PuntoDec() == "44" ? ',' : '.';
  const auto inicial = foto();
  if (opciones & 64) lex.Restaura(), EXIGE(foto() == inicial); // nothing saved: no change
  // Class codes all distinct, so that IndCls tells the class, or small ones that may coincide.
  const auto clase = [&](int i) { return distintas ? i * 32 + in.Byte() % 32 : in.Byte() % 16; };
  lex.IndCom(clase(0)), lex.IndCad(clase(1)), lex.IndNum(clase(2)), lex.IndId(clase(3));
  lex.IndPC(clase(4)), lex.IndOpr(clase(5)), lex.IndFL(clase(6)), lex.IndFA(clase(7));
  lex.IndDesc(clase(8));

  // Keywords (in lower case) and operators: accepted without a warning, refused a second time.
  std::map<std::string, int> palabras, operadores;
  for (int n = in.Byte() % 24; n > 0; --n) {
    const int b = in.Byte(), codigo = in.Byte() % 64, avisos = avisosFuzz;
    const bool palabra = b & 1;
    const std::string texto = b & 2      ? in.TextoCorto(4)
                              : !palabra ? kOperadores[(b >> 2) % kOperadores.size()]
                              : (b >> 2) % 2
                                  ? kPalabrasExtra[(b >> 3) % kPalabrasExtra.size()]
                                  : std::string(kFunciones[(b >> 3) % kFunciones.size()]);
    const auto anade = [&](int c) { palabra ? lex.AñadePC(c, texto) : lex.AñadeOpr(c, texto); };
    anade(codigo);
    if (avisosFuzz != avisos) continue;
    const std::string bytes = Utf8ACp1252(texto);
    (palabra ? palabras[EnMinusculas(bytes)] : operadores[bytes]) = codigo;
    if (b & 4) anade(codigo + 1);
    EXIGE(avisosFuzz == avisos + (b & 4 ? 1 : 0), Visible(bytes));
  }

  const int mirado = in.Byte() % 64;
  const std::string texto = in.Resto(), buf = opciones & 8 ? Utf8ACp1252(texto) : texto;
  opciones & 8 ? lex.Buffer(texto) : lex.BufferBytes(texto);
  const auto caso = [&] { return std::to_string(lex.PtrBuffer()) + En(buf); };
  int lineas = 0, inicio = 0, leido = 0; // the ends of line passed, where the line began
  // Every token but the last moves on, so the loop ends.
  for (int tokens = 0;; ++tokens) {
    const auto antes = foto();
    const int otro = (mirado + tokens) % 64;
    if (mirar) lex.VieneToken(otro), lex.VieneIndCls(otro), EXIGE(foto() == antes, caso());
    const int codigo = lex.SgtToken();
    const auto despues = foto();
    EXIGE(codigo == lex.UltInd(), caso());
    if (mirar) {
      lex.Restaura();
      EXIGE(foto() == antes && lex.VieneToken(codigo) && lex.AvanzaToken(codigo), caso());
      EXIGE(foto() == despues, caso());
      lex.Restaura();
      EXIGE(codigo == otro || (!lex.AvanzaToken(otro) && foto() == antes), caso());
      EXIGE(lex.SgtToken() == codigo && foto() == despues, caso());
    }
    const int ptr = lex.PtrBuffer(), largo = lex.LongLex();
    EXIGE(ptr <= std::ssize(buf) && largo >= 0 && largo <= ptr - antes[0], caso());
    EXIGE(lex.LexBytes() == std::string_view(buf).substr(ptr - largo, largo), caso());
    for (; leido < ptr; ++leido)
      if (buf[leido] == '\r') ++lineas, inicio = leido + (buf.compare(leido, 2, "\r\n") ? 1 : 2);
    EXIGE(lex.Lin() == lineas && lex.Col() == ptr - inicio, caso());
    EXIGE(largo > 0 || (ptr == std::ssize(buf) && lex.IndCls() == lex.IndFA()), caso());
    if (largo == 0 && ptr == antes[0]) break;
    if (largo == 0 || !distintas) continue;

    const std::string_view lx = lex.LexBytes();
    const auto primero = static_cast<unsigned char>(lx[0]),
               ultimo = static_cast<unsigned char>(lx.back());
    const int cls = lex.IndCls();
    std::string op(lx);
    std::erase_if(op, [](char c) { return c == ' ' || c == '\t'; });
    const auto pc = palabras.find(EnMinusculas(lx));
    const bool esPC = pc != palabras.end();
    EXIGE(cls == lex.IndNum()
              ? (EsDigito(primero) || primero == separador) && EsDigito(ultimo) && codigo == cls
          : cls == lex.IndId()  ? EsIdentificador(lx) && !esPC && codigo == cls
          : cls == lex.IndPC()  ? EsIdentificador(lx) && esPC && codigo == pc->second
          : cls == lex.IndOpr() ? operadores.contains(op) && codigo == operadores[op]
          : cls == lex.IndCom() ? !(opciones & 2) && primero == '\'' && lx.find('\r') == lx.npos
          : cls == lex.IndFL()  ? !(opciones & 1) && (lx == "\r" || lx == "\r\n")
          : cls == lex.IndCad() ? lx.size() >= 2 && primero == '"' && ultimo == '"'
                                : cls == lex.IndDesc() && largo == 1,
          "clase " + std::to_string(cls) + ", código " + std::to_string(codigo) + ", " + caso());
  }
  return 0;
}
