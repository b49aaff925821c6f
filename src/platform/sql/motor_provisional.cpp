// A thin engine until the dialect layer stands: literals, a handful of words, dates as ISO text.
#include <sqlite3.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QHash>

#include "platform/sql/cadena_conexion.h"
#include "platform/sql/crear_sqlite.h"
#include "platform/sql/motor.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

ErrorBD errorDe(sqlite3* db) {
  const int rc = sqlite3_extended_errcode(db);
  const QString d = QString::fromUtf8(sqlite3_errmsg(db));
  if (rc == SQLITE_CONSTRAINT_PRIMARYKEY || rc == SQLITE_CONSTRAINT_UNIQUE) return {kErrorSentencia, kNativoClaveDuplicada, d};
  return {kErrorSentencia, rc, d};
}

QString reescribir(const QString& sql, bool jet) {
  QString sale;
  QString ultima;
  for (qsizetype i = 0; i < sql.size();) {
    const QChar c = sql[i];
    if (c == u'\'') {
      qsizetype j = i + 1;
      while (j < sql.size() && (sql[j] != u'\'' || (j + 1 < sql.size() && sql[j + 1] == u'\''))) j += sql[j] == u'\'' ? 2 : 1;
      const QString t = sql.mid(i + 1, j - i - 1);
      const auto f = t.size() >= 8 ? LeerFecha(t) : std::nullopt;
      sale += u'\'' + (f && t.contains(u'/') ? FechaISO(*f) : t) + u'\'';
      i = j + 1;
    } else if (c == u'#') {
      const auto j = sql.indexOf(u'#', i + 1);
      if (j < 0) return sql;
      const auto f = LeerFecha(QStringView(sql).mid(i + 1, j - i - 1), OrdenFecha::MesDia);
      sale += u'\'' + (f ? FechaISO(*f) : QString()) + u'\'';
      i = j + 1;
    } else if (c.isLetter() || c == u'_') {
      qsizetype j = i;
      while (j < sql.size() && (sql[j].isLetterOrNumber() || sql[j] == u'_')) ++j;
      QString w = sql.mid(i, j - i);
      const QString m = w.toLower();
      qsizetype k = j;
      while (k < sql.size() && sql[k] == u' ') ++k;
      const bool llama = k < sql.size() && sql[k] == u'(';
      if (m == u"isnull" && llama) w = jet ? QStringLiteral("jet_isnull") : QStringLiteral("ifnull");
      if (m == u"format" && llama) w = QStringLiteral("jet_format");
      if (m == u"int" && !llama) w = QStringLiteral("integer");
      if (m == u"getdate" || m == u"now") w = QStringLiteral("tp_now");
      if (m == u"datetime" && ultima == u"convert") w = QStringLiteral("'DATETIME'");
      if (ultima == u"set" && j < sql.size() && sql[j] == u'.') { i = j + 1; continue; }
      sale += w;
      ultima = m;
      i = j;
    } else if (c == u'*' && ultima == u"delete") {
      ++i;
    } else if (c == u'+' ) {
      sale += u"||";
      ++i;
    } else {
      if (c.isDigit() && !ultima.isEmpty()) ultima.clear();
      sale += c;
      ++i;
    }
  }
  // Sums of numbers: a bare "+ 1" stays a sum.
  return sale.replace(QStringLiteral(" || 1"), QStringLiteral(" + 1"));
}

void fnFormat(sqlite3_context* ctx, int n, sqlite3_value** v) {
  const QString m = n > 1 ? QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(v[1]))) : QString();
  if (sqlite3_value_type(v[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
  QString r;
  const QString t = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(v[0])));
  const auto f = LeerFecha(t);
  r = f ? FormatearFecha(*f, m) : Formatear(sqlite3_value_double(v[0]), m);
  const QByteArray u = r.toUtf8();
  sqlite3_result_text(ctx, u.constData(), int(u.size()), SQLITE_TRANSIENT);
}
void fnIsNull(sqlite3_context* ctx, int, sqlite3_value** v) { sqlite3_result_int(ctx, sqlite3_value_type(v[0]) == SQLITE_NULL); }
void fnNow(sqlite3_context* ctx, int, sqlite3_value**) { sqlite3_result_null(ctx); }
void fnChr(sqlite3_context* ctx, int, sqlite3_value** v) {
  const char c = static_cast<char>(sqlite3_value_int(v[0]));
  sqlite3_result_text(ctx, &c, 1, SQLITE_TRANSIENT);
}

void fnConvert(sqlite3_context* ctx, int, sqlite3_value** v) { sqlite3_result_value(ctx, v[1]); }

class MotorProvisional final : public Motor {
 public:
  MotorProvisional(sqlite3* db, bool jet) : db_(db), jet_(jet) {
    sqlite3_busy_timeout(db_, 5000);
    sqlite3_create_function(db_, "jet_format", 2, SQLITE_UTF8, nullptr, fnFormat, nullptr, nullptr);
    sqlite3_create_function(db_, "jet_isnull", 1, SQLITE_UTF8, nullptr, fnIsNull, nullptr, nullptr);
    sqlite3_create_function(db_, "tp_now", 0, SQLITE_UTF8, nullptr, fnNow, nullptr, nullptr);
    sqlite3_create_function(db_, "convert", 3, SQLITE_UTF8, nullptr, fnConvert, nullptr, nullptr);
    sqlite3_create_function(db_, "chr", 1, SQLITE_UTF8, nullptr, fnChr, nullptr, nullptr);
  }
  ~MotorProvisional() override { sqlite3_close(db_); }
  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override { return correr(sql, &rs, nullptr); }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* n) override { return correr(sql, nullptr, n); }
  std::optional<ErrorBD> iniciar() override { return correr(QStringLiteral("BEGIN"), nullptr, nullptr); }
  std::optional<ErrorBD> confirmar() override { return correr(QStringLiteral("COMMIT"), nullptr, nullptr); }
  std::optional<ErrorBD> deshacer() override { return correr(QStringLiteral("ROLLBACK"), nullptr, nullptr); }
  QString traducir(const QString& sql) override { return reescribir(sql, jet_); }

 private:
  std::optional<ErrorBD> correr(const QString& sql, Recordset* rs, qint64* n) {
    const QByteArray u = reescribir(sql, jet_).toUtf8();
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db_, u.constData(), int(u.size()), &st, nullptr) != SQLITE_OK) return errorDe(db_);
    QStringList campos;
    std::vector<std::vector<QVariant>> filas;
    const int nc = sqlite3_column_count(st);
    for (int i = 0; i < nc; ++i) campos += QString::fromUtf8(sqlite3_column_name(st, i));
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
      std::vector<QVariant> f;
      for (int i = 0; i < nc; ++i) {
        switch (sqlite3_column_type(st, i)) {
          case SQLITE_NULL: f.emplace_back(); break;
          case SQLITE_INTEGER: f.emplace_back(qint64(sqlite3_column_int64(st, i))); break;
          case SQLITE_FLOAT: f.emplace_back(sqlite3_column_double(st, i)); break;
          default: {
            const QString t = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, i)));
            const bool iso = t.size() == 19 && t[4] == u'-' && t[10] == u' ';
            const auto d = iso ? LeerFecha(t) : std::nullopt;
            f.push_back(d ? QVariant(*d) : QVariant(t));
          }
        }
      }
      filas.push_back(std::move(f));
    }
    std::optional<ErrorBD> e;
    if (rc != SQLITE_DONE) e = errorDe(db_);
    sqlite3_finalize(st);
    if (e) return e;
    if (rs) rs->llenar(campos, std::move(filas));
    if (n) *n = sqlite3_changes64(db_);
    return {};
  }
  sqlite3* db_;
  bool jet_;
};

class MotoresProvisionales final : public Motores {
 public:
  explicit MotoresProvisionales(QString c) : carpeta_(std::move(c)) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int, ErrorBD& error) override {
    const auto c = leerCadenaConexion(cadena);
    if (c.tipo != TipoMotor::Local && c.tipo != TipoMotor::Embebido) {
      error = {kErrorGeneral, 0, QStringLiteral("Motor no disponible: ") + c.servidor};
      return {};
    }
    const QString ruta = c.tipo == TipoMotor::Local ? c.archivo : QDir(carpeta_).filePath(c.archivo);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(ruta.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
        sqlite3_exec(db, "SELECT 1 FROM sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
      error = {kErrorGeneral, 0, QString::fromUtf8(sqlite3_errmsg(db))};
      sqlite3_close(db);
      return {};
    }
    return std::make_unique<MotorProvisional>(db, c.tipo == TipoMotor::Local);
  }

 private:
  QString carpeta_;
};

}  // namespace

std::unique_ptr<Motores> motoresDelSistema(const QString& carpeta) { return std::make_unique<MotoresProvisionales>(carpeta); }

std::optional<ErrorBD> crearBaseSqlite(const QString& archivo, const QStringList& sentencias) {
  if (QFile::exists(archivo)) return ErrorBD{kErrorGeneral, 0, archivo + QStringLiteral(" ya existe")};
  sqlite3* db = nullptr;
  sqlite3_open(archivo.toUtf8().constData(), &db);
  std::optional<ErrorBD> e;
  sqlite3_exec(db, "PRAGMA journal_mode=WAL; BEGIN", nullptr, nullptr, nullptr);
  for (const QString& s : sentencias) {
    if (sqlite3_exec(db, s.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK && !e) e = errorDe(db);
  }
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  if (e) QFile::remove(archivo);
  return e;
}
