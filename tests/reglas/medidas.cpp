#include "medidas.h"

#include <QRegularExpression>

namespace {

qsizetype sangria(const QString& linea) {
  qsizetype n = 0;
  while (n < linea.size() && linea[n] == u' ') ++n;
  return n;
}

// The first line of a body that stands in a namespace or in a class: a signature that ends with "{".
bool abreFuncion(const QString& linea) {
  static const QRegularExpression otra(
      R"(^\s*(\}|if\b|for\b|while\b|switch\b|namespace\b|struct\b|class\b|enum\b|union\b|extern\b|#))");
  static const QRegularExpression firma(R"(\)[^;=]*\{$)");
  return sangria(linea) <= 2 && !otra.match(linea).hasMatch() && firma.match(linea).hasMatch();
}

}  // namespace

QStringList excesos(const QString& ruta, const QString& texto) {
  QStringList r;
  QStringList lineas = texto.split(u'\n');
  if (!lineas.isEmpty() && lineas.last().isEmpty()) lineas.removeLast();
  if (lineas.size() > kLineasArchivo) r += QStringLiteral("%1: %2 lines").arg(ruta).arg(lineas.size());
  for (qsizetype i = 0; i < lineas.size(); ++i) {
    if (lineas[i].size() > kColumnas)
      r += QStringLiteral("%1:%2: %3 columns").arg(ruta).arg(i + 1).arg(lineas[i].size());
  }
  for (qsizetype i = 0; i < lineas.size(); ++i) {
    if (!abreFuncion(lineas[i])) continue;
    const QString cierre = QString(sangria(lineas[i]), u' ') + u'}';
    qsizetype fin = i + 1;
    while (fin < lineas.size() && !lineas[fin].startsWith(cierre)) ++fin;
    if (fin - i + 1 > kLineasFuncion) {
      r += QStringLiteral("%1:%2: a function of %3 lines").arg(ruta).arg(i + 1).arg(fin - i + 1);
    }
    i = fin;
  }
  return r;
}
