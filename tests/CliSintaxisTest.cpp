// `mirkal-cli sintaxis` run as scripts run it: a child process whose standard
// output, standard error and exit status are all part of the answer.

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

TEST(CliSintaxis, AcceptedTextsPrintTheirNormalForm) {
  const struct {
    std::vector<std::string> args;
    const char* salida;
  } casos[] = {
      {{"sintaxis", "2 * - - x"}, "2*x\n"},
      {{"sintaxis", "x\n"}, "x\n"},
      {{"sintaxis", "x ' nota"}, "x\n"},
      {{"sintaxis", "año·x^-2"}, "año·x^2\n"},
      {{"sintaxis", "--ecuacion", "y = x^2"}, "y=x^2\n"},
      {{"sintaxis", "--ecuacion", "y = x _\n+ 1"}, "y=x+1\n"},
      {{"sintaxis", "--desigualdad", "x => 2"}, "x=>2\n"},
      {{"sintaxis", "--desigualdad", "x = 2"}, "x=2\n"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const SalidaCli s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(s.out, c.salida);
    EXPECT_EQ(s.err, "");
  }
}

TEST(CliSintaxis, RefusedTextsReportLineAndColumnFromOne) {
  const struct {
    std::vector<std::string> args;
    const char* error;
  } casos[] = {
      {{"sintaxis", "y = x^2"}, "línea 1, columna 3: Se esperaba fin de archivo"},
      {{"sintaxis", ""}, "línea 1, columna 1: Se esperaba expresión"},
      {{"sintaxis", "x +\ny"}, "línea 1, columna 4: Se esperaba expresión"},
      {{"sintaxis", "x\ny"}, "línea 2, columna 1: Se esperaba fin de archivo"},
      {{"sintaxis", "x\r\ny"}, "línea 2, columna 1: Se esperaba fin de archivo"}, // CR LF kept
      {{"sintaxis", "año ñu"}, "línea 1, columna 5: Se esperaba fin de archivo"},
      {{"sintaxis", "sin x"}, "línea 1, columna 5: Se esperaba ("},
      {{"sintaxis", "1E999"}, "línea 1, columna 1: Desbordamiento"},
      {{"sintaxis", "--ecuacion", "x"}, "línea 1, columna 2: Se esperaba ="},
      {{"sintaxis", "--desigualdad", "x 2"},
       "línea 1, columna 3: Se esperaba = ó > ó < ó >= ó <= ó <>"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args));
    const SalidaCli s = Ejecuta(c.args);
    EXPECT_EQ(s.estado, 1);
    EXPECT_EQ(s.out, "");
    EXPECT_EQ(s.err, std::string(c.error) + "\n");
  }
}

TEST(CliSintaxis, UsageErrorsExitWithTwo) {
  const std::vector<std::vector<std::string>> casos = {{},
                                                       {"sintaxis"},
                                                       {"sintaxis", "--bogus", "x"},
                                                       {"sintaxis", "--ecuacion"},
                                                       {"frobnicar", "x"}};
  for (const auto& args : casos) {
    const SalidaCli s = Ejecuta(args);
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

TEST(CliSintaxis, HelpAndVersion) {
  const SalidaCli ayuda = Ejecuta({"--help"});
  EXPECT_EQ(ayuda.estado, 0);
  EXPECT_NE(ayuda.out.find("sintaxis"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("--desigualdad"), std::string::npos) << ayuda.out;
  const SalidaCli version = Ejecuta({"--version"});
  EXPECT_EQ(version.estado, 0);
  EXPECT_NE(version.out.find(MIRKAL_VERSION), std::string::npos) << version.out;
}

} // namespace
