#pragma once
// The measures that a source has to keep: 400 lines a file, 80 a function, 120 columns.
#include <QString>
#include <QStringList>

constexpr int kLineasArchivo = 400, kLineasFuncion = 80, kColumnas = 120;

// What one source breaks of them, each with `ruta` and its line.
QStringList excesos(const QString& ruta, const QString& texto);
