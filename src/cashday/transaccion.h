#pragma once
#include <QStringList>
#include <optional>

#include "platform/sql/conexion.h"

// Runs the statements as one transaction. Gives the error of the first that failed, and then none of them stands;
// nothing when all of them do. There must be no open transaction.
std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const QStringList& sentencias);
