#pragma once
// The editor's document and its file: loading replaces the document, saving
// writes it and clears the modified flag. A failure leaves the document as it
// was (text and modified flag) and says why in Spanish.

#include <string>

#include "editor/ArchivoTexto.h"
#include "editor/Editor.h"

struct EstadoArchivo {
  std::string ruta;                  // "" while the document has no file
  std::string nombre = kNombreNuevo; // shown in the title
  Codificacion codificacion = Codificacion::Ansi;
  // The file as it was on disk when it was last read or written, so that a
  // change made to it by another program is noticed before it is overwritten.
  long long tamaño = -1, modificado = -1;
  bool TieneArchivo() const { return !ruta.empty(); }
};

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error);
bool GuardaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                   std::string& error);
// Whether the document's file was changed or deleted on disk by someone else
// since it was last read or written (false for a document with no file).
bool CambiadoEnDisco(const EstadoArchivo& estado);

// An empty document named "SinNombre.txt", with no file.
void NuevoDocumento(Editor& editor, EstadoArchivo& estado);
