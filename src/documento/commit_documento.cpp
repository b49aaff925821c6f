#include "documento/commit_documento.h"

#include "documento/tarjeta.h"
#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

void FijarCliente(CommitDocumento& c, const QString& tarjeta, const QString& local) {
  const QString sitio = Recortar(local);
  c.tarjeta = c.o.tarjeta = NumeroTarjeta(tarjeta);
  c.o.idLocal = EsNumerico(sitio) ? TextoDe(Val(sitio)) : QString();
}

void FijarTipoDocumento(CommitDocumento& c, const QString& ruc) {
  c.ruc = ruc;
  if (const auto propio = DatosDe(c.clase).documento) {
    c.o.documento = *propio;
    return;
  }
  c.o.ruc = Recortar(ruc);
  c.o.documento = c.o.ruc.isEmpty() ? TipoDocumento::Boleta : TipoDocumento::Factura;
}

bool FijarFecha(Puesto& p, CommitDocumento& c) {
  const QDateTime ahora = p.reloj.now();
  c.momento = ahora.addSecs(-ahora.time().second()).addMSecs(-ahora.time().msec());
  c.o.fecha = FormatearFecha(c.momento, u"DD/MM/YYYY hh:mm");
  return true;
}

bool AbrirCajon(Puesto& p, CommitDocumento&) {
  const auto parametro = [&p](const QString& clave) {
    return LeerParametro(p, QStringLiteral("PARAMETROS"), clave, p.ses.psArchivoCfg);
  };
  if (Recortar(parametro(QStringLiteral("GAVETA")).toUpper()) == u"S")
    AbrirGaveta(p, parametro(QStringLiteral("PRINTER")));
  return true;
}

bool TomarCodigo(Puesto& p, CommitDocumento& c) {
  const bool paralela = EsParalela(c.clase);
  SeleccionarImpresora(p, paralela ? p.ses.kPAR_IMPRESORA_ALTERNA : p.ses.kPAR_IMPRESORA);
  return CodigoOperacion(p, paralela, c.o.codigo);
}

bool CargarCabecera(Puesto& p, CommitDocumento&) { return CargarCabeceraImpresion(p); }

bool ReservarNumero(Puesto& p, CommitDocumento& c) {
  if (!ReservarDocumento(p, c.o.documento, c.logReserva, c.documento)) return false;
  c.o.numero = c.documento.numero;
  c.o.serie = c.documento.serie;
  return true;
}

bool ImprimirTicket(Puesto& p, CommitDocumento& c) {
  const bool paralela = EsParalela(c.clase);
  const int impresora = paralela ? kImpresoraAlterna : kImpresoraPrincipal;
  DatosTicket t;
  t.clase = c.clase;
  t.factura = c.factura();
  t.cabecera = p.ses.psCabeceraImpresion;
  t.tarjeta = c.tarjeta;
  t.nombre = c.nombre;
  t.ruc = c.ruc;
  t.serie = c.documento.serie;
  t.numero = c.documento.numero;
  t.serieImpresora = paralela ? p.ses.psSerieImpresoraAlterna : p.ses.psSerieImpresora;
  t.dolares = c.efectivo.dolares > 0;
  t.tipoCambio = p.ses.pnTipoCambio;
  t.forma = c.forma;
  t.lineas = c.lineas;
  t.notas = c.notas;
  t.totales = c.totales;
  t.puntos = c.puntos;
  t.momento = c.momentoImpreso.value_or(p.reloj.now());
  t.sinHora = c.sinHora;
  t.supervisor = c.supervisor;
  t.usuario = c.usuario.isEmpty() ? p.ses.psUsuario : c.usuario;
  t.caja = p.ses.psCaja;
  t.turno = c.turno.isEmpty() ? p.ses.psTurno : c.turno;
  t.correlativo = CorrelativoImpresion(p, impresora);
  t.lema = p.ses.textosPapel.Lema;
  ImprimirDocumento(p, TextoTicket(t), impresora);
  return true;
}

bool VerificarNumero(Puesto& p, CommitDocumento& c) {
  if (!VerificarNumeroDocumento(p, c.o.documento, c.logFinal, c.documento)) return false;
  c.o.numero = c.documento.numero;
  return true;
}

bool GuardarUltima(Puesto& p, CommitDocumento& c) {
  return GuardarUltimaOperacion(p, c.o.documento, c.o.codigo, c.o.numero);
}
