#pragma once
// FormatNum: rewrites the numbers inside a finished result text for display,
// each rounded to CifRed decimal places or written as a fraction; every other
// token is copied as read (blanks and comments disappear).

#include <string>

#include "lang/AnaLex.h"

class FormatNum {
public:
  FormatNum();

  bool OutFracc() const { return outFracc_; }
  void OutFracc(bool valor) { outFracc_ = valor; }
  // Decimal places kept: 0 to 300; any other value is ignored silently.
  int CifRed() const { return cifRed_; }
  void CifRed(int valor);

  std::string FCoef(const std::string& texto);
  // The fraction text of numerador/denominador, by the same writer as FCoef
  // ("" when the quotient is not a finite number).
  std::string CFr(double numerador, double denominador);
  // x rounded half away from zero to n decimal places.
  double RedN(double x, int n);

private:
  std::string Fraccion(double x);

  AnaLex lex_;
  bool outFracc_ = false;
  int cifRed_ = 5;
};
