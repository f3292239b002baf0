// The main window driven as a user drives it, on the offscreen platform: keys
// and the mouse into the text area, the menu commands and toolbar buttons,
// the dialogs the commands open. What each command computes is tested in the
// window-free models; these tests check that the window reaches them and
// shows what they did (document text, selection, enabled commands, captions,
// status panel, messages). Every message box and file dialog is answered
// here through Dialogos, never by a person.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <QWindow>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../DiscoLlenoPrueba.h"
#include "ControlesPrueba.h"
#include "app/AlmacenAjustesQt.h"
#include "app/Dialogos.h"
#include "app/VentanaAyuda.h"
#include "app/VistaEditor.h"
#include "app/frmBuscar.h"
#include "app/frmConfig.h"
#include "app/frmEditor.h"
#include "app/frmPresentar.h"
#include "app/frmReemp.h"
#include "commands/OrdenDerivar.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Paleta.h"
#include "lang/SintaxExp.h"

namespace {

std::string S(const QString& texto) { return texto.toStdString(); }

const char* const kPreguntaGuardar = "Archivo cargado no fue guardado. ¿Guardar ahora?";

struct AvisoVisto {
  std::string titulo, texto;
};

// Runs `orden`, a command that opens a modal dialog of type T with exec(),
// and does `accion` on that dialog once it is open; the dialog is then closed
// if it is still open, so that the command returns. Whether the dialog was
// seen is the result.
template <class T>
bool ConDialogo(const std::function<void()>& orden, std::function<void(T&)> accion) {
  bool visto = false;
  QTimer reloj;
  reloj.setSingleShot(true);
  QObject::connect(&reloj, &QTimer::timeout, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    T* dialogo = qobject_cast<T*>(modal);
    if (!dialogo) {
      if (modal) modal->close();
      return;
    }
    visto = true;
    accion(*dialogo);
    if (dialogo->isVisible()) dialogo->reject();
  });
  reloj.start(0);
  orden();
  reloj.stop();
  return visto;
}

using prueba::Control;
using prueba::Escribe;
using prueba::Pulsa;

// The page the help window shows, "" when it is not open; the window is
// closed again, so that the next request must open it.
std::string PaginaDeAyuda() {
  std::string pagina;
  for (QWidget* ventana : QApplication::topLevelWidgets()) {
    auto* ayuda = qobject_cast<VentanaAyuda*>(ventana);
    if (!ayuda || !ayuda->isVisible()) continue;
    pagina = S(ayuda->Navegador()->source().fileName());
    ayuda->close();
  }
  return pagina;
}

// Test clicks pass through modal blocking, so what keeps the help usable over
// a dialog is checked as such: the dialog blocks only its own window
// hierarchy, and the open help window stands outside it.
bool AyudaFueraDelDialogo(const QDialog& dialogo) {
  bool fuera = dialogo.windowModality() == Qt::WindowModal;
  for (QWidget* ventana : QApplication::topLevelWidgets())
    if (auto* ayuda = qobject_cast<VentanaAyuda*>(ventana); ayuda && ayuda->isVisible())
      fuera = fuera && !ayuda->parentWidget() && !ayuda->windowHandle()->transientParent();
  return fuera;
}

class VentanaTest : public ::testing::Test {
protected:
  void SetUp() override {
    // The tests close windows; the test program must go on.
    QApplication::setQuitOnLastWindowClosed(false);
    Dialogos::Respondedor r;
    r.aviso = [this](const QString& titulo, const QString& texto) {
      avisos.push_back({S(titulo), S(texto)});
    };
    r.pregunta = [this](const QString& texto) {
      preguntas.push_back(S(texto));
      if (respuestas.empty()) {
        ADD_FAILURE() << "pregunta sin respuesta prevista: " << S(texto);
        return Respuesta::Cancelar;
      }
      const Respuesta primera = respuestas.front();
      respuestas.erase(respuestas.begin());
      return primera;
    };
    r.nombreAbrir = [this] {
      ++nombresAbrir;
      return rutaAbrir;
    };
    r.nombreGuardar = [this](const QString& propuesto) {
      propuestos.push_back(S(propuesto));
      return rutaGuardar;
    };
    Dialogos::FijaRespondedor(r);
    UltimaBusqueda() = {};
    QApplication::clipboard()->clear();
    ASSERT_TRUE(carpeta.isValid());
  }

  void TearDown() override {
    ventanas.clear();
    Dialogos::FijaRespondedor({});
  }

  // A shown window with the keyboard focus in its text area.
  frmEditor& NuevaVentana(AlmacenAjustes& almacen) {
    ventanas.push_back(std::make_unique<frmEditor>(almacen));
    frmEditor& w = *ventanas.back();
    w.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&w));
    w.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&w));
    w.Vista()->setFocus();
    return w;
  }
  frmEditor& NuevaVentana() { return NuevaVentana(almacen); }

  // Rows given in UTF-8 replace the document, as opening a file does.
  static void Carga(frmEditor& w, const std::vector<std::string>& filas) {
    w.Modelo().Carga(prueba::FilasCp1252(filas));
    w.Vista()->Actualiza();
  }

  static std::string Texto(frmEditor& w) { return w.Modelo().Doc().TextoDocumento(); }
  static std::string Seleccion(frmEditor& w) {
    return w.Modelo().Doc().HaySel() ? w.Modelo().Doc().GetTextSel() : std::string();
  }
  static QAction* Boton(frmEditor& w, const QString& clave) {
    for (QAction* a : w.BarraH()->actions())
      if (a->data().toString() == clave) return a;
    ADD_FAILURE() << "no hay botón " << S(clave);
    return nullptr;
  }
  // Clicks a toolbar button with the mouse, as a user does.
  static void PulsaBoton(frmEditor& w, const QString& clave) {
    QAction* a = Boton(w, clave);
    QWidget* boton = a ? w.BarraH()->widgetForAction(a) : nullptr;
    ASSERT_NE(boton, nullptr);
    QTest::mouseClick(boton, Qt::LeftButton);
  }
  // Cortar, Copiar and Eliminar, menu items and toolbar buttons, all enabled
  // (true) or all disabled (false); anything else is a mixture.
  static bool ComandosDeSeleccion(frmEditor& w, bool esperado) {
    bool todos = true;
    for (const char* n : {"Cortar", "Copiar", "Eliminar"}) {
      todos = todos && w.Accion(n)->isEnabled() == esperado;
      QAction* b = Boton(w, n);
      todos = todos && b && b->isEnabled() == esperado;
    }
    return todos;
  }
  static std::string Caption(frmEditor& w, const char* accion) {
    return S(w.Accion(accion)->text());
  }

  QString Ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  static QByteArray Bytes(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }
  static void EscribeArchivo(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }

  AlmacenEnMemoria almacen;
  std::vector<std::unique_ptr<frmEditor>> ventanas;
  QTemporaryDir carpeta;
  std::vector<AvisoVisto> avisos;
  std::vector<std::string> preguntas;
  std::vector<Respuesta> respuestas;
  std::vector<std::string> propuestos;
  QString rutaGuardar, rutaAbrir;
  int nombresAbrir = 0;
};

// ---------------------------------------------------------------------------
// Typing, keys and the mouse

TEST_F(VentanaTest, LoTecleadoLlegaAlDocumentoYAlPanel) {
  frmEditor& w = NuevaVentana();
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 1");
  EXPECT_FALSE(w.Modelo().Modificado());
  QTest::keyClicks(w.Vista(), "y = x^2");
  EXPECT_EQ(Texto(w), "y = x^2");
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 8");
  EXPECT_TRUE(w.Modelo().Modificado());
  QTest::keyClick(w.Vista(), Qt::Key_Return);
  // A Spanish letter typed on the keyboard arrives as one character.
  QTest::sendKeyEvent(QTest::Click, w.Vista(), Qt::Key_unknown, QStringLiteral("ñ"),
                      Qt::NoModifier);
  QTest::keyClicks(w.Vista(), "o");
  EXPECT_EQ(Texto(w), "y = x^2\r\nño");
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 2, Col: 3");
  QTest::keyClick(w.Vista(), Qt::Key_Up);
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 3");
  EXPECT_TRUE(avisos.empty());
}

TEST_F(VentanaTest, TeclasDeEdicion) {
  frmEditor& w = NuevaVentana();
  QWidget* v = w.Vista();
  QTest::keyClicks(v, "abcd");
  QTest::keyClick(v, Qt::Key_Home);
  QTest::keyClick(v, Qt::Key_Delete);
  EXPECT_EQ(Texto(w), "bcd");
  QTest::keyClick(v, Qt::Key_End);
  QTest::keyClick(v, Qt::Key_Backspace);
  EXPECT_EQ(Texto(w), "bc");
  // Insert toggles overwriting, and a second press brings insertion back.
  QTest::keyClick(v, Qt::Key_Insert);
  EXPECT_FALSE(w.Modelo().ModoInsertar());
  QTest::keyClick(v, Qt::Key_Home);
  QTest::keyClicks(v, "X");
  EXPECT_EQ(Texto(w), "Xc");
  QTest::keyClick(v, Qt::Key_Insert);
  EXPECT_TRUE(w.Modelo().ModoInsertar());
  QTest::keyClicks(v, "Y");
  EXPECT_EQ(Texto(w), "XYc");
  // Tab stays in the text area and fills with blanks to the next stop (4).
  QTest::keyClick(v, Qt::Key_Tab);
  EXPECT_EQ(Texto(w), "XY  c");
  EXPECT_TRUE(v->hasFocus());
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 5");
  // F1 opens the help.
  QTest::keyClick(v, Qt::Key_F1);
  EXPECT_EQ(PaginaDeAyuda(), "index.html");
}

TEST_F(VentanaTest, MayusculasYFlechasSeleccionanYHabilitanLosComandos) {
  frmEditor& w = NuevaVentana();
  QWidget* v = w.Vista();
  QTest::keyClicks(v, "y = x^2");
  EXPECT_TRUE(ComandosDeSeleccion(w, false));
  for (int i = 0; i < 3; ++i)
    QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Seleccion(w), "x^2");
  EXPECT_TRUE(ComandosDeSeleccion(w, true));
  QTest::keyClick(v, Qt::Key_Left); // without Shift the selection goes
  EXPECT_EQ(Seleccion(w), "");
  EXPECT_TRUE(ComandosDeSeleccion(w, false));

  w.Accion("SeleccionarTodo")->trigger();
  EXPECT_EQ(Seleccion(w), "y = x^2");
  EXPECT_TRUE(ComandosDeSeleccion(w, true));
  QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Seleccion(w), "y = x");
  PulsaBoton(w, "Eliminar");
  EXPECT_EQ(Texto(w), "^2");
  EXPECT_TRUE(ComandosDeSeleccion(w, false));
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer eliminar");
}

TEST_F(VentanaTest, ElRatonColocaSeleccionaYAbreElMenuEdicion) {
  frmEditor& w = NuevaVentana();
  Carga(w, {"y = max(x)", "z"});
  VistaEditor* v = w.Vista();
  QWidget* area = v->viewport();
  const auto punto = [&](int fila, int col) {
    const QRect r = v->RectanguloCelda(fila, col);
    return QPoint(r.left() + 1, r.center().y());
  };
  QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, punto(0, 4));
  EXPECT_EQ(w.Modelo().Doc().Cursor(), (Posicion{0, 4}));
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 5");

  // Dragging with the left button held selects.
  QTest::mousePress(area, Qt::LeftButton, Qt::NoModifier, punto(0, 4));
  QMouseEvent arrastre(QEvent::MouseMove, punto(0, 7), area->mapToGlobal(punto(0, 7)), Qt::NoButton,
                       Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(area, &arrastre);
  QTest::mouseRelease(area, Qt::LeftButton, Qt::NoModifier, punto(0, 7));
  EXPECT_EQ(Seleccion(w), "max");
  EXPECT_TRUE(ComandosDeSeleccion(w, true));

  QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, punto(1, 0));
  EXPECT_EQ(Seleccion(w), "");
  EXPECT_TRUE(ComandosDeSeleccion(w, false));
  // A double click comes as a press, a release and then the double click.
  QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, punto(0, 5));
  QTest::mouseDClick(area, Qt::LeftButton, Qt::NoModifier, punto(0, 5));
  EXPECT_EQ(Seleccion(w), "max");

  QTest::mouseClick(area, Qt::RightButton, Qt::NoModifier, punto(0, 1));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(S(menu->objectName()), "Edición");
  EXPECT_TRUE(menu->actions().contains(w.Accion("Pegar")));
  menu->close();
}

// ---------------------------------------------------------------------------
// Undo and redo

TEST_F(VentanaTest, LosTitulosDeDeshacerYRehacerSiguenAlHistorial) {
  frmEditor& w = NuevaVentana();
  QWidget* v = w.Vista();
  const auto estado = [&] {
    return Caption(w, "Deshacer") + "|" + Caption(w, "Rehacer") + "|" +
           (w.Accion("Deshacer")->isEnabled() ? "1" : "0") +
           (w.Accion("Rehacer")->isEnabled() ? "1" : "0") +
           (Boton(w, "Deshacer")->isEnabled() ? "1" : "0") +
           (Boton(w, "Rehacer")->isEnabled() ? "1" : "0");
  };
  EXPECT_EQ(estado(), "No se puede deshacer|No se puede rehacer|0000");
  QTest::keyClicks(v, "ab");
  EXPECT_EQ(estado(), "Deshacer escribir|No se puede rehacer|1010");
  QTest::keyClick(v, Qt::Key_Return);
  EXPECT_EQ(estado(), "Deshacer |No se puede rehacer|1010"); // Enter has no word
  w.Accion("Deshacer")->trigger();
  EXPECT_EQ(Texto(w), "ab");
  EXPECT_EQ(estado(), "Deshacer escribir|Rehacer |1111");
  PulsaBoton(w, "Deshacer");
  EXPECT_EQ(Texto(w), "");
  EXPECT_EQ(estado(), "No se puede deshacer|Rehacer escribir|0101");
  PulsaBoton(w, "Rehacer");
  EXPECT_EQ(Texto(w), "ab");
  EXPECT_EQ(estado(), "Deshacer escribir|Rehacer |1111");
  // The menu's shortcut reaches the command from the text area.
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Texto(w), "");
  EXPECT_EQ(estado(), "No se puede deshacer|Rehacer escribir|0101");
}

// ---------------------------------------------------------------------------
// The derivation commands

TEST_F(VentanaTest, DerivarEscribeAlFinalYSeDeshaceDeUnaVez) {
  frmEditor& w = NuevaVentana();
  QWidget* v = w.Vista();
  QTest::keyClicks(v, "y = x^2");
  // The cursor and a selection elsewhere do not matter: the outcome goes at
  // the end of the document.
  QTest::keyClick(v, Qt::Key_Home);
  QTest::keyClick(v, Qt::Key_Right, Qt::ShiftModifier);
  w.Accion("Derivar")->trigger();
  EXPECT_EQ(Texto(w), "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
  EXPECT_TRUE(avisos.empty());
  EXPECT_EQ(Seleccion(w), "");
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 3, Col: 13");
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer escribir");
  w.Deshacer();
  EXPECT_EQ(Texto(w), "y = x^2");
  // The typing before it is a record of its own.
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer escribir");
  EXPECT_EQ(Caption(w, "Rehacer"), "Rehacer escribir");
  w.Deshacer();
  EXPECT_EQ(Texto(w), "");
}

TEST_F(VentanaTest, DerivarPPEscribeLosPasosComoComentarios) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x^2*Sin(x)");
  w.Accion("DerivarPP")->trigger();
  EXPECT_TRUE(avisos.empty());
  const std::string esperado =
      EjecutaDerivar("y = x^2*Sin(x)", w.Configuracion().Config(), true).Texto();
  EXPECT_EQ(Texto(w), "y = x^2*Sin(x)" + esperado);
  // Steps, not only the result, and every written row a comment.
  EXPECT_NE(esperado, EjecutaDerivar("y = x^2*Sin(x)", w.Configuracion().Config(), false).Texto());
  const Documento& doc = w.Modelo().Doc();
  ASSERT_GT(doc.NumFilas(), 3);
  for (int f = 1; f < doc.NumFilas(); ++f)
    EXPECT_EQ(doc.GetTextFila(f).substr(0, 1), "'") << "fila " << f;
  w.Deshacer();
  EXPECT_EQ(Texto(w), "y = x^2*Sin(x)");
}

TEST_F(VentanaTest, ElBotonResolverDerivaYUnaClaveDesconocidaNoHaceNada) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x^2");
  PulsaBoton(w, "Resolver");
  EXPECT_EQ(Texto(w), "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
  w.BotonBarra("Derivar"); // not a key of the toolbar
  w.BotonBarra("");
  EXPECT_EQ(Texto(w), "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
  EXPECT_TRUE(avisos.empty());
}

// Each toolbar button is its menu command itself, so that enabling it and
// its shortcut are one; the menus show no pictures.
TEST_F(VentanaTest, LaBarraMuestraLosMismosComandosQueLosMenus) {
  frmEditor& w = NuevaVentana();
  const std::pair<const char*, const char*> botones[]{
      {"Nuevo", "Nuevo"},       {"Abrir", "Abrir"},       {"Guardar", "Guardar"},
      {"Imprimir", "Imprimir"}, {"Cortar", "Cortar"},     {"Copiar", "Copiar"},
      {"Pegar", "Pegar"},       {"Eliminar", "Eliminar"}, {"Deshacer", "Deshacer"},
      {"Rehacer", "Rehacer"},   {"Resolver", "Derivar"},  {"Ayuda", "Contenido"}};
  int vistos = 0;
  for (QAction* a : w.BarraH()->actions())
    vistos += a->isSeparator() ? 0 : 1;
  EXPECT_EQ(vistos, 12);
  for (auto [clave, accion] : botones) {
    QAction* boton = Boton(w, clave);
    EXPECT_EQ(boton, w.Accion(accion)) << clave;
    ASSERT_NE(boton, nullptr);
    EXPECT_FALSE(boton->icon().isNull()) << clave;
    EXPECT_FALSE(boton->isIconVisibleInMenu()) << clave;
  }
  EXPECT_EQ(S(Boton(w, "Resolver")->toolTip()), "Derivar");
}

TEST_F(VentanaTest, UnErrorSeleccionaSuTramoYLoDice) {
  frmEditor& w = NuevaVentana();
  const std::string programa = S(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
  ASSERT_FALSE(programa.empty());
  struct Caso {
    std::vector<std::string> filas;
    std::string seleccion;
  };
  const std::vector<Caso> casos{
      {{"y = x +"}, ""},                // the end of the line: an empty span
      {{"y = x + * 2"}, "*"},           // the offending token
      {{"y = x + _", "  2 * / x"}, "/"} // on the second row, through the continuation
  };
  for (const Caso& c : casos) {
    Carga(w, c.filas);
    const std::string texto = Texto(w);
    SintaxExp checker;
    ASSERT_FALSE(checker.SintaxEcu(texto));
    avisos.clear();
    w.Derivar();

    SCOPED_TRACE(texto);
    ASSERT_EQ(avisos.size(), 1u);
    EXPECT_EQ(avisos[0].texto, checker.ErrDesc());
    EXPECT_EQ(avisos[0].titulo, programa);
    EXPECT_EQ(Texto(w), texto); // nothing written
    EXPECT_FALSE(w.Modelo().Modificado());
    const Documento& doc = w.Modelo().Doc();
    EXPECT_EQ(doc.Cursor(), (Posicion{checker.ErrLin(), checker.ErrCol() + checker.ErrLen()}));
    EXPECT_EQ(doc.HaySel(), checker.ErrLen() > 0);
    if (doc.HaySel()) {
      EXPECT_EQ(doc.InicioSel(), (Posicion{checker.ErrLin(), checker.ErrCol()}));
    }
    EXPECT_EQ(Seleccion(w), c.seleccion);
    EXPECT_TRUE(ComandosDeSeleccion(w, !c.seleccion.empty()));
    EXPECT_EQ(S(w.PanelPosCursor()), "Lín: " + std::to_string(checker.ErrLin() + 1) + ", Col: " +
                                         std::to_string(checker.ErrCol() + checker.ErrLen() + 1));
  }
}

TEST_F(VentanaTest, LaConfiguracionAceptadaLlegaALasOrdenes) {
  frmEditor& w = NuevaVentana();
  const bool visto = ConDialogo<frmConfig>([&] { w.Accion("Configuración")->trigger(); },
                                           [](frmConfig& dlg) {
                                             Escribe(Control<QLineEdit>(dlg, "txtVD"), "u");
                                             Escribe(Control<QLineEdit>(dlg, "txtVI"), "t");
                                             Pulsa(Control<QPushButton>(dlg, "cmdAyuda"));
                                             EXPECT_TRUE(AyudaFueraDelDialogo(dlg));
                                             EXPECT_EQ(PaginaDeAyuda(), "configuracion.html");
                                             Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
                                           });
  EXPECT_TRUE(visto);
  EXPECT_TRUE(w.Configuracion().Config().Ok);
  QTest::keyClicks(w.Vista(), "u = t^3");
  w.Derivar();
  EXPECT_EQ(Texto(w), "u = t^3\r\n'Derivada hallada:\r\n'du/dt = 3*t^2");
  EXPECT_TRUE(avisos.empty());
  PulsaBoton(w, "Ayuda");
  EXPECT_EQ(PaginaDeAyuda(), "index.html");
}

// ---------------------------------------------------------------------------
// Find and replace

TEST_F(VentanaTest, BuscarYBuscarSiguienteConPalabraCompleta) {
  frmEditor& w = NuevaVentana();
  Carga(w, {"y = max(x) + X", "2·x + 1"});
  const bool visto =
      ConDialogo<frmBuscar>([&] { w.Accion("Buscar")->trigger(); },
                            [&](frmBuscar& dlg) {
                              QTest::keyClicks(Control<QLineEdit>(dlg, "txtBuscar"), "x");
                              Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
                              Pulsa(Control<QPushButton>(dlg, "cmdBuscar"));
                              // The window shows the match while the dialog is open.
                              EXPECT_EQ(Seleccion(w), "x");
                              EXPECT_TRUE(ComandosDeSeleccion(w, true));
                            });
  EXPECT_TRUE(visto);
  EXPECT_EQ(w.Modelo().Doc().InicioSel(), (Posicion{0, 8})); // not the x of max
  // Case ignored: X is found; "·" is no word character.
  w.Accion("BuscarSiguiente")->trigger();
  EXPECT_EQ(w.Modelo().Doc().InicioSel(), (Posicion{0, 13}));
  EXPECT_EQ(Seleccion(w), "X");
  w.BuscarSiguiente();
  EXPECT_EQ(w.Modelo().Doc().InicioSel(), (Posicion{1, 2}));
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 2, Col: 4");
  EXPECT_TRUE(avisos.empty());
  w.BuscarSiguiente();
  ASSERT_EQ(avisos.size(), 1u);
  EXPECT_EQ(avisos[0].texto, "No se encontró el texto de búsqueda");
}

TEST_F(VentanaTest, ReemplazarTodoConMayusculasSeDeshaceDeUnaVez) {
  frmEditor& w = NuevaVentana();
  Carga(w, {"y = max(x) + X", "2·x + 1"});
  const bool visto =
      ConDialogo<frmReemp>([&] { w.Accion("Reemplazar")->trigger(); },
                           [](frmReemp& dlg) {
                             QTest::keyClicks(Control<QLineEdit>(dlg, "txtBuscar"), "x");
                             QTest::keyClicks(Control<QLineEdit>(dlg, "txtReemp"), "t");
                             Pulsa(Control<QCheckBox>(dlg, "chkPalCmp"));
                             Pulsa(Control<QCheckBox>(dlg, "chkMayusMinus"));
                             Pulsa(Control<QPushButton>(dlg, "cmdReplaceAll"));
                           });
  EXPECT_TRUE(visto);
  EXPECT_EQ(Texto(w), "y = max(t) + X\r\n2·t + 1");
  EXPECT_TRUE(preguntas.empty());
  EXPECT_TRUE(w.Modelo().Modificado());
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer reemplazar");
  w.Accion("Deshacer")->trigger();
  EXPECT_EQ(Texto(w), "y = max(x) + X\r\n2·x + 1");
  EXPECT_EQ(Caption(w, "Rehacer"), "Rehacer reemplazar");
}

// ---------------------------------------------------------------------------
// The save question and files

TEST_F(VentanaTest, SinCambiosSeCierraSinPreguntar) {
  frmEditor& w = NuevaVentana();
  EXPECT_TRUE(w.close());
  EXPECT_FALSE(w.isVisible());
  EXPECT_TRUE(preguntas.empty());
}

TEST_F(VentanaTest, SiYUnNombreCanceladoDejanLaVentanaAbiertaYModificada) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x");
  respuestas = {Respuesta::Si};
  rutaGuardar.clear(); // the name dialog is cancelled
  EXPECT_FALSE(w.close());
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(preguntas, std::vector<std::string>{kPreguntaGuardar});
  EXPECT_EQ(propuestos, std::vector<std::string>{"SinNombre.txt"});
  EXPECT_TRUE(w.Modelo().Modificado());
  EXPECT_EQ(Texto(w), "y = x");
  EXPECT_FALSE(w.Archivo().TieneArchivo());
  EXPECT_TRUE(avisos.empty());
}

TEST_F(VentanaTest, SiConNombreGuardaYCierra) {
  frmEditor& w = NuevaVentana();
  // Even a document with a file is saved through the name dialog.
  const QString ruta = Ruta("doc.txt");
  EscribeArchivo(ruta, "y = x");
  ASSERT_TRUE(w.AbreArchivo(ruta));
  QTest::keyClick(w.Vista(), Qt::Key_End);
  QTest::keyClick(w.Vista(), Qt::Key_Return);
  QTest::keyClicks(w.Vista(), "'nota");
  respuestas = {Respuesta::Si};
  rutaGuardar = Ruta("otro.txt");
  EXPECT_TRUE(w.close());
  EXPECT_FALSE(w.isVisible());
  EXPECT_EQ(propuestos, std::vector<std::string>{S(ruta)});
  EXPECT_EQ(Bytes(rutaGuardar), QByteArray("y = x\r\n'nota"));
  EXPECT_EQ(Bytes(ruta), QByteArray("y = x"));
  EXPECT_FALSE(w.Modelo().Modificado());
}

TEST_F(VentanaTest, NoCierraSinGuardar) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x");
  respuestas = {Respuesta::No};
  EXPECT_TRUE(w.close());
  EXPECT_FALSE(w.isVisible());
  EXPECT_EQ(preguntas, std::vector<std::string>{kPreguntaGuardar});
  EXPECT_TRUE(propuestos.empty());
  EXPECT_TRUE(QDir(carpeta.path()).isEmpty());
}

TEST_F(VentanaTest, CancelarDejaLaVentanaAbierta) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x");
  respuestas = {Respuesta::Cancelar};
  w.Accion("Salir")->trigger();
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(preguntas, std::vector<std::string>{kPreguntaGuardar});
  EXPECT_TRUE(propuestos.empty());
  EXPECT_TRUE(w.Modelo().Modificado());
  // Nuevo asks the same question, and Cancel keeps the document.
  respuestas = {Respuesta::Cancelar};
  PulsaBoton(w, "Nuevo");
  EXPECT_EQ(preguntas.size(), 2u);
  EXPECT_EQ(Texto(w), "y = x");
  respuestas = {Respuesta::No};
  w.Nuevo();
  EXPECT_EQ(Texto(w), "");
  EXPECT_FALSE(w.Modelo().Modificado());
  EXPECT_EQ(Caption(w, "Deshacer"), "No se puede deshacer");
}

TEST_F(VentanaTest, UnGuardadoFallidoDicePorQueYConservaElDocumento) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "y = x");
  // A "folder" that is a file: writing fails there whatever the user's rights.
  EscribeArchivo(Ruta("no-es-carpeta"), "");
  rutaGuardar = Ruta("no-es-carpeta/doc.txt");
  respuestas = {Respuesta::Si};
  EXPECT_FALSE(w.close());
  EXPECT_TRUE(w.isVisible());
  ASSERT_EQ(avisos.size(), 1u);
  EXPECT_EQ(avisos[0].texto, "No se pudo guardar «doc.txt»: carpeta inexistente.");
  EXPECT_TRUE(w.Modelo().Modificado());
  EXPECT_FALSE(w.Archivo().TieneArchivo());
  EXPECT_EQ(Texto(w), "y = x");
  EXPECT_TRUE(w.windowTitle().startsWith("SinNombre.txt"));
  // Guardar of a document without a file asks for a name too, and fails alike.
  EXPECT_FALSE(w.Guardar());
  EXPECT_EQ(avisos.size(), 2u);
  EXPECT_TRUE(w.Modelo().Modificado());
}

// Another program rewrote the open file: Guardar asks before replacing it,
// Cancel leaves the other program's bytes and the document as they are, and
// Yes writes the document over them.
TEST_F(VentanaTest, GuardarPreguntaSiOtroProgramaCambioElArchivo) {
  frmEditor& w = NuevaVentana();
  const QString ruta = Ruta("compartido.txt");
  EscribeArchivo(ruta, "y = x");
  ASSERT_TRUE(w.AbreArchivo(ruta));
  QTest::keyClicks(w.Vista(), "1");
  EscribeArchivo(ruta, "y = otra cosa, escrita por otro programa");
  respuestas = {Respuesta::Cancelar};
  EXPECT_FALSE(w.Guardar());
  ASSERT_EQ(preguntas.size(), 1u);
  EXPECT_NE(preguntas[0].find("ha cambiado en el disco"), std::string::npos);
  EXPECT_EQ(Bytes(ruta), QByteArray("y = otra cosa, escrita por otro programa"));
  EXPECT_TRUE(w.Modelo().Modificado());
  w.RevisaDisco(); // the user has been told already
  EXPECT_EQ(preguntas.size(), 1u);
  respuestas = {Respuesta::Si};
  EXPECT_TRUE(w.Guardar());
  EXPECT_EQ(Bytes(ruta), QByteArray("1y = x"));
  EXPECT_FALSE(w.Modelo().Modificado());
  // Once saved, the file on disk is the document's own again: no question.
  QTest::keyClicks(w.Vista(), "2");
  EXPECT_TRUE(w.Guardar());
  EXPECT_EQ(preguntas.size(), 2u);
}

// A full disk: the message says so, and neither the document nor the file on
// disk loses anything.
TEST_F(VentanaTest, UnDiscoLlenoNoCuestaNiElDocumentoNiElArchivo) {
  prueba::DiscoLleno disco;
  const std::string motivo = disco.Monta(S(carpeta.path()));
  if (!motivo.empty()) GTEST_SKIP() << "sin disco lleno de prueba: " << motivo;
  frmEditor& w = NuevaVentana();
  const QString ruta = QString::fromStdString(disco.Carpeta() + "/doc.txt");
  EscribeArchivo(ruta, "y = x");
  ASSERT_TRUE(w.AbreArchivo(ruta));
  ASSERT_TRUE(disco.Llena());
  QTest::keyClicks(w.Vista(), "1"); // even one byte needs a block the disk has not
  EXPECT_FALSE(w.Guardar());
  ASSERT_EQ(avisos.size(), 1u);
  EXPECT_EQ(avisos[0].texto, "No se pudo guardar «doc.txt»: disco lleno.");
  EXPECT_EQ(Texto(w), "1y = x");
  EXPECT_TRUE(w.Modelo().Modificado());
  EXPECT_TRUE(w.windowTitle().contains('*'));
  EXPECT_EQ(Bytes(ruta), QByteArray("y = x"));
  EXPECT_EQ(QDir(QString::fromStdString(disco.Carpeta())).entryList(QDir::Files),
            QStringList({"doc.txt", "relleno"}));
}

// Coming back to the window after another program rewrote the open file, the
// user is asked once whether to read it again; a deleted file is told once,
// and the document stays as it is until the user says otherwise.
TEST_F(VentanaTest, UnArchivoCambiadoOBorradoFueraSeAvisaUnaVez) {
  frmEditor& w = NuevaVentana();
  const QString ruta = Ruta("compartido.txt");
  EscribeArchivo(ruta, "y = x");
  ASSERT_TRUE(w.AbreArchivo(ruta));
  w.RevisaDisco();
  EXPECT_TRUE(preguntas.empty());

  QTest::keyClicks(w.Vista(), "1");
  EscribeArchivo(ruta, "y = x^2");
  respuestas = {Respuesta::No};
  w.RevisaDisco();
  ASSERT_EQ(preguntas.size(), 1u);
  EXPECT_EQ(preguntas[0], "El archivo «compartido.txt» ha cambiado en el disco. ¿Volver a "
                          "cargarlo? Se perderán los cambios que no se han guardado.");
  EXPECT_EQ(Texto(w), "1y = x");
  EXPECT_TRUE(w.Modelo().Modificado());
  w.RevisaDisco(); // the same change is not asked about again
  EXPECT_EQ(preguntas.size(), 1u);

  EscribeArchivo(ruta, "y = x^3");
  respuestas = {Respuesta::Si};
  w.RevisaDisco();
  EXPECT_EQ(preguntas.size(), 2u);
  EXPECT_EQ(Texto(w), "y = x^3");
  EXPECT_FALSE(w.Modelo().Modificado());
  EXPECT_FALSE(w.windowTitle().contains('*'));

  QTest::keyClicks(w.Vista(), "2");
  ASSERT_TRUE(QFile::remove(ruta));
  w.RevisaDisco();
  w.RevisaDisco();
  ASSERT_EQ(avisos.size(), 1u);
  EXPECT_EQ(avisos[0].texto, "El archivo «compartido.txt» ya no está en el disco. El documento "
                             "sigue abierto; Guardar lo volverá a escribir.");
  EXPECT_EQ(Texto(w), "2y = x^3");
  EXPECT_TRUE(w.Modelo().Modificado());
  // Guardar still asks, since the file is not what the document last saw.
  respuestas = {Respuesta::Si};
  EXPECT_TRUE(w.Guardar());
  EXPECT_EQ(preguntas.size(), 3u);
  EXPECT_EQ(Bytes(ruta), QByteArray("2y = x^3"));
}

TEST_F(VentanaTest, AbrirCargaElArchivoYPoneElCursorAlPrincipio) {
  frmEditor& w = NuevaVentana();
  QTest::keyClicks(w.Vista(), "ab");
  QTest::keyClick(w.Vista(), Qt::Key_Return);
  QTest::keyClicks(w.Vista(), "c");
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 2, Col: 2");
  const QString ruta = Ruta("ejemplo.txt");
  EscribeArchivo(ruta, "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
  rutaAbrir = ruta;
  respuestas = {Respuesta::No};
  PulsaBoton(w, "Abrir");
  EXPECT_EQ(preguntas, std::vector<std::string>{kPreguntaGuardar});
  EXPECT_EQ(nombresAbrir, 1);
  EXPECT_EQ(Texto(w), "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
  EXPECT_EQ(S(w.PanelPosCursor()), "Lín: 1, Col: 1");
  EXPECT_FALSE(w.Modelo().Modificado());
  EXPECT_EQ(w.Archivo().nombre, "ejemplo.txt");
  EXPECT_TRUE(w.windowTitle().startsWith("ejemplo.txt"));
  EXPECT_EQ(Caption(w, "Deshacer"), "No se puede deshacer");
  EXPECT_EQ(w.Vista()->verticalScrollBar()->maximum(), 2);

  // Guardar goes to the file's own path, without a name dialog.
  QTest::keyClick(w.Vista(), Qt::Key_Delete);
  EXPECT_TRUE(w.Modelo().Modificado());
  EXPECT_TRUE(w.windowTitle().contains('*')); // the title shows the unsaved change
  w.Accion("Guardar")->trigger();
  EXPECT_TRUE(propuestos.empty());
  EXPECT_FALSE(w.Modelo().Modificado());
  EXPECT_FALSE(w.windowTitle().contains('*'));
  EXPECT_EQ(Bytes(ruta), QByteArray(" = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x"));

  // A file that cannot be read leaves the document as it was.
  EXPECT_FALSE(w.AbreArchivo(Ruta("no-existe.txt")));
  ASSERT_EQ(avisos.size(), 1u);
  EXPECT_EQ(avisos[0].texto, "No se pudo abrir «no-existe.txt»: archivo inexistente.");
  EXPECT_EQ(w.Archivo().nombre, "ejemplo.txt");
  EXPECT_EQ(Texto(w), " = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x");
}

// ---------------------------------------------------------------------------
// Printing

int PaginasPdf(const QByteArray& pdf) {
  return static_cast<int>(
      QString::fromLatin1(pdf).count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b"))));
}

TEST_F(VentanaTest, ImprimeAUnPdfConSaltosDePagina) {
  frmEditor& w = NuevaVentana();
  const auto imprime = [&](const QString& nombre) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(Ruta(nombre));
    w.ImprimeEn(impresora);
    return Bytes(Ruta(nombre));
  };
  Carga(w, {"y = x^2"});
  const QByteArray una = imprime("una.pdf");
  EXPECT_TRUE(una.startsWith("%PDF"));
  EXPECT_EQ(PaginasPdf(una), 1);

  std::vector<std::string> filas;
  for (int i = 0; i < 300; ++i)
    filas.push_back("'fila " + std::to_string(i));
  Carga(w, filas);
  const QByteArray varias = imprime("varias.pdf");
  EXPECT_TRUE(varias.startsWith("%PDF"));
  EXPECT_GE(PaginasPdf(varias), 3); // 300 rows do not fit on two pages
  EXPECT_TRUE(avisos.empty());
}

// ---------------------------------------------------------------------------
// The clipboard

TEST_F(VentanaTest, CopiarCortarYPegarPorElPortapapeles) {
  frmEditor& w = NuevaVentana();
  QClipboard* portapapeles = QApplication::clipboard();
  QWidget* v = w.Vista();
  QTest::keyClicks(v, "y = x^2");
  // The general timer's poll finds the empty clipboard.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !w.Accion("Pegar")->isEnabled(); }, 3000));
  EXPECT_FALSE(Boton(w, "Pegar")->isEnabled());

  QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  w.Accion("Copiar")->trigger();
  EXPECT_EQ(S(portapapeles->text()), "^2");
  EXPECT_TRUE(w.Accion("Pegar")->isEnabled()); // copying updates at once
  EXPECT_TRUE(Boton(w, "Pegar")->isEnabled());
  EXPECT_EQ(Texto(w), "y = x^2");

  QTest::keyClick(v, Qt::Key_Home);
  w.Pegar();
  EXPECT_EQ(Texto(w), "^2y = x^2");
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer pegar");

  QTest::keyClick(v, Qt::Key_End);
  QTest::keyClick(v, Qt::Key_Left, Qt::ShiftModifier);
  PulsaBoton(w, "Cortar");
  EXPECT_EQ(Texto(w), "^2y = x^");
  EXPECT_EQ(S(portapapeles->text()), "2");
  EXPECT_EQ(Caption(w, "Deshacer"), "Deshacer cortar");
  EXPECT_TRUE(ComandosDeSeleccion(w, false));

  // Text put on the clipboard by another program is seen at the next poll.
  portapapeles->clear();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !w.Accion("Pegar")->isEnabled(); }, 3000));
  portapapeles->setText(QStringLiteral("z"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return w.Accion("Pegar")->isEnabled(); }, 3000));
  EXPECT_TRUE(Boton(w, "Pegar")->isEnabled());
  PulsaBoton(w, "Pegar");
  EXPECT_EQ(Texto(w), "^2y = x^z");
}

// ---------------------------------------------------------------------------
// Presentation settings

QRgb FondoDelArea(frmEditor& w) {
  QWidget* area = w.Vista()->viewport();
  const QImage imagen = area->grab().toImage();
  return imagen.pixelColor(imagen.width() - 2, imagen.height() - 2).rgb();
}

TEST_F(VentanaTest, ElDialogoDePresentacionAplicaYGuardaLosAjustes) {
  frmEditor& w = NuevaVentana();
  Carga(w, {"y = Sin(x) 'nota"});
  EXPECT_EQ(almacen.Lee("Editor", "Tab", ""), "4"); // the first start writes the defaults
  EXPECT_EQ(almacen.Lee("Editor", "ScrollBars", ""), "-1");
  EXPECT_TRUE(w.Vista()->verticalScrollBar()->isVisible());
  const int altoFila =
      w.Vista()->RectanguloCelda(1, 0).top() - w.Vista()->RectanguloCelda(0, 0).top();

  const bool visto =
      ConDialogo<frmPresentar>([&] { w.Accion("Editor")->trigger(); },
                               [](frmPresentar& dlg) {
                                 Control<QComboBox>(dlg, "cmbTamFuente")->setCurrentText("18");
                                 Control<QComboBox>(dlg, "cmbPrimerPlano")->setCurrentText("Rojo");
                                 Control<QComboBox>(dlg, "cmbFondoEditor")->setCurrentText("Gris");
                                 Pulsa(Control<QCheckBox>(dlg, "chkScrollBar"));
                                 Escribe(Control<QLineEdit>(dlg, "txtTab"), "8");
                                 Pulsa(Control<QPushButton>(dlg, "cmdAceptar"));
                               });
  EXPECT_TRUE(visto);
  EXPECT_TRUE(avisos.empty());
  // The text area shows them at once (what is stored under which key is the
  // dialog's and the settings' own tests).
  VistaEditor* v = w.Vista();
  EXPECT_GT(v->RectanguloCelda(1, 0).top() - v->RectanguloCelda(0, 0).top(), altoFila);
  EXPECT_FALSE(v->verticalScrollBar()->isVisible());
  EXPECT_FALSE(v->horizontalScrollBar()->isVisible());
  EXPECT_EQ(FondoDelArea(w), ColorPaleta(8) | 0xFF000000u);
  EXPECT_EQ(w.Modelo().Doc().Fila(0)[0] >> 8, 4); // plain text takes the new colour
  QTest::keyClick(v, Qt::Key_Home);
  QTest::keyClick(v, Qt::Key_Tab);
  EXPECT_EQ(Texto(w), "        y = Sin(x) 'nota");

  // A new window reads the store back, with the keys it reads: the tab width
  // and the text colour come back as stored under "EspTab" and "ColorLetra".
  frmEditor& otra = NuevaVentana();
  EXPECT_EQ(otra.Ajustes().GetTamFuente(), 18.0f);
  EXPECT_EQ(otra.Ajustes().GetColorFondoEditor(), 8);
  EXPECT_FALSE(otra.Ajustes().GetScrollBars());
  EXPECT_EQ(otra.Ajustes().GetEspTab(), 4);
  EXPECT_EQ(otra.Ajustes().GetColorLetra(), 0);
  EXPECT_FALSE(otra.Vista()->verticalScrollBar()->isVisible());
  EXPECT_EQ(FondoDelArea(otra), ColorPaleta(8) | 0xFF000000u);
  QTest::keyClick(otra.Vista(), Qt::Key_Tab);
  EXPECT_EQ(Texto(otra), "    ");
}

TEST_F(VentanaTest, UnAjusteFueraDeRangoSeAvisaYNoSeGuarda) {
  frmEditor& w = NuevaVentana();
  const auto antes = almacen.Valores();
  EXPECT_FALSE(w.Ajustes().SetEspTab(33));
  EXPECT_FALSE(w.Ajustes().SetTamFuente(18.5f));
  ASSERT_EQ(avisos.size(), 2u);
  EXPECT_EQ(avisos[0].texto, "Los espacios de tabulación deben estar comprendidos entre 1 y 32");
  EXPECT_EQ(avisos[0].titulo, S(Dialogos::Titulo()));
  EXPECT_EQ(avisos[1].texto, "El tamaño de fuente debe estar comprendido entre 6 y 18");
  EXPECT_EQ(almacen.Valores(), antes);
  EXPECT_EQ(w.Ajustes().GetEspTab(), 4);
}

// The program's own store: QSettings in a temporary folder.
class AjustesQtTest : public VentanaTest {
protected:
  void SetUp() override {
    VentanaTest::SetUp();
    ASSERT_TRUE(configuracion.isValid());
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, configuracion.path());
  }
  void TearDown() override {
    VentanaTest::TearDown();
    QStandardPaths::setTestModeEnabled(false);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
  }
  QString Archivo() const { return configuracion.filePath("Mirkal/Mirkal.ini"); }
  QString Lee(const QString& clave) const {
    return QSettings(Archivo(), QSettings::IniFormat).value("Editor/" + clave).toString();
  }
  QTemporaryDir configuracion;
};

TEST_F(AjustesQtTest, LosAjustesSobrevivenAUnReinicio) {
  {
    AlmacenAjustesQt store;
    frmEditor& w = NuevaVentana(store);
    EXPECT_TRUE(w.Ajustes().SetTamFuente(14));
    EXPECT_TRUE(w.Ajustes().SetColorLetra(4));
    EXPECT_TRUE(w.Ajustes().SetEspTab(8));
    EXPECT_TRUE(w.Ajustes().SetColorComment(5));
    EXPECT_TRUE(w.Ajustes().SetScrollBars(false));
    ventanas.clear();
  }
  ASSERT_TRUE(QFileInfo::exists(Archivo()));
  EXPECT_EQ(S(Lee("TamFuente")), "14");
  EXPECT_EQ(S(Lee("Tab")), "8");
  EXPECT_EQ(S(Lee("EspTab")), "");
  EXPECT_EQ(S(Lee("m_ColorLetra")), "4");
  EXPECT_EQ(S(Lee("ColorLetra")), "0");
  EXPECT_EQ(S(Lee("ColorComment")), "5");
  EXPECT_EQ(S(Lee("ScrollBars")), "0");

  AlmacenAjustesQt store;
  frmEditor& w = NuevaVentana(store);
  EXPECT_EQ(w.Ajustes().GetTamFuente(), 14.0f);
  EXPECT_EQ(w.Ajustes().GetColorComment(), 5);
  EXPECT_FALSE(w.Ajustes().GetScrollBars());
  EXPECT_EQ(w.Ajustes().GetEspTab(), 4);     // read from "EspTab"
  EXPECT_EQ(w.Ajustes().GetColorLetra(), 0); // read from "ColorLetra"
  EXPECT_FALSE(w.Vista()->verticalScrollBar()->isVisible());
  QTest::keyClicks(w.Vista(), "'c");
  EXPECT_EQ(w.Modelo().Doc().Fila(0)[0] >> 8, 5); // comments in the stored colour
}

// A settings file that cannot be read (here a folder in its place) or that
// holds nonsense: the window starts with the defaults in force and tells why
// once; values out of range are drawn with their defaults.
TEST_F(AjustesQtTest, UnArchivoDeAjustesIlegibleOAbsurdoNoImpideArrancar) {
  ASSERT_TRUE(QDir().mkpath(Archivo()));
  {
    AlmacenAjustesQt store;
    frmEditor& w = NuevaVentana(store);
    ASSERT_EQ(avisos.size(), 1u);
    EXPECT_EQ(avisos[0].texto, "No se pudieron leer los ajustes de presentación en «" +
                                   S(Archivo()) +
                                   "»: acceso denegado. Se usan los valores por defecto.");
    EXPECT_EQ(w.Ajustes().GetTamFuente(), 10.0f);
    EXPECT_TRUE(w.Ajustes().SetTamFuente(12)); // in force until the program ends
    EXPECT_EQ(avisos.size(), 1u);
    QTest::keyClicks(w.Vista(), "y = x");
    EXPECT_EQ(Texto(w), "y = x");
    ventanas.clear();
  }
  ASSERT_TRUE(QDir(Archivo()).removeRecursively());
  EscribeArchivo(Archivo(), "[Editor]\nTamFuente=99\nEspTab=-3\nColorLetra=abc\n"
                            "ColorFondoEditor=1e99\nScrollBars=quizá\n");
  avisos.clear();
  AlmacenAjustesQt store;
  frmEditor& w = NuevaVentana(store);
  EXPECT_TRUE(avisos.empty());
  EXPECT_EQ(w.Ajustes().GetTamFuente(), 99.0f); // kept as stored, drawn with the default
  frmEditor& normal = NuevaVentana();
  EXPECT_EQ(w.Vista()->RectanguloCelda(1, 1), normal.Vista()->RectanguloCelda(1, 1));
  EXPECT_EQ(w.Ajustes().GetColorFondoEditor(), std::numeric_limits<int>::max());
  EXPECT_EQ(FondoDelArea(w), ColorPaleta(kDefColorFondoEditor) | 0xFF000000u);
  EXPECT_FALSE(w.Ajustes().GetScrollBars());
  QTest::keyClick(w.Vista(), Qt::Key_Tab);
  EXPECT_EQ(Texto(w), "    ");
}

} // namespace
