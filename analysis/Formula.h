#pragma once
// A result as mathematics is typeset, for the window to draw: boxes of text
// in a row, fractions stacked, exponents raised, roots, parentheses. The
// structure is made here, without a window; the window only lays it out.

#include <ginac/ginac.h>

#include <string>
#include <vector>

struct Formula {
  enum Tipo { Texto, Fila, Fraccion, Potencia, Raiz, Parentesis };
  Tipo tipo = Texto;
  std::string texto;    // Texto: what is written
  bool cursiva = false; // Texto: a variable, in italics; names and numbers upright
  std::vector<Formula> hijos;
};

Formula EnFormula(const GiNaC::ex& e);
