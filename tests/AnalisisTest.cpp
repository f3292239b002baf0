// The analysis layer checked against the engine it stands beside: every
// function means what the calculator computes, and every equation of the
// project's tables, seeds, examples and benchmark set has, where both are
// defined, the same dy/dx by the engine's rules and by GiNaC. Its output is
// checked by the transcripts of tests/cli/analizar.txt.

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "Casos.h"
#include "EvaluadorPrueba.h"
#include "algebra/FuncionesNum.h"
#include "analysis/Analisis.h"
#include "analysis/ExpresionGinac.h"
#include "differentiation/Derivada.h"
#include "lang/Vocabulario.h"

namespace {

namespace fs = std::filesystem;

std::string Minusculas(std::string s) {
  for (char& c : s)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

bool Cerca(double a, double b) { return std::fabs(a - b) <= 1e-9 * (1 + std::fabs(b)); }

// Each function at points across its domain, as the calculator and as GiNaC
// evaluate it; each must be compared at two points at least.
TEST(Analisis, CadaFuncionSignificaLoQueCalculaElMotor) {
  for (std::size_t i = 0; i < kFunciones.size(); ++i) {
    int comparados = 0;
    for (const char* x : {"-3.5", "-1.7", "-0.6", "-0.2", "0.3", "0.8", "1.4", "2.6", "7.1"}) {
      double motor = 0;
      try {
        motor = EvaluaFuncion(static_cast<int>(i), std::stod(x));
      } catch (...) {
        continue; // outside the calculator's domain
      }
      Variables v;
      const GiNaC::ex e = LeeExpresion(std::string(kFunciones[i]) + "(" + x + ")", v).evalf();
      ASSERT_TRUE(GiNaC::is_a<GiNaC::numeric>(e)) << kFunciones[i] << "(" << x << ")";
      const GiNaC::numeric n = GiNaC::ex_to<GiNaC::numeric>(e);
      if (!n.is_real()) continue; // outside GiNaC's real domain too
      EXPECT_TRUE(Cerca(n.to_double(), motor))
          << kFunciones[i] << "(" << x << "): " << n.to_double() << " / " << motor;
      ++comparados;
    }
    EXPECT_GE(comparados, 2) << kFunciones[i];
  }
}

// The typeset structure: a written form of its boxes, "[a/b]" a fraction,
// "a^{b}" a raised exponent, "√{a}" a root, "(a)" parentheses, "_a_" italics.
std::string Cajas(const Formula& f) {
  std::string hijos;
  for (const Formula& h : f.hijos)
    hijos += Cajas(h);
  switch (f.tipo) {
  case Formula::Texto:
    return f.cursiva ? "_" + f.texto + "_" : f.texto;
  case Formula::Fila:
    return hijos;
  case Formula::Fraccion:
    return "[" + Cajas(f.hijos[0]) + "/" + Cajas(f.hijos[1]) + "]";
  case Formula::Potencia:
    return Cajas(f.hijos[0]) + "^{" + Cajas(f.hijos[1]) + "}";
  case Formula::Raiz:
    return "√{" + hijos + "}";
  case Formula::Parentesis:
    return "(" + hijos + ")";
  }
  return "?";
}

TEST(Analisis, SeCompondriaComoMatematicas) {
  Analisis a;
  const auto r = a.Analiza("x^2 + y^2 = 25");
  EXPECT_EQ(Cajas(r.formulaDerivada), "−[_x_/_y_]");
  EXPECT_EQ(Cajas(r.formulaEcuacion), "_x_^{2} + _y_^{2} = 25");
  EXPECT_EQ(Cajas(r.formulaSegunda), "−[_x_^{2} + _y_^{2}/_y_^{3}]");
  EXPECT_EQ(Cajas(a.Analiza("y = Sin(x)^(1/2)").formulaDerivada), "[Cos(_x_)/2√{Sin(_x_)}]");
  EXPECT_EQ(Cajas(a.Analiza("y = e^(3*x)/5").formulaDerivada), "[3_e_^{3_x_}/5]");
}

struct Ecuacion {
  std::string texto, vd = "y", vi = "x", origen;
};

// The equations of the derivative table, the derivation seeds (their names
// decoded as the fuzz target does; names read from the input are left out),
// the examples and the benchmark's typical set.
std::vector<Ecuacion> Ecuaciones() {
  std::vector<Ecuacion> r;
  const fs::path raiz(MIRKAL_FUENTES);
  for (const prueba::Caso& c : prueba::LeeCasos("derivadas.txt"))
    if ((c[0] == "texto" || c[0] == "valor") && c[2].find('{') == std::string::npos) {
      std::istringstream motor(c[1]);
      Ecuacion e{c[2], "y", "x", c.archivo + ":" + std::to_string(c.linea)};
      if (std::string a, b; motor >> a >> b) e.vd = a, e.vi = b;
      r.push_back(e);
    }
  // The fuzz target's first names, those in ASCII.
  const std::array<const char*, 8> nombres = {"x", "y", "t", "s", "X", "Y", "z1", "v_2"};
  for (const auto& f : fs::directory_iterator(raiz / "fuzz/corpus/derivada")) {
    std::ifstream in(f.path(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), {});
    if (bytes.size() < 5) continue;
    const auto a = static_cast<unsigned char>(bytes[1]), b = static_cast<unsigned char>(bytes[2]);
    if ((a | b) & 128 || a % 16 >= nombres.size() || b % 16 >= nombres.size()) continue;
    r.push_back({bytes.substr(4), nombres[a % 16], nombres[b % 16], f.path().filename().string()});
  }
  for (const char* archivo : {"bench/tipicas.txt", "examples/explicita.txt",
                              "examples/implicita.txt", "examples/cociente.txt"}) {
    std::ifstream in(raiz / archivo);
    for (std::string l; std::getline(in, l);)
      if (!l.empty() && l[0] != '\'') r.push_back({l, "y", "x", archivo});
  }
  return r;
}

// ArcSec, ArcCosec and ArcCtg: the calculator computes them with the
// classic arc-tangent formulas, which are not the functions whose
// derivatives the rule table writes (for ArcCtg, atan(x) + Pi/2 has the
// derivative 1/(1+x^2), the rule -1/(1+x^2)). The analysis keeps the
// calculator's meaning, so on these the two disagree; they are kept apart,
// and must go on disagreeing, so that a change to either side is seen.
bool UsaFuncionDiscordante(const std::string& texto) {
  const std::string t = Minusculas(texto);
  for (const char* f : {"arcsec(", "arccosec(", "arcctg("})
    if (t.find(f) != std::string::npos) return true;
  return false;
}

TEST(Analisis, ConcuerdaConElMotorDondeAmbosEstanDefinidos) {
  int comparadas = 0, discordantes = 0;
  for (const Ecuacion& e : Ecuaciones()) {
    SCOPED_TRACE(e.origen + ": " + e.texto);
    Derivada motor;
    motor.VarDep(e.vd);
    motor.VarInd(e.vi);
    if (motor.ErrNumber() != 0) continue;
    const std::string suya = motor.Derivar(e.texto);
    Analisis analisis;
    analisis.VarDep(e.vd);
    analisis.VarInd(e.vi);
    const ResultadoAnalisis r = analisis.Analiza(e.texto);
    if (suya.empty() || !r.error.empty()) continue;
    bool comparada = false, distinta = false;
    const bool aparte = UsaFuncionDiscordante(e.texto);
    for (long double x : {0.6L, 0.9L, 1.3L, 2.2L})
      for (long double y : {0.7L, 1.6L}) {
        prueba::Valores v = {{Minusculas(e.vi), x}, {Minusculas(e.vd), y}};
        const auto a = prueba::Evalua(suya, v), b = prueba::Evalua(r.derivada, v);
        if (!a || !b || std::fabs(*a) > 1e12) continue;
        const bool igual = std::fabs(*b - *a) <= 1e-7 * (1 + std::fabs(*a));
        EXPECT_TRUE(igual || aparte) << "motor " << suya << " / análisis " << r.derivada << " en "
                                     << e.vi << "=" << x << ", " << e.vd << "=" << y;
        comparada = true;
        distinta |= !igual;
      }
    comparadas += comparada && !aparte;
    discordantes += aparte && distinta;
  }
  EXPECT_GE(discordantes, 10);
  // Most of them are compared: a reader that failed on every equation would
  // not pass unseen.
  EXPECT_GE(comparadas, 150);
}

} // namespace
