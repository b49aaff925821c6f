#pragma once
// The kinds of document. A kind is four things: the cashier's choice on the screen, what its ticket is, the code of its
// rows and the type that its number runs under (the last two are store/codigos). One table tells what belongs together.
#include <QString>
#include <optional>

#include "store/codigos.h"

// A choice of the list cboTipoVenta, by the number it goes by.
enum class TipoVenta {
  Efectivo = 1,
  Voucher = 2,
  OC = 4,
  NC = 5,
  PADE = 6,
  PADV = 7,
  LIQPAD = 8,
  Anular = 9,
  Recaudacion = 10
};

// What a ticket is.
enum class ClaseDocumento { VentaExacta, VentaVoucher, VentaConVuelto, OC, NC, PADE, PADV, LIQPAD };

struct DatosClase {
  ClaseDocumento clase;
  TipoVenta venta;
  TipoOperacion operacion;
  std::optional<TipoDocumento> documento;  // nothing for boleta or factura, which the RUC decides
  QStringView palabra;                     // on the ticket; "" for a cash sale
  bool llevaLineas;                        // has article lines of its own on the ticket
  bool cuadra;                             // cash and change must make the total
  bool dejaDinero;                         // of a parallel document: its money leaves a row in Operacion
};

// The row of a kind.
const DatosClase& DatosDe(ClaseDocumento clase);

// The first kind of that choice: a sale that turns out to have change becomes the other one. `venta` must issue a
// document.
ClaseDocumento ClaseDe(TipoVenta venta);

// The word of a row's kind on paper and in lists, "" where it has none.
QString PalabraDe(TipoOperacion operacion);

// Kinds that are kept beside the sales, with a printer and series of their own, without header and slogan.
inline bool EsParalela(ClaseDocumento clase) { return clase >= ClaseDocumento::OC; }
