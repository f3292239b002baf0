// `mirkal-cli sintaxis` run as scripts run it: a child process whose standard
// output, standard error and exit status are all part of the answer.

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Salida {
  int estado = -1;
  std::string out, err;
};

std::string Comillas(const std::string& a) {
  std::string r = "'";
  for (char c : a)
    r += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return r + "'";
}

// Runs the tool through the shell; standard error goes to a file of this
// process, as tests may run side by side.
Salida Ejecuta(const std::vector<std::string>& args) {
  const std::string errores = testing::TempDir() + "mirkal-cli-" + std::to_string(getpid());
  std::string orden = Comillas(MIRKAL_CLI);
  for (const std::string& a : args)
    orden += " " + Comillas(a);
  Salida s;
  FILE* tubo = popen((orden + " 2>" + Comillas(errores)).c_str(), "r");
  if (!tubo) return s;
  char buf[4096];
  for (std::size_t n; (n = fread(buf, 1, sizeof buf, tubo)) > 0;)
    s.out.append(buf, n);
  const int estado = pclose(tubo);
  s.estado = WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
  std::ifstream f(errores, std::ios::binary);
  s.err.assign(std::istreambuf_iterator<char>(f), {});
  std::remove(errores.c_str());
  return s;
}

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
    const Salida s = Ejecuta(c.args);
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
    const Salida s = Ejecuta(c.args);
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
    const Salida s = Ejecuta(args);
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

TEST(CliSintaxis, HelpAndVersion) {
  const Salida ayuda = Ejecuta({"--help"});
  EXPECT_EQ(ayuda.estado, 0);
  EXPECT_NE(ayuda.out.find("sintaxis"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("--desigualdad"), std::string::npos) << ayuda.out;
  const Salida version = Ejecuta({"--version"});
  EXPECT_EQ(version.estado, 0);
  EXPECT_NE(version.out.find(MIRKAL_VERSION), std::string::npos) << version.out;
}

} // namespace
