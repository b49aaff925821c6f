#pragma once
// The tab "Facturacion": a FADE or BADE on account.
#include "credit/facturacion_pagos.h"

// Nothing entered: customer, credit and document empty, the date today, soles.
void LimpiarFactura(const Puesto& p, TabFacturacion& v);

// txtSoles and txtDolares out of the grid.
void TotalesFactura(const Puesto& p, TabFacturacion& v);

// The commit of cmdGrabarFactura: checks, supervisor, detraction, then number, rows and both commits, then the paper.
//   Returns  nothing when the document stands and the tab was cleared. Otherwise the name of the control where the
//            cashier has to look, "" for where he is: the box has been shown, nothing was written and the tab stays.
[[nodiscard]] std::optional<QString> GrabarFactura(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas);

// Prints a FADE or BADE again, as it is stored. False when there is none of that number, or it can't be read or was
// voided; the box has been shown.
[[nodiscard]] bool ReimprimirFactura(Puesto& p, DocCredito doc, const QString& serie, const QString& numero);
