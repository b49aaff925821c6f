#include "documento/clase.h"

#include <algorithm>
#include <iterator>

namespace {

const DatosClase kClases[] = {
    {kVentaExacta, {}, {}, true, true},
    {kVentaVoucher, QStringLiteral("VOUCHER"), {}, true, false},
    {kVentaConVuelto, {}, {}, true, true},
    {kOrdenConsumo, QStringLiteral("O/C"), QStringLiteral("10"), true, true},
    {kNotaConsumo, QStringLiteral("N/C"), QStringLiteral("11"), true, false},
    {kPagoAdelantado, QStringLiteral("PADE"), QStringLiteral("12"), false, false},
    {kPagoAdelantadoVoucher, QStringLiteral("PADV"), QStringLiteral("13"), false, false},
    {kLiquidacionPad, QStringLiteral("LIQPAD"), QStringLiteral("14"), true, false},
};

}  // namespace

const DatosClase& datosDe(ClaseDocumento clase) {
  const auto it =
      std::find_if(std::begin(kClases), std::end(kClases), [clase](const DatosClase& d) { return d.clase == clase; });
  Q_ASSERT(it != std::end(kClases));
  return *it;
}
