// The number formatter and the algebra's one number format (TextoNumero):
// the cases of tests/casos/formato.txt, and the promise that every fraction
// reads back as its value.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <sstream>
#include <string>

#include "Casos.h"
#include "algebra/FormatNum.h"
#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"

namespace {

using prueba::Texto;

double Doble(const std::string& s) { return std::strtod(s.c_str(), nullptr); }
class Formato : public prueba::TablaDeCasos {};

TEST_P(Formato, Resultado) {
  const prueba::Caso& c = GetParam();
  FormatNum f;
  if (c[0] == "redondeo") {
    EXPECT_DOUBLE_EQ(f.RedN(Doble(c[1]), std::stoi(c[2])), Doble(c[3]));
  } else if (c[0] == "reescribe") {
    std::istringstream modo(c[1]);
    std::string nombre;
    int cifras = 0;
    modo >> nombre >> cifras;
    if (nombre != "nuevo") {
      ASSERT_TRUE(nombre == "decimales" || nombre == "fracciones") << nombre;
      f.OutFracc(nombre == "fracciones");
      f.CifRed(cifras);
    }
    EXPECT_EQ(f.FCoef(Texto(c[2])), Texto(c[3]));
  } else if (c[0] == "cociente") {
    EXPECT_EQ(f.CFr(Doble(c[1]), Doble(c[2])), Texto(c[3]));
  } else if (c[0] == "cifras") {
    f.CifRed(std::stoi(c[1]));
    EXPECT_EQ(f.CifRed(), std::stoi(c[2]));
  } else {
    ASSERT_EQ(c[0], "texto");
    EXPECT_EQ(TextoNumero(Doble(c[1])), c[2]);
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Formato, prueba::Casos("formato.txt"), prueba::NombreDeCaso);

// Any value with 15 significant digits, from 1E-300 to 1E+300, is written as
// a fraction (or as itself) that reads back as the same 15 digits.
TEST(FormatNum, EveryFractionReadsBackAsItsValue) {
  FormatNum f;
  f.OutFracc(true);
  std::mt19937_64 azar(11);
  std::uniform_int_distribution<long long> cifras(100000000000000, 999999999999999);
  for (int exponente = -300; exponente <= 300; exponente += 3)
    for (int i = 0; i < 20; ++i) {
      const std::string m = std::to_string(cifras(azar) / (i % 5 == 0 ? 1000000 : 1));
      const double x =
          LeeNumero(m.substr(0, 1) + "." + m.substr(1) + "E" + std::to_string(exponente));
      const std::string texto = f.FCoef(TextoNumero(x));
      double leido = LeeNumero(texto);
      if (texto.front() == '(') {
        const auto barra = texto.find('/');
        leido = LeeNumero(texto.substr(1, barra - 1)) / LeeNumero(texto.substr(barra + 1));
      }
      EXPECT_EQ(TextoNumero(leido), TextoNumero(x)) << texto;
    }
}

} // namespace
