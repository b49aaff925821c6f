#pragma once
// Every read and write of every database: four operations over a connection, and what reads a field of
// a row. Statements are made by FormatearSQL (platform/sql/sentencia.h).
#include <QVariant>

#include "platform/sql/conexion.h"

struct Puesto;

class clsDBAdmin {
 public:
  enum class Espera {
    Normal,  // 20 seconds
    Venta    // 2 seconds, and a server that timed out is not asked again for 60
  };

  explicit clsDBAdmin(Puesto& puesto) : p_(puesto) {}
  clsDBAdmin(const clsDBAdmin&) = delete;
  clsDBAdmin& operator=(const clsDBAdmin&) = delete;

  // Opens `cnn`. On failure false; with `flagMensaje` a box tells the engine's words.
  [[nodiscard]] bool AbrirBD(Conexion& cnn, const QString& cadena, bool flagMensaje = false,
                             Espera espera = Espera::Normal);
  // The engine's words for the last opening that failed.
  const QString& ultimoFallo() const { return ultimoFallo_; }
  // Closes; closing what is closed is nothing.
  void CerrarBD(Conexion& cnn);
  // Fills `rs` with all rows. On failure false, `rs` empty, and always a box with the engine's words and the
  // statement.
  [[nodiscard]] bool EjecutarConsulta(Conexion& cnn, const Sql& sql, Recordset& rs);
  // The same for the next rows of a cursor over `sql`, `filas` at most.
  [[nodiscard]] bool SeguirConsulta(Conexion& cnn, const Sql& sql, CursorBD& cursor, qsizetype filas, Recordset& rs);
  // Runs a statement. On failure false; with `flagMensaje` a box as above, but none for a duplicate key. `afectadas`
  // gets the number of rows that it changed.
  [[nodiscard]] bool EjecutarSentencia(Conexion& cnn, const Sql& sql, bool flagMensaje = false,
                                       qint64* afectadas = nullptr);

 private:
  void anotarSilencio(const Conexion& cnn, const ErrorBD& error);
  bool decirFallo(Conexion& cnn, const Sql& sql, const std::optional<ErrorBD>& error);

  Puesto& p_;
  QString ultimoFallo_;
};

// The value's text, blanks off both ends; "" for Null. Numbers as TextoDe, dates as "dd/mm/yyyy hh:mm:ss".
QString LimpiarNulo(const QVariant& valor);
QString LimpiarNulo(const CeldaBD& valor);

// The value's number; 0 for Null and for a text without one.
double Numero(const QVariant& valor);
double Numero(const CeldaBD& valor);
