#include "editor/AlmacenAjustesQt.h"

namespace {
QString Clave(const std::string& seccion, const std::string& clave) {
  return QString::fromStdString(seccion + "/" + clave);
}
} // namespace

std::string AlmacenAjustesQt::Lee(const std::string& seccion, const std::string& clave,
                                  const std::string& porDefecto) {
  const QVariant v = ajustes_.value(Clave(seccion, clave));
  return v.isValid() ? v.toString().toStdString() : porDefecto;
}

void AlmacenAjustesQt::Escribe(const std::string& seccion, const std::string& clave,
                               const std::string& valor) {
  ajustes_.setValue(Clave(seccion, clave), QString::fromStdString(valor));
}
