#pragma once
// A typeset formula (analysis/Formula): a row of boxes, fractions stacked
// over their bar, exponents raised in a smaller size, roots under their sign,
// variables in italics and names upright.

#include <QFont>
#include <QWidget>

#include "analysis/Formula.h"

class FormulaVista : public QWidget {
public:
  explicit FormulaVista(QWidget* padre = nullptr);
  void Muestra(const Formula& f);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  // A box's width and its extent above and below the baseline.
  struct Medida {
    double ancho = 0, sube = 0, baja = 0;
  };
  Medida Mide(const Formula& f, const QFont& fuente) const;

protected:
  void paintEvent(QPaintEvent*) override;

private:
  void Pinta(QPainter& p, const Formula& f, const QFont& fuente, double x, double base) const;
  static QFont Menor(const QFont& fuente);

  Formula formula_;
};
