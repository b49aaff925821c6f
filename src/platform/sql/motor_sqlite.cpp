#include "platform/sql/motor_sqlite.h"

#include "platform/sql/archivo_sqlite.h"
#include "platform/sql/catalogo_sqlite.h"
#include "platform/sql/errores_sqlite.h"

namespace {

constexpr int kEsperaBloqueo_ms = 5000;  // a backup or the support console may hold the file for a moment

ErrorBD errorPropio(qint64 numero, const QString& palabras) { return {numero, 0, palabras}; }

}  // namespace

MotorSqlite::MotorSqlite(Dialecto dialecto, const OpcionesMotores& opciones, std::shared_ptr<MemoriaDeFormas> memoria)
    : procedimientos_(opciones.procedimientos),
      interrumpir_(opciones.interrumpir),
      camino_(dialecto, kPalabrasSqlite, std::move(memoria)) {
  entorno_.dialecto = dialecto;
  entorno_.ahora = opciones.ahora;
}

MotorSqlite::~MotorSqlite() {
  formas_.vaciar();
  sqlite3_close_v2(base_);
}

std::unique_ptr<MotorSqlite> MotorSqlite::abrir(const QString& archivo, Dialecto dialecto, int espera_ms,
                                                const OpcionesMotores& opciones,
                                                std::shared_ptr<MemoriaDeFormas> memoria, ErrorBD& error) {
  LiberarAuxiliaresSqlite(archivo);
  if (const auto porque = RevisarArchivoSqlite(archivo)) {
    error = errorPropio(kErrorGeneral, *porque);
    return {};
  }
  std::unique_ptr<MotorSqlite> m(new MotorSqlite(dialecto, opciones, std::move(memoria)));
  if (const auto e = m->preparar(archivo, espera_ms)) {
    error = *e;
    return {};
  }
  return m;
}

std::optional<ErrorBD> MotorSqlite::preparar(const QString& archivo, int espera_ms) {
  const QByteArray ruta = archivo.toUtf8();
  int rc = sqlite3_open_v2(ruta.constData(), &base_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) return errorDe(base_, rc);
  catalogo_ = std::make_unique<CatalogoSqlite>(base_);
  sqlite3_extended_result_codes(base_, 1);
  sqlite3_busy_timeout(base_, espera_ms);
  sqlite3_db_config(base_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(base_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(base_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(base_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(base_, SQLITE_DBCONFIG_ENABLE_FKEY, 0, nullptr);
  sqlite3_limit(base_, SQLITE_LIMIT_ATTACHED, 0);
  // It reads the schema, which is what shows that the pages behind the first are those of a database.
  if (auto e = directa("PRAGMA synchronous=FULL")) {
    if ((e->nativo & 0xff) == SQLITE_BUSY) e->numero = kErrorTiempo;
    return e;
  }
  if (auto e = directa("PRAGMA recursive_triggers=OFF")) return e;
  if (!entorno_.ahora) {
    entorno_.ahora = [this] {
      Recordset rs;
      consultar(QStringLiteral("SELECT strftime('%Y-%m-%d %H:%M:%S','now','localtime')"), {}, rs);
      return leerInstante(rs[0].toString()).value_or(QDateTime());
    };
  }
  if (auto e = registrarServidor()) return e;
  if (interrumpir_) {
    sqlite3_progress_handler(
        base_, 1000, [](void* yo) { return static_cast<MotorSqlite*>(yo)->interrumpir_() ? 1 : 0; }, this);
  }
  sqlite3_busy_timeout(base_, std::min(espera_ms, kEsperaBloqueo_ms));
  return {};
}

// One function of the server as the engine calls it.
struct FuncionRegistrada {
  MotorSqlite* motor;
  FuncionServidor funcion;

  static void llamar(sqlite3_context* c, int n, sqlite3_value** v) {
    auto* yo = static_cast<FuncionRegistrada*>(sqlite3_user_data(c));
    QVariantList args;
    for (int i = 0; i < n; ++i) {
      switch (sqlite3_value_type(v[i])) {
        case SQLITE_NULL: args << QVariant(); break;
        case SQLITE_INTEGER: args << QVariant(static_cast<qint64>(sqlite3_value_int64(v[i]))); break;
        case SQLITE_FLOAT: args << sqlite3_value_double(v[i]); break;
        default: args << textoDe(v[i]);
      }
    }
    QVariant valor;
    if (const auto e = yo->funcion(*yo->motor, args, valor)) return darError(c, e->descripcion);
    if (!valor.isValid()) sqlite3_result_null(c);
    else if (valor.typeId() == QMetaType::Double) sqlite3_result_double(c, valor.toDouble());
    else if (valor.canConvert<qint64>() && valor.typeId() != QMetaType::QString)
      sqlite3_result_int64(c, valor.toLongLong());
    else darTexto(c, valor.toString());
  }
  static void soltar(void* yo) { delete static_cast<FuncionRegistrada*>(yo); }
};

std::optional<ErrorBD> MotorSqlite::registrarServidor() {
  if (!procedimientos_ || entorno_.dialecto == Dialecto::Jet) return {};
  const auto& funciones = procedimientos_->funciones();
  for (auto f = funciones.cbegin(); f != funciones.cend(); ++f) {
    auto* registrada = new FuncionRegistrada{this, f.value()};  // the engine lets go of it, also when this call fails
    const int rc = sqlite3_create_function_v2(base_, f.key().toUtf8().constData(), -1, SQLITE_UTF8, registrada,
                                              FuncionRegistrada::llamar, nullptr, nullptr, FuncionRegistrada::soltar);
    if (rc != SQLITE_OK) return errorDe(base_, rc);
  }
  return {};
}

std::optional<ErrorBD> MotorSqlite::consultar(const QString& sql, Recordset& rs) {
  rs.llenar({}, {});
  return correr(sql, &rs, nullptr);
}

std::optional<ErrorBD> MotorSqlite::ejecutar(const QString& sql, qint64* afectadas) {
  return correr(sql, nullptr, afectadas);
}

std::optional<ErrorBD> MotorSqlite::correr(const QString& sql, Recordset* rs, qint64* afectadas) {
  if (entorno_.dialecto == Dialecto::TSql) {
    if (const auto llamada = leerLlamada(sql)) return llamar(*llamada, rs);
  }
  return correrSentencia(sql, rs, afectadas);
}

std::optional<ErrorBD> MotorSqlite::correrSentencia(const QString& sql, Recordset* rs, qint64* afectadas) {
  std::optional<ErrorBD> error;
  const bool enTransaccion = sqlite3_get_autocommit(base_) == 0;
  SentenciaLeida s(sql, entorno_.dialecto);
  if (auto e = camino_.reconocer(s)) return e;
  const std::shared_ptr<Preparada> p = preparada(s, error);
  if (!p) return error;
  if (p->forma->tablaNueva.isEmpty()) {
    error = ligar(*p, s);
    if (!error) error = rs && p->forma->tope.vale() ? recorrerTope(*p, s, *rs) : recorrer(*p, rs, afectadas);
  } else {
    error = llenarTablaNueva(*p, s, afectadas);
  }
  const bool acabada = enTransaccion && sqlite3_get_autocommit(base_) != 0;  // a full disk ends one too
  if (p->forma->cambiaEsquema || acabada) olvidarEsquema();
  return error;
}

void MotorSqlite::olvidarEsquema() {
  catalogo_->olvidar();
  formas_.vaciar();
  esquema_ = -1;
}

// The state of the tables by the engine's count of their changes; below 0 in a transaction, where they may be undone.
int MotorSqlite::esquema() {
  if (sqlite3_get_autocommit(base_) == 0) return -1;
  if (esquema_ >= 0) return esquema_;
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(base_, "PRAGMA schema_version", -1, &s, nullptr) == SQLITE_OK &&
      sqlite3_step(s) == SQLITE_ROW) {
    esquema_ = sqlite3_column_int(s, 0);
  }
  sqlite3_finalize(s);
  return esquema_;
}

std::shared_ptr<Preparada> MotorSqlite::preparada(const SentenciaLeida& s, std::optional<ErrorBD>& error) {
  if (auto p = formas_.buscar(s.forma, s.sql, s.tokens); p && !sqlite3_stmt_busy(p->sentencia)) return p;
  auto p = prepararNueva(s, error);
  if (p) formas_.guardar(s.forma, s.sql, s.tokens, p->forma->fijos, p);
  return p;
}

std::shared_ptr<Preparada> MotorSqlite::prepararNueva(const SentenciaLeida& s, std::optional<ErrorBD>& error) {
  auto p = std::make_shared<Preparada>();
  p->forma = camino_.escribir(s, esquema(), *catalogo_, error);
  if (!p->forma) return {};
  if (const int rc = compilar(p->forma->texto, SQLITE_PREPARE_PERSISTENT, p->sentencia); rc != SQLITE_OK) {
    error = errorDe(base_, rc);
    return {};
  }
  if (!p->sentencia) {
    error = errorPropio(kErrorSentencia, QStringLiteral("La sentencia está vacía."));
    return {};
  }
  nombrarCampos(*p);
  return p;
}

// The columns that come back: their names, and which of them are dates.
void MotorSqlite::nombrarCampos(Preparada& p) const {
  const int columnas = sqlite3_column_count(p.sentencia);
  const std::vector<Columna>& salida = p.forma->salida;
  const bool conTipos = static_cast<int>(salida.size()) == columnas - p.forma->tope.agregadas;
  for (int i = 0; i < columnas; ++i) {
    const Columna* c = conTipos && i < static_cast<int>(salida.size()) ? &salida[static_cast<size_t>(i)] : nullptr;
    // An expression without a name has the dialect's, not the engine's words for it.
    const QString sinNombre = entorno_.dialecto == Dialecto::Jet ? QStringLiteral("Expr%1").arg(1000 + i) : QString();
    p.campos << (c && c->nombre.isEmpty() ? sinNombre : QString::fromUtf8(sqlite3_column_name(p.sentencia, i)));
    const char* declarado = sqlite3_column_decltype(p.sentencia, i);
    p.fechas.push_back((declarado && tipoDeclarado(QString::fromUtf8(declarado)) == Tipo::Fecha) ||
                       (c && c->tipo == Tipo::Fecha));
  }
}

int MotorSqlite::compilar(const QByteArray& texto, unsigned opciones, sqlite3_stmt*& sentencia) {
  if (const int rc = registrarFunciones(base_, entorno_, texto)) return rc;
  return sqlite3_prepare_v3(base_, texto.constData(), static_cast<int>(texto.size()), opciones, &sentencia, nullptr);
}

std::optional<ErrorBD> MotorSqlite::llamar(const Llamada& llamada, Recordset* rs) {
  if (llamada.error) return llamada.error;
  const Procedimiento* p = procedimientos_ ? procedimientos_->procedimiento(llamada.nombre) : nullptr;
  if (!p) {
    return ErrorBD{kErrorSentencia, 2812,
                   QStringLiteral("No se encuentra el procedimiento almacenado '%1'.").arg(llamada.nombre)};
  }
  if (const auto e = directa("SAVEPOINT procedimiento")) return e;
  Recordset propio;
  auto error = (*p)(*this, llamada.argumentos, rs ? *rs : propio);
  if (error) {
    directa("ROLLBACK TO procedimiento");
    if (rs) rs->llenar({}, {});
  }
  if (const auto e = directa("RELEASE procedimiento"); e && !error) {
    directa("ROLLBACK TO procedimiento");
    directa("RELEASE procedimiento");
    return e;
  }
  return error;
}

std::optional<ErrorBD> MotorSqlite::consultar(const QString& sql, const QVariantList& valores, Recordset& rs) {
  Preparada p;
  const QByteArray texto = sql.toUtf8();
  int rc = compilar(texto, 0, p.sentencia);
  for (int i = 0; rc == SQLITE_OK && i < valores.size(); ++i) rc = ligarValor(p.sentencia, i + 1, valores[i]);
  if (rc != SQLITE_OK) return errorDe(base_, rc);
  const int columnas = sqlite3_column_count(p.sentencia);
  for (int i = 0; i < columnas; ++i) {
    p.campos << QString::fromUtf8(sqlite3_column_name(p.sentencia, i));
    const char* declarado = sqlite3_column_decltype(p.sentencia, i);
    p.fechas.push_back(declarado && tipoDeclarado(QString::fromUtf8(declarado)) == Tipo::Fecha);
  }
  return recorrer(p, &rs, nullptr);
}

std::optional<ErrorBD> MotorSqlite::ejecutar(const QString& sql, const QVariantList& valores, qint64* afectadas) {
  Recordset rs;
  auto error = consultar(sql, valores, rs);
  if (!error && afectadas) *afectadas = sqlite3_changes64(base_);
  return error;
}

std::optional<ErrorBD> MotorSqlite::directa(const char* sql) {
  const int rc = sqlite3_exec(base_, sql, nullptr, nullptr, nullptr);
  if (rc == SQLITE_OK) return {};
  return errorDe(base_, rc);
}

std::optional<ErrorBD> MotorSqlite::iniciar() { return directa("BEGIN IMMEDIATE"); }
std::optional<ErrorBD> MotorSqlite::confirmar() { return directa("COMMIT"); }

// A full disk has undone the transaction already.
std::optional<ErrorBD> MotorSqlite::deshacer() {
  if (sqlite3_get_autocommit(base_) != 0) return {};
  auto error = directa("ROLLBACK");
  olvidarEsquema();  // tables may have been made or changed inside
  return error;
}

QString MotorSqlite::traducir(const QString& sql) {
  if (entorno_.dialecto == Dialecto::TSql && leerLlamada(sql)) return sql;
  return camino_.traducir(sql, *catalogo_);
}
