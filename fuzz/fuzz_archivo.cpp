// The document loader on any bytes as a file. Decoding either refuses with
// a message or gives the rows, one more than the file's line ends, which the
// editor then holds unchanged. Writing the rows back always gives a file that
// decodes to the same rows and encoding; a file whose line ends are all
// "\r\n" is written back byte for byte.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "LectorFuzz.h"
#include "editor/Editor.h"
#include "files/ArchivoTexto.h"
#include "lang/Cp1252.h"

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

// The line ends of a text: "\r\n", a lone "\r" or a lone "\n"; and whether
// all of them are "\r\n".
std::size_t FinesDeLinea(std::string_view t, bool& todosCrLf) {
  std::size_t n = 0;
  todosCrLf = true;
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] == '\r' && i + 1 < t.size() && t[i + 1] == '\n') {
      ++n, ++i;
    } else if (t[i] == '\r' || t[i] == '\n') {
      ++n;
      todosCrLf = false;
    }
  }
  return n;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::string bytes = in.Resto();
  ContenidoArchivo contenido;
  std::string error;
  if (!DecodificaArchivo(bytes, contenido, error)) {
    EXIGE(!error.empty(), "un archivo rechazado sin mensaje: «" + Visible(bytes) + "»");
    EXIGE(EsUtf8Valido(error), "mensaje que no es UTF-8: «" + Visible(error) + "»");
    return 0;
  }
  const std::vector<std::string>& filas = contenido.filas;
  const Codificacion cod = contenido.codificacion;
  const std::string caso = " en «" + Visible(bytes) + "»";

  std::string_view texto = bytes;
  if (cod == Codificacion::Utf8ConBom) {
    EXIGE(texto.starts_with(kBom), "UTF-8 con marca sin marca" + caso);
    texto.remove_prefix(kBom.size());
  }
  bool todosCrLf = false;
  const std::size_t fines = FinesDeLinea(texto, todosCrLf);
  EXIGE(filas.size() == fines + 1, std::to_string(filas.size()) + " filas para " +
                                       std::to_string(fines) + " fines de línea" + caso);
  for (const std::string& f : filas)
    EXIGE(f.find_first_of("\r\n") == std::string::npos, "una fila con un fin de línea" + caso);

  const std::string escrito = CodificaArchivo(filas, cod);
  if (todosCrLf) EXIGE(escrito == bytes, "se escribe «" + Visible(escrito) + "»" + caso);
  ContenidoArchivo releido;
  EXIGE(DecodificaArchivo(escrito, releido, error), "lo escrito no se lee: " + error + caso);
  EXIGE(releido.filas == filas && releido.codificacion == cod,
        "lo escrito se lee distinto: «" + Visible(escrito) + "»" + caso);

  // The editor holds the rows as they are, with nothing to undo.
  Editor ed;
  ed.Carga(filas);
  const Documento& doc = ed.Doc();
  EXIGE(doc.NumFilas() == static_cast<int>(filas.size()), "el editor cambia las filas" + caso);
  std::vector<std::string> enEditor;
  for (int i = 0; i < doc.NumFilas(); ++i)
    enEditor.push_back(doc.BytesFila(i));
  EXIGE(enEditor == filas, "el editor cambia el texto" + caso);
  EXIGE(Utf8ACp1252(doc.TextoDocumento()) == CodificaArchivo(filas, Codificacion::Ansi),
        "TextoDocumento no es el archivo" + caso);
  EXIGE(!ed.Modificado() && !ed.Hist().PuedeDeshacer() && !ed.Hist().PuedeRehacer(),
        "un documento recién cargado tiene cambios" + caso);
  EXIGE(doc.Cursor() == Posicion{} && !doc.HaySel(), "el cursor no empieza al principio" + caso);
  EXIGE(CodificaArchivo(enEditor, cod) == escrito, "guardar lo cargado cambia el archivo" + caso);
  return 0;
}
