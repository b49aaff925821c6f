#pragma once
// The void of the document on the screen "Anula Transacción".
#include "voiding/busqueda.h"

class PantallasAnulacion;

// Builds the text of the loaded document and its blocks.
void MuestraTransaccion(Puesto& p, PantallaTransaccion& v);

// Whether an O/C is free: no liquidation has taken it up. False as well when it can't be read.
bool VerificarLiquidacionOC(Puesto& p, const QString& serie, const QString& numero);

// The click of cmdAnular. A void adds a mirror of the sale with negative quantities and marks the voided rows; nothing
// of the sale itself is deleted. Each statement stands by itself: one that fails ends the void where it is, and what was
// done stays. A void that stopped between its rows is taken up by the next one on the same document, with the code that
// it had. Paper, points and the central database come behind the rows, and none of them undoes anything.
void Anular(Puesto& p, PantallaTransaccion& v, PantallasAnulacion& pantallas);
