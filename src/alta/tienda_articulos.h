#pragma once
// The catalogue of the demo shop.
#include <span>

// What the shop does with an article.
enum class Venta {
  Normal,
  Suspendido,  // the server still sells it, the desk refuses it
  Retirado,    // the server has taken it off sale
  Canje,       // given out against fichas, without a price
};

struct ArticuloTienda {
  int codigo;
  const char16_t *catalogo, *descripcion, *corta;
  double precio;  // soles, tax and service included
  bool servicio;
  int puntos;
  bool canjePuntos;  // points article
  bool detraccion;
  const char *unidad, *linea;
  Venta venta = Venta::Normal;
};

std::span<const ArticuloTienda> ArticulosDeTienda();
