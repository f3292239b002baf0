#include "editor/frmBuscar.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "editor/Buscador.h"
#include "editor/Editor.h"

OpcionesBusqueda& UltimaBusqueda() {
  static OpcionesBusqueda opciones;
  return opciones;
}

QString TextoPropuesto(const Editor& editor) {
  const Documento& doc = editor.Doc();
  if (doc.HaySel() && doc.InicioSel().fila == doc.FinSel().fila)
    return QString::fromStdString(doc.GetTextSel());
  return UltimaBusqueda().texto;
}

frmBuscar::frmBuscar(Buscador& buscador, Editor& editor, QWidget* padre)
    : QDialog(padre), buscador_(buscador), editor_(editor) {
  setObjectName(QStringLiteral("frmBuscar"));
  setWindowTitle(QStringLiteral("Buscar"));

  txtBuscar = new QLineEdit(this);
  txtBuscar->setObjectName(QStringLiteral("txtBuscar"));
  chkMayusMinus = new QCheckBox(QStringLiteral("Coincidir mayúsculas y minúsculas"), this);
  chkMayusMinus->setObjectName(QStringLiteral("chkMayusMinus"));
  chkPalCmp = new QCheckBox(QStringLiteral("Palabra completa"), this);
  chkPalCmp->setObjectName(QStringLiteral("chkPalCmp"));
  cmdBuscar = new QPushButton(QStringLiteral("Buscar siguiente"), this);
  cmdBuscar->setObjectName(QStringLiteral("cmdBuscar"));
  cmdBuscar->setDefault(true);
  cmdCancelar = new QPushButton(QStringLiteral("Cancelar"), this);
  cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
  cmdCancelar->setAutoDefault(false);

  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("&Buscar:"), txtBuscar);
  auto* izquierda = new QVBoxLayout;
  izquierda->addLayout(campos);
  izquierda->addWidget(chkMayusMinus);
  izquierda->addWidget(chkPalCmp);
  izquierda->addStretch();
  auto* botones = new QVBoxLayout;
  botones->addWidget(cmdBuscar);
  botones->addWidget(cmdCancelar);
  botones->addStretch();
  auto* marco = new QHBoxLayout(this);
  marco->addLayout(izquierda, 1);
  marco->addLayout(botones);

  const OpcionesBusqueda& ultima = UltimaBusqueda();
  txtBuscar->setText(TextoPropuesto(editor_));
  txtBuscar->selectAll();
  chkMayusMinus->setChecked(ultima.mayusMinus);
  chkPalCmp->setChecked(ultima.palabraCompleta);
  cmdBuscar->setEnabled(!txtBuscar->text().isEmpty());

  connect(txtBuscar, &QLineEdit::textChanged, this,
          [this](const QString& texto) { cmdBuscar->setEnabled(!texto.isEmpty()); });
  connect(cmdBuscar, &QPushButton::clicked, this, &frmBuscar::BuscaSiguiente);
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
}

void frmBuscar::Recuerda() {
  UltimaBusqueda() = {txtBuscar->text(), chkMayusMinus->isChecked(), chkPalCmp->isChecked()};
}

bool frmBuscar::BuscaSiguiente() {
  if (txtBuscar->text().isEmpty()) return false;
  Recuerda();
  const Posicion cursor = editor_.Doc().Cursor();
  int fila = cursor.fila, col = cursor.col;
  // Match case compares exactly (mode 0); otherwise case is ignored (1).
  const bool hallado = buscador_.Search(txtBuscar->text().toStdString(), fila, col,
                                        chkPalCmp->isChecked(), chkMayusMinus->isChecked() ? 0 : 1);
  emit buscado();
  return hallado;
}
