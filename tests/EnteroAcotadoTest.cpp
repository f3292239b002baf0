// The whole numbers of the settings boxes (tests/casos/enteros.txt).

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "Casos.h"
#include "lang/EnteroAcotado.h"

namespace {

class Enteros : public prueba::TablaDeCasos {};

TEST_P(Enteros, Lectura) {
  const prueba::Caso& c = GetParam();
  const std::optional<int> esperado =
      c[3] == "(ninguno)" ? std::nullopt : std::optional<int>(std::stoi(c[3]));
  EXPECT_EQ(EnteroAcotado(prueba::Texto(c[0]), std::stoi(c[1]), std::stoi(c[2])), esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, Enteros, prueba::Casos("enteros.txt"), prueba::NombreDeCaso);

} // namespace
