#include "app/frmEditor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include "analysis/Analisis.h"
#include "app/Dialogos.h"
#include "app/Impresion.h"
#include "app/PanelAnalisis.h"
#include "app/VentanaAyuda.h"
#include "app/VistaEditor.h"
#include "app/frmAcercaDe.h"
#include "app/frmBuscar.h"
#include "app/frmConfig.h"
#include "app/frmPresentar.h"
#include "app/frmReemp.h"
#include "commands/OrdenDerivar.h"
#include "editor/ValoresSeguros.h"

namespace {

// A toolbar picture: the desktop theme's icon, or its symbolic form, which
// is all that some themes (Adwaita) have; otherwise a small drawn sign, so
// that every button shows something on any desktop.
QIcon IconoBoton(const QString& tema, const QString& signo, const QColor& color) {
  for (const QString& nombre : {tema, tema + QStringLiteral("-symbolic")})
    if (const QIcon deTema = QIcon::fromTheme(nombre); !tema.isEmpty() && !deTema.isNull())
      return deTema;
  QPixmap dibujo(32, 32);
  dibujo.fill(Qt::transparent);
  QPainter p(&dibujo);
  p.setRenderHint(QPainter::Antialiasing);
  p.setBrush(color);
  p.setPen(color.darker(150));
  p.drawRoundedRect(QRectF(2, 2, 28, 28), 6, 6);
  p.setPen(Qt::white);
  QFont f = p.font();
  f.setBold(true);
  f.setPixelSize(signo.size() > 2 ? 10 : 15);
  p.setFont(f);
  p.drawText(QRect(0, 0, 32, 32), Qt::AlignCenter, signo);
  return QIcon(dibujo);
}

// The toolbar's buttons, each one the menu command `accion` under the key the
// toolbar knows it by, with its picture and tip; a null key is a separator.
// Drawn pictures share a colour by kind of command.
struct BotonBarraH {
  const char *clave, *accion, *tema, *signo, *ayuda;
  QColor color;
};
const QColor kArchivo(70, 110, 170), kPortapapeles(90, 140, 90), kBorrado(170, 80, 70),
    kHistorial(120, 100, 160), kDerivada(200, 120, 30);
const BotonBarraH kBotonesBarra[] = {
    {"Nuevo", "Nuevo", "document-new", "N", "Nuevo", kArchivo},
    {"Abrir", "Abrir", "document-open", "A", "Abrir", kArchivo},
    {"Guardar", "Guardar", "document-save", "G", "Guardar", kArchivo},
    {"Imprimir", "Imprimir", "document-print", "I", "Imprimir", kArchivo},
    {},
    {"Cortar", "Cortar", "edit-cut", "Cr", "Cortar", kPortapapeles},
    {"Copiar", "Copiar", "edit-copy", "Cp", "Copiar", kPortapapeles},
    {"Pegar", "Pegar", "edit-paste", "P", "Pegar", kPortapapeles},
    {"Eliminar", "Eliminar", "edit-delete", "X", "Eliminar", kBorrado},
    {},
    {"Deshacer", "Deshacer", "edit-undo", "↶", "Deshacer", kHistorial},
    {"Rehacer", "Rehacer", "edit-redo", "↷", "Rehacer", kHistorial},
    {},
    {"Resolver", "Derivar", "", "d/dx", "Derivar", kDerivada},
    {"Ayuda", "Contenido", "help-contents", "?", "Ayuda", kArchivo},
};

// "Lín: 3, Col: 12": each number with the blank of a non-negative sign.
QString TextoPosicion(const Posicion& c) {
  return QStringLiteral("Lín: %1, Col: %2").arg(c.fila + 1).arg(c.col + 1);
}

QString NombreEjecutable() {
  const QString nombre = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
  return nombre.isEmpty() ? QStringLiteral("mirkal") : nombre;
}

} // namespace

// Where the choice to write the simplified derivative is kept.
constexpr const char* kSeccionAnalisis = "Analisis";
constexpr const char* kClaveSimplificada = "Simplificada";
constexpr const char* kClavePanel = "Panel";

// The program's icon is compiled into this static library, whose resources
// the linker would leave out unless something asks for them by name.
static void CargaRecursos() { Q_INIT_RESOURCE(mirkal); }

frmEditor::frmEditor(AlmacenAjustes& almacen, QWidget* padre)
    : QMainWindow(padre), almacen_(almacen), presentacion_(almacen), buscador_(editor_) {
  setObjectName(QStringLiteral("frmEditor"));
  CargaRecursos();
  setWindowIcon(QIcon(QStringLiteral(":/mirkal.svg")));
  // Under a bare window manager no desktop names an icon theme nor where
  // themes live: Debian's Adwaita, which the program depends on, stands in,
  // looked for where the system keeps its data.
  if (QIcon::themeName().isEmpty() || QIcon::themeName() == QStringLiteral("hicolor")) {
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() +
                               QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                         QStringLiteral("icons"),
                                                         QStandardPaths::LocateDirectory));
    QIcon::setThemeName(QStringLiteral("Adwaita"));
  }
  CargaPresentacion();
  picEdit_ = new VistaEditor(editor_, presentacion_, this);
  setCentralWidget(picEdit_);
  config_ = new frmConfig(this);
  config_->Simplificada(almacen_.Lee(kSeccionAnalisis, kClaveSimplificada, "0") == "1");
  CreaAcciones();
  CreaPanel();
  CreaMenus();
  CreaBarra();
  CreaEstado();
  picEdit_->FijaMenuContextual(menuEdicion_);
  Conecta();
  ArrancaRelojes();

  NuevoDocumento(editor_, archivo_);
  resize(860, 560);
  TrasCambio();
  picEdit_->setFocus();
}

// The settings are loaded before the text view exists: their effects reach
// the editor now and the view when it is built, which reads them itself.
void frmEditor::CargaPresentacion() {
  presentacion_.AlMensaje = [this](const std::string& m) {
    Dialogos::Aviso(this, QString::fromStdString(m));
  };
  presentacion_.Carga();
  PasaColores();
  editor_.EspTab(EspTabSegura(presentacion_.GetEspTab()));
  presentacion_.AlAplicar = [this](EfectoPresentacion e) { Aplica(e); };
}

// The colours the editor paints its cells with.
void frmEditor::PasaColores() {
  editor_.Colores(ColorSeguro(presentacion_.GetColorLetra(), kDefColorLetra),
                  ColorSeguro(presentacion_.GetColorPC(), kDefColorPC),
                  ColorSeguro(presentacion_.GetColorComment(), kDefColorComment));
}

void frmEditor::Conecta() {
  buscador_.FijaAviso(
      [this](const std::string& m) { Dialogos::Aviso(this, QString::fromStdString(m)); });
  // Moving the cursor with Shift, dragging or a search makes or drops a
  // selection without changing the text: Cortar, Copiar and Eliminar follow
  // at once, not at the next tick of the general timer.
  connect(picEdit_, &VistaEditor::cursorMovido, this, [this] {
    ActualizaEstado();
    ActualizaSeleccion();
  });
  connect(picEdit_, &VistaEditor::documentoCambiado, this, &frmEditor::TrasCambio);
  connect(picEdit_, &VistaEditor::ayudaPedida, this, [this] { Contenido(); });
  connect(picEdit_, &VistaEditor::aviso, this,
          [this](const QString& t) { Dialogos::Aviso(this, t); });
  connect(config_, &frmConfig::ayudaPedida, this, [this](const QString& tema) { Contenido(tema); });
}

void frmEditor::ArrancaRelojes() {
  RelojCursor.setObjectName(QStringLiteral("RelojCursor"));
  RelojGeneral.setObjectName(QStringLiteral("RelojGeneral"));
  connect(&RelojCursor, &QTimer::timeout, picEdit_, &VistaEditor::ParpadeaCursor);
  connect(&RelojGeneral, &QTimer::timeout, this, [this] {
    ActualizaEstado();
    ActualizaComandos(); // the clipboard poll that enables Pegar
  });
  RelojCursor.start(530);
  RelojGeneral.start(1000);
}

// The panel is hidden as the window goes: that is no choice of the user's to
// remember, and this window is no longer whole to hear of it.
frmEditor::~frmEditor() { panel_->toggleViewAction()->disconnect(this); }

QAction* frmEditor::NuevaAccion(const QString& nombre, const QString& texto,
                                const QKeySequence& atajo, std::function<void()> orden) {
  auto* a = new QAction(texto, this);
  a->setObjectName(nombre);
  if (!atajo.isEmpty()) a->setShortcut(atajo);
  connect(a, &QAction::triggered, this, std::move(orden));
  acciones_.insert(nombre, a);
  return a;
}

void frmEditor::CreaAcciones() {
  NuevaAccion("Nuevo", "&Nuevo", QKeySequence::New, [this] { Nuevo(); });
  NuevaAccion("Abrir", "&Abrir...", QKeySequence::Open, [this] { Abrir(); });
  NuevaAccion("Guardar", "&Guardar", QKeySequence::Save, [this] { Guardar(); });
  // Written out: the standard key of Guardar como is none on some desktops.
  NuevaAccion("GuardarComo", "Guardar &como...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
              [this] { GuardarComo(); });
  NuevaAccion("Imprimir", "&Imprimir...", QKeySequence::Print, [this] { Imprimir(); });
  NuevaAccion("VistaPrevia", "&Vista previa...", QKeySequence(),
              [this] { VistaPreviaImpresion(); });
  NuevaAccion("Salir", "&Salir", QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { Salir(); });
  NuevaAccion("Deshacer", "No se puede deshacer", QKeySequence::Undo, [this] { Deshacer(); });
  // Ctrl+Y as most editors, and Ctrl+Mayús+Z as the desktops have it; both
  // written out, as the platform's standard list differs between desktops.
  NuevaAccion("Rehacer", "No se puede rehacer", QKeySequence(Qt::CTRL | Qt::Key_Y),
              [this] { Rehacer(); })
      ->setShortcuts(
          {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
  NuevaAccion("Cortar", "Cor&tar", QKeySequence::Cut, [this] { Cortar(); });
  NuevaAccion("Copiar", "&Copiar", QKeySequence::Copy, [this] { Copiar(); });
  NuevaAccion("Pegar", "&Pegar", QKeySequence::Paste, [this] { Pegar(); });
  NuevaAccion("Eliminar", "&Eliminar", QKeySequence(), [this] { Eliminar(); });
  NuevaAccion("SeleccionarTodo", "Seleccionar &todo", QKeySequence::SelectAll,
              [this] { SeleccionarTodo(); });
  NuevaAccion("Buscar", "&Buscar...", QKeySequence::Find, [this] { Buscar(); });
  NuevaAccion("Reemplazar", "&Reemplazar...", QKeySequence(Qt::CTRL | Qt::Key_H),
              [this] { Reemplazar(); });
  NuevaAccion("BuscarSiguiente", "Buscar &siguiente", QKeySequence(Qt::Key_F3),
              [this] { BuscarSiguiente(); });
  NuevaAccion("Derivar", "&Derivar", QKeySequence(Qt::Key_F5), [this] { Derivar(); });
  NuevaAccion("DerivarPP", "Derivar &paso a paso", QKeySequence(Qt::SHIFT | Qt::Key_F5),
              [this] { DerivarPP(); });
  NuevaAccion("Configuración", "&Configuración...", QKeySequence(Qt::Key_F6),
              [this] { Configurar(); });
  NuevaAccion("Editor", "&Editor...", QKeySequence(), [this] { EditorPresentacion(); });
  NuevaAccion("Contenido", "&Contenido", QKeySequence(), [this] { Contenido(); });
  NuevaAccion("AcercaDe", "&Acerca de Mirkal", QKeySequence(), [this] { AcercaDe(); });
}

// The analysis panel, shown or hidden as it was last time.
void frmEditor::CreaPanel() {
  panel_ = new PanelAnalisis(this);
  addDockWidget(Qt::RightDockWidgetArea, panel_);
  QAction* ver = panel_->toggleViewAction();
  ver->setObjectName(QStringLiteral("PanelAnalisis"));
  ver->setText(QStringLiteral("Panel de &análisis"));
  ver->setShortcut(QKeySequence(Qt::Key_F7));
  acciones_.insert(QStringLiteral("PanelAnalisis"), ver);
  panel_->setVisible(almacen_.Lee(kSeccionAnalisis, kClavePanel, "0") == "1");
  connect(ver, &QAction::toggled, this, [this](bool visto) {
    almacen_.Escribe(kSeccionAnalisis, kClavePanel, visto ? "1" : "0");
  });
}

void frmEditor::CreaMenus() {
  auto añade = [this](QMenu* menu, std::initializer_list<const char*> nombres) {
    for (const char* n : nombres) {
      if (QString(n).isEmpty())
        menu->addSeparator();
      else
        menu->addAction(acciones_.value(n));
    }
  };
  QMenu* archivo = menuBar()->addMenu("&Archivo");
  archivo->setObjectName("Archivo");
  añade(archivo,
        {"Nuevo", "Abrir", "Guardar", "GuardarComo", "", "VistaPrevia", "Imprimir", "", "Salir"});
  menuEdicion_ = menuBar()->addMenu("&Edición");
  menuEdicion_->setObjectName("Edición");
  añade(menuEdicion_, {"Deshacer", "Rehacer", "", "Cortar", "Copiar", "Pegar", "Eliminar", "",
                       "SeleccionarTodo", "", "Buscar", "Reemplazar", "BuscarSiguiente"});
  QMenu* opciones = menuBar()->addMenu("&Opciones");
  opciones->setObjectName("Opciones");
  añade(opciones, {"Derivar", "DerivarPP", "", "Configuración", "Editor", "", "PanelAnalisis"});
  QMenu* ayuda = menuBar()->addMenu("A&yuda");
  ayuda->setObjectName("Ayuda");
  añade(ayuda, {"Contenido", "", "AcercaDe"});
  // A menu opened from the keyboard takes the keyboard to the menu bar, and
  // closed with Escape leaves it there: the next letters typed would be read
  // as the menu bar's mnemonics (the "y" of "y = x" opening Ayuda), also
  // after a dialog, which hands the keyboard back to where it was. As on any
  // Linux desktop, a menu that closes gives the keyboard back to the text,
  // unless another menu of the bar opens in its place.
  for (QMenu* menu : {archivo, menuEdicion_, opciones, ayuda})
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
      QTimer::singleShot(0, this, [this, menu] {
        QWidget* abierto = QApplication::activePopupWidget();
        if ((!abierto || abierto == menu) && menuBar()->hasFocus())
          picEdit_->setFocus(Qt::OtherFocusReason);
      });
    });
}

void frmEditor::CreaBarra() {
  barraH_ = addToolBar("BarraH");
  barraH_->setObjectName("BarraH");
  barraH_->setMovable(false);
  for (const BotonBarraH& b : kBotonesBarra) {
    if (b.clave == nullptr) {
      barraH_->addSeparator();
      continue;
    }
    // The menu's own command: enabling, disabling and the shortcut are its.
    QAction* a = acciones_.value(b.accion);
    a->setIcon(IconoBoton(b.tema, QString::fromUtf8(b.signo), b.color));
    a->setIconVisibleInMenu(false);
    a->setToolTip(QString::fromUtf8(b.ayuda));
    a->setData(QString::fromLatin1(b.clave));
    barraH_->addAction(a);
  }
}

void frmEditor::CreaEstado() {
  posCursor_ = new QLabel(this);
  posCursor_->setObjectName("PosCursor");
  fecha_ = new QLabel(this);
  fecha_->setObjectName("Fecha");
  hora_ = new QLabel(this);
  hora_->setObjectName("Hora");
  statusBar()->setObjectName("BarraEstado");
  statusBar()->addWidget(posCursor_, 1);
  statusBar()->addPermanentWidget(fecha_);
  statusBar()->addPermanentWidget(hora_);
}

void frmEditor::ActualizaEstado() {
  posCursor_->setText(TextoPosicion(editor_.Doc().Cursor()));
  const QDateTime ahora = QDateTime::currentDateTime();
  fecha_->setText(ahora.toString("dd/MM/yyyy"));
  hora_->setText(ahora.toString("HH:mm:ss"));
}

void frmEditor::ActualizaComandos() {
  const Historial& h = editor_.Hist();
  QAction* deshacer = acciones_.value("Deshacer");
  QAction* rehacer = acciones_.value("Rehacer");
  deshacer->setText(QString::fromStdString(h.TextoDeshacer()));
  deshacer->setEnabled(h.PuedeDeshacer());
  rehacer->setText(QString::fromStdString(h.TextoRehacer()));
  rehacer->setEnabled(h.PuedeRehacer());
  const QClipboard* portapapeles = QApplication::clipboard();
  const QMimeData* datos = portapapeles ? portapapeles->mimeData() : nullptr;
  const bool hayTexto = datos && datos->hasText();
  acciones_.value("Pegar")->setEnabled(hayTexto);
  ActualizaSeleccion();
}

// Cortar, Copiar and Eliminar, menu items and toolbar buttons, are enabled
// together exactly while there is a selection. The clipboard is not read
// here, so that this can run on every cursor move.
void frmEditor::ActualizaSeleccion() {
  const bool haySel = editor_.Doc().HaySel();
  for (const char* n : {"Cortar", "Copiar", "Eliminar"})
    acciones_.value(n)->setEnabled(haySel);
}

void frmEditor::ActualizaTitulo() {
  setWindowTitle(QString::fromStdString(archivo_.nombre) + (editor_.Modificado() ? "*" : "") +
                 " - Mirkal");
}

void frmEditor::TrasCambio() {
  ActualizaComandos();
  ActualizaEstado();
  ActualizaTitulo();
}

void frmEditor::Aplica(EfectoPresentacion efecto) {
  switch (efecto) {
  case EfectoPresentacion::Fuente:
    picEdit_->AplicaFuente();
    break;
  case EfectoPresentacion::BarrasDesplazamiento:
    picEdit_->AplicaBarras();
    break;
  case EfectoPresentacion::SoloGuardado:
    editor_.EspTab(EspTabSegura(presentacion_.GetEspTab()));
    break;
  default:
    PasaColores();
    editor_.TomaCambios();
    picEdit_->ActView();
  }
}

// ---------------------------------------------------------------------------
// Files

bool frmEditor::PreguntaGuardar() {
  if (!editor_.Modificado()) return true;
  switch (Dialogos::Pregunta(this, "Archivo cargado no fue guardado. ¿Guardar ahora?")) {
  case Respuesta::Si:
    GuardarComo();
    return !editor_.Modificado();
  case Respuesta::No:
    return true;
  default:
    return false;
  }
}

void frmEditor::Nuevo() {
  if (!PreguntaGuardar()) return;
  NuevoDocumento(editor_, archivo_);
  picEdit_->Actualiza();
}

void frmEditor::Abrir() {
  if (!PreguntaGuardar()) return;
  const QString ruta = Dialogos::NombreAbrir(this, ultimaCarpeta_);
  if (!ruta.isEmpty()) AbreArchivo(ruta);
}

bool frmEditor::AbreArchivo(const QString& ruta) {
  std::string error;
  if (!CargaArchivo(editor_, archivo_, ruta.toStdString(), error)) {
    Dialogos::Aviso(this, QString::fromStdString(error));
    return false;
  }
  ultimaCarpeta_ = QFileInfo(ruta).absolutePath();
  picEdit_->Actualiza();
  return true;
}

void frmEditor::RevisaDisco() {
  const QString nombre = QString::fromStdString(archivo_.nombre);
  switch (AvisaCambioEnDisco(archivo_)) {
  case CambioEnDisco::Ninguno:
    return;
  case CambioEnDisco::Borrado:
    Dialogos::Aviso(this, "El archivo «" + nombre +
                              "» ya no está en el disco. El documento sigue abierto; "
                              "Guardar lo volverá a escribir.");
    return;
  case CambioEnDisco::Cambiado: {
    QString texto = "El archivo «" + nombre + "» ha cambiado en el disco. ¿Volver a cargarlo?";
    if (editor_.Modificado()) texto += " Se perderán los cambios que no se han guardado.";
    if (Dialogos::Pregunta(this, texto) == Respuesta::Si)
      AbreArchivo(QString::fromStdString(archivo_.ruta));
    TrasCambio();
    return;
  }
  }
}

void frmEditor::changeEvent(QEvent* evento) {
  QMainWindow::changeEvent(evento);
  if (evento->type() == QEvent::ActivationChange && isActiveWindow()) RevisaDisco();
}

bool frmEditor::Guardar() {
  if (!archivo_.TieneArchivo()) return GuardarComo();
  // Another program changed or deleted the file since it was opened: the
  // user decides before anything on disk is replaced.
  if (CambiadoEnDisco(archivo_)) {
    // This question tells of the change: the window, active again when the
    // box closes, must not ask about it a second time.
    AvisaCambioEnDisco(archivo_);
    const QString nombre = QString::fromStdString(archivo_.nombre);
    switch (Dialogos::Pregunta(this, "El archivo «" + nombre +
                                         "» ha cambiado en el disco desde que se abrió o guardó. "
                                         "¿Guardar encima los cambios del documento?")) {
    case Respuesta::Si:
      break;
    case Respuesta::No:
      return GuardarComo();
    default:
      return false;
    }
  }
  std::string error;
  if (!GuardaArchivo(editor_, archivo_, archivo_.ruta, error)) {
    Dialogos::Aviso(this, QString::fromStdString(error));
    return false;
  }
  TrasCambio();
  return true;
}

bool frmEditor::GuardarComo() {
  const QString ruta = Dialogos::NombreGuardar(
      this, QString::fromStdString(archivo_.TieneArchivo() ? archivo_.ruta : archivo_.nombre),
      ultimaCarpeta_);
  if (ruta.isEmpty()) return false;
  std::string error;
  if (!GuardaArchivo(editor_, archivo_, ruta.toStdString(), error)) {
    Dialogos::Aviso(this, QString::fromStdString(error));
    return false;
  }
  ultimaCarpeta_ = QFileInfo(ruta).absolutePath();
  TrasCambio();
  return true;
}

void frmEditor::Imprimir() {
  QPrinter impresora(QPrinter::HighResolution);
  QPrintDialog dialogo(&impresora, this);
  dialogo.setWindowTitle("Imprimir");
  if (dialogo.exec() == QDialog::Accepted) ImprimeEn(impresora);
}

void frmEditor::ImprimeEn(QPrinter& impresora) {
  if (!ImprimeDocumento(impresora, editor_.Doc(), QString::fromStdString(archivo_.nombre)))
    Dialogos::Aviso(this, "No se pudo abrir la impresora.");
}

void frmEditor::VistaPreviaImpresion() {
  VistaPrevia(this, editor_.Doc(), QString::fromStdString(archivo_.nombre));
}

void frmEditor::Salir() { close(); }

void frmEditor::closeEvent(QCloseEvent* evento) {
  if (PreguntaGuardar())
    evento->accept();
  else
    evento->ignore();
}

// ---------------------------------------------------------------------------
// Editing

void frmEditor::Deshacer() {
  editor_.Deshacer();
  picEdit_->Actualiza();
}

void frmEditor::Rehacer() {
  editor_.Rehacer();
  picEdit_->Actualiza();
}

void frmEditor::Cortar() {
  if (!editor_.EditaCmd(kCortar).hecho) return;
  QApplication::clipboard()->setText(QString::fromStdString(editor_.CortadoCopiado()));
  picEdit_->Actualiza();
}

void frmEditor::Copiar() {
  if (!editor_.Doc().HaySel()) return;
  QApplication::clipboard()->clear();
  QApplication::clipboard()->setText(QString::fromStdString(editor_.Doc().GetTextSel()));
  ActualizaComandos();
}

void frmEditor::Pegar() {
  const QString texto = QApplication::clipboard()->text();
  if (texto.isEmpty()) return;
  const Resultado r = editor_.EditaCmd(kPegar, texto.toStdString());
  if (!r.aviso.empty()) Dialogos::Aviso(this, QString::fromStdString(r.aviso));
  picEdit_->Actualiza();
}

void frmEditor::Eliminar() {
  editor_.EditaCmd(kEliminarSel);
  picEdit_->Actualiza();
}

void frmEditor::SeleccionarTodo() {
  Documento& doc = editor_.Doc();
  const int ultima = doc.NumFilas() - 1;
  doc.MueveCursor(ultima, doc.LongFila(ultima));
  doc.FijaSeleccion({0, 0}, doc.Cursor());
  picEdit_->ActView();
  TrasCambio();
}

void frmEditor::Buscar() {
  frmBuscar dialogo(buscador_, editor_, this);
  connect(&dialogo, &frmBuscar::buscado, this, [this] { picEdit_->Actualiza(); });
  dialogo.exec();
  picEdit_->Actualiza();
}

void frmEditor::Reemplazar() {
  frmReemp dialogo(buscador_, editor_, this);
  connect(&dialogo, &frmReemp::reemplazado, this, [this] { picEdit_->Actualiza(); });
  dialogo.exec();
  picEdit_->Actualiza();
}

void frmEditor::BuscarSiguiente() {
  if (!buscador_.HayBusqueda()) return Buscar();
  buscador_.BuscarSiguiente();
  picEdit_->Actualiza();
}

// ---------------------------------------------------------------------------
// Options and help

void frmEditor::Configurar() {
  if (config_->exec() == QDialog::Accepted)
    almacen_.Escribe(kSeccionAnalisis, kClaveSimplificada, config_->Simplificada() ? "1" : "0");
}

void frmEditor::EditorPresentacion() {
  frmPresentar dialogo(presentacion_, this);
  dialogo.exec();
}

void frmEditor::Derivar() { Deriva(false); }
void frmEditor::DerivarPP() { Deriva(true); }

// The derivation commands: the whole document is the equation; the outcome
// goes at its end as one change, so that one undo takes it back.
void frmEditor::Deriva(bool pasoAPaso) {
  Documento& doc = editor_.Doc();
  const int ultima = doc.NumFilas() - 1;
  doc.QuitaSeleccion();
  doc.MueveCursor(ultima, doc.LongFila(ultima));
  const SalidaDerivar salida = motor_.Ejecuta(doc.TextoDocumento(), config_->Config(), pasoAPaso);
  if (salida.ErrNumber != 0) {
    if (salida.ErrLin != -1) doc.SelectText(salida.ErrLin, salida.ErrCol, salida.ErrLen);
    picEdit_->Actualiza();
    Dialogos::Aviso(this, QString::fromStdString(salida.ErrDesc), NombreEjecutable());
    return;
  }
  std::string texto = salida.Texto();
  // On request, dy/dx in lowest terms after the result, in the same change.
  if (config_->Simplificada()) {
    Analisis analisis;
    analisis.VarDep(config_->Config().VarDep);
    analisis.VarInd(config_->Config().VarInd);
    const ResultadoAnalisis a = analisis.Analiza(doc.TextoDocumento());
    if (a.error.empty())
      texto +=
          "\r\n'd" + analisis.VarDep() + "/d" + analisis.VarInd() + " simplificada = " + a.derivada;
  }
  panel_->Analiza(doc.TextoDocumento(), config_->Config().VarDep, config_->Config().VarInd);
  const Resultado r = editor_.EscribeTexto(texto);
  if (!r.aviso.empty()) Dialogos::Aviso(this, QString::fromStdString(r.aviso));
  picEdit_->Actualiza();
}

void frmEditor::Contenido(const QString& tema) {
  if (!ayuda_) ayuda_ = new VentanaAyuda(this);
  ayuda_->Muestra(tema);
}

void frmEditor::AcercaDe() {
  frmAcercaDe dialogo(this);
  dialogo.exec();
}
