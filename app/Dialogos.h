#pragma once
// Every message box and file dialog of the program goes through here, so
// that all of them speak Spanish ("Sí", "No", "Cancelar"), carry the
// program's name as their title, and so that tests can answer them instead
// of a person: a test installs a Respondedor and no box ever waits.

#include <QString>
#include <functional>

#include "editor/Respuesta.h"

class QWidget;

namespace Dialogos {

// Loads Qt's own Spanish (Debian's qt6-translations-l10n) for every
// standard dialog, button, context menu and key name, whatever the system's
// language, and makes Spanish the default locale. Call it before any window
// or shortcut is made; false when the translations are not installed.
bool CargaTraducciones();

// The title of the program's message boxes.
QString Titulo();

// A message with the exclamation icon and an OK button.
void Aviso(QWidget* padre, const QString& texto, const QString& titulo = Titulo());
// A question with Yes, No and Cancel and the exclamation icon.
Respuesta Pregunta(QWidget* padre, const QString& texto);
// The file dialogs with the document filters, Qt's own so that they speak
// Spanish on any desktop, opening in `carpeta` (the last folder used; the
// proposed name's own folder when it has one); "" when cancelled. A name
// saved without an extension gets ".txt", and replacing a file is asked.
QString NombreAbrir(QWidget* padre, const QString& carpeta = QString());
QString NombreGuardar(QWidget* padre, const QString& propuesto, const QString& carpeta = QString());

// What a test puts in place of a person. Each member, when set, is called
// instead of showing the box; unset members fall back to the real dialogs.
struct Respondedor {
  std::function<void(const QString& titulo, const QString& texto)> aviso;
  std::function<Respuesta(const QString& texto)> pregunta;
  std::function<QString()> nombreAbrir;
  std::function<QString(const QString& propuesto)> nombreGuardar;
};
void FijaRespondedor(Respondedor respondedor);

} // namespace Dialogos
