#pragma once
// mirkal-cli derivar --lote: many equations, one a line, on `hilos` threads.

#include <string_view>

#include "commands/ConfigDerivacion.h"

// With --pasos each equation's answer is its steps and then its result (or
// its error), a line each, and this line closes it.
inline constexpr std::string_view kSeparadorLote = "----";

// Answers every line of standard input; kSalidaRechazo when any was refused.
int Lote(const ConfigDerivacion& config, bool pasos, int hilos);
