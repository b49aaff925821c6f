#pragma once
#include <QStringList>

class QWidget;

// What of a screen can't be seen whole, a line each, in Spanish: the screen itself larger than its display, a control
// that lies outside of what holds it, over another one, or smaller than it has to be, and a text that is cut.
QStringList faltasDePantalla(const QWidget& pantalla);
