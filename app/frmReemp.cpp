#include "app/frmReemp.h"

#include <QPushButton>

#include "app/Dialogos.h"
#include "editor/Buscador.h"
#include "editor/Editor.h"

frmReemp::frmReemp(Buscador& buscador, Editor& editor, QWidget* padre)
    : QDialog(padre), buscador_(buscador), editor_(editor), campos_(this, editor, true) {
  setObjectName(QStringLiteral("frmReemp"));
  setWindowTitle(QStringLiteral("Reemplazar"));
  auto* cmdSí = new QPushButton(QStringLiteral("&Reemplazar"), this);
  cmdSí->setObjectName(QStringLiteral("cmdSí"));
  auto* cmdReplaceAll = new QPushButton(QStringLiteral("Reemplazar &todo"), this);
  cmdReplaceAll->setObjectName(QStringLiteral("cmdReplaceAll"));
  campos_.Dispone(this, {cmdSí, cmdReplaceAll});
  connect(cmdSí, &QPushButton::clicked, this, &frmReemp::ReemplazaUnoAUno);
  connect(cmdReplaceAll, &QPushButton::clicked, this, &frmReemp::ReemplazaTodo);

  buscador_.FijaPregunta([this](const std::string& texto) {
    // The match is selected: show it before asking about it.
    emit reemplazado();
    return Dialogos::Pregunta(this, QString::fromStdString(texto));
  });
}

frmReemp::~frmReemp() {
  // The handler points at this dialog; without one the Buscador answers
  // Cancelar, as it did before the dialog was opened.
  buscador_.FijaPregunta({});
}

int frmReemp::ReemplazaUnoAUno() { return Reemplaza(false); }
int frmReemp::ReemplazaTodo() { return Reemplaza(true); }

int frmReemp::Reemplaza(bool todos) {
  if (campos_.Vacio()) return 0;
  campos_.Recuerda();
  const Documento& doc = editor_.Doc();
  // Replacing all means the whole document. One by one starts where the
  // selection starts, so that a match just found is the first one offered.
  Posicion desde = todos ? Posicion{} : doc.HaySel() ? doc.InicioSel() : doc.Cursor();
  const int hechos = buscador_.Reemp(campos_.Texto(), campos_.Reemplazo(), desde.fila, desde.col,
                                     campos_.PalabraCompleta(), campos_.ModoMayusculas(),
                                     todos ? ModoReemplazo::Todos : ModoReemplazo::UnoAUno);
  emit reemplazado();
  return hechos;
}
