#pragma once
// Errors raised inside the engines: one exception type, ErrorMotor, for them
// all. Failures of user input are numbered 0x80040000 + a small code; each
// engine names its codes in an enum class of its own (ErrSintax, ErrCalc,
// ErrDerivada) and keeps their messages in its own table. Failures of the
// arithmetic itself keep fixed numbers of their own, outside that range, with
// short descriptions (ErrAritmetica). Every public member of an engine
// catches ErrorMotor in its trap and fills its error record: nothing escapes
// to the caller.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

inline constexpr std::uint32_t kBaseErrores = 0x80040000u;
inline constexpr std::uint32_t kFinErrores = 0x80050001u; // first number past the range

// Failures that carry fixed numbers of their own: those of the arithmetic,
// and the two bounds that keep the engines' recursion and texts in check.
enum class ErrAritmetica : std::int32_t {
  Argumento = 5,      // a logarithm or a root outside its domain
  Desbordamiento = 6, // a value beyond the double range
  TextoExcesivo = 7,  // a text of the algebra grown past its bounds
  DivisionCero = 11,  // a numeric division by zero
  Anidamiento = 28,   // parentheses and function calls nested past a reader's limit
};

constexpr const char* Descripcion(ErrAritmetica error) {
  switch (error) {
  case ErrAritmetica::Argumento:
    return "Argumento fuera del dominio";
  case ErrAritmetica::Desbordamiento:
    return "Desbordamiento";
  case ErrAritmetica::TextoExcesivo:
    return "Expresión demasiado grande";
  case ErrAritmetica::DivisionCero:
    return "División por cero";
  case ErrAritmetica::Anidamiento:
    return "Expresión anidada en exceso";
  }
  return "";
}

// An engine's own user-input codes: a scoped enum other than ErrAritmetica.
template <class Codigo>
concept CodigoDeUsuario = std::is_enum_v<Codigo> && !std::is_convertible_v<Codigo, int> &&
                          !std::is_same_v<Codigo, ErrAritmetica>;

// The number of the user-input error with this code (code 6 is -2147221498).
constexpr std::int32_t NumeroError(int codigo) {
  return static_cast<std::int32_t>(kBaseErrores + static_cast<std::uint32_t>(codigo));
}
template <CodigoDeUsuario Codigo> constexpr std::int32_t NumeroError(Codigo codigo) {
  return NumeroError(static_cast<int>(codigo));
}
// A failure of the arithmetic is its own number.
constexpr std::int32_t NumeroError(ErrAritmetica error) { return static_cast<std::int32_t>(error); }

// Whether a number belongs to the user-input range, and so has its message
// in the raising engine's own table.
constexpr bool EsErrorDeUsuario(std::int32_t numero) {
  const auto n = static_cast<std::uint32_t>(numero);
  return n > kBaseErrores && n < kFinErrores;
}

struct ErrorMotor {
  explicit ErrorMotor(ErrAritmetica error)
      : numero(NumeroError(error)), descripcion(Descripcion(error)) {}
  template <CodigoDeUsuario Codigo>
  explicit ErrorMotor(Codigo codigo) : numero(NumeroError(codigo)) {}

  std::int32_t numero;
  std::string descripcion; // empty for user-input errors: the engine's table gives it
};

// The description an engine's record shows for an error: for a user-input
// number, the message of the engine's table by code (none past its end);
// for any other, the failure's own description.
template <std::size_t N>
std::string DescripcionDe(const ErrorMotor& error, const std::array<const char*, N>& mensajes) {
  if (!EsErrorDeUsuario(error.numero)) return error.descripcion;
  const auto codigo = static_cast<std::uint32_t>(error.numero) - kBaseErrores;
  return codigo < mensajes.size() ? mensajes[codigo] : "";
}

// The error a parser raises when a token it expects is absent: the row of
// its table for that token, or code 0 (no message) for one no rule expects.
template <class Codigo, std::size_t N>
constexpr Codigo ErrorDeEsperado(int token, const std::array<std::pair<int, Codigo>, N>& tabla) {
  for (const auto& [esperado, error] : tabla)
    if (esperado == token) return error;
  return Codigo{};
}
