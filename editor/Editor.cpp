#include "editor/Editor.h"

#include <algorithm>

#include "lang/Caracteres.h"
#include "lang/Cp1252.h"

Editor::Editor() { coloreador_.Colores(0, 1, 2); }

void Editor::Colores(int letra, int palabraClave, int comentario) {
  colorLetra_ = letra;
  coloreador_.Colores(letra, palabraClave, comentario);
  coloreador_.ColoreaFilas(doc_, 0, doc_.NumFilas() - 1);
  Marca(0, -1);
}

void Editor::Marca(int desde, int hasta) {
  if (cambios_.desde < 0) {
    cambios_ = {desde, hasta};
    return;
  }
  const bool alFinal = hasta < 0 || cambios_.hasta < 0;
  cambios_.desde = std::min(cambios_.desde, desde);
  cambios_.hasta = alFinal ? -1 : std::max(cambios_.hasta, hasta);
}

Editor::FilasADibujar Editor::TomaCambios() {
  const FilasADibujar c = cambios_;
  cambios_ = {};
  return c;
}

// The one place where rows change.
Posicion Editor::Aplica(const Reemplazo& r) {
  const Posicion finQuitado = Documento::Fin(r.pos, r.quitado);
  doc_.Quita(r.pos, finQuitado);
  const Posicion fin = doc_.Inserta(r.pos, r.puesto, colorLetra_);
  coloreador_.ColoreaFilas(doc_, r.pos.fila, fin.fila);
  const bool mismasFilas = finQuitado.fila == fin.fila;
  Marca(r.pos.fila, mismasFilas ? fin.fila : -1);
  return fin;
}

void Editor::Deshace(const Reemplazo& r) { Aplica(Reemplazo{r.pos, r.puesto, r.quitado}); }

// Whether replacing [desde, hasta) by `bytes` keeps every row it makes within
// the row limit (a row already longer, loaded from a file, may stay so as
// long as it does not grow). The rows of `bytes` are parted as
// Documento::Inserta parts them.
bool Editor::CabeEnFilas(Posicion desde, Posicion hasta, const std::string& bytes) const {
  const int antes = desde.col, despues = doc_.LongFila(hasta.fila) - hasta.col;
  const int limite =
      std::max({Documento::kMaxCeldas, doc_.LongFila(desde.fila), doc_.LongFila(hasta.fila)});
  int largo = antes;
  bool primera = true; // rows in between are new: they take the plain limit
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
      if (largo > (primera ? limite : Documento::kMaxCeldas)) return false;
      primera = false;
      largo = 0;
      ++i;
    } else {
      ++largo;
    }
  }
  largo += despues;
  return largo <= limite;
}

Resultado Editor::Cambia(int tipo, Posicion desde, Posicion hasta, const std::string& bytes) {
  Reemplazo r{desde, doc_.Bytes(desde, hasta), bytes};
  const Posicion fin = Aplica(r);
  historial_.RegistraCambio(Cambio{tipo, {r}});
  doc_.QuitaSeleccion();
  doc_.MueveCursor(fin.fila, fin.col);
  return {};
}

Resultado Editor::InsertaTexto(const std::string& texto, int tipo) {
  if (texto.empty()) return {false, ""};
  if (const std::string c = PrimerCaracterAjeno(texto); !c.empty())
    return {false, "El texto contiene el carácter «" + c +
                       "», que el documento no puede guardar. No se ha insertado nada."};
  const std::string bytes = FinesDeLineaDeDocumento(Utf8ACp1252(texto));
  const Posicion desde = doc_.HaySel() ? doc_.InicioSel() : doc_.Cursor();
  const Posicion hasta = doc_.HaySel() ? doc_.FinSel() : doc_.Cursor();
  if (!CabeEnFilas(desde, hasta, bytes))
    return {false,
            "El texto no cabe: una línea pasaría de 256 caracteres. No se ha insertado nada."};
  return Cambia(tipo, desde, hasta, bytes);
}

Resultado Editor::EscribeTexto(const std::string& texto) {
  return InsertaTexto(texto, kEscribirTexto);
}

Resultado Editor::EditaCmd(int codigo, const std::string& texto) {
  const Posicion c = doc_.Cursor();
  const int largo = doc_.LongFila(c.fila);
  // Removing a selection over rows joins the rest of its first and last rows.
  const auto quitaSeleccion = [&](int tipo) -> Resultado {
    if (!CabeEnFilas(doc_.InicioSel(), doc_.FinSel(), ""))
      return {false, "No se puede quitar la selección: una línea pasaría de 256 caracteres."};
    if (tipo == kCortar) cortado_ = doc_.GetTextSel();
    return Cambia(tipo, doc_.InicioSel(), doc_.FinSel(), "");
  };
  switch (codigo) {
  case kEscribir: {
    const std::string byte = Utf8ACp1252(texto);
    if (byte.size() != 1 || !PrimerCaracterAjeno(texto).empty()) return {false, ""};
    // Enter, Backspace and Tab come as commands; their control characters in
    // a cell would read back as line breaks the rows do not have.
    if (static_cast<unsigned char>(byte[0]) < 0x20 || byte[0] == 0x7F) return {false, ""};
    if (doc_.HaySel()) return InsertaTexto(texto, kEscribir);
    // A full row takes no more characters; overwriting inside it still works.
    if ((c.col >= largo || modoInsertar_) && largo >= Documento::kMaxCeldas) return {false, ""};
    const Posicion hasta = !modoInsertar_ && c.col < largo ? Posicion{c.fila, c.col + 1} : c;
    return Cambia(kEscribir, c, hasta, byte);
  }
  case kEliminarSel:
  case kCortar:
    if (!doc_.HaySel()) return {false, ""};
    return quitaSeleccion(codigo);
  case kRetroceso:
    if (doc_.HaySel()) return quitaSeleccion(kRetroceso);
    if (c.col > 0) return Cambia(kRetroceso, {c.fila, c.col - 1}, c, "");
    if (c.fila == 0) return {false, ""};
    if (doc_.LongFila(c.fila - 1) + largo > Documento::kMaxCeldas) return {false, ""};
    return Cambia(kRetroceso, {c.fila - 1, doc_.LongFila(c.fila - 1)}, c, "");
  case kSuprimir:
    if (doc_.HaySel()) return quitaSeleccion(kSuprimir);
    if (c.col < largo) return Cambia(kSuprimir, c, {c.fila, c.col + 1}, "");
    if (c.fila + 1 >= doc_.NumFilas()) return {false, ""};
    if (largo + doc_.LongFila(c.fila + 1) > Documento::kMaxCeldas) return {false, ""};
    return Cambia(kSuprimir, c, {c.fila + 1, 0}, "");
  case kPegar:
    return InsertaTexto(texto, kPegar);
  case kSaltoLinea:
    return Cambia(kSaltoLinea, doc_.HaySel() ? doc_.InicioSel() : c,
                  doc_.HaySel() ? doc_.FinSel() : c, "\r\n");
  case kRetrocesoPalabra:
  case kSuprimirPalabra: {
    const bool atras = codigo == kRetrocesoPalabra;
    const int tipo = atras ? kRetroceso : kSuprimir;
    if (doc_.HaySel()) return quitaSeleccion(tipo);
    const Posicion otra = atras ? PalabraAntes(c) : PalabraDespues(c);
    const Posicion desde = atras ? otra : c, hasta = atras ? c : otra;
    if (desde == hasta || !CabeEnFilas(desde, hasta, "")) return {false, ""};
    return Cambia(tipo, desde, hasta, "");
  }
  default:
    return {false, ""};
  }
}

Resultado Editor::InsertaTab() {
  const Posicion c = doc_.HaySel() ? doc_.InicioSel() : doc_.Cursor();
  const int blancos = espTab_ - c.col % espTab_;
  const int largo = doc_.LongFila(c.fila);
  if (largo + blancos > Documento::kMaxCeldas && !doc_.HaySel()) return {false, ""};
  if (doc_.HaySel())
    return InsertaTexto(std::string(static_cast<std::size_t>(blancos), ' '), kEscribir);
  return Cambia(kEscribir, c, c, std::string(static_cast<std::size_t>(blancos), ' '));
}

void Editor::Selecciona(Posicion anterior, bool mayus) {
  if (!mayus) {
    DejaSeleccion();
    return;
  }
  const Posicion ancla = doc_.HaySel() ? doc_.Sel1() : anterior;
  doc_.FijaSeleccion(ancla, doc_.Cursor());
}

void Editor::MueveCursorCmd(int codigo, bool mayus, int filasPagina) {
  const Posicion antes = doc_.Cursor();
  Posicion p = antes;
  const int ultima = doc_.NumFilas() - 1;
  filasPagina = std::max(filasPagina, 1);
  switch (codigo) {
  case kDerecha:
    if (p.col < doc_.LongFila(p.fila))
      ++p.col;
    else if (p.fila < ultima)
      p = {p.fila + 1, 0};
    break;
  case kIzquierda:
    if (p.col > 0)
      --p.col;
    else if (p.fila > 0)
      p = {p.fila - 1, doc_.LongFila(p.fila - 1)};
    break;
  case kArriba:
    p.fila = std::max(p.fila - 1, 0);
    break;
  case kAbajo:
    p.fila = std::min(p.fila + 1, ultima);
    break;
  case kInicioDoc:
    p = {0, 0};
    break;
  case kFinDoc:
    p = {ultima, doc_.LongFila(ultima)};
    break;
  case kPalabraIzq:
    p = PalabraAntes(p);
    break;
  case kPalabraDer:
    p = PalabraDespues(p);
    break;
  case kInicio:
    p.col = 0;
    break;
  case kFin:
    p.col = doc_.LongFila(p.fila);
    break;
  case kAvPag:
    p.fila = std::min(p.fila + filasPagina, ultima);
    break;
  case kRePag:
    p.fila = std::max(p.fila - filasPagina, 0);
    break;
  default:
    return;
  }
  const bool vertical =
      codigo == kArriba || codigo == kAbajo || codigo == kAvPag || codigo == kRePag;
  if (vertical) {
    if (!(antes == trasVertical_)) colDeseada_ = antes.col;
    p.col = colDeseada_; // the row may be shorter: the document keeps the cursor in it
  }
  doc_.MueveCursor(p.fila, p.col);
  trasVertical_ = vertical ? doc_.Cursor() : Posicion{-1, -1};
  Selecciona(antes, mayus);
  Marca(std::min(antes.fila, doc_.Cursor().fila), std::max(antes.fila, doc_.Cursor().fila));
}

void Editor::Pulsa(int fila, int col, bool mayus) {
  const Posicion antes = doc_.Cursor();
  doc_.MueveCursor(fila, col);
  if (mayus) {
    Selecciona(antes, true);
  } else {
    doc_.FijaSeleccion(doc_.Cursor(), doc_.Cursor()); // the anchor of a drag
  }
  Marca(0, -1);
}

void Editor::Arrastra(int fila, int col) {
  // A key pressed while the button is held may have changed the rows under
  // the anchor; it stays inside the document.
  Posicion ancla = doc_.Sel1();
  ancla.fila = std::clamp(ancla.fila, 0, doc_.NumFilas() - 1);
  ancla.col = std::clamp(ancla.col, 0, doc_.LongFila(ancla.fila));
  doc_.MueveCursor(fila, col);
  doc_.FijaSeleccion(ancla, doc_.Cursor());
  Marca(0, -1);
}

void Editor::SeleccionaPalabra() {
  const Posicion c = doc_.Cursor();
  const FilaCeldas& fila = doc_.Fila(c.fila);
  auto dePalabra = [&](int col) {
    return col >= 0 && col < static_cast<int>(fila.size()) &&
           EsCarPalabra(static_cast<unsigned char>(fila[static_cast<std::size_t>(col)] & 0xFF));
  };
  int ini = c.col, fin = c.col;
  if (!dePalabra(ini) && dePalabra(ini - 1)) --ini, --fin; // just after a word
  if (!dePalabra(ini)) return;
  while (dePalabra(ini - 1))
    --ini;
  while (dePalabra(fin))
    ++fin;
  doc_.SelectText(c.fila, ini, fin - ini);
  Marca(c.fila, c.fila);
}

// Drops the selection, and has its rows drawn again without the highlight
// (and the cursor's row, which undo and redo move away from).
void Editor::DejaSeleccion() {
  Marca(doc_.Cursor().fila, doc_.Cursor().fila);
  if (!doc_.HaySel()) return;
  Marca(doc_.InicioSel().fila, doc_.FinSel().fila);
  doc_.QuitaSeleccion();
}

void Editor::Deshacer() {
  const Cambio* cambio = historial_.ADeshacer();
  if (!cambio) return;
  DejaSeleccion();
  for (auto r = cambio->pasos.rbegin(); r != cambio->pasos.rend(); ++r)
    Deshace(*r);
  const Reemplazo& primero = cambio->pasos.front();
  const Posicion p = Documento::Fin(primero.pos, primero.quitado);
  historial_.Deshecho();
  doc_.QuitaSeleccion();
  doc_.MueveCursor(p.fila, p.col);
}

void Editor::Rehacer() {
  const Cambio* cambio = historial_.ARehacer();
  if (!cambio) return;
  DejaSeleccion();
  Posicion fin;
  for (const Reemplazo& r : cambio->pasos)
    fin = Aplica(r);
  historial_.Rehecho();
  doc_.QuitaSeleccion();
  doc_.MueveCursor(fin.fila, fin.col);
}

Resultado Editor::ReemplazaEnFila(int fila, int col, int largo, const std::string& texto, int tipo,
                                  bool continua) {
  if (!PrimerCaracterAjeno(texto).empty())
    return {false, "El texto de reemplazo contiene un carácter que el documento no puede guardar."};
  const std::string bytes = Utf8ACp1252(texto);
  if (bytes.find_first_of("\r\n") != std::string::npos)
    return {false, "El texto de reemplazo no puede contener saltos de línea."};
  if (doc_.LongFila(fila) - largo + static_cast<int>(bytes.size()) >
      std::max(Documento::kMaxCeldas, doc_.LongFila(fila)))
    return {false, "El reemplazo no cabe: la línea pasaría de 256 caracteres."};
  const Reemplazo r{{fila, col}, doc_.Bytes({fila, col}, {fila, col + largo}), bytes};
  Aplica(r);
  if (continua && historial_.PosHistorial() >= 0)
    historial_.AñadePaso(r);
  else
    historial_.RegistraCambio(Cambio{tipo, {r}});
  // The selection may now reach past the row's end; the cursor stays within
  // the row's new length.
  DejaSeleccion();
  const Posicion cur = doc_.Cursor();
  if (cur.fila == fila) doc_.MueveCursor(fila, cur.col);
  return {};
}

namespace {

bool EnPalabra(const Documento& doc, int fila, int col) {
  return EsCarPalabra(
      static_cast<unsigned char>(doc.Fila(fila)[static_cast<std::size_t>(col)] & 0xFF));
}

} // namespace

Posicion Editor::PalabraAntes(Posicion p) const {
  if (p.col == 0) return p.fila > 0 ? Posicion{p.fila - 1, doc_.LongFila(p.fila - 1)} : p;
  while (p.col > 0 && !EnPalabra(doc_, p.fila, p.col - 1))
    --p.col;
  while (p.col > 0 && EnPalabra(doc_, p.fila, p.col - 1))
    --p.col;
  return p;
}

Posicion Editor::PalabraDespues(Posicion p) const {
  const int largo = doc_.LongFila(p.fila);
  if (p.col >= largo) return p.fila + 1 < doc_.NumFilas() ? Posicion{p.fila + 1, 0} : p;
  while (p.col < largo && !EnPalabra(doc_, p.fila, p.col))
    ++p.col;
  while (p.col < largo && EnPalabra(doc_, p.fila, p.col))
    ++p.col;
  return p;
}

void Editor::Modificado(bool valor) {
  modificado_ = valor;
  if (!valor) historial_.MarcaLimpio();
}

void Editor::Nuevo() { Carga({""}); }

void Editor::Carga(const std::vector<std::string>& filas) {
  doc_.Carga(filas, colorLetra_);
  coloreador_.ColoreaFilas(doc_, 0, doc_.NumFilas() - 1);
  historial_.Vacia();
  modificado_ = false;
  Marca(0, -1);
}
