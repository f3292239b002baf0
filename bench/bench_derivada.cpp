// Speed of differentiation: typical one-line equations of every function
// family, and families that grow with n (sums, products, chains of
// functions, nested quotients). The result's size is reported as a counter.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "differentiation/Derivada.h"

namespace {

const std::vector<std::string> kTipicas = {
    "y = x^2*Sin(x)",          "x^2 + y^2 = 25",           "y = Ln(x)/(x + 1)",
    "y = e^(2*x) - ArcTg(x)",  "y = Sec(x)*Tg(x)",         "x*y + Cos(y) = 3",
    "y = ArcSin(x/2)",         "y = SinH(x) + CosH(2*x)",  "y = Log(x^2 + 1)",
    "y = (x^3 - 2*x)/(x - 1)", "y = ArcCosH(x)*ArcTgH(x)", "y = x^x",
};

Derivada Motor() {
  Derivada d;
  d.VarDep("y");
  d.VarInd("x");
  return d;
}

void BM_DerivarTipicas(benchmark::State& estado) {
  Derivada d = Motor();
  std::size_t i = 0;
  for (auto _ : estado)
    benchmark::DoNotOptimize(d.Derivar(kTipicas[i++ % kTipicas.size()]));
  estado.SetItemsProcessed(estado.iterations());
}
BENCHMARK(BM_DerivarTipicas)->Unit(benchmark::kMicrosecond);

void BM_DerivarPasoAPaso(benchmark::State& estado) {
  Derivada d = Motor();
  d.PasToPas(true);
  std::size_t i = 0;
  for (auto _ : estado)
    benchmark::DoNotOptimize(d.Derivar(kTipicas[i++ % kTipicas.size()]));
  estado.SetItemsProcessed(estado.iterations());
}
BENCHMARK(BM_DerivarPasoAPaso);

void Familia(benchmark::State& estado, const std::string& ecuacion) {
  Derivada d = Motor();
  std::string r;
  for (auto _ : estado)
    r = d.Derivar(ecuacion);
  estado.counters["bytes_resultado"] = static_cast<double>(r.size());
  estado.counters["error"] = d.ErrNumber() != 0;
  estado.SetComplexityN(estado.range(0));
}

// y = x + 2*x^2 + ... + n*x^n
void BM_DerivarSuma(benchmark::State& estado) {
  std::string e = "y = x";
  for (int i = 2; i <= estado.range(0); ++i)
    e += " + " + std::to_string(i) + "*x^" + std::to_string(i);
  Familia(estado, e);
}
BENCHMARK(BM_DerivarSuma)
    ->RangeMultiplier(4)
    ->Range(1, 256)
    ->Arg(900)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// y = (x+1)*(x+2)*...*(x+n)
void BM_DerivarProducto(benchmark::State& estado) {
  std::string e = "y = (x+1)";
  for (int i = 2; i <= estado.range(0); ++i)
    e += "*(x+" + std::to_string(i) + ")";
  Familia(estado, e);
}
BENCHMARK(BM_DerivarProducto)
    ->RangeMultiplier(2)
    ->Range(1, 32)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// y = Sin(Cos(Sin(...(x))))
void BM_DerivarCadena(benchmark::State& estado) {
  std::string e = "x";
  for (int i = 0; i < estado.range(0); ++i)
    e = (i % 2 ? "Cos(" : "Sin(") + e + ")";
  Familia(estado, "y = " + e);
}
BENCHMARK(BM_DerivarCadena)
    ->RangeMultiplier(2)
    ->Range(1, 128)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// y = 1/(1 + 1/(1 + ... 1/(1 + x)))
void BM_DerivarCocientes(benchmark::State& estado) {
  std::string e = "x";
  for (int i = 0; i < estado.range(0); ++i)
    e = "1/(1 + " + e + ")";
  Familia(estado, "y = " + e);
}
BENCHMARK(BM_DerivarCocientes)
    ->RangeMultiplier(2)
    ->Range(1, 64)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// The worst families against the bounds of one derivation: a long sum of x
// (the rewriting loop's copy bound), a sum of k*x^2 asked for step by step
// (the steps' bound) and a nest of quotients (the calculator's text bound).
// Each stops with code 5; the time is what a user waits for that message.
void BM_DerivarHastaElLimite(benchmark::State& estado) {
  std::string e;
  const int n = static_cast<int>(estado.range(0));
  Derivada d = Motor();
  if (n == 0) {
    e = "y = x";
    for (int i = 1; i < 20000; ++i)
      e += "+x";
  } else if (n == 1) {
    e = "y = 1*x^2";
    for (int k = 2; k < 990; ++k)
      e += "+" + std::to_string(k) + "*x^2";
    d.PasToPas(true);
  } else {
    e = "x";
    for (int i = 0; i < 64; ++i)
      e = "1/(x + " + e + ")";
    e = "y = " + e;
  }
  for (auto _ : estado)
    d.Derivar(e);
  estado.counters["error"] = d.ErrNumber() != 0;
}
BENCHMARK(BM_DerivarHastaElLimite)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

} // namespace
