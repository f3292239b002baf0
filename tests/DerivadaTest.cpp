// The differentiation engine: derivatives by the rule tables and the
// calculator, the checks on the variables' names, and the error record.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>

#include "EvaluadorPrueba.h"
#include "differentiation/Derivada.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

namespace {

const char* const kInterna = "La variable dy_dx es de uso interno por el programa";
const char* const kNoValido = "El identificador no es válido";
const char* const kNoDespeja = "No se pudo despejar el cociente de diferenciales";
const char* const kDistintas =
    "La variable dependiente debe ser distinta a la variable independiente";
const char* const kCrece =
    "La expresión crece en exceso al derivarla: simplifíquela o divídala en partes";

Derivada ConYX() {
  Derivada d;
  d.VarDep("y");
  d.VarInd("x");
  return d;
}

TEST(Derivada, NamesOfTheVariablesDefaultToUpperCase) {
  Derivada d;
  EXPECT_EQ(d.VarDep() + d.VarInd(), "YX");
  EXPECT_EQ(d.Derivar("y = x^2"), "2*x"); // the names match without regard to case
}

// Results whose text the rules and the calculator leave no doubt about.
TEST(Derivada, PlainResultsAsText) {
  const struct {
    const char *ecuacion, *derivada;
  } casos[] = {
      {"y = x", "1"},
      {"y = 3", "0"},
      {"y = Sin(2)", "0"},
      {"y = -x", "-1"},
      {"y = x^2", "2*x"},
      {"y = x^-2", "2*x"}, // the checker drops a sign right after "^"
      {"y = x^-1", "1"},
      {"y + dy_dxa = x", "1"}, // dy_dxa is not the derivative name
      {"y = 2.5E+3*x", "2500"},
      // A unit next to 1E14 is no rounding noise.
      {"y = 1E14*x + x - 1E14*x", "1"},
      {"y = 123456789012345*x + x - 123456789012345*x", "1"},
      {"x + 1E14*y = y + 1E14*y + x^2", "1-2*x"},
      {"y = 0.1*x + 0.2*x - 0.3*x", "0"},
  };
  for (const auto& c : casos) {
    Derivada d = ConYX();
    EXPECT_EQ(d.Derivar(c.ecuacion), c.derivada) << c.ecuacion << ": " << d.ErrDesc();
    EXPECT_EQ(d.ErrNumber(), 0) << c.ecuacion;
  }
}

// Results compared by value with a derivative worked out by hand, at points
// where every function of the case is defined: how the equation is read.
// Each function's own rule is checked against finite differences in
// PropiedadDerivadaTest.
TEST(Derivada, ResultsByValue) {
  // clang-format off
  const struct {
    const char *ecuacion, *esperada;
  } casos[] = {
      {"y = x-x-x", "-1"}, // (x-x)-x, not x-(x-x)
      {"y = x/x/x", "-1/x^2"}, // (x/x)/x, not x/(x/x)
      {"y = x^2^3", "6*x^5"}, // (x^2)^3, not x^(2^3)
      {"y = x\xC2\xB7x", "2*x"}, // the middle dot multiplies
      {"y = x\xC2\xB7Sin(x)", "Sin(x)+x*Cos(x)"},
      {"y = x*-2", "-2"}, // a sign after "*" is no subtraction
      {"y = x^(-1)", "-1/x^2"}, {"y = 1/-x", "1/x^2"}, {"y = -x^2", "-2*x"}, {"Y = X^3", "3*x^2"},
      {"y = SIN(x)+cos(X)", "Cos(x)-Sin(x)"},
      {"y = 2e-3*x", ".002"}, // the sign belongs to the number
      {"y = 2D-3*x", ".002"}, {"y = x2e-3*x", "-3"}, // x2e is a name: this "-" subtracts
      {"y = Sin(x)^2+Cos(x)^2", "0"}, {"y = Sin(2)*x", "Sin(2)"}, {"y = e^x", "e^x"},
      {"y = x^x", "x^x*(Ln(x)+1)"}, {"x^2+y^2 = 25", "-x/y"}, {"x*y = 1", "-y/x"},
      {"y^3 + x*y = x", "(1-y)/(3*y^2+x)"}, {"Sin(x*y) = x", "(1-y*Cos(x*y))/(x*Cos(x*y))"},
      // Which side holds what must not matter.
      {"(y+x)/2 = 1", "-1"}, {"1 = (y+x)/2", "-1"}, {"1 = y/x", "y/x"},
      {"x = -(1/y)/x", "x*y^2-y/x"},
      {"y = x ' con un comentario\r\n' y otra l\xC3\xADnea de notas\r\n", "1"},
  };
  // clang-format on
  for (const auto& c : casos) {
    Derivada d = ConYX();
    const std::string r = d.Derivar(c.ecuacion);
    for (long double x : {0.6L, 0.9L, 1.3L})
      for (long double y : {0.7L, 1.6L}) {
        const prueba::Valores v = {{"x", x}, {"y", y}, {"x2e", 0.37L}};
        const auto obtenido = prueba::Evalua(r, v), esperado = prueba::Evalua(c.esperada, v);
        ASSERT_TRUE(esperado) << c.esperada;
        ASSERT_TRUE(obtenido) << c.ecuacion << " -> " << r << " " << d.ErrDesc();
        EXPECT_NEAR(*obtenido, *esperado, 1e-9 * (1 + std::fabs(*esperado)))
            << c.ecuacion << " -> " << r << " at x=" << x << " y=" << y;
      }
  }
}

TEST(Derivada, LongSumsAreDifferentiatedTermByTerm) {
  std::string suma = "x";
  for (int i = 1; i < 250; ++i)
    suma += "+x";
  Derivada d = ConYX();
  EXPECT_EQ(d.Derivar("y = " + suma), "250") << d.ErrDesc();
}

TEST(Derivada, VariableNamesAreChecked) {
  // clang-format off
  const struct {
    bool dependiente;
    const char* nombre;
    int codigo; // 0: accepted
  } casos[] = {
      {true, "dy_dx", 1}, {false, "dy_dx", 1}, {true, "DY_DX", 1}, {false, "dY_dX", 1},
      {true, "2x", 2}, {false, "2x", 2}, {true, "x-1", 2}, {false, "x-1", 2}, {true, "", 2},
      {false, "_x", 2}, {true, "x y", 2}, {false, "\xC3\xBC", 2}, // ü
      {true, "X", 4}, {false, "Y", 4}, {true, "x", 4}, {false, "y", 4},
      {true, "x_1", 0}, {false, "\xC3\xB1u", 0}, {true, "\xC3\x91" "and\xC3\xBA", 0}, // ñu, Ñandú
      {false, "t2", 0},
  };
  // clang-format on
  for (const auto& c : casos) {
    Derivada d = ConYX();
    const std::string antes = c.dependiente ? d.VarDep() : d.VarInd();
    c.dependiente ? d.VarDep(c.nombre) : d.VarInd(c.nombre);
    const std::string ahora = c.dependiente ? d.VarDep() : d.VarInd();
    SCOPED_TRACE(std::string(c.dependiente ? "VarDep " : "VarInd ") + c.nombre);
    if (c.codigo == 0) {
      EXPECT_EQ(d.ErrNumber(), 0);
      EXPECT_EQ(ahora, c.nombre);
      continue;
    }
    EXPECT_EQ(d.ErrNumber(), NumeroError(c.codigo));
    EXPECT_EQ(d.ErrDesc(), c.codigo == 1 ? kInterna : c.codigo == 2 ? kNoValido : kDistintas);
    EXPECT_EQ(d.ErrLin(), -1);
    EXPECT_EQ(ahora, antes);
  }
}

TEST(Derivada, OtherVariablesGiveTheirOwnDerivativeName) {
  Derivada d;
  d.VarDep("t");
  d.VarInd("s");
  EXPECT_EQ(d.Derivar("t = s^3"), "3*s^2");
  EXPECT_EQ(d.Derivar("t = y + x"), "0"); // y and x are now constants
  d.Derivar("t = dt_ds");
  EXPECT_EQ(d.ErrNumber(), NumeroError(1));
  d.VarDep("dt_ds");
  EXPECT_EQ(d.ErrNumber(), NumeroError(1));
  d.VarDep("dy_dx"); // not the current derivative name
  EXPECT_EQ(d.VarDep(), "dy_dx");
}

// The checker's record passes unchanged, its description included.
TEST(Derivada, SyntaxErrorsKeepTheCheckersRecord) {
  // clang-format off
  const struct {
    const char* ecuacion;
    int32_t numero;
    int lin, col, len;
  } casos[] = {
      {"y = x +", NumeroError(1), 0, 7, 0}, {"y x", NumeroError(5), 0, 2, 1},
      {"y = sin x", NumeroError(6), 0, 8, 1}, {"y = (x+1", NumeroError(7), 0, 8, 0},
      {"y = x\r\n+ 1", NumeroError(3), 1, 0, 1}, {"y = x +\r\n1", NumeroError(1), 0, 7, 0},
      {"y = 1E999", NumeroError(ErrAritmetica::Desbordamiento), 0, 4, 5},
      {"' nota primero\r\ny = x", NumeroError(1), 0, 0, 0},
  };
  // clang-format on
  auto registro = [](const auto& r) {
    return std::tuple(r.ErrNumber(), r.ErrLin(), r.ErrCol(), r.ErrLen(), r.ErrDesc());
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.ecuacion);
    SintaxExp s;
    ASSERT_FALSE(s.SintaxEcu(c.ecuacion));
    Derivada d = ConYX();
    EXPECT_EQ(d.Derivar(c.ecuacion), "");
    EXPECT_EQ(registro(d), registro(s));
    EXPECT_EQ(registro(d), std::tuple(c.numero, c.lin, c.col, c.len, s.ErrDesc()));
  }
}

TEST(Derivada, RefusedEquations) {
  const struct {
    const char* ecuacion;
    int codigo;
    const char* desc;
  } casos[] = {
      {"y = dy_dx*x", 1, kInterna}, {"y = 2*DY_DX", 1, kInterna},
      {"x^2 = 4", 3, kNoDespeja}, // no dy_dx left to solve for
      {"y = y", 3, kNoDespeja},     {"2 = 3", 3, kNoDespeja},
  };
  for (const auto& c : casos) {
    Derivada d = ConYX();
    EXPECT_EQ(d.Derivar(c.ecuacion), "") << c.ecuacion;
    EXPECT_EQ(d.ErrNumber(), NumeroError(c.codigo)) << c.ecuacion;
    EXPECT_EQ(d.ErrDesc(), c.desc) << c.ecuacion;
    EXPECT_EQ(d.ErrLin(), -1) << c.ecuacion;
  }
}

// Pending derivatives that repeat themselves (TgH is differentiated as a
// quotient of SinH and CosH of the same argument) or long pieces pasted into
// the quotient template again and again: the text swells, and the engine must
// give up soon with its own message.
TEST(Derivada, SwellingExpressionsAreRefusedQuickly) {
  std::string tgh = "x";
  for (int i = 0; i < 20; ++i)
    tgh = "TgH(" + tgh + ")";
  std::string poli = "x^2";
  for (int i = 3; i <= 150; ++i)
    poli += "+x^" + std::to_string(i);
  std::string cocientes = "(" + poli + ")";
  for (int i = 0; i < 3; ++i)
    cocientes = "(" + poli + ")/(" + cocientes + ")";
  for (const std::string& e : {tgh, cocientes}) {
    Derivada d = ConYX();
    EXPECT_EQ(d.Derivar("y = " + e), "");
    EXPECT_EQ(d.ErrNumber(), NumeroError(5)) << e.substr(0, 60);
    EXPECT_EQ(d.ErrDesc(), kCrece);
    EXPECT_EQ(d.ErrLin(), -1);
  }
}

} // namespace
