#pragma once
// What the presentation dialog decides without its window: the values its
// controls open with, the check of its tab box and what its OK button does.

#include <array>
#include <optional>
#include <string>

#include "editor/Presentacion.h"

// The font sizes the dialog offers.
inline constexpr std::array<int, 10> kTamFuentesDialogo{6, 7, 8, 9, 10, 11, 12, 14, 16, 18};

// The settings as the dialog edits them, with the tab box's text as typed.
// Accepting takes the tab width from txtTab, not from EspTab, and leaves the
// keyword colour, which the dialog does not show, as it is.
struct ValoresPresentar : AjustesPresentacion {
  std::string txtTab;
};

// The controls as the dialog opens: the current settings, the tab width as
// text, and colours outside the palette shown as their defaults so that every
// colour list has an entry to select.
ValoresPresentar AbrePresentar(const Presentacion& p);

// The OK button's check of the tab box: a whole number from 1 to 32, blanks
// around it allowed. The message to show, or nothing.
std::optional<std::string> CompruebaTab(const std::string& txtTab);

// The OK button: when CompruebaTab refuses the tab box, returns its message
// and calls no setter (the dialog stays open with the box selected);
// otherwise calls SetTamFuente, SetEspTab, SetColorLetra, SetScrollBars,
// SetColorLetraSel, SetColorFondoSel, SetColorComment, SetColorFondoEditor in
// that order and returns nothing (the dialog closes).
std::optional<std::string> AceptaPresentar(Presentacion& p, const ValoresPresentar& v);
