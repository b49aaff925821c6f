#pragma once
struct Puesto;

// Sends what waits in the store to the client database, which must be open: first the customers' last transactions,
// then the points, each with a number of its own there. The first failure ends the run, with its box; what was sent
// stays sent, and the next run goes on behind it. A document whose points stand there already is only marked.
void EnviarPendientesCliente(Puesto& p);
