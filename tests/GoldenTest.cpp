// mirkal-cli checked against files, as scripts run it: its standard output,
// standard error and exit status are all part of the answer.
//
// Golden documents (Windows-1252, CR LF) under tests/golden: NAME.txt is the
// document that `mirkal-cli derivar -f NAME.txt --escribir` turns into
// NAME.esperado.txt, and without --escribir the text it would append is
// printed and the file left as it was. A name holding ".pasos" runs the
// step-by-step command. A refused document has NAME.esperado.err, the message
// on standard error; it exits 1 and NAME.esperado.txt is the document itself.
// Each document gives two transcripts of the kind below.
//
// Transcripts under tests/cli: one case after another, each a block of lines
// that start with a mark and a space; blank lines and "#" lines are skipped,
// and the texts take the escapes of tests/casos (\r \n \t \\ \| \s \xHH).
//   $ ARG | ARG | ...       starts a case: the arguments, split on " | "
//   < LINE                  a line of standard input (a LF is added)
//   archivo NAME | BYTES    a file put in the case's folder before the run
//   > LINE                  a line of the expected standard output
//   ! LINE                  a line of the expected standard error
//   queda NAME | BYTES      what the file holds after the run
//   = STATUS                the expected exit status, which every case has
// Each case runs in a fresh folder named "caso", written {carpeta}; after
// the run it must hold its files and nothing else, each unchanged unless a
// "queda" line says otherwise. {version} is the program's version.

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Casos.h"
#include "EjecutaCliPrueba.h"

namespace {

namespace fs = std::filesystem;

const fs::path kFuentes = fs::path(MIRKAL_FUENTES) / "tests";

struct Transcripcion {
  std::string nombre, donde; // the gtest name, and the file and line
  int estado = -1;
  std::vector<std::string> args;
  std::string entrada, out, err;
  std::map<std::string, std::string> antes, despues; // files by name
};

std::ostream& operator<<(std::ostream& o, const Transcripcion& t) { return o << t.donde; }

const std::map<std::string, std::string Transcripcion::*> kTextos = {
    {"<", &Transcripcion::entrada}, {">", &Transcripcion::out}, {"!", &Transcripcion::err}};

// Two transcripts for each golden document: read only, and written.
void Golden(std::vector<Transcripcion>& r) {
  for (const auto& e : fs::directory_iterator(kFuentes / "golden")) {
    const std::string nombre = e.path().stem().string(), base = e.path().parent_path() / nombre;
    if (e.path().extension() != ".txt" || nombre.ends_with(".esperado")) continue;
    Transcripcion t;
    t.donde = e.path().string(), t.nombre = "golden_" + nombre;
    std::replace(t.nombre.begin(), t.nombre.end(), '.', '_');
    t.args = {"derivar", "-f", "{carpeta}/doc.txt"};
    if (nombre.find(".pasos") != std::string::npos) t.args.push_back("--pasos");
    const std::string original = prueba::LeeArchivo(e.path()),
                      esperado = prueba::LeeArchivo(base + ".esperado.txt");
    t.antes["doc.txt"] = original;
    t.err = prueba::LeeArchivo(base + ".esperado.err");
    t.estado = t.err.empty() ? 0 : 1;
    if (t.err.empty()) { // what would be appended: the expected document minus the original
      r.push_back(t);
      r.back().nombre += "_lee";
      r.back().out = esperado.starts_with(original)
                         ? esperado.substr(original.size()) + "\n"
                         : "(" + nombre + ".esperado.txt no sigue al documento)";
    }
    t.nombre += "_escribe", t.despues["doc.txt"] = esperado;
    t.args.push_back("--escribir");
    r.push_back(t);
  }
}

std::vector<Transcripcion> Transcripciones() {
  std::vector<Transcripcion> r;
  Golden(r);
  for (const auto& e : fs::directory_iterator(kFuentes / "cli")) {
    std::ifstream f(e.path(), std::ios::binary);
    std::string l;
    for (int n = 1; std::getline(f, l); ++n) {
      if (!l.empty() && l.back() == '\r') l.pop_back();
      if (l.empty() || l[0] == '#') continue;
      const std::size_t sp = std::min(l.find(' '), l.size());
      const std::string marca = l.substr(0, sp), resto = l.substr(std::min(sp + 1, l.size()));
      const std::vector<std::string> campos = prueba::PartePorCampos(resto);
      if (marca == "$") {
        r.emplace_back();
        r.back().donde = e.path().filename().string() + ":" + std::to_string(n);
        r.back().nombre = e.path().stem().string() + "_linea_" + std::to_string(n);
        if (!resto.empty()) r.back().args = campos;
        continue;
      }
      const std::string donde = e.path().string() + ":" + std::to_string(n);
      if (r.empty()) throw std::runtime_error(donde + ": falta el $ del caso");
      Transcripcion& t = r.back();
      if (kTextos.contains(marca)) {
        t.*kTextos.at(marca) += prueba::Desescapa(resto) + "\n";
      } else if (marca == "=") {
        t.estado = std::stoi(resto);
      } else if (marca == "archivo" || marca == "queda") {
        (marca == "archivo" ? t.antes : t.despues)[campos.at(0)] = campos.at(1);
      } else {
        throw std::runtime_error(donde + ": marca desconocida " + marca);
      }
    }
  }
  return r;
}

class Transcrito : public testing::TestWithParam<Transcripcion> {};

TEST_P(Transcrito, Casos) {
  const Transcripcion& t = GetParam();
  std::string base = testing::TempDir() + "mirkal-cli-XXXXXX";
  ASSERT_NE(mkdtemp(base.data()), nullptr);
  const std::string carpeta = base + "/caso";
  fs::create_directory(carpeta);
  const auto pon = [&](std::string s) {
    for (const auto& [clave, valor] :
         {std::pair<std::string, std::string>{"{carpeta}", carpeta}, {"{version}", MIRKAL_VERSION}})
      for (std::size_t p; (p = s.find(clave)) != std::string::npos;)
        s.replace(p, clave.size(), valor);
    return s;
  };
  std::map<std::string, std::string> esperados = t.antes;
  for (const auto& [nombre, bytes] : t.antes)
    prueba::EscribeArchivo(carpeta + "/" + nombre, bytes);
  for (const auto& [nombre, bytes] : t.despues)
    esperados[nombre] = bytes;
  std::vector<std::string> args;
  for (const std::string& a : t.args)
    args.push_back(pon(a));
  const prueba::SalidaCli s = prueba::EjecutaCli(args, t.entrada);
  EXPECT_EQ(s.estado, t.estado) << s.err;
  EXPECT_EQ(s.out, pon(t.out));
  EXPECT_EQ(s.err, pon(t.err));
  std::map<std::string, std::string> quedan;
  for (const auto& e : fs::directory_iterator(carpeta))
    quedan[e.path().filename().string()] = prueba::LeeArchivo(e.path().string());
  EXPECT_EQ(quedan, esperados);
  fs::remove_all(base);
}

INSTANTIATE_TEST_SUITE_P(Cli, Transcrito, testing::ValuesIn(Transcripciones()),
                         [](const auto& i) { return i.param.nombre; });

} // namespace
