#pragma once
// One shape of a transaction over one database, the store or a server. Nothing is shown while it is open: timers of the
// desk run behind a box. An act over two databases is told in acto_doble.h.
#include <functional>
#include <optional>
#include <vector>

#include "platform/sql/conexion.h"

// Runs `pasos` between begin and commit. Gives the error of what failed first, and then nothing of it stands; nothing
// when all of it does. There must be no open transaction. One that can't be undone at once is undone by the connection
// before it runs anything else. What `pasos` throws undoes it all and goes on.
[[nodiscard]] std::optional<ErrorBD> EnTransaccion(Conexion& cnn, const std::function<std::optional<ErrorBD>()>& pasos);

// The statements one behind the other, up to the first that fails; `laQueFallo` gets that one.
[[nodiscard]] std::optional<ErrorBD> EjecutarTodas(Conexion& cnn, const std::vector<Sql>& sentencias,
                                                   Sql* laQueFallo = nullptr);

// An act is begun again so often at most when a server has broken a knot of locks with it; before the n-th time, from 1
// on, it waits a time of its own: two that begin again at once make the same knot again.
constexpr int kVecesDelNudo = 20;
void DejarPasarNudo(int vez);

// The same as one transaction, begun again when a server has broken a knot of locks with it. `laQueFallo` gets no
// statement when it could not begin or end.
[[nodiscard]] std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const std::vector<Sql>& sentencias,
                                                    Sql* laQueFallo = nullptr);
