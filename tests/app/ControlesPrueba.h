#pragma once
// What the desktop tests share: controls found by name and driven as a user
// drives them, and a fixture that answers every message box and file dialog
// through Dialogos, so that no test ever waits on one.

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/CamposBusquedaQt.h"
#include "app/Dialogos.h"

namespace prueba {

inline std::string S(const QString& texto) { return texto.toStdString(); }

template <class T> T* Control(const QWidget& padre, const char* nombre) {
  T* control = padre.findChild<T*>(QString::fromUtf8(nombre));
  if (!control) ADD_FAILURE() << "no hay control " << nombre;
  return control;
}

inline void Pulsa(QAbstractButton* boton) {
  if (boton) QTest::mouseClick(boton, Qt::LeftButton);
}

// Replaces what the box holds, as a user does: each character is a key press
// carrying it, since QTest::keyClicks knows only ASCII.
inline void Escribe(QLineEdit* caja, const QString& texto) {
  if (!caja) return;
  caja->selectAll();
  QTest::keyClick(caja, Qt::Key_Delete);
  for (const QChar c : texto)
    QTest::sendKeyEvent(QTest::Click, caja, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// Records every message and question and answers them from `respuestas`
// (then `sinPrevista`); the file dialogs return rutaAbrir and rutaGuardar.
class ConDialogos : public ::testing::Test {
protected:
  void SetUp() override {
    Dialogos::Respondedor r;
    r.aviso = [this](const QString&, const QString& texto) {
      avisos.push_back(S(texto));
      if (alAvisar) alAvisar();
    };
    r.pregunta = [this](const QString& texto) {
      preguntas.push_back(S(texto));
      if (alPreguntar) alPreguntar();
      if (respuestas.empty()) return sinPrevista;
      const Respuesta primera = respuestas.front();
      respuestas.erase(respuestas.begin());
      return primera;
    };
    r.nombreAbrir = [this] { return rutaAbrir; };
    r.nombreGuardar = [this](const QString& propuesto) {
      propuestos.push_back(S(propuesto));
      return rutaGuardar;
    };
    Dialogos::FijaRespondedor(r);
    UltimaBusqueda() = {};
  }
  void TearDown() override { Dialogos::FijaRespondedor({}); }

  std::vector<std::string> avisos, preguntas, propuestos;
  std::vector<Respuesta> respuestas;
  Respuesta sinPrevista = Respuesta::Cancelar;
  QString rutaAbrir, rutaGuardar;
  std::function<void()> alAvisar, alPreguntar;
};

} // namespace prueba
