#pragma once
// frmAcercaDe: the about box, with the program's name, its version and what
// it does.

#include <QDialog>

class frmAcercaDe : public QDialog {
  Q_OBJECT
public:
  explicit frmAcercaDe(QWidget* padre = nullptr);
};
