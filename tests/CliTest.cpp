// mirkal-cli run as scripts run it: a child process whose standard output,
// standard error and exit status are all part of the answer. Status 0 is
// success, 1 a refused input, 2 a usage error.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "EjecutaCliPrueba.h"

namespace {

using prueba::EjecutaCli;
using prueba::SalidaCli;

const std::string kCabecera = "\r\n'Derivada hallada:\r\n";

struct Caso {
  std::vector<std::string> args;
  int estado;
  std::string out, err, entrada = "";
};

void Comprueba(const std::vector<Caso>& casos) {
  for (const Caso& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args) + " " + c.entrada);
    const SalidaCli s = EjecutaCli(c.args, c.entrada);
    EXPECT_EQ(s.estado, c.estado) << s.err;
    EXPECT_EQ(s.out, c.out);
    EXPECT_EQ(s.err, c.err);
  }
}

// Each command with its options, one or two results, and its refusals: the
// engines' own tables hold the rest.
TEST(Cli, Sintaxis) {
  // clang-format off
  Comprueba({
      {{"sintaxis", "año·x^-2 ' nota"}, 0, "año·x^2\n", ""},
      {{"sintaxis", "--ecuacion", "y = x _\n+ 1"}, 0, "y=x+1\n", ""}, // LF read as CR LF
      {{"sintaxis", "--desigualdad", "x => 2"}, 0, "x=>2\n", ""},
      // Refused texts: line and column counted from one, in characters.
      {{"sintaxis", "año ñu"}, 1, "", "línea 1, columna 5: Se esperaba fin de archivo\n"},
      {{"sintaxis", "x\ny"}, 1, "", "línea 2, columna 1: Se esperaba fin de archivo\n"},
      {{"sintaxis", "--ecuacion", "x"}, 1, "", "línea 1, columna 2: Se esperaba =\n"},
      {{"sintaxis", "--desigualdad", "x 2"}, 1, "",
       "línea 1, columna 3: Se esperaba = ó > ó < ó >= ó <= ó <>\n"},
  });
  // clang-format on
}

TEST(Cli, SimplificarYDespejar) {
  Comprueba({
      {{"simplificar", "6/3"}, 0, "6/3\n", ""},
      {{"simplificar", "--numerico", "6/3"}, 0, "2\n", ""},
      {{"simplificar", "-x-x"}, 0, "-2*x\n", ""}, // a leading sign is not an option
      {{"simplificar", "--constantes", "Sin(pi)"}, 0, "Sin(3.14159265358979)\n", ""},
      {{"despejar", "2*dy_dx+3*x", "dy_dx"}, 0, "-3*x/2\n", ""},
      // Refused inputs print the bare description.
      {{"simplificar", "x+"}, 1, "", "Se esperaba expresión.\n"},
      {{"despejar", "Sin(dy_dx)", "dy_dx"}, 1, "", "No se pudo despejar la variable\n"},
  });
}

TEST(Cli, DerivarYFormato) {
  // clang-format off
  Comprueba({
      {{"derivar", "--vd", "t", "--vi", "s", "t = s^3"}, 0, kCabecera + "'dt/ds = 3*s^2\n", ""},
      {{"derivar", "y = 0.125*x^2"}, 0, kCabecera + "'dy/dx = (1/4)*x\n", ""},
      {{"derivar", "--decimales", "--cifras", "2", "y = 0.125*x^2"}, 0,
       kCabecera + "'dy/dx = .25*x\n", ""},
      {{"derivar", "--decimales", "--fracciones", "y = 0.125*x^2"}, 0,
       kCabecera + "'dy/dx = (1/4)*x\n", ""},
      // The document from standard input, its LF line ends read as CR LF.
      {{"derivar"}, 0, kCabecera + "'dy/dx = 2*x\n", "", "y = x^2\n' nota\n"},
      {{"derivar"}, 0, kCabecera + "'dy/dx = 2*x\n", "", "y = x^2\r\n"},
      {{"derivar", "y = (x+1"}, 1, "", "línea 1, columna 9: Se esperaba )\n"},
      {{"derivar"}, 1, "", "línea 2, columna 1: Se esperaba fin de archivo\n", "y = x\n+ 1\n"},
      {{"derivar", "x^2 = 4"}, 1, "", "No se pudo despejar el cociente de diferenciales\n"},
      // --lote: one line for each line read, the derivative alone or the error.
      {{"derivar", "--lote"}, 1, "2*x\n\n-2*x/(2*y)\nERROR: Se esperaba expresión\nCos(x)\n", "",
       "y = x^2\n\nx^2+y^2=25\ny = x +\ny = Sin(x)\n"},
      {{"derivar", "--lote", "--decimales", "--cifras", "1"}, 0, ".5*x\n1\n", "",
       "y = 0.25*x^2\ny = x\n"},
      {{"formato", "x*0.333333333333333"}, 0, "x*.33333\n", ""},
      {{"formato", "--fracciones", "x*-.25+0.75 ' nota"}, 0, "x*-(1/4)+(3/4)\n", ""},
      {{"formato", "--cifras", "0", "2.5*x"}, 0, "3*x\n", ""},
  });
  // clang-format on
}

// Status 2 and some message, with a document waiting on standard input all
// the same; the usage text is free.
TEST(Cli, UsageErrors) {
  // clang-format off
  const std::vector<std::vector<std::string>> usos = {
      {}, {"frobnicar", "x"}, {"sintaxis"}, {"sintaxis", "--bogus", "x"}, {"sintaxis", "--ecuacion"},
      {"simplificar"}, {"simplificar", "--bogus", "x"}, {"simplificar", "x", "y"}, {"despejar", "x"},
      {"despejar", "--numerico", "x", "y"}, {"derivar", "--cifras", "301", "y = x"},
      {"derivar", "--vd"}, {"derivar", "--escribir", "y = x"}, {"derivar", "--bogus", "y = x"},
      {"formato"}, {"formato", "--cifras", "-1", "x"},
  };
  // clang-format on
  for (const auto& args : usos) {
    const SalidaCli s = EjecutaCli(args, "y = x\n");
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_EQ(s.out, "") << testing::PrintToString(args);
    EXPECT_NE(s.err, "") << testing::PrintToString(args);
  }
}

// However long, a derivative stays on its line.
TEST(Cli, BatchKeepsEachDerivativeOnOneLine) {
  const SalidaCli s =
      EjecutaCli({"derivar", "--lote"}, "y = ArcTg(x)*ArcSin(x/3)*Ln(x^2+1)\ny = x\n");
  EXPECT_EQ(s.estado, 0);
  EXPECT_GT(s.out.size(), 300u);
  EXPECT_EQ(s.out.find('\n'), s.out.size() - 3) << s.out;
  EXPECT_TRUE(s.out.ends_with("\n1\n")) << s.out;
}

// The file is read and written in Windows-1252, whatever the names hold.
TEST(Cli, AccentedNamesTravelAsSingleBytes) {
  const std::string doc = prueba::RutaTemporal("a\xC3\xB1o.txt");
  prueba::EscribeArchivo(doc, "a\xF1o = 3*\xF1u^2\r\n");
  const SalidaCli s =
      EjecutaCli({"derivar", "--vd", "a\xC3\xB1o", "--vi", "\xC3\xB1u", "-f", doc, "--escribir"});
  EXPECT_EQ(s.estado, 0) << s.err;
  EXPECT_EQ(prueba::LeeArchivo(doc),
            "a\xF1o = 3*\xF1u^2\r\n" + kCabecera + "'da\xF1o/d\xF1u = 6*\xF1u");
  std::remove(doc.c_str());
}

TEST(Cli, HelpAndVersion) {
  const SalidaCli ayuda = EjecutaCli({"--help"});
  EXPECT_EQ(ayuda.estado, 0);
  EXPECT_NE(ayuda.out.find("sintaxis"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("--desigualdad"), std::string::npos) << ayuda.out;
  const SalidaCli version = EjecutaCli({"--version"});
  EXPECT_EQ(version.estado, 0);
  EXPECT_NE(version.out.find(MIRKAL_VERSION), std::string::npos) << version.out;
}

} // namespace
