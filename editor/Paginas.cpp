#include "editor/Paginas.h"

#include <algorithm>

std::vector<std::vector<std::string>> Pagina(const std::vector<std::string>& filas, int columnas,
                                             int lineas) {
  columnas = std::max(columnas, kAnchoMarca + 1);
  lineas = std::max(lineas, 1);
  std::vector<std::string> todas;
  for (const std::string& fila : filas) {
    todas.push_back(fila.substr(0, static_cast<std::size_t>(columnas)));
    const auto resto = static_cast<std::size_t>(columnas - kAnchoMarca);
    for (std::size_t desde = static_cast<std::size_t>(columnas); desde < fila.size();
         desde += resto)
      todas.push_back(kMarcaContinuacion + fila.substr(desde, resto));
  }
  std::vector<std::vector<std::string>> paginas;
  for (std::size_t i = 0; i < todas.size(); i += static_cast<std::size_t>(lineas))
    paginas.emplace_back(todas.begin() + static_cast<std::ptrdiff_t>(i),
                         todas.begin() + static_cast<std::ptrdiff_t>(std::min(
                                             todas.size(), i + static_cast<std::size_t>(lineas))));
  if (paginas.empty()) paginas.emplace_back();
  return paginas;
}
