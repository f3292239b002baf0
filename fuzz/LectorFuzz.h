#pragma once
// Shared by the fuzz targets: the input cut to a bounded size and read as a
// stream of small decisions and texts, and the check that stops the run with
// a readable message when a property fails (libFuzzer then keeps the input
// as a reproducer).

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "lang/Aviso.h"

// An input is cut past this many bytes, so that a target run by hand on a
// large file still ends. libFuzzer is told a far smaller length (scripts/fuzz);
// this one lets the replay try the long seeds: rows and lines past the 16-bit
// range, deep nesting.
inline constexpr std::size_t kMaxEntradaFuzz = 1 << 19;

class LectorFuzz {
public:
  LectorFuzz(const std::uint8_t* datos, std::size_t n)
      : datos_(datos), n_(n < kMaxEntradaFuzz ? n : kMaxEntradaFuzz) {}

  bool Agotado() const { return pos_ >= n_; }
  std::size_t Quedan() const { return n_ - pos_; }

  // One byte; 0 once the input is used up, so that every input is complete.
  std::uint8_t Byte() { return pos_ < n_ ? datos_[pos_++] : 0; }
  bool Bit() { return (Byte() & 1) != 0; }
  // A value in [minimo, maximo] from one or two bytes.
  int Entre(int minimo, int maximo) {
    const unsigned rango = static_cast<unsigned>(maximo - minimo) + 1;
    unsigned v = Byte();
    if (rango > 256) v = (v << 8) | Byte();
    return minimo + static_cast<int>(v % rango);
  }
  std::int32_t Entero32() {
    std::uint32_t v = 0;
    for (int i = 0; i < 4; ++i)
      v = (v << 8) | Byte();
    return static_cast<std::int32_t>(v);
  }
  // Any double, infinities and NaNs included: its eight bytes as they come.
  double Doble() {
    std::uint8_t b[sizeof(double)] = {};
    for (auto& x : b)
      x = Byte();
    double d;
    std::memcpy(&d, b, sizeof d);
    return d;
  }
  // Up to `n` bytes.
  std::string Texto(std::size_t n) {
    if (n > Quedan()) n = Quedan();
    std::string s(reinterpret_cast<const char*>(datos_ + pos_), n);
    pos_ += n;
    return s;
  }
  // A text whose length comes first, in one byte (at most `maximo`).
  std::string TextoCorto(std::size_t maximo) { return Texto(Byte() % (maximo + 1)); }
  std::string Resto() { return Texto(Quedan()); }

private:
  const std::uint8_t* datos_;
  std::size_t n_, pos_ = 0;
};

// A text with its control and non-ASCII bytes as \xNN, for messages.
inline std::string Visible(const std::string& s) {
  std::string r;
  for (const unsigned char c : s) {
    if (c >= 0x20 && c < 0x7F && c != '\\') {
      r += static_cast<char>(c);
    } else {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      r += hex;
    }
  }
  return r;
}

[[noreturn]] inline void FalloFuzz(const char* archivo, int linea, const char* condicion,
                                   const std::string& detalle) {
  std::fprintf(stderr, "\n%s:%d: no se cumple %s\n  %s\n", archivo, linea, condicion,
               detalle.c_str());
  std::abort();
}

// Checks a property of the engine under test; `detalle` is built only when
// it fails.
#define EXIGE(condicion, detalle)                                                                  \
  do {                                                                                             \
    if (!(condicion)) FalloFuzz(__FILE__, __LINE__, #condicion, (detalle));                        \
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
