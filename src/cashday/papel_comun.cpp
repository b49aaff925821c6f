#include "cashday/papel_comun.h"

#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kAncho = 27;       // of what stands behind a label of 12
constexpr int kAnchoTotal = 29;  // behind one of 10

}  // namespace

const QString kSinRotulo = Espacios(12);

QString LineaMonto(const QString& rotulo, const QString& marca, double monto, const QString& cierre) {
  return ALaDerecha(rotulo, marca + Importe(monto) + cierre, kAncho);
}

QString LineaCuenta(const QString& rotulo, double cuantos) { return ALaDerecha(rotulo, Cuenta(cuantos), kAncho); }

void CabezaDeCheck(Informe& i, const QString& titulo, double cuantos, const QString& marca, double monto) {
  i.titulo(titulo);
  i.linea(ALaDerecha(QStringLiteral("TOTAL     "), u'*' + Importe(cuantos), kAnchoTotal));
  i.linea(ALaDerecha(Espacios(10), marca + Importe(monto), kAnchoTotal));
  i.doble();
}

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

void CuentaYMonto(Informe& i, const QString& rotulo, double cuantos, double monto, const QString& cola) {
  if (cuantos == 0) return;
  i.linea(LineaCuenta(rotulo, cuantos) + cola);
  i.linea(LineaMonto(kSinRotulo, QStringLiteral("*"), monto));
}

void ImprimirCajon(Informe& i, const CifrasReporte& c, const CajonReporte& cajon) {
  const QString marca = QStringLiteral("*");
  if (EsPositivo(c.nAperturaSol)) i.linea(LineaMonto(cajon.aperturaSol, marca, c.nAperturaSol));
  if (EsPositivo(c.nAperturaDol)) i.linea(LineaMonto(cajon.aperturaDol, marca, c.nAperturaDol));
  if (NoEsCero(cajon.haySol)) {
    i.raya();
    i.linea(LineaMonto(QStringLiteral("CASH-DRW S/."), marca, cajon.montoSol));
  }
  if (NoEsCero(cajon.hayDol)) {
    i.linea(ALaDerecha(ALaDerecha(QStringLiteral("CASH-DRW$(TC S/."), TextoDe(c.nTipoCambio), 5) + u')',
                       marca + Importe(cajon.montoDol), 17));
  }
  if (c.nVouchers != 0) i.linea(LineaMonto(QStringLiteral("VOUCHER     "), marca, c.nVoucher));
}

void ImprimirImpuestos(Informe& i, const Impuestos& t, const QString& psPorcServ) {
  const auto parte = [&](const QString& titulo, double monto) {
    i.titulo(titulo);
    i.linea(ALaDerecha(QStringLiteral(" TOTAL    "), u'*' + Importe(monto), kAnchoTotal));
  };
  parte(QStringLiteral("        IGV FACTURA        "), t.igvFactura);
  parte(QStringLiteral("        IGV BOLETA         "), t.igvBoleta);
  parte(QStringLiteral("        TOTAL IGV          "), t.igvFactura + t.igvBoleta);
  parte(QStringLiteral("     SERVICIOS ( ") + psPorcServ + QStringLiteral(" % )       "), t.servicio);
  i.doble();
  if (!t.servicioParalelo) return;
  parte(QStringLiteral("     SERV PARALELO( ") + psPorcServ + QStringLiteral(" % )       "), *t.servicioParalelo);
}
