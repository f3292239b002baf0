#pragma once
// The per-user settings store as the editor sees it: text values under an
// application, a section and a key, read with a default. The desktop program
// backs it with QSettings; tests use AlmacenEnMemoria.

#include <map>
#include <string>
#include <tuple>

// The application name the program's settings are kept under.
inline constexpr const char* kAplicacionAjustes = "Mirkal";

class AlmacenAjustes {
public:
  virtual ~AlmacenAjustes() = default;
  virtual std::string Lee(const std::string& seccion, const std::string& clave,
                          const std::string& porDefecto) = 0;
  virtual void Escribe(const std::string& seccion, const std::string& clave,
                       const std::string& valor) = 0;
  // Why the store could not be read or written, in Spanish; empty while it
  // works. A store that cannot be read answers every read with its default.
  virtual std::string Fallo() const { return {}; }
};

class AlmacenEnMemoria : public AlmacenAjustes {
public:
  std::string Lee(const std::string& seccion, const std::string& clave,
                  const std::string& porDefecto) override {
    const auto it = valores_.find({seccion, clave});
    return it == valores_.end() ? porDefecto : it->second;
  }
  void Escribe(const std::string& seccion, const std::string& clave,
               const std::string& valor) override {
    valores_[{seccion, clave}] = valor;
  }
  const std::map<std::pair<std::string, std::string>, std::string>& Valores() const {
    return valores_;
  }

private:
  std::map<std::pair<std::string, std::string>, std::string> valores_;
};
