#include "credit/pagos.h"

#include <utility>

#include "credit/acto_credito.h"
#include "credit/detraccion.h"
#include "credit/estado_documento.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr QStringView kImporte = u"0.00";
const QString kBancoDetraccion = QStringLiteral("02");

Sql consultaPagos(const DocumentoPorPagar& d) {
  return FormatearSQL(
      u"select P.cSerieDocPago,P.NroDocPago,P.FechaPago,"
      "(select vDscTipoPago from tipoformapago where cCodTipoPago=P.FormaPago) AS FormaPagoDsc,"
      " Case P.FormaPago when '02' then (select descrip from tipo_tarjeta where cod_tar=P.IdTarjeta)"
      " when '03' then P.NroCertificadoRetencion"
      " when '04' then (select vDscBanco from banco where cCodBanco=P.IdBanco) Else '' end AS DocFormaPago,"
      " P.Monto, Case P.Moneda when 'N' then 'Soles' Else 'Dolares' End AS Moneda"
      " from Pagos P Where P.TipoDoc='$' and P.cSerieDoc='$' and P.NroDoc='$' and P.FechaAnulacion is null"
      " order by P.NroItem"_sql,
      {Texto(d.TipoDoc), Texto(d.cSerieDoc), Texto(d.NroDoc)});
}

PagoHecho pagoDe(const Recordset::Fila& f) {
  return {LimpiarNulo(f[u"cSerieDocPago"]),
          LimpiarNulo(f[u"NroDocPago"]),
          FormatearFecha(f[u"FechaPago"].toDateTime(), u"dd/mm/yyyy"),
          LimpiarNulo(f[u"FormaPagoDsc"]),
          LimpiarNulo(f[u"DocFormaPago"]),
          Formatear(Numero(f[u"Monto"]), kImporte),
          LimpiarNulo(f[u"Moneda"])};
}

void mostrarEstado(TabPagos& v, const EstadoDocumento& e) {
  v.enDolares = e.enDolares;
  v.detraccion = e.detraccion;
  v.lblNroDocumento2 = e.serie + u'-' + e.numero;
  v.lblMoneda = e.enDolares ? QStringLiteral("DOLARES") : QStringLiteral("SOLES");
  v.lblCliente = e.cliente;
  v.lblSaldoSoles = Formatear(e.saldo(), kImporte);
  v.lblSaldoDolares = Formatear(e.saldoUSD(), kImporte);
  v.cboTipoDocumento1 = e.doc == DocCredito::FADE ? 0 : 1;
  v.lblDetraccion = e.detraccion && e.saldoPropio() == 0;
}

bool leer(Puesto& p, TabPagos& v, const DocumentoPorPagar& d) {
  const Ocupado ocupado(p.mensajes, QStringLiteral("Leyendo el documento…"));
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return false;
  const auto doc = DocCreditoDe(d.TipoDoc).value_or(DocCredito::FADE);
  EstadoDocumento e;
  Recordset pagos;
  if (!LeerAbierto(p, central, DeNumero(doc, d.cSerieDoc, d.NroDoc), e) ||
      !p.poDBAdmin.EjecutarConsulta(central, consultaPagos(d), pagos) ||
      !LeerCuentaDetraccion(p, central, v.cuentaDetraccion)) {
    return false;
  }
  p.poDBAdmin.CerrarBD(central);
  for (const auto& f : pagos) v.dgdPagos.push_back(pagoDe(f));
  mostrarEstado(v, e);
  return true;
}

}  // namespace

void LimpiarPagos(const Puesto& p, TabPagos& v) {
  const QString ultimo = v.ultimo;
  v = {};
  v.ultimo = ultimo;
  v.DTPFechaPago = HoyTecleado(p);
}

std::optional<QString> BuscarDocumentoPago(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas) {
  const auto doc = DocCreditoDe(v.pago.cboTipoDocumento1);
  if (!doc) {
    p.mensajes.mostrar(QStringLiteral("Seleccione tipo documento"));
    return QStringLiteral("cboTipoDocumento1");
  }
  const auto elegido = pantallas.documentoPorPagar(*doc);
  if (!elegido) return {};
  v.pago.ultimo.clear();
  CargarPagos(p, v.pago, *elegido);
  return v.pago.documento ? QStringLiteral("dcbFormaPago") : QStringLiteral("cboTipoDocumento1");
}

void CargarPagos(Puesto& p, TabPagos& v, DocumentoPorPagar documento) {
  LimpiarPagos(p, v);
  if (leer(p, v, documento)) v.documento = std::move(documento);
  else LimpiarPagos(p, v);
}

CamposForma CamposDelPago(const CajaFacturacionPagos& v) {
  const QString forma = CodigoElegido(v.referencias.formas, v.pago.dcbFormaPago);
  return {forma == u"02", forma == u"03", forma == u"04"};
}

void CambiarForma(CajaFacturacionPagos& v) {
  TabPagos& t = v.pago;
  t.chkEsDetraccion = false;
  t.txtNroCuenta.clear();
  t.txtMontoSoles.clear();
  t.txtMontoDolares.clear();
  const CamposForma campos = CamposDelPago(v);
  if (!campos.banco) t.dcbBanco = -1;
  if (!campos.tarjeta) t.dcbTarjeta = -1;
}

void CambiarBanco(CajaFacturacionPagos& v) {
  TabPagos& t = v.pago;
  t.chkEsDetraccion = t.detraccion && CodigoElegido(v.referencias.bancos, t.dcbBanco) == kBancoDetraccion;
  t.txtNroOperacion.clear();
  t.txtMontoDolares.clear();
  t.txtNroCuenta = t.chkEsDetraccion ? t.cuentaDetraccion : QString();
  t.txtMontoSoles = t.chkEsDetraccion ? Formatear(*t.detraccion, kImporte) : QString();
  if (t.chkEsDetraccion) t.cboMoneda1 = 0;
}

bool MontoEditable(const TabPagos& v, bool enDolares) {
  return !v.chkEsDetraccion && v.cboMoneda1 == (enDolares ? 1 : 0);
}

void CambiarMontoPago(const Puesto& p, TabPagos& v) {
  if (v.cboMoneda1 < 0) return;
  const bool enDolares = v.cboMoneda1 == 1;
  const QString& tecleado = enDolares ? v.txtMontoDolares : v.txtMontoSoles;
  QString& otro = enDolares ? v.txtMontoSoles : v.txtMontoDolares;
  if (Recortar(tecleado).isEmpty()) otro.clear();
  if (!EsNumerico(tecleado)) return;
  const ImporteDoble i = ImporteDe(LeerImporte(tecleado), enDolares, p.ses.pnTipoCambio);
  otro = Formatear(qAbs(enDolares ? i.soles : i.dolares), kImporte);
}

void ActualizarDetraccion(Puesto& p, TabPagos& v) {
  if (!v.documento) return;
  const auto voucher = p.mensajes.pedir(QStringLiteral("Ingrese Nro Voucher Pago:"), QStringLiteral("Requerido"));
  if (!voucher || Recortar(*voucher).isEmpty()) return;
  const QString nota = QStringLiteral("Cancelado por FA - Nro Voucher: ") + Recortar(*voucher);
  Conexion central;
  qint64 filas = 0;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return;
  const bool hecho = p.poDBAdmin.EjecutarSentencia(
      central,
      FormatearSQL(u"UPDATE Detraccion SET Estado='C',Observaciones='$' WHERE SerieDoc='$' AND NroDoc='$'"
                   " AND Estado='P'"_sql,
                   {Texto(nota), Texto(v.documento->cSerieDoc), Texto(v.documento->NroDoc)}),
      true, &filas);
  p.poDBAdmin.CerrarBD(central);
  if (!hecho) return;
  p.mensajes.mostrar(filas > 0 ? QStringLiteral("Se actualizó el pago de Detraccion satisfactoriamente...")
                               : QStringLiteral("La detracción de este documento ya no está pendiente."),
                     QStringLiteral("Mensaje"));
  LimpiarPagos(p, v);
}

void AnularPago(Puesto& p, TabPagos& v, PantallasCredito& pantallas, int fila) {
  if (!v.documento || fila < 0 || fila >= static_cast<int>(v.dgdPagos.size())) {
    p.mensajes.mostrar(QStringLiteral("Debe seleccionar un pago...!"), QStringLiteral("Mensaje"));
    return;
  }
  const PagoHecho pago = v.dgdPagos[static_cast<size_t>(fila)];
  pantallas.anularPago(Recortar(pago.serie), Recortar(pago.numero));
  CargarPagos(p, v, *v.documento);
}
