// What a prepared statement takes and gives.
#include "platform/sql/errores_sqlite.h"
#include "platform/sql/instante.h"
#include "platform/sql/motor_sqlite.h"
#include "platform/sql/tope.h"

namespace {

constexpr qsizetype kCeldasMaximas = 20'000'000;  // some 500 MB

CeldaBD celda(sqlite3_stmt* s, int i, bool fecha) {
  sqlite3_value* const v = sqlite3_column_value(s, i);  // its connection is used by one thread, without a lock
  switch (sqlite3_value_type(v)) {
    case SQLITE_NULL: return {};
    case SQLITE_INTEGER: return CeldaBD(static_cast<qint64>(sqlite3_value_int64(v)));
    case SQLITE_FLOAT: return CeldaBD(sqlite3_value_double(v));
    default: break;
  }
  const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(v));
  const int largo = sqlite3_value_bytes(v);
  if (fecha) {
    if (const auto f = instanteGuardado(t, largo)) return CeldaBD::fecha(f->first, f->second);
  }
  return CeldaBD(QByteArrayView(t, largo));
}

void leerFila(const Preparada& p, Recordset& rs) {
  for (size_t i = 0; i < p.fechas.size(); ++i) rs.poner(celda(p.sentencia, static_cast<int>(i), p.fechas[i]));
}

int ligarTexto(sqlite3_stmt* s, int i, const QString& t) {
  // Nearly all are short and plain: no text of its own for the engine to copy.
  constexpr qsizetype kCorto = 64;
  char corto[kCorto];
  qsizetype n = 0;
  if (t.size() <= kCorto) {
    for (const QChar* c = t.constData(); n < t.size() && c[n].unicode() < 0x80; ++n) {
      corto[n] = static_cast<char>(c[n].unicode());
    }
  }
  if (n == t.size()) return sqlite3_bind_text(s, i, corto, static_cast<int>(n), SQLITE_TRANSIENT);
  const QByteArray u = t.toUtf8();
  return sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
}

}  // namespace

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
    case QMetaType::QString: return ligarTexto(s, i, *static_cast<const QString*>(v.constData()));
    default: {
      const QByteArray u = v.toString().toUtf8();
      return sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
    }
  }
}

// Its text is not copied: it outlives the step.
static int ligarCelda(sqlite3_stmt* s, int i, const CeldaBD& c) {
  switch (c.tipo) {
    case CeldaBD::Tipo::Nula: return sqlite3_bind_null(s, i);
    case CeldaBD::Tipo::Entera: return sqlite3_bind_int64(s, i, c.entera);
    case CeldaBD::Tipo::Real: return sqlite3_bind_double(s, i, c.real);
    case CeldaBD::Tipo::Texto:
      return sqlite3_bind_text(s, i, c.texto.isEmpty() ? "" : c.texto.data(), static_cast<int>(c.texto.size()),
                               SQLITE_STATIC);
    case CeldaBD::Tipo::Fecha: break;
  }
  return ligarValor(s, i, c.valor());
}

std::optional<ErrorBD> MotorSqlite::ligar(Preparada& p, const SentenciaLeida& s) {
  std::vector<QVariant> valores;
  if (auto e = camino_.valores(*p.forma, s, valores)) return e;
  sqlite3_clear_bindings(p.sentencia);
  for (size_t i = 0; i < valores.size(); ++i) {
    const int rc = ligarValor(p.sentencia, static_cast<int>(i) + 1, valores[i]);
    if (rc != SQLITE_OK) return errorDe(base_, rc);
  }
  return {};
}

class RepetidaSqlite final : public Repetida {
 public:
  RepetidaSqlite(sqlite3* base, std::shared_ptr<Preparada> p, Dialecto dialecto)
      : base_(base), p_(std::move(p)), dialecto_(dialecto) {
    for (const Literal& l : p_->forma->literales) {
      if (l.ligado) lecturas_.push_back(l.lectura);
    }
  }

  ~RepetidaSqlite() override { sqlite3_clear_bindings(p_->sentencia); }

  std::optional<ErrorBD> correr(const std::vector<CeldaBD>& valores) override {
    if (valores.size() != lecturas_.size()) {
      return ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia tiene otro número de valores.")};
    }
    int rc = SQLITE_OK;
    for (size_t i = 0; rc == SQLITE_OK && i < valores.size(); ++i) {
      CeldaBD v = valores[i];
      if (v.tipo == CeldaBD::Tipo::Texto && lecturas_[i] == Lectura::SinFinales) {
        while (v.texto.endsWith(' ')) v.texto.chop(1);
      } else if (lecturas_[i] != Lectura::TalCual && !v.nula()) {
        QVariant leido = v.valor();
        if (auto e = leerValor(leido, lecturas_[i], dialecto_)) return e;
        rc = ligarValor(p_->sentencia, static_cast<int>(i) + 1, leido);
        continue;
      }
      rc = ligarCelda(p_->sentencia, static_cast<int>(i) + 1, v);
    }
    if (rc == SQLITE_OK) rc = sqlite3_step(p_->sentencia);
    std::optional<ErrorBD> error;
    if (rc != SQLITE_DONE) error = errorDe(base_, rc);
    sqlite3_reset(p_->sentencia);
    return error;
  }

 private:
  sqlite3* base_;
  std::shared_ptr<Preparada> p_;
  Dialecto dialecto_;
  std::vector<Lectura> lecturas_;
};

bool MotorSqlite::seGuarda(SentenciaLeida& s) {
  return (entorno_.dialecto != Dialecto::TSql || !leerLlamada(s.sql)) && !camino_.reconocer(s);
}

std::unique_ptr<Repetida> MotorSqlite::repetir(const QString& sql) {
  SentenciaLeida s(sql, entorno_.dialecto);
  if (!seGuarda(s)) return {};
  std::optional<ErrorBD> error;
  const std::shared_ptr<Preparada> p = preparada(s, error);
  const bool deUnaForma = p && p->forma->tablaNueva.isEmpty() && !p->forma->cambiaEsquema &&
                          sqlite3_column_count(p->sentencia) == 0 && !sqlite3_stmt_readonly(p->sentencia);
  if (!deUnaForma) return {};
  return std::make_unique<RepetidaSqlite>(base_, p, entorno_.dialecto);
}

class CursorSqlite final : public CursorBD {
 public:
  CursorSqlite(sqlite3* base, std::shared_ptr<Preparada> p) : base_(base), p_(std::move(p)) {}

  std::optional<ErrorBD> seguir(qsizetype filas, Recordset& rs) override {
    rs.nuevo(p_->campos);
    for (; !acabado_ && filas > 0; --filas) {
      const int rc = sqlite3_step(p_->sentencia);
      if (rc == SQLITE_ROW) {
        leerFila(*p_, rs);
        continue;
      }
      acabado_ = true;
      std::optional<ErrorBD> error;
      if (rc != SQLITE_DONE) error = errorDe(base_, rc);
      sqlite3_reset(p_->sentencia);
      if (error) rs.nuevo({});
      return error;
    }
    return {};
  }

 private:
  sqlite3* base_;
  std::shared_ptr<Preparada> p_;
  bool acabado_ = false;
};

std::unique_ptr<CursorBD> MotorSqlite::abrirCursor(const QString& sql) {
  SentenciaLeida s(sql, entorno_.dialecto);
  if (!seGuarda(s)) return {};
  std::optional<ErrorBD> error;
  const std::shared_ptr<Preparada> p = prepararNueva(s, error);
  const bool soloLee = p && !p->forma->tope.vale() && p->forma->tablaNueva.isEmpty() &&
                       sqlite3_column_count(p->sentencia) > 0 && sqlite3_stmt_readonly(p->sentencia) != 0;
  if (!soloLee || ligar(*p, s)) return {};
  return std::make_unique<CursorSqlite>(base_, p);
}

// Reads all rows and finishes the statement, whatever comes of it: one left open would hold back later commits.
std::optional<ErrorBD> MotorSqlite::recorrer(Preparada& p, Recordset* rs, qint64* afectadas) {
  Recordset leidas;
  leidas.nuevo(p.campos);
  const int columnas = static_cast<int>(p.fechas.size());
  int rc = SQLITE_ROW;
  while ((rc = sqlite3_step(p.sentencia)) == SQLITE_ROW) {
    if (!rs) continue;
    if (leidas.RecordCount() * columnas > kCeldasMaximas) {  // a join that was forgotten
      sqlite3_reset(p.sentencia);
      return ErrorBD{kErrorSentencia, 0, QStringLiteral("La consulta da demasiadas filas.")};
    }
    leerFila(p, leidas);
  }
  std::optional<ErrorBD> error;
  if (rc != SQLITE_DONE) error = errorDe(base_, rc);
  const bool escribe = !sqlite3_stmt_readonly(p.sentencia);
  sqlite3_reset(p.sentencia);
  if (error) return error;
  if (rs) *rs = std::move(leidas);
  const bool filasCambiadas = escribe && columnas == 0 && !(p.forma && p.forma->cambiaEsquema);
  if (afectadas) *afectadas = filasCambiadas ? sqlite3_changes64(base_) : 0;
  return {};
}

std::optional<ErrorBD> MotorSqlite::recorrerTope(Preparada& p, const SentenciaLeida& s, Recordset& rs) {
  if (auto e = recorrer(p, &rs, nullptr)) return e;
  return DejarTope(*p.forma, entorno_.dialecto, rs, [&](const QByteArray& texto) -> std::optional<ErrorBD> {
    Preparada todas;
    todas.forma = p.forma;
    todas.fechas = p.fechas;
    todas.campos = p.campos;
    if (const int rc = compilar(texto, 0, todas.sentencia); rc != SQLITE_OK) return errorDe(base_, rc);
    auto error = ligar(todas, s);
    return error ? error : recorrer(todas, &rs, nullptr);
  });
}

// SELECT ... INTO: a table with the types of the list, then its rows; both or neither.
std::optional<ErrorBD> MotorSqlite::llenarTablaNueva(const Preparada& p, const SentenciaLeida& s, qint64* afectadas) {
  const auto nombre = kPalabrasSqlite.citado;
  QStringList columnas;
  const std::vector<Columna>& salida = p.forma->salida;
  const bool conTipos = static_cast<qsizetype>(salida.size()) == p.campos.size();
  for (qsizetype i = 0; i < p.campos.size(); ++i) {
    const Tipo tipo = conTipos ? salida[static_cast<size_t>(i)].tipo : Tipo::Desconocido;
    columnas << nombre(p.campos[i]) + u' ' + kPalabrasSqlite.tipo(tipo).toString();
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
    if (!error) error = ligar(llena, s);
    if (!error) error = recorrer(llena, nullptr, nullptr);
    if (!error && afectadas) *afectadas = sqlite3_changes64(base_);
  }
  if (error) directa("ROLLBACK TO nueva");
  const auto cierre = directa("RELEASE nueva");
  return error ? error : cierre;
}
