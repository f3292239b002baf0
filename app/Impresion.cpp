#include "app/Impresion.h"

#include <QFontMetrics>
#include <QPageLayout>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "editor/Documento.h"
#include "editor/Paginas.h"
#include "lang/Cp1252.h"

namespace {

constexpr double kMargenMm = 20;

QFont FuenteImpresa() {
  QFont fuente;
  fuente.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"),
                      QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Monospace")});
  fuente.setStyleHint(QFont::TypeWriter);
  fuente.setFixedPitch(true);
  fuente.setPointSizeF(10);
  return fuente;
}

} // namespace

bool ImprimeDocumento(QPrinter& impresora, const Documento& doc, const QString& titulo) {
  impresora.setPageMargins(QMarginsF(kMargenMm, kMargenMm, kMargenMm, kMargenMm),
                           QPageLayout::Millimeter);
  QPainter p;
  if (!p.begin(&impresora)) return false;
  const QFont fuente = FuenteImpresa();
  p.setFont(fuente);
  const QFontMetrics m(fuente, &impresora);
  const int alto = m.height();
  const int ancho = impresora.width(), altoPagina = impresora.height();
  // A line for the head and one for the foot, each with a blank line apart.
  const int columnas = ancho / std::max(1, m.horizontalAdvance(QLatin1Char('M')));
  const int lineas = (altoPagina - 4 * alto) / alto;
  std::vector<std::string> filas;
  for (int f = 0; f < doc.NumFilas(); ++f)
    filas.push_back(doc.BytesFila(f));
  const auto paginas = Pagina(filas, columnas, lineas);
  const int total = static_cast<int>(paginas.size());
  for (int i = 0; i < total; ++i) {
    if (i > 0) impresora.newPage();
    p.drawText(0, m.ascent(), m.elidedText(titulo, Qt::ElideMiddle, ancho));
    int y = 2 * alto + m.ascent();
    for (const std::string& linea : paginas[static_cast<std::size_t>(i)]) {
      p.drawText(0, y, QString::fromStdString(Cp1252AUtf8(linea)));
      y += alto;
    }
    const QString pie = QStringLiteral("Página %1 de %2").arg(i + 1).arg(total);
    p.drawText(QRect(0, altoPagina - alto, ancho, alto), Qt::AlignHCenter | Qt::AlignBottom, pie);
  }
  return p.end();
}

void VistaPrevia(QWidget* padre, const Documento& doc, const QString& titulo) {
  QPrinter impresora(QPrinter::HighResolution);
  QPrintPreviewDialog dialogo(&impresora, padre);
  dialogo.setWindowTitle(QStringLiteral("Vista previa de impresión"));
  QObject::connect(&dialogo, &QPrintPreviewDialog::paintRequested,
                   [&](QPrinter* destino) { ImprimeDocumento(*destino, doc, titulo); });
  dialogo.exec();
}
