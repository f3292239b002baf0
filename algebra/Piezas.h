#pragma once
// Writing sums and terms as text, shared by the combining operations and the
// solver.

#include <string>
#include <string_view>

#include "algebra/TextoNumero.h"

// Appends a signed piece to a sum being written: "+" before a piece that has
// no sign of its own; none before the first piece.
inline void Une(std::string& suma, std::string_view pieza) {
  if (!pieza.empty() && pieza.front() == '+') pieza.remove_prefix(1);
  if (!suma.empty() && (pieza.empty() || pieza.front() != '-')) suma += '+';
  suma += pieza;
}

// A term written from its numeric coefficient and its other factors.
inline std::string EscribeTermino(double coef, const std::string& factores) {
  if (factores.empty()) return TextoNumero(coef);
  if (coef == 1) return factores;
  if (coef == -1) return "-" + factores;
  return TextoNumero(coef) + "*" + factores;
}
