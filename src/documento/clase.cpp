#include "documento/clase.h"

#include <algorithm>
#include <iterator>

#include "foundation/exigir.h"

namespace {

using C = ClaseDocumento;
using V = TipoVenta;
using O = TipoOperacion;
using D = TipoDocumento;

constexpr std::nullopt_t kSegunRuc = std::nullopt;

// clang-format off
const DatosClase kClases[] = {
    //  ticket            on the screen  row           type         word         lines  cash   money
    {C::VentaExacta,     V::Efectivo,   O::Efectivo,  kSegunRuc,   u"",         true,  true,  false},
    {C::VentaConVuelto,  V::Efectivo,   O::Efectivo,  kSegunRuc,   u"",         true,  true,  false},
    {C::VentaVoucher,    V::Voucher,    O::Voucher,   kSegunRuc,   u"VOUCHER",  true,  false, false},
    {C::OC,              V::OC,         O::OC,        D::OC,       u"O/C",      true,  true,  true},
    {C::NC,              V::NC,         O::NC,        D::NC,       u"N/C",      true,  false, false},
    {C::PADE,            V::PADE,       O::PADE,      D::PADE,     u"PADE",     false, false, false},
    {C::PADV,            V::PADV,       O::PADV,      D::PADV,     u"PADV",     false, false, true},
    {C::LIQPAD,          V::LIQPAD,     O::LIQPAD,    D::LIQPAD,   u"LIQPAD",   true,  false, true},
};
// clang-format on

template <class Condicion>
const DatosClase* buscar(Condicion condicion) {
  const auto it = std::find_if(std::begin(kClases), std::end(kClases), condicion);
  return it == std::end(kClases) ? nullptr : it;
}

}  // namespace

const DatosClase& DatosDe(ClaseDocumento clase) {
  const auto* datos = buscar([clase](const DatosClase& d) { return d.clase == clase; });
  Exigir(datos, "un documento sin clase");
  return *datos;
}

ClaseDocumento ClaseDe(TipoVenta venta) {
  const auto* datos = buscar([venta](const DatosClase& d) { return d.venta == venta; });
  Exigir(datos, "un tipo de venta sin documento");
  return datos->clase;
}

QString PalabraDe(TipoOperacion operacion) {
  const auto* datos = buscar([operacion](const DatosClase& d) { return d.operacion == operacion; });
  return datos ? datos->palabra.toString() : QString();
}
