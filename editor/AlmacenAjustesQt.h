#pragma once
// The per-user settings store of the desktop program: QSettings under the
// application name Mirkal (on Linux, ~/.config/Mirkal/Mirkal.conf).

#include <QSettings>

#include "editor/AlmacenAjustes.h"

class AlmacenAjustesQt : public AlmacenAjustes {
public:
  AlmacenAjustesQt()
      : ajustes_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Mirkal"),
                 QStringLiteral("Mirkal")) {}
  std::string Lee(const std::string& seccion, const std::string& clave,
                  const std::string& porDefecto) override;
  void Escribe(const std::string& seccion, const std::string& clave,
               const std::string& valor) override;

private:
  QSettings ajustes_;
};
