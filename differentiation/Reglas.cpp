#include "differentiation/Reglas.h"

std::string Rellena(std::string_view plantilla, std::string_view a, std::string_view b,
                    std::string_view u) {
  std::string out;
  out.reserve(plantilla.size() + 3 * (a.size() + b.size()) + u.size());
  for (std::size_t i = 0; i < plantilla.size(); ++i) {
    if (plantilla[i] == '{' && i + 2 < plantilla.size() && plantilla[i + 2] == '}') {
      const char c = plantilla[i + 1];
      out += c == 'A' ? a : c == 'B' ? b : u; // {W} and {U} both take the third text
      i += 2;
    } else {
      out += plantilla[i];
    }
  }
  return out;
}
