// Simplification must not change an expression's value. Random expressions
// are simplified and both texts are evaluated at random points by the tests'
// own reader of the language.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <numbers>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "EvaluadorPrueba.h"
#include "algebra/CalcSimbolic.h"

namespace {

using T = long double;

// The shared reader, at a point of x and y; see EvaluadorPrueba.h. A value
// that the rounding noise `ruido` changes is too ill-conditioned to judge a
// rewriting by.
std::optional<T> Evalua(const std::string& texto, T x, T y, T ruido = 0, unsigned semilla = 1) {
  return prueba::Valor(texto, {{"x", x}, {"y", y}}, ruido, semilla);
}

// The evaluator itself must read the language as the calculator does.
TEST(PropiedadCalc, EvaluatorReadsTheLanguage) {
  // clang-format off
  const struct {
    const char* texto;
    double valor;
  } casos[] = {
      {"2^3^2", 64}, {"-2^2", -4}, {"2^-1", .5}, {"2^--1", 2}, {"-+-3", 3}, {"1-2-3", -4},
      {"12/2/3", 2}, {"2*(3+x)", 8}, {"1.5E+1", 15}, {"7D2", 700}, {".5·4", 2},
      {"SIN(0)+cos(0)", 1}, {"Ln(e)", 1}, {"Log(1000)", 3}, {"PI-pi", 0}, {"y^x", 2},
      {"ArcCtg(1)", std::numbers::pi / 4}, {"ArcCtg(-1)", 3 * std::numbers::pi / 4}, {"x·y", 2},
  };
  // clang-format on
  for (const auto& c : casos) {
    const auto v = Evalua(c.texto, 1.0, 2.0);
    ASSERT_TRUE(v) << c.texto;
    EXPECT_NEAR(*v, c.valor, 1e-12) << c.texto;
  }
  for (const char* malo : {"", "x+", "(x", "Sin x", "x y", "z", "2$"})
    EXPECT_FALSE(Evalua(malo, 1.0, 2.0)) << malo;
  for (const char* indefinido : {"1/(1/0)", "Ln(0)", "ArcSin(2)"})
    EXPECT_TRUE(std::isnan(*Evalua(indefinido, 1.0, 2.0))) << indefinido;
}

// Random expressions over x and y, with a fixed seed so that a failure can
// be reproduced.
class Generador {
public:
  explicit Generador(unsigned semilla) : g_(semilla) {}

  std::string Expr(int prof) {
    if (prof <= 0 || Uno(5) == 0) return Hoja();
    switch (Uno(11)) {
    case 0:
    case 1:
      return Expr(prof - 1) + "+" + Expr(prof - 1);
    case 2:
      return Expr(prof - 1) + "-" + Expr(prof - 1);
    case 3:
    case 4:
      return Operando(prof - 1) + (Uno(8) ? "*" : "·") + Operando(prof - 1);
    case 5:
      return Operando(prof - 1) + "/" + Operando(prof - 1);
    case 6:
    case 7: {
      // Quotients are raised too, and chains are common: powers associate to
      // the left, (b^m)^n, and a chain such as ^-1^-1 gives the base back.
      static const char* const exps[] = {"2", "3", "-1", "(-1)",  "(-2)", "-1",
                                         "0", "1", "-2", "(1+1)", "-1",   "(-1)"};
      const std::string base =
          Uno(3) ? Operando(prof - 1) : "(" + Operando(prof - 1) + "/" + Operando(prof - 1) + ")";
      const std::string pot = base + "^" + exps[Uno(12)];
      return Uno(2) ? pot : pot + "^" + exps[Uno(12)];
    }
    case 8:
      return "-" + Operando(prof - 1);
    case 9: {
      static const char* const fs[] = {"Sin", "Cos", "ArcTg", "SinH", "CosH", "sin", "ARCTG"};
      return std::string(fs[Uno(7)]) + "(" + Expr(prof - 1) + ")";
    }
    default:
      return std::string(Uno(2) ? "Ln" : "Log") + "(" + Positivo(prof - 1) + ")";
    }
  }

private:
  int Uno(int n) { return static_cast<int>(g_() % static_cast<unsigned>(n)); }

  // Mostly bracketed; a bare operand tests the precedence of both readers.
  std::string Operando(int prof) {
    const std::string e = Expr(prof);
    return Uno(4) ? "(" + e + ")" : e;
  }

  std::string Hoja() {
    static const char* const hojas[] = {"x", "y",  "x",    "y",   "X",    "1", "2",  "3",
                                        "5", ".5", "0.25", "1.5", "2.50", "0", "pi", "e"};
    return hojas[Uno(16)];
  }

  // A positive value wherever x and y are: positive leaves under "+", "*",
  // "/" and integer powers, however they group.
  std::string Positivo(int prof) {
    static const char* const hojas[] = {"x", "y", "2", ".5", "pi"};
    if (prof <= 0 || Uno(3) == 0) return hojas[Uno(5)];
    switch (Uno(5)) {
    case 0:
      return Positivo(prof - 1) + "+" + Positivo(prof - 1);
    case 1:
      return "(" + Positivo(prof - 1) + ")*" + Positivo(prof - 1);
    case 2:
      return Positivo(prof - 1) + "/(" + Positivo(prof - 1) + ")";
    case 3:
      return "(" + Positivo(prof - 1) + ")^" + (Uno(2) ? "2" : "-1");
    default:
      return "CosH(" + Expr(prof - 1) + ")";
    }
  }

  std::mt19937 g_;
};

// Coefficients carry 15 digits; 1e-7 leaves room for the rounding to be
// amplified by the expressions that pass the conditioning test below.
bool Cerca(T a, T b, T rel = 1e-7L) {
  return std::fabs(a - b) <= rel * std::max(std::fabs(a), std::fabs(b)) + 1e-9L;
}

using Puntos = std::vector<std::pair<T, T>>;

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

// Texts whose rewriting goes through rarely met paths: a power that gives its
// base back in parentheses, a base holding "/", cancelling terms.
TEST(PropiedadCalc, CornerCasesKeepTheirValue) {
  const char* const casos[] = {
      "1/(x/y)^-1^-1+1",     "1+1/(x/y)^-1^-1", "(x/y)^-1^-1/2+1",     "y/(2/x)^-1^-1-y",
      "((x/y)^-1)^-1/(x+1)", "(x/y)^-1^-1*2+1", "(x^2/y)^3+1",         "(x^2/y)^-1*x",
      "x*x/x+1/x",           "1/x+1/y-1/(x*y)", "(x+1)*(x-1)/(x+1)",   "2^-1^-2*x",
      "-x^2^-1+x",           "(x-y)/(y-x)+x",   "((2*x)^-1)^-1*(x+1)",
  };
  CalcSimbolic calc;
  for (const char* entrada : casos)
    EXPECT_EQ(Compara(calc, entrada, {{.7L, 1.9L}, {1.3L, .4L}, {2.2L, 1.1L}}), 3) << entrada;
}

// Many random expressions at random points, up to the first that changes;
// returns how many points judged, for the check that the run was not empty.
int CompruebaValores(bool numerico, unsigned semilla) {
  CalcSimbolic calc;
  if (numerico) calc.CalcExpNum(true); // either value would resolve the constants
  Generador gen(semilla);
  std::mt19937 azar(semilla + 1);
  std::uniform_real_distribution<double> rango(0.3, 2.5);
  int comparados = 0;
  for (int i = 0; i < 2000 && !testing::Test::HasFailure(); ++i) {
    const std::string entrada = gen.Expr(4);
    Puntos puntos(4);
    for (auto& [x, y] : puntos)
      x = rango(azar), y = rango(azar);
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
