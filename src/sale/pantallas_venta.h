#pragma once
// The screens that a register opens; wired where the program is put together, scripted in a test.
#include <QString>
#include <optional>

#include "documento/clase.h"
#include "documento/totales.h"
#include "loyalty/cliente_documento.h"

struct VentaEnCurso;

// What the voucher screen is opened with: the kind of sale and texts of the register.
struct PedidoVoucher {
  TipoVenta nTipoVenta{};
  QString txtSoles, txtDolares, txtPagoAdelantado;
};

// How cards pay a sale: at least one of them, and the cash part in soles, mask "0.00", for txtEfectivoSoles and
// txtVueltoSoles of the register.
struct CobroTarjetas {
  std::vector<PagoTarjeta> pagos;
  QString txtEfectivoSoles, txtVueltoSoles;
};

enum class ListaParalela {
  PagoAdelantado,  // open PADE and PADV
  Liquidacion0,    // the same, for the list of advance payments of a liquidation
  Liquidacion1     // open N/C
};

// An open parallel document chosen in its picker.
struct DocumentoElegido {
  qint64 codigo = 0;
  QString importe;  // "S/. " or "US$ " by its currency, then the amount with mask "0.00"
  QString glosa;
};

class PantallasVenta : public BuscadorClientes {
 public:
  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;

  // The voucher screen. Nothing when it wasn't confirmed.
  virtual std::optional<CobroTarjetas> voucher(const PedidoVoucher& pedido) = 0;

  // The cash screen over a total in soles. Nothing when it was closed without accepting.
  virtual std::optional<EfectivoDocumento> pagoEfectivo(double total) = 0;

  // The article search. Gives the code, six digits; nothing when none was chosen.
  virtual std::optional<QString> buscarArticulo() = 0;

  // The picker of open parallel documents. With `soloVer` it only shows them: nothing can be chosen (advance payments,
  // while the register is issuing one).
  virtual std::optional<DocumentoElegido> buscarParalela(ListaParalela lista, bool soloVer = false) = 0;

  // The cash withdrawal, from its amount to its receipt.
  virtual void retiro() = 0;

  // The void screen.
  virtual void anular() { noDisponible(QStringLiteral("ANULAR TRANSACCION")); }

  // The reprint screen; `local` is the site that stands on the register, "" for none.
  virtual void reimprimir(const QString& /*local*/) { noDisponible(QStringLiteral("AC/TC")); }

  // The other register is to open with this sale, once the one that asks has closed. False when there is none; the box
  // has been shown.
  virtual bool irARapida(const VentaEnCurso&) {
    noDisponible(QStringLiteral("Caja Registradora"));
    return false;
  }
  virtual bool irAFull(const VentaEnCurso&) {
    noDisponible(QStringLiteral("Caja Registradora (Versión Full)"));
    return false;
  }

  // Says in one plain box that the screen of that name is not there yet.
  virtual void noDisponible(const QString& pantalla) = 0;
};
