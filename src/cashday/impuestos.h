#pragma once
// Reads the tax section.
#include "cashday/datos_reporte.h"
#include "cashday/lector.h"
#include "printing/canal.h"

// `fecha`: of a report by date. The billing documents of this desk count by their day, those that were voided don't.
// Nothing when the central database can't be asked: one box has told it and the section is left out. Nothing as well
// when the store fails; look at l.bien().
std::optional<Impuestos> LeerImpuestos(Puesto& p, LectorReporte& l, NumeroImpresora impresora,
                                       const QDate* fecha = nullptr);
