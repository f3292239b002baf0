#include "app/GraficoCurva.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSvgGenerator>
#include <QWheelEvent>
#include <cmath>

const QColor GraficoCurva::kColorCurva(31, 78, 121);
const QColor GraficoCurva::kColorTangente(200, 40, 40);

namespace {

// A tick step of 1, 2 or 5 times a power of ten, some eight ticks a side.
double Paso(double ancho) {
  const double bruto = ancho / 8, potencia = std::pow(10, std::floor(std::log10(bruto)));
  for (const double m : {1.0, 2.0, 5.0, 10.0})
    if (bruto <= m * potencia) return m * potencia;
  return 10 * potencia;
}

QString Numero(double v) { return QString::number(std::fabs(v) < 1e-12 ? 0 : v, 'g', 6); }

} // namespace

GraficoCurva::GraficoCurva(QWidget* padre) : QWidget(padre) {
  setObjectName(QStringLiteral("grafico"));
  setMinimumSize(240, 200);
  setCursor(Qt::CrossCursor);
}

std::string GraficoCurva::Muestra(const std::string& ecuacion, const std::string& vd,
                                  const std::string& vi) {
  Curva nueva;
  const std::string error = nueva.Lee(ecuacion, vd, vi);
  hayCurva_ = error.empty();
  if (hayCurva_) curva_ = std::move(nueva);
  hayPunto_ = false;
  Ajusta();
  return error;
}

// The part of a wide view where the curve lies, with a margin, and square
// enough that a circle looks round.
void GraficoCurva::Ajusta() {
  vista_ = {-10, 10, -10, 10};
  if (hayCurva_) {
    double x0 = INFINITY, x1 = -INFINITY, y0 = INFINITY, y1 = -INFINITY;
    for (const Segmento& s : curva_.Traza({-20, 20, -20, 20}, 200, 200))
      for (const Punto2 p : {s.a, s.b})
        x0 = std::min(x0, p.x), x1 = std::max(x1, p.x), y0 = std::min(y0, p.y),
        y1 = std::max(y1, p.y);
    if (x0 < x1 && y0 < y1) {
      const double lado = std::max(x1 - x0, y1 - y0) * 0.6 + 0.5;
      const double cx = (x0 + x1) / 2, cy = (y0 + y1) / 2;
      vista_ = {cx - lado, cx + lado, cy - lado, cy + lado};
    }
  }
  update();
}

void GraficoCurva::FijaVista(const Ventana& v) {
  vista_ = v;
  update();
}

// The view widened along one axis to the widget's proportions, so that one
// unit is as long across as up and a circle looks round.
Ventana GraficoCurva::Efectiva(QSize tam) const {
  Ventana v = vista_;
  const double ancho = v.xMax - v.xMin, alto = v.yMax - v.yMin;
  const double proporcion = static_cast<double>(tam.width()) / std::max(1, tam.height());
  if (ancho / alto < proporcion) {
    const double mitad = alto * proporcion / 2, centro = (v.xMin + v.xMax) / 2;
    v.xMin = centro - mitad, v.xMax = centro + mitad;
  } else {
    const double mitad = ancho / proporcion / 2, centro = (v.yMin + v.yMax) / 2;
    v.yMin = centro - mitad, v.yMax = centro + mitad;
  }
  return v;
}

QPointF GraficoCurva::APixel(Punto2 p, QSize tam) const {
  const Ventana v = Efectiva(tam);
  return {(p.x - v.xMin) / (v.xMax - v.xMin) * tam.width(),
          (v.yMax - p.y) / (v.yMax - v.yMin) * tam.height()};
}

Punto2 GraficoCurva::APlano(QPointF p, QSize tam) const {
  const Ventana v = Efectiva(tam);
  return {v.xMin + p.x() / tam.width() * (v.xMax - v.xMin),
          v.yMax - p.y() / tam.height() * (v.yMax - v.yMin)};
}

void GraficoCurva::Dibuja(QPainter& p, QSize tam) const {
  const Ventana vista = Efectiva(tam);
  p.fillRect(QRect(QPoint(0, 0), tam), Qt::white);
  p.setRenderHint(QPainter::Antialiasing);
  // Axes, ticks and their numbers.
  const double paso = Paso(vista.xMax - vista.xMin);
  const QPointF origen = APixel({0, 0}, tam);
  const double ejeX = std::clamp(origen.y(), 0.0, tam.height() - 1.0);
  const double ejeY = std::clamp(origen.x(), 0.0, tam.width() - 1.0);
  p.setPen(QPen(QColor(120, 120, 120), 1));
  p.drawLine(QPointF(0, ejeX), QPointF(tam.width(), ejeX));
  p.drawLine(QPointF(ejeY, 0), QPointF(ejeY, tam.height()));
  QFont letra = p.font();
  letra.setPointSize(8);
  p.setFont(letra);
  for (double x = std::ceil(vista.xMin / paso) * paso; x <= vista.xMax; x += paso) {
    const double px = APixel({x, 0}, tam).x();
    p.drawLine(QPointF(px, ejeX - 3), QPointF(px, ejeX + 3));
    if (std::fabs(x) > paso / 2) p.drawText(QPointF(px + 2, ejeX + 12), Numero(x));
  }
  for (double y = std::ceil(vista.yMin / paso) * paso; y <= vista.yMax; y += paso) {
    const double py = APixel({0, y}, tam).y();
    p.drawLine(QPointF(ejeY - 3, py), QPointF(ejeY + 3, py));
    if (std::fabs(y) > paso / 2) p.drawText(QPointF(ejeY + 5, py - 2), Numero(y));
  }
  if (!hayCurva_) return;
  p.setPen(QPen(kColorCurva, 2));
  for (const Segmento& s : curva_.Traza(vista, tam.width() / 2, tam.height() / 2))
    p.drawLine(APixel(s.a, tam), APixel(s.b, tam));
  if (!hayPunto_) return;
  // The tangent across the whole view, and the point.
  p.setPen(QPen(kColorTangente, 2));
  if (std::isfinite(pendiente_)) {
    const auto y = [&](double x) { return punto_.y + pendiente_ * (x - punto_.x); };
    p.drawLine(APixel({vista.xMin, y(vista.xMin)}, tam), APixel({vista.xMax, y(vista.xMax)}, tam));
  }
  p.setBrush(kColorTangente);
  p.drawEllipse(APixel(punto_, tam), 4, 4);
  p.setPen(Qt::black);
  p.drawText(QPointF(6, 14), QStringLiteral("x0 = %1   y0 = %2   pendiente = %3")
                                 .arg(Numero(punto_.x), Numero(punto_.y),
                                      std::isfinite(pendiente_) ? Numero(pendiente_)
                                                                : QStringLiteral("no definida")));
}

void GraficoCurva::paintEvent(QPaintEvent*) {
  QPainter p(this);
  Dibuja(p, size());
}

QImage GraficoCurva::Imagen(QSize tam) const {
  QImage imagen(tam, QImage::Format_RGB32);
  QPainter p(&imagen);
  Dibuja(p, tam);
  return imagen;
}

bool GraficoCurva::ExportaPng(const QString& ruta) const {
  return Imagen(size()).save(ruta, "PNG");
}

bool GraficoCurva::ExportaSvg(const QString& ruta) const {
  QSvgGenerator svg;
  svg.setFileName(ruta);
  svg.setSize(size());
  svg.setViewBox(QRect(QPoint(0, 0), size()));
  svg.setTitle(QStringLiteral("Mirkal"));
  QPainter p;
  if (!p.begin(&svg)) return false;
  Dibuja(p, size());
  return p.end();
}

// The nearest point of the curve, within a few pixels of the click.
void GraficoCurva::Elige(QPointF pixel) {
  if (!hayCurva_) return;
  const auto segmentos = curva_.Traza(Efectiva(size()), width() / 2, height() / 2);
  Punto2 cercano{};
  // Nearest in pixels: the plane's two scales may differ.
  std::vector<Segmento> enPixeles;
  for (const Segmento& s : segmentos) {
    const QPointF a = APixel(s.a, size()), b = APixel(s.b, size());
    enPixeles.push_back({{a.x(), a.y()}, {b.x(), b.y()}});
  }
  if (!PuntoMasCercano(enPixeles, {pixel.x(), pixel.y()}, cercano)) return;
  if (std::hypot(cercano.x - pixel.x(), cercano.y - pixel.y()) > 12) return;
  punto_ = APlano(QPointF(cercano.x, cercano.y), size());
  pendiente_ = curva_.Pendiente(punto_.x, punto_.y);
  hayPunto_ = true;
  update();
  emit puntoElegido(punto_.x, punto_.y, pendiente_);
}

void GraficoCurva::wheelEvent(QWheelEvent* e) {
  const double factor = std::pow(1.2, -e->angleDelta().y() / 120.0);
  const Punto2 c = APlano(e->position(), size());
  vista_ = {c.x + (vista_.xMin - c.x) * factor, c.x + (vista_.xMax - c.x) * factor,
            c.y + (vista_.yMin - c.y) * factor, c.y + (vista_.yMax - c.y) * factor};
  update();
}

void GraficoCurva::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  arrastre_ = e->position();
  arrastrando_ = true;
  movido_ = false;
}

void GraficoCurva::mouseMoveEvent(QMouseEvent* e) {
  if (!arrastrando_) return;
  const QPointF d = e->position() - arrastre_;
  if (!movido_ && d.manhattanLength() < 4) return;
  movido_ = true;
  const Ventana v = Efectiva(size());
  const double sx = (v.xMax - v.xMin) / width(), sy = (v.yMax - v.yMin) / height();
  vista_ = {vista_.xMin - d.x() * sx, vista_.xMax - d.x() * sx, vista_.yMin + d.y() * sy,
            vista_.yMax + d.y() * sy};
  arrastre_ = e->position();
  update();
}

void GraficoCurva::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  arrastrando_ = false;
  if (!movido_) Elige(e->position()); // a click, not a drag
}
