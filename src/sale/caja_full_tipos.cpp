#include "sale/caja_full_tipos.h"

#include <algorithm>

#include "foundation/exigir.h"

const std::vector<PantallaTipo>& tiposDeVenta() {
  using P = PanelTipo;
  using T = TipoVenta;
  // clang-format off
  static const std::vector<PantallaTipo> tabla = {
    // kind          entry                                 lines  cash   total  RUC    US$    panel         tab  voucher
    {T::Efectivo,    u"EFECTIVO",           true,  true,  true,  true,  true,  P::Ninguno,         -1, false},
    {T::Voucher,     u"VOUCHER",            true,  false, true,  true,  false, P::Ninguno,         -1, false},
    {T::OC,          u"O/C",                true,  true,  true,  false, true,  P::Ninguno,         -1, false},
    {T::NC,          u"N/C",                true,  false, true,  false, false, P::DatosPago,       -1, false},
    {T::PADE,        u"PADE",               false, false, false, false, false, P::MontoAdelantado,  1, false},
    {T::PADV,        u"PADV",               false, false, false, false, false, P::MontoAdelantado,  1, false},
    {T::LIQPAD,      u"LIQPAD",             false, true,  true,  false, true,  P::Ninguno,          2, true},
    {T::Anular,      u"ANULAR TRANSACCION", false, false, false, false, false, P::Ninguno,         -1, false},
    {T::Recaudacion, u"RECAUDACION - PAGO", false, false, false, false, false, P::Ninguno,         -1, false},
  };
  // clang-format on
  return tabla;
}

const PantallaTipo& pantallaDe(TipoVenta tipo) {
  const auto& tabla = tiposDeVenta();
  const auto it = std::find_if(tabla.begin(), tabla.end(), [tipo](const PantallaTipo& t) { return t.tipo == tipo; });
  Exigir(it != tabla.end(), "un tipo de venta sin pantalla");
  return *it;
}
