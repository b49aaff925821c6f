#include "sale/voucher.h"

#include <algorithm>

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_tipos.h"

namespace {

constexpr QStringView kImporte = u"0.00";
const QString kSoles = QStringLiteral("Soles");

double suma(const CajaVoucher& v) {
  double s = 0;
  for (const auto& f : v.pagos) s += LeerImporte(f.Pago);
  return Redondear(s, 2);
}

double falta(const CajaVoucher& v) { return Redondear(LeerImporte(v.txtSoles) - suma(v), 2); }

// Cash for what the cards leave, change for what they give too much.
void cuadrar(CajaVoucher& v) {
  const double resto = falta(v);
  v.txtEfectivoSoles = Formatear(qMax(resto, 0.0), kImporte);
  v.txtVueltoSoles = Formatear(qMax(-resto, 0.0), kImporte);
}

}  // namespace

void AbrirVoucher(Puesto& p, const PedidoVoucher& pedido, CajaVoucher& v) {
  v = {};
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"select cod_tar,descrip from tipo_tarjeta"_sql, rs)) {
    for (const auto& r : rs) v.emisores.push_back({LimpiarNulo(r[u"cod_tar"]), LimpiarNulo(r[u"descrip"])});
  }
  const bool adelanto = pedido.nTipoVenta == TipoVenta::PADV;
  v.txtSoles = ImporteTecleado(adelanto ? pedido.txtPagoAdelantado : pedido.txtSoles, kImporte);
  v.txtDolares = adelanto ? QString() : pedido.txtDolares;
  v.txtEfectivoSoles = adelanto ? QStringLiteral("0.00") : v.txtSoles;
  v.txtVueltoSoles = QStringLiteral("0.00");
}

bool AgregarTarjeta(Puesto& p, CajaVoucher& v, int emisor) {
  if (emisor < 0 || emisor >= static_cast<int>(v.emisores.size())) return false;
  const EmisorTarjeta& e = v.emisores[static_cast<size_t>(emisor)];
  const auto alguna = [&v](auto condicion) { return std::any_of(v.pagos.begin(), v.pagos.end(), condicion); };
  if (alguna([](const FilaVoucher& f) { return LeerImporte(f.Pago) == 0; })) {
    p.mensajes.mostrar(QStringLiteral("Ingrese Monto...!!!"));
    return false;
  }
  if (alguna([&e](const FilaVoucher& f) { return f.cod_tar == e.Cod_tar; })) {
    p.mensajes.mostrar(QStringLiteral("Ya se Ingreso Tarjeta...!!!"));
    return false;
  }
  v.pagos.push_back({e.descrip, Formatear(falta(v), kImporte), kSoles, e.Cod_tar});
  cuadrar(v);
  return true;
}

bool PonerPago(CajaVoucher& v, int fila, const QString& texto) {
  const QString t = Recortar(texto);
  if (!t.isEmpty() && (!EsImporte(t) || LeerImporte(t) < 0)) return false;
  v.pagos[static_cast<size_t>(fila)].Pago = ImporteTecleado(t, kImporte);
  cuadrar(v);
  return true;
}

void QuitarTarjeta(CajaVoucher& v, int fila) {
  if (fila < 0 || fila >= static_cast<int>(v.pagos.size())) return;
  v.pagos.erase(v.pagos.begin() + fila);
  cuadrar(v);
}

void RecalculaVueltoVoucher(CajaVoucher& v) {
  v.txtEfectivoSoles = ImporteTecleado(v.txtEfectivoSoles, kImporte);
  if (!v.pagos.empty()) v.txtVueltoSoles = Formatear(qMax(-falta(v), 0.0), kImporte);
}

std::optional<CobroTarjetas> AceptarVoucher(Puesto& p, const CajaVoucher& v) {
  if (LeerImporte(v.txtEfectivoSoles) < 0) {
    p.mensajes.mostrar(QStringLiteral("Error el importe en voucher es mayor al importe de Venta"));
    return {};
  }
  if (v.pagos.empty()) {
    p.mensajes.mostrar(QStringLiteral("Debe seleccionar por lo menos una tarjeta"));
    return {};
  }
  CobroTarjetas cobro{{}, v.txtEfectivoSoles, v.txtVueltoSoles};
  for (const auto& f : v.pagos) cobro.pagos.push_back({f.cod_tar, f.descrip, LeerImporte(f.Pago)});
  return cobro;
}
