#pragma once
// The "Análisis" panel beside the editor: the document's equation, dy/dx in
// lowest terms and d²y/dx², each copied as LaTeX or as text, and the plot of
// the curve. It follows the equation after each Derivar; the analysis runs
// off the window's thread, and a result that a newer request has overtaken
// is dropped.

#include <QDockWidget>
#include <QFutureWatcher>
#include <string>

#include "analysis/Analisis.h"

class FormulaVista;
class GraficoCurva;
class QLabel;

class PanelAnalisis : public QDockWidget {
  Q_OBJECT
public:
  explicit PanelAnalisis(QWidget* padre = nullptr);

  void Analiza(const std::string& ecuacion, const std::string& vd, const std::string& vi);
  const ResultadoAnalisis& Resultado() const { return resultado_; }
  GraficoCurva* Grafico() const { return grafico_; }
  FormulaVista* VistaDerivada() const { return derivada_; }

signals:
  void analizado();

private:
  void Muestra(const ResultadoAnalisis& r);
  void FilaDeFormula(class QGridLayout* rejilla, int fila, const QString& titulo,
                     FormulaVista*& texto, const std::string ResultadoAnalisis::*enTexto,
                     const std::string ResultadoAnalisis::*enLatex);

  FormulaVista *ecuacion_ = nullptr, *derivada_ = nullptr, *segunda_ = nullptr;
  QLabel* estado_ = nullptr;
  GraficoCurva* grafico_ = nullptr;
  ResultadoAnalisis resultado_;
  std::string ecuacionPedida_, vd_, vi_;
  int generacion_ = 0;
};
