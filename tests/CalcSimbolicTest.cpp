// The symbolic calculator seen from outside: an expression text in, its
// simplified text out. Each table lists inputs with the exact text that the
// combining rules produce, so a change in a rule's order or in its bracketing
// shows up as a changed line.

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "algebra/CalcSimbolic.h"
#include "lang/Aviso.h"
#include "lang/Errores.h"

namespace {

enum Modo { kSimbolico, kConstantes, kNumerico };

void Prepara(CalcSimbolic& c, Modo modo) {
  if (modo == kNumerico) c.CalcExpNum(true);
  if (modo == kConstantes) c.ResolveConst(true);
}

struct Caso {
  const char* entrada;
  const char* salida;
};

void Comprueba(Modo modo, std::span<const Caso> casos) {
  CalcSimbolic c;
  Prepara(c, modo);
  for (const Caso& k : casos) {
    EXPECT_EQ(c.Calc(k.entrada), k.salida) << "input: " << k.entrada;
    EXPECT_EQ(c.ErrNumber(), 0) << "input: " << k.entrada << ": " << c.ErrDesc();
  }
}

TEST(CalcSimbolic, SymbolicResults) {
  // clang-format off
  const Caso casos[] = {
      // Grammar and evaluation order.
      {"x+y", "x+y"}, {"a-b-c", "a-b-c"}, // (a-b)-c
      {"a-(b-c)", "a-b+c"}, {"1+2*3", "7"}, {"2*(3+x)", "6+2*x"}, {"((x))", "x"},
      {"x^2^3", "x^6"}, // (x^2)^3
      {"2^3^2", "64"}, // (2^3)^2, not 2^9
      {"-x^2", "-x^2"}, // the sign binds looser than "^"
      {"-2^2", "-4"}, {"x^-1", "x^-1"}, // an exponent carries its own sign
      {"x^--2", "x^2"}, {"x^-y", "x^-y"}, {"2^-1^2", "2^-2"}, // (2^-1)^2
      {"--x", "x"}, {"---x", "-x"}, {"-+-x", "x"}, {"+x", "x"}, {"x--y", "x+y"}, {"x+-y", "x-y"},
      {"2*-3", "-6"}, {"-x*-y", "x*y"},
      {"x·y", "x*y"}, // the middle dot is a second spelling of "*"
      {"x+1 ' a comment", "x+1"}, {"x + _\r\n1", "x+1"}, // a continued line
      // Numbers are written back in the one number format.
      {"0.50", ".5"}, {"007", "7"}, {"1e3", "1000"}, {"7D2", "700"}, {"1.5E-3", ".0015"},
      {".1+.2", ".3"}, {".1+.2-.3", "0"}, // cancelled to within rounding
      {"1E20+1E20", "2E+20"},
      // Rounding noise cancels, a real coefficient next to a large one does not.
      {".1*x+.2*x-.3*x", "0"}, {".7+.1+.1+.1-1", "0"}, {".1+.1+.1+.1+.1+.1+.1+.1+.1+.1-1", "0"},
      {"1.1*x+2.2*x+3.3*x-6.6*x", "0"}, {"1E14+(1-1E14)", "1"}, {"1E14*x+x-1E14*x", "x"},
      {"123456789012345*x+x-123456789012345*x", "x"}, {"1E14+1+1-1E14", "2"},
      // Like terms merge and factors collect; names compare without regard to case.
      {"x+x", "2*x"}, {"x-x", "0"}, {"X-x", "0"}, {"x-2*x", "-x"}, {"3*x+2*y-x", "2*x+2*y"},
      {"x*y+y*x", "2*x*y"}, {"x*x", "x^2"}, {"x*x^2", "x^3"}, {"x^2*x^-2", "1"}, {"2*x*3", "6*x"},
      {"x*2", "2*x"}, {"x*y*2*x", "2*x^2*y"}, {"x*0", "0"}, {"-(-x+y)", "x-y"}, {"-(x*y)", "-x*y"},
      // Products of sums are expanded.
      {"(x+1)*(x-1)", "x^2-1"}, {"(x+1)*(x+1)", "x^2+2*x+1"}, {"(a+b)*(c+d)", "a*c+a*d+b*c+b*d"},
      {"(x-y)*(x+y)", "x^2-y^2"}, {"-(x+1)*2", "-2*x-2"},
      {"x*x/x", "x^2/x"}, // no cancellation beyond equality
      // Quotients, rule by rule.
      {"x/1", "x"}, {"x/-1", "-x"}, {"0/x", "0"},
      {"6/3", "6/3"}, // numbers divide only with CalcExpNum
      {"x/x", "1"}, {"X/x", "1"}, {"(x+y)/(y+x)", "1"}, {"x/(0-x)", "-1"}, {"(x-y)/(y-x)", "-1"},
      {"(x+1)/y", "(x+1)/y"}, {"-x/y", "-x/y"}, {"x^2/y", "x^2/y"}, {"x/(y+1)", "x/(y+1)"},
      {"x/(2*y)", "x/(2*y)"}, {"x/y^2", "x/(y^2)"}, {"x/-y", "x/-y"}, {"x/2+x/2", "2*x/2"},
      {"a/b*c", "a*c/b"}, {"a*(b/c)", "a*b/c"}, {"(a/b)*(c/d)", "a*c/(b*d)"}, {"a/(b/c)", "a*c/b"},
      {"(a/b)/c", "a/(b*c)"}, {"(a/b)/(c/d)", "a*d/(b*c)"},
      // Sums share one denominator.
      {"1/x+1/y", "(y+x)/(x*y)"}, {"1/x-1/y", "(y-x)/(x*y)"}, {"1/x+1/x", "2/x"}, {"1/x-1/x", "0"},
      {"x+1/x", "(x^2+1)/x"}, {"1/x+x", "(1+x^2)/x"}, {"x-1/x", "(x^2-1)/x"},
      // Powers, rule by rule.
      {"x^0", "1"}, {"0^0", "1"}, {"x^1", "x"}, {"0^x", "0"}, {"1^x", "1"},
      {"2^3", "8"}, // numbers raise without CalcExpNum
      {"2^.5", "1.4142135623731"}, {"2^-2", "2^-2"}, // "-2" is not a plain number
      {"(-2)^2", "(-2)^2"}, {"(x^2)^3", "x^6"}, {"(x^a)^b", "x^(a*b)"}, {"x^y^2", "x^(2*y)"},
      {"(x^2)^-1", "x^-2"}, {"(x^-1)^-1", "x"},
      {"(x/y)^-1^-1", "(x/y)"}, // the base comes back with its brackets
      {"2^-1^-2", "2^2"}, // a joined power is not computed again
      {"(x^2)^0", "1"}, {"(x^2)^(1/2)", "x"}, {"x^(1/2)", "x^(1/2)"}, {"x^(-2)", "x^-2"},
      {"x^(a-b)", "x^(a-b)"}, {"(x+1)^2", "(x+1)^2"}, {"(2*x)^2", "(2*x)^2"}, {"(-x)^2", "(-x)^2"},
      {"(x/y)^2", "(x/y)^2"}, {"(x^2/y)^3", "(x^2/y)^3"}, // a base holding "/" is kept whole
      {"Sin(x)^2", "Sin(x)^2"},
      // Constants as written; functions of numbers stay unevaluated.
      {"pi", "pi"}, {"PI", "PI"}, {"e", "e"}, {"pi+pi", "2*pi"}, {"Pi*pI", "Pi^2"}, {"2*e", "2*e"},
      {"Ln(e)", "1"}, {"Ln(E)", "1"}, {"Sin(0)", "Sin(0)"}, {"Sin(1+1)", "Sin(2)"},
      {"sin(x)", "sin(x)"}, {"Cos(x-x)", "Cos(0)"}, {"Ln(2*x+x)", "Ln(3*x)"},
  };
  // clang-format on
  Comprueba(kSimbolico, casos);
}

TEST(CalcSimbolic, ResolvedConstants) {
  // clang-format off
  const Caso casos[] = {
      {"pi", "3.14159265358979"}, {"PI", "3.14159265358979"}, {"e", "2.71828182845905"},
      {"E", "2.71828182845905"}, {"2*pi", "6.28318530717958"}, {"pi/2", "3.14159265358979/2"},
      {"Sin(pi)", "Sin(3.14159265358979)"},
      // Ln(e) is "1" by its argument's text; a resolved e is a
      // number, evaluated only with CalcExpNum.
      {"Ln(e)", "Ln(2.71828182845905)"}, {"x*pi-pi*x", "0"},
  };
  // clang-format on
  Comprueba(kConstantes, casos);
}

// The composite formulas are evaluated as written, so ArcSec, ArcCosec and
// ArcCtg keep their historical branch, not the textbook one.
TEST(CalcSimbolic, NumericEvaluation) {
  // clang-format off
  const Caso casos[] = {
      {"6/3", "2"}, {"1/3", ".333333333333333"}, {"2/3", ".666666666666667"}, {"x/4", ".25*x"},
      {"x/(2*4)", ".125*x"}, {"(x+y)/2", ".5*x+.5*y"},
      {"Sin(0)", "0"}, {"Sin(-1)", "Sin(-1)"}, // "-1" is not a plain number
      {"ArcCos(-1)", "ArcCos(-1)"}, {"Sin(x)", "Sin(x)"}, {"Sin(1+1)", ".909297426825682"},
      {"Cos(0)", "1"}, {"Tg(0)", "0"}, {"Sec(0)", "1"}, {"Ln(1)", "0"}, {"Ln(e)", "1"},
      {"Ln(2.5)", ".916290731874155"}, {"Log(100)", "2"}, {"Log(1000)", "3"},
      {"ArcSin(.5)", ".523598775598299"}, {"ArcCos(0)", "1.5707963267949"},
      {"ArcTg(1)", ".785398163397448"}, {"ArcSec(2)", "2.42786827464503"},
      {"ArcCosec(2)", ".857071947850131"}, {"ArcCtg(1)", "2.35619449019234"},
      {"SinH(1)", "1.1752011936438"}, {"CosH(0)", "1"}, {"TgH(0)", "0"},
      {"SecH(1)", ".648054273663885"}, {"ArcSinH(0)", "0"}, {"ArcCosH(1)", "0"},
      {"ArcTgH(.5)", ".549306144334055"}, {"ArcCtgH(3)", ".346573590279973"}, {"2*Cos(0)+x", "2+x"},
  };
  // clang-format on
  Comprueba(kNumerico, casos);
}

// Setting CalcExpNum, to either value, switches ResolveConst on; the
// constants can still be kept afterwards.
TEST(CalcSimbolic, NumericEvaluationSwitchesConstantsOn) {
  CalcSimbolic c;
  c.CalcExpNum(false);
  EXPECT_EQ(c.Calc("pi"), "3.14159265358979");
  EXPECT_EQ(c.Calc("6/3"), "6/3");
  c.CalcExpNum(true);
  c.ResolveConst(false);
  EXPECT_EQ(c.Calc("Sin(0)+pi"), "pi");
}

// The separator is that of the input; results always use the point. A
// refused one is warned of and leaves the old one in force.
TEST(CalcSimbolic, DecimalSeparatorOfTheInput) {
  std::vector<std::string> avisos;
  FijaManejadorAviso([&](const std::string& origen, const std::string& texto) {
    avisos.push_back(origen + "|" + texto);
  });
  CalcSimbolic c;
  c.PuntoDec(",");
  for (const char* malo : {";", "", ".."})
    c.PuntoDec(malo);
  FijaManejadorAviso(nullptr);
  EXPECT_EQ(avisos,
            std::vector<std::string>(
                3, ".CalcSimbolic|El separador decimal sólo puede ser el punto o la coma."));
  EXPECT_EQ(c.PuntoDec(), ",");
  EXPECT_EQ(c.Calc("1,5*x+0,25*x"), "1.75*x");
  EXPECT_EQ(c.Calc("1.5"), "");
  EXPECT_EQ(c.ErrNumber(), NumeroError(5)); // "1", then an unknown "."
  c.PuntoDec(".");
  EXPECT_EQ(c.Calc("1.5"), "1.5");
}

struct Error {
  std::int32_t numero;
  const char* desc;
};
const Error kAbre{NumeroError(1), "Se esperaba '('."}, kCierra{NumeroError(2), "Se esperaba ')'"},
    kExpr{NumeroError(3), "Se esperaba expresión."},
    kFin{NumeroError(5), "Se esperaba el fin de la expresión."},
    kCero{NumeroError(6), "Intentó dividir por cero"},
    kDesp{NumeroError(7), "No se pudo despejar la variable"},
    kDes{NumeroError(ErrAritmetica::Desbordamiento), Descripcion(ErrAritmetica::Desbordamiento)},
    kArg{NumeroError(ErrAritmetica::Argumento), Descripcion(ErrAritmetica::Argumento)},
    kDiv{NumeroError(ErrAritmetica::DivisionCero), Descripcion(ErrAritmetica::DivisionCero)};

struct CasoError {
  const char* entrada;
  Modo modo;
  Error error;
};

TEST(CalcSimbolic, RefusedInputsGiveTheirErrorAndAnEmptyText) {
  // clang-format off
  const CasoError casos[] = {
      {"Sin x", kSimbolico, kAbre}, {"Sin", kSimbolico, kAbre}, {"(x+1", kSimbolico, kCierra},
      {"Sin(x", kSimbolico, kCierra}, {"((x)", kSimbolico, kCierra}, {"x+", kSimbolico, kExpr},
      {")", kSimbolico, kExpr}, {"", kSimbolico, kExpr}, {"*x", kSimbolico, kExpr},
      {"x^", kSimbolico, kExpr}, {"x*/y", kSimbolico, kExpr}, {"x^(-)", kSimbolico, kExpr},
      {"\"ab\"", kSimbolico, kExpr}, {"x y", kSimbolico, kFin}, {"x)", kSimbolico, kFin},
      {"2x", kSimbolico, kFin}, {"5.", kSimbolico, kFin}, {"x=1", kSimbolico, kFin},
      {"x\r\ny", kSimbolico, kFin}, {"x/0", kSimbolico, kCero}, {"1/(x-x)", kSimbolico, kCero},
      {"1/0", kNumerico, kCero},
      // Failures of the arithmetic keep their own numbers.
      {"1E308*10", kSimbolico, kDes}, {"1E308*10", kNumerico, kDes},
      {"1E308+1E308", kSimbolico, kDes}, {"10^400", kSimbolico, kDes}, {"1E999", kSimbolico, kDes},
      {"1/1E-320", kNumerico, kDes}, {"SinH(1000)", kNumerico, kDes},
      {"TgH(1000)", kNumerico, kDes}, {"Ln(0)", kNumerico, kArg}, {"Log(0)", kNumerico, kArg},
      {"ArcSin(2)", kNumerico, kArg}, {"ArcSec(.5)", kNumerico, kArg},
      {"ArcCosH(.5)", kNumerico, kArg}, {"ArcSin(1)", kNumerico, kDiv},
      {"ArcSec(1)", kNumerico, kDiv}, {"Cosec(0)", kNumerico, kDiv}, {"Ctg(0)", kNumerico, kDiv},
      {"CosecH(0)", kNumerico, kDiv}, {"CtgH(0)", kNumerico, kDiv}, {"ArcTgH(1)", kNumerico, kDiv},
      {"ArcCtgH(1)", kNumerico, kDiv}, {"ArcSecH(0)", kNumerico, kDiv},
  };
  // clang-format on
  for (const CasoError& k : casos) {
    CalcSimbolic c;
    Prepara(c, k.modo);
    EXPECT_EQ(c.Calc(k.entrada), "") << "input: " << k.entrada;
    EXPECT_EQ(c.ErrNumber(), k.error.numero) << "input: " << k.entrada;
    EXPECT_EQ(c.ErrDesc(), k.error.desc) << "input: " << k.entrada;
  }
}

TEST(CalcSimbolic, SuccessClearsTheNumberButKeepsTheDescription) {
  CalcSimbolic c;
  EXPECT_EQ(c.Calc("x+"), "");
  EXPECT_EQ(c.Calc("x+1"), "x+1");
  EXPECT_EQ(c.ErrNumber(), 0);
  EXPECT_EQ(c.ErrDesc(), "Se esperaba expresión.");
  EXPECT_EQ(c.Calc("(x"), ""); // a later failure replaces it
  EXPECT_EQ(c.ErrDesc(), "Se esperaba ')'");
}

std::string Anidado(int n, const std::string& abre, const std::string& centro) {
  std::string s;
  for (int i = 0; i < n; ++i)
    s += abre;
  return s + centro + std::string(n, ')');
}

TEST(CalcSimbolic, DeepNestingIsRefusedInsteadOfExhaustingTheStack) {
  CalcSimbolic c;
  EXPECT_EQ(c.Calc(Anidado(kMaxAnidamientoCalc, "(", "x")), "x");
  EXPECT_EQ(c.Calc(Anidado(100, "Sin(", "x")), Anidado(100, "Sin(", "x"));
  for (const std::string& hondo :
       {Anidado(kMaxAnidamientoCalc + 1, "(", "x"), Anidado(kMaxAnidamientoCalc + 1, "Sin(", "x"),
        Anidado(100000, "(", "x"), Anidado(3000, "x^(", "2")}) {
    EXPECT_EQ(c.Calc(hondo), "");
    EXPECT_EQ(c.ErrNumber(), NumeroError(ErrAritmetica::Anidamiento));
    EXPECT_EQ(c.ErrDesc(), Descripcion(ErrAritmetica::Anidamiento));
  }
}

TEST(CalcSimbolic, IguCeroMovesTheRightSideOver) {
  // clang-format off
  const Caso casos[] = {
      {"x^2+y=3*x", "x^2+y-3*x"}, {"y = x^2", "y-x^2"}, {"x=x", "0"}, {"2*x=x+1", "x-1"},
      {"1/x=1", "(1-x)/x"}, {"x=-(y-1)", "x+y-1"},
  };
  // clang-format on
  CalcSimbolic c;
  for (const Caso& k : casos) {
    std::string ecu = k.entrada;
    EXPECT_TRUE(c.IguCero(ecu)) << k.entrada;
    EXPECT_EQ(ecu, k.salida) << k.entrada;
    EXPECT_EQ(c.ErrNumber(), 0) << k.entrada;
  }
}

TEST(CalcSimbolic, IguCeroHasAReducedTrap) {
  const struct {
    const char* ecu;
    int codigo;
    const char* queda; // what the equation holds afterwards
  } casos[] = {
      {"x+x", 4, "2*x"}, // the left side was simplified before "=" was missing
      {"x=1=2", 5, nullptr}, {"x=", 3, nullptr}, {"=1", 3, nullptr}, {"1/0=x", 6, nullptr},
  };
  for (const auto& k : casos) {
    CalcSimbolic c;
    EXPECT_EQ(c.Calc("(x"), "");
    std::string ecu = k.ecu;
    EXPECT_FALSE(c.IguCero(ecu)) << k.ecu;
    EXPECT_EQ(c.ErrNumber(), NumeroError(k.codigo)) << k.ecu;
    EXPECT_EQ(c.ErrDesc(), "Se esperaba ')'") << k.ecu; // left from the earlier call
    if (k.queda) {
      EXPECT_EQ(ecu, k.queda);
    }
  }
  CalcSimbolic c;
  std::string ecu = "x=";
  EXPECT_FALSE(c.IguCero(ecu));
  EXPECT_EQ(c.ErrDesc(), "");
  ecu = "x=1";
  EXPECT_TRUE(c.IguCero(ecu));
  EXPECT_EQ(ecu, "x-1");
  EXPECT_EQ(c.ErrNumber(), NumeroError(3)); // success does not clear the number
}

TEST(CalcSimbolic, DespAxNbSolvesLinearAndPurePowerForms) {
  // clang-format off
  const struct {
    const char *exp, *var;
    Modo modo;
    const char* solucion;
  } casos[] = {
      {"2*dy_dx+3*x", "dy_dx", kSimbolico, "-3*x/2"},
      {"(dy_dx-1)/x", "dy_dx", kSimbolico, "1"}, // the denominator is dropped
      {"dy_dx-1", "DY_DX", kSimbolico, "1"}, {"DY_DX*x-1", "dy_dx", kSimbolico, "1/x"},
      {"dy_dx", "dy_dx", kSimbolico, "0"}, {"-dy_dx+3", "dy_dx", kSimbolico, "3"},
      {"3-dy_dx", "dy_dx", kSimbolico, "3"}, {"x*dy_dx+y*dy_dx-1", "dy_dx", kSimbolico, "1/(x+y)"},
      {"dy_dx*x^2+2*x*y", "dy_dx", kSimbolico, "-2*x*y/(x^2)"},
      {"dy_dx^2-4", "dy_dx", kSimbolico, "4^(1/2)"},
      {"y*dy_dx^-1-2", "dy_dx", kSimbolico, "(2/y)^-1"}, {"dy_dx^2-4", "dy_dx", kNumerico, "2"},
      {"2*dy_dx-1", "dy_dx", kNumerico, ".5"}, {"x*y-3", "y", kSimbolico, "3/x"},
  };
  // clang-format on
  for (const auto& k : casos) {
    CalcSimbolic c;
    Prepara(c, k.modo);
    EXPECT_EQ(c.Desp_axNb(k.exp, k.var), k.solucion) << k.exp << " for " << k.var;
    EXPECT_EQ(c.ErrNumber(), 0) << k.exp << ": " << c.ErrDesc();
  }
}

TEST(CalcSimbolic, DespAxNbRefusesOtherForms) {
  // clang-format off
  const CasoError casos[] = {
      {"Sin(dy_dx)", kSimbolico, kDesp}, {"x+1", kSimbolico, kDesp},
      {"dy_dx-dy_dx+1", kSimbolico, kDesp}, {"dy_dx^2+dy_dx", kSimbolico, kDesp},
      {"dy_dx^dy_dx", kSimbolico, kDesp}, {"x^dy_dx", kSimbolico, kDesp},
      {"(dy_dx+1)^2", kSimbolico, kDesp}, {"dy_dx+", kSimbolico, kExpr},
      {"dy_dx/(x-x)", kSimbolico, kCero}, {"dy_dx*Ln(0)", kNumerico, kArg},
  };
  // clang-format on
  for (const CasoError& k : casos) {
    CalcSimbolic c;
    Prepara(c, k.modo);
    EXPECT_EQ(c.Desp_axNb(k.entrada, "dy_dx"), "") << k.entrada;
    EXPECT_EQ(c.ErrNumber(), k.error.numero) << k.entrada;
    EXPECT_EQ(c.ErrDesc(), k.error.desc) << k.entrada;
  }
  CalcSimbolic c;
  EXPECT_EQ(c.Calc("x+"), "");
  EXPECT_EQ(c.Desp_axNb("2*dy_dx", "dy_dx"), "0");
  EXPECT_EQ(c.ErrNumber(), 0); // cleared at the start of the call
}

} // namespace
