#pragma once
// The statements of the program, one a line, by the database that they are for: "local", "central" or "cliente"; and
// files in which statements and their answers alternate.
#include <QFile>
#include <QStringList>

#include "platform/sql_banco.h"

inline QStringList leerLineas(const QString& archivo) {
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/") + archivo);
  QStringList s;
  if (!f.open(QIODevice::ReadOnly)) return s;
  for (const QString& linea : QString::fromUtf8(f.readAll()).split(u'\n')) {
    if (!linea.isEmpty() && (!linea.startsWith(u'#') || linea.startsWith(u"## "))) s << linea;
  }
  return s;
}
inline QStringList leerSentencias(const char* base) {
  return leerLineas(QStringLiteral("platform/sentencias/%1.sql").arg(QString::fromLatin1(base)));
}

// A line that is indented is the answer of the one before it, (nada) for no row; a statement without one must run.
template <class B>
void comprobarRespuestas(B& b, const QStringList& lineas) {
  QString sql, sale;
  const auto corre = [&] {
    EXPECT_FALSE(sale.startsWith(u"error")) << sql.toStdString() << "\n" << sale.toStdString();
  };
  for (const QString& linea : lineas) {
    if (!linea.startsWith(u"  ")) {
      corre();
      sale = b.respuesta(sql = linea);
      continue;
    }
    if (linea == u"  error") EXPECT_TRUE(sale.startsWith(u"error")) << sql.toStdString();
    else
      EXPECT_EQ(linea == u"  (nada)" ? QString() : linea.mid(2), sale) << sql.toStdString() << "\n"
                                                                       << b.cnn.traducir(sql).toStdString();
    sale.clear();
  }
  corre();
}
