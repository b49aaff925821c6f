#pragma once
// A day's rows from a file of statements under tests/golden, one a line.
#include <QFile>

#include "apoyo/puesto_prueba.h"

inline QByteArray leerGolden(const QString& archivo) {
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/golden/") + archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("missing");
}

inline void ejecutarArchivo(PuestoPrueba& p, const char* archivo) {
  for (const QString& linea : QString::fromUtf8(leerGolden(QLatin1String(archivo))).split(u'\n')) {
    if (!linea.isEmpty() && !linea.startsWith(u'#')) p.ejecuta(linea);
  }
}
