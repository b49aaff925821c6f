#pragma once
// The lines that the papers of both printers share.
#include "cashday/datos_reporte.h"
#include "cashday/informe.h"

// A label of 12 and an amount, or a count, behind it; and the label of a line without one.
extern const QString kSinRotulo;
QString LineaMonto(const QString& rotulo, const QString& marca, double monto, const QString& cierre = {});
QString LineaCuenta(const QString& rotulo, double cuantos);

// A title between double rules, and the two lines of its total: units, then an amount with `marca` before it.
void CabezaDeCheck(Informe& i, const QString& titulo, double cuantos, const QString& marca, double monto);

// With head and closing rule; nothing for an empty list.
void ListaDeProductos(Informe& i, const std::vector<FilaProductoReporte>& productos);

// Count and amount, two lines; nothing for a count of 0.
void CuentaYMonto(Informe& i, const QString& rotulo, double cuantos, double monto, const QString& cola = {});

// What must lie in the drawer. A currency's line is printed when `hay` is not 0; it shows `monto`.
struct CajonReporte {
  QString aperturaSol, aperturaDol;  // labels
  double haySol = 0, hayDol = 0;
  double montoSol = 0, montoDol = 0;
};
void ImprimirCajon(Informe& i, const CifrasReporte& c, const CajonReporte& cajon);

void ImprimirImpuestos(Informe& i, const Impuestos& t, const QString& psPorcServ);
