#pragma once
// Reads the tax section.
#include "cashday/datos_reporte.h"
#include "cashday/lector.h"
#include "printing/canal.h"

class Conexion;

// `fecha`: of a report by date. The billing documents of this desk count by their day, those that were voided don't.
// Nothing without the central database, closed in `central`, or when its statement fails, which a box has told: the
// section is left out. Nothing as well when the store fails; look at l.bien().
std::optional<Impuestos> LeerImpuestos(Puesto& p, LectorReporte& l, NumeroImpresora impresora, Conexion& central,
                                       const QDate* fecha = nullptr);
