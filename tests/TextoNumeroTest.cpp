// The one number format of the algebra: every number the calculator computes
// is written back through it, so its results must re-read as the same number
// and never show a leading zero, trailing zeros or more than 15 digits.

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "algebra/TextoNumero.h"

namespace {

TEST(TextoNumero, WritesTheShortestTextOfAtMostFifteenDigits) {
  // clang-format off
  const struct {
    double valor;
    const char* texto;
  } casos[] = {
      {0.0, "0"}, {-0.0, "0"}, // no "-0": a sign would make a cancelled sum look negative
      {1.0, "1"}, {-7.0, "-7"},
      {100.0, "100"}, // trailing zeros of an integer are digits, not padding
      {0.5, ".5"}, {-0.25, "-.25"}, {2.5, "2.5"}, {1234.5678, "1234.5678"},
      {1.0 / 3.0, ".333333333333333"}, {2.0 / 3.0, ".666666666666667"}, // rounded, not cut
      {-2.0 / 3.0, "-.666666666666667"},
      {0.1 + 0.2, ".3"}, // the binary noise lies past the 15th digit
      {1.2345678901234567, "1.23456789012346"},
      {std::sqrt(2.0), "1.4142135623731"}, // 1.41421356237310: the rounded zero goes too
      {123456789012345.0, "123456789012345"}, {1234567890123456.0, "1.23456789012346E+15"},
      {999999999999999.0, "999999999999999"},
      {9999999999999999.0, "1E+16"}, // rounding carries into a new digit
      // Plain notation for the decimal exponents -5 to 14, exponent form beyond.
      {1e14, "100000000000000"}, {1e15, "1E+15"}, {1.5e15, "1.5E+15"}, {1e20, "1E+20"},
      {-1e20, "-1E+20"}, {1e100, "1E+100"}, {1e-5, ".00001"}, {1.5e-5, ".000015"},
      {-1e-5, "-.00001"}, {1e-6, "1E-06"}, {1.5e-7, "1.5E-07"}, {-1.5e-7, "-1.5E-07"},
      {1e-100, "1E-100"}, {DBL_MAX, "1.79769313486232E+308"}, {5e-324, "4.94065645841247E-324"},
  };
  // clang-format on
  for (const auto& c : casos)
    EXPECT_EQ(TextoNumero(c.valor), c.texto) << "value " << c.valor;
}

} // namespace
