#pragma once
// Whole numbers typed into a settings box.

#include <optional>
#include <string_view>

// The number a text stands for when it is a whole number from `minimo` to
// `maximo` (0 <= minimo <= maximo) written with decimal digits alone, blanks
// (spaces and tabs) around it allowed; nothing otherwise. No sign, no
// decimal point, no blanks between the digits: a box shows what it means.
std::optional<int> EnteroAcotado(std::string_view texto, int minimo, int maximo);
