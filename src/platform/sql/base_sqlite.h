#pragma once
// A SQLite file without any dialect over it, for service work.
#include <sqlite3.h>

#include <QStringList>
#include <memory>

struct CierreSqlite {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using BaseSqlite = std::unique_ptr<sqlite3, CierreSqlite>;

// Opens the file with SQLite's own flags; waits for locks. On failure nothing, and `error` has the words.
BaseSqlite AbrirSqlite(const QString& archivo, int modo, QString& error);

// All rows of a query, each a list of texts, Null as "". On failure false, and `error` has the words.
bool FilasSqlite(sqlite3* db, const QString& sql, QList<QStringList>& filas, QString& error);
