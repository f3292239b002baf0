#pragma once
// VentanaAyuda: the program's help, HTML pages shown in a window of their own
// that stays open beside the editor. The pages travel in a "help" folder
// beside the program; a program run from its build tree finds them in the
// source tree instead.

#include <QDialog>
#include <QString>

class QPushButton;
class QTextBrowser;

class VentanaAyuda : public QDialog {
  Q_OBJECT
public:
  // `padre` owns the window and is the parent of its messages, but the
  // window is a top-level window of its own: a dialog that is modal to the
  // main window would otherwise block it too, and the help could not be read
  // from the dialog that asked for it.
  explicit VentanaAyuda(QWidget* padre = nullptr);

  // Shows a topic: "contenido" (the contents), "lenguaje", "ordenes",
  // "configuracion", "errores" or "ejemplos"; an unknown topic shows the
  // contents. Without help pages, tells the user so and shows nothing.
  void Muestra(const QString& tema);

  // The folder the pages are read from, or "" when there is none.
  static QString CarpetaAyuda();
  // The page of a topic, a file name within that folder.
  static QString PaginaDeTema(const QString& tema);

  QTextBrowser* Navegador() const { return txtAyuda; }

private:
  QWidget* padre_ = nullptr;
  QTextBrowser* txtAyuda = nullptr;
  QPushButton* cmdContenido = nullptr;
  QPushButton* cmdAtras = nullptr;
  QPushButton* cmdAdelante = nullptr;
};
