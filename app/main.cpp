// mirkal: the desktop program. Start-up shows the main window with an empty
// document, or with the document named on the command line.

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>

#include "app/AlmacenAjustesQt.h"
#include "app/Dialogos.h"
#include "app/frmEditor.h"
#include "lang/Aviso.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  Dialogos::CargaTraducciones(); // before any window or shortcut is made
  QApplication::setApplicationName(QStringLiteral("Mirkal"));
  QApplication::setApplicationVersion(QStringLiteral(MIRKAL_VERSION));
  // The engines' warnings to a programmer appear as warning boxes titled
  // with the executable's name and the warning's origin.
  FijaManejadorAviso([](const std::string& origen, const std::string& texto) {
    Dialogos::Aviso(nullptr, QString::fromStdString(texto),
                    QString::fromStdString(NombrePrograma() + origen));
  });
  AlmacenAjustesQt almacen;
  frmEditor ventana(almacen);
  QStringList args = QApplication::arguments();
  args.removeFirst();
  // --captura IMAGEN: differentiates the document, saves a picture of the
  // window and ends (scripts/screenshot uses it to show the program at work).
  QString captura;
  if (const auto i = args.indexOf(QStringLiteral("--captura")); i >= 0 && i + 1 < args.size()) {
    captura = args[i + 1];
    args.remove(i, 2);
  }
  if (!args.isEmpty()) ventana.AbreArchivo(QFileInfo(args.first()).absoluteFilePath());
  ventana.show();
  if (!captura.isEmpty()) {
    QTimer::singleShot(300, &ventana, [&] {
      ventana.Derivar();
      QTimer::singleShot(300, &ventana, [&] {
        const bool guardada = ventana.grab().save(captura, "PNG");
        ventana.Modelo().Modificado(false); // nothing to ask when a picture was all it was for
        ventana.close();
        QApplication::exit(guardada ? 0 : 1);
      });
    });
  }
  return app.exec();
}
