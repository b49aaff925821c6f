#pragma once
// The engine under a connection. One Motor is one open connection; it closes when it is destroyed.
#include <QDateTime>
#include <functional>
#include <memory>
#include <optional>

#include "platform/io/espera.h"
#include "platform/sql/error_bd.h"
#include "platform/sql/recordset.h"

// A statement of one shape, made ready once for many rows of values. It lives no longer than its connection is open.
class Repetida {
 public:
  virtual ~Repetida() = default;
  // Runs it with these in the place of its literals, in their order: Null, a number, or a text as the dialect's literal
  // would say it. Literals that are part of the statement, such as the style of a CONVERT, take no value. On failure
  // nothing is changed.
  [[nodiscard]] virtual std::optional<ErrorBD> correr(const std::vector<CeldaBD>& valores) = 0;
};

// The rows of a query, read piece by piece while other connections write. It lives no longer than its connection is
// open.
class CursorBD {
 public:
  virtual ~CursorBD() = default;
  // Fills `rs` with the rows behind those it gave last, `filas` at most; with none behind the last one.
  [[nodiscard]] virtual std::optional<ErrorBD> seguir(qsizetype filas, Recordset& rs) = 0;
};

class Motor {
 public:
  virtual ~Motor() = default;

  // The statement for many rows; its literals tell only what kind of value each is. Null where there is no quicker way
  // than ejecutar(), or not for this one.
  [[nodiscard]] virtual std::unique_ptr<Repetida> repetir(const QString&) { return {}; }
  // How many rows such an INSERT should carry: many where each statement is a message.
  virtual int filasPorSentencia() const { return 1; }

  // Null where the engine has no cursors, or none for this query; it has then told nothing of what is wrong with it.
  [[nodiscard]] virtual std::unique_ptr<CursorBD> abrirCursor(const QString&) { return {}; }

  // Runs one statement in the connection's dialect. On failure gives the error; `rs` is then empty (consultar) and
  // `afectadas` untouched. A statement that gives no rows leaves an empty recordset.
  [[nodiscard]] virtual std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) = 0;
  [[nodiscard]] virtual std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) = 0;

  [[nodiscard]] virtual std::optional<ErrorBD> iniciar() = 0;
  [[nodiscard]] virtual std::optional<ErrorBD> confirmar() = 0;
  [[nodiscard]] virtual std::optional<ErrorBD> deshacer() = 0;
  // From now on, to the end of the transaction at most: whether its caller gives it up with the first statement that
  // fails. An engine that has to set a point to go back to before each statement saves it then.
  virtual void deUnaPieza(bool) {}

  // The statement as it goes to the engine; the statement itself when it is passed on unchanged or can't be read.
  virtual QString traducir(const QString& sql) = 0;
};

// Opens engines. Kept behind an interface so that a play or a test can put faults between the till and its data.
class Motores {
 public:
  virtual ~Motores() = default;

  // Opens `cadena` (the connection strings are told in cadena_conexion.h), waiting `espera_ms` at most for a server.
  // Gives nothing and fills `error` on failure; `error.numero` is kErrorTiempo when the server did not answer in time.
  // Never creates a database.
  [[nodiscard]] virtual std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) = 0;
};

constexpr qint64 kErrorTiempo = 0x80040E31;  // a time-out

class Procedimientos;

struct OpcionesMotores {
  std::function<QDateTime()> ahora;  // what NOW(), DATE() and GETDATE() tell; the machine's time when not given
  std::shared_ptr<const Procedimientos> procedimientos;  // of the embedded servers
  std::function<bool()> interrumpir;                     // asked while a statement runs; true stops it with an error
  AvisoEspera alEsperar = {};                            // told while a server beyond the machine is silent
};

// The engines of the machine. `carpeta` is the program folder, where embedded servers ("sqlite:name") lie.
std::unique_ptr<Motores> motoresDelSistema(const QString& carpeta, const OpcionesMotores& opciones = {});
