// Derivations as `mirkal-cli derivar --lote` makes them, one engine for all
// and each derivative formatted: the typical equations of bench/tipicas.txt,
// and families that grow with n (a sum, a product of binomials, a chain of
// sines, a nested quotient, a power of a sum). Each row reports the time of
// one equation. `bench_lote --filas` prints every row's name and equations
// instead, one "name<TAB>equation" a line, so that bench/compara_sympy.py
// times the very same equations.

#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "commands/ConfigDerivacion.h"
#include "commands/OrdenDerivar.h"

namespace {

struct Fila {
  std::string nombre;
  std::vector<std::string> ecuaciones;
};

std::string Familia(const std::string& nombre, int n) {
  std::string e;
  if (nombre == "suma") { // x + 2*x^2 + ... + n*x^n
    e = "x";
    for (int i = 2; i <= n; ++i)
      e += " + " + std::to_string(i) + "*x^" + std::to_string(i);
  } else if (nombre == "producto") { // (x+1)*(x+2)*...*(x+n)
    e = "(x+1)";
    for (int i = 2; i <= n; ++i)
      e += "*(x+" + std::to_string(i) + ")";
  } else if (nombre == "cadena") { // Sin(Sin(...(x)))
    e = "x";
    for (int i = 0; i < n; ++i)
      e = "Sin(" + e + ")";
  } else if (nombre == "cociente") { // x/(1+x/(1+...x/(1+x)))
    e = "x";
    for (int i = 0; i < n; ++i)
      e = "x/(1+" + e + ")";
  } else { // (1+x)^n
    e = "(1+x)^" + std::to_string(n);
  }
  return "y = " + e;
}

std::vector<Fila> Filas() {
  std::vector<Fila> filas(1, Fila{"tipicas", {}});
  std::ifstream tipicas(MIRKAL_FUENTES "/bench/tipicas.txt");
  for (std::string linea; std::getline(tipicas, linea);)
    if (!linea.empty()) filas[0].ecuaciones.push_back(linea);
  for (const char* familia : {"suma", "producto", "cadena", "cociente", "potencia"})
    for (int n : {16, 64, 256, 1024})
      filas.push_back({std::string(familia) + "/" + std::to_string(n), {Familia(familia, n)}});
  return filas;
}

void Mide(benchmark::State& estado, const Fila& fila) {
  const ConfigDerivacion config = AceptaConfig("5", "y", "x", true);
  MotorDerivar motor;
  int errores = 0;
  for (auto _ : estado) {
    errores = 0;
    for (const std::string& e : fila.ecuaciones)
      errores += motor.EnUnaLinea(e, config).ErrNumber != 0;
  }
  const auto n = static_cast<double>(fila.ecuaciones.size());
  estado.SetItemsProcessed(estado.iterations() * static_cast<std::int64_t>(n));
  estado.counters["ecuaciones"] = n;
  estado.counters["errores"] = errores;
}

} // namespace

int main(int argc, char** argv) {
  const std::vector<Fila> filas = Filas();
  if (argc > 1 && std::strcmp(argv[1], "--filas") == 0) {
    for (const Fila& f : filas)
      for (const std::string& e : f.ecuaciones)
        std::cout << f.nombre << '\t' << e << '\n';
    return 0;
  }
  for (const Fila& f : filas)
    benchmark::RegisterBenchmark(("BM_Lote/" + f.nombre).c_str(), Mide, f)
        ->Unit(benchmark::kMicrosecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
