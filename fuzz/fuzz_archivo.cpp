// The document loader on any bytes as a file. Decoding either refuses with
// a message or gives the rows, one more than the file's line ends, which the
// editor then holds unchanged. Writing the rows back always gives a file that
// decodes to the same rows and encoding; a file whose line ends are all
// "\r\n" is written back byte for byte.

#include "LectorFuzz.h"
#include "editor/Editor.h"
#include "files/ArchivoTexto.h"
#include "lang/Cp1252.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  const std::string bytes = LectorFuzz(datos, tam).Resto();
  ContenidoArchivo contenido, releido;
  std::string error;
  const bool leido = DecodificaArchivo(bytes, contenido, error);
  EXIGE(leido || (!error.empty() && EsUtf8Valido(error)));
  if (!leido) return 0;
  const auto& [filas, cod] = contenido;
  const bool bom = cod == Codificacion::Utf8ConBom;
  EXIGE(!bom || bytes.starts_with("\xEF\xBB\xBF"));
  // Line ends: "\r\n", a lone "\r" or a lone "\n".
  const std::string_view texto = std::string_view(bytes).substr(bom ? 3 : 0);
  std::size_t fines = 0, crlf = 0;
  for (std::size_t i = 0; i < texto.size(); ++i) {
    crlf += texto.substr(i, 2) == "\r\n";
    fines += texto[i] == '\n' || (texto[i] == '\r' && texto.substr(i, 2) != "\r\n");
  }
  EXIGE(filas.size() == fines + 1, std::to_string(filas.size()) + " filas");
  for (const std::string& f : filas)
    EXIGE(f.find_first_of("\r\n") == std::string::npos, Visible(f));

  const std::string escrito = CodificaArchivo(filas, cod);
  EXIGE((fines != crlf || escrito == bytes) && DecodificaArchivo(escrito, releido, error) &&
            releido.filas == filas && releido.codificacion == cod,
        "se escribe «" + Visible(escrito) + "»");

  // The editor holds the rows as they are, with nothing to undo.
  Editor ed;
  ed.Carga(filas);
  const Documento& doc = ed.Doc();
  std::vector<std::string> enEditor;
  for (int i = 0; i < doc.NumFilas(); ++i)
    enEditor.push_back(doc.BytesFila(i));
  EXIGE(enEditor == filas && !ed.Modificado() && !ed.Hist().PuedeDeshacer() &&
        doc.Cursor() == Posicion{} && !doc.HaySel() &&
        Utf8ACp1252(doc.TextoDocumento()) == CodificaArchivo(filas, Codificacion::Ansi));
  return 0;
}
