// The step-by-step trace: the equation brought to "... = 0", the expression
// after each resolved mark with pending derivatives written D(...), the final
// expression, and the solved derivative. The cases are the lines of
// tests/casos/traza.txt.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Casos.h"
#include "differentiation/Derivada.h"
#include "lang/Errores.h"

namespace {

class Traza : public prueba::TablaDeCasos {};

TEST_P(Traza, Casos) {
  const prueba::Caso& c = GetParam();
  Derivada d, sinPasos;
  for (Derivada* m : {&d, &sinPasos})
    m->VarDep("y"), m->VarInd("x");
  d.PasToPas(c[0] != "apagado");
  const std::string derivada = d.Derivar(c[1]);
  std::vector<std::string> p;
  for (int i = 1; i <= d.Pasos(); ++i)
    p.push_back(d.Paso(i));
  EXPECT_EQ(d.Paso(0) + d.Paso(-1) + d.Paso(d.Pasos() + 1), ""); // outside the range
  if (c[0] == "apagado") {
    EXPECT_TRUE(p.empty());
    EXPECT_EQ(d.ErrNumber(), 0);
    return;
  }
  if (c[0] == "fallo") {
    EXPECT_EQ(d.ErrNumber(), NumeroError(std::stoi(c[2])));
    if (c[3] == "-") {
      EXPECT_TRUE(p.empty());
      return;
    }
    ASSERT_FALSE(p.empty());
    EXPECT_EQ(p.front(), c[3]);
    EXPECT_TRUE(p.back().ends_with(" = 0 -->")) << p.back();
    return;
  }
  ASSERT_EQ(c[0], "cadena");
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

INSTANTIATE_TEST_SUITE_P(Tabla, Traza, prueba::Casos("traza.txt"), prueba::NombreDeCaso);

} // namespace
