#pragma once
// The tab "Nota de Consumo": goods delivered against a billing document. What was delivered is known at the centre, so
// that two desks never deliver the same; without it no note is made.
#include "credit/facturacion_pagos.h"

void LimpiarNota(TabNota& v);
void TotalesNota(const Puesto& p, TabNota& v);

// cmdBuscarDocumentoNC: the picker, then the document with its lines. Gives the control to look at.
std::optional<QString> BuscarDocumentoNC(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas);
void CargarDocumentoNC(Puesto& p, TabNota& v, const DocumentoPorConsumir& documento);

// Puts a line of the document into the grid, one of it, at the document's own price and percentage. Gives its row;
// nothing when there is no such line or the article can't be read.
std::optional<int> TomarLineaVendida(Puesto& p, TabNota& v, int linea);

// The commit of cmdGrabarNC. Gives what GrabarFactura gives.
[[nodiscard]] std::optional<QString> GrabarNota(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas);
