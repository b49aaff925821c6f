#include "platform/io/cerrojo.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

const char* nombreDe(Cerrojo::Fin fin) {
  return fin == Cerrojo::Fin::Tomado ? "taken" : fin == Cerrojo::Fin::Ocupado ? "busy" : "refused";
}

// What a start finds in the place of its lock file.
TEST(Cerrojo, OnlyALiveProgramHoldsIt) {
  const struct {
    const char* porque;
    QByteArray contenido;
    int edad_s;
    const char* sale;
  } kCasos[] = {
      {"an empty file, a day old", {}, 86'400, "taken"},
      {"zeros of a power cut", QByteArray(64, '\0'), 86'400, "taken"},
      {"of tomorrow: the clock was set back", {}, -86'400, "taken"},
      {"somebody is making it right now", {}, 0, "busy"},
      {"a process that is gone", "999999999\ntarvopos\n\n", 86'400, "taken"},
      {"a text", "no es un proceso\n", 86'400, "taken"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(QStringLiteral("TarvoPos.lock"));
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(c.contenido);
    f.close();
    Cerrojo cerrojo(archivo);
    EXPECT_STREQ(c.sale, nombreDe(cerrojo.tomar(f.fileTime(QFileDevice::FileModificationTime).addSecs(c.edad_s))));
  }
}

TEST(Cerrojo, ALiveOneIsNeverTakenHoweverOld) {
  QTemporaryDir carpeta;
  const QString archivo = carpeta.filePath(QStringLiteral("TarvoPos.lock"));
  const QDateTime ahora = QDateTime::currentDateTime();
  Cerrojo uno(archivo), otro(archivo);
  EXPECT_STREQ("taken", nombreDe(uno.tomar(ahora)));
  EXPECT_STREQ("taken", nombreDe(uno.tomar(ahora))) << "again is nothing";
  EXPECT_STREQ("busy", nombreDe(otro.tomar(ahora.addDays(30))));
  Cerrojo sinSitio(carpeta.filePath(QStringLiteral("no/hay/TarvoPos.lock")));
  EXPECT_STREQ("refused", nombreDe(sinSitio.tomar(ahora)));
}

}  // namespace
