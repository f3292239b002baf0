// The two derivation commands without a window: the configuration dialog's
// checks, and the comment lines that Derivar and DerivarPP append.

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <tuple>
#include <vector>

#include "commands/ConfigDerivacion.h"
#include "differentiation/Derivada.h"
#include "commands/OrdenDerivar.h"
#include "lang/Errores.h"

namespace {

std::vector<std::string> Lineas(const std::string& texto) {
  std::vector<std::string> r;
  std::size_t ini = 0;
  for (std::size_t p; (p = texto.find("\r\n", ini)) != std::string::npos; ini = p + 2)
    r.push_back(texto.substr(ini, p - ini));
  r.push_back(texto.substr(ini));
  return r;
}

// The text with its line breaks taken out again.
std::string Une(std::string texto) {
  for (std::size_t p; (p = texto.find(" _\r\n'")) != std::string::npos;)
    texto.erase(p, 5);
  return texto;
}

TEST(OrdenDerivar, DialogAcceptsThese) {
  for (const auto& [cre, vd, vi] :
       std::vector<std::tuple<const char*, const char*, const char*>>{{"5", "y", "x"},
                                                                      {"0", "y", "x"},
                                                                      {"300", "y", "x"},
                                                                      {" 7 ", "y", "x"},
                                                                      {"5", "x_1", "t"},
                                                                      {"5", "\xC3\xB1u", "x"},
                                                                      {"5", "dy_dx", "z"},
                                                                      {"5", "z", "dy_dx"}}) {
    const auto fallo = CompruebaConfig(cre, vd, vi);
    EXPECT_FALSE(fallo) << cre << " | " << vd << " | " << vi << ": " << fallo->mensaje;
  }
}

// The six checks run in order and the first failure is reported.
TEST(OrdenDerivar, DialogRefusesTheseInOrder) {
  const char* const kNumero = "Se esperaba un número entre 0 y 300";
  const char* const kIdent = "Identificador no válido";
  const char* const kInterna = "Variable restringida para uso interno";
  const char* const kDistintas = "Las variables dependiente e independiente deben ser distintas";
  using enum CampoConfig;
  // clang-format off
  const struct {
    const char *cre, *vd, *vi;
    CampoConfig campo;
    const char* mensaje;
  } casos[] = {
      {"301", "y", "x", CifRed, kNumero}, {"-1", "y", "x", CifRed, kNumero},
      {"abc", "2x", "2x", CifRed, kNumero}, {"", "y", "x", CifRed, kNumero},
      {"2.5", "y", "x", CifRed, kNumero}, {"5", "2x", "2x", VarDep, kIdent},
      {"5", "", "x", VarDep, kIdent}, {"5", "x-1", "x", VarDep, kIdent},
      // The derivative name that these two boxes would produce, dy_dx.
      {"5", "dy_dx", "x", VarDep, kInterna}, {"5", "DY_DX", "X", VarDep, kInterna},
      {"5", "Y", "y", VarDep, kDistintas}, {"5", "y", "1x", VarInd, kIdent},
      {"5", "y", "x y", VarInd, kIdent}, {"5", "y", "dy_dx", VarInd, kInterna},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(std::string(c.cre) + " | " + c.vd + " | " + c.vi);
    const auto fallo = CompruebaConfig(c.cre, c.vd, c.vi);
    ASSERT_TRUE(fallo) << "accepted";
    EXPECT_EQ(fallo->mensaje, c.mensaje);
    if (c.mensaje != kDistintas) {
      EXPECT_EQ(fallo->campo, c.campo);
    }
  }
}

TEST(OrdenDerivar, AcceptedSettingsAreKeptAsTyped) {
  const ConfigDerivacion c = AceptaConfig(" 7 ", "T", "s", false);
  EXPECT_EQ(std::tie(c.VarDep, c.VarInd, c.CifRedExt, c.OutFracc, c.Ok),
            std::tuple("T", "s", 7, false, true));
}

TEST(OrdenDerivar, DerivarWritesTheHeadingAndTheResult) {
  const SalidaDerivar s = EjecutaDerivar("y = x^2*Sin(x)", ConfigDerivacion{}, false);
  EXPECT_EQ(s.ErrNumber, 0);
  const std::vector<std::string> esperado = {"\r\n", "'Derivada hallada:\r\n",
                                             "'dy/dx = x^2*Cos(x)+2*Sin(x)*x"};
  EXPECT_EQ(s.piezas, esperado);
  EXPECT_EQ(s.Texto(), "\r\n'Derivada hallada:\r\n'dy/dx = x^2*Cos(x)+2*Sin(x)*x");
  EXPECT_EQ(DerivadaEnUnaLinea("y = x^2*Sin(x)", ConfigDerivacion{}).Texto(),
            "x^2*Cos(x)+2*Sin(x)*x");
}

TEST(OrdenDerivar, SettingsShapeTheResult) {
  const struct {
    ConfigDerivacion config;
    const char *ecuacion, *ultima;
  } casos[] = {
      {AceptaConfig("5", "t", "s", true), "t = 0.123456*s^2", "'dt/ds = (3858/15625)*s"},
      {AceptaConfig("3", "t", "s", false), "t = 0.123456*s^2", "'dt/ds = .247*s"},
      {AceptaConfig("0", "y", "x", false), "y = 0.75*x^2", "'dy/dx = 2*x"},
      {ConfigDerivacion{}, "y = 0.5*x^2 + 0.75*x", "'dy/dx = x+(3/4)"},
      // Fifteen digits below .1 have sixteen decimal places: still a fraction.
      {ConfigDerivacion{}, "y = .0360803453131437*x", "'dy/dx = (360803453131437/1E+16)"},
      // A pair that swaps or re-cases the engine's current one.
      {AceptaConfig("5", "x", "y", true), "x = y^3", "'dx/dy = 3*y^2"},
      {AceptaConfig("5", "X", "y", true), "X = y^3", "'dX/dy = 3*y^2"},
      {AceptaConfig("5", "x", "Y", true), "x = Y^3", "'dx/dY = 3*Y^2"},
      {AceptaConfig("5", "Y", "X", true), "Y = X^3", "'dY/dX = 3*X^2"},
      {AceptaConfig("5", "u", "t", true), "u = t^3", "'du/dt = 3*t^2"},
  };
  for (const auto& c : casos) {
    const SalidaDerivar s = EjecutaDerivar(c.ecuacion, c.config, false);
    ASSERT_EQ(s.piezas.size(), 3u) << c.ecuacion << ": " << s.ErrDesc;
    EXPECT_EQ(s.piezas[2], c.ultima) << c.ecuacion;
  }
}

TEST(OrdenDerivar, FailuresWriteNothingAndTellWhere) {
  const struct {
    const char* documento;
    int32_t numero;
    int lin, col, len;
    const char* desc;
  } casos[] = {
      {"y = x +", NumeroError(1), 0, 7, 0, "Se esperaba expresión"},
      {"y = (x+1\r\n' nota", NumeroError(7), 0, 8, 0, "Se esperaba )"},
      {"x^2 = 4", NumeroError(3), -1, 0, 0, "No se pudo despejar el cociente de diferenciales"},
  };
  for (const auto& c : casos) {
    const SalidaDerivar s = EjecutaDerivar(c.documento, ConfigDerivacion{}, false);
    EXPECT_TRUE(s.piezas.empty()) << c.documento;
    EXPECT_EQ(std::tie(s.ErrNumber, s.ErrLin, s.ErrDesc), std::tuple(c.numero, c.lin, c.desc))
        << c.documento;
    if (c.lin >= 0) {
      EXPECT_EQ(std::tie(s.ErrCol, s.ErrLen), std::tie(c.col, c.len)) << c.documento;
    }
  }
}

// Every line but the last ends in " _" between two tokens, no line is longer
// than the width, and taking the breaks out gives the text back. The exact
// breaks of a long derivative are those of tests/golden/largo.
TEST(OrdenDerivar, BreakingKeepsEveryToken) {
  std::string suma = "Sin(x)";
  for (int i = 0; i < 40; ++i)
    suma += "+" + std::to_string(i) + ".25*x^" + std::to_string(i);
  const std::string roto = PartePorLineas(suma, 9, 50);
  EXPECT_EQ(Une(roto), suma);
  const std::vector<std::string> l = Lineas(roto);
  ASSERT_GE(l.size(), suma.size() / 50);
  EXPECT_LE(l[0].size() + 9, 50u + 2);
  for (std::size_t i = 0; i < l.size(); ++i) {
    EXPECT_LE(l[i].size(), 50u + 3) << l[i];
    EXPECT_EQ(l[i][0], i > 0 ? '\'' : 'S') << l[i];
    if (i + 1 == l.size()) break;
    ASSERT_TRUE(l[i].size() >= 3 && l[i].ends_with(" _")) << l[i];
    const char antes = l[i][l[i].size() - 3], despues = l[i + 1][1];
    EXPECT_FALSE(std::isalnum(static_cast<unsigned char>(antes)) &&
                 std::isalnum(static_cast<unsigned char>(despues)))
        << "a token cut in two: " << l[i] << " / " << l[i + 1];
  }
  EXPECT_EQ(PartePorLineas("x+1", 9), "x+1");
  const std::string nombre(150, 'a'); // one token longer than a line stays whole
  EXPECT_EQ(Une(PartePorLineas("x+" + nombre + "+x", 9)), "x+" + nombre + "+x");
}

// Results are comments: a document that holds them is still one equation.
TEST(OrdenDerivar, DerivingAgainGivesTheSameResult) {
  for (const char* e : {"y = x^2*Sin(x)", "y = ArcTg(x)*ArcSin(x/3)*Ln(x^2+1)"}) {
    const ConfigDerivacion c;
    const SalidaDerivar primera = EjecutaDerivar(e, c, false);
    std::string doc = e + primera.Texto();
    doc += EjecutaDerivar(doc, c, true).Texto();
    const SalidaDerivar otra = EjecutaDerivar(doc, c, false);
    EXPECT_EQ(otra.ErrNumber, 0) << otra.ErrDesc;
    EXPECT_EQ(otra.piezas, primera.piezas) << doc;
  }
}

// DerivarPP writes the trace's steps, each as a comment line, broken only
// when longer than a row; the second equation has such a step.
TEST(OrdenDerivar, DerivarPPWritesEveryStepAsAComment) {
  for (const char* e : {"y = x^2", "y = Sin(x)*Cos(x)*Tg(x)*Ln(x)*ArcTg(x)*e^x*x^3"}) {
    SCOPED_TRACE(e);
    Derivada d;
    d.VarDep("y");
    d.VarInd("x");
    d.PasToPas(true);
    d.Derivar(e);
    ASSERT_GT(d.Pasos(), 2);
    std::string esperado;
    bool largo = false;
    for (int i = 1; i <= d.Pasos(); ++i) {
      esperado += "\r\n'" + d.Paso(i);
      largo = largo || d.Paso(i).size() > 256;
    }
    const std::string texto = EjecutaDerivar(e, ConfigDerivacion{}, true).Texto();
    EXPECT_EQ(Une(texto), esperado);
    EXPECT_EQ(texto != esperado, largo) << "broken only when a step is longer than a row";
    for (const std::string& linea : Lineas(texto.substr(2))) {
      EXPECT_LE(linea.size(), 256u) << linea;
      EXPECT_EQ(linea[0], '\'') << linea;
    }
  }
}

} // namespace
