#pragma once
// The printed pages of a document, without a printer: how its rows fall
// into lines of a given width and pages of a given height. A row wider than
// a line goes on in the next lines, each of which starts with a
// continuation mark, so that no character is lost at the page's edge.

#include <string>
#include <vector>

// The mark that starts a line continuing the row above: "» " in the
// document's Windows-1252 bytes.
inline constexpr char kMarcaContinuacion[] = "\xBB ";
inline constexpr int kAnchoMarca = 2;

// The pages of `filas` (Windows-1252 bytes, one character a byte) in lines
// of `columnas` characters and pages of `lineas` lines; every page but the
// last is full. There is always at least one page. Widths too small for the
// mark and a character are taken as the smallest that is not.
std::vector<std::vector<std::string>> Pagina(const std::vector<std::string>& filas, int columnas,
                                             int lineas);
