#pragma once
#include <QStringList>

// The statements of a schema text in SQLite's own language: "--" begins a comment, a ";" at the end of a line ends a
// statement. Every column declared TEXT gets the built-in collation that compares without regard to case, so that
// indexes serve such comparisons and any SQLite tool can open the file.
QStringList sentenciasDeEsquema(const QString& texto);
