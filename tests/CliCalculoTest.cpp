// `mirkal-cli simplificar` and `mirkal-cli despejar` run as scripts run them:
// a child process whose standard output, standard error and exit status are
// all part of the answer.

#include <gtest/gtest.h>

#include "EjecutaCliPrueba.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using prueba::SalidaCli;
SalidaCli Ejecuta(const std::vector<std::string>& args) { return prueba::EjecutaCli(args); }

TEST(CliCalculo, AcceptedInputsPrintTheResult) {
  const struct {
    std::vector<std::string> args;
    const char* salida;
  } casos[] = {
      {{"simplificar", "2*(3+x)"}, "6+2*x\n"},
      {{"simplificar", "x·y + y*x"}, "2*x*y\n"},
      {{"simplificar", "6/3"}, "6/3\n"},
      {{"simplificar", "pi"}, "pi\n"},
      {{"simplificar", "-x-x"}, "-2*x\n"}, // a leading sign is not an option
      {{"simplificar", "--numerico", "6/3"}, "2\n"},
      {{"simplificar", "--numerico", "pi"}, "3.14159265358979\n"}, // constants come along
      {{"simplificar", "--constantes", "Sin(pi)"}, "Sin(3.14159265358979)\n"},
      {{"simplificar", "--constantes", "--numerico", "Sin(0)+e"}, "2.71828182845905\n"},
      {{"simplificar", "--numerico", "--constantes", "1/3"}, ".333333333333333\n"},
      {{"despejar", "2*dy_dx+3*x", "dy_dx"}, "-3*x/2\n"},
      {{"despejar", "(dy_dx-1)/x", "DY_DX"}, "1\n"},
      {{"despejar", "x*y-3", "y"}, "3/x\n"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const SalidaCli s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(s.out, c.salida);
    EXPECT_EQ(s.err, "");
  }
}

TEST(CliCalculo, RefusedInputsPrintTheBareDescription) {
  const struct {
    std::vector<std::string> args;
    const char* error;
  } casos[] = {
      {{"simplificar", "x+"}, "Se esperaba expresión."},
      {{"simplificar", "Sin x"}, "Se esperaba '('."},
      {{"simplificar", "(x"}, "Se esperaba ')'"},
      {{"simplificar", "x y"}, "Se esperaba el fin de la expresión."},
      {{"simplificar", "x/0"}, "Intentó dividir por cero"},
      {{"simplificar", "10^400"}, "Desbordamiento"},
      {{"simplificar", "--numerico", "Ln(0)"}, "Argumento fuera del dominio"},
      {{"simplificar", "--numerico", "ArcSin(1)"}, "División por cero"},
      {{"despejar", "Sin(dy_dx)", "dy_dx"}, "No se pudo despejar la variable"},
      {{"despejar", "dy_dx^2+dy_dx", "dy_dx"}, "No se pudo despejar la variable"},
      {{"despejar", "x+", "dy_dx"}, "Se esperaba expresión."},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const SalidaCli s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 1);
    EXPECT_EQ(s.out, "");
    EXPECT_EQ(s.err, std::string(c.error) + "\n");
  }
}

TEST(CliCalculo, UsageErrorsExitWithTwo) {
  const std::vector<std::vector<std::string>> casos = {
      {"simplificar"},
      {"simplificar", "--bogus", "x"},
      {"simplificar", "--numerico"},
      {"simplificar", "x", "y"},
      {"despejar"},
      {"despejar", "x"},
      {"despejar", "x", "y", "z"},
      {"despejar", "--numerico", "x", "y"},
  };
  for (const auto& args : casos) {
    const SalidaCli s = Ejecuta(args);
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_EQ(s.out, "") << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

} // namespace
