// The syntax checker: which texts it accepts with their normalised Expr, and
// for malformed ones the first error with its place. One checker serves every
// row, as the differentiation engine reuses its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>
#include <tuple>

#include "lang/Errores.h"
#include "lang/SintaxExp.h"
#include "lang/Vocabulario.h"

namespace {

using Comprobacion = bool (SintaxExp::*)(const std::string&);
const Comprobacion E = &SintaxExp::SintaxExpr, Q = &SintaxExp::SintaxEcu, D = &SintaxExp::SintaxDes;

// 0x80040000 + the message number, read as a signed 32-bit value.
constexpr std::int32_t kExpresion = -2147221503, kRelacion = -2147221502, kFin = -2147221501,
                       kIgual = -2147221499, kAbre = -2147221498, kCierra = -2147221497;
const char* const M1 = "Se esperaba expresión";
const char* const M2 = "Se esperaba = ó > ó < ó >= ó <= ó <>";
const char* const M3 = "Se esperaba fin de archivo";
const char* const M5 = "Se esperaba =";
const char* const M6 = "Se esperaba (";
const char* const M7 = "Se esperaba )";
// A literal out of the double range: the conversion's own error.
constexpr std::int32_t kDesbordamiento = NumeroError(ErrAritmetica::Desbordamiento);
const char* const MDes = Descripcion(ErrAritmetica::Desbordamiento);

using Campos = std::tuple<std::int32_t, std::string, int, int, int>;
Campos Registro(std::int32_t numero, const std::string& desc, int lin, int col, int len) {
  return {numero, desc, lin, col, len};
}
Campos Registro(const SintaxExp& s) {
  return {s.ErrNumber(), s.ErrDesc(), s.ErrLin(), s.ErrCol(), s.ErrLen()};
}

TEST(SintaxExp, AcceptedTextsAndTheirNormalForm) {
  // clang-format off
  const struct {
    Comprobacion check;
    const char* texto;
    const char* expr;
  } casos[] = {
      {E, "x", "x"}, {E, "  x \t", "x"}, {E, "x\r\n\r\n", "x"}, {E, "x\r", "x"},
      {E, "x ' c\r\n' otra\r\n", "x"}, {E, "- - 3 * SIN ( x ) ' comentario", "3*SIN(x)"},
      {E, "-+-x", "x"}, {E, "---x", "-x"}, {E, "2*-x", "2*-x"}, {E, "2 - -x", "2--x"},
      {E, "x - + y", "x-y"}, {E, "-x^2", "-x^2"},
      {E, "x^-2", "x^2"}, // the sign run after "^" is dropped, by design
      {E, "x^+-+2", "x^2"}, {E, "x^(-2)", "x^(-2)"}, {E, "x^y^-z", "x^y^z"},
      {E, "a · b / c", "a·b/c"}, {E, "((x))", "((x))"},
      {E, "ArcCosecH(x) + sinh(x) * LN(x)", "ArcCosecH(x)+sinh(x)*LN(x)"},
      {E, "Log(Tg(x)^2)", "Log(Tg(x)^2)"}, {E, "PI*E + e^x", "PI*E+e^x"},
      {E, "1.5E-3*x + .5 - 7D2", "1.5E-3*x+.5-7D2"},
      {E, "1E-999", "1E-999"}, // underflows to 0: not an error
      {E, "año + Ñu", "año+Ñu"}, {E, "x _\r\n+ y", "x+y"}, {Q, "y = x^2", "y=x^2"},
      {Q, "x^2 + y^2 = 25", "x^2+y^2=25"}, {Q, "-y = - - x", "-y=x"}, {D, "x => 2", "x=>2"},
      {D, "x > = 2", "x> =2"}, // Expr takes each token's text, blanks inside it included
      {D, "x >< y", "x><y"}, {D, "x =< -1", "x=<-1"}, {D, "x = y", "x=y"},
  };
  // clang-format on
  SintaxExp s;
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(std::string(c.texto)));
    EXPECT_TRUE((s.*c.check)(c.texto)) << s.ErrDesc() << " at " << s.ErrCol();
    EXPECT_EQ(s.ErrNumber(), 0);
    EXPECT_EQ(s.Expr(), c.expr);
  }
}

TEST(SintaxExp, MalformedTextsReportTheFirstError) {
  // clang-format off
  const struct {
    Comprobacion check;
    const char* texto;
    std::int32_t numero;
    const char* desc;
    int lin, col, len;
  } casos[] = {
      {E, "", kExpresion, M1, 0, 0, 0}, {E, "2*(x+1", kCierra, M7, 0, 6, 0},
      {E, "sin x", kAbre, M6, 0, 4, 1},
      // At an end of line the error points just after the last token read.
      {E, "x +\r\ny", kExpresion, M1, 0, 3, 0}, {E, "x +   \r\ny", kExpresion, M1, 0, 3, 0},
      {E, "x +\ry", kExpresion, M1, 0, 3, 0}, {E, "\r\nx", kExpresion, M1, 0, 0, 0},
      {E, "(x\r\n", kCierra, M7, 0, 2, 0}, {E, "x _\r\n + \r\ny", kExpresion, M1, 1, 2, 0},
      {E, "x\r\ny", kFin, M3, 1, 0, 1}, {E, "x\r\n\r\n+", kFin, M3, 2, 0, 1},
      {E, "x +", kExpresion, M1, 0, 3, 0}, {E, "(x", kCierra, M7, 0, 2, 0},
      {E, "x)", kFin, M3, 0, 1, 1}, {E, ")", kExpresion, M1, 0, 0, 1},
      {E, "x + * y", kExpresion, M1, 0, 4, 1}, {E, "sin()", kExpresion, M1, 0, 4, 1},
      {E, "sin", kAbre, M6, 0, 3, 0}, {E, "x^", kExpresion, M1, 0, 2, 0},
      {E, "x = 1", kFin, M3, 0, 2, 1},
      // No implicit multiplication.
      {E, "2x", kFin, M3, 0, 1, 1}, {E, "2 e", kFin, M3, 0, 2, 1}, {E, "2E", kFin, M3, 0, 1, 1},
      {E, "x y", kFin, M3, 0, 2, 1}, {E, "pi(x)", kFin, M3, 0, 2, 1},
      {E, "x ^ 2.5.3", kFin, M3, 0, 7, 2},
      // String literals and unknown characters are never part of an expression.
      {E, "2\"abc\"", kFin, M3, 0, 1, 5}, {E, "\"abc\"", kExpresion, M1, 0, 0, 5},
      {E, "x % y", kFin, M3, 0, 2, 1}, {E, "% y", kExpresion, M1, 0, 0, 1},
      {E, "x\n", kFin, M3, 0, 1, 1}, {E, "x _", kFin, M3, 0, 2, 1},
      {E, "x + ü", kExpresion, M1, 0, 4, 1}, {E, "Über", kExpresion, M1, 0, 0, 1},
      {E, "x+€", kExpresion, M1, 0, 2, 1},
      // Columns count characters, not UTF-8 bytes.
      {E, "año ñu", kFin, M3, 0, 4, 2}, {E, "ñandú + ", kExpresion, M1, 0, 8, 0},
      {E, "a _\r\n  + ñu )", kFin, M3, 1, 7, 1},
      {E, "1E999", kDesbordamiento, MDes, 0, 0, 5},
      {E, "x + 2*1D400", kDesbordamiento, MDes, 0, 6, 5},
      {Q, "y x", kIgual, M5, 0, 2, 1}, {Q, "x", kIgual, M5, 0, 1, 0},
      {Q, "x > 1", kIgual, M5, 0, 2, 1}, {Q, "x > = 1", kIgual, M5, 0, 2, 3},
      {Q, "y = x = 1", kFin, M3, 0, 6, 1}, {Q, "y =\r\nx", kExpresion, M1, 0, 3, 0},
      {D, "x 2", kRelacion, M2, 0, 2, 1}, {D, "x", kRelacion, M2, 0, 1, 0},
      {D, "x >> 2", kExpresion, M1, 0, 3, 1},
  };
  // clang-format on
  SintaxExp s;
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(std::string(c.texto)));
    EXPECT_FALSE((s.*c.check)(c.texto)) << "Expr " << s.Expr();
    EXPECT_EQ(Registro(s), Registro(c.numero, c.desc, c.lin, c.col, c.len));
  }
}

TEST(SintaxExp, EveryFunctionNeedsItsParentheses) {
  SintaxExp s;
  for (const std::string_view nombre : kFunciones) {
    std::string f(nombre);
    SCOPED_TRACE(f);
    EXPECT_TRUE(s.SintaxExpr(f + "(x)"));
    std::transform(f.begin(), f.end(), f.begin(), [](unsigned char c) { return std::toupper(c); });
    EXPECT_TRUE(s.SintaxExpr(f + " ( x )"));
    EXPECT_EQ(s.Expr(), f + "(x)");
    EXPECT_FALSE(s.SintaxExpr(f + "^2"));
    EXPECT_EQ(s.ErrNumber(), kAbre);
  }
  // Near misses are plain variables, so a parenthesis after them ends the expression.
  for (const char* nombre : {"Sen", "Tan", "ArcSen", "Sinh2", "Pi2"}) {
    EXPECT_FALSE(s.SintaxExpr(std::string(nombre) + "(x)")) << nombre;
    EXPECT_EQ(s.ErrNumber(), kFin) << nombre;
  }
}

TEST(SintaxExp, EachCheckStartsAfresh) {
  SintaxExp s;
  ASSERT_FALSE(s.SintaxExpr("x _\r\n + * y"));
  EXPECT_EQ(s.Expr(), "x+");
  // After a success only ErrNumber and Expr are new; the rest is left alone.
  ASSERT_TRUE(s.SintaxEcu("y = 1"));
  EXPECT_EQ(s.Expr(), "y=1");
  EXPECT_EQ(Registro(s), Registro(0, M1, 1, 3, 1));
  ASSERT_FALSE(s.SintaxDes(""));
  EXPECT_EQ(s.Expr(), "");
  EXPECT_EQ(Registro(s), Registro(kExpresion, M1, 0, 0, 0));
  ASSERT_FALSE(s.SintaxExpr("1E999"));
  ASSERT_TRUE(s.SintaxExpr("1E99"));
  EXPECT_EQ(Registro(s), Registro(0, MDes, 0, 0, 5));
}

} // namespace
