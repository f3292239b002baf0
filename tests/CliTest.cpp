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
const std::string kUso = "?"; // any message: the usage text is free

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
    if (c.err == kUso)
      EXPECT_FALSE(s.err.empty());
    else
      EXPECT_EQ(s.err, c.err);
  }
}

TEST(Cli, Sintaxis) {
  Comprueba({
      {{"sintaxis", "x\n"}, 0, "x\n", ""},
      {{"sintaxis", "x ' nota"}, 0, "x\n", ""},
      {{"sintaxis", "año·x^-2"}, 0, "año·x^2\n", ""},
      {{"sintaxis", "--ecuacion", "y = x^2"}, 0, "y=x^2\n", ""},
      {{"sintaxis", "--ecuacion", "y = x _\n+ 1"}, 0, "y=x+1\n", ""},
      {{"sintaxis", "--desigualdad", "x => 2"}, 0, "x=>2\n", ""},
      {{"sintaxis", "--desigualdad", "x = 2"}, 0, "x=2\n", ""},
      // Refused texts: line and column counted from one, in characters.
      {{"sintaxis", "y = x^2"}, 1, "", "línea 1, columna 3: Se esperaba fin de archivo\n"},
      {{"sintaxis", ""}, 1, "", "línea 1, columna 1: Se esperaba expresión\n"},
      {{"sintaxis", "x +\ny"}, 1, "", "línea 1, columna 4: Se esperaba expresión\n"},
      {{"sintaxis", "x\ny"}, 1, "", "línea 2, columna 1: Se esperaba fin de archivo\n"},
      {{"sintaxis", "x\r\ny"}, 1, "", "línea 2, columna 1: Se esperaba fin de archivo\n"},
      {{"sintaxis", "año ñu"}, 1, "", "línea 1, columna 5: Se esperaba fin de archivo\n"},
      {{"sintaxis", "1E999"}, 1, "", "línea 1, columna 1: Desbordamiento\n"},
      {{"sintaxis", "--ecuacion", "x"}, 1, "", "línea 1, columna 2: Se esperaba =\n"},
      {{"sintaxis", "--desigualdad", "x 2"},
       1,
       "",
       "línea 1, columna 3: Se esperaba = ó > ó < ó >= ó <= ó <>\n"},
      {{}, 2, "", kUso},
      {{"sintaxis"}, 2, "", kUso},
      {{"sintaxis", "--bogus", "x"}, 2, "", kUso},
      {{"sintaxis", "--ecuacion"}, 2, "", kUso},
      {{"frobnicar", "x"}, 2, "", kUso},
  });
}

TEST(Cli, SimplificarYDespejar) {
  Comprueba({
      {{"simplificar", "2*(3+x)"}, 0, "6+2*x\n", ""},
      {{"simplificar", "6/3"}, 0, "6/3\n", ""},
      {{"simplificar", "pi"}, 0, "pi\n", ""},
      {{"simplificar", "-x-x"}, 0, "-2*x\n", ""}, // a leading sign is not an option
      {{"simplificar", "--numerico", "6/3"}, 0, "2\n", ""},
      {{"simplificar", "--numerico", "pi"}, 0, "3.14159265358979\n", ""}, // constants come along
      {{"simplificar", "--constantes", "Sin(pi)"}, 0, "Sin(3.14159265358979)\n", ""},
      {{"simplificar", "--constantes", "--numerico", "Sin(0)+e"}, 0, "2.71828182845905\n", ""},
      {{"simplificar", "--numerico", "--constantes", "1/3"}, 0, ".333333333333333\n", ""},
      {{"despejar", "2*dy_dx+3*x", "dy_dx"}, 0, "-3*x/2\n", ""},
      // Refused inputs print the bare description.
      {{"simplificar", "x+"}, 1, "", "Se esperaba expresión.\n"},
      {{"simplificar", "10^400"}, 1, "", "Desbordamiento\n"},
      {{"simplificar", "--numerico", "Ln(0)"}, 1, "", "Argumento fuera del dominio\n"},
      {{"despejar", "Sin(dy_dx)", "dy_dx"}, 1, "", "No se pudo despejar la variable\n"},
      {{"despejar", "x+", "dy_dx"}, 1, "", "Se esperaba expresión.\n"},
      {{"simplificar"}, 2, "", kUso},
      {{"simplificar", "--bogus", "x"}, 2, "", kUso},
      {{"simplificar", "--numerico"}, 2, "", kUso},
      {{"simplificar", "x", "y"}, 2, "", kUso},
      {{"despejar"}, 2, "", kUso},
      {{"despejar", "x"}, 2, "", kUso},
      {{"despejar", "x", "y", "z"}, 2, "", kUso},
      {{"despejar", "--numerico", "x", "y"}, 2, "", kUso},
  });
}

TEST(Cli, DerivarYFormato) {
  Comprueba({
      {{"derivar", "--vd", "t", "--vi", "s", "t = s^3"}, 0, kCabecera + "'dt/ds = 3*s^2\n", ""},
      {{"derivar", "y = 0.125*x^2"}, 0, kCabecera + "'dy/dx = (1/4)*x\n", ""},
      {{"derivar", "--fracciones", "y = 0.125*x^2"}, 0, kCabecera + "'dy/dx = (1/4)*x\n", ""},
      {{"derivar", "--decimales", "--cifras", "2", "y = 0.125*x^2"},
       0,
       kCabecera + "'dy/dx = .25*x\n",
       ""},
      {{"derivar", "--decimales", "--cifras", "0", "y = 0.75*x^2"},
       0,
       kCabecera + "'dy/dx = 2*x\n",
       ""},
      // The document from standard input, its LF line ends read as CR LF.
      {{"derivar"}, 0, kCabecera + "'dy/dx = 2*x\n", "", "y = x^2\n' nota\n"},
      {{"derivar"}, 0, kCabecera + "'dy/dx = 6*x+Cos(x)\n", "", "y = 3*x^2 _\n    + Sin(x)\n"},
      {{"derivar"}, 0, kCabecera + "'dy/dx = 2*x\n", "", "y = x^2\r\n"},
      {{"derivar", "y = x +"}, 1, "", "línea 1, columna 8: Se esperaba expresión\n"},
      {{"derivar", "y = (x+1"}, 1, "", "línea 1, columna 9: Se esperaba )\n"},
      {{"derivar"}, 1, "", "línea 2, columna 1: Se esperaba fin de archivo\n", "y = x\n+ 1\n"},
      {{"derivar", "y = dy_dx"}, 1, "", "La variable dy_dx es de uso interno por el programa\n"},
      {{"derivar", "x^2 = 4"}, 1, "", "No se pudo despejar el cociente de diferenciales\n"},
      {{"formato", "x*0.333333333333333"}, 0, "x*.33333\n", ""},
      {{"formato", "--fracciones", "x*-.25+0.75 ' nota"}, 0, "x*-(1/4)+(3/4)\n", ""},
      {{"formato", "--cifras", "0", "2.5*x"}, 0, "3*x\n", ""},
      {{"formato", "--fracciones", "--cifras", "0", "0.75"}, 0, "(3/4)\n", ""},
  });
  // Usage errors, with a document waiting on standard input all the same.
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
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
       })
    Comprueba({{args, 2, "", kUso, "y = x\n"}});
}

TEST(Cli, BatchWritesOneLinePerEquation) {
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
