#pragma once
// The editor's document and its file: loading replaces the document, saving
// writes it and clears the modified flag. A failure leaves the document as it
// was (text and modified flag) and says why in Spanish.

#include <string>

#include "editor/Editor.h"
#include "files/ArchivoTexto.h"

// A file's size and modification time in nanoseconds; -1 for both when the
// file does not exist.
struct SelloArchivo {
  long long tamaño = -1, modificado = -1;
  bool operator==(const SelloArchivo&) const = default;
};

struct EstadoArchivo {
  std::string ruta;                  // "" while the document has no file
  std::string nombre = kNombreNuevo; // shown in the title
  Codificacion codificacion = Codificacion::Ansi;
  // The file as it was on disk when it was last read or written, so that a
  // change made to it by another program is noticed before it is overwritten.
  SelloArchivo sello;
  // The file as it was when the user was last told of such a change, so that
  // one change is told once.
  SelloArchivo avisado;
  bool TieneArchivo() const { return !ruta.empty(); }
};

bool CargaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                  std::string& error);
bool GuardaArchivo(Editor& editor, EstadoArchivo& estado, const std::string& ruta,
                   std::string& error);
// Whether the document's file was changed or deleted on disk by someone else
// since it was last read or written (false for a document with no file).
bool CambiadoEnDisco(const EstadoArchivo& estado);

enum class CambioEnDisco { Ninguno, Cambiado, Borrado };
// A change on disk the user has not yet been told of, which from now on
// counts as told; Ninguno when the file is as last read, written or told.
CambioEnDisco AvisaCambioEnDisco(EstadoArchivo& estado);

// An empty document named "SinNombre.txt", with no file.
void NuevoDocumento(Editor& editor, EstadoArchivo& estado);
