#include "cashday/papel_paralelas.h"

#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kAncho = 27;  // of what stands behind a label of 12
const QString kSinEtiqueta = Espacios(12);

QString linea(const QString& etiqueta, const QString& marca, double monto, const QString& cierre = {}) {
  return ALaDerecha(etiqueta, marca + Importe(monto) + cierre, kAncho);
}

QString cuenta(const QString& etiqueta, double cuantos) { return ALaDerecha(etiqueta, Cuenta(cuantos), kAncho); }

// --- checks 01 to 09

void cabezaDeCheck(Informe& i, const QString& letra, const char* titulo, double cuantos, double monto) {
  i.titulo(letra + QString::fromLatin1(titulo));
  i.linea(ALaDerecha(QStringLiteral("TOTAL     "), u'*' + Importe(cuantos), 29));
  i.linea(ALaDerecha(Espacios(10), QStringLiteral("S/. *") + Importe(monto), 29));
  i.doble();
}

QString filaDeAdelanto(const FilaAdelanto& f) {
  return ALaIzquierda(f.sGlosa, 18) + u' ' + ALaIzquierda(f.nTarjNumb, 8) +
         (f.dolares ? QStringLiteral(" US$") : QStringLiteral(" S/.")) + ALaDerecha({}, Importe(f.importe), 8);
}

// The voided rows stand in the report as one text, so an empty line follows them.
void checkDeAdelantos(Informe& i, const QString& letra, const char* titulo, const CheckAdelantos& c, bool unTexto) {
  cabezaDeCheck(i, letra, titulo, c.cuenta, c.monto);
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
  i.linea(cuenta(etiqueta, cuantos));
  i.linea(linea(kSinEtiqueta, QStringLiteral("S/. *") + abre, s.soles, cierra));
  i.linea(linea(kSinEtiqueta, QStringLiteral("US$ *") + abre, s.dolares, cierra));
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
  if (c.nTickets != 0) {
    i.linea(cuenta(QStringLiteral("TICKET      "), static_cast<double>(c.nTickets)));
    i.linea(linea(kSinEtiqueta, QStringLiteral("*"), r.nVentaTicket));
  }
  recibidos(i, QStringLiteral("PADE        "), r.pade);
  liquidados(i, QStringLiteral("PADE LIQ    "), r.pade.liq);
  recibidos(i, QStringLiteral("PADV        "), r.padv);
  liquidados(i, QStringLiteral("PADV LIQ    "), r.padv.liq);
  if (r.nItemsOC != 0) {
    i.linea(cuenta(QStringLiteral("O/C         "), static_cast<double>(r.nItemsOC)));
    i.linea(linea(kSinEtiqueta, QStringLiteral("*"), r.nMontoOC) + QStringLiteral("\r\n"));
  }
  i.raya();
  if (c.nVouchers != 0) {
    i.linea(cuenta(QStringLiteral("VOUCHER VTA "), static_cast<double>(c.nVouchers)));
    i.linea(linea(kSinEtiqueta, QStringLiteral("*"), c.nVoucher));
  }
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
    i.linea(linea(QStringLiteral("PADEV S/.   "), QStringLiteral("*"), todo.soles - nulo.soles + dia.soles));
  }
  if (NoEsCero(todo.dolares + dia.dolares)) {
    i.linea(linea(QStringLiteral("PADEV US$   "), QStringLiteral("*"), todo.dolares - nulo.dolares + dia.dolares));
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
    i.linea(cuenta(QStringLiteral("NULOS  OC   "), r.nulosOC) + Espacios(3));
    i.linea(linea(kSinEtiqueta, QStringLiteral("*-"), r.nulosOCMonto));
  }
  ImprimirNulos(i, c, Espacios(3));
  i.linea({});
}

}  // namespace

void ListaDeProductos(Informe& i, const std::vector<FilaProductoReporte>& productos) {
  if (productos.empty()) return;
  i.linea(QStringLiteral("Producto                        Cant.  "));
  i.raya();
  for (const auto& f : productos) {
    i.linea(ALaIzquierda(f.catalogo, 10) + u' ' + ALaIzquierda(f.descripcion, 17) + u' ' +
            ALaDerecha({}, Importe(f.cantidad), 10));
  }
  i.doble();
}

void ImprimirCajon(Informe& i, const CifrasReporte& c, const CajonReporte& cajon) {
  const QString marca = QStringLiteral("*");
  if (EsPositivo(c.nAperturaSol)) i.linea(linea(cajon.aperturaSol, marca, c.nAperturaSol));
  if (EsPositivo(c.nAperturaDol)) i.linea(linea(cajon.aperturaDol, marca, c.nAperturaDol));
  if (NoEsCero(cajon.haySol)) {
    i.raya();
    i.linea(linea(QStringLiteral("CASH-DRW S/."), marca, cajon.montoSol));
  }
  if (NoEsCero(cajon.hayDol)) {
    i.linea(ALaDerecha(ALaDerecha(QStringLiteral("CASH-DRW$(TC S/."), TextoDe(c.nTipoCambio), 5) + u')',
                       marca + Importe(cajon.montoDol), 17));
  }
  if (c.nVouchers != 0) i.linea(linea(QStringLiteral("VOUCHER     "), marca, c.nVoucher));
}

void ImprimirNulos(Informe& i, const CifrasReporte& c, const QString& cola) {
  if (c.nNulos == 0) return;
  i.linea(cuenta(QStringLiteral("NULOS  TK   "), static_cast<double>(c.nNulos)) + cola);
  i.linea(linea(kSinEtiqueta, QStringLiteral("*"), c.nNulosMonto));
}

void ChecksParalelos(Informe& i, const DatosReporte& d) {
  const CifrasReporte& c = d.cifras;
  const CifrasParalelas& r = *d.paralelas;
  cabezaDeCheck(i, d.letra, "1 CHECK                             01", static_cast<double>(c.nItems), c.nVenta);
  ListaDeProductos(i, c.productos);
  if (r.itemsNC > 0) {
    cabezaDeCheck(i, d.letra, "1 CHECK NC S/LIQUIDAR                ", r.itemsNC, r.montoNC);
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
