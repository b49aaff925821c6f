#pragma once
#include <QStringList>
#include <optional>

#include "platform/sql/conexion.h"

// The statements of a schema text in SQLite's own language: "--" begins a comment, a ";" at the end of a line ends a
// statement. Every column declared TEXT gets the built-in collation that compares without regard to case, so that
// indexes serve such comparisons and any SQLite tool can open the file.
QStringList sentenciasDeEsquema(const QString& texto);

// Runs such statements on an open database, up to the first that fails.
[[nodiscard]] std::optional<ErrorBD> EjecutarEsquema(Conexion& cnn, const QStringList& sentencias);
