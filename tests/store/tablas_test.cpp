#include "store/tablas.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QSet>

#include "apoyo/casos.h"
#include "servidores.h"

namespace {

// An empty database in memory, made of the statements under test, spoken to without any layer of ours.
class Base {
 public:
  explicit Base(const QStringList& tablas) {
    EXPECT_EQ(SQLITE_OK, sqlite3_open(":memory:", &db_));
    for (const QString& s : tablas) ejecuta(s);
  }
  Base(const Base&) = delete;
  ~Base() { sqlite3_close(db_); }
  void ejecuta(const QString& sql) { filas(sql); }
  bool acepta(const QString& sql) {
    return sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  // Cells joined by "|", rows by line ends; a Null is "Null".
  QString filas(const QString& sql) {
    QStringList lineas;
    const auto anota = [](void* lista, int n, char** celdas, char**) {
      QStringList fila;
      for (int i = 0; i < n; ++i) fila << (celdas[i] ? QString::fromUtf8(celdas[i]) : QStringLiteral("Null"));
      *static_cast<QStringList*>(lista) << fila.join(u'|');
      return 0;
    };
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(db_, sql.toUtf8().constData(), anota, &lineas, nullptr))
        << qPrintable(sql) << "\n"
        << sqlite3_errmsg(db_);
    return lineas.join(u'\n');
  }
  QString plan(const QString& sql) {
    QStringList pasos;
    for (const QString& f : filas(QStringLiteral("EXPLAIN QUERY PLAN ") + sql).split(u'\n'))
      pasos << f.section(u'|', 3);
    return pasos.join(u'\n');
  }

 private:
  sqlite3* db_ = nullptr;
};

QString u8(const char* t) { return QString::fromUtf8(t); }

TEST(Tablas, ColumnsHaveOnlyTheTypesThatTheDialectKnows) {
  const QSet<QString> tipos{u8("INTEGER"), u8("REAL"), u8("TEXT"), u8("DATETIME")};
  for (const auto& tablas : {tablasDelPuesto(), tablasDelCentral(), tablasDelCliente()}) {
    Base b(tablas);
    const QString columnas =
        b.filas(u8("SELECT m.name, c.name, c.type FROM sqlite_master m, pragma_table_info(m.name) c "
                   "WHERE m.type = 'table' AND m.name <> 'sqlite_sequence'"));
    for (const QString& c : columnas.split(u'\n')) EXPECT_TRUE(tipos.contains(c.section(u'|', 2))) << qPrintable(c);
    // Only built-in collations, and on every text column.
    const QString sql = b.filas(u8("SELECT sql FROM sqlite_master WHERE sql IS NOT NULL"));
    EXPECT_EQ(sql.count(u8(" TEXT")), sql.count(u8(" TEXT COLLATE NOCASE")));
  }
}

TEST(Tablas, WhatAnInsertLeavesOut) {
  for (const auto& c : leerCasos("store/omisiones")) {
    SCOPED_TRACE(c.donde());
    Base b(tablasDelPuesto());
    b.ejecuta(c["sentencia"]);
    EXPECT_EQ(c["sale"], b.filas(c["consulta"]));
  }
}

TEST(Tablas, KeysRefuseASecondRow) {
  for (const auto& c : leerCasos("store/claves")) {
    Base b(tablasDelPuesto());
    b.ejecuta(c["primera"]);
    EXPECT_EQ(c.si("acepta"), b.acepta(c["segunda"])) << c.donde();
  }
}

TEST(Tablas, RowNumbersAreNotGivenOutAgain) {
  Base b(tablasDelPuesto());
  b.ejecuta(u8("INSERT INTO Operacion (cOperCode) VALUES (1), (2); DELETE FROM Operacion; "
               "INSERT INTO Operacion (cOperCode) VALUES (3)"));
  EXPECT_EQ(u8("3"), b.filas(u8("SELECT cOperID FROM Operacion")));
}

TEST(Tablas, APurgeMovesWholeRows) {
  // clang-format off
  const struct { const char *viva, *historia; } kPares[] = {
      {"Operacion", "Operacion_Historico"},
      {"OperacionParalela", "OperacionParalela_Historico"},
      {"OperacionParalelaProducto", "OperacionParalelaProductoHist"},
  };
  // clang-format on
  for (const auto& p : kPares) {
    Base b(tablasDelPuesto());
    const QString columnas = u8("SELECT name, type, dflt_value FROM pragma_table_info('%1')");
    EXPECT_EQ(b.filas(columnas.arg(u8(p.viva))), b.filas(columnas.arg(u8(p.historia))));
    b.ejecuta(
        QStringLiteral("INSERT INTO %1 (cOperCode, cProdCode) VALUES (1, 2)")
            .replace(u8(", cProdCode"), u8(p.viva) == u8("OperacionParalela") ? u8(", cOperTipo") : u8(", cProdCode"))
            .arg(u8(p.viva)));
    // Twice: codes start again when a store is emptied, and history must take the second row as well.
    for (int i = 0; i < 2; ++i)
      b.ejecuta(QStringLiteral("INSERT INTO %2 SELECT * FROM %1").arg(u8(p.viva), u8(p.historia)));
    EXPECT_EQ(u8("2"), b.filas(QStringLiteral("SELECT count(*) FROM ") + u8(p.historia)));
  }
}

// What stands in a plan says how much is read: SEARCH goes to the rows asked for, SCAN reads the table.
TEST(Tablas, NeitherASaleNorAServersAnswerReadsAWholeTable) {
  Base puesto(tablasDelPuesto()), central(tablasDelCentral()), cliente(tablasDelCliente());
  for (const auto& c : leerCasos("store/planes")) {
    SCOPED_TRACE(c.donde());
    Base& b = c["base"] == u"puesto" ? puesto : c["base"] == u"central" ? central : cliente;
    const QString plan = b.plan(c["sql"]);
    EXPECT_TRUE(plan.contains(u8("SEARCH"))) << qPrintable(plan);
    EXPECT_FALSE(plan.contains(u8("SCAN"))) << qPrintable(plan);
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

}  // namespace
