#pragma once
// The statements of the program, one a line, by the database that they are for: "local", "central" or "cliente".
#include <QFile>
#include <QStringList>

inline QStringList leerSentencias(const char* base) {
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/platform/sentencias/%1.sql").arg(QString::fromLatin1(base)));
  QStringList s;
  if (!f.open(QIODevice::ReadOnly)) return s;
  for (const QString& linea : QString::fromUtf8(f.readAll()).split(u'\n')) {
    if (!linea.isEmpty() && !linea.startsWith(u'#')) s << linea;
  }
  return s;
}
