#include "documento/linea.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

ImportesLinea ImportesDe(const LineaDocumento& linea) {
  ImportesLinea i;
  i.precio = linea.precio;
  if (linea.porcentaje > 0) i.precio += linea.precio * linea.porcentaje / 100;
  i.importe = linea.cantidad * i.precio;
  if (linea.porcentaje < 0) i.descuento = i.importe * linea.porcentaje / 100;
  return i;
}

double ValorDe(const LineaDocumento& linea) {
  const double lista = linea.cantidad * linea.precio;
  return lista + lista * linea.porcentaje / 100;
}

ImpuestosImporte ImpuestosDe(const Puesto& p, double importe, bool conServicio) {
  const double servicio = conServicio ? Val(p.ses.psPorcServ) / 100 : 0;
  const double neto = importe / (p.ses.pnIGV + servicio + 1);
  return {neto * p.ses.pnIGV, neto * servicio};
}
