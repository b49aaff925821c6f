#include "cashday/papel_paralelas.h"

#include <array>

#include "cashday/papel_comun.h"
#include "platform/text/texto.h"

namespace {

const QString kAsterisco = QStringLiteral("*"), kEnSoles = QStringLiteral("S/. *"),
              kEnDolares = QStringLiteral("US$ *");

// --- checks 01 to 09

QString filaDeAdelanto(const FilaAdelanto& f) {
  return ALaIzquierda(f.sGlosa, 18) + u' ' + ALaIzquierda(f.nTarjNumb, 8) +
         (f.dolares ? QStringLiteral(" US$") : QStringLiteral(" S/.")) + ALaDerecha({}, Importe(f.importe), 8);
}

// The voided rows stand in the report as one text, so an empty line follows them.
void checkDeAdelantos(Informe& i, const QString& letra, const char* titulo, const CheckAdelantos& c, bool unTexto) {
  CabezaDeCheck(i, letra + QString::fromLatin1(titulo), c.cuenta, kEnSoles, c.monto);
  if (c.filas.empty()) return;
  i.linea(QStringLiteral("Glosa              Tarjeta     Importe "));
  i.raya();
  QString texto;
  for (const auto& f : c.filas) {
    if (unTexto) texto += filaDeAdelanto(f) + QStringLiteral("\r\n");
    else i.linea(filaDeAdelanto(f));
  }
  if (unTexto) i.linea(texto);
  i.doble();
}

void checksDeAdelantos(Informe& i, const QString& letra, const Adelantos& a,
                       const std::array<const char*, 4>& titulos) {
  checkDeAdelantos(i, letra, titulos[0], a.recibidos, false);
  checkDeAdelantos(i, letra, titulos[1], a.liqDia, false);
  checkDeAdelantos(i, letra, titulos[2], a.liq, false);
  checkDeAdelantos(i, letra, titulos[3], a.anulados, true);
}

// --- check 10

void transaccion(Informe& i, const QString& etiqueta, double cuantos, const SumaAdelantos& s, bool liquidacion) {
  const QString abre = liquidacion ? QStringLiteral("(") : QString(),
                cierra = liquidacion ? QStringLiteral(")") : QString();
  i.linea(LineaCuenta(etiqueta, cuantos));
  i.linea(LineaMonto(kSinRotulo, kEnSoles + abre, s.soles, cierra));
  i.linea(LineaMonto(kSinRotulo, kEnDolares + abre, s.dolares, cierra));
}

void recibidos(Informe& i, const QString& etiqueta, const Adelantos& a) {
  if (a.recibidos.cuenta == 0) return;
  transaccion(i, etiqueta, a.recibidos.cuenta,
              {a.recibidos.suma.soles - a.anulados.suma.soles, a.recibidos.suma.dolares - a.anulados.suma.dolares},
              false);
}

void liquidados(Informe& i, const QString& etiqueta, const CheckAdelantos& c) {
  if (NoEsCero(c.monto)) transaccion(i, etiqueta, c.cuenta, c.suma, true);
}

void checkDeTransacciones(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  const CifrasParalelas& r = *d.paralelas;
  i.titulo(d.letra + QStringLiteral("1 CHECK  TOTAL TRANSACCIONES       10"));
  CuentaYMonto(i, QStringLiteral("TICKET      "), static_cast<double>(c.nTickets), r.nVentaTicket);
  recibidos(i, QStringLiteral("PADE        "), r.pade);
  liquidados(i, QStringLiteral("PADE LIQ    "), r.pade.liq);
  recibidos(i, QStringLiteral("PADV        "), r.padv);
  liquidados(i, QStringLiteral("PADV LIQ    "), r.padv.liq);
  if (r.nItemsOC != 0) {
    i.linea(LineaCuenta(QStringLiteral("O/C         "), static_cast<double>(r.nItemsOC)));
    i.linea(LineaMonto(kSinRotulo, kAsterisco, r.nMontoOC) + QStringLiteral("\r\n"));
  }
  i.raya();
  CuentaYMonto(i, QStringLiteral("VOUCHER VTA "), static_cast<double>(c.nVouchers), c.nVoucher);
  liquidados(i, QStringLiteral("PADE LQ Día "), r.pade.liqDia);
  liquidados(i, QStringLiteral("PADV LQ Día "), r.padv.liqDia);
  if (EsPositivo(c.nRecaudado)) {
    i.linea(ALaDerecha(QStringLiteral("RECAUDACION "), Cuenta(static_cast<double>(c.nRecaudaciones)), 29) +
            Espacios(3));
    i.linea(ALaDerecha(Espacios(10), u'(' + Importe(c.nRecaudado) + u')', 29));
  }
}

// --- check 11

void adelantosPorTarjeta(Informe& i, const Adelantos& padv) {
  const SumaAdelantos &dia = padv.liqDia.suma, &todo = padv.recibidos.suma, &nulo = padv.anulados.suma;
  if (NoEsCero(todo.soles + dia.soles)) {
    i.linea(LineaMonto(QStringLiteral("PADEV S/.   "), kAsterisco, todo.soles - nulo.soles + dia.soles));
  }
  if (NoEsCero(todo.dolares + dia.dolares)) {
    i.linea(LineaMonto(QStringLiteral("PADEV US$   "), kAsterisco, todo.dolares - nulo.dolares + dia.dolares));
  }
}

void checkDeTotales(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  const CifrasParalelas& r = *d.paralelas;
  const Adelantos& pade = r.pade;
  i.titulo(d.letra + QStringLiteral("1 CHECK  TOTALES                    11"));
  CajonReporte cajon;
  cajon.aperturaSol = QStringLiteral("APERT.  S/  ");
  cajon.aperturaDol = QStringLiteral("APERT. US$  ");
  cajon.haySol = c.nCajaSol + c.nAperturaSol - c.nRecaudado + pade.recibidos.suma.soles + pade.liqDia.suma.soles;
  cajon.hayDol = c.nCajaDol + c.nAperturaDol + pade.recibidos.suma.dolares + pade.liqDia.suma.dolares;
  cajon.montoSol = cajon.haySol - pade.anulados.suma.soles;
  cajon.montoDol = cajon.hayDol - pade.anulados.suma.dolares;
  ImprimirCajon(i, c, cajon);
  adelantosPorTarjeta(i, r.padv);
  if (r.nulosOC != 0) {
    i.linea(LineaCuenta(QStringLiteral("NULOS  OC   "), r.nulosOC) + Espacios(3));
    i.linea(LineaMonto(kSinRotulo, QStringLiteral("*-"), r.nulosOCMonto));
  }
  CuentaYMonto(i, QStringLiteral("NULOS  TK   "), static_cast<double>(c.nNulos), c.nNulosMonto, Espacios(3));
  i.linea({});
}

}  // namespace

void ChecksParalelos(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  const CifrasParalelas& r = *d.paralelas;
  CabezaDeCheck(i, d.letra + QStringLiteral("1 CHECK                             01"), static_cast<double>(c.nItems),
                kEnSoles, c.nVenta);
  ListaDeProductos(i, c.productos);
  if (r.itemsNC > 0) {
    CabezaDeCheck(i, d.letra + QStringLiteral("1 CHECK NC S/LIQUIDAR                "), r.itemsNC, kEnSoles, r.montoNC);
    ListaDeProductos(i, r.productosNC);
  }
  checksDeAdelantos(i, d.letra, r.pade,
                    {"1 CHECK PADE                        02", "1 CHECK PADE LIQ  Dia               03",
                     "1 CHECK PADE LIQ                    04", "1 CHECK PADE ANULADOS               05"});
  checksDeAdelantos(i, d.letra, r.padv,
                    {"1 CHECK PADV                        06", "1 CHECK PADV LIQ Dia                07",
                     "1 CHECK PADV LIQ                    08", "1 CHECK PADV ANULADOS               09"});
  checkDeTransacciones(i, d);
  checkDeTotales(i, d);
}
