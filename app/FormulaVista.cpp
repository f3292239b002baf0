#include "app/FormulaVista.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace {

constexpr double kMargen = 4;

QFont Estilo(const QFont& base, bool cursiva) {
  QFont f = base;
  f.setItalic(cursiva);
  return f;
}

// The height of the fraction bar above the baseline: half an x-height.
double Eje(const QFont& fuente) { return QFontMetricsF(fuente).xHeight() / 2; }

} // namespace

FormulaVista::FormulaVista(QWidget* padre) : QWidget(padre) {
  QFont f = font();
  f.setFamilies({QStringLiteral("DejaVu Serif"), QStringLiteral("Liberation Serif"),
                 QStringLiteral("Serif")});
  f.setPointSizeF(f.pointSizeF() * 1.25);
  setFont(f);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FormulaVista::Muestra(const Formula& f) {
  formula_ = f;
  updateGeometry();
  update();
}

QFont FormulaVista::Menor(const QFont& fuente) {
  QFont f = fuente;
  f.setPointSizeF(std::max(6.0, fuente.pointSizeF() * 0.7));
  return f;
}

FormulaVista::Medida FormulaVista::Mide(const Formula& f, const QFont& fuente) const {
  switch (f.tipo) {
  case Formula::Texto: {
    const QFontMetricsF m(Estilo(fuente, f.cursiva));
    return {m.horizontalAdvance(QString::fromStdString(f.texto)), m.ascent(), m.descent()};
  }
  case Formula::Fila: {
    Medida r;
    for (const Formula& h : f.hijos) {
      const Medida m = Mide(h, fuente);
      r.ancho += m.ancho, r.sube = std::max(r.sube, m.sube), r.baja = std::max(r.baja, m.baja);
    }
    return r;
  }
  case Formula::Fraccion: {
    const QFont menor = Menor(fuente);
    const Medida a = Mide(f.hijos[0], menor), b = Mide(f.hijos[1], menor);
    const double eje = Eje(fuente);
    return {std::max(a.ancho, b.ancho) + 4, eje + 2 + a.sube + a.baja, b.sube + b.baja + 2 - eje};
  }
  case Formula::Potencia: {
    const Medida base = Mide(f.hijos[0], fuente), exp = Mide(f.hijos[1], Menor(fuente));
    const double alza = base.sube * 0.55;
    return {base.ancho + exp.ancho + 1, std::max(base.sube, alza + exp.sube), base.baja};
  }
  case Formula::Raiz: {
    const Medida d = Mide(f.hijos[0], fuente);
    return {d.ancho + d.sube * 0.6 + 3, d.sube + 3, d.baja};
  }
  case Formula::Parentesis: {
    const Medida d = Mide(f.hijos[0], fuente);
    const QFontMetricsF m(fuente);
    return {d.ancho + 2 * m.horizontalAdvance(QLatin1Char('(')), std::max(d.sube, m.ascent()),
            std::max(d.baja, m.descent())};
  }
  }
  return {};
}

void FormulaVista::Pinta(QPainter& p, const Formula& f, const QFont& fuente, double x,
                         double base) const {
  switch (f.tipo) {
  case Formula::Texto:
    p.setFont(Estilo(fuente, f.cursiva));
    p.drawText(QPointF(x, base), QString::fromStdString(f.texto));
    return;
  case Formula::Fila:
    for (const Formula& h : f.hijos) {
      Pinta(p, h, fuente, x, base);
      x += Mide(h, fuente).ancho;
    }
    return;
  case Formula::Fraccion: {
    const QFont menor = Menor(fuente);
    const Medida a = Mide(f.hijos[0], menor), b = Mide(f.hijos[1], menor);
    const double ancho = std::max(a.ancho, b.ancho) + 4, barra = base - Eje(fuente);
    Pinta(p, f.hijos[0], menor, x + (ancho - a.ancho) / 2, barra - 2 - a.baja);
    Pinta(p, f.hijos[1], menor, x + (ancho - b.ancho) / 2, barra + 2 + b.sube);
    p.drawLine(QPointF(x + 1, barra), QPointF(x + ancho - 1, barra));
    return;
  }
  case Formula::Potencia: {
    const Medida m = Mide(f.hijos[0], fuente);
    Pinta(p, f.hijos[0], fuente, x, base);
    Pinta(p, f.hijos[1], Menor(fuente), x + m.ancho + 1, base - m.sube * 0.55);
    return;
  }
  case Formula::Raiz: {
    const Medida d = Mide(f.hijos[0], fuente);
    const double signo = d.sube * 0.6, arriba = base - d.sube - 2;
    p.drawPolyline(
        QPolygonF({QPointF(x, base - d.sube * 0.4), QPointF(x + signo * 0.3, base - d.sube * 0.5),
                   QPointF(x + signo * 0.6, base + d.baja), QPointF(x + signo, arriba),
                   QPointF(x + signo + d.ancho + 3, arriba)}));
    Pinta(p, f.hijos[0], fuente, x + signo + 2, base);
    return;
  }
  case Formula::Parentesis: {
    const QFontMetricsF m(fuente);
    const double abre = m.horizontalAdvance(QLatin1Char('('));
    p.setFont(Estilo(fuente, false));
    p.drawText(QPointF(x, base), QStringLiteral("("));
    Pinta(p, f.hijos[0], fuente, x + abre, base);
    p.setFont(Estilo(fuente, false));
    p.drawText(QPointF(x + abre + Mide(f.hijos[0], fuente).ancho, base), QStringLiteral(")"));
    return;
  }
  }
}

QSize FormulaVista::sizeHint() const {
  const Medida m = Mide(formula_, font());
  return QSize(static_cast<int>(m.ancho + 2 * kMargen),
               static_cast<int>(m.sube + m.baja + 2 * kMargen));
}

void FormulaVista::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(palette().color(QPalette::WindowText));
  const Medida m = Mide(formula_, font());
  Pinta(p, formula_, font(), kMargen, kMargen + m.sube);
}
