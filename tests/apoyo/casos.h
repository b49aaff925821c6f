#pragma once
// Cases that are kept as text, one a line, beside the tests of their room: tests/ROOM/casos/NAME.casos.
//   # a comment, as far as the end of its line
//   porque            | sql          | sale       <- the first line that is no comment names the columns
//   division          | SELECT 5/2   | 2.5        <- a bar between blanks parts two fields
// Blanks around a field don't count; one that needs them stands in double quotes. \n, \r and \t are as in C++.
// "~" is a field that the case doesn't have.
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

class CasoEscrito {
 public:
  CasoEscrito(QString lugar, const QStringList& columnas, const QStringList& campos)
      : lugar_(std::move(lugar)), columnas_(columnas), campos_(campos) {}

  // The field of a column, "" for "~". A column that the file hasn't fails the test.
  QString operator[](const char* columna) const {
    const qsizetype n = columnas_.indexOf(QString::fromLatin1(columna));
    if (n < 0) ADD_FAILURE() << lugar_.toStdString() << " has no column " << columna;
    const QString campo = campos_.value(n);
    if (campo == u"~") return {};
    const bool citado = campo.size() > 1 && campo.startsWith(u'"') && campo.endsWith(u'"');
    return citado ? campo.mid(1, campo.size() - 2) : campo;
  }
  bool falta(const char* columna) const {
    return campos_.value(columnas_.indexOf(QString::fromLatin1(columna))) == u"~";
  }
  int entero(const char* columna) const { return (*this)[columna].toInt(); }
  double numero(const char* columna) const { return (*this)[columna].toDouble(); }
  bool si(const char* columna) const { return (*this)[columna] == u"si"; }
  // File, line and first field, for a test that fails.
  std::string donde() const { return (lugar_ + u' ' + campos_.value(0)).toStdString(); }

 private:
  QString lugar_;
  QStringList columnas_, campos_;
};

// `archivo` as "ROOM/NAME". No cases, or a line with too few or too many fields, fail the test.
inline std::vector<CasoEscrito> leerCasos(const char* archivo) {
  static const QRegularExpression barra(QStringLiteral("(?<=\\s)\\|(?=\\s|$)"));
  const QString nombre =
      QString::fromLatin1(archivo).replace(u'/', QStringLiteral("/casos/")) + QStringLiteral(".casos");
  std::vector<CasoEscrito> casos;
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/") + nombre);
  QStringList columnas;
  for (int linea = 1; f.isOpen() || (linea == 1 && f.open(QIODevice::ReadOnly)); ++linea) {
    if (f.atEnd()) break;
    const QString texto = QString::fromUtf8(f.readLine()).trimmed();
    if (texto.isEmpty() || texto.startsWith(u"# ")) continue;
    QStringList campos = texto.split(barra);
    for (QString& c : campos) {
      c = c.trimmed().replace(QLatin1String("\\n"), QLatin1String("\n"));
      c.replace(QLatin1String("\\r"), QLatin1String("\r")).replace(QLatin1String("\\t"), QLatin1String("\t"));
    }
    if (columnas.isEmpty()) {
      columnas = campos;
      continue;
    }
    const QString lugar = nombre + u':' + QString::number(linea);
    if (campos.size() != columnas.size()) ADD_FAILURE() << lugar.toStdString() << " has " << campos.size() << " fields";
    casos.emplace_back(lugar, columnas, campos);
  }
  EXPECT_FALSE(casos.empty()) << nombre.toStdString();
  return casos;
}
