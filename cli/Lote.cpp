// mirkal-cli derivar --lote: one equation a line of standard input, one
// answer a line of standard output, in the input's order. The equations
// already waiting are shared out among threads, each with an engine of its
// own; a script that writes one line and waits for its answer gets it at
// once, as the next line is not waited for.

#include "cli/Lote.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "cli/Ordenes.h"
#include "commands/OrdenDerivar.h"
#include "lang/Cp1252.h"

namespace {

// At most this many lines are taken at once, so that a long file is answered
// as it is read, and memory stays small.
constexpr std::size_t kMaxTanda = 4096;

// Lines of standard input, read straight from the descriptor so that what is
// already waiting can be told from what has not been written yet.
class LectorLineas {
public:
  // The next lines: at least one (waiting for it), then those that are
  // already there. False at the end of the input.
  bool Tanda(std::vector<std::string>& lineas) {
    lineas.clear();
    while (lineas.size() < kMaxTanda) {
      const auto fin = std::find(pendiente_.begin() + inicio_, pendiente_.end(), '\n');
      if (fin != pendiente_.end()) {
        lineas.emplace_back(pendiente_.begin() + inicio_, fin);
        inicio_ = static_cast<std::size_t>(fin - pendiente_.begin()) + 1;
        continue;
      }
      if (agotado_ || (!lineas.empty() && !HayMas())) break;
      Lee();
    }
    if (agotado_ && lineas.size() < kMaxTanda && inicio_ < pendiente_.size()) {
      lineas.emplace_back(pendiente_.begin() + inicio_, pendiente_.end()); // no final LF
      inicio_ = pendiente_.size();
    }
    return !lineas.empty();
  }

private:
  static bool HayMas() {
    pollfd p{STDIN_FILENO, POLLIN, 0};
    return poll(&p, 1, 0) > 0;
  }
  void Lee() {
    pendiente_.erase(0, inicio_);
    inicio_ = 0;
    char buf[1 << 16];
    ssize_t n;
    do
      n = read(STDIN_FILENO, buf, sizeof buf);
    while (n < 0 && errno == EINTR);
    if (n <= 0)
      agotado_ = true;
    else
      pendiente_.append(buf, static_cast<std::size_t>(n));
  }

  std::string pendiente_;
  std::size_t inicio_ = 0;
  bool agotado_ = false;
};

// A batch line is an equation, as the ECUACIÓN argument is, not a document
// row: text typed at a terminal (UTF-8), or a line of a Windows-1252 file.
std::string EcuacionDeLote(const std::string& linea) {
  return EsUtf8Valido(linea) ? linea : Cp1252AUtf8(linea);
}

// The answer to one line, ending in "\n"; false when it is an error.
bool Responde(MotorDerivar& motor, std::string linea, const ConfigDerivacion& config, bool pasos,
              std::string& out) {
  if (!linea.empty() && linea.back() == '\r') linea.pop_back();
  out.clear();
  bool bien = true;
  if (!linea.empty()) {
    const SalidaDerivar r = motor.EnUnaLinea(EcuacionDeLote(linea), config, pasos);
    for (const std::string& p : r.piezas)
      out += p + '\n';
    if (r.ErrNumber != 0) {
      out += "ERROR: " + r.ErrDesc + '\n';
      bien = false;
    }
  } else if (!pasos) {
    out = "\n";
  }
  if (pasos) out += std::string(kSeparadorLote) + '\n';
  return bien;
}

} // namespace

int Lote(const ConfigDerivacion& config, bool pasos, int hilos) {
  std::vector<std::unique_ptr<MotorDerivar>> motores;
  for (int i = 0; i < std::max(hilos, 1); ++i)
    motores.push_back(std::make_unique<MotorDerivar>());
  LectorLineas lector;
  std::vector<std::string> lineas, respuestas;
  bool todoBien = true;
  while (lector.Tanda(lineas)) {
    respuestas.assign(lineas.size(), "");
    std::vector<char> bien(lineas.size(), 1);
    // Each thread takes the next line not yet taken: one long equation does
    // not hold up the lines behind it.
    const std::size_t partes = std::min(motores.size(), lineas.size());
    std::atomic<std::size_t> siguiente{0};
    const auto trabaja = [&](std::size_t parte) {
      for (std::size_t i; (i = siguiente.fetch_add(1)) < lineas.size();)
        bien[i] = Responde(*motores[parte], lineas[i], config, pasos, respuestas[i]);
    };
    std::vector<std::thread> trabajadores;
    for (std::size_t parte = 1; parte < partes; ++parte)
      trabajadores.emplace_back(trabaja, parte);
    trabaja(0);
    for (std::thread& t : trabajadores)
      t.join();
    for (std::size_t i = 0; i < lineas.size(); ++i) {
      std::cout << respuestas[i];
      todoBien = todoBien && bien[i];
    }
    std::cout.flush();
  }
  return todoBien ? kSalidaBien : kSalidaRechazo;
}
