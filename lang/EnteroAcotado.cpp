#include "lang/EnteroAcotado.h"

#include "lang/Caracteres.h"

std::optional<int> EnteroAcotado(std::string_view texto, int minimo, int maximo) {
  const auto ini = texto.find_first_not_of(" \t");
  if (ini == std::string_view::npos) return std::nullopt;
  const auto fin = texto.find_last_not_of(" \t");
  // Wide enough for ten times the largest int: stopping as soon as the value
  // passes the maximum keeps any run of digits from overflowing.
  long long valor = 0;
  for (std::size_t i = ini; i <= fin; ++i) {
    if (!EsDigito(static_cast<unsigned char>(texto[i]))) return std::nullopt;
    valor = valor * 10 + (texto[i] - '0');
    if (valor > maximo) return std::nullopt;
  }
  if (valor < minimo) return std::nullopt;
  return static_cast<int>(valor);
}
