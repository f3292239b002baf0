#pragma once
// The one number format of the algebra: at most 15 significant digits,
// rounded; "." as separator; no leading zero (".5", "-.25"); no trailing
// zeros nor separator; exponent form (1E+20, 1.5E-07: capital E, explicit
// sign, at least two digits) outside the plain range below.

#include <string>

// Decimal exponents written in plain notation: 1E-05 is ".00001",
// 1E-06 is "1E-06"; 1E+14 is "100000000000000", 1E+15 is "1E+15".
inline constexpr int kExpPlanoMin = -5;
inline constexpr int kExpPlanoMax = 14;

// A finite double in the number format; -0 is "0".
std::string TextoNumero(double valor);

// The significant digits of a finite non-zero double as the number format
// writes them: at most 15, correctly rounded, trailing zeros dropped. The
// value is ±d.ddd × 10^exponente.
struct CifrasDecimales {
  bool negativo;
  std::string digitos;
  int exponente;
};
CifrasDecimales Cifras15(double valor);
