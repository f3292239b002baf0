// Derivatives checked by value: those of tests/casos/pendientes.txt (every
// function's rule among them) against their exact values, and random explicit functions y = f(x)
// and implicit equations F(x, y) = G(x, y) built by the shared generator against a central finite
// difference (of f, or -F_x/F_y).

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <string>

#include "Casos.h"
#include "EvaluadorPrueba.h"
#include "differentiation/Derivada.h"
#include "lang/Errores.h"

namespace {

using prueba::T;

// dy/dx of an equation, y depending on x.
std::string Deriva(Derivada& d, const std::string& ecuacion) {
  d.VarDep("y");
  d.VarInd("x");
  return d.Derivar(ecuacion);
}

class Pendientes : public prueba::TablaDeCasos {};

TEST_P(Pendientes, ValorExacto) {
  const prueba::Caso& c = GetParam();
  Derivada d;
  const std::string r = Deriva(d, c[0]);
  ASSERT_EQ(d.ErrNumber(), 0) << d.ErrDesc();
  const auto v = prueba::Evalua(r, {{"x", std::stold(c[1])}, {"y", std::stold(c[2])}});
  ASSERT_TRUE(v) << r;
  EXPECT_NEAR(*v, std::stold(c[3]), 1e-12L * (1 + std::fabs(std::stold(c[3])))) << r;
}

INSTANTIATE_TEST_SUITE_P(Casos, Pendientes, prueba::Casos("pendientes.txt"), prueba::NombreDeCaso);

using Funcion = std::function<std::optional<T>(T)>;

// Central difference of f at t, or nothing where two step sizes disagree
// (near a pole or a branch point the difference cannot be trusted).
std::optional<T> Diferencia(const Funcion& f, T t) {
  T d[2];
  int i = 0;
  for (T h : {1e-5L, 2e-5L}) {
    const auto a = f(t + h), b = f(t - h);
    if (!a || !b) return std::nullopt;
    d[i++] = (*a - *b) / (2 * h);
  }
  if (std::fabs(d[0] - d[1]) > 1e-7L * (1 + std::fabs(d[0]))) return std::nullopt;
  return d[0];
}

struct Cuenta {
  int comparados = 0, equivocados = 0, ecuaciones = 0, crecidas = 0;
};

// Differentiates `izq = der` and compares at a few points with -F_x/F_y of
// F = izq - der (F_y is 1 for y = f(x)).
void Comprueba(prueba::Generador& g, const std::string& izq, const std::string& der,
               Cuenta& cuenta) {
  const std::string ecuacion = izq + " = " + der;
  Derivada d;
  const std::string r = Deriva(d, ecuacion);
  ++cuenta.ecuaciones;
  if (d.ErrNumber() == NumeroError(5)) { // grew past the size limit: a refusal of its own
    ++cuenta.crecidas;
    return;
  }
  auto F = [&](T x, T y) -> std::optional<T> {
    const prueba::Valores v = {{"x", x}, {"y", y}};
    const auto a = prueba::Evalua(izq, v), b = prueba::Evalua(der, v);
    if (!a || !b || std::fabs(*a) > 1e8L || std::fabs(*b) > 1e8L) return std::nullopt;
    return *a - *b;
  };
  for (int k = 0; k < 3; ++k) {
    const T x = g.Punto(), y = g.Punto();
    const auto fx = Diferencia([&](T t) { return F(t, y); }, x);
    const auto fy = Diferencia([&](T t) { return F(x, t); }, y);
    if (!fx || !fy || std::fabs(*fy) < 1e-3L || std::fabs(*fx / *fy) > 1e6L) continue;
    const T esperado = -*fx / *fy;
    ++cuenta.comparados;
    const auto obtenido = prueba::Evalua(r, {{"x", x}, {"y", y}});
    const bool bien = d.ErrNumber() == 0 && obtenido &&
                      std::fabs(*obtenido - esperado) <= 1e-5L * std::fabs(esperado) + 1e-7L;
    if (!bien && ++cuenta.equivocados <= 10)
      ADD_FAILURE() << ecuacion << "\n  derivative: " << (d.ErrNumber() ? d.ErrDesc() : r)
                    << "\n  at x=" << static_cast<double>(x) << " y=" << static_cast<double>(y)
                    << ": expected " << static_cast<double>(esperado) << ", got "
                    << (obtenido ? std::to_string(static_cast<double>(*obtenido)) : "nothing");
  }
}

TEST(PropiedadDerivada, ExplicitAndImplicitDerivativesMatchFiniteDifferences) {
  // The checker that the differentiation engine reads through drops a sign
  // run after "^" (x^-2 is x^2, by design): signed exponents go bracketed.
  prueba::Generador g(20240611, "x", " ^- "), gy(777, "xy", " ^- ");
  Cuenta cuenta;
  for (int i = 0; i < 200; ++i)
    Comprueba(g, "y", g.Expr(1 + i % 3), cuenta);
  for (int i = 0; i < 120; ++i) {
    std::string izq = gy.Expr(1 + i % 2), der = gy.Expr(i % 3);
    if (izq.find_first_of("yY") == std::string::npos &&
        der.find_first_of("yY") == std::string::npos)
      izq = "y*(" + izq + ")";
    Comprueba(gy, izq, der, cuenta);
  }
  EXPECT_EQ(cuenta.equivocados, 0) << "of " << cuenta.comparados << " points compared";
  EXPECT_GT(cuenta.comparados, 700);
  EXPECT_LT(cuenta.crecidas, cuenta.ecuaciones / 20);
}

} // namespace
