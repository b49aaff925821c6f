#include "platform/sql/canal_postgres.h"

#include <libpq-fe.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/sql/errores_postgres.h"
#include "platform/sql/motor.h"

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

constexpr int kEsperaNormal_ms = 20'000;  // who waits as long is no sale

QString esperandoA(const QString& servidor) { return QStringLiteral("Esperando al servidor %1…").arg(servidor); }

// A socket is ready, or the time has passed.
bool esperarSocket(int socket, bool leer, bool escribir, int espera_ms) {
#ifdef Q_OS_WIN
  WSAPOLLFD uno{static_cast<SOCKET>(socket), static_cast<SHORT>((leer ? POLLRDNORM : 0) | (escribir ? POLLWRNORM : 0)),
                0};
  return WSAPoll(&uno, 1, espera_ms) != 0;
#else
  pollfd uno{socket, static_cast<short>((leer ? POLLIN : 0) | (escribir ? POLLOUT : 0)), 0};
  return ::poll(&uno, 1, espera_ms) != 0;
#endif
}

const QString kPuerto = QStringLiteral("5432");

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
std::optional<QByteArrayList> buscarHost(const QByteArray& nombre, const QDeadlineTimer& plazo,
                                         const AvisoEspera& alEsperar, const QString& que) {
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
  const bool hallado = EsperarAvisando(alEsperar, que, static_cast<int>(plazo.remainingTime()), [&](int ms) {
    return busqueda->aviso.wait_for(guarda, std::chrono::milliseconds(ms), [&] { return busqueda->lista; });
  });
  if (!hallado) return {};
  return busqueda->direcciones;
}

ErrorBD sinTiempo(const QString& servidor) {
  return {kErrorTiempo, 0, QStringLiteral("El servidor '%1' no responde.").arg(servidor)};
}

QString palabrasDe(const PGconn* c) { return QString::fromUtf8(PQerrorMessage(c)).trimmed(); }

// Tables and functions are found without their owner; a lock that another session holds is waited for as long as the
// server itself. Plans of our short statements are not worth compiling, and they are look-ups by an index in memory.
QByteArray opcionesDeSesion(int espera_ms) {
  return "-c DateStyle=ISO -c search_path=dbo,public -c jit=off -c random_page_cost=1.1 -c client_min_messages=error "
         "-c lock_timeout=" +
         QByteArray::number(espera_ms - espera_ms / 10);
}

// Begins to connect; the connection to be polled, or one whose status is bad.
PGconn* empezar(const CadenaConexion& c, const QByteArray& nombre, const QByteArray& puerto,
                const QByteArrayList& direcciones, int espera_ms) {
  QByteArrayList nombres, puertos;
  for (qsizetype i = 0; i < direcciones.size(); ++i) {
    nombres << nombre;
    puertos << puerto;
  }
  // clang-format off
  const QList<std::pair<const char*, QByteArray>> opciones{
      {"host", nombres.join(',')},       {"hostaddr", direcciones.join(',')}, {"port", puertos.join(',')},
      {"dbname", c.catalogo.toUtf8()},   {"user", c.usuario.toUtf8()},        {"password", c.clave.toUtf8()},
      {"client_encoding", "UTF8"},       {"options", opcionesDeSesion(espera_ms)}, {"application_name", "TarvoPos"},
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

std::optional<ErrorBD> acabar(PGconn* c, const QString& servidor, const QDeadlineTimer& plazo,
                              const AvisoEspera& alEsperar) {
  PostgresPollingStatusType paso = PQstatus(c) == CONNECTION_BAD ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (paso != PGRES_POLLING_OK) {
    if (paso == PGRES_POLLING_FAILED) {
      return ErrorBD{kErrorGeneral, 0,
                     QStringLiteral("No se pudo conectar al servidor '%1': %2").arg(servidor, palabrasDe(c))};
    }
    const int queda = static_cast<int>(plazo.remainingTime());
    const bool leer = paso == PGRES_POLLING_READING;
    if (queda <= 0 || !EsperarAvisando(alEsperar, esperandoA(servidor), queda,
                                       [&](int ms) { return esperarSocket(PQsocket(c), leer, !leer, ms); })) {
      return sinTiempo(servidor);
    }
    paso = PQconnectPoll(c);
  }
  return {};
}

ResultadoPg propio(PGresult* r) { return ResultadoPg(r, &PQclear); }

}  // namespace

std::unique_ptr<CanalPostgres> CanalPostgres::abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error,
                                                    const AvisoEspera& alEsperar) {
  const QDeadlineTimer plazo(espera_ms);
  QString nombre, puerto;
  partirServidor(cadena.servidor, nombre, puerto);
  const auto direcciones = buscarHost(nombre.toUtf8(), plazo, alEsperar, esperandoA(cadena.servidor));
  if (!direcciones) {
    error = sinTiempo(cadena.servidor);
    return {};
  }
  if (direcciones->isEmpty()) {
    error = {kErrorGeneral, 0, QStringLiteral("No se encuentra el servidor '%1'.").arg(cadena.servidor)};
    return {};
  }
  std::unique_ptr<CanalPostgres> canal(new CanalPostgres(cadena, espera_ms, alEsperar));
  canal->conexion_ = empezar(cadena, nombre.toUtf8(), puerto.toUtf8(), *direcciones, espera_ms);
  if (const auto e = acabar(canal->conexion_, cadena.servidor, plazo, alEsperar)) {
    error = *e;
    return {};
  }
  PQsetNoticeProcessor(
      canal->conexion_, [](void*, const char*) {}, nullptr);
  PQsetnonblocking(canal->conexion_, 1);
  canal->reposo_.start();
  return canal;
}

CanalPostgres::~CanalPostgres() { PQfinish(conexion_); }

bool CanalPostgres::enTransaccion() const {
  const PGTransactionStatusType s = PQtransactionStatus(conexion_);
  return s == PQTRANS_INTRANS || s == PQTRANS_INERROR;
}

// What the other side has said meanwhile is seen without asking it anything.
bool CanalPostgres::perdida() {
  if (abandonada_ || PQstatus(conexion_) == CONNECTION_BAD) return true;
  if (!esperarSocket(PQsocket(conexion_), true, false, 0)) return false;
  return PQconsumeInput(conexion_) == 0 || PQstatus(conexion_) == CONNECTION_BAD;
}

// Whoever waits long asks at times whether the server still opens its door.
bool CanalPostgres::sigueVivo() const {
  ErrorBD error;
  const auto otro = abrir(cadena_, kEsperaNormal_ms / 2, error, alEsperar_);
  return otro || error.numero != kErrorTiempo;
}

ErrorBD CanalPostgres::abandonar() {
  abandonada_ = true;
  return sinTiempo(cadena_.servidor);
}

std::optional<ErrorBD> CanalPostgres::listo(bool escribir, QDeadlineTimer& plazo) {
  const bool venta = espera_ms_ < kEsperaNormal_ms;
  const auto listo = [&](int ms) { return esperarSocket(PQsocket(conexion_), true, escribir, ms); };
  while (!EsperarAvisando(alEsperar_, esperandoA(cadena_.servidor), static_cast<int>(plazo.remainingTime()), listo)) {
    if (venta || !sigueVivo()) return abandonar();
    plazo.setRemainingTime(kEsperaNormal_ms / 2);
  }
  return {};
}

std::optional<ErrorBD> CanalPostgres::vaciar(QDeadlineTimer& plazo) {
  for (int r = PQflush(conexion_); r != 0; r = PQflush(conexion_)) {
    if (r < 0) return errorPostgres(conexion_, nullptr);
    if (auto e = listo(true, plazo)) return e;
    if (PQconsumeInput(conexion_) == 0) return errorPostgres(conexion_, nullptr);
  }
  return {};
}

// The next result; null behind the last of a step.
std::optional<ErrorBD> CanalPostgres::siguiente(QDeadlineTimer& plazo, ResultadoPg& r) {
  while (PQisBusy(conexion_) != 0) {
    if (auto e = listo(false, plazo)) return e;
    if (PQconsumeInput(conexion_) == 0) return errorPostgres(conexion_, nullptr);
  }
  r = propio(PQgetResult(conexion_));
  return {};
}

bool CanalPostgres::enviar(const PasoPg& p) {
  std::vector<const char*> valores;
  for (const auto& v : p.valores) valores.push_back(v ? v->constData() : nullptr);
  const int n = static_cast<int>(valores.size());
  switch (p.clase) {
    case PasoPg::Preparar:
      return PQsendPrepare(conexion_, p.nombre.constData(), p.texto.constData(), static_cast<int>(p.tipos.size()),
                           p.tipos.data()) == 1;
    case PasoPg::Ejecutar:
      return PQsendQueryPrepared(conexion_, p.nombre.constData(), n, valores.data(), nullptr, nullptr, 0) == 1;
    case PasoPg::Sentencia: break;
  }
  return PQsendQueryParams(conexion_, p.texto.constData(), n, p.tipos.empty() ? nullptr : p.tipos.data(),
                           valores.data(), nullptr, nullptr, 0) == 1;
}

// Results of all steps, in their order; those behind a failed one are empty.
std::optional<ErrorBD> CanalPostgres::recoger(size_t pasos, QDeadlineTimer& plazo, std::vector<ResultadoPg>& resultados,
                                              size_t cual, const TomarFilas& tomar) {
  std::optional<ErrorBD> error;
  bool bastan = false;
  for (size_t i = 0; i < pasos; ++i) {
    ResultadoPg de = propio(nullptr);
    if (tomar && i == cual) PQsetSingleRowMode(conexion_);
    for (;;) {
      ResultadoPg r = propio(nullptr);
      if (auto e = siguiente(plazo, r)) return e;
      if (!r) break;
      const ExecStatusType estado = PQresultStatus(r.get());
      if (estado == PGRES_SINGLE_TUPLE) {
        if (!bastan && !tomar(r.get())) {
          bastan = true;
          error = ErrorBD{kErrorSentencia, 0, QStringLiteral("La consulta da demasiadas filas.")};
          fallado_ = i;
          interrumpir();
        }
        continue;
      }
      const bool bien = estado == PGRES_TUPLES_OK || estado == PGRES_COMMAND_OK || estado == PGRES_EMPTY_QUERY;
      if (!bien && !error && estado != PGRES_PIPELINE_ABORTED) {
        error = errorPostgres(conexion_, r.get());
        fallado_ = i;
        if (const char* c = PQresultErrorField(r.get(), PG_DIAG_SQLSTATE)) codigo_ = c;
      }
      if (bien) de = std::move(r);
      if (PQstatus(conexion_) == CONNECTION_BAD) return error ? error : errorPostgres(conexion_, nullptr);
    }
    resultados.push_back(std::move(de));
  }
  return error;
}

void CanalPostgres::interrumpir() {
  char palabras[256];
  PGcancel* c = PQgetCancel(conexion_);
  if (c) PQcancel(c, palabras, sizeof palabras);
  PQfreeCancel(c);
}

std::optional<ErrorBD> CanalPostgres::pedir(const std::vector<PasoPg>& pasos, std::vector<ResultadoPg>& resultados,
                                            size_t cual, const TomarFilas& tomar) {
  resultados.clear();
  codigo_.clear();
  fallado_ = 0;
  if (abandonada_) return sinTiempo(cadena_.servidor);
  const bool varios = pasos.size() > 1;
  QDeadlineTimer plazo(espera_ms_ < kEsperaNormal_ms ? espera_ms_ : kEsperaNormal_ms / 2);
  if (varios && PQenterPipelineMode(conexion_) == 0) return errorPostgres(conexion_, nullptr);
  bool bien = true;
  for (const PasoPg& p : pasos) bien = bien && enviar(p);
  if (bien && varios) bien = PQpipelineSync(conexion_) == 1;
  if (!bien) return errorPostgres(conexion_, nullptr);
  if (auto e = vaciar(plazo)) return e;
  auto error = recoger(pasos.size(), plazo, resultados, cual, tomar);
  if (abandonada_ || PQstatus(conexion_) == CONNECTION_BAD) return error;
  if (varios) {
    ResultadoPg fin = propio(nullptr);  // of the sync
    if (auto e = siguiente(plazo, fin)) return e;
    PQexitPipelineMode(conexion_);
  }
  reposo_.restart();
  return error;
}

std::optional<ErrorBD> CanalPostgres::guion(const QString& texto, ResultadoPg& ultimo) {
  codigo_.clear();
  if (abandonada_) return sinTiempo(cadena_.servidor);
  QDeadlineTimer plazo(espera_ms_ < kEsperaNormal_ms ? espera_ms_ : kEsperaNormal_ms / 2);
  if (PQsendQuery(conexion_, texto.toUtf8().constData()) == 0) return errorPostgres(conexion_, nullptr);
  if (auto e = vaciar(plazo)) return e;
  std::vector<ResultadoPg> uno;
  auto error = recoger(1, plazo, uno);
  if (!uno.empty()) ultimo = std::move(uno[0]);
  return error;
}
