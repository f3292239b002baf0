#pragma once
// The two derivation commands without a window: what Derivar and DerivarPP
// write at the end of a document, or the error to show. The editor inserts
// the pieces one after another at the end of the document; mirkal-cli
// prints or appends them.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "commands/ConfigDerivacion.h"

// Written lines are broken between tokens so that none exceeds this many
// characters of result (a document row holds 256 cells).
inline constexpr int kAnchoLinea = 100;

struct SalidaDerivar {
  std::vector<std::string> piezas; // empty on failure
  std::int32_t ErrNumber = 0;
  int ErrLin = -1, ErrCol = 0, ErrLen = 0; // ErrLin -1: the error has no place
  std::string ErrDesc;
  std::string Texto() const; // the pieces joined
};

class Derivada;

// One differentiation engine for many derivations: a batch run or an editor
// session builds it once, instead of its checker and calculator each time.
class MotorDerivar {
public:
  MotorDerivar();
  ~MotorDerivar();
  MotorDerivar(const MotorDerivar&) = delete;
  MotorDerivar& operator=(const MotorDerivar&) = delete;

  // Derivar (pasoAPaso false) or DerivarPP (true) on the whole document,
  // rows joined by "\r\n", with the given settings.
  SalidaDerivar Ejecuta(const std::string& documento, const ConfigDerivacion& config,
                        bool pasoAPaso);
  // The formatted derivative alone, on one line (no piece and the error on
  // failure), for batch use. With `pasos` the steps come first, a piece
  // each as the engine wrote them, those before a failure too.
  SalidaDerivar EnUnaLinea(const std::string& ecuacion, const ConfigDerivacion& config,
                           bool pasos = false);

private:
  std::unique_ptr<Derivada> d_;
};

// The same, each on an engine of its own.
SalidaDerivar EjecutaDerivar(const std::string& documento, const ConfigDerivacion& config,
                             bool pasoAPaso);
SalidaDerivar DerivadaEnUnaLinea(const std::string& ecuacion, const ConfigDerivacion& config);

// Breaks a text between tokens into lines of at most `ancho` characters
// (after `usado` characters already on the first line); each break is
// " _" + "\r\n" + "'", so that every continuation line is a comment too.
std::string PartePorLineas(const std::string& texto, int usado, int ancho = kAnchoLinea);
