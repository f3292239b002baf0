// The lexical analyser on any bytes, with class codes, keywords, operators,
// decimal separator and skipping switches chosen by the input. Every byte
// ends in some token: each token but the end consumes text, its Lex is the
// bytes it passed, Lin and Col are exactly the line and column reached, and
// with distinct class codes each token is what its class says it is.
// Looking ahead and Restaura leave no trace.

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "LectorFuzz.h"
#include "lang/AnaLex.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Vocabulario.h"

namespace {

// The language's operators, a longer one, and some the lexer must refuse.
const std::array<const char*, 24> kOperadores = {
    "+",  "-",  "*",  "\xC2\xB7", "/", "^", "(",  ")", "=",  ">=", "=>", "<=",
    "=<", "<>", "><", "-->",      "<", ">", "+a", "'", "\"", "_",  "",   "a"};
// Keywords besides the function names: a variable, and some bad ones.
const std::array<const char*, 10> kPalabrasExtra = {"pi", "e",  "x",   "a_1",       "",
                                                    "1a", "_a", "a b", "a\xC3\xB1", "\xC3\xB1"};

struct Estado {
  int ptr, lin, col, ult, cls, largo;
  bool operator==(const Estado&) const = default;
};

Estado Foto(const AnaLex& l) {
  return {l.PtrBuffer(), l.Lin(), l.Col(), l.UltInd(), l.IndCls(), l.LongLex()};
}

std::string SinBlancos(std::string_view s) {
  std::string r;
  for (const char c : s)
    if (c != ' ' && c != '\t') r += c;
  return r;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  CuentaAvisos();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::uint8_t opciones = in.Byte();
  const bool ignCom = opciones & 2, comoUtf8 = opciones & 8, mirar = opciones & 16,
             distintas = opciones & 128;
  AnaLex lex;
  lex.IgnFL(opciones & 1);
  lex.IgnCom(ignCom);
  lex.PuntoDec(opciones & 4 ? "," : ".");
  if (opciones & 32) lex.PuntoDec(in.TextoCorto(2)); // anything but "." and "," is ignored
  const char separador = lex.PuntoDec() == "44" ? ',' : '.';
  const Estado inicial = Foto(lex);
  if (opciones & 64) lex.Restaura(); // with nothing saved: a warning and no change
  EXIGE(Foto(lex) == inicial, "Restaura sin nada guardado cambia el estado");

  // Class codes all distinct, so that IndCls tells the class, or small ones
  // that classes share with each other and with the vocabulary.
  std::array<int, 9> k{};
  for (std::size_t i = 0; i < k.size(); ++i)
    k[i] = distintas ? static_cast<int>(i) * 32 + in.Byte() % 32 : in.Byte() % 16;
  lex.IndCom(k[0]), lex.IndCad(k[1]), lex.IndNum(k[2]), lex.IndId(k[3]), lex.IndPC(k[4]);
  lex.IndOpr(k[5]), lex.IndFL(k[6]), lex.IndFA(k[7]), lex.IndDesc(k[8]);

  // Keywords (in lower case) and operators; the accepted ones gave no warning.
  std::map<std::string, int> palabras, operadores;
  for (int n = in.Byte() % 24; n > 0; --n) {
    const std::uint8_t b = in.Byte();
    const bool palabra = b & 1;
    const int codigo = in.Byte() % 64;
    const std::string texto = b & 2      ? in.TextoCorto(4)
                              : !palabra ? kOperadores[(b >> 2) % kOperadores.size()]
                              : (b >> 2) % 2
                                  ? kPalabrasExtra[(b >> 3) % kPalabrasExtra.size()]
                                  : std::string(kFunciones[(b >> 3) % kFunciones.size()]);
    const int avisos = AvisosFuzz();
    palabra ? lex.AñadePC(codigo, texto) : lex.AñadeOpr(codigo, texto);
    if (AvisosFuzz() != avisos) continue;
    const std::string bytes = Utf8ACp1252(texto);
    (palabra ? palabras[EnMinusculas(bytes)] : operadores[bytes]) = codigo;
    if (b & 4) palabra ? lex.AñadePC(codigo + 1, texto) : lex.AñadeOpr(codigo + 1, texto);
    EXIGE(AvisosFuzz() == avisos + (b & 4 ? 1 : 0), "registrar dos veces " + Visible(bytes));
  }

  const int mirado = in.Byte() % 64;
  const std::string texto = in.Resto();
  const std::string buf = comoUtf8 ? Utf8ACp1252(texto) : texto;
  comoUtf8 ? lex.Buffer(texto) : lex.BufferBytes(texto);
  const int n = static_cast<int>(buf.size());
  int lineas = 0, inicio = 0, leido = 0; // the ends of line passed, where the line began

  for (int tokens = 0;; ++tokens) {
    EXIGE(tokens <= n + 1, "más tokens que caracteres en " + Visible(buf));
    const Estado antes = Foto(lex);
    const int otro = (mirado + tokens) % 64;
    if (mirar) lex.VieneToken(otro), lex.VieneIndCls(otro);
    EXIGE(Foto(lex) == antes, "mirar adelante mueve el analizador");
    const int codigo = lex.SgtToken();
    const Estado despues = Foto(lex);
    EXIGE(codigo == lex.UltInd(), "SgtToken no devuelve UltInd");
    if (mirar) {
      lex.Restaura();
      EXIGE(Foto(lex) == antes && lex.VieneToken(codigo) && lex.AvanzaToken(codigo) &&
                Foto(lex) == despues,
            "volver atrás y leer de nuevo da otro token");
      lex.Restaura();
      EXIGE(codigo == otro || (!lex.AvanzaToken(otro) && Foto(lex) == antes),
            "AvanzaToken consume un token de otro código");
      EXIGE(lex.SgtToken() == codigo && Foto(lex) == despues, "el token cambia al leerlo de nuevo");
    }

    const int ptr = lex.PtrBuffer(), largo = lex.LongLex();
    EXIGE(ptr <= n && ptr >= antes.ptr && largo >= 0 && largo <= ptr - antes.ptr,
          "PtrBuffer " + std::to_string(ptr) + " o LongLex " + std::to_string(largo));
    EXIGE(lex.LexBytes() == std::string_view(buf).substr(ptr - largo, largo), "Lex no es lo leído");
    for (; leido < ptr; ++leido)
      if (buf[leido] == '\r')
        ++lineas, inicio = leido + (leido + 1 < n && buf[leido + 1] == '\n' ? 2 : 1);
    EXIGE(lex.Lin() == lineas && lex.Col() == ptr - inicio,
          "línea " + std::to_string(lex.Lin()) + " columna " + std::to_string(lex.Col()) +
              " en la posición " + std::to_string(ptr) + " de " + Visible(buf));
    if (largo == 0) {
      // Only the end of the text is empty.
      EXIGE(ptr == n && lex.IndCls() == lex.IndFA(), "token vacío antes del final");
      if (ptr == antes.ptr) break;
      continue;
    }
    if (!distintas) continue;
    const std::string_view lexema = lex.LexBytes();
    const auto primero = static_cast<unsigned char>(lexema.front());
    const std::string visto = Visible(std::string(lexema));
    const int cls = lex.IndCls();
    if (cls == lex.IndNum()) {
      EXIGE((EsDigito(primero) || lexema.front() == separador) && codigo == cls &&
                EsDigito(static_cast<unsigned char>(lexema.back())),
            "número " + visto);
    } else if (cls == lex.IndId() || cls == lex.IndPC()) {
      bool palabra = EsInicioId(primero);
      for (const char c : lexema)
        palabra = palabra && EsCarPalabra(static_cast<unsigned char>(c));
      const auto r = palabras.find(EnMinusculas(lexema));
      EXIGE(palabra && (cls == lex.IndPC() ? r != palabras.end() && codigo == r->second
                                           : r == palabras.end() && codigo == cls),
            "identificador o palabra clave " + visto);
    } else if (cls == lex.IndOpr()) {
      const auto r = operadores.find(SinBlancos(lexema));
      EXIGE(r != operadores.end() && codigo == r->second, "operador " + visto);
    } else if (cls == lex.IndCom()) {
      EXIGE(!ignCom && primero == '\'' && lexema.find('\r') == lexema.npos, "comentario " + visto);
    } else if (cls == lex.IndFL()) {
      EXIGE(!(opciones & 1) && (lexema == "\r" || lexema == "\r\n"), "fin de línea " + visto);
    } else if (cls == lex.IndCad()) {
      EXIGE(lexema.size() >= 2 && primero == '"' && lexema.back() == '"', "cadena " + visto);
    } else {
      EXIGE(cls == lex.IndDesc() && largo == 1, "token de clase " + std::to_string(cls) + visto);
    }
  }
  return 0;
}
