#pragma once
// Reads a workbook back as text: a line "## name|" a sheet, then one a row that holds something, "4|BOL|001|=2|", with
// "=" before a number, which has 15 digits as in every spreadsheet.
#include <zlib.h>

#include <QFile>
#include <QMap>
#include <QXmlStreamReader>

#include "platform/text/numero.h"

// The files of a zip archive, by the directory at its end; stored or deflated.
inline QMap<QString, QByteArray> leerZip(const QString& ruta) {
  QFile f(ruta);
  QMap<QString, QByteArray> archivos;
  if (!f.open(QIODevice::ReadOnly)) return archivos;
  const QByteArray b = f.readAll();
  const auto n = [&b](qsizetype donde, int bytes) {
    quint32 v = 0;
    for (int i = bytes; i-- > 0;) v = v << 8 | static_cast<uchar>(b[donde + i]);
    return static_cast<qsizetype>(v);
  };
  for (qsizetype d = b.indexOf("PK\1\2"); d >= 0; d = b.indexOf("PK\1\2", d + 1)) {
    const qsizetype datos = n(d + 42, 4), comienzo = datos + 30 + n(datos + 26, 2) + n(datos + 28, 2);
    QByteArray sale = b.mid(comienzo, n(d + 20, 4));
    if (n(d + 10, 2) == 8) {
      const QByteArray entra = sale;
      sale.resize(n(d + 24, 4));
      z_stream z{};
      z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(entra.data()));
      z.avail_in = static_cast<uInt>(entra.size());
      z.next_out = reinterpret_cast<Bytef*>(sale.data());
      z.avail_out = static_cast<uInt>(sale.size());
      if (inflateInit2(&z, -MAX_WBITS) != Z_OK) return {};
      (void)inflate(&z, Z_FINISH);
      (void)inflateEnd(&z);
    }
    archivos.insert(QString::fromUtf8(b.mid(d + 46, n(d + 28, 2))), sale);
  }
  return archivos;
}

inline QString textoDeHoja(const QByteArray& xml, const QStringList& textos) {
  QString todo;
  QXmlStreamReader x(xml);
  QStringList fila;
  QString tipo;
  while (!x.atEnd()) {
    x.readNext();
    if (x.isEndElement() && x.name() == u"row" && !fila.isEmpty()) todo += fila.join(u'|') + QStringLiteral("|\n");
    if (!x.isStartElement()) continue;
    if (x.name() == u"row") fila = {};
    if (x.name() == u"c") {
      const auto lugar = x.attributes().value(QLatin1String("r"));
      tipo = x.attributes().value(QLatin1String("t")).toString();
      if (fila.isEmpty()) fila << lugar.mid(1).toString();
      while (fila.size() < lugar[0].unicode() - u'A' + 1) fila << QString();
    }
    if (x.name() == u"v") {
      const QString v = x.readElementText();
      fila << (tipo == u"s" ? textos.value(v.toInt()) : u'=' + TextoDe(v.toDouble()));
    }
  }
  return todo;
}

inline QString leerXlsx(const QString& ruta) {
  const auto archivos = leerZip(ruta);
  QStringList textos, hojas;
  QXmlStreamReader t(archivos.value(QStringLiteral("xl/sharedStrings.xml")));
  while (!t.atEnd()) {
    if (t.readNext() == QXmlStreamReader::StartElement && t.name() == u"t") textos << t.readElementText();
  }
  QXmlStreamReader l(archivos.value(QStringLiteral("xl/workbook.xml")));
  while (!l.atEnd()) {
    if (l.readNext() == QXmlStreamReader::StartElement && l.name() == u"sheet") {
      hojas << l.attributes().value(QLatin1String("name")).toString();
    }
  }
  QString todo;
  for (int n = 0; n < hojas.size(); ++n) {
    todo += QStringLiteral("## ") + hojas[n] + QStringLiteral("|\n") +
            textoDeHoja(archivos.value(QStringLiteral("xl/worksheets/sheet%1.xml").arg(n + 1)), textos);
  }
  return todo;
}
