#pragma once
// What a closing leaves in the store: the report number and running total of a printer, and the Z row of the desk.
#include "cashday/papel_reporte.h"

struct Puesto;

// Number of the next Z of a printer and its running total so far, in soles.
struct ContadorZ {
  qint64 numero = 1;
  double Imac = 0;
};

// After maxid comes 1; without its row in _Tmp1 the printer begins with 1. Look at l.bien() afterwards.
ContadorZ LeerContadorZ(LectorReporte& l, NumeroImpresora impresora);

// Ranges, totals per document type and, on the alternate printer, the notes; the two finished lines stay blank. Look at
// l.bien() afterwards.
BloqueZ LeerBloqueZ(LectorReporte& l, NumeroImpresora impresora);

struct CierreZ {
  NumeroImpresora impresora = kImpresoraPrincipal;
  ContadorZ contador;
  double venta = 0;     // soles; goes to the running total
  int iCierreCaja = 0;  // 0 is not written
};

// Writes the rows of a closing, all of them or none. On the main printer that is the counter, the row of _Tmp, the
// blank turn and the step; on the alternate one CabeceraZ and DetalleZ in the place of the turn, over those of an
// earlier report of the same range. False when they are not written; `error` then holds the words, unless a box has
// told them.
[[nodiscard]] bool GrabarCierreZ(Puesto& p, const CierreZ& c, const DatosReporte& d, QString& error);
