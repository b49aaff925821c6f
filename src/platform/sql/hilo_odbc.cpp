#include "platform/sql/hilo_odbc.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <QDateTime>
#include <QDeadlineTimer>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>

#include "platform/sql/motor.h"

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts go to the library as they are");

namespace {

constexpr int kTramo_ms = 50;
constexpr SQLINTEGER kVictima = 1205, kSinCerrojo = 1222;  // SQL Server's: a knot of locks; a lock not had in time
constexpr SQLSMALLINT kTipoHora = -154;                    // a time of SQL Server, which no standard type stands for

SQLWCHAR* ancho(QString& t) { return reinterpret_cast<SQLWCHAR*>(t.data()); }
bool bien(SQLRETURN r) { return r == SQL_SUCCESS || r == SQL_SUCCESS_WITH_INFO; }
// The interface passes numbers as pointers.
SQLPOINTER valor(SQLULEN n) { return reinterpret_cast<SQLPOINTER>(n); }  // NOLINT(performance-no-int-to-ptr)

// "[vendor][driver][server]words" without what stands in brackets before the words.
QString sinOrigen(QString palabras) {
  while (palabras.startsWith(u'[') && palabras.contains(u']')) palabras.remove(0, palabras.indexOf(u']') + 1);
  return palabras.trimmed();
}

// The first message of a handle as an error of ours.
RespuestaOdbc errorDe(SQLSMALLINT clase, SQLHANDLE mango) {
  SQLWCHAR estado[6] = {}, texto[1000] = {};
  SQLINTEGER nativo = 0;
  SQLSMALLINT largo = 0;
  RespuestaOdbc r;
  ErrorBD e{kErrorGeneral, 0, QStringLiteral("El conector ODBC no dice por qué falló.")};
  if (bien(SQLGetDiagRecW(clase, mango, 1, estado, &nativo, texto, 999, &largo))) {
    e.descripcion = sinOrigen(QString::fromUtf16(reinterpret_cast<const char16_t*>(texto)));
    const QString s = QString::fromUtf16(reinterpret_cast<const char16_t*>(estado));
    // 2601 and 2627 are SQL Server's own for a key that stands already.
    if (s == u"23505" || nativo == 2601 || nativo == 2627) {
      e.numero = kErrorSentencia;
      nativo = kNativoClaveDuplicada;
    } else if (s == u"HYT00" || s == u"HYT01" || nativo == kSinCerrojo) {
      e.numero = kErrorTiempo;
    } else if (s.startsWith(u"08")) {
      r.perdida = true;
    } else if (s == u"40001" || s == u"40P01" || nativo == kVictima) {
      nativo = kNativoNudo;
    } else if (clase == SQL_HANDLE_STMT) {
      e.numero = kErrorSentencia;
    }
    e.nativo = static_cast<int>(nativo);
  }
  r.error = e;
  return r;
}

// In pieces, since its length may not be known before.
QVariant comoTexto(SQLHSTMT s, SQLUSMALLINT columna) {
  QString texto = QStringLiteral("");
  SQLWCHAR trozo[512];
  SQLLEN largo = 0;
  SQLRETURN r = SQL_SUCCESS_WITH_INFO;
  for (bool primero = true; r == SQL_SUCCESS_WITH_INFO; primero = false) {
    r = SQLGetData(s, columna, SQL_C_WCHAR, trozo, sizeof trozo, &largo);
    if (primero && (!bien(r) || largo == SQL_NULL_DATA)) return {};
    if (bien(r)) texto += QString::fromUtf16(reinterpret_cast<const char16_t*>(trozo));
  }
  return texto;
}

QVariant celda(SQLHSTMT s, SQLUSMALLINT columna, SQLSMALLINT tipo) {
  SQLLEN largo = 0;
  switch (tipo) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT: {
      SQLBIGINT n = 0;
      if (!bien(SQLGetData(s, columna, SQL_C_SBIGINT, &n, sizeof n, &largo)) || largo == SQL_NULL_DATA) return {};
      return static_cast<qint64>(n);
    }
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE: {
      SQLDOUBLE n = 0;
      if (!bien(SQLGetData(s, columna, SQL_C_DOUBLE, &n, sizeof n, &largo)) || largo == SQL_NULL_DATA) return {};
      return static_cast<double>(n);
    }
    case SQL_NUMERIC:
    case SQL_DECIMAL: {
      const QVariant texto = comoTexto(s, columna);
      return texto.isNull() ? texto : QVariant(texto.toString().toDouble());
    }
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
    case SQL_DATETIME: {
      SQL_TIMESTAMP_STRUCT t{};
      if (!bien(SQLGetData(s, columna, SQL_C_TYPE_TIMESTAMP, &t, sizeof t, &largo)) || largo == SQL_NULL_DATA) {
        return {};
      }
      return QDateTime(QDate(t.year, t.month, t.day), QTime(t.hour, t.minute, t.second));
    }
    case kTipoHora:
    default: return comoTexto(s, columna);
  }
}

}  // namespace

// The library's handles. Used by the thread alone, but for cancelar().
class SesionOdbc {
 public:
  ~SesionOdbc() {
    if (conexion_) {
      SQLDisconnect(conexion_);
      SQLFreeHandle(SQL_HANDLE_DBC, conexion_);
    }
    if (entorno_) SQLFreeHandle(SQL_HANDLE_ENV, entorno_);
  }

  RespuestaOdbc conectar(QString cadena, int espera_ms) {
    if (!bien(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &entorno_))) return errorDe(SQL_HANDLE_ENV, nullptr);
    SQLSetEnvAttr(entorno_, SQL_ATTR_ODBC_VERSION, valor(SQL_OV_ODBC3), 0);
    if (!bien(SQLAllocHandle(SQL_HANDLE_DBC, entorno_, &conexion_))) return errorDe(SQL_HANDLE_ENV, entorno_);
    espera_s_ = static_cast<SQLULEN>((espera_ms + 999) / 1000);
    SQLSetConnectAttrW(conexion_, SQL_ATTR_LOGIN_TIMEOUT, valor(espera_s_), 0);
    const QDeadlineTimer plazo(espera_ms);
    const SQLRETURN r = SQLDriverConnectW(conexion_, nullptr, ancho(cadena), static_cast<SQLSMALLINT>(cadena.size()),
                                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!bien(r)) {
      RespuestaOdbc respuesta = errorDe(SQL_HANDLE_DBC, conexion_);
      if (plazo.hasExpired()) respuesta.error->numero = kErrorTiempo;  // some drivers call silence a refusal
      return respuesta;
    }
    SQLWCHAR nombre[128] = {};
    SQLSMALLINT largo = 0;
    SQLGetInfoW(conexion_, SQL_DBMS_NAME, nombre, sizeof nombre, &largo);
    sqlServer = QString::fromUtf16(reinterpret_cast<const char16_t*>(nombre)).contains(u"SQL Server");
    return {};
  }

  RespuestaOdbc correr(QString sql) {
    if (muerta()) {
      RespuestaOdbc r;
      r.error = ErrorBD{kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor.")};
      r.perdida = r.sinEnviar = true;
      return r;
    }
    SQLHSTMT s = nullptr;
    if (!bien(SQLAllocHandle(SQL_HANDLE_STMT, conexion_, &s))) return errorDe(SQL_HANDLE_DBC, conexion_);
    {
      const std::lock_guard guarda(cancela_);
      en_curso_ = s;
    }
    SQLSetStmtAttrW(s, SQL_ATTR_QUERY_TIMEOUT, valor(espera_s_), 0);  // a driver that can't is given up all the same
    RespuestaOdbc respuesta = recorrer(s, SQLExecDirectW(s, ancho(sql), static_cast<SQLINTEGER>(sql.size())));
    {
      const std::lock_guard guarda(cancela_);
      en_curso_ = nullptr;
    }
    SQLFreeHandle(SQL_HANDLE_STMT, s);
    if (respuesta.error && respuesta.perdida) {
      respuesta.error->descripcion.prepend(QStringLiteral("Se perdió la conexión con el servidor: "));
    } else if (respuesta.error) {
      respuesta.perdida = muerta();
    }
    return respuesta;
  }

  RespuestaOdbc transaccion(bool abierta) {
    const SQLULEN modo = abierta ? SQL_AUTOCOMMIT_OFF : SQL_AUTOCOMMIT_ON;
    if (bien(SQLSetConnectAttrW(conexion_, SQL_ATTR_AUTOCOMMIT, valor(modo), 0))) return {};
    return errorDe(SQL_HANDLE_DBC, conexion_);
  }

  RespuestaOdbc acabar(bool confirma) {
    if (!bien(SQLEndTran(SQL_HANDLE_DBC, conexion_, confirma ? SQL_COMMIT : SQL_ROLLBACK))) {
      return errorDe(SQL_HANDLE_DBC, conexion_);
    }
    return transaccion(false);
  }

  // From another thread: the statement that runs, if any, ends with an error.
  void cancelar() {
    const std::lock_guard guarda(cancela_);
    if (en_curso_) SQLCancel(en_curso_);
  }

  std::atomic<bool> sqlServer = false;

 private:
  // Whether the driver has seen the connection end; one that keeps no account of it says no.
  bool muerta() {
    SQLUINTEGER como = SQL_CD_FALSE;
    return bien(SQLGetConnectAttrW(conexion_, SQL_ATTR_CONNECTION_DEAD, &como, sizeof como, nullptr)) &&
           como == SQL_CD_TRUE;
  }

  // All results of a batch: the rows of the first that has columns, the count of the first that changes rows, and
  // whatever error comes behind them.
  RespuestaOdbc recorrer(SQLHSTMT s, SQLRETURN r) {
    RespuestaOdbc respuesta;
    bool conFilas = false, conCuenta = false;
    while (r != SQL_NO_DATA || !(conFilas || conCuenta)) {
      if (!bien(r) && r != SQL_NO_DATA) return errorDe(SQL_HANDLE_STMT, s);
      SQLSMALLINT columnas = 0;
      SQLLEN cuenta = -1;
      SQLNumResultCols(s, &columnas);
      if (columnas > 0 && !conFilas) {
        conFilas = true;
        if (!leer(s, columnas, respuesta)) return errorDe(SQL_HANDLE_STMT, s);
      } else if (columnas == 0 && bien(SQLRowCount(s, &cuenta)) && cuenta >= 0 && !conCuenta) {
        respuesta.afectadas = cuenta;
      }
      conCuenta = true;
      r = SQLMoreResults(s);
    }
    if (conFilas) respuesta.afectadas = 0;
    return respuesta;
  }

  static bool leer(SQLHSTMT s, SQLSMALLINT columnas, RespuestaOdbc& respuesta) {
    std::vector<SQLSMALLINT> tipos;
    for (SQLSMALLINT i = 1; i <= columnas; ++i) {
      SQLWCHAR nombre[256] = {};
      SQLSMALLINT tipo = 0, largo = 0, decimales = 0, nulos = 0;
      SQLULEN tamanio = 0;
      SQLDescribeColW(s, static_cast<SQLUSMALLINT>(i), nombre, 256, &largo, &tipo, &tamanio, &decimales, &nulos);
      respuesta.campos << QString::fromUtf16(reinterpret_cast<const char16_t*>(nombre));
      tipos.push_back(tipo);
    }
    for (;;) {
      const SQLRETURN r = SQLFetch(s);
      if (r == SQL_NO_DATA) return true;
      if (!bien(r)) return false;
      std::vector<QVariant>& fila = respuesta.filas.emplace_back();
      for (SQLSMALLINT i = 0; i < columnas; ++i) {
        fila.push_back(celda(s, static_cast<SQLUSMALLINT>(i + 1), tipos[static_cast<size_t>(i)]));
      }
    }
  }

  SQLHENV entorno_ = nullptr;
  SQLHDBC conexion_ = nullptr;
  SQLULEN espera_s_ = 20;
  std::mutex cancela_;
  SQLHSTMT en_curso_ = nullptr;
};

struct HiloOdbc::Cola {
  std::mutex cerrojo;
  std::condition_variable aviso;
  std::deque<std::function<void()>> tareas;
  bool fin = false;
};

HiloOdbc::HiloOdbc(AvisoEspera alEsperar, QString que)
    : alEsperar_(std::move(alEsperar)),
      que_(std::move(que)),
      cola_(std::make_shared<Cola>()),
      sesion_(std::make_shared<SesionOdbc>()) {
  std::thread([cola = cola_, sesion = sesion_]() mutable {
    for (;;) {
      std::function<void()> tarea;
      {
        std::unique_lock guarda(cola->cerrojo);
        cola->aviso.wait(guarda, [&] { return cola->fin || !cola->tareas.empty(); });
        if (cola->tareas.empty()) return;
        tarea = std::move(cola->tareas.front());
        cola->tareas.pop_front();
      }
      tarea();
    }
  }).detach();
}

HiloOdbc::~HiloOdbc() {
  const std::lock_guard guarda(cola_->cerrojo);
  cola_->fin = true;
  cola_->aviso.notify_one();
}

RespuestaOdbc HiloOdbc::hacer(std::function<RespuestaOdbc(SesionOdbc&)> tarea, int espera_ms,
                              const std::function<bool()>& interrumpir) {
  auto paquete = std::make_shared<std::packaged_task<RespuestaOdbc()>>(
      [sesion = sesion_, tarea = std::move(tarea)] { return tarea(*sesion); });
  auto futuro = paquete->get_future();
  {
    const std::lock_guard guarda(cola_->cerrojo);
    cola_->tareas.emplace_back([paquete] { (*paquete)(); });
    cola_->aviso.notify_one();
  }
  // A driver that keeps its own time is a little late.
  bool cancelada = false;
  const bool responde = EsperarAvisando(alEsperar_, que_, espera_ms + kTramo_ms * 4, [&](int ms) {
    for (const QDeadlineTimer plazo(ms);;) {
      const qint64 tramo = std::min<qint64>(plazo.remainingTime(), kTramo_ms);
      if (futuro.wait_for(std::chrono::milliseconds(tramo)) == std::future_status::ready) return true;
      if (interrumpir && !cancelada && interrumpir()) {
        cancelada = true;
        sesion_->cancelar();
      }
      if (plazo.hasExpired()) return false;
    }
  });
  if (responde) return futuro.get();
  RespuestaOdbc r;
  r.error = ErrorBD{kErrorTiempo, 0, QStringLiteral("El servidor no responde.")};
  r.perdida = true;
  return r;
}

RespuestaOdbc HiloOdbc::conectar(const QString& cadena, int espera_ms) {
  return hacer([cadena, espera_ms](SesionOdbc& s) { return s.conectar(cadena, espera_ms); }, espera_ms);
}

RespuestaOdbc HiloOdbc::correr(const QString& sql, int espera_ms, const std::function<bool()>& interrumpir) {
  return hacer([sql](SesionOdbc& s) { return s.correr(sql); }, espera_ms, interrumpir);
}

RespuestaOdbc HiloOdbc::transaccion(bool abierta, int espera_ms) {
  return hacer([abierta](SesionOdbc& s) { return s.transaccion(abierta); }, espera_ms);
}

RespuestaOdbc HiloOdbc::acabar(bool confirma, int espera_ms) {
  return hacer([confirma](SesionOdbc& s) { return s.acabar(confirma); }, espera_ms);
}

bool HiloOdbc::esSqlServer() const { return sesion_->sqlServer; }

QStringList fuentesOdbc() {
  QStringList nombres;
  SQLHENV entorno = nullptr;
  if (!bien(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &entorno))) return nombres;
  SQLSetEnvAttr(entorno, SQL_ATTR_ODBC_VERSION, valor(SQL_OV_ODBC3), 0);
  SQLWCHAR nombre[256], clase[256];
  SQLSMALLINT largo = 0, otro = 0;
  for (SQLUSMALLINT de = SQL_FETCH_FIRST; bien(SQLDataSourcesW(entorno, de, nombre, 256, &largo, clase, 256, &otro));
       de = SQL_FETCH_NEXT) {
    nombres << QString::fromUtf16(reinterpret_cast<const char16_t*>(nombre));
  }
  SQLFreeHandle(SQL_HANDLE_ENV, entorno);
  return nombres;
}
