#pragma once
// What the void of a billing document or of a payment reads and writes.
#include "credit/anulacion_credito.h"
#include "foundation/acto_doble.h"

// The payment of that receipt, whatever zeros stand before its number; nothing when there is none.
[[nodiscard]] std::optional<ErrorBD> LeerPago(Conexion& central, const QString& serie, const QString& numero,
                                              std::optional<PagoGuardado>& pago);
// The same with its document.
[[nodiscard]] std::optional<ErrorBD> LeerPagoConDocumento(Conexion& central, const QString& serie,
                                                          const QString& numero, std::optional<PagoGuardado>& pago,
                                                          std::optional<EstadoDocumento>& documento);

// What stands in the way of a void, and what its paper counts.
struct VidaDocumento {
  int pagos = 0, notas = 0;  // not voided, of any desk
  double unidades = 0;
};
[[nodiscard]] std::optional<ErrorBD> LeerVida(Conexion& central, const EstadoDocumento& d, VidaDocumento& vida);

// Why it can't be voided, "" when it can.
QString RechazoDocumento(const EstadoDocumento& d, const VidaDocumento& vida);
QString RechazoPago(const EstadoDocumento& d, const PagoGuardado& pago);

// The statements of the centre; each fails where its document has moved on meanwhile.
std::vector<Sql> SentenciasAnularDocumento(const EstadoDocumento& d);
std::vector<Sql> SentenciasAnularPago(const EstadoDocumento& d, const PagoGuardado& pago);

// The row of a payment in this desk's store.
struct TomadaAqui {
  qint64 codigo = 0;
  TipoOperacion tipo = TipoOperacion::PADE;
  bool seAnula = false;  // it stands and its day is open
};
// Nothing when this desk has none, or not just one.
[[nodiscard]] std::optional<ErrorBD> BuscarPagoAqui(Puesto& p, const PagoGuardado& pago,
                                                    std::optional<TomadaAqui>& fila);
// What the store takes of the void, and how it is taken back.
[[nodiscard]] std::optional<ErrorBD> SentenciasAnularPagoAqui(Puesto& p, const TomadaAqui& fila, ActoDoble& acto);

// The desk whose receipts carry that series.
QString CajaDeRecibo(const QString& serie);

// The paper of the void, on the main printer.
void ImprimirAnulacionCredito(Puesto& p, const AnularTransaccionCtaCte& v, double unidades);
