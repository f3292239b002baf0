#pragma once
// The analysis of an equation beside the engine's own derivation: dy/dx in
// lowest terms, d²y/dx², their values at a point with the tangent and normal
// lines there, and LaTeX of each, worked out exactly with GiNaC. Nothing
// here changes what the derivation commands write.

#include <map>
#include <string>

#include "analysis/Formula.h"

struct ResultadoAnalisis {
  std::string error;                       // Spanish; empty when the analysis was made
  std::string ecuacion, derivada, segunda; // in Mirkal's language
  std::string latexEcuacion, latexDerivada, latexSegunda;
  Formula formulaEcuacion, formulaDerivada, formulaSegunda; // typeset
  bool explicita = false;                                   // y = f(x): the point needs only x
  // At the point asked for, if any.
  bool conPunto = false;
  std::string x0, y0, pendiente, segundaEnPunto, tangente, normal;
  double pendienteDecimal = 0, segundaDecimal = 0;
};

class Analisis {
public:
  std::string VarDep() const { return varDep_; }
  void VarDep(const std::string& nombre) { varDep_ = nombre; }
  std::string VarInd() const { return varInd_; }
  void VarInd(const std::string& nombre) { varInd_ = nombre; }

  // `punto` is "" or the values of the variables, "x=3,y=4" (an explicit
  // equation needs only the independent one).
  ResultadoAnalisis Analiza(const std::string& ecuacion, const std::string& punto = "") const;

private:
  std::string varDep_ = "y", varInd_ = "x";
};

// The largest equation, and the largest derivative, counted in nodes, that
// the analysis takes on: GiNaC's normal form, which brings a result over one
// denominator and expands it, takes a time that grows steeply with them. An
// equation of 500 nodes (a product of 64 binomials, a nested quotient of 64
// levels) is analysed in under half a second; one of twice that can take
// minutes, and is refused at once instead. Typical equations have under 100.
inline constexpr int kMaxNodosEcuacion = 500;
inline constexpr int kMaxNodosResultado = 20000;
