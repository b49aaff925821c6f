#pragma once
#include <QSet>

#include "platform/sql/camino.h"
#include "platform/sql/canal_postgres.h"
#include "platform/sql/filas_postgres.h"
#include "platform/sql/motor.h"
#include "platform/sql/procedimientos.h"

// A statement of a shape as the server has it prepared.
struct PreparadaPostgres;

// A PostgreSQL server under Transact-SQL. Its database has the schema dbo with the dialect's functions.
class MotorPostgres final : public Motor {
 public:
  // Opens within `espera_ms`, looking the host's name up included; `error.numero` is kErrorTiempo when that time passes
  // without an answer. Below twenty seconds each statement has that time, too, and a connection that broke it is left;
  // else a statement takes what it takes, as long as the server opens its door. `memoria` is what other connections to
  // the database have learnt, and may be null. `alEsperar` is told while the server is silent.
  static std::unique_ptr<MotorPostgres> abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error,
                                              std::shared_ptr<MemoriaDeFormas> memoria = {},
                                              const AvisoEspera& alEsperar = {});
  ~MotorPostgres() override;
  MotorPostgres(const MotorPostgres&) = delete;
  MotorPostgres& operator=(const MotorPostgres&) = delete;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override;
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override;
  // Asks the server nothing: a transaction begins with its first statement, in the same message.
  std::optional<ErrorBD> iniciar() override;
  std::optional<ErrorBD> confirmar() override;
  std::optional<ErrorBD> deshacer() override;
  QString traducir(const QString& sql) override;
  std::unique_ptr<Repetida> repetir(const QString& sql) override;
  int filasPorSentencia() const override { return kFilasPorSentencia; }
  void deUnaPieza(bool si) override { deUnaPieza_ = si; }

  // A script in the server's own language, one or several statements, outside of iniciar() and confirmar(); one that
  // fails leaves what it began undone. `rs` gets the rows of the last.
  [[nodiscard]] std::optional<ErrorBD> crudo(const QString& guion, Recordset* rs = nullptr);

 private:
  friend class RepetidaPostgres;
  static constexpr int kFilasPorSentencia = 50;
  MotorPostgres(const CadenaConexion& cadena, int espera_ms, std::shared_ptr<MemoriaDeFormas> memoria,
                const AvisoEspera& alEsperar);
  std::optional<ErrorBD> listo();
  std::optional<ErrorBD> reabrir();
  std::optional<ErrorBD> correr(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> correrSentencia(const QString& sql, Recordset* rs, qint64* afectadas);
  std::optional<ErrorBD> correrPreparada(PreparadaPostgres& p, const std::vector<QVariant>& valores, Recordset* rs,
                                         qint64* afectadas);
  static std::optional<ErrorBD> tiposDe(const PreparadaPostgres& p, const std::vector<QVariant>& valores,
                                        std::vector<unsigned>& tipos);
  std::optional<ErrorBD> llamar(const Llamada& llamada, Recordset* rs);
  std::optional<ErrorBD> transaccion(const SentenciaLeida& s, bool& esUna);
  // Runs the steps within the transaction at hand; a step that fails takes only these back.
  std::optional<ErrorBD> pedir(std::vector<PasoPg> pasos, std::vector<ResultadoPg>& resultados,
                               FilasPostgres* filas = nullptr);
  PasoPg fija(const QByteArray& nombre, std::vector<PasoPg>& preparar) const;
  void recordarFijas(const std::vector<PasoPg>& pasos, bool todas);
  void tomarAtras(bool primera);
  std::shared_ptr<PreparadaPostgres> preparada(const SentenciaLeida& s, bool& vieja, std::optional<ErrorBD>& error);
  void olvidarEsquema();
  void elegirCatalogo();
  struct Rutina {
    char clase = 0;  // 'f' gives rows, 'p' gives none; 0 for none of that name
    qsizetype argumentos = 0;
  };
  std::optional<ErrorBD> buscarRutina(const QString& nombre, Rutina& rutina);

  CadenaConexion cadena_;
  int espera_ms_;
  AvisoEspera alEsperar_;
  std::shared_ptr<MemoriaDeFormas> memoria_;
  Camino camino_;
  std::unique_ptr<CanalPostgres> canal_;
  std::unique_ptr<Catalogo> catalogo_;
  std::shared_ptr<QByteArrayList> sobrantes_ = std::make_shared<QByteArrayList>();  // prepared, and no longer kept
  Formas<PreparadaPostgres> formas_{300};
  QHash<QString, Rutina> rutinas_;  // procedures, by their names in lower case
  int preparadas_ = 0;
  int aperturas_ = 0;        // how often the connection was opened anew
  bool deUnaPieza_ = false;  // the transaction at hand falls with its first failure
  QSet<QByteArray> fijas_;   // which of its own statements the server has prepared
  bool porIniciar_ = false;  // a transaction that the server has not heard of yet
  bool abierta_ = false;     // one that it has
  bool cambiada_ = false;    // ... and in which tables were made or changed
};
