#pragma once
#include <QStringList>
#include <optional>

#include "platform/sql/conexion.h"

// The language of a schema text, the same for every engine: "--" begins a comment, a ";" at the end of a line ends a
// statement, and the types of columns are
//
//   TEXT               compared without regard to case, blanks at its end apart; on PostgreSQL by dbo.espaniol
//   INTEGER            a whole number of 64 bits
//   SMALLINT           a flag or a small code
//   NUMERIC(p,s)       money, prices, quantities, rates
//   REAL               any number; databases of the desk only
//   DATETIME           to the second, without a time zone
//   INTEGER PRIMARY KEY [AUTOINCREMENT]   a key that the engine gives out where an INSERT leaves it out
enum class LenguajeMotor { Sqlite, Postgres };

// The statements of such a text in an engine's own language. In SQLite every TEXT gets the built-in collation that
// compares without regard to case, so that indexes serve such comparisons and any SQLite tool can open the file.
QStringList sentenciasDeEsquema(const QString& texto, LenguajeMotor motor = LenguajeMotor::Sqlite);

// Runs such statements on an open database, up to the first that fails.
[[nodiscard]] std::optional<ErrorBD> EjecutarEsquema(Conexion& cnn, const QStringList& sentencias);
