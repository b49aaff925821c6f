#pragma once
// Windows in a test: offscreen, one screen of 1024 x 768, the program's theme.
#include <QApplication>
#include <QTest>
#include <QWidget>

// A control by its name; fails the test when there is none.
QWidget* control(QWidget& ventana, const QString& nombre);
template <class T>
T* control(QWidget& ventana, const QString& nombre) {
  return qobject_cast<T*>(control(ventana, nombre));
}

// Keys go where the window system would send them: to whatever has the keyboard in the active window.
void tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores = {});
void escribe(const QString& texto);

// Shows the window, makes it the active one and lets it settle.
void mostrar(QWidget& ventana);

// The name of the control with the keyboard; "" for none.
QString foco();

// Leaves a picture of the window in the folder named by TARVOPOS_CAPTURAS; nothing when it isn't set.
void capturar(QWidget& ventana, const QString& nombre);
