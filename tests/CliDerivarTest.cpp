// `mirkal-cli derivar` and `formato` run as child processes: what they print,
// what they refuse, and the exit status that scripts read.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "EjecutaCliPrueba.h"

namespace {

using prueba::EjecutaCli;
using prueba::SalidaCli;

const std::string kCabecera = "\r\n'Derivada hallada:\r\n";

struct Caso {
  std::vector<std::string> args;
  std::string entrada, salida;
};

TEST(CliDerivar, PrintsWhatTheCommandWouldAppend) {
  const Caso casos[] = {
      {{"derivar", "y = x^2*Sin(x)"}, "", kCabecera + "'dy/dx = x^2*Cos(x)+2*Sin(x)*x\n"},
      {{"derivar", "--vd", "t", "--vi", "s", "t = s^3"}, "", kCabecera + "'dt/ds = 3*s^2\n"},
      {{"derivar", "y = 0.125*x^2"}, "", kCabecera + "'dy/dx = (1/4)*x\n"},
      {{"derivar", "--fracciones", "y = 0.125*x^2"}, "", kCabecera + "'dy/dx = (1/4)*x\n"},
      {{"derivar", "--decimales", "--cifras", "2", "y = 0.125*x^2"},
       "",
       kCabecera + "'dy/dx = .25*x\n"},
      {{"derivar", "--decimales", "--cifras", "0", "y = 0.75*x^2"},
       "",
       kCabecera + "'dy/dx = 2*x\n"},
      {{"derivar", "--pasos", "y = x^2"},
       "",
       "\r\n'y-(x^2) = 0 -->\r\n'D(y-(x^2)) = \r\n'D(y)-D((x^2)) = \r\n'dy_dx-D((x^2)) = "
       "\r\n'dy_dx-(2*x^(2-1)*D(x)) = \r\n'dy_dx-(2*x^(2-1)*1) = 0 -->\r\n'dy_dx = 2*x\n"},
      // The document from standard input, its LF line ends read as CR LF.
      {{"derivar"}, "y = x^2\n' nota\n", kCabecera + "'dy/dx = 2*x\n"},
      {{"derivar"}, "y = 3*x^2 _\n    + Sin(x)\n", kCabecera + "'dy/dx = 6*x+Cos(x)\n"},
      {{"derivar"}, "y = x^2\r\n", kCabecera + "'dy/dx = 2*x\n"},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args) + " " + c.entrada);
    const SalidaCli s = EjecutaCli(c.args, c.entrada);
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(s.out, c.salida);
    EXPECT_EQ(s.err, "");
  }
}

TEST(CliDerivar, RefusedEquationsExitWithOne) {
  const Caso casos[] = {
      {{"derivar", "y = x +"}, "", "línea 1, columna 8: Se esperaba expresión\n"},
      {{"derivar", "y = (x+1"}, "", "línea 1, columna 9: Se esperaba )\n"},
      {{"derivar"}, "y = x\n+ 1\n", "línea 2, columna 1: Se esperaba fin de archivo\n"},
      {{"derivar", "y = dy_dx"}, "", "La variable dy_dx es de uso interno por el programa\n"},
      {{"derivar", "x^2 = 4"}, "", "No se pudo despejar el cociente de diferenciales\n"},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(testing::PrintToString(c.args) + " " + c.entrada);
    const SalidaCli s = EjecutaCli(c.args, c.entrada);
    EXPECT_EQ(s.estado, 1);
    EXPECT_EQ(s.out, "");
    EXPECT_EQ(s.err, c.salida);
  }
}

TEST(CliDerivar, BatchWritesOneLinePerEquation) {
  const SalidaCli s =
      EjecutaCli({"derivar", "--lote"}, "y = x^2\n\nx^2+y^2=25\ny = x +\nx = 1\ny = Sin(x)\n");
  EXPECT_EQ(s.estado, 1);
  EXPECT_EQ(s.out, "2*x\n\n-2*x/(2*y)\nERROR: Se esperaba expresión\n"
                   "ERROR: No se pudo despejar el cociente de diferenciales\nCos(x)\n");
  const SalidaCli bien =
      EjecutaCli({"derivar", "--lote", "--decimales", "--cifras", "1"}, "y = 0.25*x^2\ny = x\n");
  EXPECT_EQ(bien.estado, 0) << bien.err;
  EXPECT_EQ(bien.out, ".5*x\n1\n");
  // However long, a derivative stays on its line.
  const SalidaCli largo =
      EjecutaCli({"derivar", "--lote"}, "y = ArcTg(x)*ArcSin(x/3)*Ln(x^2+1)\ny = x\n");
  EXPECT_EQ(largo.estado, 0);
  EXPECT_GT(largo.out.size(), 300u);
  EXPECT_EQ(largo.out.find(" _"), std::string::npos);
  EXPECT_EQ(largo.out.substr(largo.out.size() - 3), "\n1\n");
  EXPECT_EQ(largo.out.find('\n'), largo.out.size() - 3);
}

// The file is read and written in Windows-1252, whatever the names hold.
TEST(CliDerivar, AccentedNamesTravelAsSingleBytes) {
  const std::string doc = prueba::RutaTemporal("a\xC3\xB1o.txt");
  prueba::EscribeArchivo(doc, "a\xF1o = 3*\xF1u^2\r\n");
  const SalidaCli s =
      EjecutaCli({"derivar", "--vd", "a\xC3\xB1o", "--vi", "\xC3\xB1u", "-f", doc, "--escribir"});
  EXPECT_EQ(s.estado, 0) << s.err;
  EXPECT_EQ(prueba::LeeArchivo(doc),
            "a\xF1o = 3*\xF1u^2\r\n" + kCabecera + "'da\xF1o/d\xF1u = 6*\xF1u");
  std::remove(doc.c_str());
}

TEST(CliDerivar, FormatRewritesTheNumbers) {
  const Caso casos[] = {
      {{"formato", "x*0.333333333333333"}, "", "x*.33333\n"},
      {{"formato", "--fracciones", "x*-.25+0.75 ' nota"}, "", "x*-(1/4)+(3/4)\n"},
      {{"formato", "--cifras", "0", "2.5*x"}, "", "3*x\n"},
      {{"formato", "--fracciones", "--cifras", "0", "0.75"}, "", "(3/4)\n"},
  };
  for (const Caso& c : casos) {
    const SalidaCli s = EjecutaCli(c.args);
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(s.out, c.salida) << testing::PrintToString(c.args);
  }
}

TEST(CliDerivar, BadUsageExitsWithTwo) {
  const std::vector<std::vector<std::string>> casos = {
      {"derivar", "--cifras", "301", "y = x"},
      {"derivar", "--cifras", "abc", "y = x"},
      {"derivar", "--cifras"},
      {"derivar", "--vd"},
      {"derivar", "--escribir", "y = x"},
      {"derivar", "--bogus", "y = x"},
      {"derivar", "-f"},
      {"formato"},
      {"formato", "--cifras", "-1", "x"},
      {"formato", "--bogus", "x"},
  };
  for (const auto& args : casos) {
    const SalidaCli s = EjecutaCli(args, "y = x\n");
    EXPECT_EQ(s.estado, 2) << testing::PrintToString(args);
    EXPECT_EQ(s.out, "") << testing::PrintToString(args);
    EXPECT_FALSE(s.err.empty()) << testing::PrintToString(args);
  }
}

} // namespace
