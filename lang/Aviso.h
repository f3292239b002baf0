#pragma once
// Programmer warnings of the engines: a misconfigured lexer or calculator
// (a bad keyword, a duplicate operator, a bad decimal separator, a restore on
// an empty state stack). The engines never show anything themselves; they
// report through one replaceable handler. The default writes
// "<program><origen>: <texto>" to standard error; the desktop program installs
// one that shows a warning box titled "<program><origen>".

#include <functional>
#include <string>

using ManejadorAviso = std::function<void(const std::string& origen, const std::string& texto)>;

// Replaces the handler; an empty one restores the default.
void FijaManejadorAviso(ManejadorAviso manejador);

// Reports one warning through the current handler.
void Avisa(const std::string& origen, const std::string& texto);

// The executable's name, the first part of a warning's title.
std::string NombrePrograma();
