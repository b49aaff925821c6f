#include "sale/caja_full_adelanto.h"

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/pantallas_venta.h"

namespace {

void tomar(CajaRegistradoraFull& v, const DocumentoElegido& d) {
  v.txtPADE = v.txtTX = d.codigo > 0 ? QString::number(d.codigo) : QString();
  v.txtimportepago = d.importe;
  v.txtGlosa1 = d.glosa;
}

}  // namespace

void BuscarAdelanto(CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  if (const auto elegido = pantallas.buscarParalela(ListaParalela::PagoAdelantado)) tomar(v, *elegido);
}

void VerAdelantos(CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const bool emitiendo = v.nTipoVenta == TipoVenta::PADE || v.nTipoVenta == TipoVenta::PADV;
  const auto elegido = pantallas.buscarParalela(ListaParalela::PagoAdelantado, emitiendo);
  if (!elegido) return;
  if (v.nTipoVenta == TipoVenta::NC) tomar(v, *elegido);
  else v.txtTX = QString::number(elegido->codigo);
}

void AvisarVentaFutura(Puesto& p) {
  p.mensajes.mostrar(QStringLiteral("Este documento es de Venta Futura: no se usa en la caja registradora."));
}

bool SalirAdelanto(Puesto& p, CajaRegistradoraFull& v, const QString& codigo) {
  const QString tecleado = Recortar(codigo);
  if (!tecleado.isEmpty() && tecleado == v.txtPADE && tecleado == v.txtTX && !v.txtimportepago.isEmpty()) return true;
  DocumentoElegido d;
  Recordset rs;
  if (!tecleado.isEmpty() &&
      !p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT cOperCode, nMoneda, nMontoSoles, nMontoDolares, sGlosa FROM OperacionParalela"
                       " WHERE cOperCode = $ AND cOperTipo IN ($) AND cEstado = '1'"_sql,
                       {Val(tecleado), Codigos({TipoOperacion::PADE, TipoOperacion::PADV})}),
          rs)) {
    return false;
  }
  if (!rs.Eof() && EsVentaFutura(LimpiarNulo(rs[u"sGlosa"]))) {
    AvisarVentaFutura(p);
  } else if (!rs.Eof()) {
    const bool dolares = Numero(rs[u"nMoneda"]) == 2;
    d.codigo = AEntero(Numero(rs[u"cOperCode"]));
    d.importe = (dolares ? QStringLiteral("US$ ") : QStringLiteral("S/. ")) +
                Formatear(Numero(dolares ? rs[u"nMontoDolares"] : rs[u"nMontoSoles"]), u"0.00");
    d.glosa = LimpiarNulo(rs[u"sGlosa"]);
  }
  tomar(v, d);
  return true;
}

void EntrarMonto(CajaRegistradoraFull& v, bool dolares) {
  (dolares ? v.txtPagoAdelantado : v.txtPADEDolares) = QStringLiteral("0.00");
}

void SalirMonto(QString& campo) {
  const QString texto = Recortar(campo);
  if (texto.isEmpty() || EsImporte(texto)) campo = Formatear(LeerImporte(texto), u"0.00");
}
