// Random explicit functions y = f(x) and implicit equations F(x, y) = G(x, y),
// built from the operators and all 26 functions: the derivative found must
// agree in value with a central finite difference (of f, or -F_x/F_y).

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>

#include "EvaluadorPrueba.h"
#include "differentiation/Derivada.h"
#include "lang/Errores.h"

namespace {

// Each function with the argument shape that keeps it inside its domain and
// away from its poles, whatever value the inner expression G (the "@") takes.
// G is written once in each shape: a shape that repeats it makes the
// calculator's common denominators grow fast, and the test slow.
const char* const kLibre = "@";             // any real
const char* const kAcotado = "1/(2+(@)^2)"; // within (0, 1/2]
const char* const kPositivo = "1+(@)^2";    // at least 1
const char* const kMayor = "2+(@)^2";       // at least 2
const char* const kLejos = "1-1/(2+(@)^2)"; // within [1/2, 1)

const std::map<std::string, const char*> kFunciones = {
    {"Log", kPositivo},       {"Ln", kPositivo},    {"Sin", kLibre},       {"Cos", kLibre},
    {"Tg", kAcotado},         {"Sec", kAcotado},    {"Cosec", kLejos},     {"Ctg", kLejos},
    {"ArcSin", kAcotado},     {"ArcCos", kAcotado}, {"ArcTg", kLibre},     {"ArcSec", kMayor},
    {"ArcCosec", kMayor},     {"ArcCtg", kLibre},   {"SinH", kAcotado},    {"CosH", kAcotado},
    {"TgH", kLibre},          {"SecH", kLibre},     {"CosecH", kPositivo}, {"CtgH", kLejos},
    {"ArcSinH", kLibre},      {"ArcCosH", kMayor},  {"ArcTgH", kAcotado},  {"ArcSecH", kAcotado},
    {"ArcCosecH", kPositivo}, {"ArcCtgH", kMayor},
};

class Generador {
public:
  explicit Generador(unsigned semilla) : azar_(semilla) {}

  // An expression of the given depth in x, or in x and y.
  std::string Expr(int prof, bool conY) {
    if (prof == 0) return Hoja(conY);
    const int a = Uno(10);
    if (a < 2) return Expr(prof - 1, conY) + (Uno(2) ? "+" : "-") + Expr(prof - 1, conY);
    if (a < 4)
      return "(" + Expr(prof - 1, conY) + (Uno(5) ? ")*(" : ")\xC2\xB7(") + Expr(prof - 1, conY) +
             ")";
    if (a == 4) return "(" + Expr(prof - 1, conY) + ")/(" + Dentro(kPositivo, prof, conY) + ")";
    if (a == 5) {
      static const char* const exponentes[] = {"2", "3", "(-1)", "(-2)"};
      const char* n = exponentes[Uno(4)];
      if (n[0] == '(') return "(" + Dentro(kPositivo, prof, conY) + ")^" + n;
      return "(" + Expr(prof - 1, conY) + ")^" + n;
    }
    if (a == 6) // a variable exponent, and a constant or variable base
      return (Uno(2) ? std::string("2") : "(" + Dentro(kPositivo, prof, conY) + ")") + "^(" +
             Dentro(kAcotado, prof, conY) + ")";
    auto f = kFunciones.begin();
    std::advance(f, Uno(static_cast<int>(kFunciones.size())));
    return f->first + "(" + Dentro(f->second, prof, conY) + ")";
  }

  long double Punto() { return std::uniform_real_distribution<long double>(0.3L, 2.5L)(azar_); }

private:
  int Uno(int n) { return std::uniform_int_distribution<int>(0, n - 1)(azar_); }
  std::string Hoja(bool conY) {
    static const char* const numeros[] = {"2", "3", ".5", "1.5"};
    const int a = Uno(8);
    if (a < 2) return numeros[Uno(4)];
    return conY && a < 5 ? "y" : "x";
  }
  // The shape with an expression one level shallower in place of "@".
  std::string Dentro(std::string forma, int prof, bool conY) {
    return forma.replace(forma.find('@'), 1, Expr(prof - 1, conY));
  }

  std::mt19937 azar_;
};

using Funcion = std::function<std::optional<long double>(long double)>;

// Central difference of f at t, or nothing where two step sizes disagree
// (near a pole or a branch point the difference cannot be trusted).
std::optional<long double> Diferencia(const Funcion& f, long double t) {
  long double d[2];
  int i = 0;
  for (long double h : {1e-5L, 2e-5L}) {
    const auto a = f(t + h), b = f(t - h);
    if (!a || !b) return std::nullopt;
    d[i++] = (*a - *b) / (2 * h);
  }
  if (std::fabs(d[0] - d[1]) > 1e-7L * (1 + std::fabs(d[0]))) return std::nullopt;
  return d[0];
}

struct Cuenta {
  int comparados = 0, equivocados = 0, ecuaciones = 0, crecidas = 0;
  std::map<std::string, int> usos;
};

// Differentiates `izq = der` and compares at a few points with -F_x/F_y of
// F = izq - der (F_y is 1 for y = f(x)); the derivative is taken on y as the
// dependent variable and x as the independent one.
void Comprueba(Generador& g, const std::string& izq, const std::string& der, Cuenta& cuenta) {
  const std::string ecuacion = izq + " = " + der;
  Derivada d;
  d.VarDep("y");
  d.VarInd("x");
  const std::string r = d.Derivar(ecuacion);
  ++cuenta.ecuaciones;
  if (d.ErrNumber() == NumeroError(5)) { // grew past the size limit: a refusal of its own
    ++cuenta.crecidas;
    return;
  }
  auto F = [&](long double x, long double y) -> std::optional<long double> {
    const prueba::Valores v = {{"x", x}, {"y", y}};
    const auto a = prueba::Evalua(izq, v), b = prueba::Evalua(der, v);
    if (!a || !b || std::fabs(*a) > 1e8L || std::fabs(*b) > 1e8L) return std::nullopt;
    return *a - *b;
  };
  bool algunPunto = false;
  for (int k = 0; k < 3; ++k) {
    const long double x = g.Punto(), y = g.Punto();
    std::optional<long double> esperado;
    const auto fx = Diferencia([&](long double t) { return F(t, y); }, x);
    const auto fy = Diferencia([&](long double t) { return F(x, t); }, y);
    if (fx && fy && std::fabs(*fy) > 1e-3L) esperado = -*fx / *fy;
    if (!esperado || std::fabs(*esperado) > 1e6L) continue;
    algunPunto = true;
    ++cuenta.comparados;
    const auto obtenido = prueba::Evalua(r, {{"x", x}, {"y", y}});
    const bool bien = d.ErrNumber() == 0 && obtenido &&
                      std::fabs(*obtenido - *esperado) <= 1e-5L * std::fabs(*esperado) + 1e-7L;
    if (!bien && ++cuenta.equivocados <= 10)
      ADD_FAILURE() << ecuacion << "\n  derivative: " << (d.ErrNumber() ? d.ErrDesc() : r)
                    << "\n  at x=" << static_cast<double>(x) << " y=" << static_cast<double>(y)
                    << ": expected " << static_cast<double>(*esperado) << ", got "
                    << (obtenido ? std::to_string(static_cast<double>(*obtenido)) : "nothing");
  }
  if (algunPunto)
    for (const auto& [nombre, forma] : kFunciones)
      for (std::size_t p = ecuacion.find(nombre + "("); p != std::string::npos;
           p = ecuacion.find(nombre + "(", p + 1))
        if (p == 0 || !std::isalpha(static_cast<unsigned char>(ecuacion[p - 1]))) {
          ++cuenta.usos[nombre];
          break;
        }
}

TEST(PropiedadDerivada, ExplicitAndImplicitDerivativesMatchFiniteDifferences) {
  Generador g(20240611);
  Cuenta cuenta;
  for (int i = 0; i < 200; ++i)
    Comprueba(g, "y", g.Expr(1 + i % 3, false), cuenta);
  for (int i = 0; i < 120; ++i) {
    std::string izq = g.Expr(1 + i % 2, true), der = g.Expr(i % 3, true);
    if (izq.find('y') == std::string::npos && der.find('y') == std::string::npos)
      izq = "y*(" + izq + ")";
    Comprueba(g, izq, der, cuenta);
  }
  EXPECT_EQ(cuenta.equivocados, 0) << "of " << cuenta.comparados << " points compared";
  EXPECT_GT(cuenta.comparados, 700);
  EXPECT_LT(cuenta.crecidas, cuenta.ecuaciones / 20);
  for (const auto& [nombre, forma] : kFunciones)
    EXPECT_GT(cuenta.usos[nombre], 0) << nombre << " never took part in a comparison";
}

} // namespace
