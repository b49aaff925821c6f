#pragma once
// The articles of the desk's warehouse.
#include <QString>
#include <vector>

#include "foundation/mantenimiento.h"

struct Puesto;

struct FilaProducto {
  QString codigo, descripcion, corta;
  QString precio;  // soles, mask "###,###,###,####.00"
  QString tipo;    // "Ficha", "Canje" or ""
  QString stock;   // "SI" or "NO"
  bool activo = true;
};

// The detail screen: texts as typed.
struct DetalleProducto {
  ModoDetalle modo = ModoDetalle::Nuevo;
  QString txtCodigo, txtDescripcion, txtCorta;
  QString txtPUnitario;  // soles
  bool activo = true;    // optActivo
  bool chkFicha = false;
  QString txtFichas;
  bool chkCanje = false, chkControl = false;
  QString campoMal;
};

// All articles of psAlmacen by code. On failure false: the message has been shown and `filas` is empty.
[[nodiscard]] bool LeerProductos(Puesto& p, std::vector<FilaProducto>& filas);

// Fills the detail: mode 0 proposes the next code, the others read the article. False when it can't be read or is no
// longer there; a box has told it.
[[nodiscard]] bool CargarProducto(Puesto& p, ModoDetalle modo, const QString& codigo, DetalleProducto& v);

// Ticking "Canje" makes the price 0; an article that is redeemed is never paid for.
void MarcarCanje(DetalleProducto& v);

// Checks and stores by the mode; viewing stores nothing and succeeds. On failure false: a box has told why, and
// `campoMal` names the field, "" when the store refused. The price goes to cents.
[[nodiscard]] bool GuardarProducto(Puesto& p, DetalleProducto& v);

FilaProducto FilaDe(const DetalleProducto& v);

// Asks, then turns the flag of sale round; `fila` follows. False when nothing was changed.
[[nodiscard]] bool ActivarProducto(Puesto& p, FilaProducto& fila);

// The price as it stands after its field was left; what is no amount stays as typed.
QString MascaraPrecio(const QString& texto);
