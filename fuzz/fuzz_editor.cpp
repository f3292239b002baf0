// A session of editing commands, mouse actions, undos and redos on the document
// model, one command per input byte (modulo 32; semillas.py writes the layout
// down), the document followed as one text with "\r\n" between rows. After
// every step the cursor and a selection's ends lie within their rows, no row
// outgrows the row limit (or a longer loaded row), and the text is the one the
// session had at the history's position: undo and redo walk through exactly
// the texts it went through. An accepted edit replaced exactly the span it
// acts on and left the cursor after it; a refused or non-editing command
// changed nothing. Now and then, and after every change of colours, every cell
// has the colour a fresh colouring pass gives it.

#include "LectorFuzz.h"
#include "editor/Coloreador.h"
#include "editor/Editor.h"
#include "lang/Cp1252.h"

// The document as one text of Windows-1252 bytes, and an offset in it.
static std::string Texto(const Editor& ed) {
  const Documento& d = ed.Doc();
  return d.Bytes({0, 0}, {d.NumFilas() - 1, d.LongFila(d.NumFilas() - 1)});
}
static std::size_t Desp(const Documento& d, Posicion p) { return d.Bytes({0, 0}, p).size(); }

// Rows from bytes, as a file would give them.
static std::vector<std::string> Filas(std::string bytes) {
  std::erase(bytes, '\r');
  std::vector<std::string> filas(1);
  for (const char ch : bytes)
    ch == '\n' ? filas.emplace_back() : filas.back() += ch;
  return filas;
}

// Inserted line breaks ("\r\n", "\r" or "\n") become the document's.
static std::string ConFinesCrLf(const std::string& b) {
  std::string r;
  for (std::size_t i = 0; i < b.size(); i += b.compare(i, 2, "\r\n") == 0 ? 2 : 1)
    b[i] == '\r' || b[i] == '\n' ? r += "\r\n" : r += b[i];
  return r;
}

struct Sesion {
  LectorFuzz& in;
  Editor ed{};
  int limite = 0, letra = 0, pc = 1, comentario = 2, espTab = 4, op = 0;
  std::vector<std::string> estados{}; // [k]: the text with k records of the history applied
  // The text before the step, and what an accepted command must leave, worked out before it
  // moves the cursor: the text, and the cursor's offset after what it put (npos: no edit).
  std::string antes{}, esperado{};
  std::size_t tras = std::string::npos;
  bool recolorea = false;

  // The step: its command, the text before it, the text now and the one expected.
  std::string Que() const { return std::to_string(op) + En(antes) + En(Texto(ed)) + En(esperado); }

  void Carga(const std::vector<std::string>& filas) {
    ed.Carga(filas);
    limite = Documento::kMaxCeldas;
    for (const std::string& f : filas)
      limite = std::max(limite, static_cast<int>(f.size()));
    estados = {Texto(ed)};
    EXIGE(ed.Hist().UltHistorial() == -1 && !ed.Modificado(), Que());
  }

  void Paso() {
    Documento& d = ed.Doc();
    const Historial& h = ed.Hist();
    antes = Texto(ed), tras = std::string::npos, recolorea = false;
    const int posAntes = h.PosHistorial();
    const Posicion c = d.Cursor();
    const bool marcado = ed.Modificado(), sel = d.HaySel(), alFinal = c.col == d.LongFila(c.fila);
    const std::size_t ini = Desp(d, sel ? d.InicioSel() : c), fin = sel ? Desp(d, d.FinSel()) : ini;
    const auto pon = [&](std::size_t desde, std::size_t hasta, const std::string& puesto) {
      esperado = antes.substr(0, desde) + puesto + antes.substr(hasta);
      tras = desde + puesto.size();
    };
    Resultado r{false, ""};
    int b = 0, fila = 0, col = 0, continua = false;
    std::string t;
    // The command of each byte value, several values for the common ones.
    static constexpr int kOrden[32] = {0, 0, 0, 0, 0, 0, 1, 2, 2, 2, 2,  3,  3,  3,  0, 5,
                                       6, 6, 6, 7, 7, 8, 9, 9, 9, 9, 10, 11, 12, 13, 8, 14};
    op = in.Byte() % 32;
    switch (kOrden[op]) {
    case 0: // typing, inserting or overwriting
      t.assign(1, static_cast<char>(in.Byte()));
      pon(ini, !sel && !ed.ModoInsertar() && !alFinal ? ini + 1 : fin, t);
      r = ed.EditaCmd(kEscribir, Cp1252AUtf8(t));
      break;
    case 1: // cutting or deleting the selection
      b = in.Bit(), t = d.GetTextSel();
      if (sel) pon(ini, fin, "");
      r = ed.EditaCmd(b ? kCortar : kEliminarSel);
      EXIGE(!r.hecho || !b || ed.CortadoCopiado() == t, Que());
      break;
    case 2: // Backspace, Delete
      if (sel)
        pon(ini, fin, "");
      else if (op < 9 && ini > 0)
        pon(ini - (c.col == 0 ? 2 : 1), ini, "");
      else if (op >= 9 && (!alFinal || c.fila + 1 < d.NumFilas()))
        pon(ini, ini + (alFinal ? 2 : 1), "");
      r = ed.EditaCmd(op < 9 ? kRetroceso : kSuprimir);
      break;
    case 3: // pasting, text written by a command, Enter
      t = op == 13 ? "\n" : in.TextoCorto(12);
      pon(ini, fin, ConFinesCrLf(Utf8ACp1252(t)));
      r = op == 11   ? ed.EditaCmd(kPegar, t)
          : op == 12 ? ed.EscribeTexto(t)
                     : ed.EditaCmd(kSaltoLinea);
      break;
    case 5: // Tab, to the next multiple of the tab width
      pon(ini, fin, std::string(espTab - (sel ? d.InicioSel().col : c.col) % espTab, ' '));
      r = ed.InsertaTab();
      break;
    case 6: // cursor keys, with or without Shift
      b = in.Byte();
      ed.MueveCursorCmd(b % 10, b & 16, (b >> 5) % 5);
      break;
    case 7: // a click (perhaps with Shift) or a drag; off the text too
      fila = in.Entre(-2, 40), col = in.Entre(-2, 300);
      op == 19 ? ed.Pulsa(fila, col, in.Bit()) : ed.Arrastra(fila, col);
      break;
    case 8: // double click
      ed.SeleccionaPalabra();
      break;
    case 9: // undo, redo: one step when there is one to take
      b = op < 24 ? -h.PuedeDeshacer() : h.PuedeRehacer();
      op < 24 ? ed.Deshacer() : ed.Rehacer();
      return EXIGE(h.PosHistorial() == posAntes + b, Que());
    case 10: // insert or overwrite, tab width
      b = in.Byte();
      b & 1 ? ed.ModoInsertar(!ed.ModoInsertar()) : ed.EspTab(b % 10 - 1);
      espTab = b & 1 ? espTab : std::max(b % 10 - 1, 1);
      break;
    case 11: // a span of a row chosen as the search does; off the row too
      fila = in.Entre(-1, 20), col = in.Entre(-1, 40);
      d.SelectText(fila, col, in.Entre(-1, 40));
      break;
    case 12: // replacing inside one row, as the search does
      fila = in.Byte() % d.NumFilas(), col = in.Byte() % (d.LongFila(fila) + 1);
      b = in.Byte() % (d.LongFila(fila) - col + 1), t = in.TextoCorto(6);
      continua = in.Bit() ? 1 + in.Bit() : 0; // 1: replace all, 2: and go on with the record
      pon(Desp(d, {fila, col}), Desp(d, {fila, col + b}), Utf8ACp1252(t));
      r = ed.ReemplazaEnFila(fila, col, b, t, continua ? kReemplazarTodo : kReemplazar,
                             continua == 2);
      continua = continua == 2 && posAntes >= 0;
      break;
    case 13: // presentation colours
      letra = in.Byte() % 16, pc = in.Byte() % 16, comentario = in.Byte() % 16;
      ed.Colores(letra, pc, comentario);
      recolorea = true;
      break;
    default: // a new document
      return Carga(Filas(in.TextoCorto(16)));
    }

    // Refused, nothing changed (Comprueba holds the text to the history). Accepted,
    // the expected edit and one step: a new record, or one more of the last.
    const std::string ahora = Texto(ed);
    const int pos = h.PosHistorial();
    EXIGE(r.hecho || (pos == posAntes && ed.Modificado() == marcado), Que());
    if (!r.hecho) return;
    EXIGE(tras != std::string::npos && esperado == ahora && ed.Modificado() &&
              (op == 28 || (Desp(d, d.Cursor()) == tras && !d.HaySel())),
          Que());
    EXIGE((pos == posAntes + 1 && !continua) || (pos == posAntes && posAntes >= 0), Que());
    estados.resize(posAntes + 2);
    auto nuevo = estados, seguido = estados;
    nuevo.push_back(ahora), seguido.back() = ahora;
    if (nuevo.size() > Historial::kMaxRegistros + 1) nuevo.erase(nuevo.begin());
    // With every record taken, a new record also leaves the position where
    // it was: the texts that undoing walks through tell which it was.
    const bool lleno = pos == posAntes && !continua && posAntes == Historial::kMaxRegistros - 1;
    const bool registro = pos > posAntes || (lleno && Recorre(nuevo));
    EXIGE(registro || !lleno || Recorre(seguido), Que());
    estados = registro ? nuevo : seguido;
    Editor copia = ed; // undoing right away gives back the text before
    copia.Deshacer();
    EXIGE(Texto(copia) == estados[pos], Que());
  }

  // Whether undoing and redoing everything, on a copy, walks through these texts.
  bool Recorre(const std::vector<std::string>& textos) const {
    Editor copia = ed;
    for (int pos = copia.Hist().PosHistorial(); pos >= -1; --pos, copia.Deshacer())
      if (Texto(copia) != textos[pos + 1]) return false;
    for (std::size_t k = 1; k < textos.size(); ++k)
      if (copia.Rehacer(), Texto(copia) != textos[k]) return false;
    return true;
  }

  void Comprueba(bool colores) const {
    const Documento& d = ed.Doc();
    const auto dentro = [&](Posicion p) {
      return p.fila >= 0 && p.fila < d.NumFilas() && p.col >= 0 && p.col <= d.LongFila(p.fila);
    };
    // Without a selection its ends are only the anchor a drag would start
    // from, which Arrastra brings back into the text: they may be stale.
    EXIGE(dentro(d.Cursor()) &&
              (!d.HaySel() || (dentro(d.Sel1()) && dentro(d.Sel2()) && !(d.Sel1() == d.Sel2()) &&
                               std::ssize(Utf8ACp1252(d.GetTextSel())) == d.LongSel())),
          Que());
    const int pos = ed.Hist().PosHistorial(), ult = ed.Hist().UltHistorial();
    EXIGE(pos >= -1 && pos <= ult && std::ssize(estados) == ult + 2 &&
              Texto(ed) == estados[pos + 1],
          Que());
    for (int f = 0; f < d.NumFilas(); ++f)
      EXIGE(d.LongFila(f) <= limite, Que());
    if (!colores && !recolorea) return;
    Documento fresco = d;
    Coloreador col;
    col.Colores(letra, pc, comentario);
    col.ColoreaFilas(fresco, 0, fresco.NumFilas() - 1);
    for (int f = 0; f < d.NumFilas(); ++f)
      EXIGE(fresco.Fila(f) == d.Fila(f), "fila " + std::to_string(f) + ", " + Que());
  }
};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tam) {
  LectorFuzz in(datos, tam);
  Sesion s{in};
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
