#pragma once
#include "platform/sql/catalogo.h"
#include "platform/sql/recordset.h"

struct pg_result;

// The rows of a result, as the embedded engine would give them. `salida` are the columns as the rewriting knows them,
// empty when it doesn't: their names, and whether a number is one of those that are held whole.
void LlenarDe(const pg_result* resultado, const std::vector<Columna>& salida, int agregadas, Recordset& rs);
