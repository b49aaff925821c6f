// The steps of the documents that are kept beside the sales.
#include "documento/totales.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_liquidacion.h"
#include "sale/importe_tecleado.h"
#include "sale/pantallas_venta.h"
#include "sale/pasos_venta.h"
#include "store/numeracion.h"

namespace {

// An amount paid in advance: blank is 0, anything else that is no number isn't one.
bool leer(const QString& campo, double& importe) {
  const QString texto = Recortar(campo);
  if (!texto.isEmpty() && !EsImporte(texto)) return false;
  importe = LeerImporte(texto);
  return true;
}

double conMascara(double importe) { return LeerImporte(Formatear(importe, u"0.00")); }

LineaDocumento lineaDe(const Recordset::Fila& f) {
  LineaDocumento l;
  l.cProdCode = static_cast<int>(AEntero(Numero(f[u"cProdCode"])));
  l.descripcion = LimpiarNulo(f[u"sProdDescCrta"]);
  l.cantidad = static_cast<int>(AEntero(Numero(f[u"nProdCant"])));
  l.precio = Numero(f[u"nProdPrecUnit"]);
  l.porcentaje = Numero(f[u"nDscto"]);
  return l;
}

// The keys of the quick register that an article is bound to stay out: two of them would count it twice.
QString consultaNota(qint64 codigo) {
  return QStringLiteral(" SELECT O.cOperCode, O.cProdCode, O.nProdCant, O.nProdPrecUnit, O.nDscto, P.sProdDescCrta"
                        " FROM OperacionParalelaProducto O INNER JOIN Producto P"
                        " ON O.cProdCode = P.cProdCode AND O.cAlmaCode = P.cAlmaCode"
                        " Where cOperCode = ") +
         QString::number(codigo);
}

qint64 relacionDe(const Venta& c) {
  if (c.clase == ClaseDocumento::NC) return AEntero(Val(c.v.txtTX));
  return c.clase == ClaseDocumento::OC && c.v.bLiquidando ? AEntero(Val(c.v.txtLiq)) : 0;
}

}  // namespace

bool pasos::ExigirAdelanto(Puesto& p, Venta& c) {
  double soles = 0, dolares = 0;
  if (!leer(c.v.txtPagoAdelantado, soles) || !leer(c.v.txtPADEDolares, dolares)) return false;
  if (soles >= 0 && dolares >= 0 && soles + dolares > 0) return true;
  p.mensajes.mostrar(QStringLiteral("Debe registar una cantidad mayor que cero."));
  return false;
}

bool pasos::LeerAdelanto(Puesto& p, Venta& c) {
  DatosParalela& d = c.paralela;
  c.total = LeerImporte(c.v.txtSoles);
  c.efectivo = {LeerImporte(c.v.txtPagoAdelantado), LeerImporte(c.v.txtPADEDolares), 0, 0};
  d.moneda = c.efectivo.dolares > 0 ? 2 : 1;
  if (d.moneda == 2) {
    d.montoDolares = c.efectivo.dolares;
    d.montoSoles = conMascara(p.ses.pnTipoCambio * d.montoDolares);
  } else {
    d.montoSoles = c.efectivo.soles;
    d.montoDolares = p.ses.pnTipoCambio > 0 ? conMascara(d.montoSoles / p.ses.pnTipoCambio) : 0;
  }
  return true;
}

bool pasos::LeerNotas(Puesto& p, Venta& c) {
  for (const LineaTX& item : c.v.lvwTX[1]) {
    NotaTicket nota;
    nota.tx = AEntero(Val(item.tx));
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consultaNota(nota.tx), rs)) return false;
    for (const auto& f : rs) {
      nota.lineas.push_back(lineaDe(f));
      const ImportesLinea i = ImportesDe(nota.lineas.back());
      c.subtotal += i.importe + i.descuento;
    }
    c.notas.push_back(nota);
  }
  return true;
}

bool pasos::GuardarCifras(Puesto&, Venta& c) {
  CajaRegistradoraFull& v = c.v;
  if (!v.bVoucherListo) {
    const std::pair<QString*, const QString*> campos[] = {{&v.txtliqefectivosoles, &v.txtEfectivoSoles},
                                                          {&v.txtliqefectivodolares, &v.txtEfectivoDolares},
                                                          {&v.txtliqvueltosoles, &v.txtVueltoSoles},
                                                          {&v.ttxliqvueltodolares, &v.txtVueltoDolares}};
    for (const auto& [guardado, campo] : campos) {
      *guardado = Recortar(*campo).isEmpty() ? QStringLiteral("0.00") : *campo;
    }
  }
  v.txtliqpade = v.txtTotalPA.isEmpty() ? QStringLiteral("0.00") : v.txtTotalPA;
  v.txtLiq = QString::number(c.o.codigo);
  return true;
}

bool pasos::FijarParalela(Puesto& p, Venta& c) {
  DatosParalela& d = c.paralela;
  c.o.tipo = DatosDe(c.clase).operacion;
  d.efectivo = c.efectivo;
  if (d.moneda == 0) {
    d.montoSoles = c.total;
    d.montoDolares = LeerImporte(c.v.txtDolares);
    d.efectivo.soles = qMax(0.0, d.efectivo.soles);
    d.efectivo.dolares = qMax(0.0, d.efectivo.dolares);
  }
  if (c.clase == ClaseDocumento::OC) c.v.txtGlosa = c.v.txtNombres;
  d.glosa = c.v.txtGlosa;
  d.relacion = relacionDe(c);
  // The row of the money carries the series of the boletas.
  if (DatosDe(c.clase).dejaDinero && !SerieDeBoletas(p, c.serieDinero)) return false;

  CifrasParalela x;
  x.total = c.total;
  x.servicio = c.servicio;
  x.porcServ = p.ses.psPorcServ;
  x.efectivo = c.efectivo;
  x.moneda = d.moneda;
  x.montoSoles = d.montoSoles;
  x.montoDolares = d.montoDolares;
  x.subtotal = c.subtotal;
  x.adelanto = LeerImporte(c.v.txtTotalPA);
  if (c.v.bVoucherListo) x.voucher = p.ses.poVoucher;
  if (c.v.bLiquidando) x.liquidacion = {EfectivoDe(c.v, true), LeerImporte(c.v.txtliqpade)};
  c.totales = TotalesParalela(c.clase, x);
  return true;
}

bool pasos::RechazarRepetida(Puesto& p, Venta& c) {
  bool repetida = false;
  if (!EsRepetida(p, c.o, c.paralela, repetida)) return false;
  if (!repetida) return true;
  // The number goes back; any failure has shown its box.
  (void)GuardarUltimaOperacion(p, c.o.documento, c.o.codigo - 1, c.o.numero - 1);
  return false;
}

bool pasos::GrabarCabeza(Puesto& p, Venta& c) { return GrabarParalela(p, c.o, c.paralela); }

bool pasos::GrabarLineas(Puesto& p, Venta& c) {
  for (const auto& linea : c.lineas) {
    if (!GrabarLineaParalela(p, c.o, linea, c.v.txtsupervisor)) return false;
  }
  return true;
}

bool pasos::GrabarEfectivo(Puesto& p, Venta& c) {
  const EfectivoDocumento& e = c.paralela.efectivo;
  if (e.soles <= 0 && e.dolares <= 0) return true;
  c.o.tipo = c.v.bLiquidando                     ? TipoOperacion::Liquidado
             : c.v.bVoucherListo && e.soles == 0 ? TipoOperacion::Voucher
                                                 : TipoOperacion::Efectivo;
  c.o.liquidacion = c.v.bLiquidando ? AEntero(Val(c.v.txtLiq)) : 0;
  return GrabarEfectivoParalelo(p, c.o, c.serieDinero, e);
}

bool pasos::GrabarTarjetas(Puesto& p, Venta& c) {
  if (!c.v.bVoucherListo) return true;
  c.o.tipo = TipoOperacion::Voucher;
  const EfectivoDocumento& e = c.paralela.efectivo;
  return GrabarTarjetaParalela(p, c.o, c.serieDinero, c.total - e.soles + e.vueltoSoles);
}

bool pasos::Liquidar(Puesto& p, Venta& c) {
  if (!CerrarParalela(p, c.o.codigo)) return false;
  for (const auto& lista : c.v.lvwTX) {
    for (const LineaTX& item : lista) {
      if (!CerrarParalela(p, AEntero(Val(item.tx)), c.o.codigo)) return false;
    }
  }
  return true;
}

bool pasos::PedirDocumento(Puesto& p, Venta& c) { return CargaLiquidacion(p, c.v, c.o.codigo); }
