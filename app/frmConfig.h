#pragma once
// frmConfig: the derivation settings of the run. The main window owns one for
// the whole run and opens it with exec(); the derivation commands read
// Config(). The boxes are filled from the accepted values every time the
// dialog is shown, so that what was typed and then cancelled is forgotten.

#include <QDialog>
#include <QString>

#include "commands/ConfigDerivacion.h"

class QCheckBox;
class QLayout;
class QLineEdit;

class frmConfig : public QDialog {
  Q_OBJECT
public:
  explicit frmConfig(QWidget* padre = nullptr);

  // The defaults (y, x, 5, fractions) until the dialog is first accepted.
  const ConfigDerivacion& Config() const { return config_; }

  // The boxes from the current settings; showing the dialog calls it.
  void Abre();

  // Whether Derivar also writes dy/dx in lowest terms (the analysis) after
  // its result. Unlike the settings above it is kept between runs, by the
  // main window.
  bool Simplificada() const { return simplificada_; }
  void Simplificada(bool valor) { simplificada_ = valor; }

signals:
  // The help button: the help window should show this topic.
  void ayudaPedida(const QString& tema);

protected:
  void showEvent(QShowEvent* evento) override;

private:
  void CreaCampos();
  QLayout* Campos();
  QWidget* CreaBotones();
  void Acepta();
  QLineEdit* Caja(CampoConfig campo) const;

  ConfigDerivacion config_;
  QLineEdit* txtVD = nullptr;
  QLineEdit* txtVI = nullptr;
  QLineEdit* txtCRE = nullptr;
  QCheckBox* chkFracc = nullptr;
  QCheckBox* chkSimplificada = nullptr;
  bool simplificada_ = false;
};
