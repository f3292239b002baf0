#pragma once
// The vocabulary of the expression language, in one place. Every client (the
// syntax checker, the calculator, the editor's colouring, the help) registers
// these words with its own codes, always in this order.

#include <array>
#include <string_view>

// The functions of one argument, in their fixed order.
inline constexpr std::array<std::string_view, 26> kFunciones = {
    "Log",    "Ln",    "Sin",     "Cos",      "Tg",     "Sec",     "Cosec",     "Ctg",    "ArcSin",
    "ArcCos", "ArcTg", "ArcSec",  "ArcCosec", "ArcCtg", "SinH",    "CosH",      "TgH",    "SecH",
    "CosecH", "CtgH",  "ArcSinH", "ArcCosH",  "ArcTgH", "ArcSecH", "ArcCosecH", "ArcCtgH"};

// The constants: pi and Euler's number.
inline constexpr std::array<std::string_view, 2> kConstantes = {"Pi", "e"};
