#pragma once
// The checks of X-1 and Z1, and what they share with those of X and Z.
#include "cashday/papel_reporte.h"

// With head and closing rule; nothing for an empty list.
void ListaDeProductos(Informe& i, const std::vector<FilaProductoReporte>& productos);

// What must lie in the drawer. A currency's line is printed when `hay` is not 0; it shows `monto`.
struct CajonReporte {
  QString aperturaSol, aperturaDol;  // labels
  double haySol = 0, hayDol = 0;
  double montoSol = 0, montoDol = 0;
};
void ImprimirCajon(Informe& i, const CifrasReporte& c, const CajonReporte& cajon);

// `cola` stands behind the line of the count.
void ImprimirNulos(Informe& i, const CifrasReporte& c, const QString& cola);

void ChecksParalelos(Informe& i, const DatosReporte& d);
