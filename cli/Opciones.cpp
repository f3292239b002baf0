#include "cli/Opciones.h"

#include <algorithm>

namespace {

const Opcion* Busca(const std::vector<Opcion>& declaradas, const std::string& token) {
  const bool larga = token.starts_with("--");
  const auto es = [&](const Opcion& o) { return token == (larga ? o.larga : o.corta); };
  const auto it = std::find_if(declaradas.begin(), declaradas.end(), es);
  return it == declaradas.end() ? nullptr : &*it;
}

} // namespace

bool ArgumentosLeidos::Tiene(const std::string& larga) const {
  return std::any_of(opciones.begin(), opciones.end(),
                     [&](const OpcionDada& o) { return o.larga == larga; });
}

std::string LeeArgumentos(const Argumentos& args, const std::vector<Opcion>& declaradas,
                          ArgumentosLeidos& leidos) {
  bool soloTexto = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (soloTexto) {
      leidos.posicionales.push_back(a);
    } else if (a == "--") {
      soloTexto = true;
    } else if (const Opcion* o = a.size() > 1 && a[0] == '-' ? Busca(declaradas, a) : nullptr) {
      if (o->conValor && i + 1 >= args.size()) return "falta el valor de " + a;
      leidos.opciones.push_back({o->larga, o->conValor ? args[++i] : std::string()});
    } else if (a.starts_with("--")) {
      return "opción desconocida: " + a;
    } else {
      leidos.posicionales.push_back(a);
    }
  }
  return {};
}
