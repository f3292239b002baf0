#include "algebra/CalcSimbolic.h"

#include <array>

#include "algebra/FuncionesNum.h"
#include "algebra/TextoNumero.h"
#include "lang/Aviso.h"
#include "lang/ConvierteNumero.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"
#include "lang/Vocabulario.h"

namespace {

// Messages of the calculator's own errors, by code (0 has none).
constexpr std::array<const char*, 8> kMensajes = {
    "",
    "Se esperaba '('.",
    "Se esperaba ')'",
    "Se esperaba expresión.",
    "Se esperaba el signo =",
    "Se esperaba el fin de la expresión.",
    "Intentó dividir por cero",
    "No se pudo despejar la variable",
};

// The constants at 15 digits, deliberately not at full precision.
constexpr double kValorPi = 3.14159265358979;
constexpr double kValorE = 2.71828182845905;

[[noreturn]] void Error(int codigo) { throw ErrorMotor{NumeroError(codigo), ""}; }

void Configura(AnaLex& lex) {
  lex.IgnFL(false);
  lex.AñadeOpr(CalcSimbolic::kMas, "+");
  lex.AñadeOpr(CalcSimbolic::kMenos, "-");
  lex.AñadeOpr(CalcSimbolic::kPor, "*");
  lex.AñadeOpr(CalcSimbolic::kPor, "·");
  lex.AñadeOpr(CalcSimbolic::kEntre, "/");
  lex.AñadeOpr(CalcSimbolic::kPotencia, "^");
  lex.AñadeOpr(CalcSimbolic::kAbre, "(");
  lex.AñadeOpr(CalcSimbolic::kCierra, ")");
  lex.AñadeOpr(CalcSimbolic::kIgual, "=");
  for (std::size_t i = 0; i < kFunciones.size(); ++i)
    lex.AñadePC(CalcSimbolic::kPrimeraFuncion + static_cast<int>(i), std::string(kFunciones[i]));
  lex.AñadePC(CalcSimbolic::kPi, "pi");
  lex.AñadePC(CalcSimbolic::kE, "e");
  lex.IndCom(CalcSimbolic::kCom);
  lex.IndFL(CalcSimbolic::kFL);
  lex.IndFA(CalcSimbolic::kFA);
  lex.IndCad(CalcSimbolic::kCad);
  lex.IndNum(CalcSimbolic::kNum);
  lex.IndId(CalcSimbolic::kId);
  lex.IndPC(CalcSimbolic::kPC);
  lex.IndOpr(CalcSimbolic::kOpr);
  lex.IndDesc(CalcSimbolic::kDesc);
}

} // namespace

CalcSimbolic::CalcSimbolic() {
  Configura(lexP_);
  Configura(lexS_);
  lexP_.IgnCom(true);
  PuntoDec(".");
}

void CalcSimbolic::CalcExpNum(bool valor) {
  calcExpNum_ = valor;
  resolveConst_ = true;
}

void CalcSimbolic::PuntoDec(const std::string& separador) {
  if (separador != "." && separador != ",") {
    Avisa(".CalcSimbolic", "El separador decimal sólo puede ser el punto o la coma.");
    return;
  }
  puntoDec_ = separador;
  lexP_.PuntoDec(separador);
}

std::string CalcSimbolic::Calc(const std::string& exp) {
  errNumber_ = 0;
  escaneos_.clear();
  trabajo_ = 0;
  try {
    return Cp1252AUtf8(SimplExp(Utf8ACp1252(exp)));
  } catch (const ErrorMotor& e) {
    AtrapaError(e.numero, e.descripcion);
    return "";
  }
}

/// iguala-cero ::= expr "=" expr fin
bool CalcSimbolic::IguCero(std::string& ecu) {
  escaneos_.clear();
  trabajo_ = 0;
  try {
    CargaTexto(Utf8ACp1252(ecu));
    const std::string l = Expr();
    ecu = Cp1252AUtf8(l);
    Espera(kIgual);
    const std::string r = Expr();
    Espera(kFA);
    ecu = Cp1252AUtf8(SimplExp(l + "-(" + r + ")", true));
    return true;
  } catch (const ErrorMotor& e) {
    errNumber_ = e.numero; // ErrDesc stays as it was
    return false;
  }
}

void CalcSimbolic::AtrapaError(std::int32_t numero, const std::string& descripcion) {
  errNumber_ = numero;
  if (EsErrorDeUsuario(numero)) {
    const auto codigo = static_cast<std::uint32_t>(numero) - kBaseErrores;
    errDesc_ = codigo < kMensajes.size() ? kMensajes[codigo] : "";
  } else {
    errDesc_ = descripcion;
  }
}

// ---------------------------------------------------------------------------
// Parser

std::string CalcSimbolic::SimplExp(std::string_view texto, bool propio) {
  CargaTexto(texto, propio);
  std::string resultado = Expr();
  Espera(kFA);
  return resultado;
}

void CalcSimbolic::CargaTexto(std::string_view texto, bool propio) {
  lexP_.PuntoDec(propio ? "." : puntoDec_);
  lexP_.BufferBytes(std::string(texto));
  anidamiento_ = 0;
  Avanza();
}

void CalcSimbolic::Avanza() { token_ = lexP_.SgtToken(); }

void CalcSimbolic::Espera(int tipo) {
  if (token_ != tipo) {
    switch (tipo) {
    case kAbre:
      Error(1);
    case kCierra:
      Error(2);
    case kFA:
      Error(5);
    case kIgual:
      Error(4);
    default:
      Error(0);
    }
  }
  Avanza();
}

/// expr ::= termino { ("+" | "-") termino }      left-associative
std::string CalcSimbolic::Expr() {
  std::string l = TerminoExp();
  while (token_ == kMas || token_ == kMenos) {
    const bool resta = token_ == kMenos;
    Avanza();
    const std::string r = TerminoExp();
    l = resta ? RestaExp(l, r) : SumaExp(l, r);
  }
  return l;
}

/// termino ::= signado { ("*" | "·" | "/") signado }      left-associative
std::string CalcSimbolic::TerminoExp() {
  std::string l = Signado();
  while (token_ == kPor || token_ == kEntre) {
    const bool division = token_ == kEntre;
    Avanza();
    const std::string r = Signado();
    l = division ? DivExp(l, r) : MultExp(l, r);
  }
  return l;
}

/// signado ::= signos potencia      a leading "-" binds looser than "^"
std::string CalcSimbolic::Signado() {
  const bool negativo = Signos();
  std::string valor = Potencia();
  return negativo ? NegExp(valor) : valor;
}

/// signos ::= { "+" | "-" }      returns whether the net sign is negative
bool CalcSimbolic::Signos() {
  bool negativo = false;
  while (token_ == kMas || token_ == kMenos) {
    if (token_ == kMenos) negativo = !negativo;
    Avanza();
  }
  return negativo;
}

/// potencia ::= primario { "^" base-signada }      LEFT-associative: a^b^c is (a^b)^c
std::string CalcSimbolic::Potencia() {
  std::string l = Primario();
  while (token_ == kPotencia) {
    Avanza();
    const std::string r = BaseSignada();
    l = PotExp(l, r);
  }
  return l;
}

/// base-signada ::= signos primario      an exponent may carry its own sign: x^-2
std::string CalcSimbolic::BaseSignada() {
  const bool negativo = Signos();
  std::string valor = Primario();
  return negativo ? NegExp(valor) : valor;
}

/// primario ::= "(" expr ")" | funcion | constante | numero | variable
std::string CalcSimbolic::Primario() {
  if (token_ == kAbre || (token_ >= kPrimeraFuncion && token_ <= kUltimaFuncion)) {
    if (++anidamiento_ > kMaxAnidamientoCalc) throw ErrorMotor{kErrAnidamiento, kDescAnidamiento};
    std::string valor;
    if (token_ == kAbre) {
      Avanza();
      valor = Expr();
      Espera(kCierra);
    } else {
      valor = Funcion();
    }
    --anidamiento_;
    return valor;
  }
  std::string valor;
  if (token_ == kPi || token_ == kE) {
    valor = resolveConst_ ? TextoNumero(token_ == kPi ? kValorPi : kValorE)
                          : std::string(lexP_.LexBytes());
  } else if (token_ == kNum) {
    valor = TextoNumero(ConvierteLiteral(lexP_.LexBytes(), lexP_.PuntoDec() == "44" ? ',' : '.'));
  } else if (token_ == kId) {
    valor = std::string(lexP_.LexBytes());
  } else {
    Error(3);
  }
  Avanza();
  return valor;
}

/// funcion ::= nombre "(" expr ")"
std::string CalcSimbolic::Funcion() {
  const std::string nombre(lexP_.LexBytes());
  const int tipo = token_;
  Avanza();
  Espera(kAbre);
  const std::string argumento = Expr();
  Espera(kCierra);
  if (calcExpNum_ && EsNumero(argumento))
    return TextoNumero(EvaluaFuncion(tipo - kPrimeraFuncion, LeeNumero(argumento)));
  if (tipo == kLn && EnMinusculas(argumento) == "e") return "1";
  return nombre + "(" + argumento + ")";
}
