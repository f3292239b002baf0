// One derivation's own bounds: an equation whose work or whose steps would
// swell beyond them stops with code 5 and its message, at once, instead of
// holding the program for seconds and hundreds of megabytes.

#include <gtest/gtest.h>

#include <string>

#include "differentiation/Derivada.h"
#include "lang/Errores.h"

namespace {

// A sum of n terms k*x^2: its derivative is small, but each of its thousands
// of rewriting passes copies the whole working text.
std::string SumaDeCuadrados(int n) {
  std::string e = "y = 1*x^2";
  for (int k = 2; k <= n; ++k)
    e += "+" + std::to_string(k) + "*x^2";
  return e;
}

TEST(LimitesDerivada, StepsBeyondTheirBoundStopTheDerivationButTheAnswerAloneIsFound) {
  const std::string e = SumaDeCuadrados(989);
  Derivada d;
  EXPECT_EQ(d.Derivar(e), "979110*x"); // 2*(1+2+...+989)
  EXPECT_EQ(d.ErrNumber(), 0) << d.ErrDesc();

  d.PasToPas(true);
  EXPECT_EQ(d.Derivar(e), "");
  EXPECT_EQ(d.ErrNumber(), NumeroError(5));
  EXPECT_EQ(d.ErrDesc().rfind("La expresión crece en exceso", 0), 0u) << d.ErrDesc();

  // The bound is per derivation: the next one starts afresh.
  EXPECT_EQ(d.Derivar(SumaDeCuadrados(3)), "12*x");
  EXPECT_EQ(d.ErrNumber(), 0);
  EXPECT_GT(d.Pasos(), 3);
}

} // namespace
