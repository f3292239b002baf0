// mirkal: the desktop program. Start-up shows the main window with an empty
// document, or with the document named on the command line.

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include "app/AlmacenAjustesQt.h"
#include "app/Dialogos.h"
#include "app/GraficoCurva.h"
#include "app/PanelAnalisis.h"
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
  // --captura IMAGEN: differentiates the document and saves a picture of the
  // screen, window manager's frame included; --captura-guardar IMAGEN does
  // the same with the Save As dialog open. Both end the program then
  // (scripts/screenshot uses them to show the program at work).
  QString captura, capturaGuardar, capturaAnalisis;
  for (const auto& [opcion, destino] :
       {std::pair(QStringLiteral("--captura"), &captura),
        std::pair(QStringLiteral("--captura-guardar"), &capturaGuardar),
        std::pair(QStringLiteral("--captura-analisis"), &capturaAnalisis)})
    if (const auto i = args.indexOf(opcion); i >= 0 && i + 1 < args.size()) {
      *destino = args[i + 1];
      args.remove(i, 2);
    }
  if (!args.isEmpty()) ventana.AbreArchivo(QFileInfo(args.first()).absoluteFilePath());
  ventana.show();
  const auto fotografia = [](const QString& imagen) {
    return QGuiApplication::primaryScreen()->grabWindow(0).save(imagen, "PNG");
  };
  if (!captura.isEmpty()) {
    QTimer::singleShot(500, &ventana, [&] {
      ventana.Derivar();
      QTimer::singleShot(500, &ventana, [&] {
        const bool guardada = fotografia(captura);
        ventana.Modelo().Modificado(false); // nothing to ask when a picture was all it was for
        ventana.close();
        QApplication::exit(guardada ? 0 : 1);
      });
    });
  } else if (!capturaAnalisis.isEmpty()) {
    // The analysis panel after Derivar, with the tangent at (3, 4) picked.
    if (!ventana.Panel()->isVisible()) ventana.Accion(QStringLiteral("PanelAnalisis"))->trigger();
    QTimer::singleShot(500, &ventana, [&] {
      ventana.Derivar();
      QTimer::singleShot(1000, &ventana, [&] {
        GraficoCurva* g = ventana.Panel()->Grafico();
        g->Elige(g->APixel({3, 4}, g->size()));
        QTimer::singleShot(300, &ventana, [&] {
          const bool guardada = fotografia(capturaAnalisis);
          ventana.Modelo().Modificado(false);
          ventana.close();
          QApplication::exit(guardada ? 0 : 1);
        });
      });
    });
  } else if (!capturaGuardar.isEmpty()) {
    QTimer::singleShot(500, &ventana, [&] {
      bool guardada = false;
      QTimer::singleShot(800, &ventana, [&] {
        guardada = fotografia(capturaGuardar);
        if (QWidget* dialogo = QApplication::activeModalWidget()) dialogo->close();
      });
      ventana.GuardarComo();
      ventana.Modelo().Modificado(false);
      ventana.close();
      QApplication::exit(guardada ? 0 : 1);
    });
  }
  return app.exec();
}
