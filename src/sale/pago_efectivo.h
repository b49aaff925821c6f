#pragma once
// The cash screen's fields and what computes on them. Texts with mask "###,###,###,##0.00", in soles unless the name
// says Dolares; rate in soles per dollar.
#include <QString>
#include <optional>

#include "documento/totales.h"

struct Puesto;

struct PagoEnEfectivo {
  QString txtTotal, txtTotalDolares;
  QString txtEfectivo, txtEfectivoDolares, txtVuelto, txtVueltoDolares;
  bool efectivoTecleado = false;  // the Tag of txtEfectivo: the cashier has typed in it
};

// The fields that the cashier can leave.
enum class CampoEfectivo { Soles, Dolares, VueltoDolares };

// Paid exact, in soles; a rate of 0 shows 0.00 dollars.
void AbrirPagoEfectivo(const Puesto& p, double total, PagoEnEfectivo& v);

// Makes the fields agree, as cmdCalcular does. Dollars times rate go to cents once. A blank or unreadable field is 0.
void CalculoVuelto(const Puesto& p, PagoEnEfectivo& v);

// The cashier leaves a field. Dollars drop the change that stood there, since it belongs to other dollars.
void SalirCampoEfectivo(const Puesto& p, PagoEnEfectivo& v, CampoEfectivo campo);

// What was taken and given back. Nothing, after a box, while an amount is negative.
std::optional<EfectivoDocumento> AceptarPagoEfectivo(Puesto& p, PagoEnEfectivo& v);
