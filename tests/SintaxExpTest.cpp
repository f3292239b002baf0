// The syntax checker: which texts it accepts with their normalised Expr, and
// for malformed ones the first error with its place (tests/casos/sintaxis.txt).

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <string>

#include "Casos.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"
#include "lang/Vocabulario.h"

namespace {

using Comprobacion = bool (SintaxExp::*)(const std::string&);
const std::map<std::string, Comprobacion> kComprobaciones = {
    {"expresion", &SintaxExp::SintaxExpr},
    {"ecuacion", &SintaxExp::SintaxEcu},
    {"desigualdad", &SintaxExp::SintaxDes}};

// "u<n>": the user-input error n; "a<n>": the arithmetic's failure n.
std::int32_t Numero(const std::string& s) {
  const int n = std::stoi(s.substr(1));
  return s[0] == 'u' ? NumeroError(n) : n;
}

// Number, description, and line:column+length of the last error.
std::string Registro(std::int32_t numero, const std::string& desc, int lin, int col, int len) {
  return std::to_string(numero) + " " + desc + " " + std::to_string(lin) + ":" +
         std::to_string(col) + "+" + std::to_string(len);
}
std::string Registro(const SintaxExp& s) {
  return Registro(s.ErrNumber(), s.ErrDesc(), s.ErrLin(), s.ErrCol(), s.ErrLen());
}

class Sintaxis : public prueba::TablaDeCasos {};

TEST_P(Sintaxis, TextoAceptadoORechazado) {
  static SintaxExp s; // one checker for every line, as the differentiation engine keeps its own
  const prueba::Caso& c = GetParam();
  const std::string texto = prueba::Expande(prueba::Texto(c[2]));
  const bool acepta = (s.*kComprobaciones.at(c[1]))(texto);
  if (c[0] == "acepta") {
    EXPECT_TRUE(acepta) << s.ErrDesc() << " at " << s.ErrCol();
    EXPECT_EQ(s.ErrNumber(), 0);
    EXPECT_EQ(s.Expr(), prueba::Expande(c[3]));
  } else {
    ASSERT_EQ(c[0], "rechaza");
    EXPECT_FALSE(acepta) << "Expr " << s.Expr();
    EXPECT_EQ(Registro(s),
              Registro(Numero(c[3]), c[7], std::stoi(c[4]), std::stoi(c[5]), std::stoi(c[6])));
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Sintaxis, prueba::Casos("sintaxis.txt"), prueba::NombreDeCaso);

// Every function of the vocabulary, in any case, needs its parentheses.
TEST(SintaxExp, EveryFunctionNeedsItsParentheses) {
  SintaxExp s;
  for (const std::string_view nombre : kFunciones) {
    std::string f(nombre);
    EXPECT_TRUE(s.SintaxExpr(f + "(x)")) << f;
    std::transform(f.begin(), f.end(), f.begin(), [](unsigned char c) { return std::toupper(c); });
    EXPECT_TRUE(s.SintaxExpr(f + " ( x )")) << f;
    EXPECT_EQ(s.Expr(), f + "(x)");
    EXPECT_FALSE(s.SintaxExpr(f + "^2")) << f;
    EXPECT_EQ(s.ErrNumber(), NumeroError(6)) << f;
  }
}

// After a success only ErrNumber and Expr are new; the rest is left alone.
TEST(SintaxExp, EachCheckStartsAfresh) {
  SintaxExp s;
  ASSERT_FALSE(s.SintaxExpr("x _\r\n + * y"));
  EXPECT_EQ(s.Expr(), "x+");
  ASSERT_TRUE(s.SintaxEcu("y = 1"));
  EXPECT_EQ(s.Expr(), "y=1");
  EXPECT_EQ(Registro(s), Registro(0, "Se esperaba expresión", 1, 3, 1));
  ASSERT_FALSE(s.SintaxDes(""));
  EXPECT_EQ(s.Expr(), "");
  ASSERT_FALSE(s.SintaxExpr("1E999"));
  ASSERT_TRUE(s.SintaxExpr("1E99"));
  EXPECT_EQ(Registro(s), Registro(0, "Desbordamiento", 0, 0, 5));
}

} // namespace
