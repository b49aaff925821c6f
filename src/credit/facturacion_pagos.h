#pragma once
// The billing screen's fields as shown, tab by tab. A document, a payment, a note or a liquidation lives only here
// until it is committed. Amounts are texts with mask "0.00", in soles unless the name says Dolares; an index is that of
// the entry chosen in a list, -1 for none.
#include <array>
#include <optional>
#include <vector>

#include "credit/pantallas_credito.h"
#include "documento/lineas.h"

struct Puesto;

// An entry of a list that the central database fills.
struct Referencia {
  QString codigo, texto;
};

struct Referencias {
  std::vector<Referencia> creditos, formas, bancos, tarjetas;
};
// The code of an entry; "" for none.
QString CodigoElegido(const std::vector<Referencia>& lista, int indice);

struct TabFacturacion : ClienteDocumento {
  QString txtRUC, DTPFechaEmision;  // dd/mm/yyyy
  int dcbTipoCredito = -1, cboTipoDocumento = -1, cboMoneda = 0;
  QString lblNroDocumento;
  QString ultimo;  // tells of the document that was issued last
  std::optional<DocCredito> docUltimo;
  RejillaLineas rejilla;  // TDGFacturacion
  QString txtSoles, txtDolares;
};

// A payment of the document on the screen.
struct PagoHecho {
  QString serie, numero, fecha, forma, detalle, monto, moneda;
};

struct TabPagos {
  int cboTipoDocumento1 = -1;
  std::optional<DocumentoPorPagar> documento;
  bool enDolares = false;
  std::optional<double> detraccion;  // the amount of one that is pending
  QString cuentaDetraccion;
  QString lblNroDocumento2, lblMoneda, lblCliente, lblSaldoSoles, lblSaldoDolares;
  bool lblDetraccion = false;  // shown, and cmdActualizarDetracc with it
  std::vector<PagoHecho> dgdPagos;
  QString DTPFechaPago;
  int dcbFormaPago = -1, dcbBanco = -1, dcbTarjeta = -1, cboMoneda1 = -1;
  QString txtNroCuenta, txtNroOperacion, txtNroCertificadoRetencion;
  QString txtMontoSoles, txtMontoDolares;
  bool chkEsDetraccion = false;  // shown: account and amount are those of the detraction, and locked
  QString ultimo;                // the last receipt and the balance that it left
};

// A line of the document that a note consumes.
struct LineaVendida {
  QString codigo, descripcion;
  double cantidad = 0, precio = 0, porcentaje = 0;
};

struct TabNota {
  int cboTipoDocumento2 = -1;
  std::optional<DocumentoPorConsumir> documento;
  QString lblNroDocumentoNC, lblClienteNC, lblLocalNC, lblFecEmisionNC, lblCreditoaNC;
  QString txtMontoDocumento, txtMontoPorConsumirDocumento;
  std::vector<LineaVendida> lineas;
  RejillaLineas rejilla;  // TDGNotaConsumo
  QString txtSolesNC, txtDolaresNC;
};

// A row of one of the two lists of the liquidation.
struct LineaLQ {
  QString tx, tipo, doc, tarjeta, total, fecha, original, cliente, relacion;
  bool deOtraCaja = false;  // a note whose row lies at another desk
  bool operator==(const LineaLQ&) const = default;
};

struct TabLiquidacion {
  int cboTipoDocumento3 = -1;
  QString txtTXL;
  std::array<std::vector<LineaLQ>, 2> lvwTX;
  double pagado = 0, consumido = 0;  // of the document in the list, as it was loaded
  QString txtTotalPA, txtTotalNC, txtSolesLQ, txtDolaresLQ;
  QString txtEfectivoSolesLQ, txtEfectivoDolaresLQ, txtVueltoSolesLQ, txtVueltoDolaresLQ;
};

struct CajaFacturacionPagos {
  int pestana = 0;
  Referencias referencias;
  TabFacturacion factura;
  TabPagos pago;
  TabNota nota;
  TabLiquidacion liquidacion;
};

// Empties all tabs and reads the lists from the central database; without it they are empty, and a box has told why.
// Notes of this desk whose document was settled at another one are settled here too.
void InicioFacturacion(Puesto& p, CajaFacturacionPagos& v);

// A date as typed, dd/mm/yyyy; nothing for any other text.
std::optional<QDate> FechaTecleada(const QString& texto);
// Today, as the date fields show it.
QString HoyTecleado(const Puesto& p);

// Totals of a grid: the sum of its lines and the same by the day's rate.
void TotalesDeRejilla(const Puesto& p, RejillaLineas& l, QString& soles, QString& dolares);
// The lines with an article. Each gets its number and the defaults that the cashier would have seen.
std::vector<LineaDocumento> LineasConArticulo(const Puesto& p, RejillaLineas& l);
// Whether a supervisor has to allow the lines: one carries a percentage. `supervisor` gets his name; false when he
// refused.
[[nodiscard]] bool AutorizarLineas(PantallasCredito& pantallas, const RejillaLineas& l, QString& supervisor);
