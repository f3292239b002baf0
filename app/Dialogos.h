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

// The title of the program's message boxes.
QString Titulo();

// A message with the exclamation icon and an OK button.
void Aviso(QWidget* padre, const QString& texto, const QString& titulo = Titulo());
// A question with Yes, No and Cancel and the exclamation icon.
Respuesta Pregunta(QWidget* padre, const QString& texto);
// The file dialogs with the document filters; "" when cancelled.
QString NombreAbrir(QWidget* padre);
QString NombreGuardar(QWidget* padre, const QString& propuesto);

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
