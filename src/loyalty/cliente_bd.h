#pragma once
// The client database: its connection, which comes and goes with each task, and the points rule.
#include <functional>
#include <vector>

#include "foundation/db_admin.h"

struct Puesto;

// Opens poCnnCliente anew and sets pbClienteConectado and pbClienteCaido as a pair. A caller inside a sale keeps the
// short wait; the start-up passes Espera::Normal.
//   Returns  false when the database can't be reached; the sale goes on without it.
//   Shows    with `mensaje`, the box about the client database: once, until a later attempt has succeeded.
[[nodiscard]] bool ConectarCliente(Puesto& p, bool mensaje, clsDBAdmin::Espera espera = clsDBAdmin::Espera::Venta);

enum class ResultadoCliente { Hecho, Fallo, NoResponde };

// Runs the statements as one transaction of the open client database: all of them stand or none. Fallo: one of them
// failed, and its box has been shown. NoResponde: the transaction could not begin or end; the database counts as away
// from then on, with its box when `mensaje` says so.
[[nodiscard]] ResultadoCliente EjecutarEnCliente(Puesto& p, const std::vector<Sql>& sentencias, bool mensaje = true);

// The same for a transaction that also asks: `pasos` gives the error of what failed, and leaves that statement in its
// argument.
[[nodiscard]] ResultadoCliente ActuarEnCliente(Puesto& p, const std::function<std::optional<ErrorBD>(Sql&)>& pasos,
                                               bool mensaje = true);

// Closes poCnnCliente and clears pbClienteConectado. Nothing happens when it is closed.
void DesconectarCliente(Puesto& p);

// Loads the rule from the client database, if it is open, or from the store's copy. False without any rule, and then a
// box says so, or when it can't be read.
[[nodiscard]] bool TomarReglaPunto(Puesto& p);

// Loads the points rule into pnImpoMaxi, pnPuntImpo, pnPuntCant: from the client database, which also refreshes the
// store's copy for the days on which it is away, otherwise from that copy. Leaves poCnnCliente closed. Without any
// rule a box says so and the three values stay as they were.
void LeerReglaPunto(Puesto& p);
