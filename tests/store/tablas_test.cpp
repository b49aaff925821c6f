#include "store/tablas.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QSet>
#include <memory>

#include "servidores.h"

namespace {

// An empty database in memory, made of the statements under test, spoken to without any layer of ours.
class Base {
 public:
  explicit Base(const QStringList& tablas) {
    sqlite3* db = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_open(":memory:", &db));
    db_.reset(db);
    for (const QString& s : tablas) ejecuta(s);
  }
  void ejecuta(const QString& sql) {
    char* error = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(db_.get(), sql.toUtf8().constData(), nullptr, nullptr, &error)) << qPrintable(sql) << "\n"
                                                                                          << (error ? error : "");
    sqlite3_free(error);
  }
  bool acepta(const QString& sql) { return sqlite3_exec(db_.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK; }
  // Cells joined by "|", rows by line ends; a Null is "Null".
  QString filas(const QString& sql) {
    QStringList lineas;
    sqlite3_stmt* s = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(db_.get(), sql.toUtf8().constData(), -1, &s, nullptr))
        << qPrintable(sql) << "\n" << sqlite3_errmsg(db_.get());
    while (sqlite3_step(s) == SQLITE_ROW) {
      QStringList celdas;
      for (int i = 0; i < sqlite3_column_count(s); ++i) {
        const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, i));
        celdas << (t ? QString::fromUtf8(t) : QStringLiteral("Null"));
      }
      lineas << celdas.join(u'|');
    }
    sqlite3_finalize(s);
    return lineas.join(u'\n');
  }
  QString plan(const QString& sql) {
    const QString filasPlan = filas(QStringLiteral("EXPLAIN QUERY PLAN ") + sql);
    QStringList pasos;
    for (const QString& f : filasPlan.split(u'\n')) pasos << f.section(u'|', 3);
    return pasos.join(u'\n');
  }

 private:
  struct Cierre { void operator()(sqlite3* d) const { sqlite3_close(d); } };
  std::unique_ptr<sqlite3, Cierre> db_;
};

QString u8(const char* t) { return QString::fromUtf8(t); }

TEST(Tablas, ColumnsHaveOnlyTheTypesThatTheDialectKnows) {
  const QSet<QString> tipos{u8("INTEGER"), u8("REAL"), u8("TEXT"), u8("DATETIME")};
  for (const auto& tablas : {tablasDelPuesto(), tablasDelCentral(), tablasDelCliente()}) {
    Base b(tablas);
    const QString columnas = b.filas(u8("SELECT m.name, c.name, c.type FROM sqlite_master m, pragma_table_info(m.name) c "
                                        "WHERE m.type = 'table' AND m.name <> 'sqlite_sequence'"));
    for (const QString& c : columnas.split(u'\n')) EXPECT_TRUE(tipos.contains(c.section(u'|', 2))) << qPrintable(c);
    // Only built-in collations, and on every text column.
    const QString sql = b.filas(u8("SELECT sql FROM sqlite_master WHERE sql IS NOT NULL"));
    EXPECT_EQ(sql.count(u8(" TEXT")), sql.count(u8(" TEXT COLLATE NOCASE")));
  }
}

TEST(Tablas, WhatAnInsertLeavesOut) {
  const struct { const char *porque, *sentencia, *consulta, *sale; } kCasos[] = {
      {"a withdrawal has no article, card or document, and counts as open",
       "INSERT INTO OPERACION (cOperCode, cUserDesc, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cCajaCodi, "
       "cTurnoCodi) VALUES (7, 'ANA', 1, 50, '2026-11-24 10:30:00', 5, '00001', '01')",
       "SELECT cOperID, cProdCode, nMontoSoles, nMontoDolares, nVueltoDolares, nDscto, nServicio, cOperCodeAnula, "
       "cOperFlagAnula, cOperFlagAbierto, typeof(cFlagSincronizacion), cFlagSincronizacion, nTarjNumb, cDocTipo, "
       "cDocCodigo, cEmisor, IdLocal FROM operacion",
       "1|Null|0.0|0.0|0.0|0.0|0.0|0|0|1|text|0|Null|Null|Null|Null|Null"},
      {"the start number leaves a bare row", "INSERT INTO Operacion(cOperCode) VALUES ('4999')",
       "SELECT max(cOperCode), typeof(cOperCode), cProdCode, cOperTipo FROM Operacion", "4999|integer|Null|0"},
      {"a parallel document is open, unsent and not voided",
       "INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, cEstado) VALUES (1, 21, '1')",
       "SELECT cOperFlagAbierto, cFlagSincronizacion, cOperCodeAnul, cOperCodeRela, nMoneda FROM OperacionParalela",
       "1|0|0|0|0"},
      {"an article typed at the desk can be sold",
       "INSERT INTO Producto (cAlmaCode, cProdCode, nProdPrecUnit) VALUES ('01', 5, '1.5')",
       "SELECT nActivo, cFlagCanje, nPuntos, cFlagServicio, cProdFlagCanje, cFlagDetracc, nProdPrecUnit FROM Producto",
       "1|0|0|0|0|0|1.5"},
      {"a pulled customer waits for nothing", "INSERT INTO Cliente (cClieCode) VALUES (3)",
       "SELECT cSincroFlag, IdLocal, nPuntCant FROM Cliente", "1|0|0"},
      {"a Z waits for the push", "INSERT INTO CabeceraZ (IdZ, Caja) VALUES (1, '00001')",
       "SELECT bFlagSincro, obs FROM CabeceraZ", "0|Null"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Base b(tablasDelPuesto());
    b.ejecuta(u8(c.sentencia));
    EXPECT_EQ(u8(c.sale), b.filas(u8(c.consulta)));
  }
}

TEST(Tablas, KeysRefuseASecondRow) {
  const struct { const char *primera, *segunda; bool acepta; } kCasos[] = {
      {"INSERT INTO Producto (cProdCode, cAlmaCode) VALUES (1, '01')",
       "INSERT INTO Producto (cProdCode, cAlmaCode) VALUES (1, '01')", false},
      {"INSERT INTO Producto (cProdCode, cAlmaCode) VALUES (1, '01')",
       "INSERT INTO Producto (cProdCode, cAlmaCode) VALUES (1, '02')", true},
      {"INSERT INTO Tipo_Cambio VALUES ('2026-11-24 00:00:00', 3.75)",
       "INSERT INTO Tipo_Cambio VALUES ('2026-11-24 00:00:00', 3.80)", false},
      {"INSERT INTO Usuario (sUserDesc) VALUES ('ANA')", "INSERT INTO Usuario (sUserDesc) VALUES ('ana')", false},
      {"INSERT INTO Config_Documento (cTipoDoc) VALUES ('02')",
       "INSERT INTO Config_Documento (cTipoDoc) VALUES ('02')", false},
      {"INSERT INTO Cliente (cClieCode) VALUES (1)", "INSERT INTO Cliente (cClieCode) VALUES (1)", false},
      {"INSERT INTO Cliente (cClieCode, IdLocal) VALUES (1, 1)",
       "INSERT INTO Cliente (cClieCode, IdLocal) VALUES (1, 2)", true},
      {"INSERT INTO Tarjeta (nTarjNumb) VALUES ('00000001')", "INSERT INTO Tarjeta (nTarjNumb) VALUES ('00000001')",
       false},
      {"INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, IdLocal) VALUES (1, 1, 1)",
       "INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, IdLocal) VALUES (1, 1, 1)", true},
      {"INSERT INTO CabeceraZ (IdZ, Caja) VALUES (1, '00001')", "INSERT INTO CabeceraZ (IdZ, Caja) VALUES (1, '00001')",
       false},
  };
  for (const auto& c : kCasos) {
    Base b(tablasDelPuesto());
    b.ejecuta(u8(c.primera));
    EXPECT_EQ(c.acepta, b.acepta(u8(c.segunda))) << c.segunda;
  }
}

TEST(Tablas, RowNumbersAreNotGivenOutAgain) {
  Base b(tablasDelPuesto());
  b.ejecuta(u8("INSERT INTO Operacion (cOperCode) VALUES (1), (2); DELETE FROM Operacion; "
               "INSERT INTO Operacion (cOperCode) VALUES (3)"));
  EXPECT_EQ(u8("3"), b.filas(u8("SELECT cOperID FROM Operacion")));
}

TEST(Tablas, APurgeMovesWholeRows) {
  const struct { const char *viva, *historia; } kPares[] = {
      {"Operacion", "Operacion_Historico"},
      {"OperacionParalela", "OperacionParalela_Historico"},
      {"OperacionParalelaProducto", "OperacionParalelaProductoHist"},
  };
  for (const auto& p : kPares) {
    Base b(tablasDelPuesto());
    const QString columnas = u8("SELECT name, type, dflt_value FROM pragma_table_info('%1')");
    EXPECT_EQ(b.filas(columnas.arg(u8(p.viva))), b.filas(columnas.arg(u8(p.historia))));
    b.ejecuta(QStringLiteral("INSERT INTO %1 (cOperCode, cProdCode) VALUES (1, 2)")
                  .replace(u8(", cProdCode"), u8(p.viva) == u8("OperacionParalela") ? u8(", cOperTipo") : u8(", cProdCode"))
                  .arg(u8(p.viva)));
    // Twice: codes start again when a store is emptied, and history must take the second row as well.
    for (int i = 0; i < 2; ++i) b.ejecuta(QStringLiteral("INSERT INTO %2 SELECT * FROM %1").arg(u8(p.viva), u8(p.historia)));
    EXPECT_EQ(u8("2"), b.filas(QStringLiteral("SELECT count(*) FROM ") + u8(p.historia)));
  }
}

// What stands in a plan says how much is read: SEARCH goes to the rows asked for, SCAN reads the table.
TEST(Tablas, ASaleDoesNotReadTheHistory) {
  const char* const kSentencias[] = {
      "SELECT MAX(cOperCode) AS maximo FROM Operacion",
      "SELECT MAX(cOperCode) AS maximo FROM OperacionParalela",
      "SELECT MAX(cDocCodigo) AS maximo FROM Operacion WHERE cDocTipo IN ('01','02')",
      "SELECT MAX(cDocCodigo) AS maximo FROM OperacionParalela WHERE cDocTipo = '11'",
      "SELECT MAX(dOperFech) FROM Operacion",
      "SELECT MAX(dOperFech) FROM OperacionParalela",
      "SELECT * FROM Config_Documento WHERE cTipoDoc='02'",
      "UPDATE Config_Documento SET nDocCodigo=5 WHERE cTipodoc='02'",
      "SELECT idct + 1 as cod, maxid FROM _tmp1 WHERE prn=1",
      "SELECT sProdDescCrta FROM Producto WHERE cAlmaCode = '01' AND cProdCode = 5",
      "SELECT sProdDescCrta FROM Producto WHERE cAlmaCode = '01' AND cCodCatalogo = '1.25.003'",
      "SELECT * FROM OperacionParalela WHERE cOperCode=5",
      "UPDATE OPERACIONPARALELA SET cEstado = 2 WHERE cOperCode = 5",
      "SELECT cAlmaCode FROM OperacionParalelaProducto WHERE cOperCode = 5",
      "Select * FROM Operacion WHERE cOperCode= 5",
      "Select distinct cdocTipo, cOpercode from Operacion where cOperFlagAnula = 0 AND cOperFlagAbierto = 1 "
      "And cdocSerie = '001' And cDocCodigo = 5",
      "SELECT  * FROM OperacionParalela WHERE cDocSerie='OC1' AND cDocCodigo=5",
      "SELECT count(*) as TOTAL FROM Operacion WHERE cOperCodeAnula =5 AND cOperFlagAbierto = 1",
      "SELECT MAX(cOperID) FROM Operacion Where coperflagabierto = 0",
      "UPDATE OPERACION SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1",
      "UPDATE OPERACIONPARALELA SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1",
      "SELECT SUM(nMontoSoles + nProdPrecUnit) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1 AND cOperTipo in (1,3)",
      "SELECT count(*) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5) and o.cOperId > 100",
      "SELECT SUM(o.nProdCant) FROM Operacion o WHERE cOperTipo in (1,2,3) and o.cOperId > 100 AND cprodcode <> 0",
      "SELECT sum(o.nMontosoles) FROM OperacionParalela o WHERE o.cOperTipo in (22) and o.cEstado in ('1')",
      "SELECT SUM(nMontoSoles) as Total FROM OperacionParalela WHERE cOperCodeRela=5 AND cDocTipo='11'",
      "SELECT * FROM Acumulacion_Punto WHERE cSincroFlag = 0",
      "SELECT * FROM Cliente WHERE cSincroFlag = 0",
  };
  Base b(tablasDelPuesto());
  for (const char* s : kSentencias) {
    const QString plan = b.plan(u8(s));
    EXPECT_TRUE(plan.contains(u8("SEARCH"))) << s << "\n" << qPrintable(plan);
    EXPECT_FALSE(plan.contains(u8("SCAN"))) << s << "\n" << qPrintable(plan);
  }
}

// The highest number of two types at once is read from the top of one index, not from all rows of both types.
TEST(Tablas, TheHighestNumberCostsTheSameOverAnyHistory) {
  Base b(tablasDelPuesto());
  b.ejecuta(u8("WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 20000) "
               "INSERT INTO Operacion (cOperCode, cDocCodigo, cDocTipo) SELECT x, x, '02' FROM n"));
  EXPECT_EQ(u8("20000"), b.filas(u8("SELECT MAX(cDocCodigo) FROM Operacion WHERE cDocTipo IN ('01','02')")));
  EXPECT_EQ(u8("SEARCH Operacion USING COVERING INDEX Operacion_numero"),
            b.plan(u8("SELECT MAX(cDocCodigo) FROM Operacion WHERE cDocTipo IN ('01','02')")));
}

TEST(Tablas, ServersAnswerADeskWithoutReadingOtherDesks) {
  const char* const kCentral[] = {
      "SELECT max(cast(NroDoc as int)) FROM venta01 WHERE cCodCaja='00001' AND TipoDoc in ('01','02')",
      "SELECT CDocSerie, MAX(cDoccodigo) FROM operacion WHERE cCajaCodi='00001' group by CDocSerie",
      "SELECT MAX(cOperId) FROM operacion WHERE cCajaCodi='00001'",
      "SELECT Count(*) FROM Cuentacte WHERE cSerieDoc = '001' AND cNroDoc = '000005' AND cCodCaja = '00001'",
      "SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = '000005'",
      "DELETE FROM operacionparalelaproducto WHERE cOperCOde = 5 AND cCajaCodi = '00001'",
      "SELECT COUNT(1) FROM pagos WHERE cSerieDocPago='PA1'",
  };
  Base central(tablasDelCentral());
  for (const char* s : kCentral) EXPECT_FALSE(central.plan(u8(s)).contains(u8("SCAN"))) << s;
  const char* const kCliente[] = {
      "SELECT cClieCode FROM Tarjeta WHERE nTarjNumb = '00000001' AND IdLocal = 1",
      "SELECT MAX(cAcumCode) FROM Acumulacion_Punto WHERE cClieCode = 1 AND IdLocal = 1",
      "UPDATE Cliente SET nPuntCant = nPuntCant + 1 WHERE cClieCode = 1 AND IdLocal = 1",
  };
  Base cliente(tablasDelCliente());
  for (const char* s : kCliente) EXPECT_FALSE(cliente.plan(u8(s)).contains(u8("SCAN"))) << s;
}

}  // namespace
