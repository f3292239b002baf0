// The curve as the plot draws it: an implicit circle lies on its equation
// all round, an explicit 1/x and Tg(x) are never joined across their poles,
// an implicit curve through a pole neither, and a click finds the nearest
// point of the curve.

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/Trazado.h"

namespace {

double Largo(const std::vector<Segmento>& s) {
  double l = 0;
  for (const Segmento& g : s)
    l += std::hypot(g.b.x - g.a.x, g.b.y - g.a.y);
  return l;
}

TEST(Trazado, LaCircunferenciaEstaSobreSuEcuacionEntera) {
  Curva c;
  ASSERT_EQ(c.Lee("x^2 + y^2 = 25"), "");
  EXPECT_FALSE(c.Explicita());
  const auto s = c.Traza({-6, 6, -6, 6}, 120, 120);
  int cuadrantes[4] = {};
  for (const Segmento& g : s)
    for (const Punto2 p : {g.a, g.b}) {
      EXPECT_NEAR(std::hypot(p.x, p.y), 5, 0.01) << p.x << "," << p.y;
      ++cuadrantes[(p.x < 0) + 2 * (p.y < 0)];
    }
  for (const int n : cuadrantes)
    EXPECT_GT(n, 10);
  EXPECT_NEAR(Largo(s), 2 * M_PI * 5, 0.3);
}

// No segment joins the two sides of a vertical asymptote; each side is drawn.
void SinCruzar(const std::string& ecuacion, double polo) {
  SCOPED_TRACE(ecuacion);
  Curva c;
  ASSERT_EQ(c.Lee(ecuacion), "");
  // No sample falls on the pole itself: the cells straddle it.
  const auto s = c.Traza({polo - 3.013, polo + 2.987, -8, 8}, 200, 200);
  int izquierda = 0, derecha = 0;
  for (const Segmento& g : s) {
    EXPECT_FALSE((g.a.x - polo) * (g.b.x - polo) < 0) << g.a.x << " " << g.b.x;
    (g.a.x < polo ? izquierda : derecha)++;
  }
  EXPECT_GT(izquierda, 20);
  EXPECT_GT(derecha, 20);
}

TEST(Trazado, NadaCruzaUnPolo) {
  SinCruzar("y = 1/x", 0);
  SinCruzar("y = Tg(x)", M_PI / 2);
  SinCruzar("y*x = 1 + y", 1); // implicit: y = 1/(x - 1)
  // F = y^2 - 1/x changes sign through its pole at x = 0: no zero there.
  Curva c;
  ASSERT_EQ(c.Lee("y^2 = 1/x"), "");
  const auto s = c.Traza({-2.013, 1.987, -5, 5}, 200, 200);
  EXPECT_GT(s.size(), 50u);
  for (const Segmento& g : s)
    for (const Punto2 p : {g.a, g.b})
      EXPECT_NEAR(p.y * p.y * p.x, 1, 0.2) << p.x << "," << p.y;
}

TEST(Trazado, UnClicHallaElPuntoMasCercanoDeLaCurva) {
  Curva c;
  ASSERT_EQ(c.Lee("y = x^2"), "");
  EXPECT_TRUE(c.Explicita());
  const auto s = c.Traza({-3, 3, -1, 9}, 300, 300);
  Punto2 p{};
  ASSERT_TRUE(PuntoMasCercano(s, {2.1, 3.9}, p));
  EXPECT_NEAR(p.y, p.x * p.x, 0.01);
  EXPECT_NEAR(p.x, 2.0, 0.05);
  EXPECT_FALSE(PuntoMasCercano({}, {0, 0}, p));
  EXPECT_NE(Curva().Lee("y = x +"), "");
}

} // namespace
