#pragma once
// The sale under way that one register hands to the other.
#include "sale/caja_rapida.h"

struct CajaRegistradoraFull;

struct VentaEnCurso {
  std::vector<LineaRapida> lineas;
  ClienteDocumento cliente;
  QString txtRuc;
};

// What stands on a register's screen; of the full one the lines with an article.
VentaEnCurso LlevarVenta(const CajaRegistradora& v);
VentaEnCurso LlevarVenta(const Puesto& p, const CajaRegistradoraFull& v);

// Whether the quick register can hold the sale: it has no percentages.
[[nodiscard]] bool CabeEnRapida(const CajaRegistradoraFull& v);

// Puts the sale on a register that has just been opened: the same articles, quantities and prices, so the same total.
// An empty sale brings its customer only.
void RecibirVenta(CajaRegistradora& v, const VentaEnCurso& venta);
void RecibirVenta(const Puesto& p, CajaRegistradoraFull& v, const VentaEnCurso& venta);
