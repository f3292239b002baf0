#pragma once
// The classic 16-colour text-mode palette in which every colour setting is an
// index.

#include <array>
#include <cstdint>

inline constexpr int kNumColores = 16;

inline constexpr bool EsColor(int indice) { return indice >= 0 && indice < kNumColores; }

// The colour of an index as 0xRRGGBB; black outside the palette.
std::uint32_t ColorPaleta(int indice);

// The entries by name, in index order, as the dialog lists them.
inline constexpr std::array<const char*, kNumColores> kNombresColor{
    "Negro",      "Azul",         "Verde",          "Agua marina",
    "Rojo",       "Fucsia",       "Amarillo",       "Blanco",
    "Gris",       "Azul claro",   "Verde claro",    "Agua marina claro",
    "Rojo claro", "Fucsia claro", "Amarillo claro", "Blanco brillante"};
