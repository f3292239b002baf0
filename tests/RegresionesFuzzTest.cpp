// Faults found by the fuzz targets in fuzz/, one test each, reduced to the
// smallest input that showed them and asserting the right behaviour.

#include <gtest/gtest.h>

#include <string>

#include "algebra/FormatNum.h"
#include "lang/SintaxExp.h"

namespace {

// "3E336" is a literal the lexer reads whole, but its value is beyond the
// double range: the formatter wrote the infinity as a number and read past
// the end of its digit buffer. It has no digits to round, so it is copied
// as written.
TEST(RegresionFuzz, FormatterCopiesALiteralBeyondTheDoubleRange) {
  for (const bool fracciones : {false, true}) {
    FormatNum f;
    f.OutFracc(fracciones);
    f.CifRed(19);
    EXPECT_EQ(f.FCoef("3E336"), "3E336") << fracciones;
    EXPECT_EQ(f.FCoef("x*1E400+2.5"), fracciones ? "x*1E400+(5/2)" : "x*1E400+2.5") << fracciones;
    EXPECT_EQ(f.FCoef("-1D999"), "-1D999") << fracciones;
  }
}

// A digit count so negative that 10^n is below the smallest double made the
// rounding 0/0. Every double is nearer 0 than half a unit of that place.
// Negative counts round to tens, hundreds...: whole numbers round too.
TEST(RegresionFuzz, RoundingToAPlaceLeftOfTheSeparator) {
  FormatNum f;
  EXPECT_DOUBLE_EQ(f.RedN(1.1835771841637611e-309, -24448), 0);
  EXPECT_DOUBLE_EQ(f.RedN(1.5, -400), 0);
  EXPECT_DOUBLE_EQ(f.RedN(-2e300, -400), 0);
  EXPECT_DOUBLE_EQ(f.RedN(1234, -2), 1200);
  EXPECT_DOUBLE_EQ(f.RedN(1250, -2), 1300);
  EXPECT_DOUBLE_EQ(f.RedN(-1250, -2), -1300);
  EXPECT_DOUBLE_EQ(f.RedN(49.9, -2), 0);
  EXPECT_DOUBLE_EQ(f.RedN(-7.5, -1), -10);
}

// The largest doubles round, at 15 significant digits, past the top of the
// double range: the fraction writer read that text back as an infinity and
// wrote it as a number, past the end of its digit buffer. Such a number is
// whole, and is written as the number it is, as decimals write it.
TEST(RegresionFuzz, FractionOfTheLargestDoubles) {
  FormatNum f;
  f.OutFracc(true);
  EXPECT_EQ(f.CFr(-1.7976931348623157e308, 1), "-1.79769313486232E+308");
  EXPECT_EQ(f.CFr(1.7976931348623157e308, 1), "1.79769313486232E+308");
  EXPECT_EQ(f.FCoef("1.7976931348623157E+308*x"), "1.79769313486232E+308*x");
  FormatNum decimales;
  EXPECT_EQ(decimales.FCoef("1.7976931348623157E+308*x"), "1.79769313486232E+308*x");
}

// An expression that stops at an end of line is marked just after its last
// token. With a continuation between that token and the end of line, the
// error took its line from the end of line and its column from the token,
// and marked column 2 of an empty line.
TEST(RegresionFuzz, EndOfLineErrorAfterAContinuationIsMarkedAfterTheLastToken) {
  SintaxExp s;
  const struct {
    const char* texto;
    int lin, col;
  } casos[] = {
      {"c= _\r\r", 0, 2},
      {"c= _\r\n  \r\n", 0, 2},
      {"c=\r\n", 0, 2},           // no continuation: the same place as always
      {"x+ _\r\n1= _\r\r", 1, 2}, // on a later line
  };
  for (const auto& c : casos) {
    EXPECT_FALSE(s.SintaxEcu(c.texto)) << c.texto;
    EXPECT_EQ(s.ErrDesc(), "Se esperaba expresión") << c.texto;
    EXPECT_EQ(s.ErrLin(), c.lin) << c.texto;
    EXPECT_EQ(s.ErrCol(), c.col) << c.texto;
    EXPECT_EQ(s.ErrLen(), 0) << c.texto;
  }
}

} // namespace
