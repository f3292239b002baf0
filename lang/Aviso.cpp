#include "lang/Aviso.h"

#include <errno.h>

#include <iostream>

namespace {

void AvisoPorDefecto(const std::string& origen, const std::string& texto) {
  std::cerr << NombrePrograma() << origen << ": " << texto << '\n';
}

ManejadorAviso& Manejador() {
  static ManejadorAviso manejador = AvisoPorDefecto;
  return manejador;
}

} // namespace

void FijaManejadorAviso(ManejadorAviso manejador) {
  Manejador() = manejador ? std::move(manejador) : ManejadorAviso(AvisoPorDefecto);
}

void Avisa(const std::string& origen, const std::string& texto) { Manejador()(origen, texto); }

std::string NombrePrograma() { return program_invocation_short_name; }
