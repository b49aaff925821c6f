#include "credit/anulacion_credito.h"

#include "credit/acto_credito.h"
#include "credit/anulacion_sentencias.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kMensaje = QStringLiteral("Mensaje");

DocCredito docDe(ModoAnular modo) { return modo == ModoAnular::BADE ? DocCredito::BADE : DocCredito::FADE; }

void vaciar(AnularTransaccionCtaCte& v) {
  v.dgdDetalle.clear();
  v.documento.reset();
  v.pago.reset();
}

QString dinero(double valor) { return Formatear(valor, u"###,###,##0.00"); }

QString moneda(bool dolares) { return dolares ? QStringLiteral("Dolares") : QStringLiteral("Soles"); }

QString local(int id) { return id == 1 ? QStringLiteral("Sur") : id == 2 ? QStringLiteral("Norte") : QString(); }

void mostrarDocumento(AnularTransaccionCtaCte& v, const EstadoDocumento& d) {
  v.dgdDetalle = {d.cliente,       local(d.idLocal),   moneda(d.enDolares),
                  dinero(d.total), dinero(d.totalUSD), FormatearFecha(d.emision, u"dd/mm/yyyy"),
                  dinero(d.pagado)};
}

void mostrarPago(AnularTransaccionCtaCte& v, const EstadoDocumento& d, const PagoGuardado& pago) {
  v.dgdDetalle = {d.serie,
                  d.numero,
                  pago.descripcionForma,
                  FormatearFecha(pago.fecha, u"dd/mm/yyyy"),
                  dinero(pago.monto),
                  moneda(pago.enDolares)};
}

// The act as it is made ready: what is read under the document's lock decides.
struct Anulacion {
  Puesto& p;
  AnularTransaccionCtaCte& v;
  std::optional<TomadaAqui> fila{};  // the payment's row in this desk's store
  VidaDocumento vida{};
};

std::optional<ErrorBD> preparar(Anulacion& a, ActoDoble& acto) {
  Conexion& central = a.p.poCnnCentral;
  const Sql donde = DeCodigo(a.v.documento->cCodVta);
  if (auto error = central.ejecutar(SentenciaBloqueo(donde))) return error;
  std::optional<EstadoDocumento> d;
  if (auto error = LeerEstado(central, donde, d)) return error;
  if (!d) return RechazoDelActo(QStringLiteral("Documento no existe o no es válido"));
  if (!a.v.pago) {
    if (auto error = LeerVida(central, *d, a.vida)) return error;
    const QString rechazo = RechazoDocumento(*d, a.vida);
    if (!rechazo.isEmpty()) return RechazoDelActo(rechazo);
    acto.nombre = QStringLiteral("anula %1").arg(d->nombre());
    acto.enServidor = SentenciasAnularDocumento(*d);
    return {};
  }
  std::optional<PagoGuardado> pago;
  if (auto error = LeerPago(central, a.v.pago->serie, a.v.pago->numero, pago)) return error;
  const QString rechazo = pago ? RechazoPago(*d, *pago) : QStringLiteral("Documento no existe o no es válido");
  if (!rechazo.isEmpty()) return RechazoDelActo(rechazo);
  if (auto error = BuscarPagoAqui(a.p, *pago, a.fila)) return error;
  acto.nombre = QStringLiteral("anula pago %1-%2").arg(pago->serie, pago->numero);
  acto.enServidor = SentenciasAnularPago(*d, *pago);
  if (!a.fila || !a.fila->seAnula) return {};
  return SentenciasAnularPagoAqui(a.p, *a.fila, acto);
}

bool rechazar(Puesto& p, const QString& palabras) {
  if (!palabras.isEmpty()) p.mensajes.mostrar(palabras, kMensaje);
  return palabras.isEmpty();
}

// What the cashier still has to do with the money of a payment.
void avisarDinero(Puesto& p, const Anulacion& a, PantallasCredito& pantallas) {
  const PagoGuardado& pago = *a.v.pago;
  if (!a.fila) {
    p.mensajes.mostrar(QStringLiteral("El recibo %1-%2 es de la caja %3: allí se anulará con su próxima "
                                      "sincronización.")
                           .arg(pago.serie, pago.numero, CajaDeRecibo(pago.serie)),
                       kMensaje);
    return;
  }
  if (a.fila->seAnula || !pago.enEfectivo()) return;
  // A withdrawal is in soles.
  const double soles = pago.enDolares ? Redondear(pago.monto * p.ses.pnTipoCambio, 2) : pago.monto;
  const QString importe = QStringLiteral("S/. ") + dinero(soles) +
                          (pago.enDolares ? QStringLiteral(" (US$ ") + dinero(pago.monto) + u')' : QString());
  if (p.mensajes.preguntar(QStringLiteral("El pago es de un día ya cerrado: registre un retiro de %1 por lo que "
                                          "devuelve al cliente.\n¿Desea registrarlo ahora?")
                               .arg(importe),
                           QStringLiteral("Confirme"))) {
    pantallas.retiro();
  }
}

}  // namespace

QStringList TitulosDetalle(ModoAnular modo) {
  if (modo == ModoAnular::PADE) {
    return {QStringLiteral("cSerieDoc"), QStringLiteral("NroDoc"), QStringLiteral("Forma Pago"),
            QStringLiteral("Fecha"),     QStringLiteral("Monto"),  QStringLiteral("Moneda")};
  }
  return {QStringLiteral("Cliente"),   QStringLiteral("Local"),     QStringLiteral("Moneda"),
          QStringLiteral("TotVta"),    QStringLiteral("TotVtaUSD"), QStringLiteral("FechaEmision"),
          QStringLiteral("TotalPagos")};
}

bool CargarDocumentoAnular(Puesto& p, AnularTransaccionCtaCte& v) {
  vaciar(v);
  const QString serie = Recortar(v.txtSerie), numero = Recortar(v.txtNumero);
  if (serie.isEmpty() || numero.isEmpty()) return true;
  if (!EsNumerico(numero) || AEntero(Val(numero)) <= 0) {
    p.mensajes.mostrar(QStringLiteral("Valor de Numero no válido"), kMensaje);
    return true;
  }
  const Ocupado ocupado(p.mensajes, QStringLiteral("Leyendo el documento…"));
  if (!AbrirCentralDelActo(p)) return true;
  std::optional<EstadoDocumento> d;
  std::optional<PagoGuardado> pago;
  const bool esPago = v.Modo == ModoAnular::PADE;
  auto error = esPago
                   ? LeerPagoConDocumento(p.poCnnCentral, serie, numero, pago, d)
                   : LeerEstado(p.poCnnCentral, DeNumero(docDe(v.Modo), serie, NumeroEscrito(AEntero(Val(numero)))), d);
  VidaDocumento vida;
  if (!error && d && !esPago) error = LeerVida(p.poCnnCentral, *d, vida);
  CerrarCentral(p);
  if (error) {
    p.mensajes.mostrar(error->descripcion);
    return true;
  }
  if (!d || (esPago && !pago)) {
    p.mensajes.mostrar(QStringLiteral("Documento no existe o no es válido"));
    return true;
  }
  v.documento = d;
  v.pago = pago;
  if (!rechazar(p, esPago ? RechazoPago(*d, *pago) : RechazoDocumento(*d, vida))) {
    vaciar(v);
    return false;
  }
  if (esPago) mostrarPago(v, *d, *pago);
  else mostrarDocumento(v, *d);
  return true;
}

bool AceptarAnulacion(Puesto& p, AnularTransaccionCtaCte& v, PantallasCredito& pantallas) {
  if (!v.cargado()) {
    p.mensajes.mostrar(QStringLiteral("Debe cargar el documento a anular"));
    return false;
  }
  if (!p.mensajes.preguntar(QStringLiteral("Esta seguro de anular el documento?"), QStringLiteral("Confirme"))) {
    return false;
  }
  const auto supervisor = pantallas.autorizar(QStringLiteral("Anular Documento"));
  if (!supervisor || Recortar(*supervisor).isEmpty()) return false;
  v.txtsupervisor = *supervisor;
  if (!AbrirCentralDelActo(p)) return false;
  Anulacion a{p, v};
  switch (HacerActo(p, QStringLiteral("la anulación"), [&a](ActoDoble& acto) { return preparar(a, acto); })) {
    case FinCredito::Nada: return false;
    case FinCredito::Pendiente: return true;
    case FinCredito::Hecho: break;
  }
  p.mensajes.mostrar(QStringLiteral("Se anuló el documento!"), kMensaje);
  ImprimirAnulacionCredito(p, v, a.vida.unidades);
  if (v.pago) avisarDinero(p, a, pantallas);
  return true;
}
