#pragma once
// A PostgreSQL server's connection as messages: opened within a time, asked several things in one go, left when it is
// silent. It knows nothing of dialects.
#include <QByteArray>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/io/espera.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/sql/error_bd.h"

struct pg_conn;
struct pg_result;

using ResultadoPg = std::unique_ptr<pg_result, void (*)(pg_result*)>;

// Takes a result that holds some rows of an answer as they come; false for no more.
using TomarFilas = std::function<bool(const pg_result*)>;

// One of the things that are asked in one go.
struct PasoPg {
  enum Clase { Sentencia, Preparar, Ejecutar } clase = Sentencia;
  QByteArray nombre{};                               // of the prepared statement
  QByteArray texto{};                                // of what is not prepared
  std::vector<unsigned> tipos{};                     // of the values, 0 where the server says
  std::vector<std::optional<QByteArray>> valores{};  // as texts; nothing for Null
};

class CanalPostgres {
 public:
  // Opens within `espera_ms`, looking the host's name up included; `error.numero` is kErrorTiempo when that time passes
  // without an answer. `alEsperar` is told while the server is silent, here and later.
  static std::unique_ptr<CanalPostgres> abrir(const CadenaConexion& cadena, int espera_ms, ErrorBD& error,
                                              const AvisoEspera& alEsperar = {});
  ~CanalPostgres();
  CanalPostgres(const CanalPostgres&) = delete;
  CanalPostgres& operator=(const CanalPostgres&) = delete;

  // Sends all steps and gives what each answered, in their order, with one round trip. What stands behind a step that
  // failed is not run; the error is that step's and `fallado` its place. A connection that was opened for a sale waits
  // for `espera_ms`; any other as long as the server lives.
  // With `tomar` the rows of step `cual` go there, and its result holds none.
  [[nodiscard]] std::optional<ErrorBD> pedir(const std::vector<PasoPg>& pasos, std::vector<ResultadoPg>& resultados,
                                             size_t cual = 0, const TomarFilas& tomar = {});
  size_t fallado() const { return fallado_; }
  // The engine's own code of the last error, "" for none.
  const QByteArray& codigo() const { return codigo_; }
  void recordar(const QByteArray& codigo) { codigo_ = codigo; }  // past what was asked meanwhile

  // A script in the engine's language, several statements; what the last one gave.
  [[nodiscard]] std::optional<ErrorBD> guion(const QString& texto, ResultadoPg& ultimo);

  bool enTransaccion() const;
  // The connection is gone: cut by the server or on the way, or left because nobody answered in time.
  bool perdida();
  bool abandonada() const { return abandonada_; }
  // Since something was last heard.
  qint64 callada_ms() const { return reposo_.elapsed(); }

 private:
  CanalPostgres(const CadenaConexion& cadena, int espera_ms, const AvisoEspera& alEsperar)
      : cadena_(cadena), espera_ms_(espera_ms), alEsperar_(alEsperar) {}
  bool enviar(const PasoPg& paso);
  std::optional<ErrorBD> vaciar(QDeadlineTimer& plazo);
  std::optional<ErrorBD> listo(bool escribir, QDeadlineTimer& plazo);
  std::optional<ErrorBD> siguiente(QDeadlineTimer& plazo, ResultadoPg& r);
  std::optional<ErrorBD> recoger(size_t pasos, QDeadlineTimer& plazo, std::vector<ResultadoPg>& resultados,
                                 size_t cual = 0, const TomarFilas& tomar = {});
  void interrumpir();
  ErrorBD abandonar();
  bool sigueVivo() const;

  CadenaConexion cadena_;
  int espera_ms_;
  AvisoEspera alEsperar_;
  pg_conn* conexion_ = nullptr;
  bool abandonada_ = false;
  size_t fallado_ = 0;
  QByteArray codigo_;
  QElapsedTimer reposo_;
};
