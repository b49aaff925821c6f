#include "cashday/libro_x1_hojas.h"
#include "foundation/db_admin.h"
#include "store/codigos.h"

namespace {

const QStringList kCabezas{QStringLiteral("Articulo"), QStringLiteral("Cantidad"), QStringLiteral("Precio Unit."),
                           QStringLiteral("Sub-Total")};

constexpr LiteralSql kVendidos =
    u"SELECT (SELECT MIN(C.sTeclDesc) FROM ConfiguracionTeclado C WHERE C.cProdCode = P.cProdCode) AS Tecla,"
    " P.sProdDescCrta AS producto, SUM(o.nProdCant) AS Cantidad, MAX(P.nProdPrecUnit) AS PrecioUnit,"
    " SUM({valor}) AS TotalMonto FROM Producto P INNER JOIN Operacion o ON P.cProdCode = o.cProdCode"
    " AND P.cAlmaCode = o.cAlmaCode WHERE o.cOperTipo in (1,2,3,4,5) {f}"
    " GROUP BY P.cProdCode, P.sProdDescCrta ORDER BY 1, 2"_sql;
constexpr LiteralSql kPorPrecio =
    u"SELECT max(p.sProdDescCrta) AS producto, sum(d.nProdCant) AS Cantidad, max(d.nProdPrecUnit) AS Precio, d.nDscto"
    " FROM (OperacionParalelaProducto d INNER JOIN OperacionParalela o ON o.cOperCode = d.cOperCode)"
    " LEFT JOIN Producto p ON d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode"
    " WHERE $ GROUP BY d.cProdCode, d.nDscto ORDER BY 1, d.nDscto"_sql;
constexpr LiteralSql kOrdenes = u"TRIM(o.cEstado) = '1' AND o.cOperTipo + 0 in ({OC}) {p}"_sql;
// Of any day: what the customers took and nobody has settled.
constexpr LiteralSql kNotas = u"o.cEstado = '1' AND o.cOperTipo in ({NC})"_sql;
constexpr LiteralSql kTotalOrdenes =
    u"SELECT sum(d.nProdCant) AS items, sum({valorp}) AS precio FROM OperacionParalelaProducto d"
    " INNER JOIN OperacionParalela o ON o.cOperCode = d.cOperCode WHERE TRIM(o.cEstado) = '1'"
    " AND o.cOperTipo + 0 in ({OC}) {p}"_sql;

constexpr LiteralSql kVoucherTickets =
    u"SELECT SUM({valor}) AS TOTAL FROM Operacion o WHERE o.cOperTipo = 2 {f} AND NOT o.cOperFlagAnula = 1"_sql;
constexpr LiteralSql kEfectivoEnVouchers =
    u"SELECT SUM(o.nMontosoles) AS TOTAL FROM Operacion o WHERE o.cOperTipo = 1 AND TRIM(o.cEmisor) <> '' {f}"
    " AND NOT o.cOperFlagAnula = 1"_sql;
constexpr LiteralSql kVoucherLiquidacion =
    u"SELECT SUM(o.nMontoSoles + o.nProdPrecUnit) AS TOTAL FROM Operacion o"
    " WHERE o.cOperTipo = 2 AND o.cDocTipo = {dLIQPAD} {f} AND NOT o.cOperFlagAnula = 1"_sql;
// Cash of sales that were not voided, and of parallel documents that were not.
constexpr LiteralSql kDeEfectivo =
    u" FROM Operacion o WHERE o.cOperTipo in (1) {f} AND (o.cOperFlagAnula = 0 OR o.cDocTipo NOT in ('01', '02'))"
    " AND (o.cDocTipo in ('01', '02') OR o.cOperCode NOT in (SELECT x.cOperCode FROM (SELECT o.cOperCode"
    " FROM OperacionParalela o WHERE o.cOperCodeAnul <> 0 {p}) x))"_sql;
constexpr LiteralSql kDolares = u"SELECT SUM(o.nMontoDolares - o.nVueltoDolares) AS TOTAL"_sql;
constexpr LiteralSql kSoles = u"SELECT SUM(o.nProdPrecUnit * o.nProdCant + o.nMontoSoles) AS TOTAL"_sql;

void filaArticulo(HojaX1& h, const Recordset::Fila& f, double precio, double monto) {
  h.poner(1, LimpiarNulo(f[u"producto"]));
  h.poner(2, NumeroCelda{Numero(f[u"Cantidad"])});
  h.poner(3, ImporteCelda(precio));
  h.poner(4, ImporteCelda(monto));
  h.bajar();
}

void titulo(HojaX1& h, const QString& texto) {
  h.poner(1, texto);
  h.bajar();
}

void vendidos(HojaX1& h) {
  titulo(h, QStringLiteral("Operaciones de Venta "));
  h.rotulos(kCabezas);
  if (const auto rs = h.leer(kVendidos, QStringLiteral("Artículos vendidos"), 1)) {
    for (const auto& f : *rs) filaArticulo(h, f, Numero(f[u"PrecioUnit"]), Numero(f[u"TotalMonto"]));
  }
  h.bajar();
}

void porPrecio(HojaX1& h, const QString& nombre, const Sql& condicion) {
  titulo(h, nombre + u' ');
  h.rotulos(kCabezas);
  if (const auto rs = h.leer(ConCodigos(FormatearSQL(kPorPrecio, {condicion})), nombre, 1)) {
    for (const auto& f : *rs) filaArticulo(h, f, PrecioNeto(f), Numero(f[u"Cantidad"]) * PrecioNeto(f));
  }
  h.bajar();
}

// A figure of the totals; none when it could not be read.
using Cifra = std::optional<double>;

Cifra operator+(const Cifra& a, const Cifra& b) { return a && b ? Cifra(*a + *b) : Cifra(); }
Cifra negada(const Cifra& a) { return a ? Cifra(-*a) : a; }

void totales(HojaX1& h) {
  titulo(h, QStringLiteral("TOTALES "));
  const QString ordenes = QStringLiteral("O/C");
  if (const auto rs = h.leer(ConCodigos(kTotalOrdenes), QStringLiteral("Total de O/C"), 2)) {
    h.poner(2, ordenes);
    h.poner(3, NumeroCelda{Numero((*rs)[u"items"]), FormatoNumero::SieteCifras});
    h.bajar();
    h.poner(3, ImporteCelda(Numero((*rs)[u"precio"])));
    h.bajar();
  }
  // Read beside the sheet: a figure that is missing is told where its label stands.
  HojaLibro aparte;
  HojaX1 borrador{h.p, h.periodo, h.r, aparte};
  const auto cifra = [&](const Sql& consulta, const QString& nombre) -> Cifra {
    const auto rs = borrador.leer(ConCodigos(consulta), nombre, 1);
    return rs ? Cifra(Numero((*rs)[u"TOTAL"])) : Cifra();
  };
  const auto par = [&h](const QString& nombre, const Cifra& valor) {
    h.poner(2, nombre);
    h.poner(3, valor ? Celda(ImporteCelda(*valor)) : Celda(QStringLiteral("No se pudo leer")));
    h.bajar();
  };
  const QString tickets = QStringLiteral("Total en vouchers tickets"),
                efectivo = QStringLiteral("Total en efectivo en vouchers"),
                liquidacion = QStringLiteral("Total en voucher en liquidacion"),
                dolares = QStringLiteral("Total en dolares"), soles = QStringLiteral("Total en soles");
  const Cifra t1 = cifra(kVoucherTickets, tickets), t2 = cifra(kEfectivoEnVouchers, efectivo),
              t3 = cifra(kVoucherLiquidacion, liquidacion);
  par(tickets, t1);
  par(efectivo, t2);
  par(QStringLiteral("Total solo voucher"), t1 + negada(t2));
  par(liquidacion, t1 + negada(t2) + t3);
  par(dolares, cifra(kDolares + kDeEfectivo, dolares));
  par(soles, cifra(kSoles + kDeEfectivo + u" AND o.cProdCode = 0"_sql, soles));
}

}  // namespace

void ConsolidarX1(HojaX1& h) {
  vendidos(h);
  porPrecio(h, QStringLiteral("Ordenes de Consumo"), kOrdenes);
  porPrecio(h, QStringLiteral("Articulos en N/C sin Liquidar"), kNotas);
  totales(h);
}
