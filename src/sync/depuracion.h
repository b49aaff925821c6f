#pragma once
// What the central database has received and is older than the last eight days with rows moves to the history tables;
// history of more than three months goes.
#include "platform/sql/sentencia.h"

struct FrmUpdt;
struct Puesto;

// " AND ..." for a DELETE: the rows that hold the highest code and the highest number of a run stay, so that no number
// ever comes twice.
Sql SalvoLaUltimaOperacion(LiteralSql tabla);
Sql SalvoLaUltimaParalela(LiteralSql tabla);

// Moves and drops. A copy and its delete are one transaction, so a row stands in one place whatever happens. False when
// a statement failed; the box has been shown.
[[nodiscard]] bool DepurarHistoria(Puesto& p, FrmUpdt& pantalla);
