// The printed pages of a document: the cases of tests/casos/paginas.txt.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Casos.h"
#include "editor/Paginas.h"
#include "lang/Cp1252.h"

namespace {

std::vector<std::string> Filas(const std::string& campo) {
  std::vector<std::string> filas;
  RecorreFilas(Utf8ACp1252(prueba::Expande(prueba::Texto(campo))),
               [&](std::string_view f) { filas.emplace_back(f); });
  return filas;
}

class Paginas : public prueba::TablaDeCasos {};

TEST_P(Paginas, Casos) {
  const prueba::Caso& c = GetParam();
  std::string visto;
  for (const auto& pagina : Pagina(Filas(c[2]), std::stoi(c[0]), std::stoi(c[1]))) {
    if (!visto.empty()) visto += " / ";
    std::string lineas;
    for (std::size_t i = 0; i < pagina.size(); ++i)
      lineas += (i ? "\n" : "") + Cp1252AUtf8(pagina[i]);
    visto += lineas.empty() ? "(vacío)" : lineas;
  }
  EXPECT_EQ(visto, prueba::Expande(c[3]));
}

INSTANTIATE_TEST_SUITE_P(Casos, Paginas, prueba::Casos("paginas.txt"), prueba::NombreDeCaso);

} // namespace
