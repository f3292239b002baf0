#pragma once
// The checker's normalised text as an exact GiNaC expression: decimals as
// rationals, Pi and e as GiNaC's own constants, and each of the language's
// functions with exactly the meaning the calculator's numeric evaluation
// gives it (algebra/FuncionesNum), written with GiNaC's functions where the
// two agree and as functions of this layer's own where they do not.

#include <ginac/ginac.h>

#include <map>
#include <stdexcept>
#include <string>

// A text the reader cannot take; its message is Spanish and says where.
struct ErrorAnalisis : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The variables of an expression, by their names in upper case.
using Variables = std::map<std::string, GiNaC::symbol>;

// Reads one expression (no "="); every name becomes a symbol of `variables`,
// added as it is met. The text must be the checker's normalised form.
GiNaC::ex LeeExpresion(const std::string& texto, Variables& variables);

// ArcSec and ArcCosec as the calculator computes them (the classic
// arc-tangent formulas, which differ from the textbook inverses).
GiNaC::ex ArcSecante(const GiNaC::ex& x);
GiNaC::ex ArcCosecante(const GiNaC::ex& x);
