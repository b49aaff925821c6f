#pragma once
// One connection of the ODBC library on a thread of its own.
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/io/espera.h"
#include "platform/sql/error_bd.h"

struct RespuestaOdbc {
  std::optional<ErrorBD> error;
  bool perdida = false;    // the connection does not live any more
  bool sinEnviar = false;  // and that was known before the statement was sent
  QStringList campos;      // of the first result that has columns
  std::vector<std::vector<QVariant>> filas;
  qint64 afectadas = 0;
};

class SesionOdbc;

class HiloOdbc {
 public:
  // `alEsperar` is told `que` while the driver keeps silent.
  HiloOdbc(AvisoEspera alEsperar, QString que);
  // Does not wait for a driver that hangs: the thread closes the connection and ends when it can.
  ~HiloOdbc();
  HiloOdbc(const HiloOdbc&) = delete;
  HiloOdbc& operator=(const HiloOdbc&) = delete;

  // Each gives up after `espera_ms`, with kErrorTiempo; the connection is lost then.
  RespuestaOdbc conectar(const QString& cadena, int espera_ms);
  RespuestaOdbc correr(const QString& sql, int espera_ms, const std::function<bool()>& interrumpir);
  RespuestaOdbc transaccion(bool abierta, int espera_ms);  // begins one or goes back to none
  RespuestaOdbc acabar(bool confirma, int espera_ms);      // commits or rolls back
  bool esSqlServer() const;

 private:
  struct Cola;
  RespuestaOdbc hacer(std::function<RespuestaOdbc(SesionOdbc&)> tarea, int espera_ms,
                      const std::function<bool()>& interrumpir = {});

  AvisoEspera alEsperar_;
  QString que_;
  std::shared_ptr<Cola> cola_;
  std::shared_ptr<SesionOdbc> sesion_;
};

// The data sources that the machine's ODBC knows.
QStringList fuentesOdbc();
