#pragma once
// Number texts to doubles, independent of the process locale (the desktop
// program's locale may well use a decimal comma).

#include <string_view>

// Lenient reading of a number text: skips leading blanks, reads an optional
// sign, digits, one "." and an optional exponent (E, e, D or d, optional
// sign, digits), and stops at the first character that does not fit. Never
// fails: an empty or non-numeric text gives 0, a value beyond the double
// range gives an infinity of its sign, one too small to represent gives 0.
double LeeNumero(std::string_view texto);

// A numeric literal as the lexer reads it, with `separador` as its decimal
// separator. Throws ErrorMotor(ErrAritmetica::Desbordamiento) when the
// value is beyond the double range.
double ConvierteLiteral(std::string_view texto, char separador = '.');
