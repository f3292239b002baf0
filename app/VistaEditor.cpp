#include "app/VistaEditor.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>

#include "editor/Editor.h"
#include "editor/Paleta.h"
#include "editor/Presentacion.h"
#include "editor/ValoresSeguros.h"
#include "lang/Cp1252.h"

namespace {

constexpr int kMargen = 3; // pixels between the area's edge and the text

QColor Paleta(int indice, int porDefecto) {
  return QColor::fromRgb(ColorPaleta(ColorSeguro(indice, porDefecto)));
}

// The character of every Windows-1252 byte, built once.
const std::array<QChar, 256>& Caracteres() {
  static const std::array<QChar, 256> tabla = [] {
    std::array<QChar, 256> t{};
    for (int b = 0; b < 256; ++b) {
      const QString s = QString::fromUtf8(Cp1252AUtf8(std::string(1, static_cast<char>(b))));
      t[static_cast<std::size_t>(b)] = b < 32 ? QChar(' ') : s.isEmpty() ? QChar(' ') : s[0];
    }
    return t;
  }();
  return tabla;
}

} // namespace

VistaEditor::VistaEditor(Editor& editor, Presentacion& presentacion, QWidget* padre)
    : QAbstractScrollArea(padre), editor_(editor), presentacion_(presentacion) {
  setObjectName(QStringLiteral("picEdit"));
  horizontalScrollBar()->setObjectName(QStringLiteral("HsX"));
  verticalScrollBar()->setObjectName(QStringLiteral("Vsy"));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_InputMethodEnabled);
  viewport()->setCursor(Qt::IBeamCursor);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  AplicaFuente();
  AplicaBarras();
}

void VistaEditor::AplicaFuente() {
  fuente_ = QFont();
  fuente_.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"),
                       QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Monospace")});
  fuente_.setStyleHint(QFont::TypeWriter);
  fuente_.setFixedPitch(true);
  fuente_.setPointSizeF(TamFuenteSegura(presentacion_.GetTamFuente()));
  const QFontMetrics m(fuente_);
  anchoCelda_ = std::max(1, m.horizontalAdvance(QLatin1Char('M')));
  altoFila_ = std::max(1, m.height());
  ascenso_ = m.ascent();
  AjustaBarras();
  ActView();
}

void VistaEditor::AplicaBarras() {
  const auto politica =
      presentacion_.GetScrollBars() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  setHorizontalScrollBarPolicy(politica);
  setVerticalScrollBarPolicy(politica);
  AjustaBarras();
  ActView();
}

int VistaEditor::FilasVisibles() const {
  return std::max(1, (viewport()->height() - kMargen) / altoFila_);
}

int VistaEditor::ColumnasVisibles() const {
  return std::max(1, (viewport()->width() - kMargen) / anchoCelda_);
}

void VistaEditor::AjustaBarras() {
  const Documento& doc = editor_.Doc();
  // Scrolled to the bottom, the last row stands at the view's foot: the last
  // page is full, not the last row alone at the top.
  verticalScrollBar()->setRange(0, std::max(0, doc.NumFilas() - FilasVisibles()));
  verticalScrollBar()->setPageStep(FilasVisibles());
  int ancho = Documento::kMaxCeldas;
  const int fila = doc.Cursor().fila;
  ancho = std::max(ancho, doc.LongFila(fila) + 1);
  horizontalScrollBar()->setRange(0, std::max(0, ancho - ColumnasVisibles()));
  horizontalScrollBar()->setPageStep(ColumnasVisibles());
}

void VistaEditor::CeldaEn(const QPoint& punto, int& fila, int& col) const {
  fila = verticalScrollBar()->value() + std::max(0, punto.y() - kMargen) / altoFila_;
  col = horizontalScrollBar()->value() +
        (std::max(0, punto.x() - kMargen) + anchoCelda_ / 2) / anchoCelda_;
}

QRect VistaEditor::RectanguloCelda(int fila, int col) const {
  return QRect(kMargen + (col - horizontalScrollBar()->value()) * anchoCelda_,
               kMargen + (fila - verticalScrollBar()->value()) * altoFila_, anchoCelda_, altoFila_);
}

void VistaEditor::ActView() { viewport()->update(); }

void VistaEditor::MuestraCursor() {
  // Keeps the cursor in view by moving the scroll origin.
  const Posicion c = editor_.Doc().Cursor();
  QScrollBar* v = verticalScrollBar();
  QScrollBar* h = horizontalScrollBar();
  if (c.fila < v->value())
    v->setValue(c.fila);
  else if (c.fila >= v->value() + FilasVisibles())
    v->setValue(c.fila - FilasVisibles() + 1);
  if (c.col < h->value())
    h->setValue(c.col);
  else if (c.col >= h->value() + ColumnasVisibles()) {
    if (h->maximum() < c.col) AjustaBarras();
    h->setValue(c.col - ColumnasVisibles() + 1);
  }
  cursorVisible_ = true;
}

void VistaEditor::Actualiza() { Despues(true); }

// After a change of the model: the rows that changed are drawn again, the
// cursor is kept in view and shown, and the window is told.
void VistaEditor::Despues(bool cambioDocumento) {
  const Editor::FilasADibujar cambios = editor_.TomaCambios();
  const int arriba = verticalScrollBar()->value();
  AjustaBarras();
  MuestraCursor();
  if (cambios.desde < 0 || verticalScrollBar()->value() != arriba || cambios.hasta < 0) {
    ActView();
  } else {
    const QRect desde = RectanguloCelda(cambios.desde, 0);
    const QRect hasta = RectanguloCelda(cambios.hasta, 0);
    viewport()->update(
        QRect(0, desde.top(), viewport()->width(), hasta.bottom() - desde.top() + 1));
  }
  emit cursorMovido();
  if (cambioDocumento) emit documentoCambiado();
}

void VistaEditor::ParpadeaCursor() {
  cursorVisible_ = !cursorVisible_;
  viewport()->update(RectanguloCursor());
}

void VistaEditor::paintEvent(QPaintEvent* evento) {
  QPainter p(viewport());
  p.setFont(fuente_);
  p.fillRect(evento->rect(), Paleta(presentacion_.GetColorFondoEditor(), 15));
  const int primera = verticalScrollBar()->value();
  const int ultima = std::min(editor_.Doc().NumFilas() - 1, primera + FilasVisibles());
  for (int f = primera; f <= ultima; ++f) {
    const QRect franja(0, RectanguloCelda(f, 0).top(), viewport()->width(), altoFila_);
    if (evento->rect().intersects(franja)) PintaFila(p, f);
  }
  if (cursorVisible_ && hasFocus()) PintaCursor(p);
}

// The visible cells of a row. Runs of cells drawn alike (same colour, same
// selection state) share one pen and one selection fill.
void VistaEditor::PintaFila(QPainter& p, int f) {
  const Documento& doc = editor_.Doc();
  const FilaCeldas& celdas = doc.Fila(f);
  const auto& caracteres = Caracteres();
  const int izquierda = horizontalScrollBar()->value();
  const int hasta = std::min(static_cast<int>(celdas.size()), izquierda + ColumnasVisibles() + 1);
  const Posicion ini = doc.InicioSel(), fin = doc.FinSel();
  const bool haySel = doc.HaySel();
  const QColor letraSel = Paleta(presentacion_.GetColorLetraSel(), 15);
  const QColor fondoSel = Paleta(presentacion_.GetColorFondoSel(), 1);
  const auto seleccionada = [&](int col) {
    return haySel && !(Posicion{f, col} < ini) && Posicion{f, col} < fin;
  };
  const auto color = [&](int col) { return celdas[static_cast<std::size_t>(col)] >> 8; };
  for (int c = izquierda; c < hasta;) {
    const bool sel = seleccionada(c);
    int k = c + 1;
    while (k < hasta && seleccionada(k) == sel && (sel || color(k) == color(c)))
      ++k;
    const QRect r = RectanguloCelda(f, c);
    if (sel) p.fillRect(QRect(r.left(), r.top(), (k - c) * anchoCelda_, altoFila_), fondoSel);
    p.setPen(sel ? letraSel : Paleta(color(c), presentacion_.GetColorLetra()));
    for (int i = c; i < k; ++i) // one cell per character, whatever the font
      p.drawText(r.left() + (i - c) * anchoCelda_, r.top() + ascenso_,
                 QString(caracteres[celdas[static_cast<std::size_t>(i)] & 0xFF]));
    c = k;
  }
  // A selection that runs past the row's end shows its line break.
  if (haySel && ini.fila <= f && f < fin.fila && static_cast<int>(celdas.size()) >= izquierda)
    p.fillRect(RectanguloCelda(f, static_cast<int>(celdas.size())), fondoSel);
}

QRect VistaEditor::RectanguloCursor() const {
  const Posicion cur = editor_.Doc().Cursor();
  const QRect celda = RectanguloCelda(cur.fila, cur.col);
  if (editor_.ModoInsertar()) return QRect(celda.left(), celda.top(), 2, celda.height());
  return QRect(celda.left(), celda.bottom() - 2, celda.width(), 3);
}

void VistaEditor::PintaCursor(QPainter& p) {
  p.fillRect(RectanguloCursor(), Paleta(presentacion_.GetColorLetra(), 0));
}

void VistaEditor::Escribe(const QString& texto) {
  for (const QChar ch : texto) {
    if (ch.unicode() < 32 || ch.unicode() == 127) continue;
    const std::string utf8 = QString(ch).toStdString();
    const Resultado r = editor_.EditaCmd(kEscribir, utf8);
    if (!r.hecho && !PrimerCaracterAjeno(utf8).empty())
      emit aviso(QStringLiteral("El carácter «%1» no cabe en el documento, que sólo guarda los "
                                "caracteres de Windows-1252.")
                     .arg(ch));
  }
  Despues(true);
}

namespace {

// The keys that move the cursor and those that edit, with the editor's codes.
constexpr std::pair<int, int> kTeclasMovimiento[] = {
    {Qt::Key_Right, kDerecha},  {Qt::Key_Left, kIzquierda}, {Qt::Key_Up, kArriba},
    {Qt::Key_Down, kAbajo},     {Qt::Key_Home, kInicio},    {Qt::Key_End, kFin},
    {Qt::Key_PageDown, kAvPag}, {Qt::Key_PageUp, kRePag}};
constexpr std::pair<int, int> kTeclasConControl[] = {{Qt::Key_Home, kInicioDoc},
                                                     {Qt::Key_End, kFinDoc},
                                                     {Qt::Key_Left, kPalabraIzq},
                                                     {Qt::Key_Right, kPalabraDer},
                                                     {Qt::Key_Backspace, kRetrocesoPalabra},
                                                     {Qt::Key_Delete, kSuprimirPalabra}};
constexpr std::pair<int, int> kTeclasEdicion[] = {{Qt::Key_Backspace, kRetroceso},
                                                  {Qt::Key_Delete, kSuprimir},
                                                  {Qt::Key_Return, kSaltoLinea},
                                                  {Qt::Key_Enter, kSaltoLinea}};

// The editor's code for a key in a table, or -1.
template <std::size_t N> int Codigo(const std::pair<int, int> (&tabla)[N], int tecla) {
  for (const auto& [t, codigo] : tabla)
    if (t == tecla) return codigo;
  return -1;
}

} // namespace

void VistaEditor::keyPressEvent(QKeyEvent* e) {
  // Ctrl with the moving and deleting keys goes by words and to the
  // document's ends; every other shortcut with Ctrl or Alt belongs to the menus.
  if ((e->modifiers() & Qt::ControlModifier) && !(e->modifiers() & Qt::AltModifier)) {
    if (const int codigo = Codigo(kTeclasConControl, e->key()); codigo >= 0) {
      if (codigo == kRetrocesoPalabra || codigo == kSuprimirPalabra) {
        editor_.EditaCmd(codigo);
        return Despues(true);
      }
      editor_.MueveCursorCmd(codigo, e->modifiers() & Qt::ShiftModifier, FilasVisibles());
      return Despues(false);
    }
  }
  if (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
    e->ignore();
    return;
  }
  if (const int codigo = Codigo(kTeclasMovimiento, e->key()); codigo >= 0) {
    editor_.MueveCursorCmd(codigo, e->modifiers() & Qt::ShiftModifier, FilasVisibles());
    return Despues(false);
  }
  if (const int codigo = Codigo(kTeclasEdicion, e->key()); codigo >= 0) {
    const Resultado r = editor_.EditaCmd(codigo);
    if (!r.aviso.empty()) emit aviso(QString::fromStdString(r.aviso));
    return Despues(true);
  }
  switch (e->key()) {
  case Qt::Key_F1:
    emit ayudaPedida();
    return;
  case Qt::Key_Tab:
    editor_.InsertaTab();
    return Despues(true);
  case Qt::Key_Insert:
    editor_.ModoInsertar(!editor_.ModoInsertar());
    return ActView();
  default:
    if (!e->text().isEmpty()) return Escribe(e->text());
    e->ignore();
  }
}

void VistaEditor::inputMethodEvent(QInputMethodEvent* e) {
  if (!e->commitString().isEmpty()) Escribe(e->commitString());
  e->accept();
}

void VistaEditor::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  int fila = 0, col = 0;
  CeldaEn(e->position().toPoint(), fila, col);
  editor_.Pulsa(fila, col, e->modifiers() & Qt::ShiftModifier);
  Despues(false);
}

void VistaEditor::mouseMoveEvent(QMouseEvent* e) {
  if (!(e->buttons() & Qt::LeftButton)) return;
  int fila = 0, col = 0;
  CeldaEn(e->position().toPoint(), fila, col);
  editor_.Arrastra(fila, col);
  Despues(false);
}

void VistaEditor::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() == Qt::RightButton && menuContextual_)
    menuContextual_->popup(e->globalPosition().toPoint());
}

void VistaEditor::mouseDoubleClickEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  editor_.SeleccionaPalabra();
  Despues(false);
}

void VistaEditor::resizeEvent(QResizeEvent* e) {
  QAbstractScrollArea::resizeEvent(e);
  AjustaBarras();
}

void VistaEditor::scrollContentsBy(int, int) { ActView(); }

void VistaEditor::focusInEvent(QFocusEvent* e) {
  QAbstractScrollArea::focusInEvent(e);
  cursorVisible_ = true;
  ActView();
}

void VistaEditor::focusOutEvent(QFocusEvent* e) {
  QAbstractScrollArea::focusOutEvent(e);
  ActView();
}
