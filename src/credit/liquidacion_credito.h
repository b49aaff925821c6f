#pragma once
// The tab "Liquidacion": a paid billing document weighed against what was consumed of it, at whichever desk.
#include "credit/facturacion_pagos.h"

class Conexion;

void LimpiarLiquidacion(TabLiquidacion& v);

// cmdTXL: the picker, then the document into its list. Gives the control to look at.
std::optional<QString> BuscarDocumentoLQ(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas);
// CmdAdd: the document of the code in txtTXL, with its notes. One that is not paid is told with its balance.
std::optional<QString> AgregarDocumentoLQ(Puesto& p, TabLiquidacion& v);
// CmdDel: its notes go with it.
void QuitarDocumentoLQ(const Puesto& p, TabLiquidacion& v, int fila);

// Sums, difference and change out of the lists and the cash.
void TotalesLQ(const Puesto& p, TabLiquidacion& v);
// Whether cash is due, so that it can be typed.
[[nodiscard]] bool CobraLQ(const TabLiquidacion& v);

// The commit of cmdGrabaLiq. Gives what GrabarFactura gives.
[[nodiscard]] std::optional<QString> GrabarLiquidacion(Puesto& p, CajaFacturacionPagos& v);

// Settles the open notes of this desk whose documents were settled at another one. False when a database can't be read
// or written; the box has been shown.
[[nodiscard]] bool CerrarNotasLiquidadas(Puesto& p, Conexion& central);
