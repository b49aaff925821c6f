#include "admin/respaldo.h"
#include "admin/verificar.h"
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
  const auto hace = [&](const char* sql) { EXPECT_EQ(SQLITE_OK, sqlite3_exec(caja.get(), sql, nullptr, nullptr, nullptr)); };
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
  EXPECT_EQ("KEB.cfg TarvoPos.mdb central.db cliente.db", texto(QDir(en("p")).entryList(QDir::Files, QDir::Name).join(u' ')));
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
  const struct { const char *porque, *dano, *arreglo, *dice; } kCasos[] = {
      {"a table is gone", "ALTER TABLE Perfil RENAME TO otra", "ALTER TABLE otra RENAME TO Perfil", "Falta la tabla Perfil."},
      {"a column is gone", "ALTER TABLE Producto RENAME nPuntos TO nada", "ALTER TABLE Producto RENAME nada TO nPuntos",
       "Falta la columna nPuntos de la tabla Producto."},
      {"an index is gone", "DROP INDEX Operacion_codigo", "CREATE INDEX Operacion_codigo ON Operacion (cOperCode)",
       "Falta el índice Operacion_codigo: las ventas serán cada vez más lentas."},
      {"two rows of settings", "INSERT INTO Configuracion (Caja) VALUES ('00001')",
       "DELETE FROM Configuracion WHERE rowid = 2", "La tabla Configuracion tiene 2 filas y debe tener 1."},
      {"a printer without its counter", "DELETE FROM _Tmp1 WHERE prn = 2",
       "INSERT INTO _Tmp1 (prn, nsmr) VALUES (2, 'X')", "La tabla _Tmp1 tiene 1 filas y debe tener 2."},
      {"another desk in the file", "UPDATE Configuracion SET Caja = '00009'", "UPDATE Configuracion SET Caja = '00001'",
       "Caja es «00009» en la tabla Configuracion y «00001» en KEB.cfg."},
      {"a step that is none", "UPDATE Configuracion SET iCierreCaja = 7", "UPDATE Configuracion SET iCierreCaja = 0",
       "iCierreCaja vale 7; sólo va de 0 a 6."},
      {"no row for boletas", "DELETE FROM Config_Documento WHERE cTipoDoc = '02'",
       "INSERT INTO Config_Documento (cTipoDoc, cSerieDoc) VALUES ('02', '001')", "Config_Documento no tiene la fila 02."},
      {"two kinds under one series", "UPDATE Config_Documento SET cSerieDoc = 'OC1' WHERE cTipoDoc = '11'",
       "UPDATE Config_Documento SET cSerieDoc = 'NC1' WHERE cTipoDoc = '11'",
       "Config_Documento: las filas 10, 11 comparten la serie OC1."},
      {"a counter behind its documents", "INSERT INTO Operacion (cDocTipo, cDocCodigo) VALUES ('01', 5)",
       "DELETE FROM Operacion", "Config_Documento: el último número de la fila 02 es 0, pero ya existe el 5."},
      {"nobody may authorise", "UPDATE Usuario SET cUserActi = 0", "UPDATE Usuario SET cUserActi = 1",
       "No hay ningún supervisor activo en la tabla Usuario."},
  };
  for (const auto& c : kCasos) {
    cambia(mdb(), c.dano);
    EXPECT_EQ(c.dice, texto(VerificarPuesto(en("p")).join(u'\n'))) << c.porque;
    cambia(mdb(), c.arreglo);
    EXPECT_EQ("", texto(VerificarPuesto(en("p")).join(u'\n'))) << "behind: " << c.porque;
  }
  QFile::remove(en("p/KEB.cfg"));
  EXPECT_EQ("Falta KEB.cfg.", texto(VerificarPuesto(en("p")).join(u'\n')));
  EXPECT_EQ("Falta KEB.cfg.\nFalta TarvoPos.mdb.", texto(VerificarPuesto(en("nada")).join(u'\n')));
}

}  // namespace
