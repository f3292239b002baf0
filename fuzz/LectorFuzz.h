#pragma once
// Shared by the fuzz programs: the input read as a stream of small decisions
// and texts, the check that stops the run with a readable message when a
// property fails (libFuzzer then keeps the input as a reproducer), and the
// standard headers they have in common.

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "lang/Aviso.h"

class LectorFuzz {
public:
  // Cut past 512 KiB, so that a run by hand on a large file ends; the replay
  // tries the long seeds (libFuzzer is told far less, scripts/fuzz).
  LectorFuzz(const std::uint8_t* datos, std::size_t n)
      : resto_(reinterpret_cast<const char*>(datos), std::min<std::size_t>(n, 1 << 19)) {}

  bool Agotado() const { return resto_.empty(); }
  // One byte; 0 once the input is used up, so that every input is complete.
  std::uint8_t Byte() { return Agotado() ? 0 : static_cast<std::uint8_t>(Texto(1)[0]); }
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
    std::array<char, sizeof(double)> b{};
    Texto(b.size()).copy(b.data(), b.size());
    return std::bit_cast<double>(b);
  }
  // Up to `n` bytes; TextoCorto's length comes first, in one byte.
  std::string Texto(std::size_t n) {
    const std::string_view t = resto_.substr(0, n);
    resto_.remove_prefix(t.size());
    return std::string(t);
  }
  std::string TextoCorto(std::size_t maximo) { return Texto(Byte() % (maximo + 1)); }
  std::string Resto() { return Texto(resto_.size()); }

private:
  std::string_view resto_;
};

// A text with its control and non-ASCII bytes as \xNN, for messages.
inline std::string Visible(std::string_view s) {
  std::string r;
  char hex[8];
  for (const unsigned char c : s)
    r += c >= 0x20 && c < 0x7F && c != '\\' ? std::string(1, static_cast<char>(c))
                                            : (std::snprintf(hex, sizeof hex, "\\x%02X", c), hex);
  return r;
}
inline std::string En(std::string_view s) { return " en «" + Visible(s) + "»"; }

// Checks a property; the optional detail, the case it failed on, is built only then.
#define EXIGE(condicion, ...)                                                                      \
  ((condicion) ? void() : Falla(__FILE__, __LINE__, #condicion, std::string(__VA_ARGS__)))
[[noreturn]] inline void Falla(const char* fuente, int linea, const char* que, std::string caso) {
  std::fprintf(stderr, "\n%s:%d: no se cumple %s\n  %s\n", fuente, linea, que, caso.c_str());
  std::abort();
}

// The engines' programmer warnings, counted instead of flooding the fuzzer's output.
inline int avisosFuzz = 0;
inline const bool kAvisosContados = (FijaManejadorAviso([](auto&, auto&) { ++avisosFuzz; }), true);
