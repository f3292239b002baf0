#include "app/frmConfig.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/Controles.h"
#include "app/Dialogos.h"

namespace {

QPushButton* NuevoBoton(const char* nombre, const QString& texto, QWidget* padre) {
  auto* boton = Nombrado(new QPushButton(texto, padre), nombre);
  boton->setAutoDefault(false);
  return boton;
}

} // namespace

frmConfig::frmConfig(QWidget* padre) : QDialog(padre) {
  setObjectName(QStringLiteral("frmConfig"));
  setWindowTitle(QStringLiteral("Configuración"));
  // Modal to the main window only: the help window, which the help button
  // opens, must stay usable while the dialog is open.
  setWindowModality(Qt::WindowModal);
  CreaCampos();
  auto* marco = new QVBoxLayout(this);
  marco->addLayout(Campos());
  marco->addWidget(CreaBotones());
  Abre();
}

void frmConfig::CreaCampos() {
  txtVD = Nombrado(new QLineEdit(this), "txtVD");
  txtVI = Nombrado(new QLineEdit(this), "txtVI");
  txtCRE = Nombrado(new QLineEdit(this), "txtCRE");
  txtVD->setToolTip(QStringLiteral("La variable que depende de la otra, por ejemplo y"));
  txtVI->setToolTip(QStringLiteral("La variable respecto de la cual se deriva, por ejemplo x"));
  txtCRE->setToolTip(
      QStringLiteral("Cifras decimales con que se redondean los números, de 0 a 300"));
  chkFracc = Nombrado(new QCheckBox(QStringLiteral("Fracciones"), this), "chkFracc");
  chkFracc->setToolTip(QStringLiteral("Escribir los números del resultado como fracciones"));
  chkSimplificada =
      Nombrado(new QCheckBox(QStringLiteral("Escribir también dy/dx &simplificada"), this),
               "chkSimplificada");
  chkSimplificada->setToolTip(
      QStringLiteral("Añadir tras el resultado la derivada en su forma más simple"));
}

QLayout* frmConfig::Campos() {
  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("Variable &dependiente:"), txtVD);
  campos->addRow(QStringLiteral("Variable &independiente:"), txtVI);
  campos->addRow(QStringLiteral("Cifras de &redondeo:"), txtCRE);
  campos->addRow(QString(), chkFracc);
  campos->addRow(QString(), chkSimplificada);
  return campos;
}

// The buttons are wired one by one: the box's accepted() would close the
// dialog before the checks had a say.
QWidget* frmConfig::CreaBotones() {
  auto* cmdAceptar = NuevoBoton("cmdAceptar", QStringLiteral("Aceptar"), this);
  auto* cmdCancelar = NuevoBoton("cmdCancelar", QStringLiteral("Cancelar"), this);
  auto* cmdAyuda = NuevoBoton("cmdAyuda", QStringLiteral("Ayuda"), this);
  cmdAceptar->setDefault(true);
  auto* botones = new QDialogButtonBox(this);
  botones->addButton(cmdAceptar, QDialogButtonBox::AcceptRole);
  botones->addButton(cmdCancelar, QDialogButtonBox::RejectRole);
  botones->addButton(cmdAyuda, QDialogButtonBox::HelpRole);
  connect(cmdAceptar, &QPushButton::clicked, this, &frmConfig::Acepta);
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdAyuda, &QPushButton::clicked, this,
          [this] { emit ayudaPedida(QStringLiteral("configuracion")); });
  auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(f1, &QShortcut::activated, cmdAyuda, &QPushButton::click);
  return botones;
}

void frmConfig::Abre() {
  txtVD->setText(QString::fromStdString(config_.VarDep));
  txtVI->setText(QString::fromStdString(config_.VarInd));
  txtCRE->setText(QString::number(config_.CifRedExt));
  chkFracc->setChecked(config_.OutFracc);
  chkSimplificada->setChecked(simplificada_);
  txtVD->setFocus();
  txtVD->selectAll();
}

void frmConfig::showEvent(QShowEvent* evento) {
  Abre();
  QDialog::showEvent(evento);
}

QLineEdit* frmConfig::Caja(CampoConfig campo) const {
  switch (campo) {
  case CampoConfig::CifRed:
    return txtCRE;
  case CampoConfig::VarDep:
    return txtVD;
  case CampoConfig::VarInd:
    return txtVI;
  }
  return txtCRE;
}

void frmConfig::Acepta() {
  const std::string cre = txtCRE->text().toStdString();
  const std::string vd = txtVD->text().toStdString();
  const std::string vi = txtVI->text().toStdString();
  if (const auto fallo = CompruebaConfig(cre, vd, vi)) {
    QLineEdit* caja = Caja(fallo->campo);
    caja->selectAll();
    Dialogos::Aviso(this, QString::fromStdString(fallo->mensaje));
    caja->setFocus();
    // The box's own focus-in may have changed the selection the user is to
    // retype over.
    caja->selectAll();
    return;
  }
  config_ = AceptaConfig(cre, vd, vi, chkFracc->isChecked());
  simplificada_ = chkSimplificada->isChecked();
  accept();
}
