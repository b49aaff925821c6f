#include "sale/caja_full.h"

#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_adelanto.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/caja_full_totales.h"
#include "sale/pantallas_venta.h"

namespace {

const QString kCero = QStringLiteral("0.00");

void vaciarVenta(CajaRegistradoraFull& v) {
  v.rejilla = {};
  v.txtTarjeta.clear();
  v.txtRUC.clear();
  OlvidarCliente(v);
  for (QString* campo : {&v.txtSoles, &v.txtDolares, &v.txtTotalPA, &v.txtTotalNC}) campo->clear();
  PonerTipo(v, TipoVenta::Efectivo);
}

bool esNegativo(const QString& campo) { return LeerImporte(campo) < 0; }

}  // namespace

void Inicio(Puesto& p, CajaRegistradoraFull& v, bool conservarLineas) {
  for (auto& lista : v.lvwTX) lista.clear();
  for (QString& codigo : v.txtTXL) codigo.clear();
  v.tipos.clear();
  for (const auto& t : tiposDeVenta()) v.tipos.push_back(t.tipo);
  CargarLocales(p, v);
  v.localVisible = false;
  v.txtTC = Formatear(p.ses.pnTipoCambio, u"0.00");

  if (!conservarLineas) vaciarVenta(v);

  v.txtCajero = p.ses.psUsuario;
  v.txtCaja = p.ses.psCaja;
  v.txtTurno = p.ses.psTurno;
  v.lblFecha = FormatearFecha(p.reloj.now(), u"dd/mm/yyyy");
  v.txtPagoAdelantado = v.txtPADEDolares = QStringLiteral("0");
  v.txtGlosa.clear();
  v.txtGlosa1.clear();

  LeerReglaPunto(p);
}

void PonerTipo(CajaRegistradoraFull& v, TipoVenta tipo) {
  v.nTipoVenta = tipo;
  v.efectivoTecleado = false;
  v.txtEfectivoSoles = v.txtEfectivoDolares = v.txtVueltoSoles = v.txtVueltoDolares = kCero;
  for (QString* campo : {&v.txtPADE, &v.txtimportepago, &v.txtGlosa1, &v.txtTX, &v.txtGlosa}) campo->clear();
  const PantallaTipo& pantalla = pantallaDe(tipo);
  v.pestana = qMax(0, pantalla.unicaPestana);
  if (!pantalla.rucEditable) v.txtRUC.clear();
}

void CambiarTipo(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, TipoVenta tipo) {
  if (tipo == TipoVenta::Anular || tipo == TipoVenta::Recaudacion) {
    if (tipo == TipoVenta::Anular) {
      pantallas.anular();
      QuitarNoVigentes(p, v);
    } else {
      pantallas.retiro();
    }
    tipo = v.tipos.front();
  }
  PonerTipo(v, tipo);
  if (tipo == TipoVenta::LIQPAD) TotalesTX(p, v);
  else SumarLineas(p, v);
}

bool SinEmpezar(const CajaRegistradoraFull& v) {
  const bool conMonto = LeerImporte(v.txtPagoAdelantado) > 0 || LeerImporte(v.txtPADEDolares) > 0;
  if (conMonto && pantallaDe(v.nTipoVenta).panel == PanelTipo::MontoAdelantado) return false;
  if (v.nTipoVenta == TipoVenta::LIQPAD && !(v.lvwTX[0].empty() && v.lvwTX[1].empty())) return false;
  return SinLineas(v.rejilla);
}

std::optional<Foco> ValidaVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const PantallaTipo& pantalla = pantallaDe(v.nTipoVenta);
  if (pantalla.panel == PanelTipo::DatosPago && v.txtPADE.isEmpty()) {
    BuscarAdelanto(v, pantallas);
    return Foco{QStringLiteral("txtPADE")};
  }
  if (v.pestana == 2 && v.lvwTX[1].empty()) {
    p.mensajes.mostrar(QStringLiteral("Debe seleccionar Nota de Consumo a Liquidar"));
    return Foco{QStringLiteral("txtTXL(1)")};
  }
  // The change in soles is computed: what puts it right is the cash.
  const bool vueltoDolares = esNegativo(v.txtVueltoDolares), efectivoSoles = esNegativo(v.txtEfectivoSoles);
  if (vueltoDolares || (esNegativo(v.txtVueltoSoles) && !v.liquidacion)) {
    p.mensajes.mostrar(QStringLiteral("No se puede registrar la operacion si el vuelto es negativo"));
    return Foco{vueltoDolares ? QStringLiteral("txtVueltoDolares") : QStringLiteral("txtEfectivoSoles")};
  }
  if (efectivoSoles || (esNegativo(v.txtEfectivoDolares) && !v.liquidacion)) {
    p.mensajes.mostrar(QStringLiteral("No se puede registrar la operacion si el efectivo es negativo"));
    return Foco{efectivoSoles ? QStringLiteral("txtEfectivoSoles") : QStringLiteral("txtEfectivoDolares")};
  }
  // Whatever tab is in front: a kind that sells lines never goes out without an article.
  if (pantalla.llevaLineas) {
    if (const auto fila = FilaSinArticulo(v.rejilla)) {
      v.pestana = 0;
      p.mensajes.mostrar(QStringLiteral("Debe registrar un artìculo."));
      return Foco{QStringLiteral("TDBGrid1"), *fila};
    }
  }
  if (!RucAceptado(p, v.txtRUC)) return Foco{QStringLiteral("txtRUC")};
  return {};
}

void CancelarVenta(Puesto& p, CajaRegistradoraFull& v) {
  v.rejilla = {};
  Inicio(p, v);
}
