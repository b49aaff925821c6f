#pragma once
#include "platform/sql/formas.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/sql/motor.h"
#include "platform/sql/procedimientos.h"

// A SQLite file under either dialect.
class MotorSqlite final : public Motor, public AccesoMotor {
 public:
  // Opens `archivo`, which must exist and be a SQLite database; nothing is written to one that isn't. Null on
  // failure, with `error` filled. `memoria` is what other connections to the file have learnt under this dialect, and may
  // be null.
  static std::unique_ptr<MotorSqlite> abrir(const QString& archivo, Dialecto dialecto, int espera_ms,
                                            const OpcionesMotores& opciones, std::shared_ptr<MemoriaDeFormas> memoria,
                                            ErrorBD& error);
  ~MotorSqlite() override;
  MotorSqlite(const MotorSqlite&) = delete;
  MotorSqlite& operator=(const MotorSqlite&) = delete;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override;
  std::optional<ErrorBD> iniciar() override;
  std::optional<ErrorBD> confirmar() override;
  std::optional<ErrorBD> deshacer() override;
  QString traducir(const QString& sql) override;

  // AccesoMotor: the engine's own language, for procedures.
  std::optional<ErrorBD> consultar(const QString& sql, const QVariantList& valores, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, const QVariantList& valores, qint64* afectadas) override;
  QDateTime ahora() const override { return entorno_.ahora(); }

 private:
  MotorSqlite(Dialecto dialecto, const OpcionesMotores& opciones);
  std::optional<ErrorBD> preparar(const QString& archivo, int espera_ms);
  std::optional<ErrorBD> registrarServidor();
  std::optional<ErrorBD> correr(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> correrSentencia(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> llenarTablaNueva(const Preparada& p, const std::vector<Token>& tokens, qint64* afectadas);
  std::optional<ErrorBD> recorrerTope(Preparada& p, const std::vector<Token>& tokens, Recordset& rs);
  std::optional<ErrorBD> llamar(const Llamada& llamada, Recordset* rs);
  std::shared_ptr<Preparada> prepararForma(const QString& sql, const std::vector<Token>& tokens,
                                           std::optional<ErrorBD>& error);
  std::shared_ptr<const FormaEscrita> escribirForma(const QString& sql, const std::vector<Token>& tokens,
                                                    const QString& forma, std::optional<ErrorBD>& error);
  Formas<const FormaEscrita>* memoriaAlDia();
  void olvidarEsquema();
  int compilar(const QByteArray& texto, unsigned opciones, sqlite3_stmt*& sentencia);
  std::optional<ErrorBD> ligar(Preparada& p, const std::vector<Token>& tokens);
  std::optional<ErrorBD> recorrer(Preparada& p, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> directa(const char* sql);

  friend struct FuncionRegistrada;
  EntornoFunciones entorno_;
  std::shared_ptr<const Procedimientos> procedimientos_;
  std::function<bool()> interrumpir_;
  Formas<Preparada> formas_{300};
  std::shared_ptr<MemoriaDeFormas> memoria_;
  int esquema_ = -1;  // the state of the tables that this connection saw; -1 before it has looked
  Catalogo catalogo_;
  sqlite3* base_ = nullptr;
};
