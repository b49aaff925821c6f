#pragma once
// Reads what every report of the day tells.
#include "cashday/datos_reporte.h"
#include "cashday/lector.h"

// The statements in which X and X-1 differ.
struct ConsultasReporte {
  LiteralSql voucher, efectivoConTarjeta, cajaDol, cajaSol, productos;
};
extern const ConsultasReporte kConsultasX, kConsultasX1;

// Shows the box about the missing rate when the day has none; then it is 0. Look at l.bien() afterwards.
CifrasReporte LeerCifras(Puesto& p, LectorReporte& l, const ConsultasReporte& q, const QDate* fecha);

// Rows with the fields cProdCode, Catal, Descrip and Cant.
std::vector<FilaProductoReporte> FilasDeProducto(const Recordset& rs);
