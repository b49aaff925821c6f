#include "credit/facturacion.h"

#include <algorithm>

#include "credit/acto_credito.h"
#include "credit/detraccion.h"
#include "credit/papel_credito.h"
#include "credit/sentencias_credito.h"
#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

std::optional<QString> falta(Puesto& p, const char16_t* aviso, const char* control) {
  p.mensajes.mostrar(QString::fromUtf16(aviso));
  return QString::fromLatin1(control);
}

std::optional<QString> clienteCompleto(Puesto& p, TabFacturacion& v, PantallasCredito& pantallas) {
  const QString campo = CampoPorMirar(p, v, pantallas);
  if (!campo.isEmpty()) return campo;
  const bool lleno = !Recortar(v.txtTarjeta).isEmpty() && !Recortar(v.txtLocal).isEmpty() &&
                     !Recortar(v.txtNombres).isEmpty() && v.nIdLocal > 0;
  if (!lleno) return falta(p, u"Ingrese correctamente el cliente", "txtTarjeta");
  return {};
}

// The checks before the commit; nothing when all is well.
std::optional<QString> validar(Puesto& p, CajaFacturacionPagos& todo, PantallasCredito& pantallas) {
  TabFacturacion& v = todo.factura;
  if (auto campo = clienteCompleto(p, v, pantallas)) return campo;
  const auto doc = DocCreditoDe(v.cboTipoDocumento);
  if (!doc) return falta(p, u"Ingrese el Tipo Documento", "cboTipoDocumento");
  if (CodigoElegido(todo.referencias.creditos, v.dcbTipoCredito).isEmpty()) {
    return falta(p, u"Ingrese el Tipo Credito", "dcbTipoCredito");
  }
  if (doc == DocCredito::FADE) {
    if (Recortar(v.txtRUC).isEmpty()) return falta(p, u"Ingrese el RUC del cliente", "txtRUC");
    if (!RucAceptado(p, v.txtRUC)) return QStringLiteral("txtRUC");
  }
  if (LineasConArticulo(p, v.rejilla).empty()) {
    return falta(p, u"Debe registrar un artìculo.", "TDGFacturacion");
  }
  TotalesFactura(p, v);
  const double total = LeerImporte(v.txtSoles);
  if (total <= 0 || total > kImporteMaximo) {
    return falta(p, u"Debe registar una cantidad mayor que cero.", "TDGFacturacion");
  }
  if (v.cboMoneda != 0 && v.cboMoneda != 1) return falta(p, u"Seleccione moneda", "cboMoneda");
  if (!FechaTecleada(v.DTPFechaEmision)) {
    return falta(p, u"La fecha no es válida: dd/mm/aaaa", "DTPFechaEmision");
  }
  return {};
}

// The document as it will stand, out of the texts shown.
FacturaCredito tomar(Puesto& p, CajaFacturacionPagos& todo) {
  TabFacturacion& v = todo.factura;
  FacturaCredito f;
  f.doc = *DocCreditoDe(v.cboTipoDocumento);
  f.lineas = LineasConArticulo(p, v.rejilla);
  for (const auto& fila : v.rejilla.filas) {
    if (Recortar(fila[kCod]).isEmpty()) continue;
    f.igv += LeerImporte(fila[kIgv]);
    f.servicio += LeerImporte(fila[kServ]);
  }
  f.igv = Redondear(f.igv, 2);
  f.servicio = Redondear(f.servicio, 2);
  f.total = LeerImporte(v.txtSoles);
  f.totalUSD = LeerImporte(v.txtDolares);
  f.tarjeta = v.txtTarjeta;
  f.idLocal = v.nIdLocal;
  f.cliente = v.txtNombres;
  if (f.doc == DocCredito::FADE) f.ruc = Recortar(v.txtRUC);
  f.enDolares = v.cboMoneda == 1;
  f.credito = CodigoElegido(todo.referencias.creditos, v.dcbTipoCredito);
  f.emision = *FechaTecleada(v.DTPFechaEmision);
  return f;
}

bool alCentral(Puesto& p, FacturaCredito& f) {
  if (!AbrirCentralDelActo(p)) return false;
  const bool leida =
      f.doc != DocCredito::FADE || CalcularDetraccion(p, p.poCnnCentral, f.lineas, f.total, f.detraccion);
  if (leida && CargarCabeceraImpresion(p)) return true;
  CerrarCentral(p);
  return false;
}

FinCredito grabar(Puesto& p, FacturaCredito& f, NumeroTomado& n) {
  return HacerActo(p, PalabraDe(f.doc) + QStringLiteral(" de ") + f.cliente,
                   [&](ActoDoble& acto) -> std::optional<ErrorBD> {
                     if (auto error = TomarNumeroFiscal(p, p.poCnnCentral, n)) return error;
                     f.serie = n.documento.serie;
                     f.numero = n.documento.numero;
                     acto.nombre = PalabraDe(f.doc) + u' ' + f.serie + u'-' + NumeroEscrito(f.numero);
                     acto.enLocal = {n.guardar};
                     acto.deshacer = {n.devolver};
                     acto.enServidor = SentenciasFactura(p, f);
                     return {};
                   });
}

}  // namespace

void LimpiarFactura(const Puesto& p, TabFacturacion& v) {
  v.rejilla = {};
  v.txtTarjeta.clear();
  OlvidarCliente(v);
  v.localVisible = false;
  v.txtRUC.clear();
  v.lblNroDocumento.clear();
  v.cboTipoDocumento = v.dcbTipoCredito = -1;
  v.cboMoneda = 0;
  v.DTPFechaEmision = HoyTecleado(p);
  TotalesFactura(p, v);
}

void TotalesFactura(const Puesto& p, TabFacturacion& v) { TotalesDeRejilla(p, v.rejilla, v.txtSoles, v.txtDolares); }

std::optional<QString> GrabarFactura(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas) {
  if (auto campo = validar(p, v, pantallas)) return campo;
  FacturaCredito f = tomar(p, v);
  if (!AutorizarLineas(pantallas, v.factura.rejilla, f.supervisor) || !alCentral(p, f)) return QString();
  NumeroTomado n;
  const FinCredito fin = grabar(p, f, n);
  if (fin == FinCredito::Nada) return QString();
  AvisarCorreccion(p, n);
  (f.doc == DocCredito::FADE ? p.ses.psSerieFactura : p.ses.psSerieBoleta) = f.serie;
  if (fin == FinCredito::Hecho) ImprimirFactura(p, f);
  LimpiarFactura(p, v.factura);
  v.factura.docUltimo = f.doc;
  v.factura.ultimo = QStringLiteral("Último: ") + PalabraDe(f.doc) + u' ' + f.serie + u'-' + NumeroEscrito(f.numero);
  return {};
}
