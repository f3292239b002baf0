// Speed of reading equations: the lexer over a long document and the syntax
// checker on one-line equations and on growing sums.

#include <benchmark/benchmark.h>

#include <string>

#include "lang/AnaLex.h"
#include "lang/SintaxExp.h"

namespace {

std::string Suma(int terminos) {
  std::string s = "y = x";
  for (int i = 1; i < terminos; ++i)
    s += " + " + std::to_string(i) + "*x^" + std::to_string(i);
  return s;
}

void BM_AnaLexDocumento(benchmark::State& estado) {
  std::string doc;
  for (int i = 0; i < estado.range(0); ++i)
    doc += "y = x^2*Sin(x) + 3.5E-2/Ln(x) ' nota\r\n";
  AnaLex lex;
  lex.IndId(1), lex.IndNum(2), lex.IndFL(3), lex.IndFA(4), lex.IndPC(5), lex.IndOpr(6);
  for (const char* op : {"+", "-", "*", "/", "^", "(", ")", "="})
    lex.AñadeOpr(7, op);
  for (const char* f : {"sin", "cos", "ln", "log"})
    lex.AñadePC(8, f);
  for (auto _ : estado) {
    lex.Buffer(doc);
    int n = 0;
    while (lex.SgtToken() != 4)
      ++n;
    benchmark::DoNotOptimize(n);
  }
  estado.SetBytesProcessed(estado.iterations() * static_cast<int64_t>(doc.size()));
}
BENCHMARK(BM_AnaLexDocumento)->Arg(1)->Arg(100)->Arg(10000);

void BM_SintaxEcuTipica(benchmark::State& estado) {
  SintaxExp sintaxis;
  const std::string ecuacion = "x^2 + y^2 = 25*Sin(x)/(1 + ArcTgH(x*y))";
  for (auto _ : estado)
    benchmark::DoNotOptimize(sintaxis.SintaxEcu(ecuacion));
}
BENCHMARK(BM_SintaxEcuTipica);

void BM_SintaxEcuSuma(benchmark::State& estado) {
  SintaxExp sintaxis;
  const std::string ecuacion = Suma(static_cast<int>(estado.range(0)));
  for (auto _ : estado)
    benchmark::DoNotOptimize(sintaxis.SintaxEcu(ecuacion));
  estado.SetComplexityN(estado.range(0));
}
BENCHMARK(BM_SintaxEcuSuma)->RangeMultiplier(4)->Range(1, 4096)->Complexity();

} // namespace
