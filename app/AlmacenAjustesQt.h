#pragma once
// The per-user settings store of the desktop program: QSettings in INI form
// under the application name Mirkal (on Linux, ~/.config/Mirkal/Mirkal.ini).
// A file that cannot be read or written is not fatal: the store says why
// once, and the settings then hold until the program ends.

#include <QSettings>

#include "editor/AlmacenAjustes.h"

class AlmacenAjustesQt : public AlmacenAjustes {
public:
  AlmacenAjustesQt();
  std::string Lee(const std::string& seccion, const std::string& clave,
                  const std::string& porDefecto) override;
  void Escribe(const std::string& seccion, const std::string& clave,
               const std::string& valor) override;
  std::string Fallo() const override { return fallo_; }

private:
  void Revisa(const char* accion, const char* consecuencia);

  QSettings ajustes_;
  std::string fallo_;
};
