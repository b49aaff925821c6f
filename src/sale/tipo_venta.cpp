#include "sale/tipo_venta.h"

#include <algorithm>

const std::vector<PantallaTipo>& tiposDeVenta() {
  using P = PanelTipo;
  // clang-format off
  static const std::vector<PantallaTipo> tabla = {
      // kind         entry                                  lines  cash   total  RUC    US$    panel            tab  voucher
      {kEfectivo,    QStringLiteral("EFECTIVO"),             true,  true,  true,  true,  true,  P::Ninguno,         -1, false},
      {kVoucher,     QStringLiteral("VOUCHER"),              true,  false, true,  true,  false, P::Ninguno,         -1, false},
      {kOC,          QStringLiteral("O/C"),                  true,  true,  true,  false, true,  P::Ninguno,         -1, false},
      {kNC,          QStringLiteral("N/C"),                  true,  false, true,  false, false, P::DatosPago,       -1, false},
      {kPADE,        QStringLiteral("PADE"),                 false, false, false, false, false, P::MontoAdelantado,  1, false},
      {kPADV,        QStringLiteral("PADV"),                 false, false, false, false, false, P::MontoAdelantado,  1, false},
      {kLIQPAD,      QStringLiteral("LIQPAD"),               false, true,  true,  false, true,  P::Ninguno,          2, true},
      {kAnular,      QStringLiteral("ANULAR TRANSACCION"),   false, false, false, false, false, P::Ninguno,         -1, false},
      {kRecaudacion, QStringLiteral("RECAUDACION - PAGO"),   false, false, false, false, false, P::Ninguno,         -1, false},
  };
  // clang-format on
  return tabla;
}

const PantallaTipo& pantallaDe(int tipo) {
  const auto& tabla = tiposDeVenta();
  const auto it = std::find_if(tabla.begin(), tabla.end(), [tipo](const PantallaTipo& t) { return t.tipo == tipo; });
  Q_ASSERT(it != tabla.end());
  return *it;
}
