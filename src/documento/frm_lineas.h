#pragma once
// The lines grid on a screen.
#include "documento/lineas.h"
#include "platform/ui/rejilla.h"

struct Puesto;

// A grid over `l`, which outlives it: which keys a cell takes, and behind a code that was found the quantity comes
// next. Leaving a cell, the search button and the text of an empty grid are the screen's.
Rejilla* nuevaRejillaLineas(const QString& nombre, const Puesto& p, const RejillaLineas& l);

// The title of the percentage, which the cashier switches between discount and surcharge.
QString TituloPorcentaje(bool recargo);
