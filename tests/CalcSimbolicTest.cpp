// The symbolic calculator seen from outside: the cases of
// tests/casos/calculo.txt, and the state that one call leaves to the next.

#include <gtest/gtest.h>

#include <pthread.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Casos.h"
#include "algebra/CalcSimbolic.h"
#include "lang/Aviso.h"
#include "lang/Errores.h"
#include "lang/SintaxExp.h"

namespace {

using prueba::Texto;

const std::string kModos =
    " simbolico constantes numerico sin-numerico numerico-sin-constantes coma ";

// A calculator in the mode a line names. Setting CalcExpNum, to either
// value, switches ResolveConst on; the constants can still be kept afterwards.
CalcSimbolic Calculadora(const std::string& modo) {
  CalcSimbolic c;
  if (modo == "numerico" || modo == "numerico-sin-constantes") c.CalcExpNum(true);
  if (modo == "sin-numerico") c.CalcExpNum(false);
  if (modo == "constantes") c.ResolveConst(true);
  if (modo == "numerico-sin-constantes") c.ResolveConst(false);
  if (modo == "coma") c.PuntoDec(",");
  EXPECT_NE(kModos.find(" " + modo + " "), std::string::npos) << modo;
  return c;
}

// "u<n>": the user-input error n; "a<n>": the arithmetic's failure n.
std::int32_t Numero(const std::string& s) {
  const int n = std::stoi(s.substr(1));
  return s[0] == 'u' ? NumeroError(n) : n;
}

class Calculo : public prueba::TablaDeCasos {};

TEST_P(Calculo, Resultado) {
  const prueba::Caso& c = GetParam();
  const std::string& tipo = c[0];
  if (kModos.find(" " + tipo + " ") != std::string::npos) {
    CalcSimbolic calc = Calculadora(tipo);
    EXPECT_EQ(calc.Calc(c[1]), c[2]);
    EXPECT_EQ(calc.ErrNumber(), 0) << calc.ErrDesc();
  } else if (tipo == "error") {
    CalcSimbolic calc = Calculadora(c[1]);
    EXPECT_EQ(calc.Calc(Texto(c[2])), "");
    EXPECT_EQ(calc.ErrNumber(), Numero(c[3]));
    EXPECT_EQ(calc.ErrDesc(), c[4]);
  } else if (tipo == "igucero") {
    CalcSimbolic calc;
    std::string ecu = c[1];
    EXPECT_TRUE(calc.IguCero(ecu));
    EXPECT_EQ(ecu, c[2]);
    EXPECT_EQ(calc.ErrNumber(), 0);
  } else if (tipo == "igucero-falla") {
    CalcSimbolic calc;
    EXPECT_EQ(calc.Calc("(x"), "");
    std::string ecu = c[1];
    EXPECT_FALSE(calc.IguCero(ecu));
    EXPECT_EQ(calc.ErrNumber(), Numero(c[2]));
    EXPECT_EQ(calc.ErrDesc(), "Se esperaba ')'"); // left by the earlier call
    if (c[3] != "(cualquiera)") {
      EXPECT_EQ(ecu, c[3]);
    }
  } else if (tipo == "despeja") {
    CalcSimbolic calc = Calculadora(c[1]);
    EXPECT_EQ(calc.Desp_axNb(c[2], c[3]), c[4]);
    EXPECT_EQ(calc.ErrNumber(), 0) << calc.ErrDesc();
  } else if (tipo == "cifras") {
    CalcSimbolic calc;
    if (c[1] != "-") calc.CifRedInt(std::stoi(c[1]));
    EXPECT_EQ(calc.CifRedInt(), std::stoi(c[2]));
  } else {
    ASSERT_EQ(tipo, "despeja-error");
    CalcSimbolic calc = Calculadora(c[1]);
    EXPECT_EQ(calc.Desp_axNb(c[2], c[3]), "");
    EXPECT_EQ(calc.ErrNumber(), Numero(c[4]));
    EXPECT_EQ(calc.ErrDesc(), c[5]);
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, Calculo, prueba::Casos("calculo.txt"), prueba::NombreDeCaso);

// A refused decimal separator is warned of and leaves the old one in force.
TEST(CalcSimbolic, RefusedDecimalSeparator) {
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
  EXPECT_EQ(c.Calc("1,5*x+0,25*x"), "1.75*x");
}

// A success clears the number but keeps the description; IguCero's success
// does not even clear the number; Desp_axNb clears it first.
TEST(CalcSimbolic, WhatASuccessLeavesOfTheLastError) {
  CalcSimbolic c;
  EXPECT_EQ(c.Calc("x+"), "");
  EXPECT_EQ(c.Calc("x+1"), "x+1");
  EXPECT_EQ(c.ErrNumber(), 0);
  EXPECT_EQ(c.ErrDesc(), "Se esperaba expresión.");
  EXPECT_EQ(c.Calc("(x"), "");
  EXPECT_EQ(c.ErrDesc(), "Se esperaba ')'");
  CalcSimbolic nueva;
  std::string ecu = "x=";
  EXPECT_FALSE(nueva.IguCero(ecu));
  EXPECT_EQ(nueva.ErrDesc(), ""); // no description of its own
  ecu = "x=1";
  EXPECT_TRUE(c.IguCero(ecu));
  EXPECT_EQ(ecu, "x-1");
  EXPECT_EQ(c.ErrNumber(), NumeroError(2));
  EXPECT_EQ(c.Desp_axNb("2*dy_dx", "dy_dx"), "0");
  EXPECT_EQ(c.ErrNumber(), 0);
}

std::string Anidado(int n, const std::string& abre, const std::string& centro) {
  std::string s;
  for (int i = 0; i < n; ++i)
    s += abre;
  return s + centro + std::string(n, ')');
}

// Runs `orden` on a thread whose stack is only `bytes` long.
void EnPilaDe(std::size_t bytes, const std::function<void()>& orden);

// On a stack with room for it, the count alone bounds the nesting.
TEST(CalcSimbolic, DeepNestingIsRefusedInsteadOfExhaustingTheStack) {
  EnPilaDe(std::size_t{1} << 30, [] {
    CalcSimbolic c;
    EXPECT_EQ(c.Calc(Anidado(kMaxAnidamientoCalc, "(", "x")), "x");
    EXPECT_EQ(c.Calc(Anidado(256, "Sin(", "x")), Anidado(256, "Sin(", "x"));
    for (const std::string& hondo :
         {Anidado(kMaxAnidamientoCalc + 1, "(", "x"), Anidado(kMaxAnidamientoCalc + 1, "Sin(", "x"),
          Anidado(100000, "(", "x"), Anidado(kMaxAnidamientoCalc + 1, "x^(", "2")}) {
      EXPECT_EQ(c.Calc(hondo), "");
      EXPECT_EQ(c.ErrNumber(), NumeroError(ErrAritmetica::Anidamiento));
      EXPECT_EQ(c.ErrDesc(), Descripcion(ErrAritmetica::Anidamiento));
    }
  });
}

void EnPilaDe(std::size_t bytes, const std::function<void()>& orden) {
  pthread_attr_t atributos;
  pthread_attr_init(&atributos);
  ASSERT_EQ(pthread_attr_setstacksize(&atributos, bytes), 0);
  pthread_t hilo;
  auto* copia = new std::function<void()>(orden);
  ASSERT_EQ(pthread_create(
                &hilo, &atributos,
                [](void* o) -> void* {
                  std::unique_ptr<std::function<void()>> f(static_cast<std::function<void()>*>(o));
                  (*f)();
                  return nullptr;
                },
                copia),
            0);
  pthread_join(hilo, nullptr);
  pthread_attr_destroy(&atributos);
}

// On a small stack the nesting that the counts allow does not fit: the
// readers refuse it, by the room left on the stack, instead of crashing.
TEST(CalcSimbolic, NestingIsBoundByTheStackThatIsThere) {
  std::string calculo, sintaxis;
  EnPilaDe(512 * 1024, [&] {
    CalcSimbolic c;
    calculo = c.Calc(Anidado(kMaxAnidamientoCalc, "Sin(", "x"));
    calculo += "|" + c.ErrDesc();
    SintaxExp s;
    s.SintaxExpr(Anidado(kMaxAnidamiento, "Sin(", "x"));
    sintaxis = s.ErrDesc();
  });
  EXPECT_EQ(calculo, std::string("|") + Descripcion(ErrAritmetica::Anidamiento));
  // The checker's frames are smaller: more levels fit, but not ten thousand.
  EXPECT_EQ(sintaxis, Descripcion(ErrAritmetica::Anidamiento));
}

} // namespace
