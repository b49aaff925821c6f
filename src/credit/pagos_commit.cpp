#include "credit/acto_credito.h"
#include "credit/pagos.h"
#include "credit/papel_credito.h"
#include "documento/clase.h"
#include "documento/commit_documento.h"
#include "documento/filas_paralelas.h"
#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

struct Chequeo {
  bool mal;
  const char16_t* aviso;
  const char* control;
};

std::optional<QString> primeroMal(Puesto& p, std::initializer_list<Chequeo> chequeos) {
  for (const Chequeo& c : chequeos) {
    if (!c.mal) continue;
    p.mensajes.mostrar(QString::fromUtf16(c.aviso));
    return QString::fromLatin1(c.control);
  }
  return {};
}

bool vacio(const QString& campo) { return Recortar(campo).isEmpty(); }

double saldoPropio(const TabPagos& v) { return LeerImporte(v.enDolares ? v.lblSaldoDolares : v.lblSaldoSoles); }

// The checks in front of the act; nothing when all is well.
std::optional<QString> validar(Puesto& p, const CajaFacturacionPagos& todo) {
  const TabPagos& v = todo.pago;
  const CamposForma forma = CamposDelPago(todo);
  const bool dolares = v.cboMoneda1 == 1;
  const QString& monto = dolares ? v.txtMontoDolares : v.txtMontoSoles;
  const char* campoMonto = dolares ? "txtMontoDolares" : "txtMontoSoles";
  // clang-format off
  if (auto campo = primeroMal(p, {
          {!v.documento, u"Seleccione el documento (BADE o FADE)", "cboTipoDocumento1"},
          {saldoPropio(v) == 0, u"Ya no hay saldo por cancelar para este documento", "cmdBuscarDocumento"},
          {v.dcbFormaPago < 0, u"Ingrese la Forma de Pago", "dcbFormaPago"},
          {forma.tarjeta && v.dcbTarjeta < 0, u"Seleccione Tarjeta", "dcbTarjeta"},
          {forma.certificado && vacio(v.txtNroCertificadoRetencion), u"Ingrese Nro.Cert.Retencion",
           "txtNroCertificadoRetencion"},
          {forma.banco && v.dcbBanco < 0, u"Seleccione Banco", "dcbBanco"},
          {forma.banco && vacio(v.txtNroCuenta), u"Ingrese Nro Cuenta", "txtNroCuenta"},
          {forma.banco && vacio(v.txtNroOperacion), u"Ingrese Nro Operacion", "txtNroOperacion"},
          {v.cboMoneda1 < 0, u"Seleccione moneda", "cboMoneda1"},
          {vacio(monto), u"Ingrese monto del pago", campoMonto},
          {!EsImporte(monto), u"Ingrese valor numerico", campoMonto},
          {Redondear(LeerImporte(monto), 2) <= 0, u"Debe registar una cantidad mayor que cero.", campoMonto},
          {!FechaTecleada(v.DTPFechaPago), u"La fecha no es válida: dd/mm/aaaa", "DTPFechaPago"}})) {
    return campo;
  }
  // clang-format on
  const ImporteDoble i = ImporteDe(LeerImporte(monto), dolares, p.ses.pnTipoCambio);
  return primeroMal(p, {{(v.enDolares ? i.dolares : i.soles) > saldoPropio(v),
                         u"El monto a pagar no debe ser mayor que el saldo", campoMonto}});
}

PagoCredito tomar(const Puesto& p, const CajaFacturacionPagos& todo) {
  const TabPagos& v = todo.pago;
  const CamposForma forma = CamposDelPago(todo);
  PagoCredito pago;
  pago.forma = CodigoElegido(todo.referencias.formas, v.dcbFormaPago);
  pago.fecha = *FechaTecleada(v.DTPFechaPago);
  pago.enDolares = v.cboMoneda1 == 1;
  pago.importe =
      ImporteDe(LeerImporte(pago.enDolares ? v.txtMontoDolares : v.txtMontoSoles), pago.enDolares, p.ses.pnTipoCambio);
  if (forma.tarjeta) pago.tarjeta = CodigoElegido(todo.referencias.tarjetas, v.dcbTarjeta);
  if (forma.certificado) pago.certificado = Recortar(v.txtNroCertificadoRetencion);
  if (forma.banco) {
    pago.banco = CodigoElegido(todo.referencias.bancos, v.dcbBanco);
    pago.cuenta = Recortar(v.txtNroCuenta);
    pago.operacion = Recortar(v.txtNroOperacion);
  }
  pago.esDetraccion = v.chkEsDetraccion;
  return pago;
}

// '01' is cash, all others a voucher.
ClaseDocumento claseDelRecibo(const PagoCredito& pago) {
  return pago.forma == u"01" ? ClaseDocumento::PADE : ClaseDocumento::PADV;
}

QString esteMinuto(const Puesto& p) { return FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm"); }

// The number of a receipt of this minute that says the same; "" for none. False when it can't be told; the box has been
// shown.
bool buscarRepetido(Puesto& p, const TabPagos& v, const PagoCredito& pago, QString& recibo) {
  Recordset suyos;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(
              u"SELECT cDocSerie, cDocCodigo FROM OperacionParalela WHERE dOperFech = '$' AND cOperTipo = $"
              " AND sGlosa = '$' AND nMoneda = $ AND nMontoSoles = $ AND nMontoDolares = $ AND cEstado <> '0'"_sql,
              {Texto(esteMinuto(p)), Codigo(DatosDe(claseDelRecibo(pago)).operacion), Texto(kGlosaPago),
               pago.enDolares ? 2 : 1, pago.importe.soles, pago.importe.dolares}),
          suyos)) {
    return false;
  }
  for (const auto& f : suyos) {
    Recordset rs;
    const QString serie = LimpiarNulo(f[u"cDocSerie"]), numero = NumeroEscrito(AEntero(Numero(f[u"cDocCodigo"])));
    if (!p.poDBAdmin.EjecutarConsulta(
            p.poCnnCentral,
            FormatearSQL(u"SELECT COUNT(*) AS total FROM Pagos WHERE cSerieDocPago = '$' AND NroDocPago = '$'"
                         " AND TipoDoc = '$' AND cSerieDoc = '$' AND NroDoc = '$' AND FormaPago = '$'"_sql,
                         {Texto(serie), Texto(numero), Texto(v.documento->TipoDoc), Texto(v.documento->cSerieDoc),
                          Texto(v.documento->NroDoc), Texto(pago.forma)}),
            rs)) {
      return false;
    }
    if (Numero(rs[u"total"]) > 0) recibo = serie + u'-' + numero;
  }
  return true;
}

bool repetirPago(Puesto& p, const TabPagos& v, const PagoCredito& pago) {
  QString recibo;
  if (!buscarRepetido(p, v, pago, recibo)) return false;
  return recibo.isEmpty() ||
         p.mensajes.preguntar(QStringLiteral("En este minuto ya se registró un pago igual de este documento: ") +
                                  recibo + QStringLiteral(".\n¿Desea registrar otro?"),
                              QStringLiteral("Confirmar"), false);
}

// The parallel row of the payment.
Sql sentenciaRecibo(const Puesto& p, const PagoCredito& pago) {
  const ClaseDocumento clase = claseDelRecibo(pago);
  const DatosOperacion o = OperacionDe(p, pago.documento, pago.recibo, DatosDe(clase).operacion);
  DatosParalela d;
  d.moneda = pago.enDolares ? 2 : 1;
  d.montoSoles = pago.importe.soles;
  d.montoDolares = pago.importe.dolares;
  d.efectivo = {pago.importe.soles, pago.importe.dolares, 0, 0};
  d.glosa = kGlosaPago;
  d.sincronizada = clase == ClaseDocumento::PADE;
  return SentenciaParalela(p, o, d);
}

// Reads the document again behind its lock and makes the act. What it finds against the payment ends it.
std::optional<ErrorBD> preparar(Puesto& p, const TabPagos& v, PagoCredito& pago, ActoDoble& acto) {
  Conexion& central = p.poCnnCentral;
  const auto doc = DocCreditoDe(v.documento->TipoDoc).value_or(DocCredito::FADE);
  const Sql donde = DeNumero(doc, v.documento->cSerieDoc, v.documento->NroDoc);
  EstadoDocumento e;
  if (auto error = LeerBloqueado(central, donde, e)) return error;
  pago.documento = e;
  if (!Cabe(e, pago.importe)) {
    return RechazoDelActo(QStringLiteral("El monto a pagar no debe ser mayor que el saldo") +
                          QStringLiteral(": ahora es de S/. ") + Formatear(e.saldo(), u"0.00") +
                          QStringLiteral(" (US$ ") + Formatear(e.saldoUSD(), u"0.00") + QStringLiteral(")."));
  }
  if (pago.esDetraccion && !e.detraccion) {
    return RechazoDelActo(QStringLiteral("La detracción de este documento ya no está pendiente."));
  }
  if (pago.esDetraccion && Redondear(*e.detraccion, 2) != pago.importe.soles) {
    return RechazoDelActo(QStringLiteral("El monto de la detracción cambió; vuelva a elegir el documento."));
  }
  if (auto error = TomarNumeroParalelo(p, central, *DatosDe(claseDelRecibo(pago)).documento, pago.recibo)) return error;
  acto.nombre =
      QStringLiteral("pago ") + pago.recibo.documento.serie + u'-' + NumeroEscrito(pago.recibo.documento.numero);
  acto.enLocal = {pago.recibo.guardar, sentenciaRecibo(p, pago)};
  acto.deshacer = {pago.recibo.devolver,
                   FormatearSQL(u"DELETE FROM OperacionParalela WHERE cOperCode = $"_sql, {pago.recibo.codigo})};
  acto.enServidor = SentenciasPago(p, pago);
  return {};
}

// What the payment leaves of the document.
EstadoDocumento despues(const Puesto& p, const PagoCredito& pago) {
  EstadoDocumento e = pago.documento;
  const double tc = p.ses.pnTipoCambio;
  e.pagado += pago.enDolares ? pago.importe.dolares * tc : pago.importe.soles;
  e.pagadoUSD += pago.enDolares ? pago.importe.dolares : (tc > 0 ? pago.importe.soles / tc : 0);
  return e;
}

void entregarRecibo(Puesto& p, const PagoCredito& pago, double saldo) {
  ReciboCredito r;
  r.pade = claseDelRecibo(pago) == ClaseDocumento::PADE;
  r.numero = pago.recibo.documento;
  r.enDolares = pago.enDolares;
  r.importe = pago.importe;
  r.documento = pago.documento;
  r.saldo = saldo;
  CommitDocumento cajon;
  if (r.pade) (void)AbrirCajon(p, cajon);
  ImprimirRecibo(p, r);
}

}  // namespace

std::optional<QString> GrabarPago(Puesto& p, CajaFacturacionPagos& v) {
  if (auto campo = validar(p, v)) return campo;
  PagoCredito pago = tomar(p, v);
  if (!AbrirCentralDelActo(p)) return QString();
  if (!repetirPago(p, v.pago, pago)) {
    CerrarCentral(p);
    return QString();
  }
  const FinCredito fin =
      HacerActo(p, QStringLiteral("El pago"), [&](ActoDoble& acto) { return preparar(p, v.pago, pago, acto); });
  if (fin == FinCredito::Nada) {
    // What another desk paid meanwhile shows.
    if (pago.documento.cCodVta != 0) {
      v.pago.lblSaldoSoles = Formatear(pago.documento.saldo(), u"0.00");
      v.pago.lblSaldoDolares = Formatear(pago.documento.saldoUSD(), u"0.00");
    }
    return QString();
  }
  AvisarCorreccion(p, pago.recibo);
  const EstadoDocumento e = despues(p, pago);
  if (fin == FinCredito::Hecho) entregarRecibo(p, pago, e.saldo());
  LimpiarPagos(p, v.pago);
  const NumeroDocumento& recibo = pago.recibo.documento;
  v.pago.ultimo = QStringLiteral("Recibo ") + recibo.serie + u'-' + NumeroEscrito(recibo.numero) +
                  QStringLiteral(". Nuevo saldo de ") + e.nombre() + QStringLiteral(": S/. ") +
                  Formatear(e.saldo(), u"###,###,##0.00") + QStringLiteral(", US$ ") +
                  Formatear(e.saldoUSD(), u"###,###,##0.00");
  return {};
}
