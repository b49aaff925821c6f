#include "cashday/papel_reporte.h"

#include "cashday/papel_comun.h"
#include "cashday/papel_paralelas.h"
#include "foundation/version.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// The day that a report by date is about, or now.
QString diaCorto(const DatosReporte& d) {
  return d.fecha ? FormatearFecha(d.fecha->startOfDay(), u"DD/MM/YYYY (DDD)")
                 : FormatearFecha(d.momento, u"DD/MM/YYYY (DDD)");
}

void cabecera(Informe& i, const DatosReporte& d) {
  for (const QString& linea : d.cabecera) {
    if (Recortar(linea).isEmpty()) continue;
    i.linea(Derecha(Espacios(18) + linea, static_cast<int>(linea.size()) / 2 + 20));
  }
  const QDateTime dia = d.fecha ? d.fecha->startOfDay() : d.momento;
  i.linea(QStringLiteral("\r\n") + FormatearFecha(dia, u"DD/MM/YYYY ") + FormatearFecha(d.momento, u"HH:MM ") +
          FormatearFecha(dia, u"(DDD)") + QStringLiteral(" NS:") + d.serieImpresora);
}

void primerCheck(Informe& i, const DatosReporte& d) {
  CabezaDeCheck(i, d.letra + QStringLiteral("  CHECK                             01"),
                static_cast<double>(d.cifras.nItems), QStringLiteral("*"), d.cifras.nVenta);
  ListaDeProductos(i, d.cifras.productos);
}

void segundoCheck(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  i.titulo(d.letra + QStringLiteral("  CHECK  TOTAL TRANSACCIONES        02"));
  CuentaYMonto(i, QStringLiteral("TICKET      "), static_cast<double>(c.nTickets), c.nVenta);
  i.doble();
  CuentaYMonto(i, QStringLiteral("VOUCHER VTA "), static_cast<double>(c.nVouchers), c.nVoucher);
  if (EsPositivo(c.nRecaudado)) {
    i.linea(LineaCuenta(QStringLiteral("RECAUDACION "), static_cast<double>(c.nRecaudaciones)));
    i.linea(LineaMonto(kSinRotulo, QStringLiteral("("), c.nRecaudado, QStringLiteral(")")));
  }
}

void tercerCheck(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  i.titulo(d.letra + QStringLiteral("  CHECK  TOTALES                    03"));
  const double soles = c.nCajaSol + c.nAperturaSol - c.nRecaudado, dolares = c.nCajaDol + c.nAperturaDol;
  ImprimirCajon(i, c,
                {.aperturaSol = QStringLiteral("APERT.    S/"),
                 .aperturaDol = QStringLiteral("APERT.     $"),
                 .haySol = soles,
                 .hayDol = dolares,
                 .montoSol = soles,
                 .montoDol = dolares});
  CuentaYMonto(i, QStringLiteral("NULOS  TK   "), static_cast<double>(c.nNulos), c.nNulosMonto);
  i.linea({});
}

// Everything of the letter Z up to the tax section.
void bloqueZ(Informe& i, const DatosReporte& d) {
  const BloqueZ& z = *d.z;
  const QString dia = Espacios(6) + diaCorto(d);
  i.titulo(QStringLiteral("TICKETS "));
  i.linea(dia);
  for (const auto& [primero, ultimo] : z.rangos) {
    i.linea(QStringLiteral("RANGO [ ") + primero + QStringLiteral("  ---  ") + ultimo + QStringLiteral(" ]"));
  }
  const auto totales = [&](const QString& titulo, const std::vector<BloqueZ::Ticket>& tickets) {
    i.doble();
    i.titulo(titulo);
    i.linea(dia);
    for (const auto& t : tickets) {
      for (const QString& linea : LineasTicket(t)) i.linea(linea);
    }
  };
  totales(QStringLiteral("TICKETS -- BOLETA TOTAL TRANSACC."), z.boletas);
  totales(QStringLiteral("TICKETS -- FACTURA TOTAL TRANSACC."), z.facturas);
  if (z.notas) {
    totales(QStringLiteral("NOTAS DE CONSUMO X VENTA FUTURA "), {});
    ListaDeProductos(i, *z.notas);
  }
  i.doble();
}

void pie(Informe& i, const DatosReporte& d) {
  i.linea({});
  i.linea(u' ' + Izquierda(d.usuario, 10) + u' ' + FormatearFecha(d.momento, u"hh:mm") + u' ');
  if (d.z) {
    i.linea(LineaCodigo(d));
    i.linea(QStringLiteral("Total acumulado: *") + Importe(d.z->contador.Imac + d.cifras.nVenta));
  }
  i.linea(QStringLiteral("CAJA: ") + d.caja + QStringLiteral("   TURNO: ") + d.turno);
  i.linea(QStringLiteral("Versión ") + Version());
  i.linea(QStringLiteral("Correlativo: ") + d.correlativo);
}

// What the paper lacks, and why.
void sinCentral(Informe& i, bool conParalelas) {
  i.titulo(QStringLiteral("     SIN SERVIDOR CENTRAL      "));
  i.linea(QStringLiteral("NO SE INCLUYE: IGV Y SERVICIOS"));
  if (conParalelas) i.linea(QStringLiteral("               PAGOS ANULADOS EN CENTRAL"));
  i.doble();
}

}  // namespace

QStringList LineasTicket(const BloqueZ::Ticket& t) {
  return {LineaCuenta(QStringLiteral("TICKET      "), t.cuantos), LineaMonto(kSinRotulo, QStringLiteral("*"), t.monto)};
}

QString LineaCodigo(const DatosReporte& d) {
  if (d.fecha) return d.z->codigoDelDia;
  const QString rotulo = d.paralelas ? QStringLiteral("Código Rep. Z1: ") : QStringLiteral("Código Rep. Z: ");
  return rotulo + Ceros(QString::number(d.z->contador.numero), 6);
}

BloquesInforme PapelDeReporte(const DatosReporte& d) {
  Informe i;
  cabecera(i, d);
  if (d.paralelas) {
    ChecksParalelos(i, d);
  } else {
    primerCheck(i, d);
    segundoCheck(i, d);
    tercerCheck(i, d);
  }
  if (d.z) bloqueZ(i, d);
  if (d.impuestos) ImprimirImpuestos(i, *d.impuestos, d.porcServ);
  if (d.sinCentral) sinCentral(i, d.paralelas.has_value());
  pie(i, d);
  return i.bloques();
}
