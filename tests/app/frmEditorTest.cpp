// The desktop program's wiring, with real widgets: commands, keys and mouse
// reach the window-free models' operations (tested with the models), dialogs
// hand back what the user chose, and what only the window does. Message boxes
// are answered through Dialogos and modal dialogs closed here: no test waits.

#include <QtPrintSupport>
#include <QtTest>
#include <QtWidgets>

#include "../Casos.h"
#include "app/AlmacenAjustesQt.h"
#include "app/CamposBusquedaQt.h"
#include "app/Dialogos.h"
#include "app/FormulaVista.h"
#include "app/GraficoCurva.h"
#include "app/PanelAnalisis.h"
#include "app/VentanaAyuda.h"
#include "app/VistaEditor.h"
#include "app/frmConfig.h"
#include "app/frmEditor.h"
#include "app/frmPresentar.h"
#include "editor/Paleta.h"

namespace {

using namespace prueba;

std::string S(const QString& texto) { return texto.toStdString(); }

QByteArray Bytes(const QString& ruta) {
  QFile f(ruta);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void EscribeArchivo(const QString& ruta, const QByteArray& bytes) {
  QFile f(ruta);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write(bytes);
}

QRgb Fondo(frmEditor& w) { // the text area's background, at its bottom right corner
  const QImage imagen = w.Vista()->viewport()->grab().toImage();
  return imagen.pixelColor(imagen.width() - 2, imagen.height() - 2).rgb();
}

// Types as a user does: a line break is the Enter key, a tab the Tab key, any
// other character a key press carrying it (QTest::keyClicks knows only ASCII).
void Teclea(QWidget* destino, const QString& texto) {
  for (const QChar c : texto) {
    const Qt::Key tecla = c == '\n' ? Qt::Key_Return : c == '\t' ? Qt::Key_Tab : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, destino, tecla, QString(c), Qt::NoModifier);
  }
}

// Works a dialog with the steps at the front of `pasos` while it is open, as
// the head of tests/casos/ventana.txt tells. Users work controls that are on.
void Maneja(QWidget& dialogo, QStringList& pasos) {
  static const QRegularExpression forma(R"(^([^=?]*)([=?]?)(.*)$)");
  while (dialogo.isVisible() && !pasos.isEmpty()) {
    const auto m = forma.match(pasos.takeFirst());
    QWidget* control = m.captured(1).isEmpty() ? dialogo.focusWidget()
                                               : dialogo.findChild<QWidget*>(m.captured(1));
    auto* caja = qobject_cast<QLineEdit*>(control);
    auto* lista = qobject_cast<QComboBox*>(control);
    auto* boton = qobject_cast<QAbstractButton*>(control);
    auto* muestra = qobject_cast<MuestraPresentacion*>(control);
    ASSERT_TRUE(caja || lista || boton || muestra) << S(m.captured(0));
    // What the control shows; for the presentation's sample, its colours and size.
    const QString visto = !control->isEnabled() ? "apagado"
                          : caja                ? caja->text()
                          : lista               ? lista->currentText()
                          : boton               ? (boton->isChecked() ? "sí" : "no")
                                  : muestra->Fondo().name() + " " + muestra->Texto().name() + " " +
                                        QString::number(muestra->TamFuente());
    if (m.captured(2) == "?") {
      EXPECT_EQ(S(visto), S(m.captured(3))) << S(m.captured(1));
      continue;
    }
    EXPECT_TRUE(control->isEnabled()) << S(m.captured(0));
    if (caja) {
      caja->selectAll();
      QTest::keyClick(caja, Qt::Key_Delete);
      Teclea(caja, m.captured(3));
    } else if (lista) {
      lista->setCurrentText(m.captured(3));
    } else {
      // A check box takes clicks on its box and its text, not on the blank
      // that a wide form column leaves after them.
      const QPoint donde =
          qobject_cast<QCheckBox*>(boton) ? QPoint(6, boton->height() / 2) : QPoint();
      QTest::mouseClick(boton, Qt::LeftButton, {}, donde);
    }
  }
}

// Runs a command that may open modal dialogs with exec(): `accion` works each
// once it is open, and closes it if `accion` did not, so that the command returns.
void ConDialogo(const std::function<void()>& orden, const std::function<void(QDialog&)>& accion) {
  QTimer reloj;
  QObject::connect(&reloj, &QTimer::timeout, [&] {
    if (auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
      accion(*dialogo);
      if (dialogo->isVisible()) dialogo->reject();
    }
  });
  reloj.start(10);
  orden();
}

// The help window's page ("" when it is closed; "bloqueada" when a modal dialog
// keeps the user from it), closed again so that the next request must open it.
QString PaginaDeAyuda() {
  for (QWidget* ventana : QApplication::topLevelWidgets())
    if (auto* ayuda = qobject_cast<VentanaAyuda*>(ventana); ayuda && ayuda->isVisible()) {
      const QWidget* modal = QApplication::activeModalWidget();
      const bool bloqueada = ayuda->parentWidget() || ayuda->windowHandle()->transientParent() ||
                             (modal && modal->windowModality() == Qt::ApplicationModal);
      ayuda->close();
      return ayuda->Navegador()->source().fileName() + (bloqueada ? " bloqueada" : "");
    }
  return "";
}

// Records every message and question, as the head of tests/casos/ventana.txt
// tells, and answers the questions and the name dialog from `pasos`.
class VentanaTest : public ::testing::Test {
protected:
  void SetUp() override {
    Dialogos::Respondedor r;
    r.aviso = [this](const QString&, const QString& texto) {
      avisos << texto;
      if (const QWidget* modal = QApplication::activeModalWidget())
        for (const QLineEdit* caja : modal->findChildren<QLineEdit*>())
          if (caja->hasSelectedText()) avisos.last() += " «" + caja->selectedText() + "»";
    };
    r.pregunta = [this](const QString& texto) {
      preguntas << texto;
      if (ventanas.back()->Modelo().Doc().HaySel())
        preguntas.last() += " (" + ventanas.back()->PanelPosCursor() + ")";
      const qsizetype i = QStringList{"Sí", "No", "Cancelar"}.indexOf(pasos.value(0));
      if (i >= 0) pasos.removeFirst();
      return i < 0 ? Respuesta::No : Respuesta(i); // in Respuesta's order
    };
    r.nombreAbrir = [this] { return Ruta("doc.txt"); };
    r.nombreGuardar = [this](const QString& propuesto) {
      propuestos << propuesto;
      if (!pasos.value(0).startsWith("archivo=")) return Ruta("doc.txt");
      const QString nombre = pasos.takeFirst().mid(8);
      return nombre.isEmpty() ? nombre : Ruta(nombre);
    };
    Dialogos::FijaRespondedor(r);
    QApplication::setQuitOnLastWindowClosed(false); // the tests close windows
  }
  ~VentanaTest() override { Dialogos::FijaRespondedor({}); }

  // A new window, active, with the keyboard focus in its text area.
  frmEditor& NuevaVentana(AlmacenAjustes* almacenUsado = nullptr) {
    UltimaBusqueda() = {};
    QApplication::clipboard()->clear();
    frmEditor& w =
        *ventanas.emplace_back(std::make_unique<frmEditor>(almacenUsado ? *almacenUsado : almacen));
    w.show();
    w.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&w));
    return w;
  }
  QString Ruta(const QString& nombre) const { return carpeta.filePath(nombre); }

  QStringList avisos, preguntas, propuestos, pasos;
  AlmacenEnMemoria almacen;
  QTemporaryDir carpeta;
  std::vector<std::unique_ptr<frmEditor>> ventanas;
};

// tests/casos/ventana.txt, whose head tells what each row does and shows.
TEST_F(VentanaTest, CadaOrdenLlegaASuOperacion) {
  const QStringList kRaton{"Pulsa", "Suelta", "Clic", "DobleClic", "Mueve"}; // QTest's order
  const QRegularExpression llamada(R"(^(\w+)\(([^,]*),?(.*)\)$)");
  QStringList botones;
  for (const Caso& c : LeeCasos("ventana.txt")) {
    SCOPED_TRACE(c);
    avisos = preguntas = propuestos = {};
    almacen = {}; // the presentation as it starts
    pasos = QString::fromStdString(c[2] == "-" ? "" : c[2])
                .split(QRegularExpression(" *; *"), Qt::SkipEmptyParts);
    EscribeArchivo(Ruta("doc.txt"), "z = t");
    frmEditor& w = NuevaVentana();
    VistaEditor* v = w.Vista();
    const Documento& d = w.Modelo().Doc();
    QStringList dialogos;
    const auto responde = [&](QDialog& dialogo) {
      const QString antes = w.PanelPosCursor();
      Maneja(dialogo, pasos);
      dialogos << dialogo.metaObject()->className();
      if (w.PanelPosCursor() != antes) dialogos.last() += "(" + w.PanelPosCursor() + ")";
      if (const QString ayuda = PaginaDeAyuda(); !ayuda.isEmpty()) dialogos << "ayuda:" + ayuda;
    };
    Teclea(v, QString::fromStdString(Expande(Texto(c[0]))));
    for (const QString& paso : QString::fromStdString(c[1]).split(' ', Qt::SkipEmptyParts)) {
      const auto m = llamada.match(paso); // Nombre(fila,columna) or Nombre(texto)
      const QRect celda = v->RectanguloCelda(m.captured(2).toInt(), m.captured(3).toInt());
      const QPoint punto(celda.left() + 1, celda.center().y());
      if (QAction* accion = w.Accion(paso)) { // by its toolbar button when it has one
        QWidget* boton = w.BarraH()->widgetForAction(accion);
        if (boton) botones << paso;
        ConDialogo([&] { boton ? QTest::mouseClick(boton, Qt::LeftButton) : accion->trigger(); },
                   responde);
      } else if (const auto i = kRaton.indexOf(QString(m.captured(1)).remove("Derecho")); i >= 0) {
        const bool derecho = m.captured(1).endsWith("Derecho");
        QTest::mouseEvent(QTest::MouseAction(i), v->viewport(),
                          derecho ? Qt::RightButton : Qt::LeftButton, {}, punto);
      } else if (m.captured(1) == "Otro") {
        EscribeArchivo(Ruta("doc.txt"), m.captured(2).toUtf8());
      } else if (paso == "Borrado") {
        QFile::remove(Ruta("doc.txt"));
      } else if (paso == "Vuelve") { // the user leaves the window for a while
        ConDialogo([&] { w.Accion("AcercaDe")->trigger(); }, [](QDialog&) {});
      } else if (paso != "-") {
        const QKeySequence tecla(paso);
        ASSERT_TRUE(tecla.count() == 1 && tecla[0].key() != Qt::Key_unknown) << S(paso);
        ConDialogo([&] { QTest::keyClick(v, tecla[0].key(), tecla[0].keyboardModifiers()); },
                   responde);
      }
      if (w.isVisible() && !w.isActiveWindow()) { // back from a dialog, as a window manager does
        w.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w));
      }
    }
    EXPECT_EQ(S(pasos.join(';')), "") << "answers and steps not used";

    const auto filas = [](const std::string& t) {
      return t.empty() ? "(vacío)" : QString::fromStdString(t).replace("\r\n", "\n");
    };
    QStringList visto{filas(d.TextoDocumento()), w.PanelPosCursor()};
    const auto añade = [&](bool si, const QString& parte) {
      if (si) visto << parte;
    };
    const QString portapapeles = QApplication::clipboard()->text(), ayuda = PaginaDeAyuda();
    const QByteArray disco = Bytes(Ruta("doc.txt"));
    añade(d.HaySel(), "sel:" + filas(d.HaySel() ? d.GetTextSel() : ""));
    añade(!portapapeles.isEmpty(), "clip:" + portapapeles);
    añade(!dialogos.isEmpty(), dialogos.join(' '));
    añade(!avisos.isEmpty(), "aviso:" + avisos.join(" / "));
    añade(!preguntas.isEmpty(), preguntas.join(" / "));
    añade(!propuestos.isEmpty(), "nombre:" + propuestos.join(" / "));
    añade(w.windowTitle() != "SinNombre.txt* - Mirkal", w.windowTitle());
    añade(!w.isVisible(), "cerrada");
    añade(disco != "z = t", QFile::exists(Ruta("doc.txt")) ? "disco:" + disco : "sin disco");
    añade(!ayuda.isEmpty(), "ayuda:" + ayuda);
    añade(!w.Modelo().ModoInsertar(), "sobrescribe");
    añade(w.isVisible() && !v->hasFocus(), "sin foco");
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      visto << "menú:" + menu->objectName();
      menu->close();
    }
    QString esperado = QString::fromStdString(c[3]);
    for (std::size_t i = 4; i < c.size(); ++i)
      esperado += " | " + QString::fromStdString(c[i]);
    esperado.replace("{filas}", QString::number(v->FilasVisibles()));
    EXPECT_EQ(S(visto.join(" | ")), Expande(S(esperado)));
    for (const char* n : {"Cortar", "Copiar", "Eliminar"})
      EXPECT_EQ(w.Accion(n)->isEnabled(), d.HaySel()) << n;
    ventanas.clear();
  }
  for (QAction* a : NuevaVentana().BarraH()->actions()) // every toolbar button was clicked
    EXPECT_TRUE(a->isSeparator() || botones.contains(a->objectName())) << S(a->objectName());
}

// Deshacer and Rehacer name what they would do; the general timer's poll of
// the clipboard enables Pegar, also for text another program put there.
TEST_F(VentanaTest, LosMenusSiguenAlHistorialYAlPortapapeles) {
  frmEditor& w = NuevaVentana();
  const auto menu = [&] {
    QString s;
    for (const char* n : {"Deshacer", "Rehacer", "Pegar"})
      s += w.Accion(n)->text() + (w.Accion(n)->isEnabled() ? "+|" : "-|");
    return S(s);
  };
  EXPECT_EQ(menu(), "No se puede deshacer-|No se puede rehacer-|&Pegar-|");
  Teclea(w.Vista(), "ab");
  EXPECT_EQ(menu(), "Deshacer escribir+|No se puede rehacer-|&Pegar-|");
  w.Deshacer();
  EXPECT_EQ(menu(), "No se puede deshacer-|Rehacer escribir+|&Pegar-|");
  QApplication::clipboard()->setText(QStringLiteral("z"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return w.Accion("Pegar")->isEnabled(); }, 3000));
  QApplication::clipboard()->clear();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !w.Accion("Pegar")->isEnabled(); }, 3000));
}

TEST_F(VentanaTest, ImprimeCadaFilaConSaltosDePagina) {
  frmEditor& w = NuevaVentana();
  for (const int filas : {1, 300}) { // 300 rows do not fit on two pages
    w.Modelo().Carga(std::vector<std::string>(filas, "'fila"));
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFileName(Ruta("doc.pdf"));
    w.ImprimeEn(impresora);
    const QString pdf = QString::fromLatin1(Bytes(Ruta("doc.pdf")));
    const qsizetype paginas = pdf.count(QRegularExpression("/Type\\s*/Page\\b"));
    EXPECT_TRUE(filas == 1 ? paginas == 1 : paginas >= 3) << paginas;
  }
  EXPECT_TRUE(avisos.isEmpty());
}

// A menu closed with Escape, then a question answered: the next letters typed
// go into the text, not to the menu bar's mnemonics (the "y" of "y = x"
// would open Ayuda).
TEST_F(VentanaTest, ElTecladoVuelveAlTextoTrasUnMenuYUnaPregunta) {
  frmEditor& w = NuevaVentana();
  Teclea(w.Vista(), "a");
  QTest::keyClick(&w, Qt::Key_E, Qt::AltModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  EXPECT_EQ(S(menu->objectName()), "Edición");
  QTest::keyClick(menu, Qt::Key_Escape);
  QTest::qWait(20);   // a user's keys come with the event loop running in between
  w.activateWindow(); // as the window manager gives the window back its keyboard
  EXPECT_TRUE(QTest::qWaitForWindowActive(&w));
  pasos << "No";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::ControlModifier);
  ASSERT_EQ(preguntas.size(), 1);
  Teclea(QApplication::focusWidget(), "y = x");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(QApplication::focusWidget(), w.Vista());
  EXPECT_EQ(w.Modelo().Doc().GetTextFila(0), "y = x");
}

// The toolbar shows the desktop theme's icons (Adwaita stands in under a bare
// window manager), and the window carries the program's own icon.
TEST_F(VentanaTest, LaBarraMuestraLosIconosDelTema) {
  frmEditor& w = NuevaVentana();
  for (const QAction* a : w.BarraH()->actions()) {
    if (!a->isSeparator() && a->objectName() != "Derivar") {
      EXPECT_FALSE(a->icon().name().isEmpty()) << S(a->objectName());
    }
  }
  EXPECT_FALSE(w.windowIcon().pixmap(32, 32).toImage().isNull());
}

// Scrolled to the bottom, a long document shows its last row at the view's
// foot, not alone at the top of an empty page.
TEST_F(VentanaTest, AlFondoSeVeLaUltimaPagina) {
  frmEditor& w = NuevaVentana();
  w.Modelo().Carga(std::vector<std::string>(100000, "fila"));
  w.Vista()->Actualiza();
  QScrollBar* barra = w.Vista()->verticalScrollBar();
  barra->setValue(barra->maximum());
  const QRect area = w.Vista()->viewport()->rect();
  EXPECT_TRUE(area.contains(w.Vista()->RectanguloCelda(99999, 0)));
  const int primera = 100000 - w.Vista()->FilasVisibles();
  EXPECT_TRUE(area.contains(w.Vista()->RectanguloCelda(primera, 0)));
  EXPECT_LT(w.Vista()->RectanguloCelda(primera - 1, 0).top(), 0);
}

// The cursor is drawn and erased whole: after moving over empty rows and
// blinking off, what the window holds on screen shows no trace of it.
TEST_F(VentanaTest, ElCursorNoDejaRastro) {
  frmEditor& w = NuevaVentana();
  VistaEditor* v = w.Vista();
  Teclea(v, "\n\n\n");
  const auto pinta = [] { QTest::qWait(30); };
  for (const Qt::Key tecla : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
    QTest::keyClick(v, tecla);
    pinta();
  }
  const auto trazos = [&] { // pixels of the cursor's colour, as the screen holds them
    const QImage pantalla = QGuiApplication::primaryScreen()->grabWindow(w.winId()).toImage();
    const QRect area(v->viewport()->mapTo(&w, QPoint(0, 0)), v->viewport()->size());
    const QRgb cursor = QColor::fromRgb(ColorPaleta(0)).rgb();
    QList<QPoint> vistos;
    for (int y = area.top(); y <= area.bottom(); ++y)
      for (int x = area.left(); x <= area.right(); ++x)
        if (pantalla.pixel(x, y) == cursor) vistos << QPoint(x, y) - area.topLeft();
    return vistos;
  };
  const QList<QPoint> encendido = trazos();
  ASSERT_FALSE(encendido.isEmpty());
  for (const QPoint& punto : encendido)
    EXPECT_TRUE(v->RectanguloCursor().contains(punto)) << punto.x() << "," << punto.y();
  v->ParpadeaCursor();
  pinta();
  EXPECT_TRUE(trazos().isEmpty()) << trazos().size();
}

// The choice to write the simplified derivative is kept between runs; off
// until chosen.
TEST_F(VentanaTest, LaDerivadaSimplificadaSeRecuerda) {
  EXPECT_FALSE(NuevaVentana().Configuracion().Simplificada());
  ConDialogo([&] { ventanas.back()->Configurar(); },
             [](QDialog& d) {
               QTest::mouseClick(d.findChild<QCheckBox*>("chkSimplificada"), Qt::LeftButton, {},
                                 QPoint(6, 6));
               QTest::mouseClick(d.findChild<QPushButton*>("cmdAceptar"), Qt::LeftButton);
             });
  frmEditor& otra = NuevaVentana();
  EXPECT_TRUE(otra.Configuracion().Simplificada());
  Teclea(otra.Vista(), "y = 2*x^2/(4*x)");
  otra.Derivar();
  EXPECT_EQ(otra.Modelo().Doc().GetTextFila(otra.Modelo().Doc().NumFilas() - 1),
            "'dy/dx simplificada = 1/2");
}

// Pixels of a colour within two pixels of a point of the picture.
int PixelesCerca(const QImage& imagen, QPointF donde, const QColor& color) {
  int n = 0;
  for (int dy = -2; dy <= 2; ++dy)
    for (int dx = -2; dx <= 2; ++dx) {
      const QPoint p = donde.toPoint() + QPoint(dx, dy);
      if (imagen.rect().contains(p) && imagen.pixelColor(p) == color) ++n;
    }
  return n;
}

// The circle is drawn all round and nowhere else; 1/x is drawn on both
// sides of its asymptote and never across it.
TEST(Grafico, DibujaLaCurvaYNadaEnLasAsintotas) {
  GraficoCurva g;
  ASSERT_EQ(g.Muestra("x^2 + y^2 = 25", "y", "x"), "");
  g.FijaVista({-6, 6, -6, 6});
  const QSize tam(300, 300);
  QImage imagen = g.Imagen(tam);
  for (double angulo = 0; angulo < 6.28; angulo += 0.5)
    EXPECT_GT(PixelesCerca(imagen, g.APixel({5 * std::cos(angulo), 5 * std::sin(angulo)}, tam),
                           GraficoCurva::kColorCurva),
              0)
        << angulo;
  for (const Punto2 fuera : {Punto2{0, 0}, Punto2{2, 2}, Punto2{-3, 1}, Punto2{5.5, 5.5}})
    EXPECT_EQ(PixelesCerca(imagen, g.APixel(fuera, tam), GraficoCurva::kColorCurva), 0);

  ASSERT_EQ(g.Muestra("y = 1/x", "y", "x"), "");
  g.FijaVista({-3.013, 2.987, -5, 5});
  imagen = g.Imagen(tam);
  const int columna = static_cast<int>(std::lround(g.APixel({0, 0}, tam).x()));
  for (int y = 0; y < tam.height(); ++y)
    EXPECT_NE(imagen.pixelColor(columna, y), GraficoCurva::kColorCurva) << y;
  EXPECT_GT(PixelesCerca(imagen, g.APixel({1, 1}, tam), GraficoCurva::kColorCurva), 0);
  EXPECT_GT(PixelesCerca(imagen, g.APixel({-1, -1}, tam), GraficoCurva::kColorCurva), 0);
}

// A click near the curve picks its nearest point, with the slope there, and
// draws the tangent; a click far from it picks nothing.
TEST(Grafico, UnClicEligeElPuntoYSuTangente) {
  GraficoCurva g;
  g.resize(300, 300);
  ASSERT_EQ(g.Muestra("x^2 + y^2 = 25", "y", "x"), "");
  g.FijaVista({-6, 6, -6, 6});
  QTest::mouseClick(&g, Qt::LeftButton, {}, g.APixel({0.5, 0.5}, g.size()).toPoint());
  EXPECT_FALSE(g.HayPunto());
  QTest::mouseClick(&g, Qt::LeftButton, {}, g.APixel({3.05, 4.05}, g.size()).toPoint());
  ASSERT_TRUE(g.HayPunto());
  EXPECT_NEAR(g.Punto().x, 3, 0.1);
  EXPECT_NEAR(g.Punto().y, 4, 0.1);
  EXPECT_NEAR(g.Pendiente(), -g.Punto().x / g.Punto().y, 1e-3);
  // The tangent at the point, y = y0 + m*(x - x0), across the view.
  const QImage imagen = g.Imagen(g.size());
  for (const double x : {0.5, 1.5, 5.5}) {
    const double y = g.Punto().y + g.Pendiente() * (x - g.Punto().x);
    EXPECT_GT(PixelesCerca(imagen, g.APixel({x, y}, g.size()), GraficoCurva::kColorTangente), 0)
        << x;
  }
}

// The plot is saved as the picture it shows, in PNG and in SVG.
TEST(Grafico, SeExportaEnPngYSvg) {
  QTemporaryDir carpeta;
  GraficoCurva g;
  g.resize(300, 240);
  ASSERT_EQ(g.Muestra("y = x^2", "y", "x"), "");
  ASSERT_TRUE(g.ExportaPng(carpeta.filePath("g.png")));
  ASSERT_TRUE(g.ExportaSvg(carpeta.filePath("g.svg")));
  EXPECT_EQ(QImage(carpeta.filePath("g.png")).size(), QSize(300, 240));
  const QByteArray svg = Bytes(carpeta.filePath("g.svg"));
  EXPECT_TRUE(svg.contains("<svg") && (svg.contains("<polyline") || svg.contains("<path")))
      << svg.left(200).toStdString();
}

// The panel is shown from the Opciones menu and remembered; after Derivar it
// shows the derivative in lowest terms.
TEST_F(VentanaTest, ElPanelSigueALaEcuacionYSeRecuerda) {
  frmEditor& w = NuevaVentana();
  EXPECT_FALSE(w.Panel()->isVisible());
  w.Accion("PanelAnalisis")->trigger();
  EXPECT_TRUE(w.Panel()->isVisible());
  Teclea(w.Vista(), "x^2 + y^2 = 25");
  w.Derivar();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !w.Panel()->Resultado().derivada.empty(); }, 5000));
  EXPECT_EQ(w.Panel()->Resultado().derivada, "-x/y");
  EXPECT_TRUE(NuevaVentana().Panel()->isVisible());
}

// Typeset: a fraction stacks its parts over the bar, an exponent rises above
// its base, and the panel shows the derivative so.
TEST(Formulas, SeApilanYSuben) {
  FormulaVista v;
  const Formula x{Formula::Texto, "x", true, {}}, dos{Formula::Texto, "2", false, {}};
  const auto solo = v.Mide(x, v.font());
  const auto fraccion = v.Mide({Formula::Fraccion, "", false, {x, x}}, v.font());
  EXPECT_GT(fraccion.sube + fraccion.baja, 1.5 * (solo.sube + solo.baja));
  EXPECT_LT(fraccion.ancho, 2 * solo.ancho);
  EXPECT_GT(v.Mide({Formula::Potencia, "", false, {x, dos}}, v.font()).sube, solo.sube);
  v.Muestra({Formula::Fraccion, "", false, {x, x}});
  EXPECT_GT(v.sizeHint().height(), static_cast<int>(1.5 * (solo.sube + solo.baja)));
}

// The find dialog's boxes answer to their underlined letters.
TEST_F(VentanaTest, LasCasillasDeBuscarTienenSuLetra) {
  frmEditor& w = NuevaVentana();
  QStringList marcadas;
  ConDialogo([&] { w.Buscar(); },
             [&](QDialog& d) {
               EXPECT_TRUE(QTest::qWaitForWindowActive(&d));
               for (const auto& [letra, nombre] :
                    {std::pair(Qt::Key_M, "chkMayusMinus"), std::pair(Qt::Key_C, "chkPalCmp")}) {
                 QTest::keyClick(&d, letra, Qt::AltModifier);
                 // A button's letter clicks it after a short visible press.
                 const auto* casilla = d.findChild<QCheckBox*>(nombre);
                 if (QTest::qWaitFor([&] { return casilla->isChecked(); }, 2000))
                   marcadas << nombre;
               }
             });
  EXPECT_EQ(marcadas, QStringList({"chkMayusMinus", "chkPalCmp"}));
}

// Qt's own dialogs, buttons, context menus and key names speak Spanish.
TEST(Espanol, LosDialogosYLasTeclasDeQt) {
  QMessageBox caja(QMessageBox::Question, "Mirkal", "?",
                   QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_EQ(S(caja.button(QMessageBox::Yes)->text().remove('&')), "Sí");
  EXPECT_EQ(S(caja.button(QMessageBox::Cancel)->text().remove('&')), "Cancelar");
  // Spain's Spanish of Qt names the key in full.
  EXPECT_EQ(S(QKeySequence(Qt::SHIFT | Qt::Key_F5).toString(QKeySequence::NativeText)),
            "Mayúsculas+F5");
  QLineEdit caja2;
  std::unique_ptr<QMenu> contextual(caja2.createStandardContextMenu());
  QStringList textos;
  for (const QAction* a : contextual->actions())
    if (!a->isSeparator()) textos << a->text().remove('&').section('\t', 0, 0);
  EXPECT_TRUE(textos.contains("Deshacer") && textos.contains("Pegar")) << S(textos.join(","));
}

// The Open dialog opens in the last folder and speaks Spanish; the Save As
// dialog adds ".txt" to a name typed without an extension.
TEST(Espanol, LosDialogosDeArchivo) {
  Dialogos::FijaRespondedor({});
  QTemporaryDir carpeta;
  QString dondeAbre;
  QStringList textos;
  ConDialogo([&] { Dialogos::NombreAbrir(nullptr, carpeta.path()); },
             [&](QDialog& d) {
               dondeAbre = qobject_cast<QFileDialog*>(&d)->directory().absolutePath();
               for (const QLabel* l : d.findChildren<QLabel*>())
                 textos << l->text().remove('&');
               for (const QPushButton* b : d.findChildren<QPushButton*>())
                 textos << b->text().remove('&');
             });
  EXPECT_EQ(dondeAbre, QDir(carpeta.path()).absolutePath());
  for (const char* visto : {"Ver en:", "Nombre de fichero:", "Abrir", "Cancelar"})
    EXPECT_TRUE(textos.contains(QString::fromUtf8(visto)))
        << visto << " en " << S(textos.join(","));
  const QString guardado = [&] {
    QString r;
    ConDialogo([&] { r = Dialogos::NombreGuardar(nullptr, "SinNombre.txt", carpeta.path()); },
               [&](QDialog& d) {
                 d.findChild<QLineEdit*>("fileNameEdit")->setText("nuevo");
                 d.accept(); // QFileDialog's own, through QDialog's public one
               });
    return r;
  }();
  EXPECT_EQ(guardado, QDir(carpeta.path()).filePath("nuevo.txt"));
}

// A row wider than the page is printed whole, going on in marked lines, with
// the file's name at the head of the page and its number at the foot; read
// back from the PDF by pdftotext (poppler-utils), every character is there.
TEST_F(VentanaTest, ImprimeLasFilasLargasEnteras) {
  frmEditor& w = NuevaVentana();
  QString larga;
  for (int i = 0; larga.size() < 302; ++i)
    larga += QString("y%1=Sin(x)^%2+").arg(i).arg(i % 7);
  larga.truncate(302);
  w.Modelo().Carga({"' cabecera", larga.toStdString(), "y = x"});
  QPrinter impresora(QPrinter::HighResolution);
  impresora.setOutputFileName(Ruta("doc.pdf"));
  w.ImprimeEn(impresora);
  QProcess pdftotext;
  pdftotext.start("pdftotext", {"-layout", Ruta("doc.pdf"), "-"});
  ASSERT_TRUE(pdftotext.waitForFinished(20000));
  QString texto = QString::fromUtf8(pdftotext.readAllStandardOutput());
  EXPECT_TRUE(texto.contains("SinNombre.txt")) << S(texto);
  EXPECT_TRUE(texto.contains("Página 1 de 1")) << S(texto);
  // The row's lines joined again: without the page's blanks and the marks.
  texto.remove(QRegularExpression("\\s+(» )?"));
  EXPECT_TRUE(texto.contains(larga)) << S(texto);
  EXPECT_TRUE(avisos.isEmpty());
}

// Settings accepted in the presentation dialog reach the text area at once
// (font size, scroll bars, colours, tab width) and survive a restart;
// nonsense in the settings file is drawn with the defaults; a file that
// cannot be read is told once, and the window starts with the defaults in
// force. QSettings writes in the temporary folder.
TEST_F(VentanaTest, LaPresentacionSeVeYSeGuarda) {
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, carpeta.path());
  const QString archivo = Ruta("Mirkal/Mirkal.ini");
  AlmacenAjustesQt primero;
  frmEditor& w = NuevaVentana(&primero);
  VistaEditor* v = w.Vista();
  const QRect celda = v->RectanguloCelda(1, 1);
  const QRgb blanco = Fondo(w);
  pasos = QString("cmbTamFuente=18;cmbPrimerPlano=Rojo;cmbFondoEditor=Gris;chkScrollBar;txtTab=8;"
                  "cmdAceptar")
              .split(';');
  ConDialogo([&] { w.Accion("Editor")->trigger(); }, [&](QDialog& d) { Maneja(d, pasos); });
  EXPECT_GT(v->RectanguloCelda(1, 1).top(), celda.top());
  EXPECT_FALSE(v->verticalScrollBar()->isVisible());
  EXPECT_EQ(Fondo(w), ColorPaleta(8) | 0xFF000000u);
  Teclea(v, "\ty");
  EXPECT_EQ(w.Modelo().Doc().TextoDocumento(), "        y");
  EXPECT_EQ(w.Modelo().Doc().Fila(0)[8] >> 8, 4); // plain text in the new colour
  AlmacenAjustesQt segundo;                       // the program started again
  frmEditor& otra = NuevaVentana(&segundo);
  EXPECT_EQ(otra.Vista()->RectanguloCelda(1, 1), v->RectanguloCelda(1, 1));
  EXPECT_EQ(std::pair(Fondo(otra), otra.Vista()->verticalScrollBar()->isVisible()),
            std::pair(Fondo(w), false));
  ventanas.clear();
  EscribeArchivo(archivo, "[Editor]\nTamFuente=99\nColorFondoEditor=1e99\n");
  AlmacenAjustesQt raro;
  EXPECT_EQ(NuevaVentana(&raro).Vista()->RectanguloCelda(1, 1), celda);
  EXPECT_EQ(Fondo(*ventanas.back()), blanco);
  ASSERT_TRUE(avisos.isEmpty() && QFile::remove(archivo) && QDir().mkpath(archivo));
  AlmacenAjustesQt ilegible;
  Presentacion& p = NuevaVentana(&ilegible).Ajustes();
  EXPECT_EQ(p.GetTamFuente(), 10.0f);
  EXPECT_TRUE(p.SetTamFuente(12)); // in force until the program ends
  EXPECT_EQ(S(avisos.join('/')), "No se pudieron leer los ajustes de presentación en «" +
                                     S(archivo) +
                                     "»: acceso denegado. Se usan los valores por defecto.");
}

TEST(AyudaTest, ContenidoVuelveAlIndice) {
  ASSERT_FALSE(VentanaAyuda::CarpetaAyuda().isEmpty()); // else a message box would wait
  VentanaAyuda ventana;
  ventana.Muestra("errores");
  EXPECT_EQ(ventana.Navegador()->source().fileName(), "errores.html");
  EXPECT_GT(ventana.Navegador()->toPlainText().size(), 300);
  QStringList pasos{"cmdContenido"};
  Maneja(ventana, pasos);
  EXPECT_EQ(ventana.Navegador()->source().fileName(), "index.html");
}

} // namespace

// One QApplication for all the tests, drawing off screen unless told otherwise.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (!Dialogos::CargaTraducciones()) return 1; // scripts/deps installs them
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
