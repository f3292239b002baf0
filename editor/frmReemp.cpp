#include "editor/frmReemp.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Dialogos.h"
#include "editor/Buscador.h"
#include "editor/Editor.h"
#include "editor/frmBuscar.h"

frmReemp::frmReemp(Buscador& buscador, Editor& editor, QWidget* padre)
    : QDialog(padre), buscador_(buscador), editor_(editor) {
  setObjectName(QStringLiteral("frmReemp"));
  setWindowTitle(QStringLiteral("Reemplazar"));

  txtBuscar = new QLineEdit(this);
  txtBuscar->setObjectName(QStringLiteral("txtBuscar"));
  txtReemp = new QLineEdit(this);
  txtReemp->setObjectName(QStringLiteral("txtReemp"));
  chkMayusMinus = new QCheckBox(QStringLiteral("Coincidir mayúsculas y minúsculas"), this);
  chkMayusMinus->setObjectName(QStringLiteral("chkMayusMinus"));
  chkPalCmp = new QCheckBox(QStringLiteral("Palabra completa"), this);
  chkPalCmp->setObjectName(QStringLiteral("chkPalCmp"));
  cmdSí = new QPushButton(QStringLiteral("Reemplazar"), this);
  cmdSí->setObjectName(QStringLiteral("cmdSí"));
  cmdSí->setDefault(true);
  cmdReplaceAll = new QPushButton(QStringLiteral("Reemplazar todo"), this);
  cmdReplaceAll->setObjectName(QStringLiteral("cmdReplaceAll"));
  cmdReplaceAll->setAutoDefault(false);
  cmdCancelar = new QPushButton(QStringLiteral("Cancelar"), this);
  cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
  cmdCancelar->setAutoDefault(false);

  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("&Buscar:"), txtBuscar);
  campos->addRow(QStringLiteral("Reemplazar &por:"), txtReemp);
  auto* izquierda = new QVBoxLayout;
  izquierda->addLayout(campos);
  izquierda->addWidget(chkMayusMinus);
  izquierda->addWidget(chkPalCmp);
  izquierda->addStretch();
  auto* botones = new QVBoxLayout;
  botones->addWidget(cmdSí);
  botones->addWidget(cmdReplaceAll);
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
  auto habilita = [this] {
    const bool hayTexto = !txtBuscar->text().isEmpty();
    cmdSí->setEnabled(hayTexto);
    cmdReplaceAll->setEnabled(hayTexto);
  };
  habilita();
  connect(txtBuscar, &QLineEdit::textChanged, this, habilita);
  connect(cmdSí, &QPushButton::clicked, this, &frmReemp::ReemplazaUnoAUno);
  connect(cmdReplaceAll, &QPushButton::clicked, this, &frmReemp::ReemplazaTodo);
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);

  buscador_.FijaPregunta([this](const std::string& texto) {
    // The match is selected: show it before asking about it.
    emit reemplazado();
    switch (Dialogos::Pregunta(this, QString::fromStdString(texto))) {
    case Dialogos::Respuesta::Si:
      return Respuesta::Si;
    case Dialogos::Respuesta::No:
      return Respuesta::No;
    case Dialogos::Respuesta::Cancelar:
      break;
    }
    return Respuesta::Cancelar;
  });
}

frmReemp::~frmReemp() {
  // The handler points at this dialog; without one the Buscador answers
  // Cancelar, as it did before the dialog was opened.
  buscador_.FijaPregunta({});
}

int frmReemp::ReemplazaUnoAUno() { return Reemplaza(false); }
int frmReemp::ReemplazaTodo() { return Reemplaza(true); }

int frmReemp::Reemplaza(bool todos) {
  if (txtBuscar->text().isEmpty()) return 0;
  UltimaBusqueda() = {txtBuscar->text(), chkMayusMinus->isChecked(), chkPalCmp->isChecked()};
  const Documento& doc = editor_.Doc();
  // Replacing all means the whole document. One by one starts where the
  // selection starts, so that a match just found is the first one offered.
  Posicion desde = todos ? Posicion{} : doc.HaySel() ? doc.InicioSel() : doc.Cursor();
  const int hechos =
      buscador_.Reemp(txtBuscar->text().toStdString(), txtReemp->text().toStdString(), desde.fila,
                      desde.col, chkPalCmp->isChecked(), chkMayusMinus->isChecked() ? 0 : 1,
                      todos ? ModoReemplazo::Todos : ModoReemplazo::UnoAUno);
  emit reemplazado();
  return hechos;
}
