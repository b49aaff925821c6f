#pragma once
// The tab "Pagos a Cuenta": payments of a billing document, and its detraction.
#include "credit/facturacion_pagos.h"

void LimpiarPagos(const Puesto& p, TabPagos& v);

// cmdBuscarDocumento: the picker, then the document. Gives the control to look at, nothing when there is none.
std::optional<QString> BuscarDocumentoPago(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas);

// Payments, balances and detraction of the document, as they are now. Without the central database the tab is empty
// and the box has been shown.
void CargarPagos(Puesto& p, TabPagos& v, DocumentoPorPagar documento);

// What follows a choice in dcbFormaPago, dcbBanco and cboMoneda1, and a change of the amount in its currency.
void CambiarForma(CajaFacturacionPagos& v);
void CambiarBanco(CajaFacturacionPagos& v);
void CambiarMontoPago(const Puesto& p, TabPagos& v);

// Which fields the form takes.
struct CamposForma {
  bool tarjeta = false, certificado = false, banco = false;
};
CamposForma CamposDelPago(const CajaFacturacionPagos& v);
// Whether the amount of that currency can be typed.
[[nodiscard]] bool MontoEditable(const TabPagos& v, bool enDolares);

// The commit of cmdBoton(3); a payment that says the same as one of this minute is asked for first.
//   Returns  nothing when the payment stands and the tab was cleared. Otherwise the control where the cashier has to
//            look, "" for where he is: the box has been shown, nothing was written and the tab stays.
[[nodiscard]] std::optional<QString> GrabarPago(Puesto& p, CajaFacturacionPagos& v);

// cmdActualizarDetracc: the detraction was deposited without the till.
void ActualizarDetraccion(Puesto& p, TabPagos& v);

// cmdAnularTransaccionPag on the row of dgdPagos, -1 for none: the void, then the document anew.
void AnularPago(Puesto& p, TabPagos& v, PantallasCredito& pantallas, int fila);

// Prints the receipt of that number again, as the store of this desk has it. False when there is none, it was voided or
// can't be read; the box has been shown.
[[nodiscard]] bool ReimprimirRecibo(Puesto& p, const QString& serie, const QString& numero);
