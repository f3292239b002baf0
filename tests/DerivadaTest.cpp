// The differentiation engine: derivatives by the rule tables and the
// calculator, the checks on the variables' names, and the error record. The
// cases are the lines of tests/casos/derivadas.txt, whose head tells their
// kinds.

#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "Casos.h"
#include "EvaluadorPrueba.h"
#include "differentiation/Derivada.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

namespace {

// "y x" sets the two variables, "pasos" turns the trace on, "-" changes nothing.
Derivada Motor(const std::string& campo) {
  Derivada d;
  std::istringstream palabras(campo);
  std::vector<std::string> nombres;
  for (std::string p; palabras >> p;)
    p == "pasos" ? d.PasToPas(true) : nombres.push_back(p);
  if (nombres.size() == 2) d.VarDep(nombres[0]), d.VarInd(nombres[1]);
  return d;
}

// Long equations are written with repetitions: {A..B:TEXT} stands for TEXT
// once for each k from A to B, every "#" in it replaced by k; inner ones go
// first.
std::string Expande(std::string e) {
  static const std::regex repeticion(R"(\{(\d+)\.\.(\d+):([^{}]*)\})");
  for (std::smatch m; std::regex_search(e, m, repeticion);) {
    std::string r;
    for (int k = std::stoi(m[1]); k <= std::stoi(m[2]); ++k)
      r += std::regex_replace(m[3].str(), std::regex("#"), std::to_string(k));
    e.replace(m.position(0), m.length(0), r);
  }
  return e;
}

std::int32_t Numero(const std::string& campo) {
  return campo == "desbordamiento" ? NumeroError(ErrAritmetica::Desbordamiento)
                                   : NumeroError(std::stoi(campo));
}

auto Registro(const auto& r) {
  return std::tuple(r.ErrNumber(), r.ErrLin(), r.ErrCol(), r.ErrLen(), r.ErrDesc());
}

// The trace of one equation, y depending on x: every step says what the next
// one equals, and the last is the derivative found without the trace.
void Traza(const prueba::Caso& c) {
  Derivada d, sinPasos;
  for (Derivada* m : {&d, &sinPasos})
    m->VarDep("y"), m->VarInd("x");
  d.PasToPas(c[0] != "traza-apagada");
  const std::string derivada = d.Derivar(c[1]);
  std::vector<std::string> p;
  for (int i = 1; i <= d.Pasos(); ++i)
    p.push_back(d.Paso(i));
  EXPECT_EQ(d.Paso(0) + d.Paso(-1) + d.Paso(d.Pasos() + 1), ""); // outside the range
  if (c[0] != "traza") {
    EXPECT_EQ(d.ErrNumber(), c[0] == "traza-apagada" ? 0 : NumeroError(std::stoi(c[2])));
    EXPECT_EQ(p.empty() ? "-" : p.front(), c[0] == "traza-apagada" ? "-" : c[3]);
    EXPECT_TRUE(p.empty() || p.back().ends_with(" = 0 -->")) << p.back();
    return;
  }
  ASSERT_GE(p.size(), 4u);
  EXPECT_TRUE(p.front().ends_with(" = 0 -->")) << p.front();
  EXPECT_TRUE(p[p.size() - 2].ends_with(" = 0 -->")) << p[p.size() - 2];
  for (std::size_t i = 1; i + 2 < p.size(); ++i)
    EXPECT_TRUE(p[i].ends_with(" = ")) << p[i];
  for (std::size_t i = 1; i + 1 < p.size(); ++i)
    EXPECT_EQ(p[i].find('@'), std::string::npos) << p[i];
  EXPECT_EQ(p.back(), "dy_dx = " + sinPasos.Derivar(c[1]));
  EXPECT_EQ(derivada, sinPasos.Derivar(c[1]));
}

class Derivadas : public prueba::TablaDeCasos {};

TEST_P(Derivadas, Casos) {
  const prueba::Caso& c = GetParam();
  if (c[0].starts_with("traza")) return Traza(c);
  Derivada d = Motor(c[1]);
  ASSERT_EQ(d.ErrNumber(), 0) << d.ErrDesc();
  const std::string& tipo = c[0];
  if (tipo == "nombres") {
    EXPECT_EQ(d.VarDep() + " " + d.VarInd(), c[2] + " " + c[3]);
    return;
  }
  if (tipo == "nombre") {
    const bool dep = c[2] == "VarDep";
    const std::string antes = dep ? d.VarDep() : d.VarInd();
    dep ? d.VarDep(c[3]) : d.VarInd(c[3]);
    const bool acepta = c[4] == "0";
    EXPECT_EQ(dep ? d.VarDep() : d.VarInd(), acepta ? c[3] : antes);
    EXPECT_EQ(d.ErrNumber(), acepta ? 0 : NumeroError(std::stoi(c[4])));
    if (!acepta) {
      EXPECT_EQ(std::tuple(d.ErrDesc(), d.ErrLin()), std::tuple(c[5], -1));
    }
    return;
  }
  const std::string ecuacion = Expande(c[2]), r = d.Derivar(ecuacion);
  if (tipo == "texto") {
    EXPECT_EQ(r, c[3]) << d.ErrDesc();
    EXPECT_EQ(d.ErrNumber(), 0);
  } else if (tipo == "valor") {
    for (long double x : {0.6L, 0.9L, 1.3L})
      for (long double y : {0.7L, 1.6L}) {
        const prueba::Valores v = {{"x", x}, {"y", y}, {"x2e", 0.37L}};
        const auto obtenido = prueba::Evalua(r, v), esperado = prueba::Evalua(Expande(c[3]), v);
        ASSERT_TRUE(esperado) << c[3];
        ASSERT_TRUE(obtenido) << r << " " << d.ErrDesc();
        EXPECT_NEAR(*obtenido, *esperado, 1e-9 * (1 + std::fabs(*esperado)))
            << r << " at x=" << x << " y=" << y;
      }
  } else if (tipo == "sintaxis") {
    SintaxExp s;
    ASSERT_FALSE(s.SintaxEcu(ecuacion));
    EXPECT_EQ(r, "");
    EXPECT_EQ(Registro(d), Registro(s));
    EXPECT_EQ(Registro(d), std::tuple(Numero(c[3]), std::stoi(c[4]), std::stoi(c[5]),
                                      std::stoi(c[6]), s.ErrDesc()));
  } else {
    ASSERT_EQ(tipo, "error");
    EXPECT_EQ(r, "");
    EXPECT_EQ(Registro(d), std::tuple(Numero(c[3]), -1, 0, 0, c[4]));
    // The failure leaves nothing behind: the next derivation starts afresh.
    EXPECT_EQ(d.Derivar(d.VarDep() + " = " + d.VarInd() + "^2"), "2*" + d.VarInd());
    EXPECT_EQ(d.ErrNumber(), 0) << d.ErrDesc();
    if (d.PasToPas()) {
      EXPECT_GT(d.Pasos(), 3);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Tabla, Derivadas, prueba::Casos("derivadas.txt"), prueba::NombreDeCaso);

} // namespace
