#pragma once
// What X-1 and Z1 tell of the parallel documents: orders, notes, advance payments and their settlement.
#include <vector>

#include "cashday/cifras.h"

class Conexion;

struct SumaAdelantos {
  double soles = 0, dolares = 0;  // each in its own currency
};

struct FilaAdelanto {
  QString sGlosa, nTarjNumb;
  bool dolares = false;
  double importe = 0;  // in the row's currency
};

// A check over advance payments. `monto` is in soles, whatever the currency of the rows; `suma` is that of the rows.
struct CheckAdelantos {
  double cuenta = 0, monto = 0;
  std::vector<FilaAdelanto> filas;
  SumaAdelantos suma;
};

// One kind of advance payment, PADE or PADV.
struct Adelantos {
  CheckAdelantos recibidos, liqDia, liq, anulados;
};

struct CifrasParalelas {
  qint64 nItemsOC = 0;
  double nMontoOC = 0;
  double nVentaTicket = 0;  // sold without O/C
  double itemsNC = 0, montoNC = 0;
  std::vector<FilaProductoReporte> productosNC;
  Adelantos pade, padv;
  double nulosOC = 0, nulosOCMonto = 0;
};

// Adds the O/C to c.nItems and c.nVenta. `central` tells which advance payments were voided in the accounts; while it
// is closed, or where a query fails, none counts as voided. Look at l.bien() afterwards.
CifrasParalelas LeerParalelas(Puesto& p, LectorReporte& l, Conexion& central, CifrasReporte& c);
