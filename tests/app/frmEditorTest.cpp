// The main window's wiring: each command, key and mouse action reaches its
// operation of the window-free models, which test what it computes; and what
// only the window does.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

#include <memory>
#include <set>

#include "ControlesPrueba.h"
#include "app/AlmacenAjustesQt.h"
#include "app/VentanaAyuda.h"
#include "app/VistaEditor.h"
#include "app/frmBuscar.h"
#include "app/frmConfig.h"
#include "app/frmEditor.h"
#include "app/frmReemp.h"
#include "commands/OrdenDerivar.h"
#include "editor/Paleta.h"
#include "lang/SintaxExp.h"

namespace {

using namespace prueba;

const char* const kPreguntaGuardar = "Archivo cargado no fue guardado. ¿Guardar ahora?";

std::string Unidos(const std::vector<std::string>& textos) {
  std::string unidos;
  for (const auto& t : textos)
    unidos += (unidos.empty() ? "" : " / ") + t;
  return unidos;
}

// Runs a command that opens modal dialogs with exec(): `accion` acts on each
// once it is open, and it is then closed if still open, so that the command
// returns and no test waits on a box. The classes of the dialogs seen are the
// result.
std::string ConDialogo(const std::function<void()>& orden,
                       const std::function<void(QDialog&)>& accion = {}) {
  std::string visto;
  QTimer reloj;
  QObject::connect(&reloj, &QTimer::timeout, [&] {
    auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialogo) return;
    visto += (visto.empty() ? "" : " ") + std::string(dialogo->metaObject()->className());
    if (accion) accion(*dialogo);
    if (dialogo->isVisible()) dialogo->reject();
  });
  reloj.start(10);
  orden();
  return visto;
}

// The page the help window shows, "" when it is not open; the window is
// closed again, so that the next request must open it.
std::string PaginaDeAyuda() {
  std::string pagina;
  for (QWidget* ventana : QApplication::topLevelWidgets())
    if (auto* ayuda = qobject_cast<VentanaAyuda*>(ventana); ayuda && ayuda->isVisible()) {
      pagina = S(ayuda->Navegador()->source().fileName());
      ayuda->close();
    }
  return pagina;
}

QRgb FondoDelArea(frmEditor& w) {
  const QImage imagen = w.Vista()->viewport()->grab().toImage();
  return imagen.pixelColor(imagen.width() - 2, imagen.height() - 2).rgb();
}

class VentanaTest : public ConDialogos {
protected:
  void SetUp() override {
    ConDialogos::SetUp();
    QApplication::setQuitOnLastWindowClosed(false); // the tests close windows
    QApplication::clipboard()->clear();
    ASSERT_TRUE(carpeta.isValid());
  }
  void TearDown() override {
    ventanas.clear();
    ConDialogos::TearDown();
  }

  // A shown window with the keyboard focus in its text area.
  frmEditor& NuevaVentana(AlmacenAjustes& almacenUsado) {
    ventanas.push_back(std::make_unique<frmEditor>(almacenUsado));
    frmEditor& w = *ventanas.back();
    w.show();
    w.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&w));
    w.Vista()->setFocus();
    return w;
  }
  frmEditor& NuevaVentana() { return NuevaVentana(almacen); }

  static std::string Texto(frmEditor& w) { return w.Modelo().Doc().TextoDocumento(); }
  static std::string Seleccion(frmEditor& w) {
    return w.Modelo().Doc().HaySel() ? w.Modelo().Doc().GetTextSel() : std::string();
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
};

// What the user does in each dialog the commands open.
void Responde(QDialog& d) {
  if (qobject_cast<frmBuscar*>(&d) || qobject_cast<frmReemp*>(&d)) {
    Escribe(Control<QLineEdit>(d, "txtBuscar"), "x");
    if (auto* txtReemp = d.findChild<QLineEdit*>("txtReemp")) Escribe(txtReemp, "t");
    Pulsa(d.findChild<QPushButton*>(qobject_cast<frmReemp*>(&d) ? "cmdReplaceAll" : "cmdBuscar"));
  } else if (qobject_cast<frmConfig*>(&d)) {
    Escribe(Control<QLineEdit>(d, "txtVD"), "u");
    Escribe(Control<QLineEdit>(d, "txtVI"), "t");
    Pulsa(Control<QPushButton>(d, "cmdAceptar"));
  }
}

// Each row: a new window, `antes` typed into it, the last `marcadas`
// characters selected (-1: the cursor taken to the start instead), the menu
// commands run, the dialogs they open answered by Responde and the save
// question by No; then what the user sees: the text, and whatever else there
// is, the title only when it is not "SinNombre.txt* - Mirkal".
TEST_F(VentanaTest, CadaComandoLlegaASuOperacion) {
  EscribeArchivo(Ruta("abierto.txt"), "z = t");
  rutaAbrir = Ruta("abierto.txt");
  rutaGuardar = Ruta("guardado.txt");
  sinPrevista = Respuesta::No;
  const std::string derivada = "y = x^2\r\n'Derivada hallada:\r\n'dy/dx = 2*x";
  SintaxExp sintaxis;
  EXPECT_FALSE(sintaxis.SintaxEcu("y = x + * 2"));
  const struct {
    const char* acciones;
    std::string antes;
    int marcadas;
    std::string efecto;
  } casos[] = {
      // clang-format off
      {"Deshacer", "y = x^2", 0, ""},
      {"Deshacer Rehacer", "y = x^2", 0, "y = x^2"},
      {"Cortar", "y = x^2", 2, "y = x | clip:^2"},
      {"Copiar", "y = x^2", 2, "y = x^2 | sel:^2@5 | clip:^2"},
      {"Cortar Pegar Pegar", "y = x^2", 2, "y = x^2^2 | clip:^2"},
      {"Eliminar", "y = x^2", 2, "y = x"},
      {"SeleccionarTodo", "y = x^2", 0, "y = x^2 | sel:y = x^2@0"},
      {"Derivar", "y = x^2", 1, derivada}, // a selection elsewhere does not matter
      {"DerivarPP", "y = x^2", 0, "y = x^2" + EjecutaDerivar("y = x^2", {}, true).Texto()},
      {"Derivar", "y = x + * 2", 0, "y = x + * 2 | sel:*@8 | aviso:" + sintaxis.ErrDesc()},
      {"Configuración Derivar", "u = t^2", 0, "u = t^2\r\n'Derivada hallada:\r\n'du/dt = 2*t | frmConfig"},
      {"Buscar", "x + x", -1, "x + x | sel:x@0 | frmBuscar"},
      {"Buscar BuscarSiguiente", "x + x", -1, "x + x | sel:x@4 | frmBuscar"},
      {"Buscar BuscarSiguiente BuscarSiguiente", "x + x", -1, "x + x | sel:x@4 | frmBuscar | aviso:No se encontró el texto de búsqueda"},
      {"BuscarSiguiente", "x + x", -1, "x + x | sel:x@0 | frmBuscar"}, // no search yet
      {"Reemplazar", "x + x", 0, "t + t | frmReemp"},
      {"Nuevo", "y = x^2", 0, " | pregunta | SinNombre.txt - Mirkal"},
      {"Abrir", "y = x^2", 0, "z = t | pregunta | abierto.txt - Mirkal"},
      {"Guardar", "y = x^2", 0, "y = x^2 | guardado.txt - Mirkal | disco:y = x^2"},
      {"GuardarComo", "y = x^2", 0, "y = x^2 | guardado.txt - Mirkal | disco:y = x^2"},
      {"Salir", "y = x^2", 0, "y = x^2 | pregunta | cerrada"},
      {"Imprimir", "y = x^2", 0, "y = x^2 | QPrintDialog"},
      {"Editor", "y = x^2", 0, "y = x^2 | frmPresentar"},
      {"AcercaDe", "y = x^2", 0, "y = x^2 | frmAcercaDe"},
      {"Contenido", "y = x^2", 0, "y = x^2 | ayuda:index.html"},
      // clang-format on
  };
  std::set<std::string> botones;
  for (const auto& c : casos) {
    SCOPED_TRACE(c.acciones);
    avisos.clear();
    preguntas.clear();
    UltimaBusqueda() = {};
    QApplication::clipboard()->clear();
    QFile::remove(rutaGuardar);
    frmEditor& w = NuevaVentana();
    QTest::keyClicks(w.Vista(), c.antes.c_str());
    for (int i = 0; i < c.marcadas; ++i)
      QTest::keyClick(w.Vista(), Qt::Key_Left, Qt::ShiftModifier);
    if (c.marcadas < 0) QTest::keyClick(w.Vista(), Qt::Key_Home);
    std::string dialogos;
    for (const QString& nombre : QString(c.acciones).split(' ')) {
      QAction* accion = w.Accion(nombre);
      ASSERT_NE(accion, nullptr) << S(nombre);
      // A command with a toolbar button is run by clicking the button.
      QWidget* boton = w.BarraH()->widgetForAction(accion);
      if (boton) botones.insert(S(nombre));
      dialogos += ConDialogo(
          [&] { boton ? QTest::mouseClick(boton, Qt::LeftButton) : accion->trigger(); }, Responde);
    }
    const Documento& d = w.Modelo().Doc();
    std::string efecto = d.TextoDocumento();
    const auto añade = [&](bool si, const std::string& parte) {
      if (si) efecto += " | " + parte;
    };
    añade(d.HaySel(), "sel:" + Seleccion(w) + "@" + std::to_string(d.InicioSel().col));
    añade(QApplication::clipboard()->text() != "", "clip:" + S(QApplication::clipboard()->text()));
    añade(!dialogos.empty(), dialogos);
    añade(!avisos.empty(), "aviso:" + Unidos(avisos));
    añade(!preguntas.empty(),
          Unidos(preguntas) == kPreguntaGuardar ? "pregunta" : Unidos(preguntas));
    añade(w.windowTitle() != "SinNombre.txt* - Mirkal", S(w.windowTitle()));
    añade(!w.isVisible(), "cerrada");
    añade(QFile::exists(rutaGuardar), "disco:" + Bytes(rutaGuardar).toStdString());
    const std::string ayuda = PaginaDeAyuda();
    añade(!ayuda.empty(), "ayuda:" + ayuda);
    EXPECT_EQ(efecto, c.efecto);
    ventanas.clear();
  }
  EXPECT_EQ(botones.size(), 12u); // every button of the toolbar was clicked
}

// Each key and mouse action in the text area reaches its editor operation:
// the window's editor and a twin given the operation directly end alike.
// After each, the status panel, the selection commands and the title follow
// the model.
TEST_F(VentanaTest, CadaTeclaYElRatonLleganAlEditor) {
  frmEditor& w = NuevaVentana();
  VistaEditor* v = w.Vista();
  QWidget* area = v->viewport();
  const int pagina = v->FilasVisibles();
  using Orden = std::function<void(Editor&)>;
  const auto mueve = [&](int codigo, bool mayus = false) -> Orden {
    return [=](Editor& e) { e.MueveCursorCmd(codigo, mayus, pagina); };
  };
  const auto edita = [](int codigo, std::string texto = "") -> Orden {
    return [=](Editor& e) { e.EditaCmd(codigo, texto); };
  };
  const auto tecla = [&](Qt::Key k, Qt::KeyboardModifiers m = {}) -> std::function<void()> {
    return [=] { QTest::keyClick(v, k, m); };
  };
  const auto punto = [&](int col) {
    const QRect r = v->RectanguloCelda(20, col);
    return QPoint(r.left() + 1, r.center().y());
  };
  const auto arrastra = [&] {
    QTest::mousePress(area, Qt::LeftButton, {}, punto(1));
    QMouseEvent arrastre(QEvent::MouseMove, punto(3), area->mapToGlobal(punto(3)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area, &arrastre);
    QTest::mouseRelease(area, Qt::LeftButton, {}, punto(3));
  };
  const auto dobleClic = [&] { // a press, a release and then the double click
    QTest::mouseClick(area, Qt::LeftButton, {}, punto(1));
    QTest::mouseDClick(area, Qt::LeftButton, {}, punto(1));
  };
  const struct {
    const char* nombre;
    std::function<void()> usuario;
    Orden orden;
  } casos[] = {
      // clang-format off
      {"Derecha", tecla(Qt::Key_Right), mueve(kDerecha)}, {"Izquierda", tecla(Qt::Key_Left), mueve(kIzquierda)},
      {"Arriba", tecla(Qt::Key_Up), mueve(kArriba)}, {"Abajo", tecla(Qt::Key_Down), mueve(kAbajo)},
      {"Inicio", tecla(Qt::Key_Home), mueve(kInicio)}, {"Fin", tecla(Qt::Key_End), mueve(kFin)},
      {"AvPág", tecla(Qt::Key_PageDown), mueve(kAvPag)}, {"RePág", tecla(Qt::Key_PageUp), mueve(kRePag)},
      {"Mayús+Izquierda", tecla(Qt::Key_Left, Qt::ShiftModifier), mueve(kIzquierda, true)},
      {"Mayús+Fin", tecla(Qt::Key_End, Qt::ShiftModifier), mueve(kFin, true)},
      {"Retroceso", tecla(Qt::Key_Backspace), edita(kRetroceso)}, {"Supr", tecla(Qt::Key_Delete), edita(kSuprimir)},
      {"Intro", tecla(Qt::Key_Return), edita(kSaltoLinea)}, {"Intro numérico", tecla(Qt::Key_Enter), edita(kSaltoLinea)},
      {"Tab", tecla(Qt::Key_Tab), [](Editor& e) { e.InsertaTab(); }},
      {"Insert", tecla(Qt::Key_Insert), [](Editor& e) { e.ModoInsertar(false); }},
      {"ñ", [&] { QTest::sendKeyEvent(QTest::Click, v, Qt::Key_unknown, "ñ", {}); }, edita(kEscribir, "ñ")},
      {"clic", [&] { QTest::mouseClick(area, Qt::LeftButton, {}, punto(3)); }, [](Editor& e) { e.Pulsa(20, 3, false); }},
      {"arrastre", arrastra, [](Editor& e) { e.Pulsa(20, 1, false); e.Arrastra(20, 3); }},
      {"doble clic", dobleClic, [](Editor& e) { e.Pulsa(20, 1, false); e.SeleccionaPalabra(); }},
      // clang-format on
  };
  const auto estado = [](const Editor& e) {
    const Documento& d = e.Doc();
    return d.TextoDocumento() + "|" + std::to_string(d.Cursor().fila) + "," +
           std::to_string(d.Cursor().col) + "|" + (d.HaySel() ? d.GetTextSel() : "") + "|" +
           (e.ModoInsertar() ? "" : "sobrescribe") + (e.Modificado() ? "*" : "");
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.nombre);
    Editor gemelo;
    for (Editor* e : {&w.Modelo(), &gemelo}) {
      e->Carga(std::vector<std::string>(60, "abcd"));
      e->Doc().MueveCursor(20, 2);
      e->ModoInsertar(true);
    }
    v->Actualiza();
    c.usuario();
    c.orden(gemelo);
    EXPECT_EQ(estado(w.Modelo()), estado(gemelo));
    const Documento& d = w.Modelo().Doc();
    EXPECT_EQ(S(w.PanelPosCursor()), "Lín: " + std::to_string(d.Cursor().fila + 1) +
                                         ", Col: " + std::to_string(d.Cursor().col + 1));
    for (const char* n : {"Cortar", "Copiar", "Eliminar"})
      EXPECT_EQ(w.Accion(n)->isEnabled(), d.HaySel()) << n;
    EXPECT_EQ(w.windowTitle().contains('*'), w.Modelo().Modificado());
    EXPECT_TRUE(v->hasFocus()); // Tab too stays in the text area
  }
  EXPECT_TRUE(avisos.empty());
  QTest::mouseClick(area, Qt::RightButton, {}, punto(1));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(S(menu->objectName()), "Edición");
  menu->close();
}

TEST_F(VentanaTest, DeshacerYRehacerMuestranElHistorial) {
  frmEditor& w = NuevaVentana();
  const auto estado = [&] {
    std::string s;
    for (const char* n : {"Deshacer", "Rehacer"})
      s += S(w.Accion(n)->text()) + (w.Accion(n)->isEnabled() ? "+|" : "-|");
    return s;
  };
  EXPECT_EQ(estado(), "No se puede deshacer-|No se puede rehacer-|");
  QTest::keyClicks(w.Vista(), "ab");
  EXPECT_EQ(estado(), "Deshacer escribir+|No se puede rehacer-|");
  QTest::keyClick(w.Vista(), Qt::Key_Z, Qt::ControlModifier); // the menu's shortcut
  EXPECT_EQ(Texto(w), "");
  EXPECT_EQ(estado(), "No se puede deshacer-|Rehacer escribir+|");
}

// The save question on closing: No closes without saving; Cancelar and a
// cancelled or failed save keep the window open with its document; Sí with a
// name saves and closes. An unchanged document closes without a question.
TEST_F(VentanaTest, AlCerrarSePreguntaSiGuardar) {
  EscribeArchivo(Ruta("no-es-carpeta"), ""); // writing under it fails whatever the rights
  const struct {
    Respuesta respuesta;
    const char* ruta;
    bool cierra;
    const char* aviso;
  } casos[] = {{Respuesta::No, "", true, ""},
               {Respuesta::Cancelar, "", false, ""},
               {Respuesta::Si, "", false, ""},
               {Respuesta::Si, "no-es-carpeta/doc.txt", false,
                "No se pudo guardar «doc.txt»: carpeta inexistente."},
               {Respuesta::Si, "doc.txt", true, ""}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.ruta);
    avisos.clear();
    preguntas.clear();
    respuestas = {c.respuesta};
    rutaGuardar = *c.ruta ? Ruta(c.ruta) : QString();
    frmEditor& w = NuevaVentana();
    QTest::keyClicks(w.Vista(), "y = x");
    EXPECT_EQ(w.close(), c.cierra);
    EXPECT_EQ(w.isVisible(), !c.cierra);
    EXPECT_EQ(preguntas, std::vector<std::string>{kPreguntaGuardar});
    EXPECT_EQ(Unidos(avisos), c.aviso);
    EXPECT_EQ(w.Modelo().Modificado(), !(c.cierra && c.respuesta == Respuesta::Si));
    EXPECT_EQ(Texto(w), "y = x");
  }
  EXPECT_EQ(propuestos, std::vector<std::string>(3, "SinNombre.txt"));
  EXPECT_EQ(Bytes(Ruta("doc.txt")), QByteArray("y = x"));
  preguntas.clear();
  EXPECT_TRUE(NuevaVentana().close());
  EXPECT_TRUE(preguntas.empty());
}

// Another program changed or deleted the open file: Guardar asks before
// writing over it, and coming back to the window tells each change once and
// reads the file again only when the user says so.
TEST_F(VentanaTest, LosCambiosDeOtroProgramaSeDicenUnaVez) {
  frmEditor& w = NuevaVentana();
  const QString ruta = Ruta("compartido.txt");
  EscribeArchivo(ruta, "y = x");
  ASSERT_TRUE(w.AbreArchivo(ruta));
  QTest::keyClicks(w.Vista(), "1");
  EXPECT_TRUE(w.Guardar()); // its own file, without a name dialog or a question
  EXPECT_TRUE(propuestos.empty() && preguntas.empty());
  EXPECT_EQ(Bytes(ruta), QByteArray("1y = x"));

  EscribeArchivo(ruta, "otro");
  respuestas = {Respuesta::Cancelar};
  EXPECT_FALSE(w.Guardar());
  EXPECT_EQ(Bytes(ruta), QByteArray("otro"));
  w.RevisaDisco(); // Guardar's question told of it already
  EXPECT_EQ(preguntas.size(), 1u);

  EscribeArchivo(ruta, "y = x^2");
  respuestas = {Respuesta::No, Respuesta::Si};
  w.RevisaDisco();
  EXPECT_EQ(Texto(w), "1y = x"); // not read again
  EscribeArchivo(ruta, "y = x^33");
  w.RevisaDisco();
  w.RevisaDisco();
  ASSERT_EQ(preguntas.size(), 3u);
  EXPECT_EQ(preguntas[2], "El archivo «compartido.txt» ha cambiado en el disco. ¿Volver a "
                          "cargarlo?");
  EXPECT_EQ(Texto(w), "y = x^33");

  ASSERT_TRUE(QFile::remove(ruta));
  w.RevisaDisco();
  w.RevisaDisco();
  EXPECT_EQ(avisos, std::vector<std::string>{"El archivo «compartido.txt» ya no está en el disco. "
                                             "El documento sigue abierto; Guardar lo volverá a "
                                             "escribir."});
  EXPECT_FALSE(w.AbreArchivo(ruta)); // a file that cannot be read leaves the document
  EXPECT_EQ(avisos.back(), "No se pudo abrir «compartido.txt»: archivo inexistente.");
  EXPECT_EQ(Texto(w), "y = x^33");
}

// F1 in the text area and the settings dialog's help button open the help at
// their topics, in a window that the dialog's modality leaves usable.
TEST_F(VentanaTest, LaAyudaSeAbreEnSuTema) {
  frmEditor& w = NuevaVentana();
  QTest::keyClick(w.Vista(), Qt::Key_F1);
  EXPECT_EQ(PaginaDeAyuda(), "index.html");
  const auto visto = ConDialogo(
      [&] { w.Accion("Configuración")->trigger(); },
      [](QDialog& d) {
        Pulsa(Control<QPushButton>(d, "cmdAyuda"));
        EXPECT_EQ(d.windowModality(), Qt::WindowModal);
        for (QWidget* v : QApplication::topLevelWidgets())
          if (auto* ayuda = qobject_cast<VentanaAyuda*>(v); ayuda && ayuda->isVisible()) {
            EXPECT_TRUE(!ayuda->parentWidget() && !ayuda->windowHandle()->transientParent());
          }
        EXPECT_EQ(PaginaDeAyuda(), "configuracion.html");
      });
  EXPECT_EQ(visto, "frmConfig");
}

// The general timer's poll of the clipboard enables Pegar, also for text
// another program put there.
TEST_F(VentanaTest, ElRelojHabilitaPegarSegunElPortapapeles) {
  frmEditor& w = NuevaVentana();
  QAction* pegar = w.Accion("Pegar");
  EXPECT_FALSE(pegar->isEnabled());
  QApplication::clipboard()->setText(QStringLiteral("z"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return pegar->isEnabled(); }, 3000));
  QApplication::clipboard()->clear();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !pegar->isEnabled(); }, 3000));
}

TEST_F(VentanaTest, ImprimeCadaFilaConSaltosDePagina) {
  frmEditor& w = NuevaVentana();
  const auto paginas = [&](int filas) {
    w.Modelo().Carga(std::vector<std::string>(filas, "'fila"));
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(Ruta("doc.pdf"));
    w.ImprimeEn(impresora);
    const QString pdf = QString::fromLatin1(Bytes(Ruta("doc.pdf")));
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    return pdf.count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b")));
  };
  EXPECT_EQ(paginas(1), 1);
  EXPECT_GE(paginas(300), 3); // 300 rows do not fit on two pages
  EXPECT_TRUE(avisos.empty());
}

// The accepted presentation reaches the text area at once: font size, scroll
// bars, colours and tab width.
TEST_F(VentanaTest, LaPresentacionAceptadaSeVeEnElTexto) {
  frmEditor& w = NuevaVentana();
  VistaEditor* v = w.Vista();
  const auto altoFila = [&] {
    return v->RectanguloCelda(1, 0).top() - v->RectanguloCelda(0, 0).top();
  };
  const int alto = altoFila();
  EXPECT_TRUE(v->verticalScrollBar()->isVisible());
  ConDialogo([&] { w.Accion("Editor")->trigger(); },
             [](QDialog& d) {
               Control<QComboBox>(d, "cmbTamFuente")->setCurrentText("18");
               Control<QComboBox>(d, "cmbPrimerPlano")->setCurrentText("Rojo");
               Control<QComboBox>(d, "cmbFondoEditor")->setCurrentText("Gris");
               Pulsa(Control<QCheckBox>(d, "chkScrollBar"));
               Escribe(Control<QLineEdit>(d, "txtTab"), "8");
               Pulsa(Control<QPushButton>(d, "cmdAceptar"));
             });
  EXPECT_GT(altoFila(), alto);
  EXPECT_FALSE(v->verticalScrollBar()->isVisible());
  EXPECT_EQ(FondoDelArea(w), ColorPaleta(8) | 0xFF000000u);
  QTest::keyClick(v, Qt::Key_Tab);
  QTest::keyClicks(v, "y");
  EXPECT_EQ(Texto(w), "        y");
  EXPECT_EQ(w.Modelo().Doc().Fila(0)[8] >> 8, 4); // plain text in the new colour
}

// The program's own settings file, QSettings in a temporary folder.
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
  QTemporaryDir configuracion;
};

// Settings survive a restart; nonsense in the file is drawn with the
// defaults; a file that cannot be read is told once, and the window starts
// with the defaults in force.
TEST_F(AjustesQtTest, LosAjustesSobrevivenYUnArchivoIlegibleSeAvisa) {
  for (int arranque = 0; arranque < 2; ++arranque) {
    AlmacenAjustesQt store;
    frmEditor& w = NuevaVentana(store);
    if (arranque == 0) {
      EXPECT_TRUE(w.Ajustes().SetTamFuente(14) && w.Ajustes().SetColorComment(5));
    }
    EXPECT_EQ(w.Ajustes().GetTamFuente(), 14.0f);
    EXPECT_EQ(w.Ajustes().GetColorComment(), 5);
    ventanas.clear();
  }
  EscribeArchivo(Archivo(), "[Editor]\nTamFuente=99\nColorFondoEditor=1e99\n");
  {
    AlmacenAjustesQt store;
    frmEditor& rara = NuevaVentana(store);
    frmEditor& normal = NuevaVentana();
    EXPECT_EQ(rara.Vista()->RectanguloCelda(1, 1), normal.Vista()->RectanguloCelda(1, 1));
    EXPECT_EQ(FondoDelArea(rara), FondoDelArea(normal));
    ventanas.clear();
  }
  EXPECT_TRUE(avisos.empty());
  ASSERT_TRUE(QFile::remove(Archivo()) && QDir().mkpath(Archivo()));
  AlmacenAjustesQt store;
  frmEditor& w = NuevaVentana(store);
  EXPECT_EQ(w.Ajustes().GetTamFuente(), 10.0f);
  EXPECT_TRUE(w.Ajustes().SetTamFuente(12)); // in force until the program ends
  EXPECT_EQ(avisos, std::vector<std::string>{
                        "No se pudieron leer los ajustes de presentación en «" + S(Archivo()) +
                        "»: acceso denegado. Se usan los valores por "
                        "defecto."});
}

} // namespace
