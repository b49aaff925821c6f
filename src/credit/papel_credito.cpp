#include "credit/papel_credito.h"

#include "documento/commit_documento.h"
#include "documento/tarjeta.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

void ponerCopia(CommitDocumento& c, const std::optional<DatosCopia>& copia) {
  if (!copia) return;
  c.momentoImpreso = copia->momento;
  c.sinHora = copia->momento.time() == QTime(0, 0);
  c.usuario = copia->usuario;
  c.turno = copia->turno;
  c.totales.push_back({QStringLiteral(" COPIA"), {}, false, true});
}

void mandarAlPapel(Puesto& p, CommitDocumento& c) { (void)ImprimirTicket(p, c); }

CommitDocumento paralelo(ClaseDocumento clase, const EstadoDocumento& d, const NumeroDocumento& numero) {
  CommitDocumento c;
  c.clase = clase;
  c.o.documento = *DatosDe(clase).documento;
  c.tarjeta = NumeroTarjeta(d.tarjeta);
  c.nombre = d.cliente;
  c.documento = numero;
  return c;
}

RenglonTotal llano(const QString& texto) { return {texto, {}, false, true}; }

}  // namespace

void ImprimirFactura(Puesto& p, const FacturaCredito& f, const std::optional<DatosCopia>& copia) {
  CommitDocumento c;
  c.clase = ClaseDocumento::VentaExacta;
  c.o.documento = f.doc == DocCredito::FADE ? TipoDocumento::Factura : TipoDocumento::Boleta;
  c.tarjeta = NumeroTarjeta(f.tarjeta);
  c.nombre = f.cliente;
  c.ruc = f.ruc;
  c.documento = {f.numero, f.serie};
  c.lineas = f.lineas;
  c.supervisor = f.supervisor;
  CifrasVenta x;
  x.factura = true;  // both kinds show what they are made of
  x.total = f.total;
  x.igv = f.igv;
  x.servicio = f.servicio;
  x.porcServ = p.ses.psPorcServ;
  c.totales = TotalesVenta(c.clase, x);
  c.totales.push_back(Total(PalabraDe(f.doc) + (f.enDolares ? QStringLiteral(" (U$)") : QStringLiteral(" (S/)")),
                            f.enDolares ? f.totalUSD : f.total));
  if (f.detraccion.afecta) {
    c.totales.push_back(llano(QStringLiteral(" OPERACION AFECTA A LA DETRACCION ")));
    c.totales.push_back(llano(QStringLiteral(" NRO CTA BN: ") + f.detraccion.cuenta));
    c.totales.push_back(Total(QStringLiteral(" Monto S/."), f.detraccion.monto));
  }
  ponerCopia(c, copia);
  mandarAlPapel(p, c);
}

void ImprimirRecibo(Puesto& p, const ReciboCredito& r, const std::optional<DatosCopia>& copia) {
  CommitDocumento c = paralelo(r.pade ? ClaseDocumento::PADE : ClaseDocumento::PADV, r.documento, r.numero);
  CifrasParalela x;
  x.moneda = r.enDolares ? 2 : 1;
  x.montoSoles = r.importe.soles;
  x.montoDolares = r.importe.dolares;
  c.totales = TotalesParalela(c.clase, x);
  if (r.saldo) c.totales.push_back(Total(QStringLiteral("  Saldo x pagar (S/) "), *r.saldo));
  c.totales.push_back(llano(QStringLiteral("  Ref: ") + r.documento.nombre()));
  ponerCopia(c, copia);
  mandarAlPapel(p, c);
}

void ImprimirNota(Puesto& p, const NotaCredito& n) {
  CommitDocumento c = paralelo(ClaseDocumento::NC, n.documento, n.numero);
  c.lineas = n.lineas;
  c.supervisor = n.supervisor;
  CifrasParalela x;
  x.total = n.total;
  c.totales = TotalesParalela(c.clase, x);
  mandarAlPapel(p, c);
}

void ImprimirLiquidacion(Puesto& p, const LiquidacionCredito& l) {
  CommitDocumento c = paralelo(ClaseDocumento::LIQPAD, l.documento, l.numero);
  c.notas = l.notas;
  CifrasParalela x;
  x.subtotal = l.subtotal;
  x.adelanto = l.adelanto;
  x.etiquetaAdelanto = QStringLiteral(" FADE/BADE");
  x.total = l.diferencia;
  x.efectivo = l.efectivo;
  c.totales = TotalesParalela(c.clase, x);
  mandarAlPapel(p, c);
}
