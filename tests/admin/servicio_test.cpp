#include "admin/respaldo.h"
#include "admin/verificar.h"
#include "apoyo/casos.h"
#include "apoyo_admin.h"

namespace {

class Servicio : public CarpetaTemporal {
 protected:
  void SetUp() override { creaPuesto(datos(en("p"))); }
  QString mdb() const { return en("p/TarvoPos.mdb"); }
};

TEST_F(Servicio, ABackupIsOneMomentBesideARunningTill) {
  QString error;
  const BaseSqlite caja = AbrirSqlite(mdb(), SQLITE_OPEN_READWRITE, error);
  ASSERT_TRUE(caja);
  const auto hace = [&](const char* sql) {
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(caja.get(), sql, nullptr, nullptr, nullptr));
  };
  hace("INSERT INTO Operacion (cOperCode) VALUES (1)");
  hace("BEGIN IMMEDIATE; INSERT INTO Operacion (cOperCode) VALUES (2)");
  const auto fallo = RespaldarPuesto(en("p"), en("copia.mdb"), false);
  EXPECT_FALSE(fallo) << texto(fallo.value_or(QString()));
  // The till was not held up, and what it had not committed is not in the copy.
  hace("COMMIT");
  EXPECT_EQ("1", texto(filas(en("copia.mdb"), "SELECT group_concat(cOperCode) FROM Operacion")));
  EXPECT_EQ("1,2", texto(filas(mdb(), "SELECT group_concat(cOperCode) FROM Operacion")));
  // And it can stand in the store's place.
  QFile::remove(en("q"));
  QDir().mkpath(en("q"));
  QFile::copy(en("p/KEB.cfg"), en("q/KEB.cfg"));
  QFile::copy(en("copia.mdb"), en("q/TarvoPos.mdb"));
  EXPECT_EQ("", texto(VerificarPuesto(en("q")).join(u'\n')));
}

TEST_F(Servicio, ABackupTakesNobodysPlace) {
  QFile f(en("copia.mdb"));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("lo de ayer");
  f.close();
  EXPECT_TRUE(RespaldarPuesto(en("p"), en("copia.mdb"), false));
  EXPECT_EQ("lo de ayer", bytes(en("copia.mdb")).toStdString());
  EXPECT_FALSE(RespaldarPuesto(en("p"), en("copia.mdb"), true));
  EXPECT_EQ("1", texto(filas(en("copia.mdb"), "SELECT count(*) FROM Configuracion")));

  const QByteArray antes = bytes(mdb());
  EXPECT_TRUE(RespaldarPuesto(en("p"), mdb(), true)) << "the store itself is no place for its backup";
  EXPECT_EQ(antes, bytes(mdb()));
  EXPECT_TRUE(RespaldarPuesto(en("p"), en("no/hay/copia.mdb"), false));
  EXPECT_TRUE(RespaldarPuesto(en("vacia"), en("otra.mdb"), false));
  EXPECT_FALSE(QFile::exists(en("otra.mdb")));
  EXPECT_EQ("KEB.cfg TarvoPos.mdb central.db cliente.db",
            texto(QDir(en("p")).entryList(QDir::Files, QDir::Name).join(u' ')));
}

TEST_F(Servicio, ADamagedStoreIsNotBackedUp) {
  QFile f(mdb());
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  for (qint64 i = 4096; i < f.size(); i += 4096) {
    f.seek(i);
    f.write(QByteArray(64, '\xA5'));
  }
  f.close();
  EXPECT_TRUE(RespaldarPuesto(en("p"), en("copia.mdb"), false));
  EXPECT_FALSE(QFile::exists(en("copia.mdb")));
  EXPECT_FALSE(QFile::exists(en("copia.mdb.nuevo")));
  EXPECT_FALSE(VerificarPuesto(en("p")).isEmpty());
}

TEST_F(Servicio, FindingsNameWhatIsWrong) {
  EXPECT_EQ("", texto(VerificarPuesto(en("p")).join(u'\n')));
  for (const auto& c : leerCasos("admin/verificar")) {
    cambia(mdb(), qPrintable(c["dano"]));
    EXPECT_EQ(c["dice"], VerificarPuesto(en("p")).join(u'\n')) << c.donde();
    cambia(mdb(), qPrintable(c["arreglo"]));
    EXPECT_EQ("", texto(VerificarPuesto(en("p")).join(u'\n'))) << "behind: " << c.donde();
  }
  QFile::remove(en("p/KEB.cfg"));
  EXPECT_EQ("Falta KEB.cfg.", texto(VerificarPuesto(en("p")).join(u'\n')));
  EXPECT_EQ("Falta KEB.cfg.\nFalta TarvoPos.mdb.", texto(VerificarPuesto(en("nada")).join(u'\n')));
}

}  // namespace
