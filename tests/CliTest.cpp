// mirkal-cli run as scripts run it: a child process whose standard output,
// standard error and exit status are all part of the answer. Status 0 is
// success, 1 a refused input, 2 a usage error, 3 a file that could not be
// read or written.

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "EjecutaCliPrueba.h"

namespace {

namespace fs = std::filesystem;
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

// Every command reads its arguments alike: one minus starts a text (a sign),
// two start an option, and "--" lets a text start with two.
TEST(Cli, OneMinusStartsATextTwoAnOption) {
  const std::string uso = "Pruebe 'mirkal-cli --help' para más información.\n";
  // clang-format off
  Comprueba({
      {{"derivar", "-y = x^3"}, 0, kCabecera + "'dy/dx = -3*x^2\n", ""},
      {{"derivar", "--vd", "t", "-t = x"}, 0, kCabecera + "'dt/dx = -1\n", ""},
      {{"formato", "-0.5"}, 0, "-.5\n", ""},
      {{"sintaxis", "-x ^ 2"}, 0, "-x^2\n", ""},
      {{"despejar", "-2*dy_dx+x", "dy_dx"}, 0, "-x/-2\n", ""},
      {{"sintaxis", "--", "--x"}, 0, "x\n", ""},
      {{"derivar", "--", "--vd"}, 1, "", "línea 1, columna 5: Se esperaba =\n"},
      {{"derivar", "--opcion", "y = x"}, 2, "", "mirkal-cli: opción desconocida: --opcion\n" + uso},
      {{"formato", "--opcion", "x"}, 2, "", "mirkal-cli: opción desconocida: --opcion\n" + uso},
      {{"despejar", "--opcion", "x", "y"}, 2, "", "mirkal-cli: opción desconocida: --opcion\n" + uso},
      {{"derivar", "-f"}, 2, "", "mirkal-cli: falta el valor de -f\n" + uso},
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

// A folder of its own for each test of documents on disk.
class CliArchivo : public testing::Test {
protected:
  void SetUp() override {
    std::string plantilla = testing::TempDir() + "mirkal-cli-XXXXXX";
    ASSERT_NE(mkdtemp(plantilla.data()), nullptr);
    carpeta_ = plantilla;
    doc_ = carpeta_ + "/doc.txt";
  }
  void TearDown() override { fs::remove_all(carpeta_); }
  std::vector<std::string> Entradas() const {
    std::vector<std::string> r;
    for (const auto& e : fs::directory_iterator(carpeta_))
      r.push_back(e.path().filename().string());
    std::sort(r.begin(), r.end());
    return r;
  }
  std::string carpeta_, doc_;
};

// "año = x^2" in each encoding the editor opens, and the text Derivar appends
// to it in the same encoding.
struct Codificado {
  std::string nombre, documento, añadido;
};
const std::string kAñadidoAnsi = kCabecera + "'da\xF1o/dx = 2*x";
const std::string kAñadidoUtf8 = kCabecera + "'da\xC3\xB1o/dx = 2*x";
const std::vector<Codificado> kCodificados = {
    {"Windows-1252", "a\xF1o = x^2\r\n", kAñadidoAnsi},
    {"UTF-8", "a\xC3\xB1o = x^2\r\n", kAñadidoUtf8},
    {"UTF-8 con BOM",
     "\xEF\xBB\xBF"
     "a\xC3\xB1o = x^2\r\n",
     kAñadidoUtf8},
};

// Read from -f or from standard input, every encoding gives the same
// derivative; --escribir writes the file back in the encoding it was read in.
TEST_F(CliArchivo, DocumentsAreReadAndWrittenInTheirOwnEncoding) {
  const std::string salida = kAñadidoUtf8 + "\n";
  for (const Codificado& c : kCodificados) {
    SCOPED_TRACE(c.nombre);
    prueba::EscribeArchivo(doc_, c.documento);
    Comprueba({
        {{"derivar", "--vd", "a\xC3\xB1o", "-f", doc_}, 0, salida, ""},
        {{"derivar", "--vd", "a\xC3\xB1o"}, 0, salida, "", c.documento},
        {{"derivar", "--vd", "a\xC3\xB1o", "-f", doc_, "--escribir"}, 0, "", ""},
    });
    EXPECT_EQ(prueba::LeeArchivo(doc_), c.documento + c.añadido);
  }
}

// The save replaces the file through a temporary of its own naming: a link
// still names its file, the permission bits stay, and folders that happen to
// bear a temporary-looking name are left alone.
TEST_F(CliArchivo, SavingKeepsTheLinkAndThePermissions) {
  const std::string documento = "y = x^2\r\n", añadido = kCabecera + "'dy/dx = 2*x";
  prueba::EscribeArchivo(doc_, documento);
  fs::permissions(doc_, fs::perms(0640));
  fs::create_symlink("doc.txt", carpeta_ + "/enlace.txt");
  fs::create_directory(doc_ + ".mirkal-tmp");
  fs::create_directory(carpeta_ + "/enlace.txt.mirkal-tmp");
  const std::vector<std::string> entradas = Entradas();
  const std::vector<std::string> args = {"derivar", "-f", carpeta_ + "/enlace.txt", "--escribir"};

  Comprueba({{args, 0, "", ""}});
  EXPECT_TRUE(fs::is_symlink(carpeta_ + "/enlace.txt"));
  EXPECT_EQ(prueba::LeeArchivo(doc_), documento + añadido);
  EXPECT_EQ(fs::status(doc_).permissions(), fs::perms(0640));
  EXPECT_EQ(Entradas(), entradas);

  // A read-only file: the file layer leaves it alone unless the superuser,
  // who may write anyway, saves it; then it stays read-only.
  fs::permissions(doc_, fs::perms(0444));
  const prueba::SalidaCli s = EjecutaCli(args);
  if (geteuid() == 0) {
    EXPECT_EQ(s.estado, 0) << s.err;
    EXPECT_EQ(prueba::LeeArchivo(doc_), documento + añadido + añadido);
  } else {
    EXPECT_EQ(s.estado, 3);
    EXPECT_EQ(s.err, "mirkal-cli: " + carpeta_ +
                         "/enlace.txt: No se pudo guardar «enlace.txt»: "
                         "permiso denegado.\n");
    EXPECT_EQ(prueba::LeeArchivo(doc_), documento + añadido);
  }
  EXPECT_EQ(fs::status(doc_).permissions(), fs::perms(0444));
  EXPECT_TRUE(fs::is_symlink(carpeta_ + "/enlace.txt"));
  EXPECT_EQ(Entradas(), entradas);
}

// Status 3 and the file layer's reason, the path first: a file that is not
// there, a folder, a document the editor could not hold.
TEST_F(CliArchivo, UnreadableDocumentsExitThree) {
  const std::string nada = carpeta_ + "/nada.txt";
  prueba::EscribeArchivo(doc_, "y = x ' \xCF\x80\r\n"); // a pi the code page lacks
  const std::string pi = "El archivo contiene el carácter «\xCF\x80» (línea 1, columna 9), que "
                         "el documento no puede guardar.\n";
  // clang-format off
  Comprueba({
      {{"derivar", "-f", nada}, 3, "",
       "mirkal-cli: " + nada + ": No se pudo abrir «nada.txt»: archivo inexistente.\n"},
      {{"derivar", "-f", nada, "--escribir"}, 3, "",
       "mirkal-cli: " + nada + ": No se pudo abrir «nada.txt»: archivo inexistente.\n"},
      {{"derivar", "-f", carpeta_}, 3, "",
       "mirkal-cli: " + carpeta_ + ": No se pudo abrir «" + fs::path(carpeta_).filename().string() +
       "»: es una carpeta.\n"},
      {{"derivar", "-f", doc_}, 3, "", "mirkal-cli: " + doc_ + ": " + pi},
      {{"derivar"}, 3, "", "mirkal-cli: entrada estándar: " + pi, prueba::LeeArchivo(doc_)},
  });
  // clang-format on
  EXPECT_EQ(Entradas(), std::vector<std::string>{"doc.txt"});
}

// A save cut short, which permission bits cannot provoke for the superuser:
// a file size limit stops the write halfway, as a full disk would.
TEST_F(CliArchivo, AFailedSaveExitsThreeAndLeavesTheFile) {
  const std::string documento = "y = x^2\r\n' " + std::string(8000, 'n');
  prueba::EscribeArchivo(doc_, documento);
  rlimit antes{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
  rlimit corto = antes;
  corto.rlim_cur = 4096;
  const auto senal = std::signal(SIGXFSZ, SIG_IGN); // inherited: EFBIG, not a kill
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &corto), 0);
  const prueba::SalidaCli s = EjecutaCli({"derivar", "-f", doc_, "--escribir"});
  setrlimit(RLIMIT_FSIZE, &antes);
  std::signal(SIGXFSZ, senal);
  EXPECT_EQ(s.estado, 3);
  EXPECT_EQ(s.out, "");
  EXPECT_EQ(s.err,
            "mirkal-cli: " + doc_ + ": No se pudo guardar «doc.txt»: archivo demasiado grande.\n");
  EXPECT_EQ(prueba::LeeArchivo(doc_), documento);
  EXPECT_EQ(Entradas(), std::vector<std::string>{"doc.txt"});
}

TEST(Cli, HelpAndVersion) {
  const SalidaCli ayuda = EjecutaCli({"--help"});
  EXPECT_EQ(ayuda.estado, 0);
  EXPECT_NE(ayuda.out.find("sintaxis"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("--desigualdad"), std::string::npos) << ayuda.out;
  EXPECT_NE(ayuda.out.find("3 fallo de lectura o escritura"), std::string::npos) << ayuda.out;
  const SalidaCli version = EjecutaCli({"--version"});
  EXPECT_EQ(version.estado, 0);
  EXPECT_NE(version.out.find(MIRKAL_VERSION), std::string::npos) << version.out;
}

} // namespace
