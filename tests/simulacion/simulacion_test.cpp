// A shop of desks, each a process of its own, through days on one server with everything that breaks: forty of them
// here, a thousand behind TARVOPOS_LARGO.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Corrida {
  int estado = -1;
  QString dicho;
};

Corrida simular(const QStringList& argumentos) {
  const QString aqui = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
  QProcess p;
  p.setProcessChannelMode(QProcess::MergedChannels);
  p.start(aqui + QStringLiteral("/../bin/tarvopos-admin"), QStringList{QStringLiteral("simular")} + argumentos);
  const bool acaba = p.waitForFinished(-1);
  return {acaba && p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAll())};
}

TEST(Simulacion, CentreStoresAndPapersAgreeWhateverBreaks) {
  const bool largo = qEnvironmentVariableIsSet("TARVOPOS_LARGO");
  const QString semilla = qEnvironmentVariable("TARVOPOS_SEMILLA", QStringLiteral("5"));
  const Corrida c =
      simular({QStringLiteral("--puestos"), largo ? QStringLiteral("8") : QStringLiteral("4"), QStringLiteral("--dias"),
               largo ? QStringLiteral("125") : QStringLiteral("10"), QStringLiteral("--operaciones"),
               largo ? QStringLiteral("12") : QStringLiteral("5"), QStringLiteral("--semilla"), semilla});
  EXPECT_EQ(0, c.estado) << qPrintable(c.dicho);
  EXPECT_TRUE(c.dicho.contains(QStringLiteral("Sin diferencias."))) << qPrintable(c.dicho);
}

// The proof is none that could not fail: a cent, a ticket and a line of the book that are changed behind its back.
TEST(Simulacion, TheProofFindsWhatWasChanged) {
  QTemporaryDir carpeta;
  QFile::setPermissions(carpeta.path(), QFile::permissions(carpeta.path()) | QFile::ReadOther | QFile::ExeOther);
  const QString dir = carpeta.filePath(QStringLiteral("s")), caja = dir + QStringLiteral("/caja1");
  const QStringList orden{QStringLiteral("--puestos"),     QStringLiteral("1"),
                          QStringLiteral("--dias"),        QStringLiteral("1"),
                          QStringLiteral("--operaciones"), QStringLiteral("5"),
                          QStringLiteral("--fallas"),      QStringLiteral("ninguna"),
                          QStringLiteral("--dir"),         dir};
  const Corrida sana = simular(orden);
  ASSERT_EQ(0, sana.estado) << qPrintable(sana.dicho);
  sqlite3* db = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open((caja + QStringLiteral("/TarvoPos.mdb")).toUtf8().constData(), &db));
  EXPECT_EQ(SQLITE_OK, sqlite3_exec(db, "UPDATE Operacion SET nProdPrecUnit = nProdPrecUnit + 0.01 WHERE cOperID = 1",
                                    nullptr, nullptr, nullptr));
  sqlite3_close(db);
  const auto cambiar = [](const QString& archivo, const QByteArray& que, const QByteArray& por) {
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    QByteArray bytes = f.readAll();
    const qsizetype i = bytes.indexOf(que);
    ASSERT_GE(i, 0) << que.constData();
    ASSERT_TRUE(f.resize(0));
    f.write(bytes.replace(i, que.size(), por));
  };
  cambiar(caja + QStringLiteral("/puertos/LPT1"), "TK NRO: 001-000001", "TK NRO: 001-000901");
  cambiar(caja + QStringLiteral(".libro.filas"), "1\tO|001|2|", "1\tO|001|9|");
  const Corrida c = simular({QStringLiteral("--dir"), dir});
  EXPECT_EQ(1, c.estado);
  for (const char* que : {"falta en la tienda O|001|1|", "sobra en la tienda O|001|1|", "001-1 no está en el papel",
                          "sobra en el centro O|001|2|", "comparar:"}) {
    EXPECT_TRUE(c.dicho.contains(QString::fromUtf8(que))) << que << "\n" << qPrintable(c.dicho);
  }
}

}  // namespace
