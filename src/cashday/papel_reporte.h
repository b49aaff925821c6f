#pragma once
// The text of a report out of its figures. Nothing here reads or writes; it cannot fail.
#include "cashday/datos_reporte.h"
#include "printing/canal.h"

// The two lines of a document type's totals.
QStringList LineasTicket(const BloqueZ::Ticket& t);
// The line with the number of a Z or Z1; of a report by date the bare value that the store has.
QString LineaCodigo(const DatosReporte& d);

BloquesInforme PapelDeReporte(const DatosReporte& d);
