#include "app/CamposBusquedaQt.h"

#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Controles.h"
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

CamposBusqueda::CamposBusqueda(QDialog* dialogo, const Editor& editor, bool reemplazo) {
  txtBuscar = Nombrado(new QLineEdit(dialogo), "txtBuscar");
  if (reemplazo) txtReemp = Nombrado(new QLineEdit(dialogo), "txtReemp");
  chkMayusMinus =
      Nombrado(new QCheckBox(QStringLiteral("Coincidir &mayúsculas y minúsculas"), dialogo),
               "chkMayusMinus");
  chkPalCmp = Nombrado(new QCheckBox(QStringLiteral("Palabra &completa"), dialogo), "chkPalCmp");

  const OpcionesBusqueda& ultima = UltimaBusqueda();
  txtBuscar->setText(TextoPropuesto(editor));
  txtBuscar->selectAll();
  chkMayusMinus->setChecked(ultima.mayusMinus);
  chkPalCmp->setChecked(ultima.palabraCompleta);
}

void CamposBusqueda::Dispone(QDialog* dialogo, const std::vector<QPushButton*>& acciones) {
  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("&Buscar:"), txtBuscar);
  if (txtReemp) campos->addRow(QStringLiteral("Reemplazar &por:"), txtReemp);
  auto* izquierda = new QVBoxLayout;
  izquierda->addLayout(campos);
  izquierda->addWidget(chkMayusMinus);
  izquierda->addWidget(chkPalCmp);
  izquierda->addStretch();

  auto* cancelar = Nombrado(new QPushButton(QStringLiteral("Cancelar"), dialogo), "cmdCancelar");
  QObject::connect(cancelar, &QPushButton::clicked, dialogo, &QDialog::reject);
  auto* botones = new QVBoxLayout;
  for (QPushButton* b : acciones) {
    b->setAutoDefault(false);
    botones->addWidget(b);
  }
  cancelar->setAutoDefault(false);
  botones->addWidget(cancelar);
  botones->addStretch();
  if (!acciones.empty()) acciones.front()->setDefault(true);

  auto* marco = new QHBoxLayout(dialogo);
  marco->addLayout(izquierda, 1);
  marco->addLayout(botones);

  const auto habilita = [this, acciones] {
    for (QPushButton* b : acciones)
      b->setEnabled(!Vacio());
  };
  habilita();
  QObject::connect(txtBuscar, &QLineEdit::textChanged, dialogo, habilita);
}

bool CamposBusqueda::Vacio() const { return txtBuscar->text().isEmpty(); }
std::string CamposBusqueda::Texto() const { return txtBuscar->text().toStdString(); }
std::string CamposBusqueda::Reemplazo() const {
  return txtReemp ? txtReemp->text().toStdString() : std::string();
}
bool CamposBusqueda::PalabraCompleta() const { return chkPalCmp->isChecked(); }
int CamposBusqueda::ModoMayusculas() const { return chkMayusMinus->isChecked() ? 0 : 1; }

void CamposBusqueda::Recuerda() const {
  UltimaBusqueda() = {txtBuscar->text(), chkMayusMinus->isChecked(), chkPalCmp->isChecked()};
}
