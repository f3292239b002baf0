// Speed of document files: decoding and encoding a 100,000-row document of
// equations with their derivatives, in Windows-1252 and in UTF-8, and a full
// load from disk (read and decode). A load should stay under half a second.

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "files/ArchivoTexto.h"

namespace {

constexpr int kFilas = 100000;

// Rows as a user's document holds them: equations, comments with accents and
// the lines the derivation commands write.
std::vector<std::string> Documento() {
  const char* tipicas[] = {
      "y = x^2*Sin(x) + 3.5E-2/Ln(x)",
      "' Funci\xF3n de prueba: \xE1rea bajo la curva",
      "'Derivada hallada:",
      "'dy/dx = 2*x*Sin(x) + x^2*Cos(x) - .035/(x*Ln(x)^2)",
      "x^2 + y^2 = 25",
      "",
  };
  std::vector<std::string> filas;
  filas.reserve(kFilas);
  for (int i = 0; i < kFilas; ++i)
    filas.emplace_back(tipicas[i % std::size(tipicas)]);
  return filas;
}

Codificacion DeArgumento(const benchmark::State& estado) {
  return estado.range(0) == 0 ? Codificacion::Ansi : Codificacion::Utf8;
}

void BM_DecodificaArchivo(benchmark::State& estado) {
  const std::string bytes = CodificaArchivo(Documento(), DeArgumento(estado));
  for (auto _ : estado) {
    ContenidoArchivo contenido;
    std::string error;
    benchmark::DoNotOptimize(DecodificaArchivo(bytes, contenido, error));
    if (contenido.filas.size() != kFilas) estado.SkipWithError("filas perdidas");
  }
  estado.SetBytesProcessed(estado.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_DecodificaArchivo)->ArgName("utf8")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_CodificaArchivo(benchmark::State& estado) {
  const std::vector<std::string> filas = Documento();
  std::size_t tamaño = 0;
  for (auto _ : estado) {
    const std::string bytes = CodificaArchivo(filas, DeArgumento(estado));
    tamaño = bytes.size();
    benchmark::DoNotOptimize(bytes.data());
  }
  estado.SetBytesProcessed(estado.iterations() * static_cast<int64_t>(tamaño));
}
BENCHMARK(BM_CodificaArchivo)->ArgName("utf8")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Read from disk and decode, as opening a document does. The file was just
// written, so it is read from the page cache.
void BM_CargaDesdeDisco(benchmark::State& estado) {
  char plantilla[] = "/tmp/mirkal-bench-XXXXXX";
  const int fd = mkstemp(plantilla);
  if (fd < 0) {
    estado.SkipWithError("no se pudo crear el archivo");
    return;
  }
  close(fd);
  std::string error;
  if (!GuardaBytes(plantilla, CodificaArchivo(Documento(), DeArgumento(estado)), error)) {
    estado.SkipWithError(error.c_str());
    std::remove(plantilla);
    return;
  }
  for (auto _ : estado) {
    std::string bytes;
    ContenidoArchivo contenido;
    if (!LeeArchivo(plantilla, bytes, error) || !DecodificaArchivo(bytes, contenido, error))
      estado.SkipWithError(error.c_str());
    benchmark::DoNotOptimize(contenido.filas.data());
  }
  std::remove(plantilla);
}
BENCHMARK(BM_CargaDesdeDisco)->ArgName("utf8")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Encode and save, with the data brought to disk before the rename.
void BM_GuardaEnDisco(benchmark::State& estado) {
  const std::string ruta = "/tmp/mirkal-bench-guarda-" + std::to_string(getpid()) + ".txt";
  const std::vector<std::string> filas = Documento();
  for (auto _ : estado) {
    std::string error;
    if (!GuardaBytes(ruta, CodificaArchivo(filas, Codificacion::Ansi), error))
      estado.SkipWithError(error.c_str());
  }
  std::remove(ruta.c_str());
}
BENCHMARK(BM_GuardaEnDisco)->Unit(benchmark::kMillisecond);

} // namespace
