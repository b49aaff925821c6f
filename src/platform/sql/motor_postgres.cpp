#include "platform/sql/motor_postgres.h"

#include <libpq-fe.h>

#include "platform/sql/catalogo_postgres.h"
#include "platform/sql/errores_postgres.h"
#include "platform/sql/preparada_postgres.h"
#include "platform/sql/tope.h"

namespace {

constexpr qint64 kReposo_ms = 10'000;  // a firewall may have forgotten a connection that was silent for longer
constexpr int kEsquema = 0;            // nothing tells that another program has changed the tables, but its errors

constexpr size_t kValoresMaximos = 65535;  // of a message of the server

// Statements of its own, prepared at their first use: begin and end of a transaction, the savepoint before and behind a
// statement, the lock of a run of numbers.
const QByteArray kInicia = "inicia", kConfirma = "confirma", kPone = "pone", kSuelta = "suelta", kSerie = "serie";
const QHash<QByteArray, QByteArray> kFijas{{kInicia, "BEGIN"},
                                           {kConfirma, "COMMIT"},
                                           {kPone, "SAVEPOINT sentencia"},
                                           {kSuelta, "RELEASE sentencia"},
                                           {kSerie, "SELECT pg_advisory_xact_lock(hashtextextended($1, 5))"}};

constexpr unsigned kTexto = 25;

ErrorBD perdidaEnTransaccion() {
  return {kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor en medio de la operación.")};
}

ErrorBD deshecha() {
  return {kErrorSentencia, 1, QStringLiteral("La transacción ya no se podía confirmar: una de sus sentencias falló.")};
}

// Errors that a statement gives whose shape was learnt from tables that have changed since.
bool deTablasCambiadas(const QByteArray& codigo) {
  for (const char* c : {"0A000", "26000", "42P01", "42703", "42883", "42804", "42P18", "42P21", "42P22"}) {
    if (codigo == c) return true;
  }
  return false;
}

PasoPg sentencia(const QByteArray& texto) { return {.texto = texto}; }

}  // namespace

MotorPostgres::MotorPostgres(const CadenaConexion& cadena, int espera_ms, std::shared_ptr<MemoriaDeFormas> memoria,
                             const AvisoEspera& alEsperar)
    : cadena_(cadena),
      espera_ms_(espera_ms),
      alEsperar_(alEsperar),
      memoria_(std::move(memoria)),
      camino_(Dialecto::TSql, kPalabrasPostgres, memoria_) {
  elegirCatalogo();
}

// Tables that were changed in a transaction are nobody else's before its end.
void MotorPostgres::elegirCatalogo() {
  const auto preguntar = [this](const QByteArray& consulta, const QByteArray& nombre, Recordset& rs) {
    PasoPg paso{.texto = consulta, .tipos = {kTexto}, .valores = {nombre}};
    std::vector<ResultadoPg> r;
    if (canal_->pedir({paso}, r)) return false;
    FilasPostgres().dejar(r[0].get(), rs);
    return true;
  };
  catalogo_ = std::make_unique<CatalogoPostgres>(preguntar, memoria_ && !cambiada_ ? memoria_->tablas() : nullptr);
}

MotorPostgres::~MotorPostgres() = default;

std::unique_ptr<MotorPostgres> MotorPostgres::abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error,
                                                    std::shared_ptr<MemoriaDeFormas> memoria,
                                                    const AvisoEspera& alEsperar) {
  std::unique_ptr<MotorPostgres> m(new MotorPostgres(cadena, espera_ms, std::move(memoria), alEsperar));
  m->canal_ = CanalPostgres::abrir(cadena, espera_ms, error, alEsperar);
  if (!m->canal_) return {};
  return m;
}

std::optional<ErrorBD> MotorPostgres::reabrir() {
  ErrorBD error;
  auto canal = CanalPostgres::abrir(cadena_, espera_ms_, error, alEsperar_);
  if (!canal) return error;
  formas_.vaciar();
  sobrantes_->clear();
  fijas_.clear();
  ++aperturas_;
  canal_ = std::move(canal);
  return {};
}

// A connection that was cut is opened anew, once, and never in the middle of a transaction. One that was left for its
// silence stays so.
std::optional<ErrorBD> MotorPostgres::listo() {
  std::vector<ResultadoPg> r;
  if (canal_->abandonada()) return canal_->pedir({}, r);
  bool perdida = canal_->perdida();
  if (!perdida && !abierta_ && canal_->callada_ms() > kReposo_ms) {
    (void)canal_->pedir({sentencia({})}, r);
    perdida = canal_->perdida();
  }
  if (!perdida) return {};
  if (abierta_) return perdidaEnTransaccion();
  return reabrir();
}

std::optional<ErrorBD> MotorPostgres::consultar(const QString& sql, Recordset& rs) {
  rs.llenar({}, {});
  return correr(sql, &rs, nullptr);
}

std::optional<ErrorBD> MotorPostgres::ejecutar(const QString& sql, qint64* afectadas) {
  return correr(sql, nullptr, afectadas);
}

std::optional<ErrorBD> MotorPostgres::correr(const QString& sql, Recordset* rs, qint64* afectadas) {
  if (auto e = listo()) return e;
  if (const auto llamada = leerLlamada(sql)) return llamar(*llamada, rs);
  return correrSentencia(sql, rs, afectadas);
}

// BEGIN, COMMIT and ROLLBACK as statements.
std::optional<ErrorBD> MotorPostgres::transaccion(const SentenciaLeida& s, bool& esUna) {
  size_t i = 1;
  const auto& t = s.tokens;
  if (t.size() > 1 && (t[1].es(u"TRAN") || t[1].es(u"TRANSACTION"))) ++i;
  while (i + 1 < t.size() && t[i].op(u";")) ++i;
  esUna = t[i].tipo == TipoToken::Fin && (t[0].es(u"BEGIN") || t[0].es(u"COMMIT") || t[0].es(u"ROLLBACK"));
  if (!esUna) return {};
  if (t[0].es(u"BEGIN")) return iniciar();
  if (!porIniciar_ && !abierta_) {
    return ErrorBD{kErrorSentencia, 1, QStringLiteral("No hay ninguna transacción abierta.")};
  }
  return t[0].es(u"COMMIT") ? confirmar() : deshacer();
}

std::optional<ErrorBD> MotorPostgres::correrSentencia(const QString& sql, Recordset* rs, qint64* afectadas) {
  SentenciaLeida s(sql, Dialecto::TSql);
  if (auto e = camino_.reconocer(s)) return e;
  bool esTransaccion = false;
  if (auto e = transaccion(s, esTransaccion); esTransaccion) return e;
  for (bool otraVez = false;; otraVez = true) {
    std::optional<ErrorBD> error;
    bool vieja = true;
    auto p = formas_.buscar(s.forma, s.sql, s.tokens);
    const bool sabida = p != nullptr;
    if (!sabida) p = preparada(s, vieja, error);
    if (!p) return error;
    std::vector<QVariant> valores;
    error = camino_.valores(*p->forma, s, valores);
    if (!error) error = correrPreparada(*p, valores, rs, afectadas);
    if (!error) {
      if (!sabida) formas_.guardar(s.forma, s.sql, s.tokens, p->forma->fijos, p);
      if (p->forma->cambiaEsquema) olvidarEsquema();
      return {};
    }
    if (otraVez) return error;
    if (canal_->perdida()) {
      // What a lost connection had begun is undone there, a query may be asked again, and a server that was told to
      // stop says so in the place of the statement.
      const bool lee = s.tokens[0].es(u"SELECT") && p->forma->tablaNueva.isEmpty();
      const bool sinHacer = porIniciar_ || (!abierta_ && (lee || canal_->codigo() == "57P01"));
      if (canal_->abandonada() || !sinHacer || reabrir()) return error;
    } else {
      if (!vieja || !deTablasCambiadas(canal_->codigo())) return error;
      olvidarEsquema();
    }
  }
}

void MotorPostgres::olvidarEsquema() {
  formas_.vaciar();
  rutinas_.clear();
  if (memoria_) memoria_->alDia(-1);
  cambiada_ = abierta_;
  elegirCatalogo();
}

std::shared_ptr<PreparadaPostgres> MotorPostgres::preparada(const SentenciaLeida& s, bool& vieja,
                                                            std::optional<ErrorBD>& error) {
  const int esquema = cambiada_ ? -1 : kEsquema;
  vieja = memoria_ && esquema >= 0;  // out of what is remembered, the statement's shape or its tables
  auto p = std::make_shared<PreparadaPostgres>();
  p->forma = camino_.escribir(s, esquema, *catalogo_, error);
  if (!p->forma) return {};
  p->sobrantes = sobrantes_;
  return p;
}

// The steps of a statement that is not the server's yet stand before it in the same message.
std::optional<ErrorBD> MotorPostgres::correrPreparada(PreparadaPostgres& p, const std::vector<QVariant>& valores,
                                                      Recordset* rs, qint64* afectadas) {
  if (valores.size() > kValoresMaximos) {
    return ErrorBD{kErrorSentencia, 1, QStringLiteral("La sentencia tiene demasiados valores.")};
  }
  std::vector<unsigned> tipos;
  if (auto e = tiposDe(p, valores, tipos)) return e;
  std::vector<PasoPg> pasos;
  if (p.hecha && tipos != p.tipos) {
    *sobrantes_ << p.nombre;
    p.hecha = false;
  }
  for (const QByteArray& nombre : std::exchange(*sobrantes_, {})) pasos.push_back(sentencia("DEALLOCATE " + nombre));
  const bool dentro = porIniciar_ || abierta_;
  if (dentro && !p.forma->serie.isEmpty()) {
    PasoPg cierra = fija(kSerie, pasos);
    cierra.valores = {p.forma->serie.toLower().toUtf8()};
    pasos.push_back(std::move(cierra));
  }
  QByteArray texto = p.forma->texto;
  if (!p.forma->tablaNueva.isEmpty()) {
    texto = "CREATE TABLE " + kPalabrasPostgres.citado(p.forma->tablaNueva).toUtf8() + " AS " + texto;
  }
  // What is not prepared is planned for its values.
  PasoPg principal;
  if (p.forma->conPatron) {
    principal.texto = texto;
    principal.tipos = tipos;
  } else {
    if (!p.hecha) {
      p.tipos = tipos;
      p.nombre = 't' + QByteArray::number(++preparadas_);
      pasos.push_back({.clase = PasoPg::Preparar, .nombre = p.nombre, .texto = texto, .tipos = tipos});
    }
    principal.clase = PasoPg::Ejecutar;
    principal.nombre = p.nombre;
  }
  principal.valores.reserve(valores.size());
  for (const QVariant& v : valores) principal.valores.push_back(enTexto(v));
  pasos.push_back(std::move(principal));
  std::vector<ResultadoPg> r;
  FilasPostgres tomadas(&p.forma->salida, p.forma->tope.agregadas);
  if (auto e = pedir(std::move(pasos), r, &tomadas)) {
    p.hecha = false;
    return e;
  }
  p.hecha = !p.forma->conPatron;
  const pg_result* filas = r.back().get();
  const bool conFilas = PQresultStatus(filas) == PGRES_TUPLES_OK;
  if (afectadas) *afectadas = conFilas ? 0 : QByteArray(PQcmdTuples(const_cast<pg_result*>(filas))).toLongLong();
  if (!rs || !conFilas) return {};
  tomadas.dejar(filas, *rs);
  if (!p.forma->tope.vale()) return {};
  return DejarTope(*p.forma, Dialecto::TSql, *rs, [&](const QByteArray& sinTope) -> std::optional<ErrorBD> {
    PasoPg paso{.texto = sinTope, .tipos = tipos};
    for (const QVariant& v : valores) paso.valores.push_back(enTexto(v));
    if (auto e = pedir({std::move(paso)}, r)) return e;
    FilasPostgres(&p.forma->salida, p.forma->tope.agregadas).dejar(r.back().get(), *rs);
    return {};
  });
}

std::optional<ErrorBD> MotorPostgres::pedir(std::vector<PasoPg> pasos, std::vector<ResultadoPg>& resultados,
                                            FilasPostgres* filas) {
  const bool primera = porIniciar_, luego = abierta_ && !deUnaPieza_;
  std::vector<PasoPg> antes;
  if (primera) antes.push_back(fija(kInicia, antes));
  if (luego) {
    PasoPg pone = fija(kPone, antes), suelta = fija(kSuelta, antes);
    antes.push_back(std::move(pone));
    pasos.push_back(std::move(suelta));
  }
  pasos.insert(pasos.begin(), std::make_move_iterator(antes.begin()), std::make_move_iterator(antes.end()));
  const size_t principal = pasos.size() - (luego ? 2 : 1);
  TomarFilas tomar;
  if (filas) tomar = [filas](const pg_result* r) { return filas->tomar(r); };
  auto error = canal_->pedir(pasos, resultados, principal, tomar);
  recordarFijas(pasos, !error);
  if (error) {
    if (!canal_->perdida()) tomarAtras(primera);
    return error;
  }
  if (primera) {
    porIniciar_ = false;
    abierta_ = true;
  }
  if (luego) resultados.pop_back();
  return {};
}

// A statement of its own; one that the server does not have yet is prepared by a step before it.
PasoPg MotorPostgres::fija(const QByteArray& nombre, std::vector<PasoPg>& preparar) const {
  if (!fijas_.contains(nombre)) {
    preparar.push_back({.clase = PasoPg::Preparar, .nombre = nombre, .texto = kFijas[nombre]});
  }
  return {.clase = PasoPg::Ejecutar, .nombre = nombre};
}

// What stands prepared: all of them, or those before the step that failed.
void MotorPostgres::recordarFijas(const std::vector<PasoPg>& pasos, bool todas) {
  const size_t fin = todas ? pasos.size() : canal_->fallado();
  for (size_t i = 0; i < fin; ++i) {
    if (pasos[i].clase == PasoPg::Preparar && kFijas.contains(pasos[i].nombre)) fijas_.insert(pasos[i].nombre);
  }
}

// Before the first statement there was nothing.
void MotorPostgres::tomarAtras(bool primera) {
  const QByteArray codigo = canal_->codigo();
  std::vector<ResultadoPg> r;
  if (primera) (void)canal_->pedir({sentencia("ROLLBACK")}, r);
  else if (abierta_ && !deUnaPieza_)
    (void)canal_->pedir({sentencia("ROLLBACK TO sentencia"), sentencia("RELEASE sentencia")}, r);
  canal_->recordar(codigo);
}

std::optional<ErrorBD> MotorPostgres::iniciar() {
  if (porIniciar_ || abierta_) {
    return ErrorBD{kErrorSentencia, 1, QStringLiteral("Ya hay una transacción abierta.")};
  }
  if (auto e = listo()) return e;
  porIniciar_ = true;
  deUnaPieza_ = false;
  return {};
}

std::optional<ErrorBD> MotorPostgres::confirmar() {
  deUnaPieza_ = false;
  if (!abierta_) {
    porIniciar_ = false;
    return {};
  }
  std::vector<ResultadoPg> r;
  std::vector<PasoPg> pasos;
  pasos.push_back(fija(kConfirma, pasos));
  auto error = canal_->pedir(pasos, r);
  recordarFijas(pasos, !error);
  if (error && canal_->enTransaccion()) return error;
  // One that a failed statement has spoilt ends too, with nothing of it.
  if (!error && QByteArray(PQcmdStatus(r.back().get())) != "COMMIT") error = deshecha();
  abierta_ = canal_->enTransaccion();
  if (cambiada_) olvidarEsquema();
  return error;
}

// The server itself undoes what a lost connection had begun.
std::optional<ErrorBD> MotorPostgres::deshacer() {
  porIniciar_ = deUnaPieza_ = false;
  if (!std::exchange(abierta_, false)) return {};
  std::vector<ResultadoPg> r;
  const auto error = canal_->pedir({sentencia("ROLLBACK")}, r);
  if (std::exchange(cambiada_, false)) olvidarEsquema();
  return canal_->perdida() || canal_->abandonada() ? std::nullopt : error;
}

QString MotorPostgres::traducir(const QString& sql) {
  if (leerLlamada(sql)) return sql;
  return camino_.traducir(sql, *catalogo_);
}

std::optional<ErrorBD> MotorPostgres::crudo(const QString& guion, Recordset* rs) {
  if (auto e = listo()) return e;
  ResultadoPg ultimo(nullptr, &PQclear);
  if (auto e = canal_->guion(guion, ultimo)) {
    if (!canal_->perdida() && canal_->enTransaccion()) {
      ResultadoPg nada(nullptr, &PQclear);
      (void)canal_->guion(QStringLiteral("ROLLBACK"), nada);
    }
    return e;
  }
  if (rs) rs->llenar({}, {});
  if (rs && ultimo && PQresultStatus(ultimo.get()) == PGRES_TUPLES_OK) FilasPostgres().dejar(ultimo.get(), *rs);
  return {};
}
