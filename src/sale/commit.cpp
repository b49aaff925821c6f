#include "sale/commit.h"

#include "documento/filas.h"
#include "documento/pasos.h"
#include "documento/ticket.h"
#include "documento/totales.h"
#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/puntos.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"
#include "sale/caja_full.h"
#include "sale/caja_totales.h"
#include "sale/pantallas_venta.h"
#include "store/numeracion.h"

namespace {

constexpr int kIntentosCuadre = 3;
const QString kParametros = QStringLiteral("PARAMETROS");

// What lives for the length of one commit. The screen's own kind is left alone, so that a commit that failed can be
// asked again.
struct Venta {
  CajaRegistradoraFull& v;
  PantallasVenta& pantallas;
  ClaseDocumento clase;
  DatosOperacion o;
  NumeroDocumento documento;
  QString tarjeta;
  std::vector<LineaDocumento> lineas;
  double total = 0, igv = 0, servicio = 0;
  EfectivoDocumento efectivo;

  bool factura() const { return o.tipoDoc == u"01"; }
  int local() const { return static_cast<int>(AEntero(Val(o.idLocal))); }  // 0 for none
  ClavePuntos clave() const { return {o.tipoDoc, documento.serie, documento.numero}; }
};

double noNegativo(double valor) { return valor < 0 ? 0 : valor; }

bool esCero(const QString& importe) { return LeerImporte(importe) == 0; }

bool recalcular(Puesto& p, Venta& c) {
  if (c.v.bVoucherListo) return true;
  CalculaTotales(p, c.v);
  CuadraPago(p, c.v);
  return true;
}

bool fijarDocumento(Puesto& p, Venta& c) {
  ConectarCliente(p, true);  // without it the sale goes on
  c.o.ruc = ReemplazarComilla(Recortar(c.v.txtRUC));
  c.o.tipoDoc = c.o.ruc.isEmpty() ? QStringLiteral("02") : QStringLiteral("01");
  c.o.fecha = FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm");
  return true;
}

bool autorizar(Puesto&, Venta& c) {
  bool conPorcentaje = false;
  for (const auto& fila : c.v.lineas) conPorcentaje = conPorcentaje || !esCero(fila[kPorc]);
  c.v.bAcceso = false;
  if (!conPorcentaje) return true;
  const auto supervisor = c.pantallas.autorizar(QStringLiteral("Venta con descuento o recargo"));
  if (!supervisor || Recortar(*supervisor).isEmpty()) return false;
  c.v.txtsupervisor = *supervisor;
  c.v.bAcceso = true;
  return true;
}

bool abrirGaveta(Puesto& p, Venta&) {
  const auto parametro = [&p](const QString& clave) { return LeerParametro(p, kParametros, clave, p.ses.psArchivoCfg); };
  if (Recortar(parametro(QStringLiteral("GAVETA")).toUpper()) == u"S") AbrirGaveta(p, parametro(QStringLiteral("PRINTER")));
  return true;
}

// A sale on which no cash was typed counts as paid exact.
bool completarEfectivo(Puesto&, Venta& c) {
  if (!tipoConEfectivo(c.v.nTipoVenta)) return true;
  for (QString* campo : {&c.v.txtEfectivoSoles, &c.v.txtEfectivoDolares}) {
    if (Recortar(*campo).isEmpty()) *campo = QStringLiteral("0.00");
  }
  if (esCero(c.v.txtEfectivoSoles) && esCero(c.v.txtEfectivoDolares)) c.v.txtEfectivoSoles = c.v.txtSoles;
  return true;
}

LineaDocumento lineaDe(const Puesto& p, const FilaVenta& fila) {
  LineaDocumento l;
  l.cAlmaCode = p.ses.psAlmacen;
  l.cProdCode = static_cast<int>(AEntero(Val(fila[kCod])));
  l.descripcion = fila[kDescripcion];
  l.precio = LeerImporte(fila[kPrecio]);
  l.cantidad = fila[kCant].isEmpty() ? 1 : static_cast<int>(AEntero(LeerImporte(fila[kCant])));
  const double porcentaje = LeerImporte(fila[kPorc]);
  l.porcentaje = fila[kSigno] == u"+" ? porcentaje : 0 - porcentaje;
  l.canje = fila[kCanje];
  l.puntos = static_cast<int>(AEntero(LeerImporte(fila[kPtos])));
  l.conServicio = fila[kConServ] == u"SI";
  return l;
}

bool tomarCodigo(Puesto& p, Venta& c) {
  SeleccionarImpresora(p, esParalela(c.clase) ? p.ses.kPAR_IMPRESORA_ALTERNA : p.ses.kPAR_IMPRESORA);
  if (!CodigoOperacion(p, esParalela(c.clase), c.o.codigo)) return false;
  if (c.clase != kVentaVoucher && !c.v.bVoucherListo) {
    p.ses.poVoucher.clear();
    p.ses.poVoucherTotal = 0;
  }
  if (c.clase == kVentaExacta && !(esCero(c.v.txtVueltoSoles) && esCero(c.v.txtVueltoDolares))) c.clase = kVentaConVuelto;
  for (const auto& fila : c.v.lineas) {
    c.lineas.push_back(lineaDe(p, fila));
    c.igv += LeerImporte(fila[kIgv]);
    c.servicio += LeerImporte(fila[kServ]);
  }
  const QString tarjeta = Recortar(c.v.txtTarjeta);
  if (!tarjeta.isEmpty()) c.tarjeta = Ceros(tarjeta, 8);
  c.o.tarjeta = ReemplazarComilla(c.tarjeta);
  // Stands bare in the statements, so nothing but a number may reach them.
  const QString local = Recortar(c.v.txtLocal);
  c.o.idLocal = EsNumerico(local) ? TextoDe(Val(local)) : QStringLiteral("NULL");
  return true;
}

EfectivoDocumento efectivoDe(const QString& soles, const QString& dolares, const QString& vueltoSoles,
                             const QString& vueltoDolares) {
  return {LeerImporte(soles), LeerImporte(dolares), noNegativo(LeerImporte(vueltoSoles)),
          noNegativo(LeerImporte(vueltoDolares))};
}

EfectivoDocumento efectivoDeLaCaja(const CajaRegistradoraFull& v) {
  return efectivoDe(v.txtEfectivoSoles, v.txtEfectivoDolares, v.txtVueltoSoles, v.txtVueltoDolares);
}

EfectivoDocumento efectivoDeLaLiquidacion(const CajaRegistradoraFull& v) {
  return efectivoDe(v.txtliqefectivosoles, v.txtliqefectivodolares, v.txtliqvueltosoles, v.ttxliqvueltodolares);
}

void leerImportes(Venta& c) {
  c.total = LeerImporte(c.v.txtSoles);
  c.efectivo = c.v.bVoucherListo && c.v.bLiquidando ? efectivoDeLaLiquidacion(c.v) : efectivoDeLaCaja(c.v);
}

bool cuadrar(Puesto& p, Venta& c) {
  for (int i = 0; i < kIntentosCuadre; ++i) {
    leerImportes(c);
    const double entra = Redondear(p.ses.pnTipoCambio * c.efectivo.dolares + c.efectivo.soles, 2);
    const double sale = Redondear(p.ses.pnTipoCambio * c.efectivo.vueltoDolares + c.efectivo.vueltoSoles, 2);
    if (!datosDe(c.clase).cuadra || Redondear(entra - sale, 2) == Redondear(c.total, 2)) break;
    p.mensajes.mostrar(QStringLiteral("Ocurrio un error de Cálculo"));
  }
  return true;
}

bool cargarCabecera(Puesto& p, Venta&) { return CargarCabeceraImpresion(p); }

bool reservar(Puesto& p, Venta& c) {
  if (!ReservarDocumento(p, c.o.tipoDoc, kLogCajaFull, c.documento)) return false;
  c.o.numero = c.documento.numero;
  c.o.serie = ReemplazarComilla(c.documento.serie);
  return true;
}

CifrasVenta cifrasDe(const Puesto& p, const Venta& c) {
  CifrasVenta x;
  x.factura = c.factura();
  x.total = c.total;
  x.igv = x.factura ? c.igv : 0;
  x.servicio = c.servicio;
  x.porcServ = p.ses.psPorcServ;
  x.efectivo = c.efectivo;
  if (c.clase == kVentaVoucher || (c.v.bLiquidando && c.v.bVoucherListo)) x.voucher = p.ses.poVoucher;
  if (c.v.bLiquidando) x.liquidacion = {efectivoDeLaLiquidacion(c.v), LeerImporte(c.v.txtliqpade)};
  return x;
}

bool imprimir(Puesto& p, Venta& c) {
  const bool paralela = esParalela(c.clase);
  const int impresora = paralela ? kImpresoraAlterna : kImpresoraPrincipal;
  DatosTicket t;
  t.clase = c.clase;
  t.factura = c.factura();
  t.cabecera = p.ses.psCabeceraImpresion;
  t.tarjeta = c.tarjeta;
  t.nombre = c.v.txtNombres;
  t.ruc = c.v.txtRUC;
  t.serie = c.documento.serie;
  t.numero = c.documento.numero;
  t.serieImpresora = paralela ? p.ses.psSerieImpresoraAlterna : p.ses.psSerieImpresora;
  t.dolares = c.efectivo.dolares > 0;
  t.tipoCambio = p.ses.pnTipoCambio;
  t.lineas = c.lineas;
  t.totales = TotalesVenta(c.clase, cifrasDe(p, c));
  t.puntos = PuntosDelTicket(p, c.clave(), c.tarjeta, c.local(), c.total);
  t.momento = p.reloj.now();
  if (c.v.bAcceso) t.supervisor = c.v.txtsupervisor;
  t.usuario = p.ses.psUsuario;
  t.caja = p.ses.psCaja;
  t.turno = p.ses.psTurno;
  t.correlativo = CorrelativoImpresion(p, impresora);
  ImprimirDocumento(p, TextoTicket(t), impresora);
  return true;
}

// Once more, now that the paper is out: the rows must not take a number that the store has seen meanwhile.
bool verificar(Puesto& p, Venta& c) {
  if (!VerificarNumeroDocumento(p, c.o.tipoDoc, kLogCajaFull, c.documento)) return false;
  c.o.numero = c.documento.numero;
  return GuardarUltimaOperacion(p, c.o.tipoDoc, c.o.codigo, c.o.numero);
}

bool grabarLineas(Puesto& p, Venta& c) {
  for (const auto& pago : p.ses.poVoucher) c.o.emisor += u',' + ReemplazarComilla(pago.cod_tar);
  c.o.tipo = c.v.bLiquidando ? 3 : c.v.nTipoVenta;
  c.o.liquidacion = c.v.bLiquidando ? AEntero(Val(c.v.txtLiq)) : 0;
  for (const auto& linea : c.lineas) {
    if (!GrabarLinea(p, c.o, linea, c.v.txtsupervisor)) return false;
  }
  return true;
}

bool acumular(Puesto& p, Venta& c) {
  AcumularPuntos(p, c.tarjeta, c.clave(), LeerImporte(c.v.txtSoles), c.local());
  return true;
}

bool grabarEfectivo(Puesto& p, Venta& c) {
  c.efectivo = efectivoDeLaCaja(c.v);
  if (c.efectivo.soles <= 0 && c.efectivo.dolares <= 0) return true;
  c.o.tipo = c.v.bLiquidando ? 3 : 1;  // also for the cash part of a voucher sale
  return GrabarEfectivo(p, c.o, c.efectivo);
}

bool limpiar(Puesto& p, Venta& c) {
  c.v.bLiquidando = false;
  CancelarVenta(p, c.v);
  return true;
}

const Paso<Venta> kPasosVenta[] = {
    {"recalcular", recalcular},     {"documento", fijarDocumento}, {"supervisor", autorizar},
    {"gaveta", abrirGaveta},        {"exacto", completarEfectivo}, {"codigo", tomarCodigo},
    {"cuadre", cuadrar},            {"cabecera", cargarCabecera},  {"numero", reservar},
    {"ticket", imprimir},           {"verificar", verificar},      {"lineas", grabarLineas},
    {"puntos", acumular},           {"efectivo", grabarEfectivo},  {"limpiar", limpiar},
};

const struct {
  TipoVenta tipo;
  ClaseDocumento clase;
  std::span<const Paso<Venta>> pasos;
} kCommits[] = {
    {kEfectivo, kVentaExacta, kPasosVenta},
    {kVoucher, kVentaVoucher, kPasosVenta},
};

}  // namespace

void GrabarVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  for (const auto& commit : kCommits) {
    if (commit.tipo != v.nTipoVenta) continue;
    Venta venta{v, pantallas, commit.clase, {}, {}, {}, {}, 0, 0, 0, {}};
    EjecutarPasos<Venta>(p, venta, commit.pasos);
    break;
  }
  if (v.bVoucherListo) return;
  p.ses.poVoucher.clear();
  p.ses.poVoucherTotal = 0;
}
