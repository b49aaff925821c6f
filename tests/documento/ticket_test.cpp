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
  CifrasVenta boleta;
  boleta.total = 100;
  boleta.porcServ = q("10");
  CifrasVenta factura = boleta;
  factura.factura = true;
  factura.igv = 15.25;
  CifrasVenta conServicio = factura;
  conServicio.igv = 14.06;
  conServicio.servicio = 7.81;
  conServicio.efectivo = {100, 0, 0, 0};
  CifrasVenta dolares = boleta;
  dolares.efectivo = {0, 40, 20, 0};
  CifrasVenta cambioEnDolares = boleta;
  cambioEnDolares.efectivo = {50, 20, 0, 3.33};
  CifrasVenta tarjetas = boleta;
  tarjetas.voucher = {{q("01"), q("VISA"), 60.1}, {q("02"), q("OTRA"), 39.9}};  // 100 less both is not quite 0
  CifrasVenta tarjetaYEfectivo = boleta;
  tarjetaYEfectivo.voucher = {{q("01"), q("VISA"), 60}};
  tarjetaYEfectivo.efectivo = {50, 0, 10, 0};
  CifrasVenta liquidando = boleta;
  liquidando.efectivo = {100, 0, 0, 0};
  liquidando.liquidacion = CifrasLiquidacion{{30, 0, 0, 2}, 70};
  const struct { const char* porque; ClaseDocumento clase; CifrasVenta cifras; const char* sale; } kCasos[] = {
      {"no cash, no lines of it", kVentaExacta, boleta, "TOTAL VTA 100.00\n"},
      {"the three add up", kVentaExacta, factura, "VALOR VTA 84.75\nIGV 15.25\nTOTAL VTA 100.00\n"},
      {"service between IGV and total", kVentaExacta, conServicio,
       "VALOR VTA 78.13\nIGV 14.06\nSERVICIO(10 %) 7.81\nTOTAL VTA 100.00\nEFECTIVO(S/) 100.00\n"},
      {"dollars with change in soles", kVentaConVuelto, dolares, "TOTAL VTA 100.00\nEFECTIVO(U$) 40.00\nVUELTO(S/) 20.00\n"},
      {"change in dollars", kVentaConVuelto, cambioEnDolares,
       "TOTAL VTA 100.00\nEFECTIVO(S/) 50.00\nEFECTIVO(U$) 20.00\nVUELTO(U$) 3.33\n"},
      {"paid wholly by cards", kVentaVoucher, tarjetas, "TOTAL VTA 100.00\nVISA 60.10\nOTRA 39.90\n"},
      {"card and cash", kVentaVoucher, tarjetaYEfectivo,
       "TOTAL VTA 100.00\nVISA 60.00\nEFECTIVO S/. 40.00\nVUELTO 10.00\n"},
      {"a liquidation's own cash", kVentaExacta, liquidando,
       "TOTAL VTA 100.00\nEFECTIVO(S/) 30.00\nPADE/PADV 70.00\nVUELTO(U$) 2.00\n"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(q(c.sale), comoTexto(TotalesVenta(c.clase, c.cifras)));
  }
}

}  // namespace
