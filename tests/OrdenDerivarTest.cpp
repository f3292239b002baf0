// The two derivation commands without a window: the configuration dialog's
// checks, and the comment lines that Derivar and DerivarPP append. The cases
// are the lines of tests/casos/ordenes.txt, whose head tells their kinds.

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "Casos.h"
#include "commands/ConfigDerivacion.h"
#include "commands/OrdenDerivar.h"
#include "differentiation/Derivada.h"
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

ConfigDerivacion Ajustes(const std::string& campo) {
  if (campo == "-") return {};
  std::istringstream s(campo);
  std::string cifras, vd, vi, forma;
  s >> cifras >> vd >> vi >> forma;
  return AceptaConfig(cifras, vd, vi, forma == "fracciones");
}

const char* Campo(CampoConfig c) {
  return c == CampoConfig::CifRed ? "CifRed" : c == CampoConfig::VarDep ? "VarDep" : "VarInd";
}

class Ordenes : public prueba::TablaDeCasos {};

TEST_P(Ordenes, Casos) {
  const prueba::Caso& c = GetParam();
  const std::string& tipo = c[0];
  if (tipo == "acepta" || tipo == "rechaza") {
    const auto fallo = CompruebaConfig(c[1], c[2], c[3]);
    ASSERT_EQ(tipo == "rechaza", fallo.has_value()) << (fallo ? fallo->mensaje : "");
    if (fallo) {
      EXPECT_EQ(fallo->mensaje, c[5]);
      EXPECT_TRUE(c[4] == "-" || Campo(fallo->campo) == c[4]) << Campo(fallo->campo);
    }
  } else if (tipo == "derivar" || tipo == "rederiva") {
    const ConfigDerivacion config = Ajustes(c[1]);
    const SalidaDerivar s = EjecutaDerivar(c[2], config, false);
    ASSERT_EQ(s.piezas.size(), 3u) << s.ErrDesc;
    if (tipo == "derivar") {
      EXPECT_EQ(s.piezas, (std::vector<std::string>{"\r\n", "'Derivada hallada:\r\n", c[3]}));
      const std::string sola = Une(c[3]).substr(Une(c[3]).find(" = ") + 3);
      EXPECT_EQ(DerivadaEnUnaLinea(c[2], config).Texto(), sola);
    }
    std::string doc = c[2] + s.Texto();
    doc += EjecutaDerivar(doc, config, true).Texto();
    const SalidaDerivar otra = EjecutaDerivar(doc, config, false);
    EXPECT_EQ(otra.ErrNumber, 0) << otra.ErrDesc;
    EXPECT_EQ(otra.piezas, s.piezas) << doc;
  } else if (tipo == "falla") {
    const SalidaDerivar s = EjecutaDerivar(c[1], ConfigDerivacion{}, false);
    EXPECT_TRUE(s.piezas.empty());
    const int lin = std::stoi(c[3]);
    EXPECT_EQ(std::tie(s.ErrNumber, s.ErrLin, s.ErrDesc),
              std::tuple(NumeroError(std::stoi(c[2])), lin, c[6]));
    if (lin >= 0) {
      EXPECT_EQ(std::tie(s.ErrCol, s.ErrLen), std::tuple(stoi(c[4]), stoi(c[5])));
    }
  } else {
    ASSERT_EQ(tipo, "pasos");
    Derivada d;
    d.VarDep("y"), d.VarInd("x"), d.PasToPas(true);
    d.Derivar(c[1]);
    ASSERT_GT(d.Pasos(), 2);
    std::string esperado;
    bool largo = false;
    for (int i = 1; i <= d.Pasos(); ++i) {
      esperado += "\r\n'" + d.Paso(i);
      largo = largo || d.Paso(i).size() > 256;
    }
    const std::string texto = EjecutaDerivar(c[1], ConfigDerivacion{}, true).Texto();
    EXPECT_EQ(Une(texto), esperado);
    EXPECT_EQ(texto != esperado, largo) << "broken only when a step is longer than a row";
    for (const std::string& linea : Lineas(texto.substr(2))) {
      EXPECT_LE(linea.size(), 256u) << linea;
      EXPECT_EQ(linea[0], '\'') << linea;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Tabla, Ordenes, prueba::Casos("ordenes.txt"), prueba::NombreDeCaso);

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
    const auto letra = [](char ch) { return std::isalnum(static_cast<unsigned char>(ch)); };
    EXPECT_FALSE(letra(l[i][l[i].size() - 3]) && letra(l[i + 1][1]))
        << "a token cut in two: " << l[i] << " / " << l[i + 1];
  }
  EXPECT_EQ(PartePorLineas("x+1", 9), "x+1");
  const std::string nombre(150, 'a'); // one token longer than a line stays whole
  EXPECT_EQ(Une(PartePorLineas("x+" + nombre + "+x", 9)), "x+" + nombre + "+x");
}

} // namespace
