#include "lang/SintaxExp.h"

#include <array>

#include "lang/ConvierteNumero.h"
#include "lang/Errores.h"
#include "lang/Pila.h"
#include "lang/Vocabulario.h"

namespace {

// Messages of the syntax errors, by message number (0 has none).
constexpr auto kMensajes = std::to_array<const char*>({
    "",
    "Se esperaba expresión",
    "Se esperaba = ó > ó < ó >= ó <= ó <>",
    "Se esperaba fin de archivo",
    "Se esperaba fin de línea",
    "Se esperaba =",
    "Se esperaba (",
    "Se esperaba )",
});

// The error raised when a token is expected and absent.
constexpr auto kEsperados = std::to_array<std::pair<int, ErrSintax>>({
    {SintaxExp::kFL, ErrSintax::EsperaFinDeLinea},
    {SintaxExp::kFA, ErrSintax::EsperaFinDeArchivo},
    {SintaxExp::kAbre, ErrSintax::EsperaAbre},
    {SintaxExp::kCierra, ErrSintax::EsperaCierra},
    {SintaxExp::kIgual, ErrSintax::EsperaIgual},
});

} // namespace

SintaxExp::SintaxExp() {
  lex_.IndId(kId);
  lex_.IndNum(kNum);
  lex_.IndFL(kFL);
  lex_.IndFA(kFA);
  lex_.AñadeOpr(kMas, "+");
  lex_.AñadeOpr(kMenos, "-");
  lex_.AñadeOpr(kPor, "*");
  lex_.AñadeOpr(kPor, "·");
  lex_.AñadeOpr(kEntre, "/");
  lex_.AñadeOpr(kPotencia, "^");
  lex_.AñadeOpr(kAbre, "(");
  lex_.AñadeOpr(kCierra, ")");
  lex_.AñadeOpr(kIgual, "=");
  lex_.AñadeOpr(kMayor, ">");
  lex_.AñadeOpr(kMenor, "<");
  lex_.AñadeOpr(kMayorIgual, ">=");
  lex_.AñadeOpr(kMayorIgual, "=>");
  lex_.AñadeOpr(kMenorIgual, "<=");
  lex_.AñadeOpr(kMenorIgual, "=<");
  lex_.AñadeOpr(kDistinto, "<>");
  lex_.AñadeOpr(kDistinto, "><");
  for (std::size_t i = 0; i < kFunciones.size(); ++i)
    lex_.AñadePC(kPrimeraFuncion + static_cast<int>(i), std::string(kFunciones[i]));
  lex_.AñadePC(kPi, std::string(kConstantes[0]));
  lex_.AñadePC(kE, std::string(kConstantes[1]));
}

bool SintaxExp::SintaxExpr(const std::string& texto) { return Comprueba(texto, Forma::Expresion); }
bool SintaxExp::SintaxEcu(const std::string& texto) { return Comprueba(texto, Forma::Ecuacion); }
bool SintaxExp::SintaxDes(const std::string& texto) { return Comprueba(texto, Forma::Desigualdad); }

/// expresion-check  ::= expresion fin
/// ecuacion-check   ::= expresion "=" expresion fin
/// desigualdad-check ::= expresion relacion expresion fin
bool SintaxExp::Comprueba(const std::string& texto, Forma forma) {
  errNumber_ = 0;
  expr_.clear();
  anidamiento_ = 0;
  try {
    lex_.Buffer(texto);
    Avanza();
    Expresion();
    if (forma == Forma::Ecuacion) {
      Añade();
      Espera(kIgual);
      Expresion();
    } else if (forma == Forma::Desigualdad) {
      Relacion();
      Expresion();
    }
    FinDeTexto();
    return true;
  } catch (const ErrorMotor& e) {
    LlenaError(e);
    return false;
  }
}

void SintaxExp::Avanza() { token_ = lex_.SgtToken(); }

void SintaxExp::Añade() { expr_ += lex_.Lex(); }

void SintaxExp::Espera(int codigo) {
  if (token_ != codigo) throw ErrorMotor(ErrorDeEsperado(codigo, kEsperados));
  Avanza();
}

/// fin ::= { fin-de-linea } fin-de-archivo
void SintaxExp::FinDeTexto() {
  while (token_ == kFL)
    Avanza();
  Espera(kFA);
}

/// relacion ::= ">=" | "=>" | "<=" | "=<" | "<>" | "><" | "=" | ">" | "<"
void SintaxExp::Relacion() {
  if (token_ < kMayorIgual || token_ > kMenor) throw ErrorMotor(ErrSintax::EsperaRelacion);
  Añade();
  Avanza();
}

/// expresion ::= termino { ("+" | "-") termino }
void SintaxExp::Expresion() {
  Termino();
  while (token_ == kMas || token_ == kMenos) {
    Añade();
    Avanza();
    Termino();
  }
}

/// termino ::= potencia-con-signo { ("*" | "·" | "/") potencia-con-signo }
void SintaxExp::Termino() {
  PotenciaConSigno();
  while (token_ == kPor || token_ == kEntre) {
    Añade();
    Avanza();
    PotenciaConSigno();
  }
}

/// potencia-con-signo ::= racha-de-signos potencia
/// The run is folded into one "-" when its net sign is negative.
void SintaxExp::PotenciaConSigno() {
  if (RachaDeSignos()) expr_ += '-';
  Potencia();
}

/// racha-de-signos ::= { "+" | "-" }
/// Returns whether the net sign is negative; nothing is appended.
bool SintaxExp::RachaDeSignos() {
  bool negativo = false;
  while (token_ == kMas || token_ == kMenos) {
    if (token_ == kMenos) negativo = !negativo;
    Avanza();
  }
  return negativo;
}

/// potencia ::= factor { "^" racha-de-signos factor }
/// The sign run of an exponent is read and dropped: "x^-2" becomes "x^2".
void SintaxExp::Potencia() {
  Factor();
  while (token_ == kPotencia) {
    Añade();
    Avanza();
    RachaDeSignos();
    Factor();
  }
}

/// factor ::= "(" expresion ")" | constante | numero | funcion "(" expresion ")"
///          | identificador
void SintaxExp::Factor() {
  const bool esFuncion = token_ >= kPrimeraFuncion && token_ <= kUltimaFuncion;
  const bool anida = esFuncion || token_ == kAbre;
  if (anida && (++anidamiento_ > kMaxAnidamiento || !QuedaPila()))
    throw ErrorMotor(ErrAritmetica::Anidamiento);
  if (token_ == kAbre) {
    Añade();
    Avanza();
    Expresion();
    Añade();
    Espera(kCierra);
  } else if (token_ == kPi || token_ == kE || token_ == kId) {
    Añade();
    Avanza();
  } else if (token_ == kNum) {
    ConvierteLiteral(lex_.Lex()); // only to refuse a literal out of range
    Añade();
    Avanza();
  } else if (esFuncion) {
    Añade();
    Avanza();
    Añade();
    Espera(kAbre);
    Expresion();
    Añade();
    Espera(kCierra);
  } else {
    throw ErrorMotor(ErrSintax::EsperaExpresion);
  }
  if (anida) --anidamiento_;
}

void SintaxExp::LlenaError(const ErrorMotor& error) {
  errNumber_ = error.numero;
  if (token_ == kFL) {
    // Point at the end of the line on which the expression stopped: just
    // after its last token. A continuation " _" may lie between that token
    // and the end of line, so the line is the restored one too.
    lex_.Restaura();
    errLin_ = lex_.Lin();
    errCol_ = lex_.Col();
    errLen_ = 0;
  } else {
    errLin_ = lex_.Lin();
    errCol_ = lex_.Col() - lex_.LongLex();
    errLen_ = lex_.LongLex();
  }
  errDesc_ = DescripcionDe(error, kMensajes);
}
