#pragma once
// The orders of mirkal-cli. Each takes the arguments that follow its name
// and returns the exit status, which scripts use to tell the failures apart.

#include <string>
#include <vector>

inline constexpr int kSalidaBien = 0;
inline constexpr int kSalidaRechazo = 1; // the input was refused
inline constexpr int kSalidaUso = 2;     // the command line was wrong
inline constexpr int kSalidaArchivo = 3; // a file could not be read or written

using Argumentos = std::vector<std::string>;

int OrdenSintaxis(const Argumentos& args);
int OrdenSimplificar(const Argumentos& args);
int OrdenDespejar(const Argumentos& args);
int OrdenDerivar(const Argumentos& args);
int OrdenFormato(const Argumentos& args);
int OrdenAnalizar(const Argumentos& args);

// Writes the short usage to standard error and returns kSalidaUso.
int ErrorDeUso(const std::string& motivo);

// Reports a refused input on standard error: "línea L, columna C: <desc>"
// counted from 1, or the bare description where the error has no place
// (línea < 0). Returns kSalidaRechazo.
int Rechazo(int linea, int columna, const std::string& descripcion);

// Reports on standard error that `origen` (a path, or the standard input)
// could not be read or written, with the file layer's reason. Returns
// kSalidaArchivo.
int FalloDeArchivo(const std::string& origen, const std::string& motivo);
