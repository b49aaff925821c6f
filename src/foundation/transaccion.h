#pragma once
// One shape of a transaction over one database, the store or a server. Nothing is shown while it is open: timers of the
// desk run behind a box. An act over two databases is told in acto_doble.h.
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "platform/sql/conexion.h"

// Runs `pasos` between begin and commit. Gives the error of what failed first, and then nothing of it stands; nothing
// when all of it does. There must be no open transaction. One that can't be undone at once is undone by the connection
// before it runs anything else.
[[nodiscard]] std::optional<ErrorBD> EnTransaccion(Conexion& cnn, const std::function<std::optional<ErrorBD>()>& pasos);

// The statements one behind the other, up to the first that fails.
[[nodiscard]] std::optional<ErrorBD> EjecutarTodas(Conexion& cnn, const std::vector<Sql>& sentencias);

// The same as one transaction.
[[nodiscard]] std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const std::vector<Sql>& sentencias);
// This one goes away when no statement comes as a bare text any more.
[[nodiscard]] std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const QStringList& sentencias);
