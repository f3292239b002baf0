// Speed of the editor core on a long document (100,000 rows of equations and
// results): what one keystroke costs with its row's colouring pass, Enter
// (which moves every row below), undoing a paste of growing size, and
// loading the whole document with its colouring.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "editor/Editor.h"

namespace {

constexpr int kFilas = 100000;
constexpr int kMitad = kFilas / 2; // an equation row of DocumentoLargo()

const std::vector<std::string>& DocumentoLargo() {
  static const std::vector<std::string> filas = [] {
    const char* const kTipicas[] = {
        "y = x^2*Sin(x) + 3*Cos(2*x)/Ln(x)",
        "'Derivada hallada:",
        "'dy/dx = 2*x*Sin(x)+x^2*Cos(x)-6*Sin(2*x)/Ln(x)",
        "x^2 + y^2 = 25 ' circunferencia",
    };
    std::vector<std::string> v;
    v.reserve(kFilas);
    for (int i = 0; i < kFilas; ++i)
      v.emplace_back(kTipicas[i % 4]);
    return v;
  }();
  return filas;
}

// One typed character in the middle of an equation row, overwriting, so the
// row keeps its length; the cursor steps back so that every keystroke makes
// its own record, as typing here and there does.
void BM_Tecla(benchmark::State& estado) {
  Editor ed;
  ed.Carga(DocumentoLargo());
  ed.ModoInsertar(false);
  ed.Doc().MueveCursor(kMitad, 12); // on the x of Sin(x)
  for (auto _ : estado) {
    ed.EditaCmd(kEscribir, "z");
    ed.MueveCursorCmd(kIzquierda, false);
  }
  benchmark::DoNotOptimize(ed.Doc().Fila(kMitad).data());
}
BENCHMARK(BM_Tecla);

// The colouring pass alone, over the same row.
void BM_ColoreaFila(benchmark::State& estado) {
  Documento doc;
  doc.Carga({DocumentoLargo()[0]}, 0);
  Coloreador col;
  for (auto _ : estado)
    col.ColoreaFila(doc, 0);
  benchmark::DoNotOptimize(doc.Fila(0).data());
}
BENCHMARK(BM_ColoreaFila);

// Enter in the middle of the document; the row is joined again untimed.
void BM_Enter(benchmark::State& estado) {
  Editor ed;
  ed.Carga(DocumentoLargo());
  for (auto _ : estado) {
    ed.Doc().MueveCursor(kMitad, 16);
    ed.EditaCmd(kSaltoLinea);
    estado.PauseTiming();
    ed.EditaCmd(kRetroceso);
    estado.ResumeTiming();
  }
}
BENCHMARK(BM_Enter);

// Undoing a paste of N rows in the middle of the document; the paste itself
// is untimed. Removing rows there also moves the 50,000 rows below, a cost
// that Enter shows alone.
void BM_DeshacerPegado(benchmark::State& estado) {
  const auto n = static_cast<std::size_t>(estado.range(0));
  std::string pegado;
  for (std::size_t i = 0; i < n; ++i)
    pegado += DocumentoLargo()[i] + "\r\n";
  Editor ed;
  ed.Carga(DocumentoLargo());
  for (auto _ : estado) {
    estado.PauseTiming();
    ed.Doc().MueveCursor(kMitad, 0);
    ed.EditaCmd(kPegar, pegado);
    estado.ResumeTiming();
    ed.Deshacer();
  }
}
BENCHMARK(BM_DeshacerPegado)->Arg(10)->Arg(100)->Arg(1000);

void BM_Carga(benchmark::State& estado) {
  Editor ed;
  for (auto _ : estado)
    ed.Carga(DocumentoLargo());
  estado.SetItemsProcessed(estado.iterations() * kFilas);
}
BENCHMARK(BM_Carga)->Unit(benchmark::kMillisecond);

} // namespace
