#include "app/frmAcercaDe.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmAcercaDe::frmAcercaDe(QWidget* padre) : QDialog(padre) {
  setObjectName(QStringLiteral("frmAcercaDe"));
  setWindowTitle(QStringLiteral("Acerca de Mirkal"));

  auto* lblNombre = new QLabel(QStringLiteral("Mirkal"), this);
  lblNombre->setObjectName(QStringLiteral("lblNombre"));
  QFont grande = lblNombre->font();
  grande.setPointSizeF(grande.pointSizeF() * 2);
  grande.setBold(true);
  lblNombre->setFont(grande);
  lblNombre->setAlignment(Qt::AlignCenter);

  auto* lblVersion =
      new QLabel(QStringLiteral("Versión %1").arg(QStringLiteral(MIRKAL_VERSION)), this);
  lblVersion->setObjectName(QStringLiteral("lblVersion"));
  lblVersion->setAlignment(Qt::AlignCenter);

  auto* lblDescripcion = new QLabel(
      QStringLiteral("Editor de ecuaciones que deriva simbólicamente funciones explícitas e "
                     "implícitas y escribe la derivada en el propio documento."),
      this);
  lblDescripcion->setObjectName(QStringLiteral("lblDescripcion"));
  lblDescripcion->setWordWrap(true);
  lblDescripcion->setAlignment(Qt::AlignCenter);

  auto* cmdAceptar = new QPushButton(QStringLiteral("Aceptar"), this);
  cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
  cmdAceptar->setDefault(true);
  auto* botones = new QDialogButtonBox(this);
  botones->addButton(cmdAceptar, QDialogButtonBox::AcceptRole);
  botones->setCenterButtons(true);
  connect(cmdAceptar, &QPushButton::clicked, this, &QDialog::accept);

  auto* marco = new QVBoxLayout(this);
  marco->addWidget(lblNombre);
  marco->addWidget(lblVersion);
  marco->addSpacing(8);
  marco->addWidget(lblDescripcion);
  marco->addSpacing(8);
  marco->addWidget(botones);
  setMinimumWidth(340);
}
