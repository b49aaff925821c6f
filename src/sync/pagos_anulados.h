#pragma once
// Payments of billing documents that were voided at another desk: the receipt lies in the store of the desk that took
// the money, which only that desk can void.

struct FrmUpdt;
struct Puesto;

// Voids the open receipts of this store whose payment was voided at the centre, each with a line of the log. One of a
// day that is closed stands: its money was counted with that day. False when a database can't be read or written; the
// box has been shown.
[[nodiscard]] bool AnularRecibosAnulados(Puesto& p, FrmUpdt& pantalla);
