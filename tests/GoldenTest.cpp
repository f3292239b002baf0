// Example documents (Windows-1252, CR LF) under tests/golden, each with the
// document that `mirkal-cli derivar -f DOC --escribir` must leave behind:
// NAME.txt becomes NAME.esperado.txt. A name holding ".pasos." runs the
// step-by-step command; a name beginning "error_" is refused and must leave
// the file as it was.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "EjecutaCliPrueba.h"

namespace {

namespace fs = std::filesystem;

const std::string kEsperado = ".esperado.txt";

std::vector<fs::path> Documentos() {
  std::vector<fs::path> r;
  for (const auto& e : fs::directory_iterator(fs::path(MIRKAL_FUENTES) / "tests" / "golden")) {
    const std::string nombre = e.path().filename().string();
    if (nombre.ends_with(".txt") && !nombre.ends_with(kEsperado)) r.push_back(e.path());
  }
  return r;
}

// Without --escribir the document is only read, and the text that would be
// appended is printed: the expected document minus the original.
TEST(Golden, DocumentsAreWrittenAsExpectedAndReadWithoutChange) {
  const std::vector<fs::path> docs = Documentos();
  ASSERT_GE(docs.size(), 5u);
  for (const fs::path& doc : docs) {
    const std::string nombre = doc.filename().string();
    SCOPED_TRACE(nombre);
    const std::string base = nombre.substr(0, nombre.size() - 4);
    const std::string original = prueba::LeeArchivo(doc.string());
    const std::string esperado =
        prueba::LeeArchivo((doc.parent_path() / (base + kEsperado)).string());
    ASSERT_FALSE(esperado.empty()) << "no " << base + kEsperado;
    const bool refusado = nombre.starts_with("error_");
    std::vector<std::string> args = {"derivar", "-f", doc.string()};
    if (nombre.find(".pasos.") != std::string::npos) args.push_back("--pasos");
    if (!refusado) {
      const prueba::SalidaCli s = prueba::EjecutaCli(args);
      EXPECT_EQ(s.estado, 0) << s.err;
      ASSERT_EQ(esperado.compare(0, original.size(), original), 0);
      EXPECT_EQ(s.out, esperado.substr(original.size()) + "\n");
      EXPECT_EQ(prueba::LeeArchivo(doc.string()), original);
    }
    const std::string copia = prueba::RutaTemporal(nombre);
    fs::copy_file(doc, copia, fs::copy_options::overwrite_existing);
    args[2] = copia;
    args.push_back("--escribir");
    const prueba::SalidaCli s = prueba::EjecutaCli(args);
    EXPECT_EQ(s.estado, refusado ? 1 : 0) << s.err;
    EXPECT_EQ(s.out, "");
    EXPECT_EQ(refusado, !s.err.empty()) << s.err;
    EXPECT_EQ(prueba::LeeArchivo(copia), esperado);
    fs::remove(copia);
  }
}

} // namespace
