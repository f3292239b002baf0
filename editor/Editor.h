#pragma once
// Editor: everything a user can do to a document, without a window. The
// window draws the document and forwards keys, mouse and menu commands here;
// tests call the same operations directly.
//
// Every change goes through Aplica, which edits the rows, recolours the rows
// it touched, marks the document modified and notes which rows the view must
// draw again; every command records its change in the history.

#include <string>
#include <vector>

#include "editor/Coloreador.h"
#include "editor/Documento.h"
#include "editor/Historial.h"

// What a command did: `hecho` false when it was refused; `aviso` holds the
// Spanish message to show, if any (a refusal by the row limit is silent when
// typing, as in any editor, but explained when pasting).
struct Resultado {
  bool hecho = true;
  std::string aviso;
};

// Cursor movement codes and editing codes of the commands.
enum MovimientoCursor : int {
  kDerecha = 0,
  kIzquierda,
  kArriba,
  kAbajo,
  kInicio,
  kFin,
  kAvPag,
  kRePag,
  kInicioDoc,  // Ctrl+Home: the document's start
  kFinDoc,     // Ctrl+End: the end of its last row
  kPalabraIzq, // Ctrl+Left: the start of this word or the one before
  kPalabraDer  // Ctrl+Right: the end of this word or the next one
};

// Editing codes beyond the kinds of change: Ctrl+Backspace and Ctrl+Delete
// delete back and forward as far as Ctrl+Left and Ctrl+Right would move.
enum EdicionPalabra : int { kRetrocesoPalabra = 20, kSuprimirPalabra = 22 };

class Editor {
public:
  Editor();

  Documento& Doc() { return doc_; }
  const Documento& Doc() const { return doc_; }
  const Historial& Hist() const { return historial_; }

  // Presentation values that editing and colouring need.
  void Colores(int letra, int palabraClave, int comentario);
  int ColorLetra() const { return colorLetra_; }
  void EspTab(int espacios) { espTab_ = espacios > 0 ? espacios : 1; }
  bool ModoInsertar() const { return modoInsertar_; }
  void ModoInsertar(bool valor) { modoInsertar_ = valor; }

  // EditaCmd: 0 types `texto` (one character), 2 deletes the selection,
  // 4 Backspace, 6 Delete, 8 cuts (the cut text is left in CortadoCopiado()),
  // 10 pastes `texto`, 14 breaks the row (Enter), 20 and 22 delete a word
  // back or forward (EdicionPalabra).
  Resultado EditaCmd(int codigo, const std::string& texto = "");
  // Moves the cursor; with `mayus` (Shift) the selection follows it. Page
  // Down and Page Up move by `filasPagina` rows. Up, Down and the pages keep
  // the column the cursor had before the first of them, through shorter
  // rows, until the cursor is moved or placed otherwise.
  void MueveCursorCmd(int codigo, bool mayus, int filasPagina = 1);
  Resultado InsertaTab();
  // Writes text at the cursor as pasting does (the derivation results).
  Resultado EscribeTexto(const std::string& texto);
  // The insertion operation shared by pasting and EscribeTexto: replaces the
  // selection, splits at line breaks ("\r\n", "\r" or "\n"), leaves the
  // cursor after the text; refused when a row would pass the row limit or a
  // character does not fit a cell.
  Resultado InsertaTexto(const std::string& texto, int tipo);
  const std::string& CortadoCopiado() const { return cortado_; }

  // The mouse: a click places the cursor (with Shift it extends the
  // selection), dragging extends it; a double click selects the word.
  void Pulsa(int fila, int col, bool mayus);
  void Arrastra(int fila, int col);
  void SeleccionaPalabra();

  void Deshacer();
  void Rehacer();

  // Replaces `largo` characters of a row at `col` by `texto`, as one change
  // of kind `tipo`, or as a step of the record in force when `continua`
  // (replace-all undoes in one step). Refused beyond the row limit.
  Resultado ReemplazaEnFila(int fila, int col, int largo, const std::string& texto, int tipo,
                            bool continua);

  // A new, empty document, or rows read from a file (Windows-1252 bytes).
  void Nuevo();
  void Carga(const std::vector<std::string>& filas);
  // Whether the text differs from the one last loaded or saved: false marks
  // the present text as saved (undoing back to it is unmodified again).
  bool Modificado() const { return modificado_ || !historial_.EnLimpio(); }
  void Modificado(bool valor);

  // The rows the view must draw again since the last call: [desde, hasta],
  // hasta -1 meaning to the end of the document; desde -1 when none.
  struct FilasADibujar {
    int desde = -1, hasta = -1;
  };
  FilasADibujar TomaCambios();

private:
  Posicion Aplica(const Reemplazo& r);
  void Deshace(const Reemplazo& r);
  Resultado Cambia(int tipo, Posicion desde, Posicion hasta, const std::string& bytes);
  bool CabeEnFilas(Posicion desde, Posicion hasta, const std::string& bytes) const;
  void Marca(int desde, int hasta);
  void Selecciona(Posicion anterior, bool mayus);
  void DejaSeleccion();
  // Where Ctrl+Left and Ctrl+Right go from `p`: words are the language's
  // names (letters, digits and "_"); a row's end or start steps to the next
  // or previous row.
  Posicion PalabraAntes(Posicion p) const;
  Posicion PalabraDespues(Posicion p) const;

  Documento doc_;
  Historial historial_;
  Coloreador coloreador_;
  std::string cortado_;
  int colorLetra_ = 0;
  int espTab_ = 4;
  bool modoInsertar_ = true;
  bool modificado_ = false; // marked so by the window, whatever the history says
  // The column Up and Down keep, and where they left the cursor.
  int colDeseada_ = 0;
  Posicion trasVertical_{-1, -1};
  FilasADibujar cambios_;
};
