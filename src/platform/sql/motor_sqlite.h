#pragma once
#include <sqlite3.h>

#include "platform/sql/camino.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/sql/motor.h"
#include "platform/sql/procedimientos.h"

// A prepared statement and what must be known to run it.
struct Preparada {
  ~Preparada() { sqlite3_finalize(sentencia); }
  Preparada() = default;
  Preparada(const Preparada&) = delete;
  Preparada& operator=(const Preparada&) = delete;

  sqlite3_stmt* sentencia = nullptr;
  std::shared_ptr<const FormaEscrita> forma;
  std::vector<bool> fechas;  // columns that come back as dates
  QStringList campos;
};

// Binds a value to a parameter, the first of which is 1; a date as ISO text. Gives back an engine's code.
int ligarValor(sqlite3_stmt* s, int i, const QVariant& v);

// A SQLite file under either dialect.
class MotorSqlite final : public Motor, public AccesoMotor {
 public:
  // Opens `archivo`, which must exist and be a SQLite database; nothing is written to one that isn't. Null on
  // failure, with `error` filled. `memoria` is what other connections to the file have learnt under this dialect, and
  // may be null.
  static std::unique_ptr<MotorSqlite> abrir(const QString& archivo, Dialecto dialecto, int espera_ms,
                                            const OpcionesMotores& opciones, std::shared_ptr<MemoriaDeFormas> memoria,
                                            ErrorBD& error);
  ~MotorSqlite() override;
  MotorSqlite(const MotorSqlite&) = delete;
  MotorSqlite& operator=(const MotorSqlite&) = delete;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override;
  std::unique_ptr<Repetida> repetir(const QString& sql) override;
  std::unique_ptr<CursorBD> abrirCursor(const QString& sql) override;
  std::optional<ErrorBD> iniciar() override;
  std::optional<ErrorBD> confirmar() override;
  std::optional<ErrorBD> deshacer() override;
  QString traducir(const QString& sql) override;

  // AccesoMotor: the engine's own language, for procedures.
  std::optional<ErrorBD> consultar(const QString& sql, const QVariantList& valores, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, const QVariantList& valores, qint64* afectadas) override;
  QDateTime ahora() const override { return entorno_.ahora(); }

 private:
  MotorSqlite(Dialecto dialecto, const OpcionesMotores& opciones, std::shared_ptr<MemoriaDeFormas> memoria);
  std::optional<ErrorBD> preparar(const QString& archivo, int espera_ms);
  std::optional<ErrorBD> registrarServidor();
  std::optional<ErrorBD> correr(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> correrSentencia(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> llenarTablaNueva(const Preparada& p, const SentenciaLeida& s, qint64* afectadas);
  std::optional<ErrorBD> recorrerTope(Preparada& p, const SentenciaLeida& s, Recordset& rs);
  std::optional<ErrorBD> llamar(const Llamada& llamada, Recordset* rs);
  // Whether it is a statement that can be kept prepared: no call of a procedure, and one whose text is in order.
  bool seGuarda(SentenciaLeida& s);
  std::shared_ptr<Preparada> preparada(const SentenciaLeida& s, std::optional<ErrorBD>& error);
  std::shared_ptr<Preparada> prepararNueva(const SentenciaLeida& s, std::optional<ErrorBD>& error);
  void nombrarCampos(Preparada& p) const;
  int esquema();
  void olvidarEsquema();
  int compilar(const QByteArray& texto, unsigned opciones, sqlite3_stmt*& sentencia);
  std::optional<ErrorBD> ligar(Preparada& p, const SentenciaLeida& s);
  std::optional<ErrorBD> recorrer(Preparada& p, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> directa(const char* sql);

  friend struct FuncionRegistrada;
  EntornoFunciones entorno_;
  std::shared_ptr<const Procedimientos> procedimientos_;
  std::function<bool()> interrumpir_;
  Formas<Preparada> formas_{300};
  Camino camino_;
  int esquema_ = -1;  // the state of the tables that this connection saw; -1 before it has looked
  std::unique_ptr<Catalogo> catalogo_;
  sqlite3* base_ = nullptr;
};
