#pragma once
// frmEditor: the main window. It owns the window-free editor, the document's
// file state, the presentation settings and the derivation settings, draws
// the document through its text view and dispatches the menu, toolbar and
// keyboard commands to them. Every command is a public member, so that tests
// drive the window exactly as the menus do.

#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QTimer>
#include <functional>
#include <memory>

#include "commands/OrdenDerivar.h"
#include "editor/AlmacenAjustes.h"
#include "editor/Buscador.h"
#include "editor/Editor.h"
#include "editor/Presentacion.h"
#include "files/ArchivoDocumento.h"

class QAction;
class QPrinter;
class QToolBar;
class VistaEditor;
class frmConfig;
class PanelAnalisis;
class VentanaAyuda;

class frmEditor : public QMainWindow {
  Q_OBJECT
public:
  // `almacen` holds the presentation settings (QSettings in the program, a
  // memory store in tests); it must outlive the window.
  explicit frmEditor(AlmacenAjustes& almacen, QWidget* padre = nullptr);
  ~frmEditor() override;

  Editor& Modelo() { return editor_; }
  const EstadoArchivo& Archivo() const { return archivo_; }
  Presentacion& Ajustes() { return presentacion_; }
  frmConfig& Configuracion() { return *config_; }
  PanelAnalisis* Panel() const { return panel_; }
  VistaEditor* Vista() const { return picEdit_; }
  QAction* Accion(const QString& nombre) const { return acciones_.value(nombre); }
  QToolBar* BarraH() const { return barraH_; }
  QString PanelPosCursor() const { return posCursor_->text(); }

  // Opens a document file; false, after telling the user why, when it fails.
  bool AbreArchivo(const QString& ruta);
  // Prints every row of the document, one line each, with page breaks.
  void ImprimeEn(QPrinter& impresora);
  // The save question; whether the caller may go on.
  bool PreguntaGuardar();
  // Tells the user, once, that another program changed or deleted the open
  // file, and offers to read it again. Runs whenever the window becomes active.
  void RevisaDisco();

public slots:
  void Nuevo();
  void Abrir();
  bool Guardar();
  bool GuardarComo();
  void Imprimir();
  void VistaPreviaImpresion();
  void Salir();
  void Deshacer();
  void Rehacer();
  void Cortar();
  void Copiar();
  void Pegar();
  void Eliminar();
  void SeleccionarTodo();
  void Buscar();
  void Reemplazar();
  void BuscarSiguiente();
  void Configurar();
  void EditorPresentacion();
  void Derivar();
  void DerivarPP();
  void Contenido(const QString& tema = QStringLiteral("contenido"));
  void AcercaDe();

protected:
  void closeEvent(QCloseEvent* evento) override;
  void changeEvent(QEvent* evento) override;

private:
  void CargaPresentacion();
  void PasaColores();
  void Conecta();
  void ArrancaRelojes();
  void CreaAcciones();
  void CreaMenus();
  void CreaPanel();
  void CreaBarra();
  void CreaEstado();
  void Deriva(bool pasoAPaso);
  void ActualizaComandos();
  void ActualizaSeleccion();
  void ActualizaEstado();
  void ActualizaTitulo();
  void Aplica(EfectoPresentacion efecto);
  void TrasCambio();
  QAction* NuevaAccion(const QString& nombre, const QString& texto, const QKeySequence& atajo,
                       std::function<void()> orden);

  Editor editor_;
  EstadoArchivo archivo_;
  AlmacenAjustes& almacen_; // the settings kept between runs
  Presentacion presentacion_;
  Buscador buscador_;
  MotorDerivar motor_; // one engine for the whole session
  VistaEditor* picEdit_ = nullptr;
  frmConfig* config_ = nullptr;
  PanelAnalisis* panel_ = nullptr;
  VentanaAyuda* ayuda_ = nullptr;
  QToolBar* barraH_ = nullptr;
  QLabel* posCursor_ = nullptr;
  QLabel* fecha_ = nullptr;
  QLabel* hora_ = nullptr;
  QTimer RelojCursor;
  QTimer RelojGeneral;
  QMap<QString, QAction*> acciones_;
  QString ultimaCarpeta_; // where the last document was opened or saved
  QMenu* menuEdicion_ = nullptr;
};
