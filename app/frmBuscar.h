#pragma once
// frmBuscar: the find dialog. It collects the text sought and the two
// options and has the Buscador look from the document's cursor; it stays
// open, so that each press of "Buscar siguiente" goes on after the match the
// last one selected. Selecting a match is not a change the view notices by
// itself: after every search the dialog emits buscado() and the main window
// redraws.

#include <QDialog>

#include "app/CamposBusquedaQt.h"

class Buscador;

class frmBuscar : public QDialog {
  Q_OBJECT
public:
  frmBuscar(Buscador& buscador, Editor& editor, QWidget* padre = nullptr);

  // One press of "Buscar siguiente"; whether a match was found.
  bool BuscaSiguiente();

signals:
  // A search ran: the selection may have moved, the view must be redrawn.
  void buscado();

private:
  Buscador& buscador_;
  Editor& editor_;
  CamposBusqueda campos_;
};
