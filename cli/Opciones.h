#pragma once
// The one reading of a sub-command's arguments. Each sub-command declares the
// options it takes, then the tokens are read in order:
//   - "--" alone ends the options: every later token is positional;
//   - a token that starts with "--" must be a declared long option;
//   - a token that is exactly a declared short option ("-f") is that option;
//   - any other token is positional text, "-" and "-y = x^3", "-0.5" or
//     "-x-x" included: formulas and numbers often start with a minus sign.
// An option with a value takes the next token as it stands, whatever it
// starts with, so "--cifras -1" reaches the range check.

#include <string>
#include <vector>

#include "cli/Ordenes.h"

struct Opcion {
  std::string larga;      // "--cifras"
  std::string corta = {}; // "-f", or empty where there is none
  bool conValor = false;  // the next token is its value
};

struct OpcionDada {
  std::string larga; // the declared long name, also when the short form was given
  std::string valor; // empty for an option without a value
};

struct ArgumentosLeidos {
  std::vector<OpcionDada> opciones; // in the order given: the last one given wins
  std::vector<std::string> posicionales;

  bool Tiene(const std::string& larga) const;
};

// Reads `args` against the declared options. Returns "" on success, or the
// usage error in Spanish ("opción desconocida: --x", "falta el valor de
// --cifras"), which leaves `leidos` incomplete.
std::string LeeArgumentos(const Argumentos& args, const std::vector<Opcion>& declaradas,
                          ArgumentosLeidos& leidos);
