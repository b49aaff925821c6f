#pragma once
// The proof at the end of a simulation: the book of each desk against its store, the centre, the client database and
// its paper. Every difference is one Spanish line; a desk without one gets a line with its sums.
#include "admin/simula_libro.h"
#include "platform/sql/conexion.h"

struct ResultadoCotejo {
  QStringList lineas;
  int diferencias = 0;
};

// `central` and `cliente` are open; all desks are closed and have synchronised.
[[nodiscard]] ResultadoCotejo CotejarSimulacion(const PlanSimulacion& plan, Conexion& central, Conexion& cliente);
