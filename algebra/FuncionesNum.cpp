#include "algebra/FuncionesNum.h"

#include <array>
#include <cmath>

#include "lang/Errores.h"
#include "lang/Vocabulario.h"

namespace {

double Comprueba(double v) {
  if (std::isnan(v)) throw ErrorMotor(ErrAritmetica::Argumento);
  if (std::isinf(v)) throw ErrorMotor(ErrAritmetica::Desbordamiento);
  return v;
}
double Div(double a, double b) {
  if (b == 0) throw ErrorMotor(ErrAritmetica::DivisionCero);
  return Comprueba(a / b);
}
double Ln(double a) {
  if (!(a > 0)) throw ErrorMotor(ErrAritmetica::Argumento);
  return std::log(a);
}
double Raiz(double a) {
  if (a < 0) throw ErrorMotor(ErrAritmetica::Argumento);
  return std::sqrt(a);
}
double Exp(double a) { return Comprueba(std::exp(a)); }
double Sgn(double a) { return a > 0 ? 1 : a < 0 ? -1 : 0; }
double MitadPi() { return 2 * std::atan(1.0); }
// The arc tangent that ArcSec and ArcCosec share.
double AtanSec(double x) { return std::atan(Div(x, Raiz(x * x - 1))); }

// The formulas in the order of kFunciones.
using Formula = double (*)(double);
constexpr auto kFormulas = std::to_array<Formula>({
    [](double x) { return Div(Ln(x), Ln(10)); },                               // Log
    [](double x) { return Ln(x); },                                            // Ln
    [](double x) { return std::sin(x); },                                      // Sin
    [](double x) { return std::cos(x); },                                      // Cos
    [](double x) { return Comprueba(std::tan(x)); },                           // Tg
    [](double x) { return Div(1, std::cos(x)); },                              // Sec
    [](double x) { return Div(1, std::sin(x)); },                              // Cosec
    [](double x) { return Div(1, std::tan(x)); },                              // Ctg
    [](double x) { return std::atan(Div(x, Raiz(-x * x + 1))); },              // ArcSin
    [](double x) { return std::atan(Div(-x, Raiz(-x * x + 1))) + MitadPi(); }, // ArcCos
    [](double x) { return std::atan(x); },                                     // ArcTg
    [](double x) { return AtanSec(x) + Sgn(x - 1) * MitadPi(); },              // ArcSec
    [](double x) { return AtanSec(x) + (Sgn(x) - 1) * MitadPi(); },            // ArcCosec
    [](double x) { return std::atan(x) + MitadPi(); },                         // ArcCtg
    [](double x) { return Comprueba((Exp(x) - Exp(-x)) / 2); },                // SinH
    [](double x) { return Comprueba((Exp(x) + Exp(-x)) / 2); },                // CosH
    [](double x) { return Div(Exp(x) - Exp(-x), Exp(x) + Exp(-x)); },          // TgH
    [](double x) { return Div(2, Exp(x) + Exp(-x)); },                         // SecH
    [](double x) { return Div(2, Exp(x) - Exp(-x)); },                         // CosecH
    [](double x) { return Div(Exp(x) + Exp(-x), Exp(x) - Exp(-x)); },          // CtgH
    [](double x) { return Ln(x + Raiz(x * x + 1)); },                          // ArcSinH
    [](double x) { return Ln(x + Raiz(x * x - 1)); },                          // ArcCosH
    [](double x) { return Div(Ln(Div(1 + x, 1 - x)), 2); },                    // ArcTgH
    [](double x) { return Ln(Div(Raiz(-x * x + 1) + 1, x)); },                 // ArcSecH
    [](double x) { return Ln(Div(Sgn(x) * Raiz(x * x + 1) + 1, x)); },         // ArcCosecH
    [](double x) { return Div(Ln(Div(x + 1, x - 1)), 2); },                    // ArcCtgH
});
static_assert(kFormulas.size() == kFunciones.size());

} // namespace

double EvaluaFuncion(int indice, double x) {
  if (indice < 0 || indice >= static_cast<int>(kFormulas.size()))
    throw ErrorMotor(ErrAritmetica::Argumento);
  return kFormulas[static_cast<std::size_t>(indice)](x);
}
