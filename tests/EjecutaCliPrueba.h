#pragma once
// Runs mirkal-cli as scripts run it: a child process fed from a file, whose
// standard output, standard error and exit status are all part of the answer.

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace prueba {

struct SalidaCli {
  int estado = -1;
  std::string out, err;
};

inline std::string LeeArchivo(const std::string& ruta) {
  std::ifstream f(ruta, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(f), {});
}

inline void EscribeArchivo(const std::string& ruta, const std::string& bytes) {
  std::ofstream(ruta, std::ios::binary) << bytes;
}

// A fresh path in the test's temporary directory; tests may run side by side.
inline std::string RutaTemporal(const std::string& nombre) {
  static std::atomic<int> n{0};
  return testing::TempDir() + "mirkal-" + std::to_string(getpid()) + "-" + std::to_string(++n) +
         "-" + nombre;
}

inline std::string Comillas(const std::string& a) {
  std::string r = "'";
  for (char c : a)
    r += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return r + "'";
}

// The tool with these arguments, `entrada` as its standard input.
inline SalidaCli EjecutaCli(const std::vector<std::string>& args, const std::string& entrada = "") {
  const std::string fEntrada = RutaTemporal("entrada"), fErrores = RutaTemporal("errores");
  EscribeArchivo(fEntrada, entrada);
  std::string orden = Comillas(MIRKAL_CLI);
  for (const std::string& a : args)
    orden += " " + Comillas(a);
  orden += " <" + Comillas(fEntrada) + " 2>" + Comillas(fErrores);
  SalidaCli s;
  if (FILE* tubo = popen(orden.c_str(), "r")) {
    char buf[4096];
    for (std::size_t n; (n = fread(buf, 1, sizeof buf, tubo)) > 0;)
      s.out.append(buf, n);
    const int estado = pclose(tubo);
    s.estado = WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
  }
  s.err = LeeArchivo(fErrores);
  std::remove(fEntrada.c_str());
  std::remove(fErrores.c_str());
  return s;
}

} // namespace prueba
