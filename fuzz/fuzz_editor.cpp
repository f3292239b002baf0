// A session of editing commands, mouse actions, undos and redos against the
// document model, driven by the input's bytes (one byte picks the command,
// modulo 32; the seeds' layout is written down in semillas.py). The document
// is followed as one text with "\r\n" between rows. After every step:
// - the cursor and both ends of a selection lie within their rows, and no
//   row grows past the row limit (or past a longer loaded row);
// - an accepted edit replaced exactly the span it acts on and left the
//   cursor after it; a refused or non-editing command changed nothing;
// - the text is the one the session had at the history's position, so that
//   undo and redo walk through exactly the texts the session went through;
// - now and then, and after every change of colours, every cell has the
//   colour a fresh colouring pass gives it.

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

// The offset of a position in the text.
std::size_t Desp(const Documento& d, Posicion p) {
  std::size_t n = static_cast<std::size_t>(p.col);
  for (int f = 0; f < p.fila; ++f)
    n += static_cast<std::size_t>(d.LongFila(f)) + 2;
  return n;
}

// Rows from bytes, as a file would give them.
std::vector<std::string> Filas(const std::string& bytes) {
  std::vector<std::string> filas(1);
  for (const char ch : bytes)
    if (ch == '\n')
      filas.emplace_back();
    else if (ch != '\r')
      filas.back() += ch;
  return filas;
}

// Inserted line breaks ("\r\n", "\r" or "\n") become the document's.
std::string ConFinesCrLf(const std::string& b) {
  std::string r;
  for (std::size_t i = 0; i < b.size(); ++i)
    if (b[i] != '\r' && b[i] != '\n')
      r += b[i];
    else if (r += "\r\n", b[i] == '\r' && i + 1 < b.size() && b[i + 1] == '\n')
      ++i;
  return r;
}

// An accepted command must replace the text's [desde, hasta) by `puesto`.
struct Edicion {
  std::size_t desde, hasta;
  std::string puesto;
};

struct Sesion {
  explicit Sesion(LectorFuzz& in) : in_(in) {}
  LectorFuzz& in_;
  Editor ed_;
  int limite_ = 0, letra_ = 0, pc_ = 1, comentario_ = 2, espTab_ = 4, op_ = 0;
  // estados_[k]: the text with k records of the history applied.
  std::vector<std::string> estados_;
  std::string antes_; // the text before the step under way
  int posAntes_ = -1, ultAntes_ = -1;
  bool modificadoAntes_ = false;

  std::string Que() const {
    return "la orden " + std::to_string(op_) + " sobre «" + Visible(antes_);
  }

  void Carga(const std::vector<std::string>& filas) {
    ed_.Carga(filas);
    limite_ = Documento::kMaxCeldas;
    for (const std::string& f : filas)
      limite_ = std::max(limite_, static_cast<int>(f.size()));
    estados_ = {Texto(ed_)};
    EXIGE(ed_.Hist().UltHistorial() == -1 && !ed_.Modificado(),
          "un documento cargado con historia");
  }

  void Paso() {
    Documento& d = ed_.Doc();
    const Historial& h = ed_.Hist();
    antes_ = Texto(ed_), posAntes_ = h.PosHistorial(), ultAntes_ = h.UltHistorial();
    modificadoAntes_ = ed_.Modificado();
    const Posicion c = d.Cursor();
    const bool sel = d.HaySel(), alFinal = c.col == d.LongFila(c.fila);
    const std::size_t ini = Desp(d, sel ? d.InicioSel() : c), fin = sel ? Desp(d, d.FinSel()) : ini;
    const auto sobre = [&](const std::string& puesto) { return Edicion{ini, fin, puesto}; };
    std::optional<Edicion> e; // computed before the command moves the cursor
    Resultado r{false, ""};
    bool continua = false;
    // The command of each value of the byte: several values for the common ones.
    static constexpr int kOrden[32] = {0, 0, 0, 0, 0, 0, 1, 2, 2, 2, 2,  3,  3,  4,  0, 5,
                                       6, 6, 6, 7, 7, 8, 9, 9, 9, 9, 10, 11, 12, 13, 8, 14};
    op_ = in_.Byte() % 32;
    switch (kOrden[op_]) {
    case 0: { // typing, inserting or overwriting
      const std::string b(1, static_cast<char>(in_.Byte()));
      e = !sel && !ed_.ModoInsertar() && !alFinal ? Edicion{ini, ini + 1, b} : sobre(b);
      r = ed_.EditaCmd(kEscribir, Cp1252AUtf8(b));
      break;
    }
    case 1: { // cutting or deleting the selection
      const bool cortar = in_.Bit();
      const std::string seleccion = d.GetTextSel();
      if (sel) e = sobre("");
      r = ed_.EditaCmd(cortar ? kCortar : kEliminarSel);
      EXIGE(!r.hecho || !cortar || ed_.CortadoCopiado() == seleccion,
            "lo cortado no es lo elegido");
      break;
    }
    case 2: // Backspace, Delete
      if (sel)
        e = sobre("");
      else if (op_ < 9 && ini > 0)
        e = Edicion{ini - (c.col == 0 ? 2 : 1), ini, ""};
      else if (op_ >= 9 && (!alFinal || c.fila + 1 < d.NumFilas()))
        e = Edicion{ini, ini + (alFinal ? 2 : 1), ""};
      r = ed_.EditaCmd(op_ < 9 ? kRetroceso : kSuprimir);
      break;
    case 3: { // pasting, or text written by a command
      const std::string t = in_.TextoCorto(12);
      e = sobre(ConFinesCrLf(Utf8ACp1252(t)));
      r = op_ == 11 ? ed_.EditaCmd(kPegar, t) : ed_.EscribeTexto(t);
      break;
    }
    case 4: // Enter
      e = sobre("\r\n");
      r = ed_.EditaCmd(kSaltoLinea);
      break;
    case 5: // Tab, to the next multiple of the tab width
      e = sobre(std::string(espTab_ - (sel ? d.InicioSel().col : c.col) % espTab_, ' '));
      r = ed_.InsertaTab();
      break;
    case 6: { // cursor keys, with or without Shift
      const std::uint8_t b = in_.Byte();
      ed_.MueveCursorCmd(b % 10, b & 16, (b >> 5) % 5);
      break;
    }
    case 7: { // a click (perhaps with Shift) or a drag; off the text too
      const int fila = in_.Entre(-2, 40), col = in_.Entre(-2, 300);
      op_ == 19 ? ed_.Pulsa(fila, col, in_.Bit()) : ed_.Arrastra(fila, col);
      break;
    }
    case 8: // double click
      ed_.SeleccionaPalabra();
      break;
    case 9: { // undo, redo
      const bool deshacer = op_ < 24, puede = deshacer ? h.PuedeDeshacer() : h.PuedeRehacer();
      deshacer ? ed_.Deshacer() : ed_.Rehacer();
      EXIGE(h.PosHistorial() == posAntes_ + (puede ? (deshacer ? -1 : 1) : 0) &&
                h.UltHistorial() == ultAntes_,
            Que() + "» mueve mal la historia");
      return;
    }
    case 10: { // insert or overwrite, tab width
      const int b = in_.Byte();
      b & 1 ? ed_.ModoInsertar(!ed_.ModoInsertar()) : ed_.EspTab(b % 10 - 1);
      espTab_ = b & 1 ? espTab_ : std::max(b % 10 - 1, 1);
      break;
    }
    case 11: { // a span of a row chosen as the search does; off the row too
      const int fila = in_.Entre(-1, 20), col = in_.Entre(-1, 40);
      d.SelectText(fila, col, in_.Entre(-1, 40));
      break;
    }
    case 12: { // replacing inside one row, as the search does
      const int fila = in_.Byte() % d.NumFilas(), lf = d.LongFila(fila);
      const int col = in_.Byte() % (lf + 1), n = in_.Byte() % (lf - col + 1);
      const std::string t = in_.TextoCorto(6);
      const bool todo = in_.Bit();
      continua = todo && in_.Bit();
      const std::size_t a = Desp(d, {fila, col});
      e = Edicion{a, a + static_cast<std::size_t>(n), Utf8ACp1252(t)};
      r = ed_.ReemplazaEnFila(fila, col, n, t, todo ? kReemplazarTodo : kReemplazar, continua);
      continua = continua && posAntes_ >= 0;
      break;
    }
    case 13: // presentation colours
      letra_ = in_.Byte() % 16, pc_ = in_.Byte() % 16, comentario_ = in_.Byte() % 16;
      ed_.Colores(letra_, pc_, comentario_);
      CompruebaColores();
      break;
    default: // a new document
      Carga(Filas(in_.TextoCorto(16)));
      return;
    }
    Cambio(e, r, continua);
  }

  // Accepted, a command made exactly the expected edit and one step of the
  // history (a new record, or one more step of the record in force);
  // refused, it changed nothing.
  void Cambio(const std::optional<Edicion>& e, const Resultado& r, bool continua) {
    const std::string ahora = Texto(ed_);
    const Historial& h = ed_.Hist();
    const int pos = h.PosHistorial();
    if (!r.hecho) {
      EXIGE(ahora == antes_ && pos == posAntes_ && h.UltHistorial() == ultAntes_ &&
                ed_.Modificado() == modificadoAntes_,
            Que() + "» no edita y cambia el texto o la historia: «" + Visible(ahora) + "»");
      return;
    }
    EXIGE(e.has_value(), Que() + "» edita sin nada que editar");
    const std::string esperado = antes_.substr(0, e->desde) + e->puesto + antes_.substr(e->hasta);
    EXIGE(ahora == esperado, Que() + "» deja «" + Visible(ahora) + "», no «" + Visible(esperado));
    EXIGE(ed_.Modificado() && h.UltHistorial() == pos,
          Que() + "» sin marca o con algo que rehacer");
    if (op_ != 28)
      EXIGE(Desp(ed_.Doc(), ed_.Doc().Cursor()) == e->desde + e->puesto.size() &&
                !ed_.Doc().HaySel(),
            Que() + "» no deja el cursor tras lo puesto");

    estados_.resize(static_cast<std::size_t>(posAntes_) + 2);
    std::vector<std::string> nuevo = estados_, seguido = estados_;
    nuevo.push_back(ahora);
    if (nuevo.size() > Historial::kMaxRegistros + 1) nuevo.erase(nuevo.begin());
    seguido.back() = ahora;
    if (pos == posAntes_ + 1 && !continua) {
      estados_ = nuevo;
    } else {
      EXIGE(pos == posAntes_ && posAntes_ >= 0,
            Que() + "» lleva la historia a " + std::to_string(pos));
      // With every record taken, a new record also leaves the position where
      // it was: the texts that undoing walks through tell which it was.
      const bool lleno = !continua && posAntes_ == Historial::kMaxRegistros - 1;
      EXIGE(!lleno || Recorre(nuevo) || Recorre(seguido), Que() + "» rompe deshacer y rehacer");
      estados_ = lleno && Recorre(nuevo) ? nuevo : seguido;
    }
    // Undoing right after the change, on a copy, gives back the text before.
    Editor copia = ed_;
    copia.Deshacer();
    EXIGE(Texto(copia) == estados_[static_cast<std::size_t>(pos)], Que() + "» no se deshace");
  }

  // Whether undoing everything and redoing it all, on a copy, walks through
  // exactly these texts.
  bool Recorre(const std::vector<std::string>& textos) const {
    Editor copia = ed_;
    for (int pos = copia.Hist().PosHistorial(); pos >= -1; --pos) {
      if (Texto(copia) != textos[static_cast<std::size_t>(pos + 1)]) return false;
      copia.Deshacer();
    }
    for (std::size_t k = 1; k < textos.size(); ++k)
      if (copia.Rehacer(), Texto(copia) != textos[k]) return false;
    return true;
  }

  void CompruebaColores() const {
    Documento fresco = ed_.Doc();
    Coloreador col;
    col.Colores(letra_, pc_, comentario_);
    col.ColoreaFilas(fresco, 0, fresco.NumFilas() - 1);
    for (int f = 0; f < fresco.NumFilas(); ++f)
      EXIGE(fresco.Fila(f) == ed_.Doc().Fila(f), "la fila " + std::to_string(f) + " «" +
                                                     Visible(fresco.BytesFila(f)) +
                                                     "» mal coloreada");
  }

  void Comprueba(bool colores) {
    const Documento& d = ed_.Doc();
    const Historial& h = ed_.Hist();
    const auto dentro = [&](Posicion p) {
      return p.fila >= 0 && p.fila < d.NumFilas() && p.col >= 0 && p.col <= d.LongFila(p.fila);
    };
    EXIGE(dentro(d.Cursor()), "el cursor fuera del texto tras " + Que());
    // Without a selection its ends are only the anchor a drag would start
    // from, which Arrastra brings back into the text: they may be stale.
    EXIGE(!d.HaySel() || (dentro(d.Sel1()) && dentro(d.Sel2()) && !(d.Sel1() == d.Sel2()) &&
                          static_cast<int>(Utf8ACp1252(d.GetTextSel()).size()) == d.LongSel()),
          "la selección fuera del texto o vacía tras " + Que());
    EXIGE(h.PosHistorial() >= -1 && h.PosHistorial() <= h.UltHistorial() &&
              estados_.size() == static_cast<std::size_t>(h.UltHistorial()) + 2 &&
              Texto(ed_) == estados_[static_cast<std::size_t>(h.PosHistorial() + 1)],
          "el texto no es el de la posición de la historia tras " + Que());
    for (int f = 0; f < d.NumFilas(); ++f)
      EXIGE(d.LongFila(f) <= limite_, "una fila pasa del límite tras " + Que());
    if (colores) CompruebaColores();
  }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  Sesion s(in);
  // A few rows to start with, perhaps one loaded longer than a typed row may be.
  const std::uint8_t inicio = in.Byte();
  std::vector<std::string> filas = Filas(in.Texto(inicio % 48));
  if (inicio & 64) filas.push_back(std::string(300, 'a'));
  s.Carga(filas);
  for (int pasos = 0; !in.Agotado(); ++pasos)
    s.Paso(), s.Comprueba(pasos % 64 == 63);
  s.Comprueba(true);
  return 0;
}
