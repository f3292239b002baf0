// The dialogs driven through their real widgets on the offscreen platform.
// What the dialogs decide is tested in the window-free models; these tests
// check the wiring: that the boxes are read, the models called, the messages
// shown through Dialogos and the dialogs left open or closed as they should.

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "ControlesPrueba.h"
#include "app/Dialogos.h"
#include "app/frmBuscar.h"
#include "app/frmConfig.h"
#include "app/frmPresentar.h"
#include "app/frmReemp.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Buscador.h"
#include "editor/Editor.h"
#include "editor/Paleta.h"
#include "editor/Presentacion.h"

namespace {

using prueba::Control;
using prueba::Escribe;
using prueba::Pulsa;
using prueba::Teclea;

// Every message box is answered here, never by a person.
class DialogosTest : public ::testing::Test {
protected:
  void SetUp() override {
    Dialogos::Respondedor r;
    r.aviso = [this](const QString&, const QString& texto) {
      avisos.push_back(texto);
      if (alAvisar) alAvisar();
    };
    r.pregunta = [this](const QString& texto) {
      preguntas.push_back(texto);
      if (alPreguntar) alPreguntar();
      if (respuestas.empty()) return Respuesta::Cancelar;
      const Respuesta primera = respuestas.front();
      respuestas.erase(respuestas.begin());
      return primera;
    };
    Dialogos::FijaRespondedor(r);
    UltimaBusqueda() = {};
  }
  void TearDown() override { Dialogos::FijaRespondedor({}); }

  static void Muestra(QWidget& dialogo) {
    dialogo.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialogo));
  }

  std::vector<QString> avisos, preguntas;
  std::vector<Respuesta> respuestas;
  std::function<void()> alAvisar, alPreguntar;
};

// ---------------------------------------------------------------------------
// frmConfig

TEST_F(DialogosTest, ConfigRechazaCifrasYQuedaAbiertaConLaCajaSeleccionada) {
  frmConfig dlg;
  Muestra(dlg);
  auto* txtCRE = Control<QLineEdit>(dlg, "txtCRE");
  ASSERT_NE(txtCRE, nullptr);
  QString seleccionAlAvisar;
  alAvisar = [&] { seleccionAlAvisar = txtCRE->selectedText(); };
  Escribe(txtCRE, "301");
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));

  EXPECT_EQ(avisos, std::vector<QString>{"Se esperaba un número entre 0 y 300"});
  EXPECT_EQ(seleccionAlAvisar, "301"); // selected before the message, not after
  EXPECT_TRUE(dlg.isVisible());
  EXPECT_EQ(txtCRE->selectedText(), "301");
  EXPECT_EQ(dlg.focusWidget(), txtCRE);
  EXPECT_FALSE(dlg.Config().Ok);
  EXPECT_EQ(dlg.Config().CifRedExt, 5);
}

TEST_F(DialogosTest, ConfigAceptaYVuelveAMostrarLoAceptado) {
  frmConfig dlg;
  QSignalSpy ayuda(&dlg, &frmConfig::ayudaPedida);
  Muestra(dlg);
  Escribe(Control<QLineEdit>(dlg, "txtVD"), "u");
  Escribe(Control<QLineEdit>(dlg, "txtVI"), "t");
  Escribe(Control<QLineEdit>(dlg, "txtCRE"), "0");
  Pulsa(Control<QCheckBox>(dlg, "chkFracc"));
  Pulsa(Control<QPushButton>(dlg, "cmdAyuda"));
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));

  EXPECT_TRUE(avisos.empty());
  EXPECT_EQ(dlg.result(), QDialog::Accepted);
  const ConfigDerivacion& c = dlg.Config();
  EXPECT_EQ(std::tuple(c.VarDep, c.VarInd, c.CifRedExt, c.OutFracc, c.Ok),
            std::tuple("u", "t", 0, false, true));
  ASSERT_EQ(ayuda.count(), 1);
  EXPECT_EQ(ayuda.at(0).at(0).toString(), "configuracion");

  // What is typed and then cancelled is forgotten at the next opening.
  Muestra(dlg);
  auto* txtVD = Control<QLineEdit>(dlg, "txtVD");
  EXPECT_EQ(txtVD->text(), "u");
  Escribe(txtVD, "dy_dx");
  Pulsa(Control<QPushButton>(dlg, "cmdCancelar"));
  EXPECT_EQ(dlg.Config().VarDep, "u");
  Muestra(dlg);
  EXPECT_EQ(txtVD->text(), "u");
  EXPECT_EQ(Control<QLineEdit>(dlg, "txtCRE")->text(), "0");
  EXPECT_FALSE(Control<QCheckBox>(dlg, "chkFracc")->isChecked());
}

// ---------------------------------------------------------------------------
// frmPresentar

// A memory store that also keeps its writes in order.
class AlmacenAnotado : public AlmacenEnMemoria {
public:
  void Escribe(const std::string& s, const std::string& c, const std::string& v) override {
    escrituras.push_back(c + "=" + v);
    AlmacenEnMemoria::Escribe(s, c, v);
  }
  std::vector<std::string> escrituras;
};

int CuentaPixeles(const QImage& imagen, QColor color) {
  int n = 0;
  for (int y = 0; y < imagen.height(); ++y)
    for (int x = 0; x < imagen.width(); ++x)
      n += imagen.pixelColor(x, y).rgb() == color.rgb();
  return n;
}

class PresentarTest : public DialogosTest {
protected:
  void SetUp() override {
    DialogosTest::SetUp();
    p.Carga();
    almacen.escrituras.clear();
  }
  AlmacenAnotado almacen;
  Presentacion p{almacen};
};

TEST_F(PresentarTest, RechazaLaTabulacionYAplicaLosAjustesEnOrden) {
  frmPresentar dlg(p);
  Muestra(dlg);
  auto* txtTab = Control<QLineEdit>(dlg, "txtTab");
  auto* cmbTipoTexto = Control<QComboBox>(dlg, "cmbTipoTexto");
  auto* cmbPrimerPlano = Control<QComboBox>(dlg, "cmbPrimerPlano");
  auto* cmbFondo = Control<QComboBox>(dlg, "cmbFondo");
  auto* cmbFondoEditor = Control<QComboBox>(dlg, "cmbFondoEditor");
  auto* picMuestra = Control<MuestraPresentacion>(dlg, "picMuestra");
  ASSERT_TRUE(txtTab && cmbTipoTexto && cmbPrimerPlano && cmbFondo && cmbFondoEditor && picMuestra);
  EXPECT_EQ(txtTab->text(), "4");
  EXPECT_EQ(Control<QComboBox>(dlg, "cmbTamFuente")->currentText(), "10");
  EXPECT_EQ(cmbFondoEditor->currentText(), "Blanco brillante");
  EXPECT_EQ(cmbPrimerPlano->currentText(), "Negro");
  EXPECT_FALSE(cmbFondo->isEnabled());

  Control<QComboBox>(dlg, "cmbTamFuente")->setCurrentText("12");
  cmbPrimerPlano->setCurrentText("Rojo"); // plain text
  cmbTipoTexto->setCurrentText("Texto seleccionado");
  EXPECT_TRUE(cmbFondo->isEnabled());
  EXPECT_EQ(cmbPrimerPlano->currentText(), "Blanco brillante");
  EXPECT_EQ(cmbFondo->currentText(), "Azul");
  cmbPrimerPlano->setCurrentText("Amarillo");
  cmbFondo->setCurrentText("Negro");
  cmbTipoTexto->setCurrentText("Comentarios");
  EXPECT_FALSE(cmbFondo->isEnabled());
  EXPECT_EQ(cmbPrimerPlano->currentText(), "Verde");
  cmbPrimerPlano->setCurrentText("Fucsia");
  cmbFondoEditor->setCurrentText("Gris");
  EXPECT_EQ(cmbFondo->currentText(), "Gris"); // comments lie on the editor's background
  Pulsa(Control<QCheckBox>(dlg, "chkScrollBar"));

  // The sample follows: the editor's background, the comments' colour in
  // the underline, the chosen size.
  const QImage imagen = picMuestra->grab().toImage();
  EXPECT_EQ(imagen.pixelColor(1, 1).rgb(), QColor::fromRgb(ColorPaleta(8)).rgb());
  EXPECT_GT(CuentaPixeles(imagen, QColor::fromRgb(ColorPaleta(5))), 10);
  EXPECT_EQ(picMuestra->TamFuente(), 12.0f);

  Escribe(txtTab, "33");
  QString seleccionAlAvisar;
  alAvisar = [&] { seleccionAlAvisar = txtTab->selectedText(); };
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(avisos, std::vector<QString>{
                        "Los espacios de tabulación deben estar comprendidos entre 1 y 32"});
  EXPECT_EQ(seleccionAlAvisar, "33");
  EXPECT_EQ(txtTab->selectedText(), "33");
  EXPECT_EQ(dlg.focusWidget(), txtTab);
  EXPECT_TRUE(dlg.isVisible());
  EXPECT_TRUE(almacen.escrituras.empty());

  Escribe(txtTab, "8");
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(avisos.size(), 1u);
  EXPECT_EQ(dlg.result(), QDialog::Accepted);
  const std::vector<std::string> enOrden{
      "TamFuente=12",    "Tab=8",           "m_ColorLetra=4", "ScrollBars=0",
      "ColorLetraSel=6", "ColorFondoSel=0", "ColorComment=5", "ColorFondoEditor=8"};
  EXPECT_EQ(almacen.escrituras, enOrden);
}

TEST_F(PresentarTest, CancelarNoLlamaANingunAjuste) {
  frmPresentar dlg(p);
  Muestra(dlg);
  Control<QComboBox>(dlg, "cmbTamFuente")->setCurrentText("16");
  Control<QComboBox>(dlg, "cmbFondoEditor")->setCurrentText("Negro");
  Escribe(Control<QLineEdit>(dlg, "txtTab"), "2");
  Pulsa(Control<QPushButton>(dlg, "cmdCancelar"));
  EXPECT_FALSE(dlg.isVisible());
  EXPECT_TRUE(almacen.escrituras.empty());
  EXPECT_TRUE(avisos.empty());
}

// ---------------------------------------------------------------------------
// frmBuscar and frmReemp

class BuscarTest : public DialogosTest {
protected:
  void Carga(const std::vector<std::string>& filas) { ed.Carga(prueba::FilasCp1252(filas)); }
  std::string Texto() const { return ed.Doc().TextoDocumento(); }
  Editor ed;
  Buscador buscador{ed};
};

TEST_F(BuscarTest, BuscarSiguienteAvanzaDesdeElCursor) {
  Carga({"y = max(x)", "2·X + 1", "x"});
  frmBuscar dlg(buscador, ed);
  QSignalSpy buscado(&dlg, &frmBuscar::buscado);
  Muestra(dlg);
  Teclea(Control<QLineEdit>(dlg, "txtBuscar"), "x");
  Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
  auto* cmdBuscar = Control<QPushButton>(dlg, "cmdBuscar");
  Pulsa(cmdBuscar);
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{0, 8}));
  Pulsa(cmdBuscar);
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{1, 2})); // case ignored, "·" is no word character
  Pulsa(Control<QCheckBox>(dlg, "chkMayusMinus"));
  Pulsa(cmdBuscar);
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{2, 0}));
  EXPECT_EQ(buscado.count(), 3);
  EXPECT_TRUE(dlg.isVisible());
}

TEST_F(BuscarTest, ReemplazarTodoConLosBotones) {
  Carga({"y = x^2 + X", "max(x)", "2·x + 1"});
  ed.Doc().MueveCursor(2, 7); // every match counts, not only those after the cursor
  frmReemp dlg(buscador, ed);
  QSignalSpy reemplazado(&dlg, &frmReemp::reemplazado);
  Muestra(dlg);
  auto* cmdReplaceAll = Control<QPushButton>(dlg, "cmdReplaceAll");
  EXPECT_FALSE(cmdReplaceAll->isEnabled()); // nothing to look for yet
  Teclea(Control<QLineEdit>(dlg, "txtBuscar"), "x");
  Teclea(Control<QLineEdit>(dlg, "txtReemp"), "año");
  Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
  Pulsa(cmdReplaceAll);

  EXPECT_TRUE(preguntas.empty());
  EXPECT_EQ(Texto(), "y = año^2 + año\r\nmax(año)\r\n2·año + 1");
  EXPECT_GE(reemplazado.count(), 1);
  EXPECT_TRUE(dlg.isVisible());
}

TEST_F(BuscarTest, ReemplazarUnoAUnoPreguntaConLaCoincidenciaSeleccionada) {
  Carga({"x + x", "x"});
  frmReemp dlg(buscador, ed);
  QSignalSpy reemplazado(&dlg, &frmReemp::reemplazado);
  Muestra(dlg);
  Teclea(Control<QLineEdit>(dlg, "txtBuscar"), "x");
  Teclea(Control<QLineEdit>(dlg, "txtReemp"), "t");
  std::vector<Posicion> seleccionadas;
  int redibujosAlPreguntar = 0;
  alPreguntar = [&] {
    seleccionadas.push_back(ed.Doc().InicioSel());
    redibujosAlPreguntar = reemplazado.count();
  };
  respuestas = {Respuesta::No, Respuesta::Si, Respuesta::Cancelar};
  Pulsa(Control<QPushButton>(dlg, "cmdSí"));

  EXPECT_EQ(preguntas, std::vector<QString>(3, "¿Reemplazar la cadena buscada?"));
  EXPECT_EQ(seleccionadas, (std::vector<Posicion>{{0, 0}, {0, 4}, {1, 0}}));
  EXPECT_GE(redibujosAlPreguntar, 3); // the view showed each match before its question
  EXPECT_EQ(Texto(), "x + t\r\nx");
}

} // namespace
