// The number formatter: every number of a result text rounded to CifRed
// decimal places (half away from zero) or written as the fraction of its
// continued-fraction convergents; every other token copied as read.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "algebra/FormatNum.h"
#include "algebra/TextoNumero.h"
#include "lang/ConvierteNumero.h"

namespace {

TEST(FormatNum, RoundingDigitsOutsideZeroToThreeHundredAreIgnored) {
  FormatNum f;
  const struct {
    int pedido, queda;
  } casos[] = {{301, 5}, {-1, 5}, {0, 0}, {1000, 0}, {300, 300}, {301, 300}, {-32768, 300}, {7, 7}};
  for (const auto& c : casos) {
    f.CifRed(c.pedido);
    EXPECT_EQ(f.CifRed(), c.queda) << c.pedido;
  }
}

TEST(FormatNum, RoundsHalfAwayFromZeroOnBothSides) {
  FormatNum f;
  // clang-format off
  const struct {
    double x;
    int n;
    double r;
  } casos[] = {
      {2.5, 0, 3}, {-2.5, 0, -3}, {0.5, 0, 1}, {-0.5, 0, -1}, {0.49999, 0, 0}, {-0.49999, 0, 0},
      {0.125, 2, 0.13}, {-0.125, 2, -0.13}, {-0.124, 2, -0.12}, {1.23456, 3, 1.235},
      {-1.23456, 3, -1.235}, {7, 3, 7}, {-7, 0, -7}, {0, 5, 0}, {1e-10, 5, 0},
      {123456.7890123, 3, 123456.789},
      // A number of 1 or more keeps at most 14 decimal places, whatever is asked.
      {1.000000000000004, 15, 1}, {1.000000000000004, 300, 1},
      // Below 1 all fifteen are kept.
      {0.1234567890123456, 15, 0.123456789012346},
      // x*10^n overflows: x comes back as it was.
      {0.5, 400, 0.5}, {-0.7, 330, -0.7},
  };
  // clang-format on
  for (const auto& c : casos)
    EXPECT_DOUBLE_EQ(f.RedN(c.x, c.n), c.r) << c.x << " a " << c.n << " cifras";
}

TEST(FormatNum, RewritesEveryNumberOfAText) {
  // clang-format off
  const struct {
    bool fracc;
    int cifras;
    const char *entrada, *salida;
  } casos[] = {
      {false, 5, "x*0.333333333333333", "x*.33333"}, {false, 5, "2*x", "2*x"},
      {false, 5, "3.5", "3.5"}, {false, 5, "0", "0"}, {false, 5, "x*0.666666", "x*.66667"},
      {false, 5, "1.000004", "1"}, {false, 5, "0.000004", "0"}, {false, 5, "1.5E-7*x", "0*x"},
      {false, 5, "0.30000000000000004", ".3"},
      {false, 2, "x-0.125", "x-.13"}, {false, 0, "2.5*x-2.5", "3*x-3"}, {false, 0, "0.5", "1"},
      {false, 1, "x^2.25", "x^2.3"}, {false, 3, "123456.7890123", "123456.789"},
      {false, 0, "x\xC2\xB7" "2.5", "x\xC2\xB7" "3"}, {false, 5, "2 * x ' nota", "2*x"},
      {false, 5, "Sin( x ) / ( 1 + x )", "Sin(x)/(1+x)"},
      {true, 5, ".5", "(1/2)"}, {true, 5, "0.75", "(3/4)"}, {true, 5, "2", "2"},
      {true, 5, "100*x", "100*x"}, {true, 5, "0", "0"}, {true, 5, "x*-.25", "x*-(1/4)"},
      {true, 5, "1.25", "(5/4)"}, {true, 5, "12.125", "(97/8)"}, {true, 5, ".1", "(1/10)"},
      {true, 5, ".3", "(3/10)"}, {true, 5, "0.0625", "(1/16)"}, {true, 5, "2.5e-3*x", "(1/400)*x"},
      // Binary noise goes before the digits are counted.
      {true, 5, "0.30000000000000004", "(3/10)"},
      // 1/3 is nearer to hand but not exact: the exact convergent wins.
      {true, 5, ".33333", "(33333/100000)"},
      {true, 0, "0.75*x", "(3/4)*x"}, // fractions are not rounded first
      {true, 5, "x ^ 2 + 0.5 ' mitad", "x^2+(1/2)"},
      // Sixteen and more decimal places: exact integers, never 0.
      {true, 5, ".0360803453131437*x", "(360803453131437/1E+16)*x"},
      {true, 5, "1.5E-300", "(3/2E+300)"}, {true, 5, ".000562949953421312", "(2147483648/3814697265625)"},
      // A denominator with more than 15 digits is written whole, to read back exactly.
      {true, 5, "5.62949953421312E-30", "(32/5684341886080801486968994140625)"},
      // Below about 1E-293 no denominator fits a double: the number stays as it is.
      {true, 5, "1.4312053784E-300", "1.4312053784E-300"},
  };
  // clang-format on
  for (const auto& c : casos) {
    FormatNum f;
    f.OutFracc(c.fracc);
    f.CifRed(c.cifras);
    EXPECT_EQ(f.FCoef(c.entrada), c.salida)
        << c.entrada << (c.fracc ? " en fracciones" : " redondeado a ") << c.cifras;
  }
}

// A new formatter rounds to five decimals; one formatter serves many texts.
TEST(FormatNum, StartsRoundingToFiveDecimalsAndCanBeUsedAgain) {
  FormatNum f;
  EXPECT_EQ(f.FCoef("x*0.333333333333333"), "x*.33333");
  EXPECT_EQ(f.FCoef("y"), "y");
  EXPECT_EQ(f.FCoef(""), "");
  EXPECT_EQ(f.FCoef("x*0.25"), "x*.25");
}

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

TEST(FormatNum, FractionOfAQuotientCarriesItsSignInTheNumerator) {
  FormatNum f;
  const struct {
    double n, d;
    const char* texto;
  } casos[] = {
      {3, 4, "(3/4)"}, {-3, 4, "(-3/4)"}, {3, -4, "(-3/4)"}, {-3, -4, "(3/4)"},
      {6, 8, "(3/4)"}, {-1, 2, "(-1/2)"}, {1, 8, "(1/8)"},   {5, 4, "(5/4)"},
      {4, 2, "2"},     {-9, 3, "-3"},     {0, 7, "0"},       {1, 0, ""},
  };
  for (const auto& c : casos)
    EXPECT_EQ(f.CFr(c.n, c.d), c.texto) << c.n << "/" << c.d;
}

} // namespace
