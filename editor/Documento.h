#pragma once
// Documento: the text being edited, as rows of 16-bit cells (the character's
// Windows-1252 byte in the low byte, its colour index in the high byte), with
// the cursor and the selection. Line breaks are not stored: between two rows
// there is one implicit "\r\n", two characters long in every length counted
// over a selection.
//
// Invariants: there is always at least one row; the cursor and both
// selection ends lie within their rows (0 .. row length). The selection ends
// are not kept in order: the anchor (Sel1) is where the selection started,
// Sel2 moves with the cursor.
//
// Text crosses this class's boundary as UTF-8, except in the byte-level
// primitives that the editing commands and the history use.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct Posicion {
  int fila = 0, col = 0;
  friend bool operator==(const Posicion&, const Posicion&) = default;
  friend bool operator<(const Posicion& a, const Posicion& b) {
    return a.fila < b.fila || (a.fila == b.fila && a.col < b.col);
  }
};

using Celda = std::uint16_t;
using FilaCeldas = std::vector<Celda>;

class Documento {
public:
  // A typed row holds at most this many cells (a loaded row may hold more).
  static constexpr int kMaxCeldas = 256;

  Documento() : filas_(1) {}

  int NumFilas() const { return static_cast<int>(filas_.size()); }
  int LongFila(int fila) const { return static_cast<int>(filas_[Indice(fila)].size()); }
  const FilaCeldas& Fila(int fila) const { return filas_[Indice(fila)]; }
  void PonColorCelda(int fila, int col, int color);

  std::string GetTextFila(int fila) const;
  std::string GetTextSel() const;
  std::string GetTextSelFil1() const;
  int LongSel() const;
  std::string TextoDocumento() const;
  // Selects `largo` characters of one row; does nothing at all when the span
  // is not inside the row.
  void SelectText(int fila, int col, int largo);

  Posicion Cursor() const { return cursor_; }
  void MueveCursor(int fila, int col); // clamped into the document
  bool HaySel() const { return haySel_; }
  Posicion Sel1() const { return sel1_; }
  Posicion Sel2() const { return sel2_; }
  void FijaSeleccion(Posicion ancla, Posicion extremo); // HaySel when they differ
  void QuitaSeleccion() { haySel_ = false; }
  // The selection's ends in document order.
  Posicion InicioSel() const { return sel2_ < sel1_ ? sel2_ : sel1_; }
  Posicion FinSel() const { return sel2_ < sel1_ ? sel1_ : sel2_; }

  // Byte-level primitives (Windows-1252, rows separated by "\r\n").
  std::string Bytes(Posicion desde, Posicion hasta) const;
  // Inserts at `p` and returns the position just after the text. New cells
  // take the colour `color`.
  Posicion Inserta(Posicion p, std::string_view bytes, int color);
  // Removes [desde, hasta) and returns the removed text.
  std::string Quita(Posicion desde, Posicion hasta);
  // The position reached by writing `bytes` from `p`.
  static Posicion Fin(Posicion p, std::string_view bytes);
  // Replaces every row (at least one) and puts the cursor at the start.
  void Carga(const std::vector<std::string>& filas, int color);
  std::string BytesFila(int fila) const;

private:
  std::size_t Indice(int fila) const { return static_cast<std::size_t>(fila); }

  std::vector<FilaCeldas> filas_;
  Posicion cursor_, sel1_, sel2_;
  bool haySel_ = false;
};
