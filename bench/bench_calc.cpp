// Speed of the symbolic calculator: typical one-line expressions, and sums
// and products that grow term by term (every combining step re-reads the
// text built so far, so the whole parse is quadratic in the number of terms).

#include <benchmark/benchmark.h>

#include <string>

#include "algebra/CalcSimbolic.h"

namespace {

void BM_CalcTipica(benchmark::State& estado) {
  static const char* const kExpresiones[] = {
      "(dy_dx-(2*x^(2-1)*1))",         "(x^2*(Cos(x)*1)+Sin(x)*(2*x^(2-1)*1))",
      "((x+1)*(1/x)-Ln(x)*1)/(x+1)^2", "2*(3+x)-x/(x+1)+1/x+1/y",
      "(2*x+2*y*dy_dx)-(0)",
  };
  CalcSimbolic calc;
  const std::string exp = kExpresiones[estado.range(0)];
  for (auto _ : estado)
    benchmark::DoNotOptimize(calc.Calc(exp));
  estado.SetLabel(exp);
}
BENCHMARK(BM_CalcTipica)->DenseRange(0, 4);

// x1+x2+...+xn: distinct terms, none merges.
void BM_CalcSuma(benchmark::State& estado) {
  std::string exp = "x1";
  for (int i = 2; i <= estado.range(0); ++i)
    exp += "+" + std::to_string(i) + "*x" + std::to_string(i);
  CalcSimbolic calc;
  for (auto _ : estado)
    benchmark::DoNotOptimize(calc.Calc(exp));
  estado.SetComplexityN(estado.range(0));
}
BENCHMARK(BM_CalcSuma)->RangeMultiplier(2)->Range(1, 256)->Complexity();

// x1*x2*...*xn: one term whose factor list grows.
void BM_CalcProducto(benchmark::State& estado) {
  std::string exp = "x1";
  for (int i = 2; i <= estado.range(0); ++i)
    exp += "*x" + std::to_string(i);
  CalcSimbolic calc;
  for (auto _ : estado)
    benchmark::DoNotOptimize(calc.Calc(exp));
  estado.SetComplexityN(estado.range(0));
}
BENCHMARK(BM_CalcProducto)->RangeMultiplier(2)->Range(1, 256)->Complexity();

// (x+1)^... written as a product of n sums of two terms, expanded.
void BM_CalcProductoDeSumas(benchmark::State& estado) {
  std::string exp = "(x+1)";
  for (int i = 2; i <= estado.range(0); ++i)
    exp += "*(x+" + std::to_string(i) + ")";
  CalcSimbolic calc;
  for (auto _ : estado)
    benchmark::DoNotOptimize(calc.Calc(exp));
  estado.SetComplexityN(estado.range(0));
}
BENCHMARK(BM_CalcProductoDeSumas)->RangeMultiplier(2)->Range(1, 32)->Complexity();

} // namespace
