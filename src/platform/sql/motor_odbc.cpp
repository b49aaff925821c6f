#include "platform/sql/motor_odbc.h"

#include "platform/sql/hilo_odbc.h"
#include "platform/sql/token.h"

namespace {

// After so long without use a firewall may have forgotten the connection; then a question that changes nothing goes
// before the statement.
constexpr int kDescanso_ms = 30000;
constexpr int kPregunta_ms = 2000;

// A value of a connection string; what would end it stands in braces.
QString enLlaves(QString valor) {
  if (!valor.contains(u';') && !valor.contains(u'{') && !valor.contains(u'}')) return valor;
  return u'{' + valor.replace(u'}', QStringLiteral("}}")) + u'}';
}

bool esLectura(const QString& sql) {
  const auto t = separar(sql, Dialecto::TSql);
  return t.front().es(u"SELECT") && std::none_of(t.begin(), t.end(), [](const Token& k) { return k.es(u"INTO"); });
}

ErrorBD transaccionPerdida() {
  return {kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor en mitad de una transacción.")};
}

ErrorBD noResponde() { return {kErrorTiempo, 0, QStringLiteral("El servidor no responde.")}; }

}  // namespace

QString cadenaOdbc(const CadenaConexion& c, const QStringList& dsn) {
  QStringList palabras;
  if (dsn.contains(c.servidor, Qt::CaseInsensitive)) {
    palabras << QStringLiteral("DSN=") + enLlaves(c.servidor);
  } else if (c.servidor.contains(u'=')) {
    palabras = c.servidor.split(u',', Qt::SkipEmptyParts);
  } else {
    palabras << QStringLiteral("Driver=FreeTDS")
             << QStringLiteral("Server=") + enLlaves(c.servidor.section(u',', 0, 0));
    if (c.servidor.contains(u',')) palabras << QStringLiteral("Port=") + c.servidor.section(u',', 1, 1);
    else if (!c.servidor.contains(u'\\')) palabras << QStringLiteral("Port=1433");
    palabras << QStringLiteral("TDS_Version=7.4") << QStringLiteral("ClientCharset=UTF-8");
  }
  const auto agregar = [&palabras](const char* clave, const QString& valor) {
    const QString principio = QString::fromLatin1(clave) + u'=';
    for (const QString& p : palabras) {
      if (p.trimmed().startsWith(principio, Qt::CaseInsensitive)) return;
    }
    if (!valor.isEmpty()) palabras << principio + enLlaves(valor);
  };
  agregar("UID", c.usuario);
  agregar("PWD", c.clave);
  agregar("Database", c.catalogo);
  return palabras.join(u';') + u';';
}

MotorOdbc::MotorOdbc(const CadenaConexion& cadena, int espera_ms, const OpcionesMotores& opciones)
    : cadena_(cadena), espera_ms_(espera_ms), interrumpir_(opciones.interrumpir), alEsperar_(opciones.alEsperar) {}

MotorOdbc::~MotorOdbc() = default;

std::unique_ptr<MotorOdbc> MotorOdbc::abrir(const CadenaConexion& cadena, int espera_ms,
                                            const OpcionesMotores& opciones, ErrorBD& error) {
  std::unique_ptr<MotorOdbc> m(new MotorOdbc(cadena, espera_ms, opciones));
  if (const auto e = m->conectar()) {
    error = *e;
    return {};
  }
  return m;
}

std::optional<ErrorBD> MotorOdbc::conectar() {
  // The words of a driver are no name.
  const QString nombre = cadena_.servidor.contains(u'=') ? QString() : u' ' + cadena_.servidor;
  hilo_ = std::make_unique<HiloOdbc>(alEsperar_, QStringLiteral("Esperando al servidor%1…").arg(nombre));
  RespuestaOdbc r = hilo_->conectar(cadenaOdbc(cadena_, fuentesOdbc()), espera_ms_);
  descanso_.setRemainingTime(kDescanso_ms);
  if (!r.error) return {};
  hilo_.reset();
  r.error->descripcion =
      QStringLiteral("No se pudo conectar al servidor '%1': %2").arg(cadena_.servidor, r.error->descripcion);
  return r.error;
}

// A connection to work with: the one that is open, or, outside a transaction, another one in the place of a lost one.
std::optional<ErrorBD> MotorOdbc::lista() {
  if (abandonada_) return noResponde();
  if (rota_) return transaccionPerdida();
  if (!hilo_) return enTransaccion_ ? transaccionPerdida() : conectar();
  if (enTransaccion_ || !descanso_.hasExpired()) return {};
  const RespuestaOdbc r = hilo_->correr(QStringLiteral("SELECT 1"), std::min(kPregunta_ms, espera_ms_), {});
  return r.perdida ? conectar() : std::nullopt;
}

// What was lost before the server could have seen it, and a question that changes nothing, go to the new connection; no
// change whose answer is missing is made twice.
std::optional<ErrorBD> MotorOdbc::correr(const QString& sql, RespuestaOdbc& r) {
  if (const auto e = lista()) return e;
  r = hilo_->correr(sql, espera_ms_, interrumpir_);
  if (r.perdida && !enTransaccion_ && r.error->numero != kErrorTiempo && (r.sinEnviar || esLectura(sql))) {
    if (const auto e = conectar()) return e;
    r = hilo_->correr(sql, espera_ms_, interrumpir_);
  }
  descanso_.setRemainingTime(kDescanso_ms);
  if (r.perdida) {
    hilo_.reset();
    rota_ = enTransaccion_;
    abandonada_ = r.error->numero == kErrorTiempo;
  } else if (r.error && enTransaccion_) {
    mirarTransaccion();
  }
  return r.error;
}

// SQL Server gives a whole transaction up for some errors (a deadlock, a value that can't be converted); what followed
// would then be committed without what went before.
void MotorOdbc::mirarTransaccion() {
  if (!hilo_->esSqlServer()) return;
  const RespuestaOdbc r = hilo_->correr(QStringLiteral("SELECT @@TRANCOUNT"), espera_ms_, {});
  rota_ = r.error || r.filas.empty() || r.filas[0][0].toInt() == 0;
}

std::optional<ErrorBD> MotorOdbc::consultar(const QString& sql, Recordset& rs) {
  rs.llenar({}, {});
  RespuestaOdbc r;
  if (auto e = correr(sql, r)) return e;
  rs.llenar(r.campos, std::move(r.filas));
  return {};
}

std::optional<ErrorBD> MotorOdbc::ejecutar(const QString& sql, qint64* afectadas) {
  RespuestaOdbc r;
  if (auto e = correr(sql, r)) return e;
  if (afectadas) *afectadas = r.afectadas;
  return {};
}

std::optional<ErrorBD> MotorOdbc::iniciar() {
  if (enTransaccion_) return ErrorBD{kErrorSentencia, 1, QStringLiteral("Ya hay una transacción abierta.")};
  if (const auto e = lista()) return e;
  RespuestaOdbc r = hilo_->transaccion(true, espera_ms_);
  enTransaccion_ = !r.error;
  return r.error;
}

std::optional<ErrorBD> MotorOdbc::acabar(bool confirma) {
  RespuestaOdbc r = hilo_->acabar(confirma, espera_ms_);
  if (r.perdida) hilo_.reset();
  if (!r.error || r.perdida) enTransaccion_ = false;
  return r.error;
}

std::optional<ErrorBD> MotorOdbc::confirmar() {
  if (rota_ || !hilo_) return abandonada_ ? noResponde() : transaccionPerdida();
  return acabar(true);
}

// A lost connection took the transaction with it.
std::optional<ErrorBD> MotorOdbc::deshacer() {
  rota_ = false;
  if (!hilo_ || !enTransaccion_) {
    enTransaccion_ = false;
    return {};
  }
  auto error = acabar(false);
  return enTransaccion_ ? error : std::nullopt;
}
