#include "sale/traspaso.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/caja_full_totales.h"

namespace {

constexpr QStringView kImporte = u"0.00";

// Each screen keeps its own list of sites.
void copiarCliente(ClienteDocumento& c, const ClienteDocumento& otro) {
  auto locales = std::move(c.locales);
  c = otro;
  c.locales = std::move(locales);
}

FilaVenta filaConLinea(const LineaRapida& l, size_t item) {
  FilaVenta f;
  f[kItem] = Formatear(static_cast<double>(item), u"000000");
  f[kCod] = Formatear(l.cProdCode, u"000000");
  f[kCatalogo] = l.catalogo;
  f[kDescripcion] = l.corta;
  f[kCant] = Formatear(l.cantidad, kImporte);
  f[kPrecio] = Formatear(l.precio, kImporte);
  f[kSigno] = QStringLiteral("-");
  f[kPorc] = QStringLiteral("0.00");
  f[kCanje] = l.canje;
  f[kPtos] = QString::number(l.puntos);
  f[kConServ] = l.conServicio ? QStringLiteral("SI") : QStringLiteral("NO");
  return f;
}

bool conArticulo(const FilaVenta& f) { return !Recortar(f[kCod]).isEmpty(); }

}  // namespace

VentaEnCurso LlevarVenta(const CajaRegistradora& v) { return {v.lineas, v, v.txtRuc}; }

VentaEnCurso LlevarVenta(const Puesto& p, const CajaRegistradoraFull& v) {
  VentaEnCurso venta{{}, v, v.txtRUC};
  for (const auto& fila : v.rejilla.filas) {
    if (!conArticulo(fila)) continue;
    LineaRapida l;
    static_cast<LineaDocumento&>(l) = LineaDe(p, fila);
    l.porcentaje = 0;
    l.corta = l.descripcion;
    l.catalogo = fila[kCatalogo];
    venta.lineas.push_back(l);
  }
  return venta;
}

bool CabeEnRapida(const CajaRegistradoraFull& v) {
  return std::none_of(v.rejilla.filas.begin(), v.rejilla.filas.end(),
                      [](const FilaVenta& f) { return conArticulo(f) && LeerImporte(f[kPorc]) != 0; });
}

void RecibirVenta(CajaRegistradora& v, const VentaEnCurso& venta) {
  copiarCliente(v, venta.cliente);
  v.txtRuc = venta.txtRuc;
  if (venta.lineas.empty()) return;
  v.lineas = venta.lineas;
  v.bVentaIniciada = true;
  PonerTipoRapida(v, ClaseDocumento::VentaConVuelto);
  MostrarLinea(v);
}

void RecibirVenta(const Puesto& p, CajaRegistradoraFull& v, const VentaEnCurso& venta) {
  copiarCliente(v, venta.cliente);
  v.txtRUC = venta.txtRuc;
  if (venta.lineas.empty()) return;
  v.rejilla.filas.clear();
  for (const auto& l : venta.lineas) v.rejilla.filas.push_back(filaConLinea(l, v.rejilla.filas.size() + 1));
  CalculaTotales(p, v);
}
