#include "platform/sql/motor_sqlite.h"

#include <algorithm>
#include <cmath>

#include "platform/sql/archivo_sqlite.h"
#include "platform/sql/errores_sqlite.h"

namespace {

constexpr size_t kCeldasMaximas = 20'000'000;  // some 800 MB
constexpr int kEsperaBloqueo_ms = 5000;        // a backup or the support console may hold the file for a moment

// A stored date, and nothing else: "YYYY-MM-DD hh:mm:ss".
std::optional<QDateTime> fechaGuardada(const char* t, int largo) {
  if (largo != 19) return {};
  static const char kForma[] = "dddd-dd-dd dd:dd:dd";
  int v[6] = {};
  int campo = 0;
  for (int i = 0; i < 19; ++i) {
    if (kForma[i] != 'd') {
      if (t[i] != kForma[i]) return {};
      ++campo;
    } else if (t[i] < '0' || t[i] > '9') {
      return {};
    } else {
      v[campo] = v[campo] * 10 + (t[i] - '0');
    }
  }
  const QDate d(v[0], v[1], v[2]);
  const QTime h(v[3], v[4], v[5]);
  if (!d.isValid() || !h.isValid()) return {};
  return QDateTime(d, h);
}

QVariant celda(sqlite3_stmt* s, int i, bool fecha) {
  switch (sqlite3_column_type(s, i)) {
    case SQLITE_NULL: return {};
    case SQLITE_INTEGER: return static_cast<qint64>(sqlite3_column_int64(s, i));
    case SQLITE_FLOAT: return sqlite3_column_double(s, i);
    default: break;
  }
  const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, i));
  const int largo = sqlite3_column_bytes(s, i);
  if (fecha) {
    if (const auto f = fechaGuardada(t, largo)) return *f;
  }
  return QString::fromUtf8(t, largo);
}

int ligarValor(sqlite3_stmt* s, int i, const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType: return sqlite3_bind_null(s, i);
    case QMetaType::Int:
    case QMetaType::Bool:
    case QMetaType::LongLong: return sqlite3_bind_int64(s, i, v.toLongLong());
    case QMetaType::Double: return sqlite3_bind_double(s, i, v.toDouble());
    case QMetaType::QDateTime: {
      const QByteArray u = v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8();
      return sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
    }
    default: {
      const QByteArray u = v.toString().toUtf8();
      return sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
    }
  }
}

ErrorBD errorPropio(qint64 numero, const QString& palabras) { return {numero, 0, palabras}; }

// A second statement behind a ";" would be lost.
bool masDeUna(const std::vector<Token>& tokens) {
  for (size_t i = 0; i + 1 < tokens.size(); ++i) {
    if (tokens[i].op(u";") && !tokens[i + 1].op(u";") && tokens[i + 1].tipo != TipoToken::Fin) return true;
  }
  return false;
}

}  // namespace

MotorSqlite::MotorSqlite(Dialecto dialecto, const OpcionesMotores& opciones)
    : procedimientos_(opciones.procedimientos), interrumpir_(opciones.interrumpir) {
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
  std::unique_ptr<MotorSqlite> m(new MotorSqlite(dialecto, opciones));
  m->memoria_ = std::move(memoria);
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
  catalogo_ = Catalogo(base_);
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
  const std::vector<Token> tokens = separar(sql, entorno_.dialecto);
  const std::shared_ptr<Preparada> p = prepararForma(sql, tokens, error);
  if (!p) return error;
  if (p->forma->tablaNueva.isEmpty()) {
    error = ligar(*p, tokens);
    if (!error) error = rs && p->forma->tope.vale() ? recorrerTope(*p, tokens, *rs) : recorrer(*p, rs, afectadas);
  } else {
    error = llenarTablaNueva(*p, tokens, afectadas);
  }
  const bool acabada = enTransaccion && sqlite3_get_autocommit(base_) != 0;  // a full disk ends one too
  if (p->forma->cambiaEsquema || acabada) olvidarEsquema();
  return error;
}

void MotorSqlite::olvidarEsquema() {
  catalogo_.olvidar();
  formas_.vaciar();
  esquema_ = -1;
}

// SELECT ... INTO: a table with the types of the list, then its rows; both or neither.
std::optional<ErrorBD> MotorSqlite::llenarTablaNueva(const Preparada& p, const std::vector<Token>& tokens,
                                                     qint64* afectadas) {
  const auto nombre = [](QString n) { return u'"' + n.replace(u'"', QStringLiteral("\"\"")) + u'"'; };
  QStringList columnas;
  const std::vector<Columna>& salida = p.forma->salida;
  const bool conTipos = static_cast<qsizetype>(salida.size()) == p.campos.size();
  for (qsizetype i = 0; i < p.campos.size(); ++i) {
    const Tipo tipo = conTipos ? salida[static_cast<size_t>(i)].tipo : Tipo::Desconocido;
    columnas << nombre(p.campos[i]) + u' ' + declaracionDe(tipo);
  }
  const QString tabla = nombre(p.forma->tablaNueva);
  const QString crear = QStringLiteral("CREATE TABLE %1 (%2)").arg(tabla, columnas.join(u','));
  if (auto e = directa("SAVEPOINT nueva")) return e;
  auto error = directa(crear.toUtf8().constData());
  if (!error) {
    Preparada llena;
    llena.forma = p.forma;
    const QByteArray texto = "INSERT INTO " + tabla.toUtf8() + ' ' + sqlite3_sql(p.sentencia);
    const int largo = static_cast<int>(texto.size());
    const int rc = sqlite3_prepare_v2(base_, texto.constData(), largo, &llena.sentencia, nullptr);
    if (rc != SQLITE_OK) error = errorDe(base_, rc);
    if (!error) error = ligar(llena, tokens);
    if (!error) error = recorrer(llena, nullptr, nullptr);
    if (!error && afectadas) *afectadas = sqlite3_changes64(base_);
  }
  if (error) directa("ROLLBACK TO nueva");
  const auto cierre = directa("RELEASE nueva");
  return error ? error : cierre;
}

// What other connections have learnt, while the tables are still those that they saw; null in a transaction, whose changes of
// tables may be undone.
Formas<const FormaEscrita>* MotorSqlite::memoriaAlDia() {
  if (!memoria_ || sqlite3_get_autocommit(base_) == 0) return nullptr;
  if (esquema_ < 0) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(base_, "PRAGMA schema_version", -1, &s, nullptr) == SQLITE_OK &&
        sqlite3_step(s) == SQLITE_ROW) {
      esquema_ = sqlite3_column_int(s, 0);
    }
    sqlite3_finalize(s);
    if (esquema_ < 0) return nullptr;
  }
  if (memoria_->esquema != esquema_) {
    memoria_->formas.vaciar();
    memoria_->esquema = esquema_;
  }
  return &memoria_->formas;
}

std::shared_ptr<const FormaEscrita> MotorSqlite::escribirForma(const QString& sql, const std::vector<Token>& tokens,
                                                               const QString& forma, std::optional<ErrorBD>& error) {
  auto* memoria = memoriaAlDia();
  if (memoria) {
    if (auto sabida = memoria->buscar(forma, sql, tokens)) return sabida;
  }
  Edicion edicion(sql, entorno_.dialecto);
  Reescritura r = reescribir(edicion, catalogo_);
  if (r.error) {
    error = r.error;
    return {};
  }
  auto f = std::make_shared<FormaEscrita>();
  f->texto = edicion.texto(false).toUtf8();
  f->literales = edicion.literales();
  for (size_t i = 0; i < f->literales.size(); ++i) {
    if (!f->literales[i].ligado) f->fijos.push_back(static_cast<int>(i));
  }
  f->salida = r.salida;
  f->tablaNueva = r.tablaNueva;
  f->tope = r.tope;
  f->cambiaEsquema = r.cambiaEsquema || !r.tablaNueva.isEmpty();
  if (f->texto.contains('\0')) {  // the engine would read no further
    error = errorPropio(kErrorSentencia, QStringLiteral("La sentencia contiene un carácter nulo."));
    return {};
  }
  if (memoria && !f->cambiaEsquema) memoria->guardar(forma, sql, tokens, f->fijos, f);
  return f;
}

std::shared_ptr<Preparada> MotorSqlite::prepararForma(const QString& sql, const std::vector<Token>& tokens,
                                                      std::optional<ErrorBD>& error) {
  const QString forma = ClaveDeForma(sql, tokens, {});
  if (auto p = formas_.buscar(forma, sql, tokens); p && !sqlite3_stmt_busy(p->sentencia)) return p;
  if (masDeUna(tokens)) {
    error = errorPropio(kErrorSentencia, QStringLiteral("Solo se puede ejecutar una sentencia a la vez."));
    return {};
  }
  auto p = std::make_shared<Preparada>();
  p->forma = escribirForma(sql, tokens, forma, error);
  if (!p->forma) return {};
  for (const Literal& l : p->forma->literales) {
    if ((error = leerLiteral(tokens[l.token], l.lectura, entorno_.dialecto).error)) return {};
  }
  const int rc = compilar(p->forma->texto, SQLITE_PREPARE_PERSISTENT, p->sentencia);
  if (rc != SQLITE_OK) {
    error = errorDe(base_, rc);
    return {};
  }
  if (!p->sentencia) {
    error = errorPropio(kErrorSentencia, QStringLiteral("La sentencia está vacía."));
    return {};
  }
  const int columnas = sqlite3_column_count(p->sentencia);
  const std::vector<Columna>& salida = p->forma->salida;
  const bool conTipos = static_cast<int>(salida.size()) == columnas - p->forma->tope.agregadas;
  for (int i = 0; i < columnas; ++i) {
    const Columna* c = conTipos && i < static_cast<int>(salida.size()) ? &salida[static_cast<size_t>(i)] : nullptr;
    // An expression without a name has the dialect's, not the engine's words for it.
    const QString sinNombre = entorno_.dialecto == Dialecto::Jet ? QStringLiteral("Expr%1").arg(1000 + i) : QString();
    p->campos << (c && c->nombre.isEmpty() ? sinNombre : QString::fromUtf8(sqlite3_column_name(p->sentencia, i)));
    const char* declarado = sqlite3_column_decltype(p->sentencia, i);
    p->fechas.push_back((declarado && tipoDeclarado(QString::fromUtf8(declarado)) == Tipo::Fecha) ||
                        (c && c->tipo == Tipo::Fecha));
  }
  formas_.guardar(forma, sql, tokens, p->forma->fijos, p);
  return p;
}

int MotorSqlite::compilar(const QByteArray& texto, unsigned opciones, sqlite3_stmt*& sentencia) {
  if (const int rc = registrarFunciones(base_, entorno_, texto)) return rc;
  return sqlite3_prepare_v3(base_, texto.constData(), static_cast<int>(texto.size()), opciones, &sentencia, nullptr);
}

std::optional<ErrorBD> MotorSqlite::ligar(Preparada& p, const std::vector<Token>& tokens) {
  sqlite3_clear_bindings(p.sentencia);
  int parametro = 0;
  for (const Literal& l : p.forma->literales) {
    const ValorLiteral v = leerLiteral(tokens[l.token], l.lectura, entorno_.dialecto);
    if (v.error) return v.error;
    if (!l.ligado) continue;
    const int rc = ligarValor(p.sentencia, ++parametro, v.valor);
    if (rc != SQLITE_OK) return errorDe(base_, rc);
  }
  return {};
}

// Reads all rows and finishes the statement, whatever comes of it: one left open would hold back later commits.
std::optional<ErrorBD> MotorSqlite::recorrer(Preparada& p, Recordset* rs, qint64* afectadas) {
  std::vector<std::vector<QVariant>> filas;
  const int columnas = static_cast<int>(p.fechas.size());
  int rc = SQLITE_ROW;
  while ((rc = sqlite3_step(p.sentencia)) == SQLITE_ROW) {
    if (!rs) continue;
    if (filas.size() * static_cast<size_t>(columnas) > kCeldasMaximas) {  // a join that was forgotten
      sqlite3_reset(p.sentencia);
      return errorPropio(kErrorSentencia, QStringLiteral("La consulta da demasiadas filas."));
    }
    std::vector<QVariant> fila;
    fila.reserve(columnas);
    for (int i = 0; i < columnas; ++i) fila.push_back(celda(p.sentencia, i, p.fechas[i]));
    filas.push_back(std::move(fila));
  }
  std::optional<ErrorBD> error;
  if (rc != SQLITE_DONE) error = errorDe(base_, rc);
  const bool escribe = !sqlite3_stmt_readonly(p.sentencia);
  sqlite3_reset(p.sentencia);
  if (error) return error;
  if (rs) rs->llenar(p.campos, std::move(filas));
  const bool filasCambiadas = escribe && columnas == 0 && !(p.forma && p.forma->cambiaEsquema);
  if (afectadas) *afectadas = filasCambiadas ? sqlite3_changes64(base_) : 0;
  return {};
}

// Reads what TOP leaves: whether a row equals the last one is seen by one more, and only then all are read.
std::optional<ErrorBD> MotorSqlite::recorrerTope(Preparada& p, const std::vector<Token>& tokens, Recordset& rs) {
  const Tope& t = p.forma->tope;
  const int columnas = static_cast<int>(p.fechas.size()), visibles = columnas - t.agregadas;
  const bool seSabe = static_cast<int>(p.forma->salida.size()) == visibles;
  const auto iguales = [&](qsizetype a, qsizetype b) {
    return std::all_of(t.claves.begin(), t.claves.end(), [&](int k) {
      if (k >= 0 && !seSabe) return false;
      const int columna = k >= 0 ? k : visibles - 1 - k;
      const QVariant x = Recordset::Fila(rs, a)[columna], y = Recordset::Fila(rs, b)[columna];
      if (x.typeId() != QMetaType::QString || y.typeId() != QMetaType::QString) return x == y;
      return compararTextosSql(x.toString(), y.toString(), entorno_.dialecto == Dialecto::TSql) == 0;
    });
  };
  auto error = recorrer(p, &rs, nullptr);
  if (!error && t.empates && t.filas > 0 && rs.RecordCount() > t.filas && iguales(t.filas - 1, t.filas)) {
    Preparada todas;
    todas.forma = p.forma;
    todas.fechas = p.fechas;
    todas.campos = p.campos;
    const int rc = compilar(p.forma->texto.left(p.forma->texto.lastIndexOf(t.limite.toUtf8())), 0, todas.sentencia);
    if (rc != SQLITE_OK) return errorDe(base_, rc);
    error = ligar(todas, tokens);
    if (!error) error = recorrer(todas, &rs, nullptr);
  }
  if (error) return error;
  const double parte = std::ceil(static_cast<double>(rs.RecordCount()) * std::clamp(t.porciento, 0.0, 100.0) / 100);
  qsizetype quedan = std::min<qsizetype>(rs.RecordCount(), t.filas >= 0 ? t.filas : static_cast<qsizetype>(parte));
  while (t.empates && quedan > 0 && quedan < rs.RecordCount() && iguales(quedan - 1, quedan)) ++quedan;
  std::vector<std::vector<QVariant>> filas;
  for (const auto& fila : rs) {
    if (static_cast<qsizetype>(filas.size()) == quedan) break;
    std::vector<QVariant> de;
    for (int i = 0; i < visibles; ++i) de.push_back(fila[i]);
    filas.push_back(std::move(de));
  }
  rs.llenar(p.campos.mid(0, visibles), std::move(filas));
  return {};
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
  Edicion edicion(sql, entorno_.dialecto);
  if (reescribir(edicion, catalogo_).error) return sql;
  return edicion.texto(true);
}
