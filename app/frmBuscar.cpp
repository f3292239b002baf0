#include "app/frmBuscar.h"

#include <QPushButton>

#include "editor/Buscador.h"
#include "editor/Editor.h"

frmBuscar::frmBuscar(Buscador& buscador, Editor& editor, QWidget* padre)
    : QDialog(padre), buscador_(buscador), editor_(editor), campos_(this, editor, false) {
  setObjectName(QStringLiteral("frmBuscar"));
  setWindowTitle(QStringLiteral("Buscar"));
  auto* cmdBuscar = new QPushButton(QStringLiteral("Buscar &siguiente"), this);
  cmdBuscar->setObjectName(QStringLiteral("cmdBuscar"));
  campos_.Dispone(this, {cmdBuscar});
  connect(cmdBuscar, &QPushButton::clicked, this, &frmBuscar::BuscaSiguiente);
}

bool frmBuscar::BuscaSiguiente() {
  if (campos_.Vacio()) return false;
  campos_.Recuerda();
  const Posicion cursor = editor_.Doc().Cursor();
  int fila = cursor.fila, col = cursor.col;
  const bool hallado = buscador_.Search(campos_.Texto(), fila, col, campos_.PalabraCompleta(),
                                        campos_.ModoMayusculas());
  emit buscado();
  return hallado;
}
