#include "app/frmPresentar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <cmath>

#include "app/Controles.h"
#include "app/Dialogos.h"
#include "editor/Paleta.h"
#include "editor/ValoresSeguros.h"

namespace {

QColor ColorDe(int indice) { return QColor::fromRgb(ColorPaleta(indice)); }

// The font of the text area, so that the sample looks like the document.
QFont FuenteEditor(float tam) {
  QFont fuente(QStringLiteral("Courier New"));
  fuente.setStyleHint(QFont::Monospace);
  fuente.setFixedPitch(true);
  fuente.setPointSizeF(tam);
  return fuente;
}

QComboBox* NuevaListaColores(const char* nombre, QWidget* padre) {
  auto* lista = Nombrado(new QComboBox(padre), nombre);
  for (int i = 0; i < static_cast<int>(kNombresColor.size()); ++i) {
    QPixmap muestra(14, 14);
    muestra.fill(ColorDe(i));
    QPainter borde(&muestra);
    borde.setPen(Qt::darkGray);
    borde.drawRect(0, 0, 13, 13);
    borde.end();
    lista->addItem(QIcon(muestra), QString::fromUtf8(kNombresColor[i]));
  }
  return lista;
}

QString TextoTam(float tam) { return QString::number(static_cast<double>(tam)); }

} // namespace

MuestraPresentacion::MuestraPresentacion(QWidget* padre) : QWidget(padre) {
  setMinimumSize(200, 70);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void MuestraPresentacion::Fija(QColor fondo, QColor texto, QColor fondoTexto, float tamFuente) {
  fondo_ = fondo;
  texto_ = texto;
  fondoTexto_ = fondoTexto;
  tamFuente_ = tamFuente;
  update();
}

void MuestraPresentacion::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), fondo_);
  const QFont fuente = FuenteEditor(tamFuente_);
  const QFontMetrics medidas(fuente);
  const QString palabra = QStringLiteral("Mirkal");
  const int ancho = medidas.horizontalAdvance(palabra);
  const int x = (width() - ancho) / 2;
  const int base = (height() + medidas.ascent() - medidas.descent()) / 2;
  p.fillRect(QRect(x, base - medidas.ascent(), ancho, medidas.height()), fondoTexto_);
  p.setFont(fuente);
  p.setPen(texto_);
  p.drawText(x, base, palabra);
  const int linea = base + medidas.descent() + 2;
  p.drawLine(x, linea, x + ancho - 1, linea);
}

frmPresentar::frmPresentar(Presentacion& presentacion, QWidget* padre)
    : QDialog(padre), presentacion_(presentacion), valores_(AbrePresentar(presentacion)) {
  setObjectName(QStringLiteral("frmPresentar"));
  setWindowTitle(QStringLiteral("Presentación"));
  CreaControles();
  Dispone();
  MuestraValores();
  Conecta();
}

void frmPresentar::CreaControles() {
  cmbTipoTexto = Nombrado(new QComboBox(this), "cmbTipoTexto");
  cmbTipoTexto->addItems({QStringLiteral("Texto normal"), QStringLiteral("Texto seleccionado"),
                          QStringLiteral("Comentarios")});
  cmbPrimerPlano = NuevaListaColores("cmbPrimerPlano", this);
  cmbFondo = NuevaListaColores("cmbFondo", this);
  cmbFondoEditor = NuevaListaColores("cmbFondoEditor", this);
  cmbTamFuente = Nombrado(new QComboBox(this), "cmbTamFuente");
  for (const int tam : kTamFuentesDialogo)
    cmbTamFuente->addItem(TextoTam(static_cast<float>(tam)), static_cast<double>(tam));
  txtTab = Nombrado(new QLineEdit(this), "txtTab");
  txtTab->setMaxLength(6);
  chkScrollBar =
      Nombrado(new QCheckBox(QStringLiteral("Barras de desplazamiento"), this), "chkScrollBar");
  picMuestra = Nombrado(new MuestraPresentacion(this), "picMuestra");
  cmdAceptar = Nombrado(new QPushButton(QStringLiteral("Aceptar"), this), "cmdAceptar");
  cmdAceptar->setDefault(true);
  cmdCancelar = Nombrado(new QPushButton(QStringLiteral("Cancelar"), this), "cmdCancelar");
  cmdCancelar->setAutoDefault(false);
}

// The colours on the left above the other settings, the sample on the
// right, the buttons below.
void frmPresentar::Dispone() {
  auto* colores = new QGroupBox(QStringLiteral("Colores"), this);
  auto* formColores = new QFormLayout(colores);
  formColores->addRow(QStringLiteral("&Tipo de texto:"), cmbTipoTexto);
  formColores->addRow(QStringLiteral("&Primer plano:"), cmbPrimerPlano);
  formColores->addRow(QStringLiteral("&Fondo:"), cmbFondo);
  formColores->addRow(QStringLiteral("Fondo del &editor:"), cmbFondoEditor);
  auto* otros = new QFormLayout;
  otros->addRow(QStringLiteral("Tamaño de &letra:"), cmbTamFuente);
  otros->addRow(QStringLiteral("Espacios de ta&bulación:"), txtTab);
  otros->addRow(QString(), chkScrollBar);
  auto* muestra = new QGroupBox(QStringLiteral("Muestra"), this);
  auto* marcoMuestra = new QVBoxLayout(muestra);
  marcoMuestra->addWidget(picMuestra);
  auto* botones = new QDialogButtonBox(this);
  botones->addButton(cmdAceptar, QDialogButtonBox::AcceptRole);
  botones->addButton(cmdCancelar, QDialogButtonBox::RejectRole);

  auto* izquierda = new QVBoxLayout;
  izquierda->addWidget(colores);
  izquierda->addLayout(otros);
  auto* arriba = new QHBoxLayout;
  arriba->addLayout(izquierda);
  arriba->addWidget(muestra, 1);
  auto* marco = new QVBoxLayout(this);
  marco->addLayout(arriba);
  marco->addWidget(botones);
}

// The controls from the settings as the dialog opens.
void frmPresentar::MuestraValores() {
  valores_.TamFuente = TamFuenteSegura(valores_.TamFuente);
  cmbTamFuente->setCurrentIndex(EntradaTamFuente(valores_.TamFuente));
  cmbFondoEditor->setCurrentIndex(valores_.ColorFondoEditor);
  txtTab->setText(QString::fromStdString(valores_.txtTab));
  chkScrollBar->setChecked(valores_.ScrollBars);
  cmbTipoTexto->setCurrentIndex(kTextoNormal);
  MuestraTipo();
}

// The font size list's entry for a size. A size that the list does not offer
// (one loaded from the store) is added to it in order, so that accepting
// without touching it keeps it.
int frmPresentar::EntradaTamFuente(float tam) {
  const int hallada = cmbTamFuente->findData(static_cast<double>(tam));
  if (hallada >= 0) return hallada;
  int indice = 0;
  while (indice < cmbTamFuente->count() &&
         cmbTamFuente->itemData(indice).toDouble() < static_cast<double>(tam))
    ++indice;
  cmbTamFuente->insertItem(indice, TextoTam(tam), static_cast<double>(tam));
  return indice;
}

void frmPresentar::Conecta() {
  connect(cmbTipoTexto, &QComboBox::currentIndexChanged, this, &frmPresentar::MuestraTipo);
  connect(cmbPrimerPlano, &QComboBox::currentIndexChanged, this, &frmPresentar::CambiaPrimerPlano);
  connect(cmbFondo, &QComboBox::currentIndexChanged, this, &frmPresentar::CambiaFondo);
  connect(cmbFondoEditor, &QComboBox::currentIndexChanged, this, &frmPresentar::CambiaFondoEditor);
  connect(cmbTamFuente, &QComboBox::currentIndexChanged, this, &frmPresentar::CambiaTamFuente);
  connect(cmdAceptar, &QPushButton::clicked, this, &frmPresentar::Acepta);
  connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
}

ValoresPresentar frmPresentar::Valores() const {
  ValoresPresentar v = valores_;
  v.txtTab = txtTab->text().toStdString();
  v.ScrollBars = chkScrollBar->isChecked();
  return v;
}

// The foreground and background of the chosen text type. Plain text and
// comments lie on the editor's background, so theirs cannot be chosen apart.
void frmPresentar::MuestraTipo() {
  const int tipo = cmbTipoTexto->currentIndex();
  const int primerPlano = tipo == kTextoSeleccionado ? valores_.ColorLetraSel
                          : tipo == kComentarios     ? valores_.ColorComment
                                                     : valores_.ColorLetra;
  const int fondo = tipo == kTextoSeleccionado ? valores_.ColorFondoSel : valores_.ColorFondoEditor;
  {
    const QSignalBlocker b1(cmbPrimerPlano), b2(cmbFondo);
    cmbPrimerPlano->setCurrentIndex(primerPlano);
    cmbFondo->setCurrentIndex(fondo);
  }
  cmbFondo->setEnabled(tipo == kTextoSeleccionado);
  Redibuja();
}

void frmPresentar::CambiaPrimerPlano(int color) {
  if (color < 0) return;
  switch (cmbTipoTexto->currentIndex()) {
  case kTextoSeleccionado:
    valores_.ColorLetraSel = color;
    break;
  case kComentarios:
    valores_.ColorComment = color;
    break;
  default:
    valores_.ColorLetra = color;
    break;
  }
  Redibuja();
}

void frmPresentar::CambiaFondo(int color) {
  if (color < 0 || cmbTipoTexto->currentIndex() != kTextoSeleccionado) return;
  valores_.ColorFondoSel = color;
  Redibuja();
}

void frmPresentar::CambiaFondoEditor(int color) {
  if (color < 0) return;
  valores_.ColorFondoEditor = color;
  if (cmbTipoTexto->currentIndex() != kTextoSeleccionado) {
    const QSignalBlocker bloqueo(cmbFondo);
    cmbFondo->setCurrentIndex(color);
  }
  Redibuja();
}

void frmPresentar::CambiaTamFuente() {
  valores_.TamFuente = static_cast<float>(cmbTamFuente->currentData().toDouble());
  Redibuja();
}

void frmPresentar::Redibuja() {
  const bool seleccionado = cmbTipoTexto->currentIndex() == kTextoSeleccionado;
  picMuestra->Fija(
      ColorDe(cmbFondoEditor->currentIndex()), ColorDe(cmbPrimerPlano->currentIndex()),
      ColorDe(seleccionado ? cmbFondo->currentIndex() : cmbFondoEditor->currentIndex()),
      valores_.TamFuente);
}

void frmPresentar::Acepta() {
  if (const auto mensaje = AceptaPresentar(presentacion_, Valores())) {
    txtTab->selectAll();
    Dialogos::Aviso(this, QString::fromStdString(*mensaje));
    txtTab->setFocus();
    txtTab->selectAll();
    return;
  }
  accept();
}
