#pragma once
// Controls are made with the object name by which the tests, and anyone
// reading the window's tree, find them.

#include <QString>

template <class T> T* Nombrado(T* control, const char* nombre) {
  control->setObjectName(QString::fromUtf8(nombre));
  return control;
}
