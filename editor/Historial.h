#pragma once
// The history of changes for undo and redo: at most 32 records. Each record
// holds what one command did as a list of replacements (at a position, the
// text removed and the text put in its place), so that it can be taken back
// and applied again. Consecutive typing, Backspace or Delete continue the
// record in force instead of making a new one.

#include <string>
#include <vector>

#include "editor/Documento.h"

// Kinds of change: the editing command codes, and the word that names them.
enum TipoCambio : int {
  kEscribir = 0,
  kEliminarSel = 2,
  kEscribirTexto = 3, // text written by a command (the derivation results)
  kRetroceso = 4,
  kSuprimir = 6,
  kCortar = 8,
  kPegar = 10,
  kSaltoLinea = 14,
  kReemplazar = 16,
  kReemplazarTodo = 17,
};

struct Reemplazo {
  Posicion pos;
  std::string quitado, puesto; // Windows-1252, rows separated by "\r\n"
};

struct Cambio {
  int tipo = kEscribir;
  std::vector<Reemplazo> pasos; // applied in order; undone in reverse
};

class Historial {
public:
  static constexpr int kMaxRegistros = 32;

  // Records a change just made: it continues the record in force when it is
  // the same kind of change at the matching place, otherwise it takes a new
  // record. Records that could be redone are discarded.
  void RegistraCambio(const Cambio& cambio);

  // Adds one more step to the record in force (replace-all is undone in one
  // step); records that could be redone are discarded.
  void AñadePaso(const Reemplazo& paso);

  // The record to undo, or nullptr; Deshecho() then steps back.
  const Cambio* ADeshacer() const;
  void Deshecho() { --pos_; }
  // The record to redo, or nullptr; Rehecho() then steps forward.
  const Cambio* ARehacer() const;
  void Rehecho() { ++pos_; }

  // The captions of the two commands and whether they are enabled.
  std::string TextoDeshacer() const;
  std::string TextoRehacer() const;
  bool PuedeDeshacer() const { return pos_ >= 0; }
  bool PuedeRehacer() const { return pos_ < ult_; }

  int PosHistorial() const { return pos_; }
  int UltHistorial() const { return ult_; }
  void Vacia() { registros_.clear(), pos_ = ult_ = limpio_ = -1; }

  // The clean state: where the document was last loaded or saved. Undoing
  // or redoing back to it leaves the document unmodified; a change that
  // discards it (a new change after undoing past it, the record it was in
  // dropped, that record changed) makes it unreachable until the next save.
  void MarcaLimpio() { limpio_ = pos_; }
  bool EnLimpio() const { return pos_ == limpio_; }

  // The word of a kind in the captions ("escribir", ...; "" for Enter).
  static std::string Palabra(int tipo);

private:
  void NuevoPasoHistorial();
  static bool Continua(Cambio& previo, const Cambio& nuevo);

  // Discards what could be redone, and with it a clean state there.
  void CortaRehacer();

  static constexpr int kInalcanzable = -2;
  std::vector<Cambio> registros_;
  int pos_ = -1, ult_ = -1;
  int limpio_ = -1;
};
