#include "app/VentanaAyuda.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "app/Controles.h"
#include "app/Dialogos.h"

namespace {

const char* const kIndice = "index.html";

bool TieneAyuda(const QString& carpeta) {
  return QFileInfo(QDir(carpeta).filePath(QString::fromLatin1(kIndice))).isFile();
}

} // namespace

// Beside the program, as the build leaves it, or where an installation puts
// it, relative to the program: bin/mirkal and share/mirkal/help.
QString VentanaAyuda::CarpetaAyuda() {
  const QDir programa(QCoreApplication::applicationDirPath());
  for (const QString& carpeta :
       {programa.filePath(QStringLiteral("help")),
        programa.filePath(QStringLiteral("../share/mirkal/help"))})
    if (TieneAyuda(carpeta)) return QDir::cleanPath(carpeta);
  return QString();
}

QString VentanaAyuda::PaginaDeTema(const QString& tema) {
  static const QStringList temas = {QStringLiteral("lenguaje"), QStringLiteral("ordenes"),
                                    QStringLiteral("configuracion"), QStringLiteral("errores"),
                                    QStringLiteral("ejemplos")};
  if (temas.contains(tema)) return tema + QStringLiteral(".html");
  return QString::fromLatin1(kIndice);
}

VentanaAyuda::VentanaAyuda(QWidget* padre) : QDialog(nullptr, Qt::Window), padre_(padre) {
  setObjectName(QStringLiteral("VentanaAyuda"));
  setWindowTitle(QStringLiteral("Ayuda de Mirkal"));
  setModal(false);
  if (padre) connect(padre, &QObject::destroyed, this, [this] { delete this; });

  txtAyuda = Nombrado(new QTextBrowser(this), "txtAyuda");
  txtAyuda->setOpenLinks(true);
  txtAyuda->setOpenExternalLinks(false);
  cmdContenido = Nombrado(new QPushButton(QStringLiteral("Contenido"), this), "cmdContenido");
  cmdAtras = Nombrado(new QPushButton(QStringLiteral("Atrás"), this), "cmdAtras");
  cmdAdelante = Nombrado(new QPushButton(QStringLiteral("Adelante"), this), "cmdAdelante");
  for (QPushButton* b : {cmdContenido, cmdAtras, cmdAdelante})
    b->setAutoDefault(false);
  cmdAtras->setEnabled(false);
  cmdAdelante->setEnabled(false);

  auto* barra = new QHBoxLayout;
  barra->addWidget(cmdContenido);
  barra->addWidget(cmdAtras);
  barra->addWidget(cmdAdelante);
  barra->addStretch();
  auto* marco = new QVBoxLayout(this);
  marco->addLayout(barra);
  marco->addWidget(txtAyuda, 1);

  connect(cmdContenido, &QPushButton::clicked, this,
          [this] { Muestra(QStringLiteral("contenido")); });
  connect(cmdAtras, &QPushButton::clicked, txtAyuda, &QTextBrowser::backward);
  connect(cmdAdelante, &QPushButton::clicked, txtAyuda, &QTextBrowser::forward);
  connect(txtAyuda, &QTextBrowser::backwardAvailable, cmdAtras, &QPushButton::setEnabled);
  connect(txtAyuda, &QTextBrowser::forwardAvailable, cmdAdelante, &QPushButton::setEnabled);
  connect(txtAyuda, &QTextBrowser::sourceChanged, this, [this] {
    const QString titulo = txtAyuda->documentTitle();
    setWindowTitle(titulo.isEmpty() ? QStringLiteral("Ayuda de Mirkal")
                                    : QStringLiteral("Ayuda de Mirkal: ") + titulo);
  });
  resize(720, 560);
}

void VentanaAyuda::Muestra(const QString& tema) {
  const QString carpeta = CarpetaAyuda();
  if (carpeta.isEmpty()) {
    Dialogos::Aviso(padre_, QStringLiteral("No se encontró la ayuda del programa: falta la carpeta "
                                           "«help» junto al programa."));
    return;
  }
  txtAyuda->setSearchPaths({carpeta});
  txtAyuda->setSource(QUrl::fromLocalFile(QDir(carpeta).filePath(PaginaDeTema(tema))));
  show();
  raise();
  activateWindow();
}
