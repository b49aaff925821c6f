#pragma once
#include <QDeadlineTimer>
#include <functional>

#include "platform/sql/cadena_conexion.h"
#include "platform/sql/motor.h"

class HiloOdbc;
struct RespuestaOdbc;

// The words by which a driver of this machine opens that server: a source of `dsn` (the system's list) by its name,
// "Driver=X,Server=Y,..." as it stands, any other ("HOST[\INSTANCE][,PORT]") through FreeTDS. User, password and
// database are added where they are missing. ";" in a value stands in braces.
QString cadenaOdbc(const CadenaConexion& cadena, const QStringList& dsn);

// A Microsoft SQL Server through ODBC. Statements go to it as they are, in Transact-SQL. Every call runs on a thread of
// its own and is given up when its time has passed, whatever the driver does meanwhile; the connection is dead then.
class MotorOdbc final : public Motor {
 public:
  // Opens within `espera_ms`; each statement has the same time. `error.numero` is kErrorTiempo when it passes.
  // Of the options `interrumpir` and `alEsperar` count.
  static std::unique_ptr<MotorOdbc> abrir(const CadenaConexion& cadena, int espera_ms, const OpcionesMotores& opciones,
                                          ErrorBD& error);
  ~MotorOdbc() override;
  MotorOdbc(const MotorOdbc&) = delete;
  MotorOdbc& operator=(const MotorOdbc&) = delete;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override;
  std::optional<ErrorBD> iniciar() override;
  std::optional<ErrorBD> confirmar() override;
  std::optional<ErrorBD> deshacer() override;
  QString traducir(const QString& sql) override { return sql; }

 private:
  MotorOdbc(const CadenaConexion& cadena, int espera_ms, const OpcionesMotores& opciones);
  std::optional<ErrorBD> conectar();
  std::optional<ErrorBD> lista();
  std::optional<ErrorBD> correr(const QString& sql, RespuestaOdbc& respuesta);
  std::optional<ErrorBD> acabar(bool confirma);
  void mirarTransaccion();

  CadenaConexion cadena_;
  int espera_ms_;
  std::function<bool()> interrumpir_;
  AvisoEspera alEsperar_;
  std::unique_ptr<HiloOdbc> hilo_;  // none while the connection is lost
  bool enTransaccion_ = false;
  bool abandonada_ = false;  // left for its silence: whoever holds it must not wait for it at each statement
  bool rota_ = false;        // the transaction is gone at the server: nothing runs before it is undone here as well
  QDeadlineTimer descanso_;  // past: the connection has rested long
};
