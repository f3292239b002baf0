// A session of editing commands, mouse actions, undos and redos against the
// document model, driven by the input's bytes. After every step:
// - the document has a row, the cursor and both ends of a selection lie
//   within their rows, and no row grows past the row limit (or a longer loaded row);
// - an accepted edit replaced exactly the span it acts on, a refused or
//   non-editing command changed no text and no history;
// - the history stays within its 32 records, and the text is the one the
//   session had at the history's position: undo and redo walk back and forth
//   through exactly the texts the session went through (undoing right after
//   a change gives back the text before its record);
// - every cell has the colour a fresh colouring pass would give it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "LectorFuzz.h"
#include "editor/Coloreador.h"
#include "editor/Editor.h"
#include "lang/Cp1252.h"

namespace {

std::string Texto(const Editor& ed) {
  const Documento& d = ed.Doc();
  return d.Bytes({0, 0}, {d.NumFilas() - 1, d.LongFila(d.NumFilas() - 1)});
}

std::string Pos(Posicion p) {
  return "(" + std::to_string(p.fila) + "," + std::to_string(p.col) + ")";
}

// The offset of a position in the text with "\r\n" between rows.
std::size_t Desplazamiento(const Documento& d, Posicion p) {
  std::size_t n = static_cast<std::size_t>(p.col);
  for (int f = 0; f < p.fila; ++f)
    n += static_cast<std::size_t>(d.LongFila(f)) + 2;
  return n;
}

// Line breaks of inserted text ("\r\n", "\r" or "\n") as the document's.
std::string ConFinesCrLf(const std::string& bytes) {
  std::string r;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' || bytes[i] == '\n') {
      r += "\r\n";
      if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    } else {
      r += bytes[i];
    }
  }
  return r;
}

// The edit a command must make if it is accepted: [desde, hasta) replaced
// by `puesto` (Windows-1252, rows separated by "\r\n").
struct Edicion {
  Posicion desde, hasta;
  std::string puesto;
};

Edicion SobreSeleccionOCursor(const Documento& d, std::string puesto) {
  if (d.HaySel()) return {d.InicioSel(), d.FinSel(), std::move(puesto)};
  return {d.Cursor(), d.Cursor(), std::move(puesto)};
}

class Sesion {
public:
  Sesion(LectorFuzz& in) : in_(in) {}

  void Carga(const std::vector<std::string>& filas) {
    ed_.Carga(filas);
    limite_ = Documento::kMaxCeldas;
    for (const std::string& f : filas)
      limite_ = std::max(limite_, static_cast<int>(f.size()));
    estados_ = {Texto(ed_)};
    EXIGE(ed_.Hist().PosHistorial() == -1 && ed_.Hist().UltHistorial() == -1 && !ed_.Modificado(),
          "un documento cargado con historia o modificado");
    Comprueba();
  }

  void Paso();
  void Comprueba(bool colores = false);

private:
  void Cambio(const std::optional<Edicion>& esperada, const Resultado& r, bool continua);
  void Registra(int posAntes, bool continua);
  bool Recorre(const std::vector<std::string>& candidatos) const;
  void CompruebaColores() const;

  LectorFuzz& in_;
  Editor ed_;
  int limite_ = Documento::kMaxCeldas;
  int letra_ = 0, pc_ = 1, comentario_ = 2;
  int espTab_ = 4;
  // The text after each record of the history: estados_[k] is the text with
  // k records applied, estados_[0] the text before the oldest one kept.
  std::vector<std::string> estados_;
  // The state before the step under way.
  std::string antes_;
  int posAntes_ = -1, ultAntes_ = -1;
  bool modificadoAntes_ = false;
  std::string operacion_;
  std::vector<std::string> traza_; // the steps so far, for the failure message
};

void Sesion::Paso() {
  Documento& d = ed_.Doc();
  antes_ = Texto(ed_);
  posAntes_ = ed_.Hist().PosHistorial();
  ultAntes_ = ed_.Hist().UltHistorial();
  modificadoAntes_ = ed_.Modificado();
  const Posicion c = d.Cursor();
  const int largo = d.LongFila(c.fila);
  const std::uint8_t op = in_.Byte() % 32;
  operacion_ = std::to_string(op);
  traza_.push_back(operacion_);
  if (traza_.size() > 24) traza_.erase(traza_.begin());

  switch (op) {
  case 0:
  case 1:
  case 2:
  case 3:
  case 4:
  case 5: { // typing a character
    const std::string byte(1, static_cast<char>(in_.Byte()));
    const std::string utf8 = Cp1252AUtf8(byte);
    traza_.back() += " escribe " + Visible(byte);
    std::optional<Edicion> e;
    if (d.HaySel())
      e = Edicion{d.InicioSel(), d.FinSel(), byte};
    else if (!ed_.ModoInsertar() && c.col < largo)
      e = Edicion{c, {c.fila, c.col + 1}, byte};
    else
      e = Edicion{c, c, byte};
    const Resultado r = ed_.EditaCmd(kEscribir, utf8);
    Cambio(e, r, false);
    break;
  }
  case 6: { // deleting the selection, or cutting it
    const bool cortar = in_.Bit();
    const std::string sel = d.GetTextSel();
    const std::optional<Edicion> e = Edicion{d.InicioSel(), d.FinSel(), ""};
    const Resultado r = ed_.EditaCmd(cortar ? kCortar : kEliminarSel);
    if (r.hecho && cortar) EXIGE(ed_.CortadoCopiado() == sel, "lo cortado no es la selección");
    Cambio(e, r, false);
    break;
  }
  case 7:
  case 8: { // Backspace
    std::optional<Edicion> e;
    if (d.HaySel())
      e = Edicion{d.InicioSel(), d.FinSel(), ""};
    else if (c.col > 0)
      e = Edicion{{c.fila, c.col - 1}, c, ""};
    else if (c.fila > 0)
      e = Edicion{{c.fila - 1, d.LongFila(c.fila - 1)}, c, ""};
    Cambio(e, ed_.EditaCmd(kRetroceso), false);
    break;
  }
  case 9:
  case 10: { // Delete
    std::optional<Edicion> e;
    if (d.HaySel())
      e = Edicion{d.InicioSel(), d.FinSel(), ""};
    else if (c.col < largo)
      e = Edicion{c, {c.fila, c.col + 1}, ""};
    else if (c.fila + 1 < d.NumFilas())
      e = Edicion{c, {c.fila + 1, 0}, ""};
    Cambio(e, ed_.EditaCmd(kSuprimir), false);
    break;
  }
  case 11:
  case 12: { // pasting, or text written by a command
    const std::string texto = in_.TextoCorto(12);
    traza_.back() += " pega " + Visible(texto);
    const Edicion e = SobreSeleccionOCursor(d, ConFinesCrLf(Utf8ACp1252(texto)));
    const Resultado r = op == 11 ? ed_.EditaCmd(kPegar, texto) : ed_.EscribeTexto(texto);
    Cambio(e, r, false);
    break;
  }
  case 13: // Enter
    Cambio(SobreSeleccionOCursor(d, "\r\n"), ed_.EditaCmd(kSaltoLinea), false);
    break;
  case 14: { // codes that are no command
    static constexpr int kNoCodigos[] = {-1, 1, 3, 5, 7, 9, 11, 12, 13, 15, 16, 99};
    const int codigo = kNoCodigos[in_.Byte() % std::size(kNoCodigos)];
    const Resultado r = ed_.EditaCmd(codigo, "a");
    EXIGE(!r.hecho, "el código " + std::to_string(codigo) + " edita");
    Cambio(std::nullopt, r, false);
    break;
  }
  case 15: { // Tab
    const Posicion p = d.HaySel() ? d.InicioSel() : c;
    const int blancos = espTab_ - p.col % espTab_;
    const Edicion e = SobreSeleccionOCursor(d, std::string(static_cast<std::size_t>(blancos), ' '));
    Cambio(e, ed_.InsertaTab(), false);
    break;
  }
  case 16:
  case 17:
  case 18: { // cursor keys, with or without Shift
    const std::uint8_t b = in_.Byte();
    ed_.MueveCursorCmd(b % 10, b & 16, (b >> 5) % 5);
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  case 19: { // a click, with or without Shift; rows and columns off the text too
    const int fila = in_.Entre(-2, 40), col = in_.Entre(-2, 300);
    ed_.Pulsa(fila, col, in_.Bit());
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  case 20: { // dragging
    const int fila = in_.Entre(-2, 40), col = in_.Entre(-2, 300);
    ed_.Arrastra(fila, col);
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  case 21: // double click
    ed_.SeleccionaPalabra();
    Cambio(std::nullopt, {false, ""}, false);
    break;
  case 22:
  case 23: { // undo
    const bool puede = ed_.Hist().PuedeDeshacer();
    ed_.Deshacer();
    EXIGE(ed_.Hist().PosHistorial() == posAntes_ - (puede ? 1 : 0) &&
              ed_.Hist().UltHistorial() == ultAntes_,
          "Deshacer mueve mal la historia");
    EXIGE(Texto(ed_) == estados_[static_cast<std::size_t>(ed_.Hist().PosHistorial() + 1)],
          "Deshacer no devuelve el texto anterior: «" + Visible(Texto(ed_)) + "» en vez de «" +
              Visible(estados_[static_cast<std::size_t>(ed_.Hist().PosHistorial() + 1)]) + "»");
    break;
  }
  case 24:
  case 25: { // redo
    const bool puede = ed_.Hist().PuedeRehacer();
    ed_.Rehacer();
    EXIGE(ed_.Hist().PosHistorial() == posAntes_ + (puede ? 1 : 0) &&
              ed_.Hist().UltHistorial() == ultAntes_,
          "Rehacer mueve mal la historia");
    EXIGE(Texto(ed_) == estados_[static_cast<std::size_t>(ed_.Hist().PosHistorial() + 1)],
          "Rehacer no devuelve el texto siguiente");
    break;
  }
  case 26: { // insert or overwrite, tab width
    const std::uint8_t b = in_.Byte();
    if (b & 1)
      ed_.ModoInsertar(!ed_.ModoInsertar());
    else
      ed_.EspTab(b % 10 - 1), espTab_ = std::max(b % 10 - 1, 1);
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  case 27: { // selecting a span of a row, as the search does; spans off the row too
    const int fila = in_.Entre(-1, 20), col = in_.Entre(-1, 40), n = in_.Entre(-1, 40);
    d.SelectText(fila, col, n);
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  case 28: { // replacing inside one row, as the search does
    const int fila = in_.Byte() % d.NumFilas();
    const int lf = d.LongFila(fila);
    const int col = in_.Byte() % (lf + 1);
    const int n = in_.Byte() % (lf - col + 1);
    const std::string texto = in_.TextoCorto(6);
    const bool todo = in_.Bit(), continua = todo && in_.Bit();
    traza_.back() +=
        " reemplaza " + Pos({fila, col}) + " " + std::to_string(n) + " por " + Visible(texto);
    const Resultado r =
        ed_.ReemplazaEnFila(fila, col, n, texto, todo ? kReemplazarTodo : kReemplazar, continua);
    Cambio(Edicion{{fila, col}, {fila, col + n}, Utf8ACp1252(texto)}, r,
           continua && posAntes_ >= 0);
    break;
  }
  case 29: { // presentation colours
    letra_ = in_.Byte() % 16, pc_ = in_.Byte() % 16, comentario_ = in_.Byte() % 16;
    ed_.Colores(letra_, pc_, comentario_);
    Cambio(std::nullopt, {false, ""}, false);
    CompruebaColores();
    break;
  }
  case 30: { // what the view must draw again
    const Editor::FilasADibujar f = ed_.TomaCambios();
    EXIGE(f.desde >= -1 && (f.desde < 0 || f.hasta == -1 || f.hasta >= f.desde),
          "filas a dibujar " + std::to_string(f.desde) + ".." + std::to_string(f.hasta));
    Cambio(std::nullopt, {false, ""}, false);
    break;
  }
  default: { // a new document, or rows as from a file
    std::vector<std::string> filas(1);
    for (const char ch : in_.TextoCorto(16)) {
      if (ch == '\n')
        filas.emplace_back();
      else if (ch != '\r')
        filas.back() += ch;
    }
    Carga(filas);
    break;
  }
  }
}

// Checks the outcome of a command that may edit: accepted, it made exactly
// the expected edit and one history step; refused, it changed nothing.
void Sesion::Cambio(const std::optional<Edicion>& esperada, const Resultado& r, bool continua) {
  const std::string ahora = Texto(ed_);
  const Historial& h = ed_.Hist();
  if (!r.hecho) {
    EXIGE(ahora == antes_, "la operación " + operacion_ + " no edita y cambia el texto de «" +
                               Visible(antes_) + "» a «" + Visible(ahora) + "»");
    EXIGE(h.PosHistorial() == posAntes_ && h.UltHistorial() == ultAntes_,
          "la operación " + operacion_ + " no edita y cambia la historia");
    EXIGE(ed_.Modificado() == modificadoAntes_,
          "la operación " + operacion_ + " no edita y cambia la marca de modificado");
    return;
  }
  EXIGE(esperada.has_value(), "la operación " + operacion_ + " edita sin nada que editar");
  // The expected text, from the text before and the positions before.
  Documento previo;
  {
    std::vector<std::string> filas;
    for (std::size_t ini = 0;;) {
      const std::size_t fin = antes_.find("\r\n", ini);
      filas.push_back(antes_.substr(ini, fin == std::string::npos ? std::string::npos : fin - ini));
      if (fin == std::string::npos) break;
      ini = fin + 2;
    }
    previo.Carga(filas, 0);
  }
  const std::size_t a = Desplazamiento(previo, esperada->desde),
                    b = Desplazamiento(previo, esperada->hasta);
  const std::string esperado = antes_.substr(0, a) + esperada->puesto + antes_.substr(b);
  EXIGE(ahora == esperado, "la operación " + operacion_ + " deja «" + Visible(ahora) +
                               "» en vez de «" + Visible(esperado) + "»");
  EXIGE(ed_.Modificado(), "una edición no marca el documento como modificado");
  if (operacion_ != "28") {
    const Posicion fin = Documento::Fin(esperada->desde, esperada->puesto);
    EXIGE(ed_.Doc().Cursor() == fin && !ed_.Doc().HaySel(),
          "tras la operación " + operacion_ + " el cursor está en " + Pos(ed_.Doc().Cursor()) +
              " y no en " + Pos(fin));
  }
  Registra(posAntes_, continua);

  // Undoing right after the change gives back the text before its record,
  // and redoing gives this one again; tried on a copy, so that the session
  // goes on as the input says.
  Editor copia = ed_;
  copia.Deshacer();
  const int pos = ed_.Hist().PosHistorial();
  EXIGE(Texto(copia) == estados_[static_cast<std::size_t>(pos)],
        "deshacer la operación " + operacion_ + " deja «" + Visible(Texto(copia)) +
            "» en vez de «" + Visible(estados_[static_cast<std::size_t>(pos)]) + "»");
  copia.Rehacer();
  EXIGE(Texto(copia) == ahora, "rehacer la operación " + operacion_ + " deja «" +
                                   Visible(Texto(copia)) + "» en vez de «" + Visible(ahora) + "»");
}

// Follows the history through an accepted change: a new record (the oldest
// one giving way when all 32 are taken), or one more step of the record in
// force (typing that goes on, a replace-all).
void Sesion::Registra(int posAntes, bool continua) {
  const Historial& h = ed_.Hist();
  const int pos = h.PosHistorial();
  const std::string ahora = Texto(ed_);
  EXIGE(h.UltHistorial() == pos, "una edición deja algo que rehacer");
  estados_.resize(static_cast<std::size_t>(posAntes) + 2);
  std::vector<std::string> nuevo = estados_, seguido = estados_;
  nuevo.push_back(ahora);
  if (nuevo.size() > Historial::kMaxRegistros + 1) nuevo.erase(nuevo.begin());
  seguido.back() = ahora;
  if (continua) {
    EXIGE(pos == posAntes, "un paso más del registro mueve la historia");
    estados_ = seguido;
  } else if (pos == posAntes + 1) {
    estados_ = nuevo;
  } else {
    EXIGE(pos == posAntes && posAntes >= 0,
          "la historia pasa de " + std::to_string(posAntes) + " a " + std::to_string(pos));
    if (posAntes < Historial::kMaxRegistros - 1) {
      estados_ = seguido;
    } else {
      // With every record taken, a new record and a continued one leave the
      // position where it was: the texts that undoing walks through tell.
      const bool esNuevo = Recorre(nuevo), esSeguido = Recorre(seguido);
      EXIGE(esNuevo || esSeguido, "deshacer todo no recorre los textos de la sesión");
      estados_ = esNuevo ? nuevo : seguido;
    }
  }
}

// Whether undoing everything and redoing it all again, on a copy, walks
// through exactly these texts.
bool Sesion::Recorre(const std::vector<std::string>& candidatos) const {
  Editor copia = ed_;
  for (int pos = copia.Hist().PosHistorial(); pos >= 0; --pos) {
    if (Texto(copia) != candidatos[static_cast<std::size_t>(pos + 1)]) return false;
    copia.Deshacer();
  }
  if (Texto(copia) != candidatos[0]) return false;
  for (std::size_t k = 1; k < candidatos.size(); ++k) {
    copia.Rehacer();
    if (Texto(copia) != candidatos[k]) return false;
  }
  return true;
}

void Sesion::CompruebaColores() const {
  Documento fresco = ed_.Doc();
  Coloreador col;
  col.Colores(letra_, pc_, comentario_);
  col.ColoreaFilas(fresco, 0, fresco.NumFilas() - 1);
  for (int f = 0; f < fresco.NumFilas(); ++f)
    EXIGE(fresco.Fila(f) == ed_.Doc().Fila(f), "la fila " + std::to_string(f) + " «" +
                                                   Visible(fresco.BytesFila(f)) +
                                                   "» no tiene los colores de un coloreado nuevo");
}

void Sesion::Comprueba(bool colores) {
  const Documento& d = ed_.Doc();
  const Historial& h = ed_.Hist();
  const auto traza = [&] {
    std::string t;
    for (const std::string& paso : traza_)
      t += paso + "; ";
    return t;
  };
  EXIGE(d.NumFilas() >= 1, "un documento sin filas");
  const auto dentro = [&](Posicion p) {
    return p.fila >= 0 && p.fila < d.NumFilas() && p.col >= 0 && p.col <= d.LongFila(p.fila);
  };
  EXIGE(dentro(d.Cursor()), "el cursor " + Pos(d.Cursor()) + " fuera del texto tras " + traza());
  // Without a selection its ends are only the anchor a drag would start
  // from, which Arrastra brings back into the text: they may be stale.
  if (d.HaySel()) {
    EXIGE(dentro(d.Sel1()) && dentro(d.Sel2()), "la selección " + Pos(d.Sel1()) + ".." +
                                                    Pos(d.Sel2()) + " fuera del texto tras " +
                                                    traza());
    EXIGE(!(d.Sel1() == d.Sel2()), "una selección vacía");
    EXIGE(static_cast<int>(Utf8ACp1252(d.GetTextSel()).size()) == d.LongSel(),
          "LongSel no es el largo del texto seleccionado");
  }
  EXIGE(h.PosHistorial() >= -1 && h.PosHistorial() <= h.UltHistorial() &&
            h.UltHistorial() < Historial::kMaxRegistros,
        "historia " + std::to_string(h.PosHistorial()) + "/" + std::to_string(h.UltHistorial()));
  EXIGE(estados_.size() == static_cast<std::size_t>(h.UltHistorial()) + 2,
        "la historia y la sesión no concuerdan");
  EXIGE(Texto(ed_) == estados_[static_cast<std::size_t>(h.PosHistorial() + 1)],
        "el texto no es el de la posición de la historia tras " + traza());
  for (int f = 0; f < d.NumFilas(); ++f)
    EXIGE(d.LongFila(f) <= limite_,
          "la fila " + std::to_string(f) + " tiene " + std::to_string(d.LongFila(f)) + " celdas");
  if (colores) CompruebaColores();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  Sesion s(in);
  // The document to start with: a few rows, and perhaps one loaded row longer
  // than a typed row may be.
  const std::uint8_t inicio = in.Byte();
  std::vector<std::string> filas(1);
  for (const char ch : in.Texto(inicio % 48)) {
    if (ch == '\n')
      filas.emplace_back();
    else if (ch != '\r')
      filas.back() += ch;
  }
  if (inicio & 64) filas.push_back(std::string(300, 'a'));
  s.Carga(filas);
  for (int pasos = 0; !in.Agotado(); ++pasos)
    s.Paso(), s.Comprueba(pasos % 64 == 63);
  s.Comprueba(true);
  return 0;
}
