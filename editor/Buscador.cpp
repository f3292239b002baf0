#include "editor/Buscador.h"

#include <algorithm>
#include <vector>

#include "lang/Caracteres.h"
#include "lang/Cp1252.h"

namespace {

// The text sought as the rows hold it, or "" when a character of it cannot
// stand in a row (outside the code page, or broken UTF-8): such a text is
// never found, although the byte that stands in for it may well sit in a row
// loaded from a file.
std::string BytesBuscados(const std::string& utf8) {
  return PrimerCaracterAjeno(utf8).empty() ? Utf8ACp1252(utf8) : std::string();
}

} // namespace

int BuscaEnCadena(std::string_view linea, std::string_view texto, int inicio, bool palabraCompleta,
                  int modoComparacion) {
  if (texto.empty() || inicio < 1 || static_cast<std::size_t>(inicio) > linea.size()) return 0;
  // Case folding keeps every byte in place, so positions found in the folded
  // copies hold in the row; the word test looks at the row itself.
  std::string lineaPlegada, textoPlegado;
  std::string_view donde = linea, que = texto;
  if (modoComparacion == 1) {
    lineaPlegada = EnMinusculas(linea);
    textoPlegado = EnMinusculas(texto);
    donde = lineaPlegada;
    que = textoPlegado;
  }
  const auto dePalabra = [&](std::size_t i) {
    return EsCarPalabra(static_cast<unsigned char>(linea[i]));
  };
  for (std::size_t p = donde.find(que, static_cast<std::size_t>(inicio - 1));
       p != std::string_view::npos; p = donde.find(que, p + 1)) {
    const std::size_t fin = p + que.size();
    const bool libreAntes = p == 0 || !dePalabra(p - 1);
    const bool libreDespues = fin == linea.size() || !dePalabra(fin);
    if (!palabraCompleta || (libreAntes && libreDespues)) return static_cast<int>(p) + 1;
  }
  return 0;
}

void Buscador::Avisa(const std::string& texto) const {
  if (aviso_) aviso_(texto);
}

bool Buscador::Valida(int fila, int col, int modoComparacion) {
  if (fila >= 0 && fila < editor_.Doc().NumFilas() && col >= 0 &&
      (modoComparacion == 0 || modoComparacion == 1))
    return true;
  Avisa(kArgumentosNoValidos);
  return false;
}

bool Buscador::Encuentra(const Busqueda& b, int& fila, int& col) const {
  const Documento& doc = editor_.Doc();
  for (int f = fila; f < doc.NumFilas(); ++f) {
    const int desde = f == fila ? col : 0;
    // A start past the row's end finds nothing there (and col + 1 could
    // overflow).
    if (desde >= doc.LongFila(f)) continue;
    const int pos = BuscaEnCadena(doc.BytesFila(f), b.bytes, desde + 1, b.palabraCompleta, b.modo);
    if (pos > 0) {
      fila = f;
      col = pos - 1;
      return true;
    }
  }
  return false;
}

bool Buscador::Search(const std::string& texto, int& fila, int& col, bool palabraCompleta,
                      int modoComparacion) {
  ultimo_ = texto, ultimaPalabra_ = palabraCompleta, ultimoModo_ = modoComparacion;
  if (!Valida(fila, col, modoComparacion)) {
    fila = -1;
    return false;
  }
  const Busqueda b{BytesBuscados(texto), palabraCompleta, modoComparacion};
  if (!Encuentra(b, fila, col)) {
    fila = -1;
    Avisa(kNoEncontrado);
    return false;
  }
  const int largo = static_cast<int>(b.bytes.size());
  editor_.Doc().SelectText(fila, col, largo);
  col += largo;
  return true;
}

bool Buscador::BuscarSiguiente() {
  if (!HayBusqueda()) return false;
  const Posicion c = editor_.Doc().Cursor();
  int fila = c.fila, col = c.col;
  const std::string texto = ultimo_;
  return Search(texto, fila, col, ultimaPalabra_, ultimoModo_);
}

int Buscador::Reemp(const std::string& texto, const std::string& reemplazo, int& fila, int& col,
                    bool palabraCompleta, int modoComparacion, ModoReemplazo modo) {
  ultimo_ = texto, ultimaPalabra_ = palabraCompleta, ultimoModo_ = modoComparacion;
  if (!Valida(fila, col, modoComparacion)) {
    fila = -1;
    return 0;
  }
  const Busqueda b{BytesBuscados(texto), palabraCompleta, modoComparacion};
  const int largo = static_cast<int>(b.bytes.size());
  const int largoNuevo = LongitudUtf8(reemplazo);
  const int tipo = modo == ModoReemplazo::Todos ? kReemplazarTodo : kReemplazar;
  Documento& doc = editor_.Doc();
  int encontrados = 0, hechos = 0;
  std::vector<std::string> avisados; // each refusal is told once, not once per match
  while (Encuentra(b, fila, col)) {
    ++encontrados;
    if (modo == ModoReemplazo::UnoAUno) {
      doc.SelectText(fila, col, largo);
      const Respuesta r = pregunta_ ? pregunta_(kPregunta) : Respuesta::Cancelar;
      if (r != Respuesta::Si) col += largo;
      if (r == Respuesta::Cancelar) return hechos;
      if (r == Respuesta::No) continue;
    }
    const int largoFila = doc.LongFila(fila);
    // The first replacement opens the record; the rest join it, so that one
    // undo takes back the whole call.
    const Resultado hecho = editor_.ReemplazaEnFila(fila, col, largo, reemplazo, tipo, hechos > 0);
    if (!hecho.hecho) {
      if (std::find(avisados.begin(), avisados.end(), hecho.aviso) == avisados.end()) {
        avisados.push_back(hecho.aviso);
        Avisa(hecho.aviso);
      }
      // A row too long to take it is skipped; a replacement that fits and is
      // still refused is refused for its own text, and would be everywhere.
      col += largo;
      if (largoFila - largo + largoNuevo <= std::max(largoFila, Documento::kMaxCeldas)) break;
      continue;
    }
    ++hechos;
    col += largoNuevo;
    // The old selection may now reach past the row's end.
    doc.QuitaSeleccion();
    doc.MueveCursor(fila, col);
  }
  if (encontrados == 0) {
    fila = -1;
    Avisa(kNoEncontrado);
  }
  return hechos;
}
