#pragma once
// frmPresentar: the presentation dialog. It works on a copy of the settings
// (one foreground per text type, the selection's background, the editor's
// background, font size, tab width, scroll bars) and hands them to the
// Presentacion only when accepted; cancelling calls no setter.

#include <QColor>
#include <QDialog>
#include <QWidget>

#include "editor/DialogoPresentar.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

// The sample: the word "Mirkal" near the middle, underlined, in the chosen
// colours and font size, over the editor's background.
class MuestraPresentacion : public QWidget {
  Q_OBJECT
public:
  explicit MuestraPresentacion(QWidget* padre = nullptr);

  // fondoTexto is the background right behind the word: the selection's for
  // selected text, the editor's otherwise.
  void Fija(QColor fondo, QColor texto, QColor fondoTexto, float tamFuente);
  QColor Fondo() const { return fondo_; }
  QColor Texto() const { return texto_; }
  QColor FondoTexto() const { return fondoTexto_; }
  float TamFuente() const { return tamFuente_; }

  QSize sizeHint() const override { return {240, 90}; }

protected:
  void paintEvent(QPaintEvent* evento) override;

private:
  QColor fondo_, texto_, fondoTexto_;
  float tamFuente_ = kDefTamFuente;
};

class frmPresentar : public QDialog {
  Q_OBJECT
public:
  // The text types of cmbTipoTexto, in its order.
  enum TipoTexto { kTextoNormal = 0, kTextoSeleccionado = 1, kComentarios = 2 };

  explicit frmPresentar(Presentacion& presentacion, QWidget* padre = nullptr);

  // The controls' values as they stand (the tab box as typed).
  ValoresPresentar Valores() const;

private:
  void CreaControles();
  void Dispone();
  void MuestraValores();
  int EntradaTamFuente(float tam);
  void Conecta();
  void MuestraTipo();
  void CambiaPrimerPlano(int color);
  void CambiaFondo(int color);
  void CambiaFondoEditor(int color);
  void CambiaTamFuente();
  void Redibuja();
  void Acepta();

  Presentacion& presentacion_;
  ValoresPresentar valores_;
  QComboBox* cmbTipoTexto = nullptr;
  QComboBox* cmbPrimerPlano = nullptr;
  QComboBox* cmbFondo = nullptr;
  QComboBox* cmbFondoEditor = nullptr;
  QComboBox* cmbTamFuente = nullptr;
  QLineEdit* txtTab = nullptr;
  QCheckBox* chkScrollBar = nullptr;
  MuestraPresentacion* picMuestra = nullptr;
  QPushButton* cmdAceptar = nullptr;
  QPushButton* cmdCancelar = nullptr;
};
