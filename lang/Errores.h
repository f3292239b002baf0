#pragma once
// Errors raised inside the engines. User-input failures are numbered
// 0x80040000 + a small code; failures of the arithmetic itself keep fixed
// numbers of their own, outside that range, with short descriptions.
// Every public member of an engine catches ErrorMotor in its trap and fills
// its error record: nothing escapes to the caller.

#include <cstddef>
#include <cstdint>
#include <string>

inline constexpr std::uint32_t kBaseErrores = 0x80040000u;
inline constexpr std::uint32_t kFinErrores = 0x80050001u; // first number past the range

// The number of the user-input error with this code (code 6 is -2147221498).
constexpr std::int32_t NumeroError(int codigo) {
  return static_cast<std::int32_t>(kBaseErrores + static_cast<std::uint32_t>(codigo));
}

// Whether a number belongs to the user-input range, and so has its message
// in the raising engine's own table.
constexpr bool EsErrorDeUsuario(std::int32_t numero) {
  const auto n = static_cast<std::uint32_t>(numero);
  return n > kBaseErrores && n < kFinErrores;
}

// Failures of the arithmetic.
inline constexpr std::int32_t kErrArgumento = 5;
inline constexpr std::int32_t kErrDesbordamiento = 6;
inline constexpr std::int32_t kErrDivisionCero = 11;
// Parentheses and function calls nested deeper than kMaxAnidamiento: refused
// before the recursive readers could run out of stack.
inline constexpr std::int32_t kErrAnidamiento = 28;
inline constexpr int kMaxAnidamiento = 200;
// The calculator reads texts that the differentiation rules build, which nest
// one level for every term of a sum: it allows more.
inline constexpr int kMaxAnidamientoCalc = 1000;
// A text of the algebra larger than kMaxTexto bytes: sums brought over one
// denominator without cancelling can grow without bound on nested quotients.
// Typical derivatives stay under 1 KB; the largest benchmarked results reach
// about 100 KB in well under a second.
inline constexpr std::int32_t kErrTextoExcesivo = 7;
inline constexpr std::size_t kMaxTexto = 256 * 1024;
// The bytes the calculator may examine during one call before it gives up
// with the same error: about a second of work in a Release build, far beyond
// any typical derivation (a few kilobytes) and beyond the largest benchmarked
// families.
inline constexpr std::size_t kMaxTrabajo = 64 * 1024 * 1024;
// One derivation's own bounds, before the final solving. The bytes its
// rewriting loop may copy: every pass copies, and scans, the whole working
// text, so a sum of ten thousand terms would take seconds; the largest
// benchmarked derivations copy about 110 MB, and this bound is reached in
// well under a second. The bytes it may keep as steps: step by step, each
// pass keeps a copy of the working text, and without a bound a sum of a few
// hundred products would keep hundreds of megabytes.
inline constexpr std::size_t kMaxTrabajoDerivada = 128 * 1024 * 1024;
inline constexpr std::size_t kMaxPasosDerivada = 32 * 1024 * 1024;
inline constexpr const char* kDescArgumento = "Argumento fuera del dominio";
inline constexpr const char* kDescDesbordamiento = "Desbordamiento";
inline constexpr const char* kDescDivisionCero = "División por cero";
inline constexpr const char* kDescAnidamiento = "Expresión anidada en exceso";
inline constexpr const char* kDescTextoExcesivo = "Expresión demasiado grande";

struct ErrorMotor {
  std::int32_t numero;
  std::string descripcion; // empty for user-input errors: the engine's table gives it
};
