#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <csignal>

#include "apoyo/casos.h"
#include "sql_banco.h"

namespace {

const QStringList kTabla = {
    u8("CREATE TABLE T (id INTEGER PRIMARY KEY, nombre TEXT COLLATE NOCASE UNIQUE, f DATETIME)")};

TEST(Motor, TellsFailuresByNumber) {
  Banco b(true, kTabla);
  ASSERT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'a',NULL)"))));
  for (const auto& c : leerCasos("platform/motor_fallas")) {
    SCOPED_TRACE(c.donde());
    Recordset rs;
    rs.llenar({u8("x")}, {{QVariant(1)}});
    qint64 afectadas = 77;
    const auto e = b.cnn.ejecutar(Sql::crudo(c["sql"]), &afectadas);
    ASSERT_TRUE(e);
    EXPECT_EQ(kErrorSentencia, e->numero);
    EXPECT_EQ(c.entero("nativo"), e->nativo);
    EXPECT_FALSE(e->descripcion.isEmpty());
    EXPECT_EQ(77, afectadas);
    EXPECT_TRUE(b.cnn.consultar(Sql::crudo(c["sql"]), rs));
    EXPECT_EQ(0, rs.RecordCount());
  }
  EXPECT_TRUE(b.cnn.ejecutar(Sql::crudo(u8("DELETE FROM T ") + QChar(0) + u8(" WHERE 1=0"))))
      << "cut by the engine at the zero";
  EXPECT_EQ("1|a|Null", b.respuesta("SELECT * FROM T"));
  qint64 afectadas = 0;
  EXPECT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("UPDATE T SET nombre='z' WHERE id < 5")), &afectadas));
  EXPECT_EQ(1, afectadas);
}

TEST(Motor, OpensOnlyWhatIsADatabase) {
  Banco b(true, kTabla);
  const auto abrir = [&](const QString& archivo) {
    Conexion c;
    const auto e = c.abrir(*b.motores, u8("driver={Microsoft Access Driver (*.mdb)};Password=x;DBQ=") + archivo, 100);
    return e ? e->descripcion : QString();
  };
  EXPECT_EQ(QString(), abrir(b.archivo()));
  const QString falta = b.carpeta.filePath(u8("falta.mdb"));
  EXPECT_TRUE(abrir(falta).contains(u8("No se encuentra")));
  EXPECT_FALSE(QFile::exists(falta)) << "opening never creates";
  QFile original(b.archivo());
  ASSERT_TRUE(original.open(QIODevice::ReadOnly));
  const QByteArray bueno = original.readAll();
  // clang-format off
  const struct { const char* porque; QByteArray bytes; } kAjenos[] = {
      {"empty", {}}, {"text", "hola"}, {"cut in the header", bueno.left(60)}, {"cut behind the first page",
          bueno.left(4096)},
      {"header, then noise", bueno.left(100) + QByteArray(8092, 'x')}};
  for (const auto& a : kAjenos) {
    SCOPED_TRACE(a.porque);
    const QString ruta = b.carpeta.filePath(u8("ajeno.mdb"));
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(a.bytes);
    f.close();
    EXPECT_FALSE(abrir(ruta).isEmpty());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.bytes, f.readAll()) << "a foreign file is left as it is";
    f.close();
    f.remove();
  }
  // clang-format on
  Conexion c;
  for (const char* servidor : {"Data Source=postgres:uno:5432", "Data Source=SRV01", ""}) {
    const auto e = c.abrir(*b.motores, u8("Provider=SQLOLEDB.1;") + u8(servidor), 100);
    ASSERT_TRUE(e);
    EXPECT_EQ(kErrorGeneral, e->numero);
  }
}

TEST(Motor, MakingAFileLeavesAllOrNothing) {
  QTemporaryDir d;
  const QString ruta = d.filePath(u8("x.db"));
  EXPECT_TRUE(crearBaseSqlite(ruta, {u8("CREATE TABLE a (b)"), u8("CREATE TABL c")}));
  EXPECT_TRUE(QDir(d.path()).isEmpty());
  EXPECT_FALSE(crearBaseSqlite(ruta, {u8("CREATE TABLE a (b)")}));
  EXPECT_TRUE(crearBaseSqlite(ruta, {u8("CREATE TABLE a (b)")})) << "a file that is there stays";
  EXPECT_EQ(1, QDir(d.path()).entryList(QDir::Files).size());
}

TEST(Motor, TransactionsHoldTogether) {
  Banco b(true, kTabla);
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_TRUE(b.cnn.iniciar()) << "no transaction inside another";
  ASSERT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'a',NULL)"))));
  EXPECT_TRUE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'b',NULL)"))));
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM T")) << "a failed statement takes only itself back";
  ASSERT_FALSE(b.cnn.deshacer());
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM T"));
  EXPECT_TRUE(b.cnn.confirmar());
  ASSERT_FALSE(b.cnn.iniciar());
  ASSERT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (2,'b',NULL)"))));
  ASSERT_FALSE(b.cnn.confirmar());
  EXPECT_EQ("2", b.respuesta("SELECT id FROM T"));
}

// A query that was not read to its end would hold the insert back from the disk. SIGKILL does not try the flush
// itself: the operating system lives on.
TEST(Motor, TheFirstInsertSurvivesAKill) {
  QTemporaryDir d;
  const QString ruta = d.filePath(u8("x;y.db"));
  ASSERT_FALSE(crearBaseSqlite(ruta, kTabla + QStringList{u8("INSERT INTO T VALUES (1,'a',NULL),(2,'b',NULL)")}));
  const QString cadena = u8("driver={Microsoft Access Driver (*.mdb)};Password=x;DBQ=") + ruta;
  const auto motores = motoresDelSistema(d.path());
  const pid_t hijo = fork();
  if (hijo == 0) {
    Conexion c;
    Recordset rs;
    if (c.abrir(*motores, cadena, 1000) || c.consultar(Sql::crudo(u8("SELECT * FROM T")), rs) ||
        c.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (3,'c','03/04/2025')")))) {
      _exit(1);
    }
    kill(getpid(), SIGKILL);
  }
  int estado = 0;
  ASSERT_EQ(hijo, waitpid(hijo, &estado, 0));
  ASSERT_TRUE(WIFSIGNALED(estado)) << "the child failed before its end";
  Conexion c;
  Recordset rs;
  ASSERT_FALSE(c.abrir(*motores, cadena, 1000));
  ASSERT_FALSE(c.consultar(Sql::crudo(u8("SELECT f FROM T WHERE id=3")), rs));
  EXPECT_EQ(QDateTime(QDate(2025, 4, 3), QTime(0, 0)), rs[u"F"].toDateTime());
}

// A till opens its servers again and again beside connections that stay open; another desk comes and goes meanwhile.
TEST(Motor, ASecondOpeningTakesNoLockFromTheFirst) {
  QTemporaryDir d;
  const QString ruta = d.filePath(u8("central.db"));
  ASSERT_FALSE(crearBaseSqlite(ruta, kTabla));
  const QString cadena = u8("Provider=SQLOLEDB.1;Data Source=sqlite:central.db");
  int tubo[2];
  ASSERT_EQ(0, pipe(tubo));
  const pid_t hijo = fork();
  if (hijo == 0) {
    char c = 0;
    Conexion otra;
    Recordset rs;
    const auto motores = motoresDelSistema(d.path());
    if (read(tubo[0], &c, 1) != 1 || otra.abrir(*motores, cadena, 1000) ||
        otra.consultar(Sql::crudo(u8("SELECT * FROM T")), rs)) {
      _exit(1);
    }
    otra.cerrar();  // the last of all, as far as it can see, clears the log away
    _exit(0);
  }
  const auto motores = motoresDelSistema(d.path());
  Conexion queda, deUnaVez;
  ASSERT_FALSE(queda.abrir(*motores, cadena, 1000));
  ASSERT_FALSE(queda.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'a',NULL)"))));
  ASSERT_FALSE(deUnaVez.abrir(*motores, cadena, 1000));
  deUnaVez.cerrar();
  ASSERT_EQ(1, write(tubo[1], "x", 1));
  int estado = -1;
  ASSERT_EQ(hijo, waitpid(hijo, &estado, 0));
  EXPECT_EQ(0, estado);
  EXPECT_TRUE(QFile::exists(ruta + u8("-wal"))) << "the log of an open connection is gone";
  ASSERT_FALSE(queda.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (2,'b',NULL)"))));
  ASSERT_FALSE(deUnaVez.abrir(*motores, cadena, 1000));
  Recordset rs;
  ASSERT_FALSE(deUnaVez.consultar(Sql::crudo(u8("SELECT COUNT(*) FROM T")), rs));
  EXPECT_EQ(2, rs[0].toInt());
}

TEST(Motor, SeesTablesThatAnotherProgramChanged) {
  Banco b(true, kTabla);
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM T"));
  Conexion otra;
  ASSERT_FALSE(otra.abrir(*b.motores, b.cadena, 1000));
  ASSERT_FALSE(otra.ejecutar(Sql::crudo(u8("CREATE TABLE Nueva (d DATETIME, n INTEGER)"))));
  EXPECT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO Nueva VALUES ('03/04/2025','5')"))));
  EXPECT_EQ("<2025-04-03 00:00:00>|5", b.respuesta("SELECT * FROM Nueva"));
}

// What one connection has learnt of a statement serves the next one, as long as the tables are the same.
TEST(Motor, WhatAConnectionLearntFallsWithTheTables) {
  const QString suma = u8("SELECT a + a FROM S"), inserta = u8("INSERT INTO S VALUES ('3')");
  // clang-format off
  const struct { const char* porque; QStringList cambia; const char* da; } kCambios[] = {
      {"numbers add", {u8("CREATE TABLE S (a INTEGER)"), inserta}, "6"},
      {"the same again", {}, "6"},
      {"texts join", {u8("DROP TABLE S"), u8("CREATE TABLE S (a TEXT)"), inserta}, "33"},
      {"undone by words", {u8("BEGIN"), u8("DROP TABLE S"), u8("CREATE TABLE S (a INTEGER)"), inserta, suma,
          u8("ROLLBACK")}, "33"},
      {"the same number of changes, others", {u8("DROP TABLE S"), u8("CREATE TABLE S (b TEXT, a TEXT)"),
          u8("INSERT INTO S VALUES ('4', '5')")}, "55"},
  };
  // clang-format on
  Banco b(true, kTabla);
  for (const auto& c : kCambios) {
    SCOPED_TRACE(c.porque);
    Conexion cambia;
    ASSERT_FALSE(cambia.abrir(*b.motores, b.cadena, 1000));
    for (const QString& sql : c.cambia) EXPECT_FALSE(cambia.ejecutar(Sql::crudo(sql))) << sql.toStdString();
    const auto pregunta = [&suma, &c](Conexion& cnn) {
      Recordset rs;
      ASSERT_FALSE(cnn.consultar(Sql::crudo(suma), rs));
      EXPECT_EQ(QLatin1String(c.da), rs[0].toString());
    };
    pregunta(cambia);
    for (int i = 0; i < 2; ++i) {
      Conexion otra;
      ASSERT_FALSE(otra.abrir(*b.motores, b.cadena, 1000));
      pregunta(otra);
    }
  }
  Conexion x;  // in a transaction that is undone
  ASSERT_FALSE(x.abrir(*b.motores, b.cadena, 1000));
  ASSERT_FALSE(x.iniciar());
  EXPECT_FALSE(x.ejecutar(Sql::crudo(u8("DROP TABLE S"))));
  EXPECT_FALSE(x.ejecutar(Sql::crudo(u8("CREATE TABLE S (a INTEGER)"))));
  EXPECT_FALSE(x.ejecutar(Sql::crudo(inserta)));
  Recordset rs;
  ASSERT_FALSE(x.consultar(Sql::crudo(suma), rs));
  EXPECT_EQ("6", rs[0].toString());
  ASSERT_FALSE(x.deshacer());
  ASSERT_FALSE(x.consultar(Sql::crudo(suma), rs));
  EXPECT_EQ("55", rs[0].toString());
}

// Names are searched through their index, whatever letters they have.
TEST(Motor, AnIndexServesTexts) {
  // clang-format off
  const struct { const char *porque, *condicion; bool indice; } kCasos[] = {
      {"plain", "nombre = 'ANA'", true},
      {"letters beyond ASCII", "nombre = 'Núñez'", true},
      {"between ORs", "nombre = 'Núñez' OR nombre = 'ana'", true},
      {"the first letters", "nombre LIKE 'mu%ñ%'", true},
      {"anywhere", "nombre LIKE '%mu'", false},
      {"anything but the first letters", "nombre NOT LIKE 'mu%'", false},
      {"many ways to write it", "nombre = 'ñáéíóú'", true},
      {"a beginning of such letters", "nombre LIKE 'ñáéíóú%'", true},
      {"... and of one", "nombre LIKE 'Ñan%ú%'", true},
      {"... that have more than two forms", "nombre LIKE 'ς%'", false},
      {"... behind plain letters", "nombre = 'mu ñáéíóú'", true},
      {"a list", "nombre IN ('ana', 'Núñez', 'ÁNGEL')", true},
  };
  // clang-format on
  for (const bool jet : {true, false}) {
    Banco b(jet, {u8("CREATE TABLE P (id INTEGER PRIMARY KEY, nombre TEXT COLLATE NOCASE, otro TEXT)"),
                  u8("CREATE INDEX P_nombre ON P (nombre)"),
                  u8("INSERT INTO P (nombre) VALUES ('ÑÁÉÍÓÚ x'), ('ñÁéíóú'), ('ñaéíóú'), ('Ñandú'), ('ñANDÚ 2'), "
                     "('nandú'), ('Mu ñáÉíóú'), ('Tamu'), ('mueñ'), ('Ana'), ('NÚÑEZ'), ('ángel'), ('Σx'), ('Ξ')"),
                  u8("UPDATE P SET otro = nombre")});
    for (const auto& c : kCasos) {
      SCOPED_TRACE(c.porque);
      const QString sql = b.cnn.traducir(u8("SELECT otro FROM P WHERE ") + u8(c.condicion));
      EXPECT_EQ(c.indice, b.respuesta(u8("EXPLAIN QUERY PLAN ") + sql).contains(u8("P_nombre"))) << sql.toStdString();
      const QString filas = u8("SELECT id FROM P WHERE ") + u8(c.condicion) + u8(" ORDER BY id");
      EXPECT_NE("", b.respuesta(filas));
      EXPECT_EQ(b.respuesta(QString(filas).replace(u8("nombre"), u8("otro"))), b.respuesta(filas));
    }
  }
}

TEST(Motor, ALockIsWaitedForAndThenTold) {
  Banco b(true, kTabla);
  Conexion otra;
  ASSERT_FALSE(otra.abrir(*b.motores, b.cadena, 1000));
  ASSERT_FALSE(otra.iniciar());
  QElapsedTimer reloj;
  reloj.start();
  const auto e = b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'a',NULL)")));
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorGeneral, e->numero);
  EXPECT_GE(reloj.elapsed(), 1000);
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM T")) << "readers go on";
  ASSERT_FALSE(otra.deshacer());
  EXPECT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO T VALUES (1,'a',NULL)"))));
}

TEST(Motor, ARunawayQueryCanBeStopped) {
  OpcionesMotores opciones;
  bool parar = false;
  opciones.interrumpir = [&] { return parar; };
  Banco b(false, kTabla, opciones);
  parar = true;
  Recordset rs;
  const auto e = b.cnn.consultar(
      Sql::crudo(u8("WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM r) SELECT MAX(n) FROM r")), rs);
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorGeneral, e->numero);
  parar = false;
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM T"));
}

TEST(Motor, MachineClockWhenNoneIsGiven) {
  QTemporaryDir d;
  const QString ruta = d.filePath(u8("x.db"));
  ASSERT_FALSE(crearBaseSqlite(ruta, kTabla));
  Conexion c;
  Recordset rs;
  ASSERT_FALSE(c.abrir(*motoresDelSistema(d.path()), u8("driver={Microsoft Access Driver (*.mdb)};DBQ=") + ruta, 1000));
  ASSERT_FALSE(c.consultar(Sql::crudo(u8("SELECT NOW() AS n")), rs));
  EXPECT_LT(std::abs(rs[u"n"].toDateTime().secsTo(QDateTime::currentDateTime())), 5);
}

}  // namespace
