#pragma once
// frmReemp: the replace dialog. "Reemplazar" goes through the matches from
// the selection's start (or the cursor) to the end of the document and asks
// before each one; "Reemplazar todo" replaces every match of the document
// without asking, as one undo step. The dialog stays open after either.
//
// The question goes through the Buscador, which this dialog gives a handler
// for as long as it lives. Before each question and after each command the
// dialog emits reemplazado(): the selection or the text has changed and the
// main window must redraw the view.

#include <QDialog>

#include "app/CamposBusquedaQt.h"

class Buscador;

class frmReemp : public QDialog {
  Q_OBJECT
public:
  frmReemp(Buscador& buscador, Editor& editor, QWidget* padre = nullptr);
  ~frmReemp() override;

  // The two buttons; each returns how many matches were replaced.
  int ReemplazaUnoAUno();
  int ReemplazaTodo();

signals:
  void reemplazado();

private:
  int Reemplaza(bool todos);

  Buscador& buscador_;
  Editor& editor_;
  CamposBusqueda campos_;
};
