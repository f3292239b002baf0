#include "files/ArchivoDocumento.h"

#include <sys/stat.h>

namespace {

SelloArchivo SelloDe(const std::string& ruta) {
  struct stat info {};
  if (stat(ruta.c_str(), &info) != 0) return {};
  return {info.st_size,
          static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec};
}

} // namespace

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error) {
  std::string bytes;
  ContenidoArchivo contenido;
  if (!LeeArchivo(ruta, bytes, error) || !DecodificaArchivo(bytes, contenido, error)) return false;
  editor.Carga(contenido.filas);
  const SelloArchivo sello = SelloDe(ruta);
  estado = {ruta, NombreDocumento(ruta), contenido.codificacion, sello, sello};
  return true;
}

bool GuardaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                   std::string& error) {
  const Documento& doc = editor.Doc();
  std::vector<std::string> filas;
  filas.reserve(static_cast<std::size_t>(doc.NumFilas()));
  for (int f = 0; f < doc.NumFilas(); ++f)
    filas.push_back(doc.BytesFila(f));
  if (!GuardaBytes(ruta, CodificaArchivo(filas, estado.codificacion), error)) return false;
  estado.ruta = ruta;
  estado.nombre = NombreDocumento(ruta);
  estado.sello = estado.avisado = SelloDe(ruta);
  editor.Modificado(false);
  return true;
}

bool CambiadoEnDisco(const EstadoArchivo& estado) {
  return estado.TieneArchivo() && SelloDe(estado.ruta) != estado.sello;
}

CambioEnDisco AvisaCambioEnDisco(EstadoArchivo& estado) {
  if (!estado.TieneArchivo()) return CambioEnDisco::Ninguno;
  const SelloArchivo ahora = SelloDe(estado.ruta);
  if (ahora == estado.avisado) return CambioEnDisco::Ninguno;
  estado.avisado = ahora;
  if (ahora == estado.sello) return CambioEnDisco::Ninguno; // changed, then put back
  return ahora == SelloArchivo{} ? CambioEnDisco::Borrado : CambioEnDisco::Cambiado;
}

void NuevoDocumento(Editor& editor, EstadoArchivo& estado) {
  editor.Nuevo();
  estado = EstadoArchivo{};
}
