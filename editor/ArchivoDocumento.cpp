#include "editor/ArchivoDocumento.h"

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error) {
  std::string bytes;
  ContenidoArchivo contenido;
  if (!LeeArchivo(ruta, bytes, error) || !DecodificaArchivo(bytes, contenido, error)) return false;
  editor.Carga(contenido.filas);
  estado = {ruta, NombreDocumento(ruta), contenido.codificacion};
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
  editor.Modificado(false);
  return true;
}

void NuevoDocumento(Editor& editor, EstadoArchivo& estado) {
  editor.Nuevo();
  estado = EstadoArchivo{};
}
