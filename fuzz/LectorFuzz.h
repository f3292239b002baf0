#pragma once
// Shared by the fuzz targets: the input read as a stream of small decisions
// and texts, and the check that stops the run with a readable message when a
// property fails (libFuzzer then keeps the input as a reproducer).

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "lang/Aviso.h"

class LectorFuzz {
public:
  // An input is cut past 512 KiB, so that a target run by hand on a large
  // file still ends. libFuzzer is told a far smaller length (scripts/fuzz);
  // this one lets the replay try the long seeds: lines past the 16-bit
  // range, deep nesting.
  LectorFuzz(const std::uint8_t* datos, std::size_t n) : datos_(datos), n_(std::min(n, kMax)) {}

  bool Agotado() const { return pos_ >= n_; }
  // One byte; 0 once the input is used up, so that every input is complete.
  std::uint8_t Byte() { return pos_ < n_ ? datos_[pos_++] : 0; }
  bool Bit() { return (Byte() & 1) != 0; }
  // A value in [minimo, maximo] from one byte, or two (high first).
  int Entre(int minimo, int maximo) {
    const unsigned rango = static_cast<unsigned>(maximo - minimo) + 1;
    const unsigned v = rango > 256 ? Byte() << 8 : 0;
    return minimo + static_cast<int>((v | Byte()) % rango);
  }
  std::int32_t Entero32() {
    const unsigned alto = static_cast<unsigned>(Entre(0, 65535)) << 16;
    return static_cast<std::int32_t>(alto | static_cast<unsigned>(Entre(0, 65535)));
  }
  // Any double, infinities and NaNs included: its eight bytes as they come.
  double Doble() {
    std::uint8_t b[sizeof(double)];
    for (auto& x : b)
      x = Byte();
    double d;
    std::memcpy(&d, b, sizeof d);
    return d;
  }
  // Up to `n` bytes; TextoCorto's length comes first, in one byte.
  std::string Texto(std::size_t n) {
    n = std::min(n, n_ - pos_);
    pos_ += n;
    return std::string(reinterpret_cast<const char*>(datos_ + pos_ - n), n);
  }
  std::string TextoCorto(std::size_t maximo) { return Texto(Byte() % (maximo + 1)); }
  std::string Resto() { return Texto(n_ - pos_); }

private:
  static constexpr std::size_t kMax = 1 << 19;
  const std::uint8_t* datos_;
  std::size_t n_, pos_ = 0;
};

// A text with its control and non-ASCII bytes as \xNN, for messages.
inline std::string Visible(const std::string& s) {
  std::string r;
  char hex[8];
  for (const unsigned char c : s)
    r += c >= 0x20 && c < 0x7F && c != '\\' ? std::string(1, static_cast<char>(c))
                                            : (std::snprintf(hex, sizeof hex, "\\x%02X", c), hex);
  return r;
}

// Checks a property of the engine under test; `detalle` is built only when
// it fails.
#define EXIGE(condicion, detalle)                                                                  \
  do {                                                                                             \
    if (!(condicion)) {                                                                            \
      std::fprintf(stderr, "\n%s:%d: no se cumple %s\n  %s\n", __FILE__, __LINE__, #condicion,     \
                   std::string(detalle).c_str());                                                  \
      std::abort();                                                                                \
    }                                                                                              \
  } while (0)

// The engines' programmer warnings would flood the fuzzer's output; they
// are counted instead, for the targets that check them.
inline int& AvisosFuzz() {
  static int cuenta = 0;
  return cuenta;
}

inline void CuentaAvisos() {
  FijaManejadorAviso([](const std::string&, const std::string&) { ++AvisosFuzz(); });
}
