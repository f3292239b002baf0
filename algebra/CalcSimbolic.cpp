#include "algebra/CalcSimbolic.h"

#include <array>

#include "algebra/CalcInterno.h"
#include "algebra/FuncionesNum.h"
#include "algebra/TextoNumero.h"
#include "lang/Aviso.h"
#include "lang/ConvierteNumero.h"
#include "lang/Cp1252.h"
#include "lang/Errores.h"
#include "lang/Pila.h"
#include "lang/Vocabulario.h"

namespace {

// Messages of the calculator's user-input errors, by code (0 has none).
constexpr auto kMensajes = std::to_array<const char*>({
    "",
    "Se esperaba '('.",
    "Se esperaba ')'",
    "Se esperaba expresión.",
    "Se esperaba el signo =",
    "Se esperaba el fin de la expresión.",
    "Intentó dividir por cero",
    "No se pudo despejar la variable",
});

// The constants at 15 digits, deliberately not at full precision.
constexpr double kValorPi = 3.14159265358979;
constexpr double kValorE = 2.71828182845905;

// The error raised when a token is expected and absent.
constexpr auto kEsperados = std::to_array<std::pair<int, ErrCalc>>({
    {MotorCalc::kAbre, ErrCalc::EsperaAbre},
    {MotorCalc::kCierra, ErrCalc::EsperaCierra},
    {MotorCalc::kFA, ErrCalc::EsperaFin},
    {MotorCalc::kIgual, ErrCalc::EsperaIgual},
});

void Configura(AnaLex& lex) {
  lex.IgnFL(false);
  lex.AñadeOpr(MotorCalc::kMas, "+");
  lex.AñadeOpr(MotorCalc::kMenos, "-");
  lex.AñadeOpr(MotorCalc::kPor, "*");
  lex.AñadeOpr(MotorCalc::kPor, "·");
  lex.AñadeOpr(MotorCalc::kEntre, "/");
  lex.AñadeOpr(MotorCalc::kPotencia, "^");
  lex.AñadeOpr(MotorCalc::kAbre, "(");
  lex.AñadeOpr(MotorCalc::kCierra, ")");
  lex.AñadeOpr(MotorCalc::kIgual, "=");
  for (std::size_t i = 0; i < kFunciones.size(); ++i)
    lex.AñadePC(MotorCalc::kPrimeraFuncion + static_cast<int>(i), std::string(kFunciones[i]));
  lex.AñadePC(MotorCalc::kPi, "pi");
  lex.AñadePC(MotorCalc::kE, "e");
  lex.IndCom(MotorCalc::kCom);
  lex.IndFL(MotorCalc::kFL);
  lex.IndFA(MotorCalc::kFA);
  lex.IndCad(MotorCalc::kCad);
  lex.IndNum(MotorCalc::kNum);
  lex.IndId(MotorCalc::kId);
  lex.IndPC(MotorCalc::kPC);
  lex.IndOpr(MotorCalc::kOpr);
  lex.IndDesc(MotorCalc::kDesc);
}

} // namespace

// ---------------------------------------------------------------------------
// The public class: every call goes to the workings.

CalcSimbolic::CalcSimbolic() : motor_(std::make_unique<MotorCalc>()) {}
CalcSimbolic::~CalcSimbolic() = default;
CalcSimbolic::CalcSimbolic(const CalcSimbolic& otra)
    : motor_(std::make_unique<MotorCalc>(*otra.motor_)) {}
CalcSimbolic& CalcSimbolic::operator=(const CalcSimbolic& otra) {
  motor_ = std::make_unique<MotorCalc>(*otra.motor_);
  return *this;
}
CalcSimbolic::CalcSimbolic(CalcSimbolic&&) noexcept = default;
CalcSimbolic& CalcSimbolic::operator=(CalcSimbolic&&) noexcept = default;

std::string CalcSimbolic::ErrDesc() const { return motor_->errDesc_; }
std::int32_t CalcSimbolic::ErrNumber() const { return motor_->errNumber_; }
bool CalcSimbolic::CalcExpNum() const { return motor_->calcExpNum_; }
void CalcSimbolic::CalcExpNum(bool valor) {
  motor_->calcExpNum_ = valor;
  motor_->resolveConst_ = true;
}
bool CalcSimbolic::ResolveConst() const { return motor_->resolveConst_; }
void CalcSimbolic::ResolveConst(bool valor) { motor_->resolveConst_ = valor; }
std::string CalcSimbolic::PuntoDec() const { return motor_->puntoDec_; }
void CalcSimbolic::PuntoDec(const std::string& separador) { motor_->PuntoDec(separador); }
std::string CalcSimbolic::Calc(const std::string& exp) { return motor_->Calc(exp); }
bool CalcSimbolic::IguCero(std::string& ecu) { return motor_->IguCero(ecu); }
std::string CalcSimbolic::Desp_axNb(const std::string& exp, const std::string& var) {
  return motor_->Desp_axNb(exp, var);
}
int CalcSimbolic::CifRedInt() const { return motor_->cifRedInt_; }
void CalcSimbolic::CifRedInt(int valor) { motor_->cifRedInt_ = valor; }

// ---------------------------------------------------------------------------
// The public calls under their traps

MotorCalc::MotorCalc() {
  Configura(lexP_);
  Configura(lexS_);
  lexP_.IgnCom(true);
  PuntoDec(".");
}

void MotorCalc::PuntoDec(const std::string& separador) {
  if (separador != "." && separador != ",") {
    Avisa(".CalcSimbolic", "El separador decimal sólo puede ser el punto o la coma.");
    return;
  }
  puntoDec_ = separador;
  lexP_.PuntoDec(separador);
}

void MotorCalc::Empieza() {
  escaneos_.clear();
  trabajo_ = 0;
}

std::string MotorCalc::Calc(const std::string& exp) {
  errNumber_ = 0;
  Empieza();
  try {
    return Cp1252AUtf8(SimplExp(Utf8ACp1252(exp)));
  } catch (const ErrorMotor& e) {
    AtrapaError(e);
    return "";
  }
}

/// iguala-cero ::= expr "=" expr fin
bool MotorCalc::IguCero(std::string& ecu) {
  Empieza();
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

void MotorCalc::AtrapaError(const ErrorMotor& error) {
  errNumber_ = error.numero;
  errDesc_ = DescripcionDe(error, kMensajes);
}

// ---------------------------------------------------------------------------
// Parser

std::string MotorCalc::SimplExp(std::string_view texto, bool propio) {
  CargaTexto(texto, propio);
  std::string resultado = Expr();
  Espera(kFA);
  return resultado;
}

void MotorCalc::CargaTexto(std::string_view texto, bool propio) {
  lexP_.PuntoDec(propio ? "." : puntoDec_);
  lexP_.BufferBytes(std::string(texto));
  anidamiento_ = 0;
  Avanza();
}

void MotorCalc::Avanza() { token_ = lexP_.SgtToken(); }

void MotorCalc::Espera(int tipo) {
  if (token_ != tipo) throw ErrorMotor(ErrorDeEsperado(tipo, kEsperados));
  Avanza();
}

/// expr ::= termino { ("+" | "-") termino }      left-associative
std::string MotorCalc::Expr() {
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
std::string MotorCalc::TerminoExp() {
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
std::string MotorCalc::Signado() {
  const bool negativo = Signos();
  std::string valor = Potencia();
  return negativo ? NegExp(valor) : valor;
}

/// signos ::= { "+" | "-" }      returns whether the net sign is negative
bool MotorCalc::Signos() {
  bool negativo = false;
  while (token_ == kMas || token_ == kMenos) {
    if (token_ == kMenos) negativo = !negativo;
    Avanza();
  }
  return negativo;
}

/// potencia ::= primario { "^" base-signada }      LEFT-associative: a^b^c is (a^b)^c
std::string MotorCalc::Potencia() {
  std::string l = Primario();
  while (token_ == kPotencia) {
    Avanza();
    const std::string r = BaseSignada();
    l = PotExp(l, r);
  }
  return l;
}

/// base-signada ::= signos primario      an exponent may carry its own sign: x^-2
std::string MotorCalc::BaseSignada() {
  const bool negativo = Signos();
  std::string valor = Primario();
  return negativo ? NegExp(valor) : valor;
}

/// primario ::= "(" expr ")" | funcion | constante | numero | variable
std::string MotorCalc::Primario() {
  if (token_ == kAbre || (token_ >= kPrimeraFuncion && token_ <= kUltimaFuncion)) {
    if (++anidamiento_ > kMaxAnidamientoCalc || !QuedaPila())
      throw ErrorMotor(ErrAritmetica::Anidamiento);
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
    throw ErrorMotor(ErrCalc::EsperaExpresion);
  }
  Avanza();
  return valor;
}

/// funcion ::= nombre "(" expr ")"
std::string MotorCalc::Funcion() {
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
