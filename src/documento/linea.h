#pragma once
// An article line of any document and its amounts, in soles.
#include <QString>

struct Puesto;

struct LineaDocumento {
  QString cAlmaCode;
  int cProdCode = 0;
  QString descripcion;
  double precio = 0;  // list price of one, tax and service included
  int cantidad = 0;
  double porcentaje = 0;  // negative a discount, positive a surcharge
  QString canje;          // "PTOS" or "VNTA"
  int puntos = 0;
  bool conServicio = false;
};

// As printed and not rounded: a surcharge is folded into the price, a discount stands on a line of its own.
struct ImportesLinea {
  double precio = 0;
  double importe = 0;    // quantity x that price
  double descuento = 0;  // 0 or negative
};

ImportesLinea ImportesDe(const LineaDocumento& linea);

// What the line is worth with its percentage, not rounded: quantity x price + quantity x price x percentage / 100.
double ValorDe(const LineaDocumento& linea);

// Tax and service that an amount of an article holds: prices include both. Not rounded.
struct ImpuestosImporte {
  double igv = 0, servicio = 0;
};

ImpuestosImporte ImpuestosDe(const Puesto& p, double importe, bool conServicio);
