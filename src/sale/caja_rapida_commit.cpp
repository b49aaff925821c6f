#include "sale/caja_rapida_commit.h"

#include "documento/commit_documento.h"
#include "documento/pasos.h"
#include "documento/totales.h"
#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "loyalty/puntos.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_rapida.h"
#include "sale/pantallas_venta.h"

namespace {

constexpr QStringView kImporte = u"###,###,##0.00";

const FormaLineas kForma{QStringLiteral("Producto           Cant. Precio SubTot."),
                         18,
                         4,
                         6,
                         7,
                         kImporte.toString(),
                         QStringLiteral("###,##0.00"),
                         QStringLiteral("T:")};

struct VentaRapida : CommitDocumento {
  VentaRapida(CajaRegistradora& caja, PantallasVenta& otras) : v(caja), pantallas(otras) {
    clase = v.clase;
    o.breve = true;
    forma = kForma;
    logReserva.sinCentral = QStringLiteral("Error_Rapida_1");
    logFinal.sinCentral = QStringLiteral("Error_Rapida2");
  }

  CajaRegistradora& v;
  PantallasVenta& pantallas;
};

bool decidirDocumento(Puesto&, VentaRapida& c) {
  FijarTipoDocumento(c, c.v.txtRuc);
  return true;
}

// The desk sells on when its counter can't be read; the check before the ticket holds any number against what is
// stored.
bool leerNumero(Puesto& p, VentaRapida& c) {
  if (LeerNumeroDocumento(p, c.o.documento, c.documento)) return true;
  const auto parametro = [&p](const QString& clave) {
    return LeerParametro(p, QStringLiteral("PARAMETROS"), clave, p.ses.psArchivoCfg);
  };
  QString& serie = c.factura() ? p.ses.psSerieFactura : p.ses.psSerieBoleta;
  const QString propia = parametro(c.factura() ? QStringLiteral("SerieFAC") : QStringLiteral("SerieBOL"));
  if (!propia.isEmpty()) serie = propia;
  if (serie.isEmpty()) serie = u'0' + Derecha(p.ses.psCaja, 2);
  c.documento.serie = serie;
  c.documento.numero = 1 + AEntero(Val(parametro(c.factura() ? QStringLiteral("cOpeF") : QStringLiteral("cOpeB"))));
  return true;
}

bool leerCliente(Puesto&, VentaRapida& c) {
  FijarCliente(c, c.v.txtTarjeta, c.v.txtLocal);
  c.nombre = c.v.txtNombres;
  c.idLocal = c.v.nIdLocal;
  return true;
}

bool totalizar(Puesto&, VentaRapida& c) {
  TotalVenta(c.v);
  c.total = Redondear(c.v.nTotalVenta, 2);
  c.lineas.assign(c.v.lineas.begin(), c.v.lineas.end());
  return true;
}

bool cobrar(Puesto&, VentaRapida& c) {
  if (c.clase == ClaseDocumento::VentaExacta) c.efectivo.soles = c.total;
  if (c.clase != ClaseDocumento::VentaConVuelto) return true;
  const auto pago = c.pantallas.pagoEfectivo(c.total);
  if (pago) c.efectivo = *pago;
  return pago.has_value();
}

// Number and series against what is stored; from here on they are used.
bool reservarSuNumero(Puesto& p, VentaRapida& c) {
  if (!VerificarNumeroDocumento(p, c.o.documento, c.logReserva, c.documento) ||
      !GuardarNumeroDocumento(p, c.o.documento, c.documento)) {
    return false;
  }
  c.o.serie = c.documento.serie;
  return true;
}

ImpuestosImporte sumarImpuestos(const Puesto& p, const std::vector<LineaDocumento>& lineas) {
  ImpuestosImporte suma;
  for (const auto& l : lineas) {
    const ImpuestosImporte i = ImpuestosDe(p, l.precio, l.conServicio);
    suma.igv += i.igv * l.cantidad;
    suma.servicio += i.servicio * l.cantidad;
  }
  return suma;
}

bool escribirTotales(Puesto& p, VentaRapida& c) {
  const ImpuestosImporte i = sumarImpuestos(p, c.lineas);
  const auto renglon = [&c](const QString& etiqueta, double valor) {
    c.totales.push_back({etiqueta, Formatear(valor, kImporte)});
  };
  const auto servicio = [&] {
    if (Redondear(i.servicio, 2) > 0) renglon(QStringLiteral(" SERVICIO%1 %").arg(p.ses.psPorcServ), i.servicio);
  };
  if (c.factura()) {
    renglon(QStringLiteral(" VALOR VTA"), c.total - i.igv - i.servicio);
    renglon(QStringLiteral(" IGV"), i.igv);
    servicio();
    renglon(QStringLiteral(" TOTAL"), c.total);
  } else {
    renglon(c.clase == ClaseDocumento::VentaExacta    ? QStringLiteral(" EFECTIVO")
            : c.clase == ClaseDocumento::VentaVoucher ? QStringLiteral(" VOUCHER")
                                                      : QStringLiteral(" TOTAL VTA"),
            c.total);
    servicio();
  }
  if (c.clase != ClaseDocumento::VentaConVuelto) return true;
  const std::pair<QString, double> pagos[] = {{QStringLiteral(" EFECTIVO(S/)"), c.efectivo.soles},
                                              {QStringLiteral(" EFECTIVO(U$)"), c.efectivo.dolares},
                                              {QStringLiteral(" VUELTO(S/)"), c.efectivo.vueltoSoles},
                                              {QStringLiteral(" VUELTO(U$)"), c.efectivo.vueltoDolares}};
  for (const auto& [etiqueta, valor] : pagos) {
    if (Redondear(valor, 2) != 0) renglon(etiqueta, valor);
  }
  return true;
}

bool escribirVenta(Puesto& p, VentaRapida& c) {
  c.o.tipo = DatosDe(c.clase).operacion;
  for (const auto& linea : c.lineas) {
    if (!GrabarLinea(p, c.o, linea, {})) return false;
  }
  return true;
}

// The card pays a voucher sale whole.
bool escribirCobro(Puesto& p, VentaRapida& c) {
  return c.clase == ClaseDocumento::VentaVoucher || GrabarEfectivo(p, c.o, c.efectivo);
}

bool limpiar(Puesto&, VentaRapida& c) {
  CancelarACTC(c.v);
  c.v.clase = ClaseDocumento::VentaExacta;
  MostrarVuelto(c.v, c.efectivo);
  return true;
}

template <auto hacer>
constexpr auto kComun = Comun<hacer, VentaRapida>;

const Paso<VentaRapida> kPasos[] = {
    {"documento", decidirDocumento},
    {"numero", leerNumero},
    {"cliente", leerCliente},
    {"total", totalizar},
    {"cobro", cobrar, false},
    {"codigo", kComun<TomarCodigo>},
    {"fecha", kComun<FijarFecha>},
    {"gaveta", kComun<AbrirCajon>},
    {"cabecera", kComun<CargarCabecera>},
    {"reserva", reservarSuNumero},
    {"totales", escribirTotales},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"verificar", kComun<VerificarNumero>},
    {"ultima", kComun<GuardarUltima>},
    {"lineas", escribirVenta},
    {"puntos", kComun<Acumular>},
    {"efectivo", escribirCobro},
    {"limpiar", limpiar},
};

}  // namespace

void GrabarVentaRapida(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas) {
  VentaRapida venta(v, pantallas);
  EjecutarPasos<VentaRapida>(p, QStringLiteral("GrabarVentaRapida"), venta, kPasos);
}
