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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  const std::string bytes = in.Resto(), caso = " en «" + Visible(bytes) + "»";
  ContenidoArchivo contenido;
  std::string error;
  if (!DecodificaArchivo(bytes, contenido, error)) {
    EXIGE(!error.empty() && EsUtf8Valido(error), "un archivo rechazado sin mensaje" + caso);
    return 0;
  }
  const std::vector<std::string>& filas = contenido.filas;
  const Codificacion cod = contenido.codificacion;
  std::string_view texto = bytes;
  constexpr std::string_view kBom = "\xEF\xBB\xBF";
  if (cod == Codificacion::Utf8ConBom) {
    EXIGE(texto.starts_with(kBom), "UTF-8 con marca sin marca" + caso);
    texto.remove_prefix(kBom.size());
  }
  // Line ends: "\r\n", a lone "\r" or a lone "\n".
  std::size_t fines = 0;
  bool todosCrLf = true;
  for (std::size_t i = 0; i < texto.size(); ++i)
    if (texto.substr(i, 2) == "\r\n")
      ++fines, ++i;
    else if (texto[i] == '\r' || texto[i] == '\n')
      ++fines, todosCrLf = false;
  EXIGE(filas.size() == fines + 1, std::to_string(filas.size()) + " filas" + caso);
  for (const std::string& f : filas)
    EXIGE(f.find_first_of("\r\n") == std::string::npos, "una fila con un fin de línea" + caso);

  const std::string escrito = CodificaArchivo(filas, cod);
  ContenidoArchivo releido;
  EXIGE((!todosCrLf || escrito == bytes) && DecodificaArchivo(escrito, releido, error) &&
            releido.filas == filas && releido.codificacion == cod,
        "lo escrito, «" + Visible(escrito) + "», se lee distinto" + caso);

  // The editor holds the rows as they are, with nothing to undo.
  Editor ed;
  ed.Carga(filas);
  const Documento& doc = ed.Doc();
  std::vector<std::string> enEditor;
  for (int i = 0; i < doc.NumFilas(); ++i)
    enEditor.push_back(doc.BytesFila(i));
  EXIGE(enEditor == filas && !ed.Modificado() && !ed.Hist().PuedeDeshacer() &&
            doc.Cursor() == Posicion{} && !doc.HaySel(),
        "el editor cambia lo cargado" + caso);
  EXIGE(Utf8ACp1252(doc.TextoDocumento()) == CodificaArchivo(filas, Codificacion::Ansi),
        "TextoDocumento no es el archivo" + caso);
  return 0;
}
