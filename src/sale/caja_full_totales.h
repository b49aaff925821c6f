#pragma once
// The sums of the full register: totals with tax and service, and the cash panel. None of these can fail.
//
// Texts with mask "0.00". Rate x dollars goes to cents once and everything else is counted in whole cents, so that
// running a routine again changes nothing. A blank or unreadable cash field counts as 0.
class QString;
struct Puesto;
struct CajaRegistradoraFull;

// Subtotal, service and IGV of each line, then txtSoles and txtDolares, without a look at the cash. A kind that sells
// no lines has a total of 0; a liquidation's is left alone.
void SumarLineas(const Puesto& p, CajaRegistradoraFull& v);

// Subtotal, service and IGV of each line, then txtSoles and txtDolares; a rate of 0 shows 0.00 dollars. The total adds
// the unrounded lines. A changed txtSoles asks the full amount in cash again (CalculaEfectivo); CuadraPago ends it.
void CalculaTotales(const Puesto& p, CajaRegistradoraFull& v);

// Settles the four cash fields: no more dollars back than came in, no soles where dollars cover the sale, and, while
// nothing was typed in txtEfectivoSoles, exact soles for what is left or change for what is too much.
void CuadraPago(const Puesto& p, CajaRegistradoraFull& v);

// txtVueltoSoles out of what was given; negative when it isn't enough.
void CalculaVuelto(const Puesto& p, CajaRegistradoraFull& v);

// txtEfectivoSoles as what the dollars leave to pay, change 0.00.
void CalculaEfectivo(const Puesto& p, CajaRegistradoraFull& v);

// The cashier leaves txtEfectivoSoles. Zero counts as nothing typed: the sale is paid exact.
void SalirEfectivoSoles(const Puesto& p, CajaRegistradoraFull& v);

// The cashier leaves txtEfectivoDolares or txtVueltoDolares. The old change is dropped first, since it belongs to the
// dollars that stood there before.
void SalirDolares(const Puesto& p, CajaRegistradoraFull& v);

// The cashier leaves a cell of the lines grid with `texto` in it; what changes a line changes the totals.
//   Returns  false when the text isn't accepted: the row is as it was, and a box has been shown where the rule has
//            words.
[[nodiscard]] bool SalirCelda(Puesto& p, CajaRegistradoraFull& v, int fila, int columna, const QString& texto);

// Takes a line out; the last one left is emptied instead. Totals follow.
void EliminarFila(const Puesto& p, CajaRegistradoraFull& v, int fila);
