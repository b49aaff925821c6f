#pragma once
// Keys and mouse, sent as the window system would: shortcuts first, then the widget.
#include <QKeyCombination>
#include <QPoint>
#include <QString>
#include <optional>

class QWidget;

struct TeclaGuion {
  QKeyCombination tecla;
  QString texto;  // what the key types, "" for none
};

// "F5", "Ctrl+Return", "Shift+F1", "Alt+R", "a", "Ñ", "Ctrl++". "Enter" and "Return" are the same key. Nothing for a
// name that is no key.
std::optional<TeclaGuion> leerTecla(const QString& nombre);
// The key that types the character at the front of `texto`, which is taken off.
TeclaGuion tomarCaracter(QString& texto);

// Press and release, at a time in milliseconds, 0 for none told. The widget may die in between.
void pulsarTecla(QWidget* destino, const TeclaGuion& tecla, quint64 momento_ms = 0);
void pulsarRaton(QWidget* destino, QPoint lugar);
// A click and the second press of a double click.
void pulsarDosVeces(QWidget* destino, QPoint lugar);
