// The lexical analyser on any bytes, with class codes, keywords, operators,
// decimal separator and skipping switches chosen by the input. Every byte of
// any text must end in some token: the reading reaches the end, every token
// but the last consumes text, and each token is what its class says it is.
// Look-ahead and Restaura must leave no trace.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "LectorFuzz.h"
#include "lang/AnaLex.h"
#include "lang/Caracteres.h"
#include "lang/Cp1252.h"
#include "lang/Vocabulario.h"

namespace {

// Operators worth registering: the language's own, a longer one, and some
// that the lexer must refuse (letters, the comment and string delimiters,
// the line continuation, the empty text).
const std::array<const char*, 24> kOperadores = {
    "+",  "-",  "*",  "\xC2\xB7", "/", "^", "(",  ")", "=",  ">=", "=>", "<=",
    "=<", "<>", "><", "-->",      "<", ">", "+a", "'", "\"", "_",  "",   "a"};

// Keywords: the language's names, a variable, and some bad ones.
const std::array<const char*, 10> kPalabrasExtra = {"pi", "e",  "x",   "a_1",       "",
                                                    "1a", "_a", "a b", "a\xC3\xB1", "\xC3\xB1"};

struct Registrada {
  std::string texto; // Windows-1252; keywords in lower case
  int codigo;
};

struct Estado {
  int ptr, lin, col, ult, cls, largo;
  bool operator==(const Estado&) const = default;
};

Estado Foto(const AnaLex& lex) {
  return {lex.PtrBuffer(), lex.Lin(), lex.Col(), lex.UltInd(), lex.IndCls(), lex.LongLex()};
}

std::string TextoFoto(const Estado& e) {
  return "ptr " + std::to_string(e.ptr) + " lin " + std::to_string(e.lin) + " col " +
         std::to_string(e.col) + " ult " + std::to_string(e.ult) + " cls " + std::to_string(e.cls) +
         " largo " + std::to_string(e.largo);
}

const Registrada* Busca(const std::vector<Registrada>& v, const std::string& t) {
  for (const Registrada& r : v)
    if (r.texto == t) return &r;
  return nullptr;
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
  const bool ignFL = opciones & 1, ignCom = opciones & 2, coma = opciones & 4,
             comoUtf8 = opciones & 8, mirar = opciones & 16, separadorMalo = opciones & 32,
             restauraVacia = opciones & 64, distintas = opciones & 128;

  AnaLex lex;
  lex.IgnFL(ignFL);
  lex.IgnCom(ignCom);
  EXIGE(lex.IgnFL() == ignFL && lex.IgnCom() == ignCom, "los interruptores no se guardan");
  lex.PuntoDec(coma ? "," : ".");
  EXIGE(lex.PuntoDec() == (coma ? "44" : "46"), "PuntoDec " + lex.PuntoDec());
  if (separadorMalo) {
    // Only "." and "," are accepted; anything else is warned of and ignored.
    const std::string separador = in.TextoCorto(2), previo = lex.PuntoDec();
    const int avisos = AvisosFuzz();
    lex.PuntoDec(separador);
    if (separador == "." || separador == ",")
      EXIGE(AvisosFuzz() == avisos && lex.PuntoDec() == (separador == "," ? "44" : "46"),
            "el separador «" + separador + "» no se acepta");
    else
      EXIGE(AvisosFuzz() == avisos + 1 && lex.PuntoDec() == previo,
            "el separador «" + Visible(separador) + "» no se rechaza con un aviso");
  }
  const bool conComa = lex.PuntoDec() == "44";

  // The nine class codes: all distinct, so that IndCls tells the class, or
  // any small numbers, so that classes share codes with each other and with
  // keywords and operators.
  std::array<int, 9> clases{};
  for (std::size_t i = 0; i < clases.size(); ++i)
    clases[i] = distintas ? static_cast<int>(i) * 32 + in.Byte() % 32 : in.Byte() % 16;
  lex.IndCom(clases[0]), lex.IndCad(clases[1]), lex.IndNum(clases[2]);
  lex.IndId(clases[3]), lex.IndPC(clases[4]), lex.IndOpr(clases[5]);
  lex.IndFL(clases[6]), lex.IndFA(clases[7]), lex.IndDesc(clases[8]);
  EXIGE(lex.IndCom() == clases[0] && lex.IndFA() == clases[7] && lex.IndDesc() == clases[8],
        "los códigos de clase no se guardan");

  // Keywords and operators; the accepted ones are those that gave no warning,
  // and registering one of them again must be warned of.
  std::vector<Registrada> palabras, operadores;
  for (int n = in.Byte() % 24; n > 0; --n) {
    const std::uint8_t b = in.Byte();
    const bool palabra = b & 1;
    const int codigo = in.Byte() % 64;
    std::string texto;
    if (b & 2)
      texto = in.TextoCorto(4);
    else if (palabra)
      texto = (b >> 2) % 2 ? std::string(kPalabrasExtra[(b >> 3) % kPalabrasExtra.size()])
                           : std::string(kFunciones[(b >> 3) % kFunciones.size()]);
    else
      texto = kOperadores[(b >> 2) % kOperadores.size()];
    const int avisos = AvisosFuzz();
    if (palabra)
      lex.AñadePC(codigo, texto);
    else
      lex.AñadeOpr(codigo, texto);
    if (AvisosFuzz() != avisos) continue;
    const std::string bytes = Utf8ACp1252(texto);
    auto& lista = palabra ? palabras : operadores;
    lista.push_back({palabra ? EnMinusculas(bytes) : bytes, codigo});
    if (b & 4) {
      if (palabra)
        lex.AñadePC(codigo + 1, texto);
      else
        lex.AñadeOpr(codigo + 1, texto);
      EXIGE(AvisosFuzz() == avisos + 1, "registrar dos veces «" + Visible(bytes) + "» no avisa");
    }
  }

  const int mirado = in.Byte() % 64; // the code the look-ahead asks for
  const std::string texto = in.Resto();
  std::string buf;
  if (comoUtf8) {
    lex.Buffer(texto);
    buf = Utf8ACp1252(texto);
  } else {
    lex.BufferBytes(texto);
    buf = texto;
  }
  EXIGE(Utf8ACp1252(lex.Buffer()) == buf, "Buffer no devuelve el texto: " + Visible(buf));
  const int n = static_cast<int>(buf.size());
  EXIGE(lex.PtrBuffer() == 0 && lex.Lin() == 0 && lex.Col() == 0, "un texto nuevo no empieza en 0");

  if (restauraVacia) {
    const int avisos = AvisosFuzz();
    const Estado antes = Foto(lex);
    lex.Restaura();
    EXIGE(AvisosFuzz() == avisos + 1, "Restaura con la pila vacía no avisa");
    EXIGE(Foto(lex) == antes, "Restaura con la pila vacía cambia el estado");
  }

  const auto finesDeLinea = [&](int hasta) {
    return static_cast<int>(std::count(buf.begin(), buf.begin() + hasta, '\r'));
  };

  for (int tokens = 0;; ++tokens) {
    EXIGE(tokens <= n + 1, "más tokens que caracteres en " + Visible(buf));
    const Estado antes = Foto(lex);
    const int codigoMirado = (mirado + tokens) % 64;
    if (mirar) {
      lex.VieneToken(codigoMirado);
      EXIGE(Foto(lex) == antes, "VieneToken mueve el analizador");
      lex.VieneIndCls(clases[static_cast<std::size_t>(codigoMirado) % clases.size()]);
      EXIGE(Foto(lex) == antes, "VieneIndCls mueve el analizador");
    }
    const int codigo = lex.SgtToken();
    const Estado despues = Foto(lex);
    EXIGE(codigo == lex.UltInd(), "SgtToken no devuelve UltInd");
    if (mirar) {
      lex.Restaura();
      EXIGE(Foto(lex) == antes,
            "Restaura no vuelve a " + TextoFoto(antes) + " sino a " + TextoFoto(Foto(lex)));
      EXIGE(lex.VieneToken(codigo), "VieneToken no ve el token que sigue");
      EXIGE(lex.SgtToken() == codigo && Foto(lex) == despues,
            "leer de nuevo tras Restaura da otro token: " + TextoFoto(Foto(lex)) + " en vez de " +
                TextoFoto(despues));
      lex.Restaura();
      EXIGE(lex.AvanzaToken(codigo) && Foto(lex) == despues, "AvanzaToken no avanza");
      if (codigo != codigoMirado) {
        lex.Restaura();
        EXIGE(!lex.AvanzaToken(codigoMirado) && Foto(lex) == antes,
              "AvanzaToken consume un token de otro código");
        EXIGE(lex.SgtToken() == codigo && Foto(lex) == despues, "el token cambia");
      }
    }

    const int ptr = lex.PtrBuffer(), largo = lex.LongLex();
    EXIGE(ptr <= n, "PtrBuffer " + std::to_string(ptr) + " pasa del final " + std::to_string(n));
    EXIGE(ptr >= antes.ptr, "PtrBuffer retrocede");
    EXIGE(largo >= 0 && largo <= ptr, "LongLex " + std::to_string(largo));
    EXIGE(lex.LexBytes() == std::string_view(buf).substr(static_cast<std::size_t>(ptr - largo),
                                                         static_cast<std::size_t>(largo)),
          "Lex «" + Visible(std::string(lex.LexBytes())) + "» no es el trozo leído");
    EXIGE(lex.Lin() >= 0 && lex.Lin() <= finesDeLinea(ptr) && lex.Col() >= 0 && lex.Col() <= ptr,
          "Lin/Col fuera del texto: " + TextoFoto(Foto(lex)));
    if (largo == 0) {
      // Only the end of the text is empty, and it comes at the end.
      EXIGE(ptr == n, "token vacío antes del final en " + std::to_string(ptr));
      EXIGE(lex.IndCls() == lex.IndFA(), "el final no tiene la clase IndFA");
      if (ptr == antes.ptr) break;
      continue;
    }

    if (!distintas) continue;
    // With distinct class codes, IndCls tells what the token must look like.
    const std::string_view lexema = lex.LexBytes();
    const auto primero = static_cast<unsigned char>(lexema.front());
    const int cls = lex.IndCls();
    if (cls == lex.IndNum()) {
      const char sep = conComa ? ',' : '.';
      EXIGE(EsDigito(primero) || primero == static_cast<unsigned char>(sep),
            "número que no empieza por cifra: " + Visible(std::string(lexema)));
      EXIGE(EsDigito(static_cast<unsigned char>(lexema.back())),
            "número que no acaba en cifra: " + Visible(std::string(lexema)));
      EXIGE(codigo == lex.IndNum(), "un número devuelve otro código");
    } else if (cls == lex.IndId() || cls == lex.IndPC()) {
      EXIGE(EsInicioId(primero), "identificador mal empezado: " + Visible(std::string(lexema)));
      for (const char c : lexema)
        EXIGE(EsCarPalabra(static_cast<unsigned char>(c)),
              "identificador con " + Visible(std::string(1, c)));
      const Registrada* r = Busca(palabras, EnMinusculas(lexema));
      if (cls == lex.IndPC()) {
        EXIGE(r != nullptr, "palabra clave no registrada: " + Visible(std::string(lexema)));
        EXIGE(codigo == r->codigo, "una palabra clave devuelve otro código");
      } else {
        EXIGE(r == nullptr,
              "palabra clave leída como identificador: " + Visible(std::string(lexema)));
        EXIGE(codigo == lex.IndId(), "un identificador devuelve otro código");
      }
    } else if (cls == lex.IndOpr()) {
      const Registrada* r = Busca(operadores, SinBlancos(lexema));
      EXIGE(r != nullptr, "operador no registrado: " + Visible(std::string(lexema)));
      EXIGE(codigo == r->codigo,
            "un operador devuelve otro código: " + Visible(std::string(lexema)));
    } else if (cls == lex.IndCom()) {
      EXIGE(!ignCom && primero == '\'', "comentario: " + Visible(std::string(lexema)));
      EXIGE(lexema.find('\r') == std::string_view::npos, "un comentario pasa de línea");
    } else if (cls == lex.IndFL()) {
      EXIGE(!ignFL && (lexema == "\r" || lexema == "\r\n"),
            "fin de línea: " + Visible(std::string(lexema)));
      EXIGE(lex.Col() == 0, "tras un fin de línea la columna no es 0");
    } else if (cls == lex.IndCad()) {
      EXIGE(lexema.size() >= 2 && lexema.front() == '"' && lexema.back() == '"',
            "cadena: " + Visible(std::string(lexema)));
    } else {
      EXIGE(cls == lex.IndDesc() && largo == 1,
            "token de clase " + std::to_string(cls) + ": " + Visible(std::string(lexema)));
    }
  }
  return 0;
}
