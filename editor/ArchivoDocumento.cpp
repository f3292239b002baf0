#include "editor/ArchivoDocumento.h"

#include <sys/stat.h>

namespace {

// The size and modification time (in nanoseconds) of a file; -1 when absent.
void SelloDe(const std::string& ruta, long long& tamaño, long long& modificado) {
  struct stat info {};
  if (stat(ruta.c_str(), &info) != 0) {
    tamaño = modificado = -1;
    return;
  }
  tamaño = info.st_size;
  modificado = static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec;
}

} // namespace

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error) {
  std::string bytes;
  ContenidoArchivo contenido;
  if (!LeeArchivo(ruta, bytes, error) || !DecodificaArchivo(bytes, contenido, error)) return false;
  editor.Carga(contenido.filas);
  estado = {ruta, NombreDocumento(ruta), contenido.codificacion};
  SelloDe(ruta, estado.tamaño, estado.modificado);
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
  SelloDe(ruta, estado.tamaño, estado.modificado);
  editor.Modificado(false);
  return true;
}

bool CambiadoEnDisco(const EstadoArchivo& estado) {
  if (!estado.TieneArchivo()) return false;
  long long tamaño = 0, modificado = 0;
  SelloDe(estado.ruta, tamaño, modificado);
  return tamaño != estado.tamaño || modificado != estado.modificado;
}

void NuevoDocumento(Editor& editor, EstadoArchivo& estado) {
  editor.Nuevo();
  estado = EstadoArchivo{};
}
