#pragma once
// Settings loaded from the store are not range-checked, so a getter may return,
// say, colour 99. Whoever draws or edits with a setting passes it through
// these, which put the default in place of a value outside its range.

#include "editor/AjustesPresentacion.h"

// The index itself when it lies in the palette, else porDefecto.
int ColorSeguro(int indice, int porDefecto);

// The value itself inside its setter's range, else the setting's default.
float TamFuenteSegura(float tam);
int EspTabSegura(int esp);
