#include <QElapsedTimer>

#include "platform/sql_banco_postgres.h"

namespace {

const QStringList kTabla = {u8("CREATE TABLE t (id int PRIMARY KEY, nom varchar(20), f datetime)")};

QString ejecuta(Preguntas& b, const char* sql) {
  const auto e = b.cnn.ejecutar(Sql::crudo(u8(sql)));
  return e ? e->descripcion : QString();
}

// What ends the connections that a firewall or a restart would end.
void cortar(const BancoPostgres& b) {
  ServidorPrueba::uno().crudo(
      b.enComun(), QStringLiteral("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname = '%1'")
                       .arg(b.donde.catalogo));
}

TEST(MotorPostgres, TransactionsHoldTogether) {
  BancoPostgres b(kTabla);
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_TRUE(b.cnn.iniciar()) << "no transaction inside another";
  EXPECT_NE(QString(), ejecuta(b, "INSERT INTO nada VALUES (1)")) << "the first of it fails";
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  const auto doble = b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO t VALUES (1,'b',NULL)")));
  ASSERT_TRUE(doble);
  EXPECT_TRUE(doble->claveDuplicada());
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM t")) << "a failed statement takes only itself back";
  ASSERT_FALSE(b.cnn.deshacer());
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM t"));
  EXPECT_EQ("error: No hay ninguna transacción abierta.", b.respuesta("COMMIT"));
  ASSERT_FALSE(b.cnn.iniciar());
  ASSERT_FALSE(b.cnn.confirmar()) << "an empty one";
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_EQ(QString(), ejecuta(b, "SELECT id, nom INTO t2 FROM t"));
  ASSERT_FALSE(b.cnn.deshacer());
  EXPECT_TRUE(b.respuesta("SELECT COUNT(*) FROM t2").startsWith(u"error")) << "a table that was taken back";
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (2,'b','24/11/2026')"));
  ASSERT_FALSE(b.cnn.confirmar());
  cortar(b);
  EXPECT_EQ("2|b|<2026-11-24 00:00:00>", b.respuesta("SELECT * FROM t"));
}

TEST(MotorPostgres, ATransactionOfOnePieceFallsWithItsFirstFailure) {
  BancoPostgres b(kTabla);
  for (const bool conPunto : {false, true}) {
    ASSERT_FALSE(b.cnn.iniciar());
    b.cnn.deUnaPieza(true);
    EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
    if (conPunto) b.cnn.deUnaPieza(false);
    EXPECT_NE(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'b',NULL)"));
    EXPECT_EQ(conPunto, ejecuta(b, "INSERT INTO t VALUES (2,'a',NULL)").isNull());
    EXPECT_EQ(conPunto, !b.cnn.confirmar()) << "nothing is taken for stored that is not";
    EXPECT_FALSE(b.cnn.deshacer());
    EXPECT_EQ(conPunto ? "1/2" : "", b.respuesta("SELECT id FROM t ORDER BY id"));
  }
}

TEST(MotorPostgres, AStatementForManyRowsTakesWhatItsTextWouldTake) {
  BancoPostgres b({u8("CREATE TABLE m (id int PRIMARY KEY, nom varchar(20), f datetime, n decimal(18,6))")});
  const char* const fila = "(1,'a',CONVERT(DATETIME,'2026-01-02 03:04:05',120),1.5)";
  const auto varias = b.cnn.repetir(Sql::crudo(u8("INSERT INTO m VALUES ") + u8(fila) + u8(", ") + u8(fila)));
  ASSERT_TRUE(varias);
  const auto texto = [](const char* t) { return CeldaBD(QByteArrayView(t)); };
  const auto par = [&](qint64 id) {
    return varias->correr({CeldaBD(id), texto("O'HÑ"), texto("2026-11-24 10:30:15"), CeldaBD(2.25), CeldaBD(id + 1),
                           texto(""), CeldaBD(), CeldaBD(-3.0)});
  };
  EXPECT_FALSE(par(1));
  cortar(b);
  EXPECT_EQ("2", b.respuesta("SELECT COUNT(*) FROM m")) << "opened anew";
  EXPECT_FALSE(par(3)) << "prepared anew, too";
  EXPECT_TRUE(par(2)) << "the key of one of both";
  EXPECT_TRUE(varias->correr({CeldaBD(qint64(9))})) << "too few";
  EXPECT_EQ("1|O'HÑ|<2026-11-24 10:30:15>|2.25/2||Null|-3/3|O'HÑ|<2026-11-24 10:30:15>|2.25/4||Null|-3",
            b.respuesta("SELECT * FROM m ORDER BY id"));
}

TEST(MotorPostgres, ACutConnectionIsOpenedAnewOutsideOfTransactions) {
  BancoPostgres b(kTabla);
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  cortar(b);
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (2,'a',NULL)"));
  ASSERT_FALSE(b.cnn.iniciar());
  cortar(b);
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (3,'a',NULL)")) << "nothing of it was there yet";
  cortar(b);
  EXPECT_NE(QString(), ejecuta(b, "INSERT INTO t VALUES (4,'a',NULL)"));
  EXPECT_NE(QString(), ejecuta(b, "INSERT INTO t VALUES (5,'a',NULL)")) << "nor the next one, outside of it";
  EXPECT_TRUE(b.cnn.confirmar());
  ASSERT_FALSE(b.cnn.deshacer());
  EXPECT_EQ("1/2", b.respuesta("SELECT id FROM t ORDER BY id"));
}

TEST(MotorPostgres, ASaleWaitsNoLongerThanItsTime) {
  constexpr int kVenta_ms = 1000;
  BancoPostgres b(kTabla, u8("CREATE FUNCTION dbo.dormir() RETURNS int LANGUAGE sql AS 'SELECT 1 FROM pg_sleep(6)'"));
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  Conexion venta;
  ASSERT_FALSE(venta.abrir(*b.motores, b.cadena, kVenta_ms));
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_EQ(QString(), ejecuta(b, "UPDATE t SET nom = 'b'"));
  QElapsedTimer reloj;
  reloj.start();
  auto e = venta.ejecutar(Sql::crudo(u8("UPDATE t SET nom = 'c'")));
  ASSERT_TRUE(e) << "locked";
  EXPECT_EQ(kErrorTiempo, e->numero) << e->descripcion.toStdString();
  EXPECT_LT(reloj.elapsed(), 2 * kVenta_ms);
  ASSERT_FALSE(b.cnn.confirmar());
  EXPECT_FALSE(venta.ejecutar(Sql::crudo(u8("UPDATE t SET nom = 'c'")))) << "and goes on";
  Recordset rs;
  reloj.start();
  for (int i = 0; i < 3; ++i) {
    e = venta.consultar(Sql::crudo(u8("SELECT dbo.dormir()")), rs);
    ASSERT_TRUE(e) << "silent";
    EXPECT_EQ(kErrorTiempo, e->numero) << e->descripcion.toStdString();
  }
  EXPECT_LT(reloj.elapsed(), 2 * kVenta_ms) << "once, not at each statement";
}

TEST(MotorPostgres, AStatementTooLargeLeavesTheConnectionWell) {
  BancoPostgres b(kTabla);
  ASSERT_FALSE(b.cnn.iniciar());
  const QString muchos = u8("SELECT COUNT(*) FROM t WHERE id IN (0") + u8(",1").repeated(70'000) + u')';
  EXPECT_TRUE(b.respuesta(muchos).startsWith(u"error"));
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  ASSERT_FALSE(b.cnn.confirmar());
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM t WHERE id IN (0" + u8(",1").repeated(5000).toUtf8() + ")"));
}

TEST(MotorPostgres, AForgottenJoinEndsAndTheConnectionGoesOn) {
  if (!qEnvironmentVariableIsSet("TARVOPOS_LARGO")) GTEST_SKIP() << "it takes a gigabyte for a moment";
  BancoPostgres b(kTabla, u8("CREATE TABLE dbo.n AS SELECT i FROM generate_series(1, 3000) i;"));
  Recordset rs;
  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  const auto e = b.cnn.consultar(Sql::crudo(u8("SELECT a.i, b.i, a.i, b.i, a.i, b.i FROM n a, n b")), rs);
  ASSERT_TRUE(e);
  EXPECT_EQ("La consulta da demasiadas filas.", e->descripcion);
  ASSERT_FALSE(b.cnn.confirmar());
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM t"));
}

// Parts of a table number their rows each for itself.
TEST(MotorPostgres, AChangeByAJoinFindsItsRowsInAPartedTable) {
  BancoPostgres b({}, u8("CREATE TABLE dbo.p (k int, v int) PARTITION BY LIST (k);"
                         "CREATE TABLE dbo.p1 PARTITION OF dbo.p FOR VALUES IN (1);"
                         "CREATE TABLE dbo.p2 PARTITION OF dbo.p FOR VALUES IN (2);"
                         "CREATE TABLE dbo.q (k int, n int);"
                         "INSERT INTO dbo.p VALUES (1, 10), (2, 20); INSERT INTO dbo.q VALUES (1, 5), (2, 7)"));
  EXPECT_EQ(QString(), ejecuta(b, "UPDATE p SET v = p.v + q.n FROM p, q WHERE q.k = p.k AND q.n = 5"));
  EXPECT_EQ("1|15/2|20", b.respuesta("SELECT k, v FROM p ORDER BY k"));
  EXPECT_EQ(QString(), ejecuta(b, "DELETE FROM p FROM p, q WHERE q.k = p.k AND q.n = 7"));
  EXPECT_EQ("1|15", b.respuesta("SELECT k, v FROM p ORDER BY k"));
}

// Nulls come first there; what is never Null says nothing of them, so that its index gives the order.
TEST(MotorPostgres, WhatIsNeverNullIsPutInOrderByItsIndex) {
  BancoPostgres b({}, u8("CREATE TABLE dbo.a (k int PRIMARY KEY, v int); CREATE TABLE dbo.h (k int PRIMARY KEY, a int);"
                         "INSERT INTO dbo.a VALUES (1, NULL), (2, 1); INSERT INTO dbo.h VALUES (1, 2)"));
  const struct {
    const char *sql, *filas;
    bool nunca;
  } casos[] = {{"SELECT TOP 2 * FROM a ORDER BY k", "1|Null/2|1", true},
               {"SELECT x.k FROM a x LEFT JOIN h ON h.a = x.k ORDER BY x.k DESC", "2/1", true},
               {"SELECT h.k FROM a x LEFT JOIN h ON h.a = x.k ORDER BY h.k", "Null/1", false},
               {"SELECT * FROM h y RIGHT JOIN a ON y.a = a.k ORDER BY y.k", "Null|Null|1|Null/1|2|2|1", false},
               {"SELECT v AS k FROM a ORDER BY k", "Null/1", false},
               {"SELECT z.k FROM (SELECT h.k FROM a LEFT JOIN h ON h.a = a.k) z ORDER BY z.k", "Null/1", false},
               {"SELECT k FROM h UNION SELECT v FROM a ORDER BY k", "Null/1", false}};
  for (const auto& c : casos) {
    EXPECT_EQ(c.filas, b.respuesta(u8(c.sql))) << c.sql;
    EXPECT_EQ(c.nunca, !b.cnn.traducir(u8(c.sql)).contains(u8("NULLS"))) << c.sql;
  }
}

// Two desks that draw a number by MAX + 1 get it one after the other.
TEST(MotorPostgres, TheHighestNumberIsAskedForByOneAtATime) {
  BancoPostgres a(kTabla);
  Conexion b;
  ASSERT_FALSE(b.abrir(*a.motores, a.cadena, 500));
  const Sql pide = Sql::crudo(u8("SELECT ISNULL(MAX(id),0) + 1 AS n FROM dbo.t WHERE nom = 'x'"));
  Recordset rs;
  ASSERT_FALSE(a.cnn.iniciar());
  ASSERT_FALSE(b.iniciar());
  ASSERT_FALSE(a.cnn.consultar(pide, rs));
  EXPECT_EQ(1, rs[0].toInt());
  EXPECT_TRUE(b.consultar(pide, rs)) << "another draws";
  EXPECT_EQ(QString(), ejecuta(a, "INSERT INTO t VALUES (1,'x',NULL)"));
  ASSERT_FALSE(a.cnn.confirmar());
  ASSERT_FALSE(b.consultar(pide, rs));
  EXPECT_EQ(2, rs[0].toInt());
  EXPECT_FALSE(a.cnn.consultar(pide, rs)) << "who only looks waits for nobody";
}

TEST(MotorPostgres, SeesTablesThatAnotherProgramChanged) {
  BancoPostgres b(kTabla);
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t VALUES (1,'a',NULL)"));
  EXPECT_EQ("1|a|Null", b.respuesta("SELECT * FROM t WHERE id = 1"));
  b.crudo(u8("ALTER TABLE dbo.t ADD m numeric(9,2) DEFAULT 5.50"));
  EXPECT_EQ("1|a|Null|5.5", b.respuesta("SELECT * FROM t WHERE id = 1"));
  b.crudo(u8("DROP TABLE dbo.t"));
  EXPECT_TRUE(b.respuesta("SELECT * FROM t WHERE id = 1").startsWith(u"error"));
  EXPECT_EQ(QString(), ejecuta(b, "CREATE TABLE t (id varchar(5), n int IDENTITY(1,1), f datetime DEFAULT GETDATE())"));
  EXPECT_EQ(QString(), ejecuta(b, "INSERT INTO t (id) VALUES ('001 ')"));
  EXPECT_EQ("001|1|<2026-11-24 17:05:30>", b.respuesta("SELECT * FROM t WHERE id = 1"));

  // What one connection has read of them another goes by, and both find out.
  Conexion otra;
  ASSERT_FALSE(otra.abrir(*b.motores, b.cadena, 20'000));
  b.crudo(u8("DROP TABLE dbo.t; CREATE TABLE dbo.t (id int); INSERT INTO dbo.t VALUES (1)"));
  qint64 cambiadas = 0;
  ASSERT_FALSE(otra.ejecutar(Sql::crudo(u8("UPDATE t SET id = 2 WHERE id = 1")), &cambiadas));
  EXPECT_EQ(1, cambiadas);
  // ... but for those that are changed in a transaction, which may be undone.
  ASSERT_FALSE(b.cnn.iniciar());
  for (const char* sql : {"DROP TABLE t", "CREATE TABLE t (id varchar(5))", "INSERT INTO t VALUES ('1 ')"}) {
    EXPECT_EQ(QString(), ejecuta(b, sql)) << sql;
  }
  EXPECT_EQ("1", b.respuesta("SELECT id FROM t WHERE id = '1'"));
  ASSERT_FALSE(b.cnn.deshacer());
  ASSERT_FALSE(otra.ejecutar(Sql::crudo(u8("UPDATE t SET id = 3 WHERE id < 3")), &cambiadas));
  EXPECT_EQ("3", b.respuesta("SELECT id FROM t WHERE id > 2"));
}

}  // namespace
