#pragma once
#include <QStringList>
#include <optional>

#include "platform/sql/error_bd.h"

// Makes the SQLite file `archivo` with the statements given (SQLite's own language), in one transaction, write-ahead
// log on. An existing file is left as it is and gives an error; a failure leaves no file behind.
std::optional<ErrorBD> crearBaseSqlite(const QString& archivo, const QStringList& sentencias);
