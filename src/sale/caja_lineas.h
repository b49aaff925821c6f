#pragma once
// The lines grid of the full register. Rows count from 0.
#include "documento/linea.h"
#include "sale/caja_full.h"

// Adds a line, or takes the last one when it still has no article. Gives its row.
int AgregarFila(CajaRegistradoraFull& v);

// Takes a line out; the last one left is emptied instead. Totals follow.
void EliminarFila(const Puesto& p, CajaRegistradoraFull& v, int fila);

// Whether the cashier may type into the cell: codes always, the rest only on a line with an article, the percentage
// only where DFlag allows it.
bool CeldaEditable(const Puesto& p, const CajaRegistradoraFull& v, int fila, int columna);

// The cashier leaves a cell with `texto` in it.
//   Returns  false when the text isn't accepted: the row is as it was, and a box has been shown where the rule has
//            words. Otherwise the row holds the value, the line's other cells and the totals follow.
bool SalirCelda(Puesto& p, CajaRegistradoraFull& v, int fila, int columna, const QString& texto);

// Fills a row with quantity 1 and discount 0 from the article as the price list has it, on sale or not. An article that
// is gone leaves price and service as they are in the row. False when the store can't be read; the box has been shown.
[[nodiscard]] bool LeerArticulo(Puesto& p, const QString& almacen, const QString& codigo, FilaVenta& fila);

// The line that a row sells: a percentage with its sign, an empty quantity as 1.
LineaDocumento LineaDe(const Puesto& p, const FilaVenta& fila);
