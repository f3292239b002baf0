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
  bool TieneArchivo() const { return !ruta.empty(); }
};

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error);
bool GuardaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                   std::string& error);
// An empty document named "SinNombre.txt", with no file.
void NuevoDocumento(Editor& editor, EstadoArchivo& estado);
