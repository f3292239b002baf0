#include "app/Dialogos.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace Dialogos {
namespace {

Respondedor& Actual() {
  static Respondedor respondedor;
  return respondedor;
}

// The two filters of the document dialogs.
const char* const kFiltros = "Archivos de texto (*.txt);;Todos los archivos (*)";

} // namespace

void FijaRespondedor(Respondedor respondedor) { Actual() = std::move(respondedor); }

QString Titulo() {
  const QString nombre = QCoreApplication::applicationName();
  return nombre.isEmpty() ? QStringLiteral("Mirkal") : nombre;
}

void Aviso(QWidget* padre, const QString& texto, const QString& titulo) {
  if (Actual().aviso) return Actual().aviso(titulo, texto);
  QMessageBox caja(QMessageBox::Warning, titulo, texto, QMessageBox::NoButton, padre);
  caja.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
  caja.exec();
}

Respuesta Pregunta(QWidget* padre, const QString& texto) {
  if (Actual().pregunta) return Actual().pregunta(texto);
  QMessageBox caja(QMessageBox::Warning, Titulo(), texto, QMessageBox::NoButton, padre);
  QPushButton* si = caja.addButton(QStringLiteral("Sí"), QMessageBox::YesRole);
  QPushButton* no = caja.addButton(QStringLiteral("No"), QMessageBox::NoRole);
  QPushButton* cancelar = caja.addButton(QStringLiteral("Cancelar"), QMessageBox::RejectRole);
  caja.setDefaultButton(si);
  caja.setEscapeButton(cancelar);
  caja.exec();
  if (caja.clickedButton() == si) return Respuesta::Si;
  if (caja.clickedButton() == no) return Respuesta::No;
  return Respuesta::Cancelar;
}

QString NombreAbrir(QWidget* padre) {
  if (Actual().nombreAbrir) return Actual().nombreAbrir();
  return QFileDialog::getOpenFileName(padre, QStringLiteral("Abrir"), QString(),
                                      QString::fromUtf8(kFiltros));
}

QString NombreGuardar(QWidget* padre, const QString& propuesto) {
  if (Actual().nombreGuardar) return Actual().nombreGuardar(propuesto);
  return QFileDialog::getSaveFileName(padre, QStringLiteral("Guardar como"), propuesto,
                                      QString::fromUtf8(kFiltros));
}

} // namespace Dialogos
