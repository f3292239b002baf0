#include "app/PanelAnalisis.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtConcurrent/QtConcurrentRun>

#include "app/FormulaVista.h"
#include "app/GraficoCurva.h"

PanelAnalisis::PanelAnalisis(QWidget* padre) : QDockWidget(QStringLiteral("Análisis"), padre) {
  setObjectName(QStringLiteral("PanelAnalisis"));
  auto* cuerpo = new QWidget(this);
  auto* marco = new QVBoxLayout(cuerpo);
  auto* rejilla = new QGridLayout;
  FilaDeFormula(rejilla, 0, QStringLiteral("Ecuación"), ecuacion_, &ResultadoAnalisis::ecuacion,
                &ResultadoAnalisis::latexEcuacion);
  FilaDeFormula(rejilla, 1, QStringLiteral("dy/dx"), derivada_, &ResultadoAnalisis::derivada,
                &ResultadoAnalisis::latexDerivada);
  FilaDeFormula(rejilla, 2, QStringLiteral("d²y/dx²"), segunda_, &ResultadoAnalisis::segunda,
                &ResultadoAnalisis::latexSegunda);
  marco->addLayout(rejilla);
  grafico_ = new GraficoCurva(cuerpo);
  marco->addWidget(grafico_, 1);
  estado_ = new QLabel(QStringLiteral("Pulse cerca de la curva para ver su tangente."), cuerpo);
  estado_->setObjectName(QStringLiteral("lblEstado"));
  estado_->setWordWrap(true);
  marco->addWidget(estado_);
  auto* botones = new QHBoxLayout;
  auto* ajustar = new QPushButton(QStringLiteral("&Ajustar"), cuerpo);
  auto* png = new QPushButton(QStringLiteral("Exportar &PNG..."), cuerpo);
  auto* svg = new QPushButton(QStringLiteral("Exportar S&VG..."), cuerpo);
  ajustar->setObjectName(QStringLiteral("cmdAjustar"));
  for (QPushButton* b : {ajustar, png, svg})
    botones->addWidget(b);
  marco->addLayout(botones);
  setWidget(cuerpo);

  connect(ajustar, &QPushButton::clicked, grafico_, &GraficoCurva::Ajusta);
  const auto exporta = [this](const QString& filtro, const QString& sufijo, bool esSvg) {
    QFileDialog dialogo(this, QStringLiteral("Exportar la gráfica"));
    dialogo.setOption(QFileDialog::DontUseNativeDialog);
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setNameFilter(filtro);
    dialogo.setDefaultSuffix(sufijo);
    if (dialogo.exec() != QDialog::Accepted) return;
    const QString ruta = dialogo.selectedFiles().value(0);
    const bool bien = esSvg ? grafico_->ExportaSvg(ruta) : grafico_->ExportaPng(ruta);
    estado_->setText(bien ? QStringLiteral("Gráfica guardada en %1").arg(ruta)
                          : QStringLiteral("No se pudo guardar la gráfica en %1").arg(ruta));
  };
  connect(png, &QPushButton::clicked, this, [exporta] {
    exporta(QStringLiteral("Imágenes PNG (*.png)"), QStringLiteral("png"), false);
  });
  connect(svg, &QPushButton::clicked, this, [exporta] {
    exporta(QStringLiteral("Dibujos SVG (*.svg)"), QStringLiteral("svg"), true);
  });
  connect(grafico_, &GraficoCurva::puntoElegido, this, [this](double x, double y, double m) {
    estado_->setText(
        QStringLiteral("Punto (%1, %2): pendiente %3")
            .arg(x, 0, 'g', 6)
            .arg(y, 0, 'g', 6)
            .arg(std::isfinite(m) ? QString::number(m, 'g', 6) : QStringLiteral("no definida")));
  });
}

void PanelAnalisis::FilaDeFormula(QGridLayout* rejilla, int fila, const QString& titulo,
                                  FormulaVista*& texto,
                                  const std::string ResultadoAnalisis::*enTexto,
                                  const std::string ResultadoAnalisis::*enLatex) {
  rejilla->addWidget(new QLabel(titulo + QStringLiteral(":"), this), fila, 0);
  texto = new FormulaVista(this);
  texto->setObjectName(QStringLiteral("formula%1").arg(fila));
  rejilla->addWidget(texto, fila, 1);
  auto* latex = new QPushButton(QStringLiteral("Copiar como LaTeX"), this);
  auto* plano = new QPushButton(QStringLiteral("Copiar como texto"), this);
  latex->setObjectName(QStringLiteral("cmdLatex%1").arg(fila));
  plano->setObjectName(QStringLiteral("cmdTexto%1").arg(fila));
  rejilla->addWidget(latex, fila, 2);
  rejilla->addWidget(plano, fila, 3);
  connect(latex, &QPushButton::clicked, this, [this, enLatex] {
    QApplication::clipboard()->setText(QString::fromStdString(resultado_.*enLatex));
  });
  connect(plano, &QPushButton::clicked, this, [this, enTexto] {
    QApplication::clipboard()->setText(QString::fromStdString(resultado_.*enTexto));
  });
}

void PanelAnalisis::Analiza(const std::string& ecuacion, const std::string& vd,
                            const std::string& vi) {
  const int generacion = ++generacion_;
  auto* vigia = new QFutureWatcher<ResultadoAnalisis>(this);
  connect(vigia, &QFutureWatcher<ResultadoAnalisis>::finished, this, [=, this] {
    vigia->deleteLater();
    if (generacion != generacion_) return; // overtaken by a newer request
    resultado_ = vigia->result();
    Muestra(resultado_);
    grafico_->Muestra(ecuacion, vd, vi);
    emit analizado();
  });
  vigia->setFuture(QtConcurrent::run([ecuacion, vd, vi] {
    Analisis a;
    a.VarDep(vd);
    a.VarInd(vi);
    return a.Analiza(ecuacion);
  }));
}

void PanelAnalisis::Muestra(const ResultadoAnalisis& r) {
  ecuacion_->Muestra(r.formulaEcuacion);
  derivada_->Muestra(r.formulaDerivada);
  segunda_->Muestra(r.formulaSegunda);
  if (!r.error.empty()) estado_->setText(QString::fromStdString(r.error));
}
