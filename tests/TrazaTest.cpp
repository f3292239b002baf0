// The step-by-step trace: the equation brought to "... = 0", the expression
// after each resolved mark with pending derivatives written D(...), the final
// expression, and the solved derivative.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "differentiation/Derivada.h"

namespace {

std::vector<std::string> Traza(const std::string& ecuacion, Derivada& d, bool pasos = true) {
  d.VarDep("y");
  d.VarInd("x");
  if (pasos) d.PasToPas(true); // off until asked for
  d.Derivar(ecuacion);
  std::vector<std::string> r;
  for (int i = 1; i <= d.Pasos(); ++i)
    r.push_back(d.Paso(i));
  return r;
}

TEST(Traza, SquareOfXLineByLine) {
  Derivada d;
  const std::vector<std::string> esperado = {
      "y-(x^2) = 0 -->",
      "D(y-(x^2)) = ",
      "D(y)-D((x^2)) = ",
      "dy_dx-D((x^2)) = ",
      "dy_dx-(2*x^(2-1)*D(x)) = ",
      "dy_dx-(2*x^(2-1)*1) = 0 -->",
      "dy_dx = 2*x",
  };
  EXPECT_EQ(Traza("y = x^2", d), esperado);
  EXPECT_EQ(d.Paso(0) + d.Paso(-1) + d.Paso(d.Pasos() + 1), ""); // outside the range
}

TEST(Traza, NothingIsRecordedWithoutTheSwitch) {
  Derivada d;
  EXPECT_TRUE(Traza("y = x^2", d, false).empty());
  EXPECT_EQ(d.ErrNumber(), 0);
  EXPECT_EQ(d.Paso(1), "");
}

// Each line says what the next one equals: every line but the last ends in
// " = " or " -->", the first and the one before the last end the equation
// with " = 0 -->", and the last is the derivative found.
TEST(Traza, EveryTraceReadsAsAChain) {
  for (const char* e : {"y = x^2*Sin(x)", "x^2 + y^2 = 25", "y = Sec(x)/x - 3", "y = 2",
                        "y = TgH(x^2)", "Sin(x*y) = Ln(x) + 1"}) {
    SCOPED_TRACE(e);
    Derivada d, sinPasos;
    const std::vector<std::string> p = Traza(e, d);
    sinPasos.VarDep("y"), sinPasos.VarInd("x");
    ASSERT_GE(p.size(), 4u);
    EXPECT_TRUE(p.front().ends_with(" = 0 -->")) << p.front();
    EXPECT_TRUE(p[p.size() - 2].ends_with(" = 0 -->")) << p[p.size() - 2];
    for (std::size_t i = 1; i + 2 < p.size(); ++i)
      EXPECT_TRUE(p[i].ends_with(" = ")) << p[i];
    for (std::size_t i = 1; i + 1 < p.size(); ++i)
      EXPECT_EQ(p[i].find('@'), std::string::npos) << p[i];
    EXPECT_EQ(p.back(), "dy_dx = " + sinPasos.Derivar(e));
  }
}

TEST(Traza, AFailedDerivationKeepsTheStepsUpToTheFailure) {
  Derivada d;
  const std::vector<std::string> p = Traza("x^2 = 4", d);
  EXPECT_EQ(d.ErrNumber(), static_cast<int32_t>(0x80040003u));
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.front(), "x^2-(4) = 0 -->");
  EXPECT_TRUE(p.back().ends_with(" = 0 -->")) << p.back();
  Derivada malo;
  EXPECT_TRUE(Traza("y = x +", malo).empty());
}

} // namespace
