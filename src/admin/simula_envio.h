#pragma once
// Desks that push at once: how many rows a second the centre takes, and whether all of them arrive.
#include "admin/simula_libro.h"

class TiendaSimulada;

// Of one desk's process: its store with that many closed rows that wait to be sent.
[[nodiscard]] std::optional<QString> LlenarPorEnviar(const PlanSimulacion& plan, int caja, int filas);
// Of one desk's process: stands ready until all may begin, then sends. Gives the exit code.
int EnviarALaVez(const PlanSimulacion& plan, int caja);
// The whole measurement over a shop that was prepared; what came out goes to `dicho`. False when rows are missing.
[[nodiscard]] bool MedirEnvio(TiendaSimulada& tienda, int filas, QStringList& dicho);
