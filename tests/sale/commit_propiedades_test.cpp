// What holds for every sale: random lines, percentages and cash.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

// The value behind a label of the last ticket, 0 when it isn't printed.
double enPapel(const QByteArray& ticket, const char* etiqueta) {
  const qsizetype i = ticket.indexOf(QByteArray("\r\n ") + etiqueta);
  return i < 0 ? 0 : Val(QString::fromLatin1(ticket.mid(i + 2 + 23, 15)));
}

double alCentimo(double v) { return Redondear(v, 2); }

std::vector<FilaVenta> lineasAlAzar() {
  std::vector<FilaVenta> filas;
  const int n = *rc::gen::inRange(1, 6);
  for (int i = 0; i < n; ++i) {
    filas.push_back(filaVenta(101 + i, q("Plato"), *rc::gen::inRange(0, 30000) / 100.0, *rc::gen::inRange(1, 40),
                              *rc::gen::inRange(0, 10001) / 100.0, *rc::gen::element(q("-"), q("+")),
                              *rc::gen::arbitrary<bool>()));
  }
  return filas;
}

RC_GTEST_PROP(Venta, PaperRowsAndScreenAgree, ()) {
  static PuestoDeVenta p;
  static PantallasGuion pantallas;
  p.persona().dejaPasar();
  pantallas.supervisor = q("JEFE");
  CajaRegistradoraFull v;
  const TipoVenta tipo = *rc::gen::element(TipoVenta::Efectivo, TipoVenta::OC);
  PonerTipo(v, tipo);
  if (tipo == TipoVenta::Efectivo) v.txtRUC = q("20512345678");
  v.rejilla.filas = lineasAlAzar();
  CalculaTotales(p, v);
  if (*rc::gen::arbitrary<bool>()) {
    v.txtEfectivoDolares = Formatear(*rc::gen::inRange(0, 200000) / 100.0, u"0.00");
    SalirDolares(p, v);
  }
  if (*rc::gen::arbitrary<bool>()) {
    v.txtEfectivoSoles = Formatear(*rc::gen::inRange(0, 2000000) / 100.0, u"0.00");
    v.efectivoTecleado = true;
    SalirEfectivoSoles(p, v);
  }
  const CajaRegistradoraFull antes = v;
  const bool acepta = !ValidaVenta(p, v, pantallas);
  RC_PRE(acepta);
  p.papeles().papel.clear();
  RC_ASSERT(GrabarVenta(p, v, pantallas));

  // What is stored is the text that was on the screen.
  const QString tabla = tipo == TipoVenta::OC ? q("OperacionParalelaProducto") : q("Operacion");
  QStringList esperadas;
  for (const auto& f : antes.rejilla.filas) {
    const double pct = LeerImporte(f[kPorc]);
    esperadas << TextoDe(LeerImporte(f[kCant])) + u'|' + TextoDe(LeerImporte(f[kPrecio])) + u'|' +
                     TextoDe(f[kSigno] == u"+" ? pct : 0 - pct);
  }
  const QString codigo = p.filas(tipo == TipoVenta::OC ? q("SELECT MAX(cOperCode) FROM OperacionParalela")
                                                       : q("SELECT MAX(cOperCode) FROM Operacion WHERE cDocTipo='01'"));
  RC_ASSERT(p.filas(q("SELECT nProdCant, nProdPrecUnit, nDscto FROM ") + tabla +
                    q(" WHERE cProdCode<>0 AND cOperCode=") + codigo) == esperadas.join(u'\n'));

  // Cash less change is the total.
  const QString dinero = p.filas(q("SELECT nMontoSoles, nMontoDolares, nProdPrecUnit, nVueltoDolares FROM Operacion "
                                   "WHERE cProdCode=0 AND cDocTipo='%1' AND cOperCode=%2")
                                     .arg(tipo == TipoVenta::OC ? q("10") : q("01"), codigo));
  const double total = LeerImporte(antes.txtSoles);
  const QStringList d = dinero.split(u'|');
  if (total > 0) RC_ASSERT(d.size() == 4);
  if (d.size() == 4) {
    RC_ASSERT(alCentimo(Val(d[0]) + alCentimo(3 * Val(d[1])) + Val(d[2]) - alCentimo(3 * Val(d[3]))) == total);
  }

  // The totals of a factura add up to the total.
  if (tipo == TipoVenta::Efectivo) {
    const QByteArray ticket = p.papeles().papel[q("LPT1")];
    RC_ASSERT(enPapel(ticket, "TOTAL VTA") == total);
    RC_ASSERT(alCentimo(enPapel(ticket, "VALOR VTA") + enPapel(ticket, "IGV") + enPapel(ticket, "SERVICIO")) == total);
  }
}

}  // namespace
