#include "platform/sql/base_sqlite.h"

namespace {

constexpr int kEspera_ms = 5000;

}  // namespace

BaseSqlite AbrirSqlite(const QString& archivo, int modo, QString& error) {
  sqlite3* db = nullptr;
  const int r = sqlite3_open_v2(archivo.toUtf8().constData(), &db, modo, nullptr);
  BaseSqlite base(db);
  if (r != SQLITE_OK) {
    error = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("falta memoria");
    return {};
  }
  sqlite3_busy_timeout(db, kEspera_ms);
  return base;
}

bool FilasSqlite(sqlite3* db, const QString& sql, QList<QStringList>& filas, QString& error) {
  filas.clear();
  sqlite3_stmt* s = nullptr;
  int r = sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &s, nullptr);
  while (r == SQLITE_OK || r == SQLITE_ROW) {
    r = sqlite3_step(s);
    if (r != SQLITE_ROW) break;
    QStringList fila;
    for (int i = 0; i < sqlite3_column_count(s); ++i) {
      fila << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, i)));
    }
    filas << fila;
  }
  if (r != SQLITE_DONE) error = QString::fromUtf8(sqlite3_errmsg(db));
  sqlite3_finalize(s);
  return r == SQLITE_DONE;
}
