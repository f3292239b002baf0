// Simplification must not change an expression's value. Expressions, random
// ones and those of tests/casos/valores.txt, are simplified, and both texts
// are evaluated at points of x and y by the tests' own reader of the language
// (EvaluadorPrueba.h), whose reading the same file pins first.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <string>
#include <utility>
#include <vector>

#include "Casos.h"
#include "EvaluadorPrueba.h"
#include "algebra/CalcSimbolic.h"

namespace {

using prueba::T;
using Puntos = std::vector<std::pair<T, T>>;

// A value that the rounding noise `ruido` changes is too ill-conditioned to
// judge a rewriting by.
std::optional<T> Evalua(const std::string& texto, T x, T y, T ruido = 0, unsigned semilla = 1) {
  return prueba::Valor(texto, {{"x", x}, {"y", y}}, ruido, semilla);
}

// Coefficients carry 15 digits; 1e-7 leaves room for the rounding to be
// amplified by the expressions that pass the conditioning test below.
bool Cerca(T a, T b, T rel = 1e-7L) {
  return std::fabs(a - b) <= rel * std::max(std::fabs(a), std::fabs(b)) + 1e-9L;
}

// Compares at each point the value of `entrada` with that of its simplified
// text and of that text simplified again; returns at how many points this
// judged a rewriting. A point cannot judge where the value is undefined, too
// large, or so ill-conditioned that rounding noise moves it.
int Compara(CalcSimbolic& calc, const std::string& entrada, const Puntos& puntos) {
  const std::string salida = calc.Calc(entrada), desc = salida.empty() ? calc.ErrDesc() : "";
  const std::string otra = salida.empty() ? "" : calc.Calc(salida);
  int juzgados = 0;
  for (const auto& [x, y] : puntos) {
    const auto vin = Evalua(entrada, x, y);
    const auto vr1 = Evalua(entrada, x, y, 1e-13L, 1), vr2 = Evalua(entrada, x, y, 1e-13L, 2);
    if (!vin || !vr1 || !vr2) {
      ADD_FAILURE() << "generated text does not parse: " << entrada;
      return juzgados;
    }
    if (!std::isfinite(*vin) || std::fabs(*vin) > 1e6L || !Cerca(*vin, *vr1, 1e-8L) ||
        !Cerca(*vin, *vr2, 1e-8L))
      continue;
    ++juzgados;
    const auto vout = Evalua(salida, x, y), votra = Evalua(otra, x, y);
    if (!vout || !votra || !Cerca(*vin, *vout) || !Cerca(*vin, *votra)) {
      ADD_FAILURE() << std::setprecision(17) << "value changed\n  input:  " << entrada
                    << "\n  output: " << salida << " " << desc << "\n  again:  " << otra
                    << "\n  at x=" << x << " y=" << y << " (CalcExpNum " << calc.CalcExpNum()
                    << "): " << *vin << " became " << (vout ? *vout : NAN) << ", "
                    << (votra ? *votra : NAN);
      return juzgados;
    }
  }
  return juzgados;
}

class Valores : public prueba::TablaDeCasos {};

TEST_P(Valores, Caso) {
  const prueba::Caso& c = GetParam();
  const std::string texto = prueba::Texto(c[1]);
  const auto v = Evalua(texto, 1, 2);
  if (c[0] == "valor") {
    ASSERT_TRUE(v);
    EXPECT_NEAR(*v, std::stold(c[2]), 1e-12L);
  } else if (c[0] == "no-lee") {
    EXPECT_FALSE(v);
  } else if (c[0] == "indefinido") {
    ASSERT_TRUE(v);
    EXPECT_TRUE(std::isnan(*v));
  } else {
    ASSERT_EQ(c[0], "conserva");
    CalcSimbolic calc;
    EXPECT_EQ(Compara(calc, texto, {{.7L, 1.9L}, {1.3L, .4L}, {2.2L, 1.1L}}), 3);
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Valores, prueba::Casos("valores.txt"), prueba::NombreDeCaso);

// Many random expressions at random points, up to the first that changes;
// returns how many points judged, for the check that the run was not empty.
int CompruebaValores(bool numerico, unsigned semilla) {
  CalcSimbolic calc;
  if (numerico) calc.CalcExpNum(true); // either value would resolve the constants
  // Numbers in functions are evaluated only with CalcExpNum, and then ArcSec,
  // ArcCosec and ArcCtg keep their historical branch, and TgH, SecH and
  // CosecH overflow in their exponentials long before their values do.
  prueba::Generador gen(semilla, "xy", numerico ? " ArcSec ArcCosec ArcCtg TgH SecH CosecH " : "");
  int comparados = 0;
  for (int i = 0; i < 2000 && !testing::Test::HasFailure(); ++i) {
    const std::string entrada = gen.Expr(4);
    Puntos puntos(4);
    for (auto& [x, y] : puntos)
      x = gen.Punto(), y = gen.Punto();
    comparados += Compara(calc, entrada, puntos);
  }
  return comparados;
}

TEST(PropiedadCalc, SimplifyingKeepsTheValue) {
  EXPECT_GT(CompruebaValores(false, 20240611), 4000);
}

TEST(PropiedadCalc, SimplifyingWithNumericEvaluationKeepsTheValue) {
  EXPECT_GT(CompruebaValores(true, 777), 4000);
}

} // namespace
