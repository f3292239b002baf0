#pragma once
// What the find and replace dialogs share: the text sought (and, to replace,
// its replacement), the two options, the text they propose on opening and
// what they remember between openings during a run, and their layout of
// fields on the left and a column of buttons on the right.

#include <QString>
#include <string>
#include <vector>

class Editor;
class QCheckBox;
class QDialog;
class QLineEdit;
class QPushButton;

struct OpcionesBusqueda {
  QString texto;
  bool mayusMinus = false;
  bool palabraCompleta = false;
};
OpcionesBusqueda& UltimaBusqueda();

// The text the dialogs propose: the selection when it lies within one row,
// else the last text sought.
QString TextoPropuesto(const Editor& editor);

class CamposBusqueda {
public:
  // The fields inside `dialogo`, filled with the proposed text (selected) and
  // the last options; with `reemplazo`, a second field for the replacement.
  CamposBusqueda(QDialog* dialogo, const Editor& editor, bool reemplazo);

  // Lays `dialogo` out: the fields, and then `acciones` in a column ended by
  // a "Cancelar" button that closes the dialog. The first action is the
  // default button; the actions are enabled only while there is a text.
  void Dispone(QDialog* dialogo, const std::vector<QPushButton*>& acciones);

  bool Vacio() const;
  std::string Texto() const;
  std::string Reemplazo() const;
  bool PalabraCompleta() const;
  // The Buscador's comparison: 0 matches case exactly, 1 ignores it.
  int ModoMayusculas() const;
  // Keeps the text and the options for the next opening.
  void Recuerda() const;

private:
  QLineEdit* txtBuscar = nullptr;
  QLineEdit* txtReemp = nullptr;
  QCheckBox* chkMayusMinus = nullptr;
  QCheckBox* chkPalCmp = nullptr;
};
