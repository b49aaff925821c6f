#include "platform/sql/motor_postgres.h"

#include <libpq-fe.h>

#include <QDeadlineTimer>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/sql/funciones_sqlite.h"

#ifdef Q_OS_WIN
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#endif

namespace {

const QString kPuerto = QStringLiteral("5432");

// A socket is ready, or the time has passed.
bool esperarSocket(int socket, bool leer, int espera_ms) {
#ifdef Q_OS_WIN
  WSAPOLLFD uno{static_cast<SOCKET>(socket), static_cast<SHORT>(leer ? POLLRDNORM : POLLWRNORM), 0};
  return WSAPoll(&uno, 1, espera_ms) != 0;
#else
  pollfd uno{socket, static_cast<short>(leer ? POLLIN : POLLOUT), 0};
  return ::poll(&uno, 1, espera_ms) != 0;
#endif
}

// "host[:port]", the host of IPv6 figures in brackets.
void partirServidor(const QString& servidor, QString& nombre, QString& puerto) {
  puerto = kPuerto;
  const qsizetype corchete = servidor.startsWith(u'[') ? servidor.indexOf(u']') : -1;
  const qsizetype dosPuntos = servidor.indexOf(u':', qMax<qsizetype>(corchete, 0));
  nombre = servidor.left(dosPuntos);
  if (corchete > 0) nombre = servidor.mid(1, corchete - 1);
  if (dosPuntos >= 0) puerto = servidor.mid(dosPuntos + 1);
}

struct Busqueda {
  std::mutex cerrojo;
  std::condition_variable aviso;
  bool lista = false;
  QByteArrayList direcciones;
};

QByteArrayList direccionesDe(const QByteArray& nombre, int banderas) {
  QByteArrayList lista;
  addrinfo pista{};
  pista.ai_socktype = SOCK_STREAM;
  pista.ai_flags = banderas;
  addrinfo* halladas = nullptr;
  if (::getaddrinfo(nombre.constData(), nullptr, &pista, &halladas) != 0) return lista;
  for (const addrinfo* a = halladas; a; a = a->ai_next) {
    char texto[NI_MAXHOST];
    if (::getnameinfo(a->ai_addr, static_cast<socklen_t>(a->ai_addrlen), texto, sizeof texto, nullptr, 0,
                      NI_NUMERICHOST) == 0) {
      lista << QByteArray(texto);
    }
  }
  ::freeaddrinfo(halladas);
  return lista;
}

// The addresses of a name. The system's look-up has no time limit of its own, so it runs beside; one that comes too
// late finds nobody and is thrown away. Nothing when the time has passed.
std::optional<QByteArrayList> buscarHost(const QByteArray& nombre, const QDeadlineTimer& plazo) {
  if (const auto cifras = direccionesDe(nombre, AI_NUMERICHOST); !cifras.isEmpty()) return cifras;
  const auto busqueda = std::make_shared<Busqueda>();
  std::thread([busqueda, nombre] {
    QByteArrayList halladas = direccionesDe(nombre, 0);
    const std::lock_guard guarda(busqueda->cerrojo);
    busqueda->direcciones = std::move(halladas);
    busqueda->lista = true;
    busqueda->aviso.notify_one();
  }).detach();
  std::unique_lock guarda(busqueda->cerrojo);
  const auto queda = std::chrono::milliseconds(plazo.remainingTime());
  if (!busqueda->aviso.wait_for(guarda, queda, [&] { return busqueda->lista; })) return {};
  return busqueda->direcciones;
}

ErrorBD sinTiempo(const QString& servidor) {
  return {kErrorTiempo, 0, QStringLiteral("El servidor '%1' no responde.").arg(servidor)};
}

QString palabrasDe(const PGconn* c) { return QString::fromUtf8(PQerrorMessage(c)).trimmed(); }

// Begins to connect; the connection to be polled, or one whose status is bad.
PGconn* empezar(const CadenaConexion& c, const QByteArray& nombre, const QByteArray& puerto,
                const QByteArrayList& direcciones) {
  QByteArrayList nombres, puertos;
  for (qsizetype i = 0; i < direcciones.size(); ++i) {
    nombres << nombre;
    puertos << puerto;
  }
  // clang-format off
  const QList<std::pair<const char*, QByteArray>> opciones{
      {"host", nombres.join(',')},       {"hostaddr", direcciones.join(',')}, {"port", puertos.join(',')},
      {"dbname", c.catalogo.toUtf8()},   {"user", c.usuario.toUtf8()},        {"password", c.clave.toUtf8()},
      {"client_encoding", "UTF8"},       {"options", "-c DateStyle=ISO"},     {"application_name", "TarvoPos"},
      {"gssencmode", "disable"},         {"tcp_user_timeout", "20000"},       {"keepalives_idle", "10"},
      {"keepalives_interval", "5"},      {"keepalives_count", "2"},
  };
  // clang-format on
  std::vector<const char*> claves, valores;
  for (const auto& [clave, valor] : opciones) {
    claves.push_back(clave);
    valores.push_back(valor.constData());
  }
  claves.push_back(nullptr);
  valores.push_back(nullptr);
  return PQconnectStartParams(claves.data(), valores.data(), 0);
}

std::optional<ErrorBD> acabar(PGconn* c, const QString& servidor, const QDeadlineTimer& plazo) {
  PostgresPollingStatusType paso = PQstatus(c) == CONNECTION_BAD ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (paso != PGRES_POLLING_OK) {
    if (paso == PGRES_POLLING_FAILED) {
      return ErrorBD{kErrorGeneral, 0,
                     QStringLiteral("No se pudo conectar al servidor '%1': %2").arg(servidor, palabrasDe(c))};
    }
    const int queda = static_cast<int>(plazo.remainingTime());
    if (queda <= 0 || !esperarSocket(PQsocket(c), paso == PGRES_POLLING_READING, queda)) return sinTiempo(servidor);
    paso = PQconnectPoll(c);
  }
  return {};
}

enum TipoPostgres : Oid {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kFloat4 = 700,
  kFloat8 = 701,
  kDate = 1082,
  kTimestamp = 1114,
  kTimestampTz = 1184,
  kNumeric = 1700
};

QVariant celdaDe(const PGresult* r, int fila, int columna) {
  if (PQgetisnull(r, fila, columna)) return {};
  const QString texto = QString::fromUtf8(PQgetvalue(r, fila, columna));
  switch (PQftype(r, columna)) {
    case kBool: return static_cast<qint64>(texto == u"t");
    case kInt2:
    case kInt4:
    case kInt8: return texto.toLongLong();
    case kFloat4:
    case kFloat8:
    case kNumeric: return texto.toDouble();
    case kDate:
    case kTimestamp:
    case kTimestampTz:
      if (const auto instante = leerInstante(texto.left(19))) return *instante;
      return texto;
    default: return texto;
  }
}

void llenarDe(const PGresult* r, Recordset& rs) {
  const int columnas = PQnfields(r);
  QStringList campos;
  for (int i = 0; i < columnas; ++i) campos << QString::fromUtf8(PQfname(r, i));
  std::vector<std::vector<QVariant>> filas(static_cast<size_t>(PQntuples(r)));
  for (int f = 0; f < PQntuples(r); ++f) {
    for (int i = 0; i < columnas; ++i) filas[static_cast<size_t>(f)].push_back(celdaDe(r, f, i));
  }
  rs.llenar(campos, std::move(filas));
}

ErrorBD errorDe(const PGconn* c, const PGresult* r) {
  const char* estado = PQresultErrorField(r, PG_DIAG_SQLSTATE);
  const char* mensaje = PQresultErrorField(r, PG_DIAG_MESSAGE_PRIMARY);
  const QString palabras = mensaje ? QString::fromUtf8(mensaje) : palabrasDe(c);
  if (estado && qstrcmp(estado, "23505") == 0) return {kErrorSentencia, kNativoClaveDuplicada, palabras};
  if (PQstatus(c) == CONNECTION_BAD || !estado) {
    return {kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor: ") + palabras};
  }
  return {kErrorSentencia, 1, palabras};
}

}  // namespace

std::unique_ptr<MotorPostgres> MotorPostgres::abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error) {
  const QDeadlineTimer plazo(espera_ms);
  QString nombre, puerto;
  partirServidor(cadena.servidor, nombre, puerto);
  const auto direcciones = buscarHost(nombre.toUtf8(), plazo);
  if (!direcciones) {
    error = sinTiempo(cadena.servidor);
    return {};
  }
  if (direcciones->isEmpty()) {
    error = {kErrorGeneral, 0, QStringLiteral("No se encuentra el servidor '%1'.").arg(cadena.servidor)};
    return {};
  }
  std::unique_ptr<MotorPostgres> motor(
      new MotorPostgres(empezar(cadena, nombre.toUtf8(), puerto.toUtf8(), *direcciones)));
  if (const auto e = acabar(motor->conexion_, cadena.servidor, plazo)) {
    error = *e;
    return {};
  }
  return motor;
}

MotorPostgres::~MotorPostgres() { PQfinish(conexion_); }

std::optional<ErrorBD> MotorPostgres::directa(const QString& sql, Recordset* rs, qint64* afectadas) {
  const std::unique_ptr<PGresult, decltype(&PQclear)> r(PQexec(conexion_, sql.toUtf8().constData()), &PQclear);
  const ExecStatusType estado = PQresultStatus(r.get());
  if (estado != PGRES_TUPLES_OK && estado != PGRES_COMMAND_OK) return errorDe(conexion_, r.get());
  if (rs) llenarDe(r.get(), *rs);
  if (afectadas) *afectadas = estado == PGRES_COMMAND_OK ? QByteArray(PQcmdTuples(r.get())).toLongLong() : 0;
  return {};
}

std::optional<ErrorBD> MotorPostgres::correr(const QString& sql, Recordset* rs, qint64* afectadas) {
  const bool dentro = PQtransactionStatus(conexion_) == PQTRANS_INTRANS;
  if (dentro) {
    if (auto e = directa(QStringLiteral("SAVEPOINT sentencia"))) return e;
  }
  auto error = directa(sql, rs, afectadas);
  if (dentro && error) directa(QStringLiteral("ROLLBACK TO sentencia"));
  if (dentro) directa(QStringLiteral("RELEASE sentencia"));
  return error;
}

std::optional<ErrorBD> MotorPostgres::consultar(const QString& sql, Recordset& rs) {
  rs.llenar({}, {});
  return correr(sql, &rs, nullptr);
}

std::optional<ErrorBD> MotorPostgres::ejecutar(const QString& sql, qint64* afectadas) {
  return correr(sql, nullptr, afectadas);
}

std::optional<ErrorBD> MotorPostgres::iniciar() {
  if (PQtransactionStatus(conexion_) != PQTRANS_IDLE) {
    return ErrorBD{kErrorSentencia, 1, QStringLiteral("Ya hay una transacción abierta.")};
  }
  return directa(QStringLiteral("BEGIN"));
}

std::optional<ErrorBD> MotorPostgres::confirmar() { return directa(QStringLiteral("COMMIT")); }
std::optional<ErrorBD> MotorPostgres::deshacer() { return directa(QStringLiteral("ROLLBACK")); }

std::optional<ErrorBD> MotorPostgres::crudo(const QString& guion, Recordset* rs) { return directa(guion, rs); }
