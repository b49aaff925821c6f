#include "admin/respaldo.h"
#include "admin/restaurar.h"
#include "admin/verificar.h"
#include "apoyo/casos.h"
#include "apoyo_admin.h"
#include "foundation/respaldo.h"
#include "platform/io/cerrojo.h"

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

class Restaurar : public Servicio {
 protected:
  void SetUp() override {
    Servicio::SetUp();
    vende(1, 120);
    QDir().mkpath(en("p/puertos"));
    QFile papel(en("p/puertos/LPT1"));
    ASSERT_TRUE(papel.open(QIODevice::WriteOnly));
    papel.write("ticket 120");
    papel.close();
    const auto r = CopiarPuesto(rutasDe(en("p")), ahora, MotivoRespaldo::Cierre);
    ASSERT_EQ(1, r.copias.size());
    copia = r.copias[0];
  }
  void vende(int codigo, int numero) {
    cambia(mdb(),
           qPrintable(u8("INSERT INTO Operacion (cOperCode, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cCajaCodi) "
                         "VALUES (%1, 1, '02', '001', %2, '00001')")
                          .arg(codigo)
                          .arg(numero)));
    cambia(mdb(), qPrintable(u8("UPDATE Config_Documento SET nDocCodigo = %1 WHERE cTipoDoc = '02'").arg(numero)));
  }
  // Words of the failure, "" for none; what was said lies in `dicho`.
  QString restaura(const QString& de, const char* a, qint64 ultimo = 0,
                   const std::vector<std::pair<QString, qint64>>& paralelos = {}) {
    dicho.clear();
    return RestaurarPuesto({de, en(a), ahora.addDays(1), ultimo, paralelos}, dicho).value_or(QString());
  }
  QString todo() const { return dicho.join(u'\n'); }
  QDateTime ahora{QDate(2026, 11, 24), QTime(21, 0)};
  QString copia;
  QStringList dicho;
};

TEST_F(Restaurar, ALostDeskComesBackWholeAndSaysHowFarItReaches) {
  EXPECT_EQ("", texto(restaura(en("p/respaldos"), "q")));  // the newest of a folder of copies
  EXPECT_EQ("1", texto(filas(en("q/TarvoPos.mdb"), "SELECT group_concat(cOperCode) FROM Operacion")));
  EXPECT_EQ("ticket 120", bytes(en("q/puertos/LPT1")).toStdString());
  EXPECT_EQ("", texto(VerificarPuesto(en("q")).join(u'\n')));
  EXPECT_TRUE(todo().contains(u8("hasta la operación 1, el documento 120"))) << texto(todo());
  EXPECT_TRUE(todo().contains(u8("no tiene nada de esta caja que falte"))) << texto(todo());
  EXPECT_FALSE(QFileInfo::exists(en("q/restauracion.nueva")));
  EXPECT_FALSE(QFileInfo::exists(en("q/respaldo.txt")));
}

TEST_F(Restaurar, WhatTheCentreHoldsBeyondTheCopyIsToldAndItsFileStays) {
  vende(2, 121);
  cambia(en("p/central.db"), "INSERT INTO operacion (cOperID, cOperCode, cCajaCodi, cDocTipo, cDocSerie, cDocCodigo) "
                             "VALUES (1, 2, '00001', '02', '001', '000121'), (2, 9, '00002', '02', '002', '000500')");
  EXPECT_EQ("", texto(restaura(copia, "p")));
  EXPECT_TRUE(todo().contains(u8("hasta la operación 2 y el documento 121"))) << texto(todo());
  EXPECT_TRUE(todo().contains(u8("central.db se quedó como estaba"))) << texto(todo());
  EXPECT_EQ("1:120,2:121", texto(filas(mdb(), "SELECT group_concat(cOperCode || ':' || cDocCodigo) FROM Operacion")))
      << "the number goes on from there, also when the desk starts without it";
  EXPECT_EQ("1,2", texto(filas(en("p/respaldos/antes-de-restaurar-20261125-210000/TarvoPos.mdb"),
                               "SELECT group_concat(cOperCode) FROM Operacion")))
      << "what stood there is set aside";
}

TEST_F(Restaurar, TheNextDocumentFollowsTheLastOneOnPaper) {
  EXPECT_EQ("", texto(restaura(copia, "p", 130)));
  EXPECT_EQ("120|1\n130|0", texto(filas(mdb(), "SELECT cDocCodigo, cOperFlagAbierto FROM Operacion ORDER BY cOperID")));
  EXPECT_EQ("130", texto(filas(mdb(), "SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc = '02'")));
  // Neither a number nor a code beside the sales comes again; a series of another desk is refused.
  EXPECT_EQ("", texto(restaura(copia, "r", 130, {{u8("NC1"), 35}, {u8("OC1"), 44}})));
  const QString r = en("r/TarvoPos.mdb");
  EXPECT_EQ("11|NC1|35|1000\n10|OC1|44|1001",
            texto(filas(r, "SELECT cDocTipo, cDocSerie, cDocCodigo, cOperCode FROM OperacionParalela ORDER BY 4")));
  EXPECT_EQ("10|44\n11|35", texto(filas(r, "SELECT cTipoDoc, nDocCodigo FROM Config_Documento WHERE cTipoDoc IN "
                                           "('10', '11') ORDER BY 1")));
  EXPECT_TRUE(restaura(copia, "s", 0, {{u8("OC2"), 44}}).contains(u8("OC2 no es una serie de la caja 00001")));
  EXPECT_EQ("", texto(restaura(copia, "q", 119)));  // behind the copy: nothing to mark
  EXPECT_EQ("120", texto(filas(en("q/TarvoPos.mdb"), "SELECT group_concat(cDocCodigo) FROM Operacion")));
}

TEST_F(Restaurar, WhatMustNotBeRestoredChangesNothing) {
  const auto rechaza = [&](const QString& de, const char* a, const char* porque) {
    const QByteArray antes = bytes(mdb());
    const QString palabras = restaura(de, a);
    EXPECT_TRUE(palabras.contains(u8(porque))) << texto(palabras);
    EXPECT_EQ(antes, bytes(mdb()));
    EXPECT_FALSE(QFileInfo::exists(en("p/restauracion.nueva")));
  };
  rechaza(en("p"), "p", "no es una copia de respaldo completa");
  creaPuesto([&] {
    DatosPuesto d = datos(en("r"));
    d.caja = u8("00002");
    return d;
  }());
  rechaza(copia, "r", "es de la caja 00002");
  Cerrojo caja(en("p/TarvoPos.lock"));
  ASSERT_EQ(Cerrojo::Fin::Tomado, caja.tomar(ahora));
  rechaza(copia, "p", "está abierta");
  cambia(copia + u8("/TarvoPos.mdb"), "PRAGMA user_version = 99");
  rechaza(copia, "q", "más nuevo que éste");
  QFile f(copia + u8("/TarvoPos.mdb"));
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  for (qint64 i = 4096; i < f.size(); i += 4096) {
    f.seek(i);
    f.write(QByteArray(64, '\xA5'));
  }
  f.close();
  rechaza(copia, "q", "está dañada");
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
