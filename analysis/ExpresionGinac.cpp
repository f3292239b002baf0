#include "analysis/ExpresionGinac.h"

#include "lang/AnaLex.h"
#include "lang/Cp1252.h"
#include "lang/Vocabulario.h"

using namespace GiNaC;

namespace {

// ArcSec and ArcCosec: atan(x/(x^2-1)^(1/2)) plus a multiple of Pi/2 that is
// constant on each side of where they are defined, so both have the
// derivative of the arc tangent.
ex DerivadaArcoSec(const ex& x, unsigned) { return -1 / (sqrt(x * x - 1) * (2 * x * x - 1)); }

} // namespace

DECLARE_FUNCTION_1P(arcsec_mirkal)
DECLARE_FUNCTION_1P(arccosec_mirkal)

namespace {

ex ArcSecEvalf(const ex& x) {
  if (!is_a<numeric>(x)) return arcsec_mirkal(x).hold();
  return (atan(x / sqrt(x * x - 1)) + csgn(ex_to<numeric>(x) - 1) * Pi / 2).evalf();
}
ex ArcCosecEvalf(const ex& x) {
  if (!is_a<numeric>(x)) return arccosec_mirkal(x).hold();
  return (atan(x / sqrt(x * x - 1)) + (csgn(ex_to<numeric>(x)) - 1) * Pi / 2).evalf();
}

} // namespace

REGISTER_FUNCTION(arcsec_mirkal, evalf_func(ArcSecEvalf)
                                     .derivative_func(DerivadaArcoSec)
                                     .set_name("ArcSec", "\\operatorname{arcsec}"))
REGISTER_FUNCTION(arccosec_mirkal, evalf_func(ArcCosecEvalf)
                                       .derivative_func(DerivadaArcoSec)
                                       .set_name("ArcCosec", "\\operatorname{arccsc}"))

ex ArcSecante(const ex& x) { return arcsec_mirkal(x); }
ex ArcCosecante(const ex& x) { return arccosec_mirkal(x); }

namespace {

enum Codigo : int {
  kMas = 1,
  kMenos,
  kPor,
  kEntre,
  kPotencia,
  kAbre,
  kCierra,
  kPi,
  kE,
  kNum,
  kId,
  kFA,
  kOtro,
  kPrimeraFuncion = 100
};

// The meaning of each function, in the vocabulary's order.
ex Aplica(std::size_t i, const ex& x) {
  switch (i) {
  case 0:
    return log(x) / log(ex(10)); // Log (ex: the log of a numeric is a float)
  case 1:
    return log(x); // Ln
  case 2:
    return sin(x);
  case 3:
    return cos(x);
  case 4:
    return tan(x);
  case 5:
    return 1 / cos(x); // Sec
  case 6:
    return 1 / sin(x); // Cosec
  case 7:
    return 1 / tan(x); // Ctg
  case 8:
    return asin(x); // ArcSin
  case 9:
    return acos(x); // ArcCos
  case 10:
    return atan(x); // ArcTg
  case 11:
    return ArcSecante(x);
  case 12:
    return ArcCosecante(x);
  case 13:
    return atan(x) + Pi / 2; // ArcCtg
  case 14:
    return sinh(x);
  case 15:
    return cosh(x);
  case 16:
    return tanh(x);
  case 17:
    return 1 / cosh(x); // SecH
  case 18:
    return 1 / sinh(x); // CosecH
  case 19:
    return 1 / tanh(x); // CtgH
  case 20:
    return asinh(x); // ArcSinH
  case 21:
    return acosh(x); // ArcCosH
  case 22:
    return atanh(x); // ArcTgH
  case 23:
    return acosh(1 / x); // ArcSecH
  case 24:
    return asinh(1 / x); // ArcCosecH
  default:
    return atanh(1 / x); // ArcCtgH
  }
}

// A number's text ("2.5", ".5", "1E-3", "2D5") as the exact rational it writes.
ex Racional(std::string t) {
  std::string cifras, exponente;
  long decimales = 0;
  bool tras = false;
  std::size_t i = 0;
  for (; i < t.size() && (std::isdigit(static_cast<unsigned char>(t[i])) || t[i] == '.'); ++i) {
    if (t[i] == '.') {
      tras = true;
      continue;
    }
    cifras += t[i];
    if (tras) ++decimales;
  }
  if (i < t.size()) exponente = t.substr(i + 1);
  long e = exponente.empty() ? 0 : std::stol(exponente);
  if (e > 400 || e < -400) throw ErrorAnalisis("El número «" + t + "» es demasiado grande");
  e -= decimales;
  const numeric diez(10);
  numeric valor(cifras.empty() ? "0" : cifras.c_str());
  return e >= 0 ? valor * pow(diez, e) : valor / pow(diez, -e);
}

class Lector {
public:
  Lector(const std::string& texto, Variables& variables) : variables_(variables) {
    lex_.IgnFL(true);
    const std::pair<int, const char*> operadores[] = {{kMas, "+"},  {kMenos, "-"}, {kPor, "*"},
                                                      {kPor, "·"},  {kEntre, "/"}, {kPotencia, "^"},
                                                      {kAbre, "("}, {kCierra, ")"}};
    for (const auto& [codigo, texto] : operadores)
      lex_.AñadeOpr(codigo, texto);
    for (std::size_t i = 0; i < kFunciones.size(); ++i)
      lex_.AñadePC(kPrimeraFuncion + static_cast<int>(i), std::string(kFunciones[i]));
    lex_.AñadePC(kPi, "pi");
    lex_.AñadePC(kE, "e");
    lex_.IndNum(kNum);
    lex_.IndId(kId);
    lex_.IndFA(kFA);
    // Whatever else the normalised text could hold reads as no token the
    // grammar takes.
    lex_.IndCom(kOtro);
    lex_.IndCad(kOtro);
    lex_.IndDesc(kOtro);
    lex_.IndFL(kOtro);
    lex_.IndPC(kOtro);
    lex_.IndOpr(kOtro);
    lex_.Buffer(texto);
    Avanza();
  }

  ex Todo() {
    const ex e = Expr();
    if (token_ != kFA) Falla();
    return e;
  }

private:
  void Avanza() { token_ = lex_.SgtToken(); }
  [[noreturn]] void Falla() {
    throw ErrorAnalisis("No se pudo leer la expresión en la columna " +
                        std::to_string(lex_.Col() - lex_.LongLex() + 1));
  }
  void Espera(int codigo) {
    if (token_ != codigo) Falla();
    Avanza();
  }
  ex Expr() {
    ex l = Termino();
    while (token_ == kMas || token_ == kMenos) {
      const bool resta = token_ == kMenos;
      Avanza();
      const ex r = Termino();
      l = resta ? l - r : l + r;
    }
    return l;
  }
  ex Termino() {
    ex l = Signado();
    while (token_ == kPor || token_ == kEntre) {
      const bool division = token_ == kEntre;
      Avanza();
      const ex r = Signado();
      l = division ? l / r : l * r;
    }
    return l;
  }
  bool Signos() {
    bool negativo = false;
    while (token_ == kMas || token_ == kMenos) {
      negativo ^= token_ == kMenos;
      Avanza();
    }
    return negativo;
  }
  // A leading sign binds looser than "^": -x^2 is -(x^2).
  ex Signado() {
    const bool negativo = Signos();
    const ex v = Potencia();
    return negativo ? -v : v;
  }
  // "^" groups from the left: a^b^c is (a^b)^c; an exponent may carry a sign.
  ex Potencia() {
    ex l = Primario();
    while (token_ == kPotencia) {
      Avanza();
      const bool negativo = Signos();
      const ex r = Primario();
      l = pow(l, negativo ? -r : r);
    }
    return l;
  }
  ex Primario() {
    if (token_ == kAbre) {
      Avanza();
      const ex v = Expr();
      Espera(kCierra);
      return v;
    }
    if (token_ >= kPrimeraFuncion) {
      const auto i = static_cast<std::size_t>(token_ - kPrimeraFuncion);
      Avanza();
      Espera(kAbre);
      const ex v = Expr();
      Espera(kCierra);
      return Aplica(i, v);
    }
    ex v;
    if (token_ == kPi)
      v = Pi;
    else if (token_ == kE)
      v = exp(ex(1)); // ex: exp of a numeric would be a float
    else if (token_ == kNum)
      v = Racional(std::string(lex_.LexBytes()));
    else if (token_ == kId)
      v = Variable(std::string(lex_.LexBytes()));
    else
      Falla();
    Avanza();
    return v;
  }
  ex Variable(const std::string& bytes) {
    const std::string clave = EnMayusculas(bytes);
    auto sitio = variables_.find(clave);
    if (sitio == variables_.end())
      sitio = variables_.emplace(clave, symbol(Cp1252AUtf8(bytes))).first;
    return sitio->second;
  }

  AnaLex lex_;
  int token_ = kFA;
  Variables& variables_;
};

} // namespace

ex LeeExpresion(const std::string& texto, Variables& variables) {
  return Lector(texto, variables).Todo();
}

#if defined(__SANITIZE_ADDRESS__)
// CLN, under GiNaC, keeps a few bytes from start-up for the program's whole
// life, and GiNaC leaves behind the pieces of an expression it was building
// when it throws at a pole; with these libraries in a checked build, neither
// is reported as a leak of ours (tests/lsan.supp says the same for programs
// that do not hold this file).
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libcln.so\nleak:libginac.so\n";
}
#endif
