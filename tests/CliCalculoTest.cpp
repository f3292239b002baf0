// `mirkal-cli simplificar` and `mirkal-cli despejar` run as scripts run them:
// a child process whose standard output, standard error and exit status are
// all part of the answer.

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
  const std::string errores = testing::TempDir() + "mirkal-cli-calculo-" + std::to_string(getpid());
  std::string orden = Comillas(MIRKAL_CLI);
  for (const std::string& a : args)
    orden += " " + Comillas(a);
  Salida s;
  FILE* tubo = popen((orden + " 2>" + Comillas(errores) + " </dev/null").c_str(), "r");
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
    const Salida s = Ejecuta(c.args);
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
    const Salida s = Ejecuta(c.args);
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
    const Salida s = Ejecuta(args);
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_EQ(s.out, "") << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

} // namespace
