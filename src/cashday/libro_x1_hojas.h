#pragma once
// What the two sheets of the workbook share while it is read.
#include "cashday/libro_x1.h"
#include "cashday/periodo.h"
#include "platform/sql/recordset.h"
#include "platform/sql/sentencia.h"

// A sheet under construction: what has been written stands above `fila`.
struct HojaX1 {
  Puesto& p;
  const Periodo& periodo;
  LibroX1& r;
  HojaLibro& hoja;
  int fila = 1;

  void poner(int columna, Celda celda) { hoja.poner(fila, columna, std::move(celda)); }
  void bajar() { ++fila; }
  void rotulos(const QStringList& textos) {
    for (int n = 0; n < textos.size(); ++n) poner(n + 1, textos[n]);
    bajar();
  }
  // The rows of a section; nothing when they can't be read, which is noted as missing and told in its place.
  std::optional<Recordset> leer(const Sql& consulta, const QString& seccion, int columna);
};

void DetallarX1(HojaX1& h);
void ConsolidarX1(HojaX1& h);

// A unit price with the row's discount or surcharge counted, from the fields `Precio` and `nDscto`.
double PrecioNeto(const Recordset::Fila& f);
