#pragma once
// Document files on disk and the rows of the document. A file holds single
// Windows-1252 bytes with rows separated by "\r\n"; a file written elsewhere
// in UTF-8 is read as such and written back the same way, so opening and
// saving a file never changes bytes the user did not edit. Saving replaces the
// old file only once the new text is safely on disk.

#include <string>
#include <vector>

enum class Codificacion {
  Ansi,      // Windows-1252, one byte per character
  Utf8,      // UTF-8 without a mark
  Utf8ConBom // UTF-8 that starts with the byte order mark EF BB BF
};

struct ContenidoArchivo {
  std::vector<std::string> filas; // Windows-1252 bytes, one string per row
  Codificacion codificacion = Codificacion::Ansi;
};

// The name of a new document that has never been saved.
inline constexpr const char* kNombreNuevo = "SinNombre.txt";

// The rows of a file's bytes. Rows end at "\r\n", a lone "\r" or a lone "\n";
// an empty file is one empty row and a file that ends in a row end ends with
// an empty row. Rows are kept whole whatever their length. Bytes that are
// valid UTF-8 with some non-ASCII character are read as UTF-8; a character
// that Windows-1252 cannot hold makes it fail, with a Spanish message in
// `error` naming the character, its line and its column (from 1).
bool DecodificaArchivo(const std::string& bytes, ContenidoArchivo& contenido, std::string& error);

// The file's bytes for some rows: joined by "\r\n", without a final one.
std::string CodificaArchivo(const std::vector<std::string>& filas, Codificacion c);

// The whole file at `ruta`. On failure, a Spanish message with the reason.
bool LeeArchivo(const std::string& ruta, std::string& bytes, std::string& error);

// Writes `bytes` to `ruta` through a temporary file in the same folder that
// replaces the old file only when complete; the old file's permission bits are
// kept and a symbolic link keeps pointing at its file. On failure the old file
// is left as it was and `error` says why, in Spanish.
bool GuardaBytes(const std::string& ruta, const std::string& bytes, std::string& error);

// The text after the last "/" or "\" of a path.
std::string NombreDocumento(const std::string& ruta);
