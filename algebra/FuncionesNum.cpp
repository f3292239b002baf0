#include "algebra/FuncionesNum.h"

#include <cmath>

#include "lang/Errores.h"

namespace {

[[noreturn]] void Falla(int numero, const char* descripcion) {
  throw ErrorMotor{numero, descripcion};
}

double Comprueba(double v) {
  if (std::isnan(v)) Falla(kErrArgumento, kDescArgumento);
  if (std::isinf(v)) Falla(kErrDesbordamiento, kDescDesbordamiento);
  return v;
}
double Div(double a, double b) {
  if (b == 0) Falla(kErrDivisionCero, kDescDivisionCero);
  return Comprueba(a / b);
}
double Ln(double a) {
  if (!(a > 0)) Falla(kErrArgumento, kDescArgumento);
  return std::log(a);
}
double Raiz(double a) {
  if (a < 0) Falla(kErrArgumento, kDescArgumento);
  return std::sqrt(a);
}
double Exp(double a) { return Comprueba(std::exp(a)); }
double Sgn(double a) { return a > 0 ? 1 : a < 0 ? -1 : 0; }

} // namespace

double EvaluaFuncion(int indice, double x) {
  const double mitadPi = 2 * std::atan(1.0);
  switch (indice) {
  case 0:
    return Div(Ln(x), Ln(10)); // Log
  case 1:
    return Ln(x);
  case 2:
    return std::sin(x);
  case 3:
    return std::cos(x);
  case 4:
    return Comprueba(std::tan(x));
  case 5:
    return Div(1, std::cos(x)); // Sec
  case 6:
    return Div(1, std::sin(x)); // Cosec
  case 7:
    return Div(1, std::tan(x)); // Ctg
  case 8:
    return std::atan(Div(x, Raiz(-x * x + 1))); // ArcSin
  case 9:
    return std::atan(Div(-x, Raiz(-x * x + 1))) + mitadPi; // ArcCos
  case 10:
    return std::atan(x); // ArcTg
  case 11:
    return std::atan(Div(x, Raiz(x * x - 1))) + Sgn(x - 1) * mitadPi; // ArcSec
  case 12:
    return std::atan(Div(x, Raiz(x * x - 1))) + (Sgn(x) - 1) * mitadPi; // ArcCosec
  case 13:
    return std::atan(x) + mitadPi; // ArcCtg
  case 14:
    return Comprueba((Exp(x) - Exp(-x)) / 2); // SinH
  case 15:
    return Comprueba((Exp(x) + Exp(-x)) / 2); // CosH
  case 16:
    return Div(Exp(x) - Exp(-x), Exp(x) + Exp(-x)); // TgH
  case 17:
    return Div(2, Exp(x) + Exp(-x)); // SecH
  case 18:
    return Div(2, Exp(x) - Exp(-x)); // CosecH
  case 19:
    return Div(Exp(x) + Exp(-x), Exp(x) - Exp(-x)); // CtgH
  case 20:
    return Ln(x + Raiz(x * x + 1)); // ArcSinH
  case 21:
    return Ln(x + Raiz(x * x - 1)); // ArcCosH
  case 22:
    return Div(Ln(Div(1 + x, 1 - x)), 2); // ArcTgH
  case 23:
    return Ln(Div(Raiz(-x * x + 1) + 1, x)); // ArcSecH
  case 24:
    return Ln(Div(Sgn(x) * Raiz(x * x + 1) + 1, x)); // ArcCosecH
  case 25:
    return Div(Ln(Div(x + 1, x - 1)), 2); // ArcCtgH
  default:
    Falla(kErrArgumento, kDescArgumento);
  }
}
