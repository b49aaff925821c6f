#pragma once
// The kinds of document, by the numbers that tickets and parallel rows carry.
#include <QString>

enum ClaseDocumento {
  kVentaExacta = 1,
  kVentaVoucher = 2,
  kVentaConVuelto = 5,
  kOrdenConsumo = 20,
  kNotaConsumo = 21,
  kPagoAdelantado = 22,
  kPagoAdelantadoVoucher = 23,
  kLiquidacionPad = 24
};

struct DatosClase {
  ClaseDocumento clase;
  QString palabra;   // on the ticket; "" for a cash sale
  QString tipoDoc;   // "" for boleta or factura, which the RUC decides
  bool llevaLineas;  // has article lines of its own on the ticket
  bool cuadra;       // cash and change must make the total
};

// The row of a kind. `clase` must be one of the eight.
const DatosClase& datosDe(ClaseDocumento clase);

// Kinds from 20 on are kept beside the sales, with a printer and series of their own, without header and slogan.
inline bool esParalela(ClaseDocumento clase) { return clase >= kOrdenConsumo; }
