#include "platform/io/perfil.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class Perfil : public testing::Test {
 protected:
  void poner(const QByteArray& bytes) {
    QFile f(archivo_);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  QByteArray bytes() const {
    QFile f(archivo_);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no file)");
  }
  QTemporaryDir carpeta_;
  QString archivo_ = carpeta_.filePath(QStringLiteral("KEB.cfg"));
};

TEST_F(Perfil, ReadsAsThePrivateProfileFormIsRead) {
  poner("suelto=1\r\n; Caja=no\r\n[inicio]\r\nCaja=A\r\n"
        "[Parametros]\r\n;Caja=no\r\nCAJA = 00012 \r\nCaja=segunda\r\nvacia=\r\ncita=\"con blanco \"\r\n"
        "igual=a=b\r\nnom=Se\xF1or\r\nlarga=" +
        QByteArray(300, 'x') + "\r\n[PARAMETROS]\r\notra=tarde\r\n");
  // clang-format off
  const struct { const char *porque, *seccion, *clave; QString sale; } kCasos[] = {
      {"any case, blanks off, first counts", "PARAMETROS", "Caja", QStringLiteral("00012")},
      {"no quotes", "PARAMETROS", "cita", QStringLiteral("con blanco ")},
      {"only the first equal sign splits", "PARAMETROS", "igual", QStringLiteral("a=b")},
      {"one byte a character", "PARAMETROS", "nom", QStringLiteral("Señor")},
      {"254 characters at most", "PARAMETROS", "larga", QString(254, u'x')},
      {"empty", "PARAMETROS", "vacia", QString()},
      {"the first section of the name counts", "PARAMETROS", "otra", QString()},
      {"other section", "INICIO", "Caja", QStringLiteral("A")},
      {"no section", "NADA", "suelto", QString()},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(c.sale, LeerPerfil(archivo_, QString::fromLatin1(c.seccion), QString::fromLatin1(c.clave)));
  }
  EXPECT_EQ(7, LeerSeccionPerfil(archivo_, QStringLiteral("parametros")).size());
}

TEST_F(Perfil, WritingTouchesOneLineOnly) {
  // clang-format off
  const struct { const char *porque, *antes, *clave, *valor, *despues; } kCasos[] = {
      {"changed in place", "; nota\r\n[p]\r\n Caja =1 \r\nb=2\r\n", "CAJA", "9",
          "; nota\r\n[p]\r\n Caja =9\r\nb=2\r\n"},
      {"added before the blank line", "[p]\r\na=1\r\n\r\n[q]\r\na=3\r\n", "n", "2",
          "[p]\r\na=1\r\nn=2\r\n\r\n[q]\r\na=3\r\n"},
      {"a section that is missing", "[q]\r\na=3", "n", "2", "[q]\r\na=3\r\n[P]\r\nn=2\r\n"},
      {"an empty file", "", "n", "2", "[P]\r\nn=2\r\n"},
      {"the file's own line ends", "[p]\nn=1\n", "n", "2", "[p]\nn=2\n"},
      {"outer blanks survive", "[p]\r\n", "n", " x ", "[p]\r\nn=\" x \"\r\n"},
      {"an editor's mark in front", "\xEF\xBB\xBF[p]\r\nn=1\r\n", "n", "2", "\xEF\xBB\xBF[p]\r\nn=2\r\n"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    poner(c.antes);
    const QString clave = QString::fromLatin1(c.clave), valor = QString::fromLatin1(c.valor);
    EXPECT_EQ(std::nullopt, EscribirPerfil(archivo_, QStringLiteral("P"), clave, valor));
    EXPECT_EQ(QByteArray(c.despues), bytes());
    EXPECT_EQ(valor, LeerPerfil(archivo_, QStringLiteral("P"), clave));
  }
}

TEST_F(Perfil, AMissingFileReadsEmptyAndIsMade) {
  EXPECT_EQ(QString(), LeerPerfil(archivo_, QStringLiteral("P"), QStringLiteral("a")));
  EXPECT_EQ(std::nullopt, ComprobarPerfil(archivo_));
  EXPECT_EQ(std::nullopt, EscribirPerfil(archivo_, QStringLiteral("P"), QStringLiteral("a"), QStringLiteral("ñ")));
  EXPECT_EQ(QByteArray("[P]\r\na=\xF1\r\n"), bytes());
}

TEST_F(Perfil, WhatIsNoSettingsTextIsToldAndLeftAlone) {
  // clang-format off
  const struct { const char* porque; QByteArray bytes; const char* palabra; } kCasos[] = {
      {"a picture", QByteArray("\x89PNG\r\n\x1a\n\0\0\0", 11), "texto"},
      {"two bytes a character", QByteArray("[\0p\0]\0", 6), "texto"},
      {"huge", QByteArray((1 << 20) + 1, 'x'), "grande"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    poner(c.bytes);
    EXPECT_EQ(std::nullopt, LeerPerfil(archivo_, QStringLiteral("P"), QStringLiteral("a")));
    EXPECT_TRUE(ComprobarPerfil(archivo_).value_or(QString()).contains(QLatin1String(c.palabra)));
    EXPECT_NE(std::nullopt, EscribirPerfil(archivo_, QStringLiteral("P"), QStringLiteral("a"), QStringLiteral("1")));
    EXPECT_EQ(c.bytes, bytes());
  }
  ASSERT_TRUE(QFile::remove(archivo_) && QDir().mkpath(archivo_));
  EXPECT_TRUE(ComprobarPerfil(archivo_).value_or(QString()).contains(QStringLiteral("carpeta")));
}

TEST_F(Perfil, AValueThatWouldNotComeBackIsRefused) {
  poner("[P]\r\na=1\r\n");
  for (const QString& v : {QString(255, u'x'), QStringLiteral("a\nb=2")}) {
    EXPECT_NE(std::nullopt, EscribirPerfil(archivo_, QStringLiteral("P"), QStringLiteral("a"), v));
  }
  EXPECT_EQ(QByteArray("[P]\r\na=1\r\n"), bytes());
  EXPECT_NE(std::nullopt, EscribirPerfil(carpeta_.filePath(QStringLiteral("no/KEB.cfg")), QStringLiteral("P"),
                                         QStringLiteral("a"), QStringLiteral("1")));
}

}  // namespace
