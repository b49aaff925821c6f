#pragma once
// A connection as the session holds it: a value, closed until it is opened. Copying is not possible; closing and
// opening again is. Every call on a closed connection fails with words of its own and changes nothing.
#include "platform/sql/motor.h"
#include "platform/sql/sentencia.h"

class Conexion {
 public:
  // Opens; what was open before is closed first. On failure the connection stays closed and gives the error.
  [[nodiscard]] std::optional<ErrorBD> abrir(Motores& motores, const QString& cadena, int espera_ms);
  void cerrar();
  bool abierta() const { return motor_ != nullptr; }

  [[nodiscard]] std::optional<ErrorBD> consultar(const Sql& sql, Recordset& rs);
  [[nodiscard]] std::optional<ErrorBD> ejecutar(const Sql& sql, qint64* afectadas = nullptr);
  // An INSERT for many rows, as Motor::repetir tells; to be let go of before this connection is closed.
  [[nodiscard]] std::unique_ptr<Repetida> repetir(const Sql& muestra);
  int filasPorSentencia() const { return motor_ ? motor_->filasPorSentencia() : 1; }
  // The rows of a query piece by piece, as Motor::abrirCursor tells; to be let go of likewise.
  [[nodiscard]] std::unique_ptr<CursorBD> abrirCursor(const Sql& consulta);
  [[nodiscard]] std::optional<ErrorBD> iniciar();
  [[nodiscard]] std::optional<ErrorBD> confirmar();
  // A transaction that can't be undone at once is undone before anything else runs here; until then every call fails.
  [[nodiscard]] std::optional<ErrorBD> deshacer();
  // As Motor::deUnaPieza tells.
  void deUnaPieza(bool deUnaPieza) {
    if (motor_) motor_->deUnaPieza(deUnaPieza);
  }
  // From an iniciar() that succeeded to the end of that transaction.
  bool enTransaccion() const { return enTransaccion_; }
  QString traducir(const QString& sql);
  // The connection string that was opened last.
  const QString& cadena() const { return cadena_; }
  // What its statements are written in, by the connection string that was opened last.
  Dialecto dialecto() const { return dialecto_; }

 private:
  std::optional<ErrorBD> listo();

  std::unique_ptr<Motor> motor_;
  QString cadena_;
  Dialecto dialecto_ = Dialecto::Jet;
  bool enTransaccion_ = false;
  bool porDeshacer_ = false;
};
