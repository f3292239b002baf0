#pragma once
// VistaEditor (picEdit): the text area, drawn by the program itself in a
// fixed-pitch font. It draws the visible rows of the editor's document, cell
// by cell in each cell's palette colour, and forwards keys and the mouse to
// the window-free Editor; it keeps no text of its own. The scroll bars (HsX,
// Vsy) count rows and columns.

#include <QAbstractScrollArea>
#include <QFont>

class Editor;
class Presentacion;
class QMenu;
class QPainter;

class VistaEditor : public QAbstractScrollArea {
  Q_OBJECT
public:
  VistaEditor(Editor& editor, Presentacion& presentacion, QWidget* padre = nullptr);

  // After a model change made elsewhere (a command, undo, a search): keeps
  // the cursor in view, updates the scroll ranges and redraws what changed.
  void Actualiza();
  // Redraws the whole visible area (ActView).
  void ActView();
  // New font size: character metrics, scroll ranges and view.
  void AplicaFuente();
  // Shows or hides both scroll bars.
  void AplicaBarras();
  // One tick of the cursor's blinking; drawing or moving shows it at once.
  void ParpadeaCursor();
  void FijaMenuContextual(QMenu* menu) { menuContextual_ = menu; }
  int FilasVisibles() const;
  int ColumnasVisibles() const;
  // The cell under a point of the viewport.
  void CeldaEn(const QPoint& punto, int& fila, int& col) const;
  QRect RectanguloCelda(int fila, int col) const;
  // Where the cursor is drawn, wholly inside its cell: a bar at the cell's
  // left when inserting, a thick underline when overwriting. Blinking
  // repaints exactly this, so that no part of it is left behind.
  QRect RectanguloCursor() const;

signals:
  void cursorMovido();
  void documentoCambiado();
  void ayudaPedida();
  void aviso(const QString& texto);

protected:
  void paintEvent(QPaintEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void inputMethodEvent(QInputMethodEvent* evento) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void scrollContentsBy(int dx, int dy) override;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;
  bool focusNextPrevChild(bool) override { return false; } // Tab is a key of the editor

private:
  void Escribe(const QString& texto);
  void Despues(bool cambioDocumento);
  void AjustaBarras();
  void MuestraCursor();
  void PintaFila(QPainter& p, int fila);
  void PintaCursor(QPainter& p);

  Editor& editor_;
  Presentacion& presentacion_;
  QFont fuente_;
  int anchoCelda_ = 8, altoFila_ = 16, ascenso_ = 12;
  bool cursorVisible_ = true;
  QMenu* menuContextual_ = nullptr;
};
