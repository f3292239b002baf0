#include "app/Dialogos.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>

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

bool CargaTraducciones() {
  QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
  // The translator lives as long as the program: Qt keeps only a pointer.
  static QTranslator traductor;
  if (traductor.isEmpty() &&
      !traductor.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    return false;
  QCoreApplication::installTranslator(&traductor);
  return true;
}

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

namespace {

// Qt's own dialog, not the desktop's: the desktop's speaks the system's
// language, which may not be Spanish.
QString PideNombre(QWidget* padre, QFileDialog::AcceptMode modo, const QString& propuesto,
                   const QString& carpeta) {
  const bool abrir = modo == QFileDialog::AcceptOpen;
  QFileDialog dialogo(padre, abrir ? QStringLiteral("Abrir") : QStringLiteral("Guardar como"));
  dialogo.setOption(QFileDialog::DontUseNativeDialog);
  dialogo.setAcceptMode(modo);
  dialogo.setFileMode(abrir ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialogo.setNameFilters(QString::fromUtf8(kFiltros).split(QStringLiteral(";;")));
  if (!abrir) dialogo.setDefaultSuffix(QStringLiteral("txt"));
  const QFileInfo nombre(propuesto);
  if (!carpeta.isEmpty() && QDir(carpeta).exists()) dialogo.setDirectory(carpeta);
  if (!propuesto.isEmpty() && nombre.isAbsolute()) dialogo.setDirectory(nombre.absolutePath());
  if (!propuesto.isEmpty()) dialogo.selectFile(nombre.fileName());
  if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) return QString();
  return dialogo.selectedFiles().first();
}

} // namespace

QString NombreAbrir(QWidget* padre, const QString& carpeta) {
  if (Actual().nombreAbrir) return Actual().nombreAbrir();
  return PideNombre(padre, QFileDialog::AcceptOpen, QString(), carpeta);
}

QString NombreGuardar(QWidget* padre, const QString& propuesto, const QString& carpeta) {
  if (Actual().nombreGuardar) return Actual().nombreGuardar(propuesto);
  return PideNombre(padre, QFileDialog::AcceptSave, propuesto, carpeta);
}

} // namespace Dialogos
