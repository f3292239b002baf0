#pragma once
// Driving dialogs through their real widgets, shared by the desktop tests.

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lang/Cp1252.h"

namespace prueba {

template <class T> T* Control(const QWidget& padre, const char* nombre) {
  T* control = padre.findChild<T*>(QString::fromUtf8(nombre));
  if (!control) ADD_FAILURE() << "no hay control " << nombre;
  return control;
}

inline void Pulsa(QAbstractButton* boton) {
  if (boton) QTest::mouseClick(boton, Qt::LeftButton);
}

// Types each character as a key press carrying it; QTest::keyClicks knows
// only ASCII.
inline void Teclea(QWidget* control, const QString& texto) {
  for (const QChar c : texto)
    QTest::sendKeyEvent(QTest::Click, control, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// Replaces what the box holds, as a user does.
inline void Escribe(QLineEdit* caja, const QString& texto) {
  if (!caja) return;
  caja->selectAll();
  QTest::keyClick(caja, Qt::Key_Delete);
  Teclea(caja, texto);
}

// Rows given in UTF-8, as a document model stores them.
inline std::vector<std::string> FilasCp1252(const std::vector<std::string>& filas) {
  std::vector<std::string> bytes;
  for (const auto& f : filas)
    bytes.push_back(Utf8ACp1252(f));
  return bytes;
}

} // namespace prueba
