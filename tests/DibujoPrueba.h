#pragma once
// Pictures of a document for the tables of the editor, the document model and
// find and replace (and "c{n}" for any long text): rows separated by "\n", "|"
// for the cursor, "[" for the selection's anchor and "]" for its moving end;
// "c{n}" stands for n times the character c (one byte or one UTF-8
// character), so that long rows stay readable.

#include <string>
#include <vector>

#include "Casos.h"
#include "editor/Editor.h"
#include "lang/Cp1252.h"

namespace prueba {

// Loads a picture: its characters as the rows hold them, one byte each (the
// marks are ASCII); the cursor is at "]" when not drawn.
inline void Prepara(Editor& ed, const std::string& dibujo) {
  const std::string kMarcas = "|[]";
  std::vector<std::string> filas(1);
  Posicion marcas[3] = {{-1, 0}, {-1, 0}, {-1, 0}}; // cursor, anchor, moving end
  for (const char c : Utf8ACp1252(Expande(dibujo))) {
    const Posicion aqui{static_cast<int>(filas.size()) - 1, static_cast<int>(filas.back().size())};
    const auto k = kMarcas.find(c);
    if (k != std::string::npos) marcas[k] = aqui;
    if (c == '\n') filas.emplace_back();
    if (c != '\n' && k == std::string::npos) filas.back() += c;
  }
  auto [cursor, ancla, extremo] = marcas;
  ed.Carga(filas);
  if (cursor.fila < 0) cursor = extremo.fila >= 0 ? extremo : Posicion{};
  ed.Doc().MueveCursor(cursor.fila, cursor.col);
  if (ancla.fila >= 0) ed.Doc().FijaSeleccion(ancla, extremo);
}

// Read back, "[" marks the selection's first end and "]" its last; or, with
// `ancla`, its anchor and its moving end, as a picture is loaded.
inline std::string Dibujo(const Documento& d, bool ancla = false) {
  const Posicion a = ancla ? d.Sel1() : d.InicioSel(), b = ancla ? d.Sel2() : d.FinSel();
  std::string out;
  for (int f = 0; f < d.NumFilas(); ++f) {
    if (f > 0) out += "\n";
    for (int c = 0; c <= d.LongFila(f); ++c) {
      const Posicion p{f, c};
      if (d.HaySel() && p == a) out += "[";
      if (p == d.Cursor()) out += "|";
      if (d.HaySel() && p == b) out += "]";
      if (c < d.LongFila(f)) out += Cp1252AUtf8(std::string(1, static_cast<char>(d.Fila(f)[c])));
    }
  }
  return out;
}

inline std::string Dibujo(const Editor& ed) { return Dibujo(ed.Doc()); }

} // namespace prueba
