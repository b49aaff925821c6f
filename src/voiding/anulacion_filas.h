#pragma once
// The rows that a void writes, in the order in which they must happen. Each gives false at the first statement that
// fails; the box has been shown and what was written stays.
#include "voiding/transaccion.h"

struct Puesto;

// A mirror of each line not mirrored yet, under the void's code, and the mark on the rows of the sale.
[[nodiscard]] bool AnularVenta(Puesto& p, const Transaccion& t, const AvanceAnulacion& avance, const QString& fecha);

// The void's own row, unless it is there; the mark on the document; its money taken out of Operacion.
[[nodiscard]] bool AnularParalela(Puesto& p, const Transaccion& t, const AvanceAnulacion& avance, bool filaNueva,
                                  const QString& fecha);

// What a liquidation had taken up becomes open again, and the liquidation and its money go.
[[nodiscard]] bool DeshacerLiquidacion(Puesto& p, qint64 liquidacion);
