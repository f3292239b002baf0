#pragma once
// The conversion of a numeric literal of the expression language to a
// double: digits, an optional separator and fraction, an optional exponent
// introduced by D, E, d or e. Independent of the process locale.

#include <string_view>

// Throws ErrorMotor{kErrDesbordamiento} when the value is beyond the double
// range; a value too small to represent becomes 0. The text must be a whole
// literal as the lexer reads it, with `separador` as decimal separator.
double ConvierteLiteral(std::string_view texto, char separador = '.');
