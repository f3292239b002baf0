#pragma once
// CalcSimbolic: turns an expression text into a simplified expression text,
// without ever building a tree (the workings are in algebra/CalcInterno.h).
// Numbers are carried as text in the one number format (TextoNumero).
// Every public member runs under an error trap: bad input fills ErrNumber and
// ErrDesc and nothing escapes.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

class MotorCalc;

class CalcSimbolic {
public:
  CalcSimbolic();
  ~CalcSimbolic();
  CalcSimbolic(const CalcSimbolic& otra);
  CalcSimbolic& operator=(const CalcSimbolic& otra);
  CalcSimbolic(CalcSimbolic&&) noexcept;
  CalcSimbolic& operator=(CalcSimbolic&&) noexcept;

  std::string ErrDesc() const;
  std::int32_t ErrNumber() const;

  // Setting CalcExpNum, to either value, also switches ResolveConst on: a
  // caller that asks for numeric evaluation always gets constants resolved.
  bool CalcExpNum() const;
  void CalcExpNum(bool valor);
  bool ResolveConst() const;
  void ResolveConst(bool valor);
  // Decimal separator of the input: "." or ",". Results always use ".".
  std::string PuntoDec() const;
  void PuntoDec(const std::string& separador);

  // The simplified form of `exp`; "" on error.
  std::string Calc(const std::string& exp);
  // `ecu` is "L = R"; on success it becomes the simplified text of L-(R).
  // Its trap is reduced: on failure it sets ErrNumber only (ErrDesc may
  // belong to an earlier call) and `ecu` may hold the simplified L.
  bool IguCero(std::string& ecu);
  // Solves exp = 0 for `var` when exp has the form a*var^n + b (a, n, b free
  // of var); "" on error.
  std::string Desp_axNb(const std::string& exp, const std::string& var);

  // Rounding digits kept for the caller; not used by the arithmetic.
  int CifRedInt() const;
  void CifRedInt(int valor);

private:
  std::unique_ptr<MotorCalc> motor_;
};

// The calculator's user-input errors, by code: what was expected, or what
// went wrong.
enum class ErrCalc {
  SinMensaje = 0,      // an expected token that no rule of the parser expects
  EsperaAbre = 1,      // a function name without its "("
  EsperaCierra = 2,    // a "(" left open
  EsperaExpresion = 3, // a token that cannot start an operand
  EsperaIgual = 4,     // IguCero given no "="
  EsperaFin = 5,       // text after a complete expression
  DivisionPorCero = 6, // a divisor that simplifies to "0"
  NoDespeja = 7,       // not of the form a*var^n + b
};

// The calculator reads texts that the differentiation rules build, which nest
// one level for every term of a sum; any nesting the thread's stack has no
// room left for is refused too (lang/Pila.h).
inline constexpr int kMaxAnidamientoCalc = 10000;
// A text of the algebra larger than kMaxTexto bytes: sums brought over one
// denominator without cancelling can grow without bound on nested quotients.
// Typical derivatives stay under 1 KB; the largest benchmarked results reach
// about 100 KB in well under a second.
inline constexpr std::size_t kMaxTexto = 256 * 1024;
