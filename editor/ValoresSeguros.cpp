#include "editor/ValoresSeguros.h"

#include "editor/Paleta.h"

int ColorSeguro(int indice, int porDefecto) { return EsColor(indice) ? indice : porDefecto; }

float TamFuenteSegura(float tam) { return EsTamFuente(tam) ? tam : kDefTamFuente; }

int EspTabSegura(int esp) { return EsEspTab(esp) ? esp : kDefEspTab; }
