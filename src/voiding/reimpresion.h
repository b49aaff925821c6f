#pragma once
// The reprint of a stored ticket. Nothing is written, and no correlative is drawn.
#include "voiding/pantalla_transaccion.h"

// Builds the ticket of the loaded document out of its rows. The points are those of today.
void MuestraReimpresion(Puesto& p, PantallaTransaccion& v);

// The click of cmdImprimir: the text as shown, on the printer of the kind of document.
void Reimprimir(Puesto& p, PantallaTransaccion& v);
