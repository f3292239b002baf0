#pragma once
// The orders of mirkal-cli. Each takes the arguments that follow its name
// and returns the exit status: 0 success, 1 the input was refused, 2 bad usage.

#include <string>
#include <vector>

inline constexpr int kSalidaBien = 0;
inline constexpr int kSalidaRechazo = 1;
inline constexpr int kSalidaUso = 2;

using Argumentos = std::vector<std::string>;

int OrdenSintaxis(const Argumentos& args);
int OrdenSimplificar(const Argumentos& args);
int OrdenDespejar(const Argumentos& args);
int OrdenDerivar(const Argumentos& args);
int OrdenFormato(const Argumentos& args);

// Writes the short usage to standard error and returns kSalidaUso.
int ErrorDeUso(const std::string& motivo);

// Reports a refused input on standard error: "línea L, columna C: <desc>"
// counted from 1, or the bare description where the error has no place
// (línea < 0). Returns kSalidaRechazo.
int Rechazo(int linea, int columna, const std::string& descripcion);
