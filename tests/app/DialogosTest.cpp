// Each dialog driven through its real widgets: it shows the values it is
// given and hands back what the user typed and chose. What the models then
// do with those values is tested with the models.

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>

#include <tuple>

#include "ControlesPrueba.h"
#include "app/frmBuscar.h"
#include "app/frmConfig.h"
#include "app/frmPresentar.h"
#include "app/frmReemp.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Buscador.h"
#include "editor/Editor.h"
#include "editor/Paleta.h"

namespace {

using namespace prueba;

class DialogosTest : public ConDialogos {
protected:
  static void Muestra(QWidget& dialogo) {
    dialogo.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialogo));
  }
};

// A refused box stays open, selected before the message so that the user
// retypes over it; what is typed and then cancelled is forgotten.
TEST_F(DialogosTest, ConfigDevuelveLoEscrito) {
  frmConfig dlg;
  QSignalSpy ayuda(&dlg, &frmConfig::ayudaPedida);
  Muestra(dlg);
  auto* txtVD = Control<QLineEdit>(dlg, "txtVD");
  auto* txtCRE = Control<QLineEdit>(dlg, "txtCRE");
  ASSERT_TRUE(txtVD && txtCRE);
  EXPECT_EQ(S(txtVD->text() + Control<QLineEdit>(dlg, "txtVI")->text() + txtCRE->text()), "yx5");
  Escribe(txtVD, "u");
  Escribe(Control<QLineEdit>(dlg, "txtVI"), "t");
  Escribe(txtCRE, "301");
  Pulsa(Control<QCheckBox>(dlg, "chkFracc"));
  Pulsa(Control<QPushButton>(dlg, "cmdAyuda"));
  QString seleccionAlAvisar;
  alAvisar = [&] { seleccionAlAvisar = txtCRE->selectedText(); };
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(avisos, std::vector<std::string>{"Se esperaba un número entre 0 y 300"});
  EXPECT_EQ(seleccionAlAvisar, "301");
  EXPECT_TRUE(dlg.isVisible());
  EXPECT_EQ(dlg.focusWidget(), txtCRE);
  EXPECT_FALSE(dlg.Config().Ok);

  Escribe(txtCRE, "0");
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(dlg.result(), QDialog::Accepted);
  const ConfigDerivacion& c = dlg.Config();
  EXPECT_EQ(std::tuple(c.VarDep, c.VarInd, c.CifRedExt, c.OutFracc, c.Ok),
            std::tuple("u", "t", 0, false, true));
  ASSERT_EQ(ayuda.count(), 1);
  EXPECT_EQ(ayuda.at(0).at(0).toString(), "configuracion");

  Muestra(dlg);
  Escribe(txtVD, "z");
  Pulsa(Control<QPushButton>(dlg, "cmdCancelar"));
  Muestra(dlg);
  EXPECT_EQ(S(txtVD->text()), "u");
  EXPECT_EQ(avisos.size(), 1u);
}

// The text and both options reach the Buscador, from the cursor on.
TEST_F(DialogosTest, BuscarBuscaLoEscritoConSusOpciones) {
  Editor ed;
  ed.Carga({"y = max(x)", "X", "x"});
  Buscador buscador{ed};
  frmBuscar dlg(buscador, ed);
  QSignalSpy buscado(&dlg, &frmBuscar::buscado);
  Muestra(dlg);
  Escribe(Control<QLineEdit>(dlg, "txtBuscar"), "x");
  Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
  Pulsa(Control<QPushButton>(dlg, "cmdBuscar"));
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{0, 8})); // a whole word: not the x of max
  Pulsa(Control<QCheckBox>(dlg, "chkMayusMinus"));
  Pulsa(Control<QPushButton>(dlg, "cmdBuscar"));
  EXPECT_EQ(ed.Doc().InicioSel(), (Posicion{2, 0})); // case matched: not the X
  EXPECT_EQ(buscado.count(), 2);
  EXPECT_TRUE(dlg.isVisible());
  EXPECT_TRUE(avisos.empty());
}

// One by one, each match is shown selected before its question, which goes
// through Dialogos; "Reemplazar todo" asks nothing.
TEST_F(DialogosTest, ReemplazarPasaLoEscritoYPregunta) {
  Editor ed;
  ed.Carga({"x + X", "max(x) + x"});
  Buscador buscador{ed};
  frmReemp dlg(buscador, ed);
  QSignalSpy reemplazado(&dlg, &frmReemp::reemplazado);
  Muestra(dlg);
  auto* cmdReplaceAll = Control<QPushButton>(dlg, "cmdReplaceAll");
  ASSERT_NE(cmdReplaceAll, nullptr);
  EXPECT_FALSE(cmdReplaceAll->isEnabled()); // nothing to look for yet
  Escribe(Control<QLineEdit>(dlg, "txtBuscar"), "x");
  Escribe(Control<QLineEdit>(dlg, "txtReemp"), "año");
  Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
  Pulsa(Control<QCheckBox>(dlg, "chkMayusMinus"));
  std::vector<Posicion> vistas;
  alPreguntar = [&] {
    vistas.push_back(ed.Doc().InicioSel());
    EXPECT_GE(reemplazado.count(), static_cast<int>(vistas.size()));
  };
  respuestas = {Respuesta::Si, Respuesta::No, Respuesta::Cancelar};
  Pulsa(Control<QPushButton>(dlg, "cmdSí"));
  EXPECT_EQ(preguntas, std::vector<std::string>(3, Buscador::kPregunta));
  EXPECT_EQ(vistas, (std::vector<Posicion>{{0, 0}, {1, 4}, {1, 9}}));
  EXPECT_EQ(ed.Doc().TextoDocumento(), "año + X\r\nmax(x) + x");
  Pulsa(cmdReplaceAll);
  EXPECT_EQ(ed.Doc().TextoDocumento(), "año + X\r\nmax(año) + año");
  EXPECT_EQ(preguntas.size(), 3u);
  EXPECT_TRUE(dlg.isVisible());
}

// The dialog shows the settings, hands back the colours chosen for each text
// type with the sample following, keeps a refused tab box open and selected,
// and passes nothing on when cancelled. Which setters run, and in what order,
// is the model's.
TEST_F(DialogosTest, PresentarDevuelveLoElegido) {
  AlmacenEnMemoria almacen;
  Presentacion p(almacen);
  p.Carga();
  const auto guardado = almacen.Valores();
  frmPresentar dlg(p);
  Muestra(dlg);
  const auto combo = [&](const char* nombre) { return Control<QComboBox>(dlg, nombre); };
  auto* txtTab = Control<QLineEdit>(dlg, "txtTab");
  auto* picMuestra = Control<MuestraPresentacion>(dlg, "picMuestra");
  ASSERT_TRUE(txtTab && picMuestra && combo("cmbTipoTexto") && combo("cmbFondo"));
  EXPECT_EQ(S(txtTab->text() + "|" + combo("cmbTamFuente")->currentText() + "|" +
              combo("cmbPrimerPlano")->currentText() + "|" +
              combo("cmbFondoEditor")->currentText()),
            "4|10|Negro|Blanco brillante");
  EXPECT_FALSE(combo("cmbFondo")->isEnabled()); // plain text lies on the editor's background

  combo("cmbTamFuente")->setCurrentText("12");
  combo("cmbPrimerPlano")->setCurrentText("Rojo");
  combo("cmbTipoTexto")->setCurrentText("Texto seleccionado"); // shows the selection's colours
  EXPECT_EQ(S(combo("cmbPrimerPlano")->currentText() + "/" + combo("cmbFondo")->currentText()),
            "Blanco brillante/Azul");
  EXPECT_TRUE(combo("cmbFondo")->isEnabled());
  combo("cmbPrimerPlano")->setCurrentText("Amarillo");
  combo("cmbFondo")->setCurrentText("Negro");
  combo("cmbTipoTexto")->setCurrentText("Comentarios");
  combo("cmbPrimerPlano")->setCurrentText("Fucsia");
  combo("cmbFondoEditor")->setCurrentText("Gris");
  Pulsa(Control<QCheckBox>(dlg, "chkScrollBar"));
  Escribe(txtTab, "33");
  const ValoresPresentar v = dlg.Valores();
  EXPECT_EQ(std::tuple(v.TamFuente, v.ColorLetra, v.ColorLetraSel, v.ColorFondoSel, v.ColorComment,
                       v.ColorFondoEditor, v.ScrollBars, v.txtTab),
            std::tuple(12.0f, 4, 6, 0, 5, 8, false, "33"));
  EXPECT_EQ(picMuestra->Fondo(), QColor::fromRgb(ColorPaleta(8)));
  EXPECT_EQ(picMuestra->Texto(), QColor::fromRgb(ColorPaleta(5)));
  EXPECT_EQ(picMuestra->TamFuente(), 12.0f);

  QString seleccionAlAvisar;
  alAvisar = [&] { seleccionAlAvisar = txtTab->selectedText(); };
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(avisos.size(), 1u);
  EXPECT_EQ(seleccionAlAvisar, "33");
  EXPECT_EQ(dlg.focusWidget(), txtTab);
  EXPECT_TRUE(dlg.isVisible());
  EXPECT_EQ(almacen.Valores(), guardado);

  frmPresentar cancelado(p);
  Muestra(cancelado);
  Control<QComboBox>(cancelado, "cmbFondoEditor")->setCurrentText("Negro");
  Pulsa(Control<QPushButton>(cancelado, "cmdCancelar"));
  EXPECT_EQ(almacen.Valores(), guardado);

  Escribe(txtTab, "8");
  Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
  EXPECT_EQ(dlg.result(), QDialog::Accepted);
  EXPECT_EQ(std::tuple(p.GetTamFuente(), p.GetColorComment(), p.GetColorFondoEditor()),
            std::tuple(12.0f, 5, 8));
  EXPECT_EQ(avisos.size(), 1u);
}

} // namespace
