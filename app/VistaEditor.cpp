#include "app/VistaEditor.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>

#include "editor/Editor.h"
#include "editor/Presentacion.h"
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
  verticalScrollBar()->setRange(0, std::max(0, doc.NumFilas() - 1));
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
  const Posicion c = editor_.Doc().Cursor();
  viewport()->update(RectanguloCelda(c.fila, c.col).adjusted(-2, 0, 2, 0));
}

void VistaEditor::paintEvent(QPaintEvent* evento) {
  QPainter p(viewport());
  p.setFont(fuente_);
  const QColor fondo = Paleta(presentacion_.GetColorFondoEditor(), 15);
  p.fillRect(evento->rect(), fondo);
  const Documento& doc = editor_.Doc();
  const auto& caracteres = Caracteres();
  const int primera = verticalScrollBar()->value();
  const int izquierda = horizontalScrollBar()->value();
  const int ultima = std::min(doc.NumFilas() - 1, primera + FilasVisibles());
  const int columnas = ColumnasVisibles() + 1;
  const Posicion ini = doc.InicioSel(), fin = doc.FinSel();
  const bool haySel = doc.HaySel();
  const QColor letraSel = Paleta(presentacion_.GetColorLetraSel(), 15);
  const QColor fondoSel = Paleta(presentacion_.GetColorFondoSel(), 1);
  for (int f = primera; f <= ultima; ++f) {
    const QRect filaRect = RectanguloCelda(f, izquierda);
    if (!evento->rect().intersects(QRect(0, filaRect.top(), viewport()->width(), altoFila_)))
      continue;
    const FilaCeldas& celdas = doc.Fila(f);
    const int hasta = std::min(static_cast<int>(celdas.size()), izquierda + columnas);
    // Runs of cells drawn alike (same colour, same selection state) go out in one call.
    int c = izquierda;
    while (c < hasta) {
      const auto seleccionada = [&](int col) {
        return haySel && !(Posicion{f, col} < ini) && Posicion{f, col} < fin;
      };
      const bool sel = seleccionada(c);
      const int color = celdas[static_cast<std::size_t>(c)] >> 8;
      QString tramo;
      int k = c;
      while (k < hasta && seleccionada(k) == sel &&
             (sel || (celdas[static_cast<std::size_t>(k)] >> 8) == color)) {
        tramo += caracteres[celdas[static_cast<std::size_t>(k)] & 0xFF];
        ++k;
      }
      const QRect r = RectanguloCelda(f, c);
      if (sel) p.fillRect(QRect(r.left(), r.top(), (k - c) * anchoCelda_, altoFila_), fondoSel);
      p.setPen(sel ? letraSel : Paleta(color, presentacion_.GetColorLetra()));
      for (int i = 0; i < tramo.size(); ++i) // one cell per character, whatever the font
        p.drawText(r.left() + i * anchoCelda_, r.top() + ascenso_, QString(tramo[i]));
      c = k;
    }
    // A selection that runs past the row's end shows its line break.
    if (haySel && ini.fila <= f && f < fin.fila && static_cast<int>(celdas.size()) >= izquierda)
      p.fillRect(RectanguloCelda(f, static_cast<int>(celdas.size())), fondoSel);
  }
  if (cursorVisible_ && hasFocus()) {
    const Posicion cur = doc.Cursor();
    const QRect r = RectanguloCelda(cur.fila, cur.col);
    p.setPen(QPen(Paleta(presentacion_.GetColorLetra(), 0), editor_.ModoInsertar() ? 2 : 3));
    if (editor_.ModoInsertar())
      p.drawLine(r.left(), r.top(), r.left(), r.bottom());
    else
      p.drawLine(r.left(), r.bottom() - 1, r.right(), r.bottom() - 1);
  }
}

void VistaEditor::Escribe(const QString& texto) {
  for (const QChar ch : texto) {
    if (ch.unicode() < 32 || ch.unicode() == 127) continue;
    const std::string utf8 = QString(ch).toStdString();
    const Resultado r = editor_.EditaCmd(kEscribir, utf8);
    if (!r.hecho && static_cast<unsigned char>(Utf8ACp1252(utf8)[0]) == kByteAjeno &&
        ch.unicode() != 0x81)
      emit aviso(QStringLiteral("El carácter «%1» no cabe en el documento, que sólo guarda los "
                                "caracteres de Windows-1252.")
                     .arg(ch));
  }
  Despues(true);
}

void VistaEditor::keyPressEvent(QKeyEvent* e) {
  const bool mayus = e->modifiers() & Qt::ShiftModifier;
  // Shortcuts with Ctrl or Alt belong to the menus.
  if (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
    e->ignore();
    return;
  }
  auto mueve = [&](int codigo) {
    editor_.MueveCursorCmd(codigo, mayus, FilasVisibles());
    Despues(false);
  };
  auto edita = [&](int codigo) {
    const Resultado r = editor_.EditaCmd(codigo);
    if (!r.aviso.empty()) emit aviso(QString::fromStdString(r.aviso));
    Despues(true);
  };
  switch (e->key()) {
  case Qt::Key_F1:
    emit ayudaPedida();
    return;
  case Qt::Key_Right:
    return mueve(kDerecha);
  case Qt::Key_Left:
    return mueve(kIzquierda);
  case Qt::Key_Up:
    return mueve(kArriba);
  case Qt::Key_Down:
    return mueve(kAbajo);
  case Qt::Key_Home:
    return mueve(kInicio);
  case Qt::Key_End:
    return mueve(kFin);
  case Qt::Key_Backspace:
    return edita(kRetroceso);
  case Qt::Key_Delete:
    return edita(kSuprimir);
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return edita(kSaltoLinea);
  case Qt::Key_PageDown:
    return mueve(kAvPag);
  case Qt::Key_PageUp:
    return mueve(kRePag);
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
