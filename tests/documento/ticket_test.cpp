#include "documento/ticket.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "documento/totales.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

TEST(Ticket, CentredLinesLoseTheirLeftWhenTooLong) {
  for (const auto& c : leerCasos("documento/centradas")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(c["sale"], LineaCentrada(c["texto"]));
  }
}

TEST(Ticket, TotalLinesKeepTheirColumns) {
  EXPECT_EQ(q(" TOTAL VTA                       30.00\r\n"), LineaTotal(Total(q(" TOTAL VTA"), 30)));
  EXPECT_EQ(q("TARJETA DE UN BANCO CON           1.00\r\n"), LineaTotal(Total(q("TARJETA DE UN BANCO CON NOMBRE"), 1)));
  EXPECT_EQ(q(" CASH/TL                     S/. 20.00\r\n"), LineaTotal({q(" CASH/TL"), q("S/. 20.00"), true}));
}

TEST(Ticket, ArticleLines) {
  for (const auto& c : leerCasos("documento/lineas")) {
    SCOPED_TRACE(c.donde());
    LineaDocumento l;
    l.descripcion = c["descripcion"];
    l.cantidad = c.entero("cantidad");
    l.precio = c.numero("precio");
    l.porcentaje = c.numero("porcentaje");
    EXPECT_EQ(c["sale"], LineasArticulo(l, {}));
  }
}

// The totals as "label value" pairs, one a line.
QString comoTexto(const std::vector<RenglonTotal>& renglones) {
  QString s;
  for (const auto& r : renglones) s += r.etiqueta.trimmed() + u' ' + r.valor + u'\n';
  return s;
}

TEST(Totales, SaleByKindAndDocument) {
  // clang-format off
  const QHash<QString, ClaseDocumento> clases{
      {q("exacta"), ClaseDocumento::VentaExacta}, {q("con vuelto"), ClaseDocumento::VentaConVuelto}, {q("voucher"),
          ClaseDocumento::VentaVoucher}};
  const auto dinero = [](const QString& t) {
    const QStringList n = t.split(u' ');
    return EfectivoDocumento{n.value(0).toDouble(), n.value(1).toDouble(), n.value(2).toDouble(),
        n.value(3).toDouble()};
  };
  // clang-format on
  for (const auto& c : leerCasos("documento/totales")) {
    SCOPED_TRACE(c.donde());
    CifrasVenta v;
    v.total = 100;
    v.porcServ = q("10");
    v.factura = c.si("factura");
    v.igv = c.numero("igv");
    v.servicio = c.numero("servicio");
    v.efectivo = dinero(c["efectivo"]);
    for (const QString& t : c["tarjetas"].split(u' ', Qt::SkipEmptyParts)) {
      v.voucher.push_back({q("01"), t.section(u'=', 0, 0), t.section(u'=', 1).toDouble()});
    }
    if (!c.falta("liquidacion")) v.liquidacion = CifrasLiquidacion{dinero(c["liquidacion"]), 70};
    EXPECT_EQ(c["sale"], comoTexto(TotalesVenta(clases.value(c["clase"]), v)));
  }
}

}  // namespace
