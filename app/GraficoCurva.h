#pragma once
// The plot of the document's curve: axes with ticks and labels, the curve
// (analysis/Trazado), zoom with the wheel, pan by dragging, a view that fits
// the curve; a click on or near the curve picks its nearest point and draws
// the tangent there. It exports as PNG and SVG.

#include <QImage>
#include <QWidget>
#include <string>

#include "analysis/Trazado.h"

class GraficoCurva : public QWidget {
  Q_OBJECT
public:
  explicit GraficoCurva(QWidget* padre = nullptr);

  // A new curve, shown in a view that fits it; "" when it can be drawn.
  std::string Muestra(const std::string& ecuacion, const std::string& vd, const std::string& vi);
  void Ajusta();
  const Ventana& Vista() const { return vista_; }
  void FijaVista(const Ventana& v);

  bool HayPunto() const { return hayPunto_; }
  Punto2 Punto() const { return punto_; }
  double Pendiente() const { return pendiente_; }

  // The plot as a picture of the given size, as it is drawn on screen.
  QImage Imagen(QSize tam) const;
  bool ExportaPng(const QString& ruta) const;
  bool ExportaSvg(const QString& ruta) const;

  // Where a point of the plane falls in a widget of size `tam`, and back.
  QPointF APixel(Punto2 p, QSize tam) const;
  Punto2 APlano(QPointF p, QSize tam) const;

  // Picks the point of the curve nearest a pixel, as a click does.
  void Elige(QPointF pixel);

  static const QColor kColorCurva, kColorTangente;

signals:
  void puntoElegido(double x, double y, double pendiente);

protected:
  void paintEvent(QPaintEvent*) override;
  void wheelEvent(QWheelEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

private:
  void Dibuja(QPainter& p, QSize tam) const;
  Ventana Efectiva(QSize tam) const;

  Curva curva_;
  bool hayCurva_ = false;
  Ventana vista_{-10, 10, -10, 10};
  bool hayPunto_ = false;
  Punto2 punto_{0, 0};
  double pendiente_ = 0;
  QPointF arrastre_;
  bool arrastrando_ = false, movido_ = false;
};
