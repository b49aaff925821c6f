#pragma once
// What a simulated cashier keys into a line of a sale. Money in cents.
#include "admin/azar.h"
#include "documento/lineas.h"
#include "platform/text/numero.h"

struct RenglonTecleado {
  int articulo = 0, cantidad = 1;
  qint64 precio = 0;
  int dscto = 0;
  qint64 valor() const { return cantidad * precio * (100 + dscto) / 100; }
};

// Keys a quantity and, now and then, a price and a percentage; `celda` leaves a text in a cell of the line.
template <class Celda>
RenglonTecleado TeclearRenglon(Azar& azar, int articulo, qint64 precio, bool conDescuento, const Celda& celda) {
  RenglonTecleado r{articulo, azar.entre(1, 4), precio};
  celda(kCod, QString::number(articulo));
  celda(kCant, QString::number(r.cantidad));
  if (azar.unoDe(6)) {
    r.precio = azar.entre(10, 400) * 10;
    celda(kPrecio, Formatear(static_cast<double>(r.precio) / 100, u"0.00"));
  }
  if (conDescuento && azar.unoDe(4)) {
    const bool recargo = azar.unoDe(3);
    r.dscto = (recargo ? 1 : -1) * azar.de(std::vector<int>{10, 20, 50});
    if (recargo) celda(kSigno, QStringLiteral("+"));
    celda(kPorc, QString::number(r.dscto < 0 ? -r.dscto : r.dscto));
  }
  return r;
}
