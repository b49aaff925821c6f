#pragma once
// The void of the document on the screen "Anula Transacción".
#include "voiding/pantalla_transaccion.h"

class PantallasAnulacion;

// Builds the text of the loaded document and its blocks.
void MuestraTransaccion(Puesto& p, PantallaTransaccion& v);

// Whether an O/C is free: no liquidation has taken it up. False as well when it can't be read.
[[nodiscard]] bool VerificarLiquidacionOC(Puesto& p, const QString& serie, const QString& numero);

// The click of cmdAnular. A void adds a mirror of the sale with negative quantities and marks the voided rows; nothing
// of the sale itself is deleted. The rows stand together or not at all: a statement that fails shows its box and leaves
// the document as it was. Paper, points and the central database come behind the rows, and none of them undoes
// anything.
void Anular(Puesto& p, PantallaTransaccion& v, PantallasAnulacion& pantallas);
