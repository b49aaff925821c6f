#pragma once
// The advance payment that a note draws on, and the amounts of one that is being taken.
#include "sale/caja_full.h"

// cmdBuscaPago: the advance payment chosen in the picker goes into txtPADE and txtTX, its amount and text beside them.
void BuscarAdelanto(CajaRegistradoraFull& v, PantallasVenta& pantallas);

// cmdPagoAdelantado: the same list for the second tab. While an advance payment is being taken it is only shown.
void VerAdelantos(CajaRegistradoraFull& v, PantallasVenta& pantallas);

// Says that a code belongs to the billing screen: its payments and notes are settled there.
void AvisarVentaFutura(Puesto& p);

// A code typed in txtPADE, or in txtTX for a note: the open advance payment of that code as if it had been picked; none
// empties the fields, so that the commit asks for one. False when the store can't be read; the box has been shown.
[[nodiscard]] bool SalirAdelanto(Puesto& p, CajaRegistradoraFull& v, const QString& codigo);

// The cashier enters txtPagoAdelantado or txtPADEDolares: only one of the two holds an amount.
void EntrarMonto(CajaRegistradoraFull& v, bool dolares);

// Leaves such a field: mask "0.00", a blank is 0.00. What is no number stays as it was typed.
void SalirMonto(QString& campo);
