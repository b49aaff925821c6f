#pragma once
// What a closing leaves in the store: the report number and running total of a printer, and the Z row of the desk.
#include "cashday/datos_reporte.h"
#include "cashday/lector.h"
#include "printing/canal.h"

struct Puesto;

// After maxid comes 1; without its row in _Tmp1 the printer begins with 1. Look at l.bien() afterwards.
ContadorZ LeerContadorZ(LectorReporte& l, NumeroImpresora impresora);

// Ranges, totals per document type and, on the alternate printer, the notes. Look at l.bien() afterwards.
BloqueZ LeerBloqueZ(LectorReporte& l, NumeroImpresora impresora);

struct CierreZ {
  NumeroImpresora impresora = kImpresoraPrincipal;
  int iCierreCaja = 0;  // 0 is not written
};

// Writes the rows of a closing, all of them or none. On the main printer that is the counter, the row of _Tmp, the
//        blank
// turn and the step; on the alternate one CabeceraZ and DetalleZ in the place of the turn, over those of an earlier
// report of the same range. False when they are not written; `error` then holds the words, unless a box has told them.
[[nodiscard]] bool GrabarCierreZ(Puesto& p, const CierreZ& c, const DatosReporte& d, QString& error);
