#pragma once
#include "platform/sql/cadena_conexion.h"
#include "platform/sql/motor.h"

struct pg_conn;

// A PostgreSQL server. Statements go to it as they are: what it does not understand comes back as its own error.
class MotorPostgres final : public Motor {
 public:
  // Opens within `espera_ms`, looking the host's name up included; `error.numero` is kErrorTiempo when that time passes
  // without an answer. A server that goes silent later fails a statement after some twenty seconds.
  static std::unique_ptr<MotorPostgres> abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error);
  ~MotorPostgres() override;
  MotorPostgres(const MotorPostgres&) = delete;
  MotorPostgres& operator=(const MotorPostgres&) = delete;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override;
  std::optional<ErrorBD> iniciar() override;
  std::optional<ErrorBD> confirmar() override;
  std::optional<ErrorBD> deshacer() override;
  QString traducir(const QString& sql) override { return sql; }
  // Past the dialect, in the server's own language: one statement, or a script of many, without a savepoint.
  [[nodiscard]] std::optional<ErrorBD> crudo(const QString& guion, Recordset* rs = nullptr);

 private:
  explicit MotorPostgres(pg_conn* conexion) : conexion_(conexion) {}
  // A failed statement takes only itself back, also inside a transaction.
  std::optional<ErrorBD> correr(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> directa(const QString& sql, Recordset* rs = nullptr, qint64* afectadas = nullptr);

  pg_conn* conexion_;
};
