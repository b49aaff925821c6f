#pragma once
// What is kept as text under tests/: papers typed by hand, the cases that they belong to, the rows of a desk.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "apoyo/puesto_prueba.h"
#include "platform/text/texto.h"

inline QByteArray leerGolden(const QString& archivo) {
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/golden/") + archivo);
  if (!f.open(QIODevice::ReadOnly)) ADD_FAILURE() << qPrintable(archivo) << " is missing";
  return f.readAll();
}

// The names under golden/`carpeta` that have such a file, without its ending.
inline std::vector<std::string> nombresGolden(const char* carpeta, const char* fin = ".caso") {
  std::vector<std::string> nombres;
  const QDir dir(QStringLiteral(TARVOPOS_FUENTES "/tests/golden/") + QLatin1String(carpeta));
  for (const QString& a : dir.entryList({u'*' + QLatin1String(fin)}, QDir::Files, QDir::Name)) {
    nombres.push_back(a.section(u'.', 0, 0).toStdString());
  }
  return nombres;
}

// The "name = value" lines of a case.
inline std::vector<std::pair<QString, QString>> leerCaso(const QString& caso) {
  std::vector<std::pair<QString, QString>> lineas;
  for (const QString& l :
       QString::fromUtf8(leerGolden(caso + QStringLiteral(".caso"))).split(u'\n', Qt::SkipEmptyParts)) {
    if (!l.startsWith(u'#')) lineas.emplace_back(l.section(u'=', 0, 0).trimmed(), l.section(u'=', 1).trimmed());
  }
  return lineas;
}

inline QStringList celdasDe(const QString& valor) {
  QStringList c = valor.split(u'|');
  for (QString& celda : c) celda = celda.trimmed();
  return c;
}

// The paper that a raw print of `texto` leaves on the port.
inline QByteArray conCorte(const QByteArray& texto) {
  return "\x1B@\r\n" + texto + "\r\n" + QByteArray("\r\n\r\n").repeated(4) + "\x1D\x56\x01\r\n";
}

// The first line that differs, with its number; "" when both are equal.
inline std::string primeraDiferencia(const QByteArray& esperado, const QByteArray& hay) {
  const auto a = esperado.split('\n'), b = hay.split('\n');
  for (qsizetype i = 0; i < std::max(a.size(), b.size()); ++i) {
    const QByteArray x = i < a.size() ? a[i] : "nothing", y = i < b.size() ? b[i] : "nothing";
    if (x != y || a.size() <= i || b.size() <= i) {
      return QStringLiteral("line %1: expected \"%2\", printed \"%3\"")
          .arg(i + 1)
          .arg(DeUnByte(x), DeUnByte(y))
          .toStdString();
    }
  }
  return {};
}

// The statements of a file under tests/, one a line, all or none.
inline void ejecutarArchivo(PuestoPrueba& p, Conexion& cnn, const char* archivo) {
  EXPECT_FALSE(cnn.iniciar());
  for (const QString& linea :
       QString::fromUtf8(leerGolden(QLatin1String("../") + QLatin1String(archivo))).split(u'\n')) {
    if (!linea.isEmpty() && !linea.startsWith(u'#')) p.ejecuta(cnn, linea);
  }
  EXPECT_FALSE(cnn.confirmar());
}
inline void ejecutarArchivo(PuestoPrueba& p, const char* archivo) { ejecutarArchivo(p, p.poCnnLocal, archivo); }
