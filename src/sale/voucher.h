#pragma once
// The voucher screen's fields and what computes on them: the cards that pay a sale, and its cash part. Amounts are
// texts in soles with mask "0.00".
#include <QString>
#include <optional>
#include <vector>

#include "sale/pantallas_venta.h"

struct Puesto;

struct EmisorTarjeta {
  QString Cod_tar, descrip;
};

// A row of grdPagTar, in its columns.
struct FilaVoucher {
  QString descrip, Pago, SD, cod_tar;
};

struct CajaVoucher {
  std::vector<EmisorTarjeta> emisores;
  std::vector<FilaVoucher> pagos;
  QString txtEfectivoSoles, txtVueltoSoles, txtSoles, txtDolares;
};

// Fills the issuers and starts the sale as all cash; of a PADV the amount comes from its own field and none of it is
// cash. Without the issuers the list stays empty; the box was shown.
void AbrirVoucher(Puesto& p, const PedidoVoucher& pedido, CajaVoucher& v);

// Adds the issuer with what the cards so far leave to pay; the cash becomes 0.00. False, after a box, while a row has
// no amount or when the issuer is there already.
[[nodiscard]] bool AgregarTarjeta(Puesto& p, CajaVoucher& v, int emisor);

// The cashier leaves an amount with `texto` in it. False, and nothing changes, for what is no amount from zero on;
// otherwise cash and change follow.
[[nodiscard]] bool PonerPago(CajaVoucher& v, int fila, const QString& texto);

// Takes the row out; cash and change follow, so that the sale stays covered.
void QuitarTarjeta(CajaVoucher& v, int fila);

// The cashier leaves txtEfectivoSoles: the change is what the cards give too much, whatever the cash.
void RecalculaVueltoVoucher(CajaVoucher& v);

// The cards and the cash part. Nothing, after a box, when the cash is negative
// or no card was chosen.
std::optional<CobroTarjetas> AceptarVoucher(Puesto& p, const CajaVoucher& v);
