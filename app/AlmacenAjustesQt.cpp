#include "app/AlmacenAjustesQt.h"

namespace {
QString Clave(const std::string& seccion, const std::string& clave) {
  return QString::fromStdString(seccion + "/" + clave);
}
} // namespace

AlmacenAjustesQt::AlmacenAjustesQt()
    : ajustes_(QSettings::IniFormat, QSettings::UserScope, QString::fromLatin1(kAplicacionAjustes),
               QString::fromLatin1(kAplicacionAjustes)) {
  Revisa("leer", "Se usan los valores por defecto.");
}

// Only the first failure is kept: it is the one the user has to act on.
void AlmacenAjustesQt::Revisa(const char* accion, const char* consecuencia) {
  if (!fallo_.empty() || ajustes_.status() == QSettings::NoError) return;
  const char* motivo =
      ajustes_.status() == QSettings::AccessError ? "acceso denegado" : "el archivo está dañado";
  fallo_ = std::string("No se pudieron ") + accion + " los ajustes de presentación en «" +
           ajustes_.fileName().toStdString() + "»: " + motivo + ". " + consecuencia;
}

std::string AlmacenAjustesQt::Lee(const std::string& seccion, const std::string& clave,
                                  const std::string& porDefecto) {
  const QVariant v = ajustes_.value(Clave(seccion, clave));
  return v.isValid() ? v.toString().toStdString() : porDefecto;
}

void AlmacenAjustesQt::Escribe(const std::string& seccion, const std::string& clave,
                               const std::string& valor) {
  // Start-up writes back every default it reads: a value already stored
  // costs no rewrite of the file.
  const QString k = Clave(seccion, clave), v = QString::fromStdString(valor);
  if (ajustes_.contains(k) && ajustes_.value(k).toString() == v) return;
  ajustes_.setValue(k, v);
  ajustes_.sync();
  Revisa("guardar", "Los cambios valen hasta que se cierre el programa.");
}
