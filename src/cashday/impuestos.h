#pragma once
// The tax section: IGV and service of boletas and facturas, in soles.
#include <optional>

#include "cashday/informe.h"
#include "cashday/lector.h"

struct Impuestos {
  double igvFactura = 0, igvBoleta = 0;  // of the store and of the billing documents of the central database
  double servicio = 0;
  std::optional<double> servicioParalelo;  // of the O/C, on the alternate printer only
};

// Nothing when the central database can't be asked: one box has told it and the section is left out. Nothing as well
// when the store fails; look at l.bien().
std::optional<Impuestos> LeerImpuestos(Puesto& p, LectorReporte& l, NumeroImpresora impresora);

void ImprimirImpuestos(Informe& i, const Impuestos& t, const QString& psPorcServ);
