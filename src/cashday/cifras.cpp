#include "cashday/cifras.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

// COUNT(*) keeps the planner from walking the whole history by date in search of the first row.
constexpr LiteralSql kPrimerPagoEnDolares = u"SELECT MIN(o.dOperFech) AS Fecha, COUNT(*) AS Filas   FROM Operacion o "
                                            " WHERE o.nMontoDolares > 0 And o.cOperFlagAnula= 0 {f}"_sql;
constexpr LiteralSql kVenta = u" SELECT SUM(O.nProdCant) AS TotItem, SUM({valor}) AS TotMonto   FROM Operacion AS O "
                              "  WHERE cOperTipo in (1,2,3)  {f}    AND cprodcode <> 0 AND cOperflaganula= 0 {t}"_sql;
constexpr LiteralSql kTickets =
    u"SELECT distinct(o.cOpercode + 0)  FROM operacion o WHERE  (o.cdoctipo='02' or o.cdoctipo='01') "
    " AND o.cOperTipo in (1,2,3)  AND o.cOperFlaganula=0 {f}{t}"_sql;
constexpr LiteralSql kVouchers =
    u"SELECT distinct(o.cOpercode + 0)  FROM operacion o WHERE  (o.cemisor <> ''  or o.cOperTipo=2) "
    " AND o.cOperFlaganula=0 {f}{t}"_sql;
constexpr LiteralSql kVoucherLiquidacion =
    u" SELECT SUM(o.nmontosoles +  o.nprodprecunit ) as TOTAL   FROM operacion o "
    "  WHERE o.cOperTipo = 2 and o.cDocTipo={dLIQPAD}     AND o.cOperFlagAnula = 0{f}{t}"_sql;
constexpr LiteralSql kNulosMonto =
    u" SELECT SUM({valor}) as TKMontNulos   FROM Operacion o   WHERE o.cOperflaganula= 1     AND o.cProdcode <>  0 "
    "    AND o.cOpercodeanula <> 0 {f}{t}"_sql;
constexpr LiteralSql kNulos =
    u" SELECT distinct(o.cOperCode + 0)   FROM Operacion o   WHERE o.cOperflaganula= 1     AND o.cProdcode <>  0 "
    "    AND o.cOpercodeanula <> 0 {f}{t}"_sql;
constexpr LiteralSql kRecaudado =
    u" SELECT SUM({valor}) as TKMontPago, COUNT(*) as TKPago   FROM Operacion o   WHERE o.cOperflaganula= 0 "
    "    AND o.cOpercodeanula = 0     AND o.cOpertipo= 5 {f}"_sql;
constexpr LiteralSql kApertura = u" SELECT  nImporApertSol, nImporApertDol  FROM Configuracion "_sql;

double leerTipoCambio(Puesto& p, LectorReporte& l, const QDate* fecha) {
  QDateTime dia = p.reloj.now();
  if (fecha) {
    dia = fecha->startOfDay();
  } else {
    const Recordset primero = l.filas(kPrimerPagoEnDolares);
    if (!primero[u"Fecha"].isNull()) dia = primero[u"Fecha"].toDateTime();
  }
  const Recordset rs = l.filas(
      FormatearSQL(u" SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') = '$'"_sql,
                   {Texto(FormatearFecha(dia, u"yyyy/mm/dd"))}));
  if (!l.bien()) return 0;
  if (rs.RecordCount() == 1) return Numero(rs[u"nTipoCambMont"]);
  p.mensajes.mostrar(QStringLiteral("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  return 0;
}

}  // namespace

const ConsultasReporte kConsultasX = {
    .voucher =
        u" SELECT SUM({valor}) AS TOTAL  FROM Operacion o  WHERE o.cOperTipo = 2   AND o.cOperFlagAnula = 0 {f}{t}"_sql,
    .efectivoConTarjeta =
        u" SELECT SUM(o.nMontosoles) AS TOTAL FROM Operacion o  WHERE o.cOperTipo = 1 AND TRIM(o.cEmisor) <> '' "
        " AND o.cDoctipo in ('01', '02')  AND o.cOperFlagAnula = 0 {f}{t}"_sql,
    .cajaDol = u" SELECT SUM(o.nMontoDolares-o.nVueltoDolares) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1, 3) "
               " AND o.cDoctipo in ('01','02')  AND o.cOperFlaganula= 0 {f}"_sql,
    .cajaSol = u" SELECT SUM(o.nMontoSoles + o.nProdPrecUnit) AS TOTAL FROM Operacion o  WHERE (o.cOperTipo in( 1, 3)) "
               " AND o.cDoctipo in ('01','02')  AND o.cProdCode = 0  AND o.cOperFlaganula= 0 {f}"_sql,
    .productos =
        u" SELECT P.cProdCode, SUM(O.nProdCant) AS Cant,  max(P.SProdDescCrta) as Descrip, max(P.cCodCatalogo) as "
        "Catal  FROM Producto AS P  LEFT outer JOIN Operacion AS O    ON P.cProdCode = O.cProdCode AND P.cAlmaCode = "
        "O.cAlmaCode  WHERE cOperflagAnula= 0 {f}{t} GROUP BY P.cProdCode Having  SUM(O.nProdCant) > 0 ORDER BY 1"_sql,
};

const ConsultasReporte kConsultasX1 = {
    .voucher = u" SELECT SUM({valor}) AS TOTAL FROM Operacion o  WHERE o.cOperTipo = 2 AND o.cOperFlagAnula = 0 "
               " AND o.cOpercodeAnula=0 {f}{t}"_sql,
    .efectivoConTarjeta =
        u" SELECT SUM(o.nMontosoles) AS TOTAL FROM Operacion o WHERE o.cOperTipo = 1 AND TRIM(o.cEmisor) <> '' "
        " AND o.cOperFlagAnula = 0 {f}{t}"_sql,
    .cajaDol = u" SELECT SUM(o.nMontoDolares-o.nVueltoDolares) AS TOTAL FROM Operacion o  WHERE o.cOperTipo in (1) "
               " AND o.cDoctipo in ('01','02', {dLIQPAD}, {dOC})  AND o.cOperFlaganula= 0 {f}"_sql,
    .cajaSol = u" SELECT SUM(o.nMontoSoles + o.nProdPrecUnit) AS TOTAL FROM Operacion o  WHERE (o.cOperTipo in( 1)) "
               " AND o.cDoctipo in ('01','02',{dOC}, {dLIQPAD})  AND o.cProdCode = 0  AND o.cOperFlaganula= 0 {f}"_sql,
    .productos =
        u"SELECT cProdcode, sum(cantidad) as Cant ,  max(catalogo) as Catal, max(descripcion) as Descrip  FROM "
        "( SELECT 1, cProdCode,  sum(cant) as Cantidad , max(catal) as Catalogo, max(Descrip) as Descripcion  FROM "
        "(SELECT  o.cProdCode,  sum(o.nProdCant) as cant ,  max(p.cCodcatalogo)  as catal, max( p.sProdDesc)  as "
        "Descrip  FROM Operacion o, Producto p  WHERE o.cProdcode = p.cProdcode And o.cAlmaCode = p.cAlmaCode And "
        "o.cProdcode <> 0  And o.cOperFlaganula = 0 {f}{t} GROUP BY o.cProdCode  )  GROUP BY cProdCode  UNION "
        " SELECT 2, d.cProdCode,  sum( d.nProdCant) as cantidad ,  max(p.cCodcatalogo)  as catalogo, "
        " max( p.sProdDesc)  as Descripcion  FROM  OperacionParalelaProducto  d, OperacionParalela o,   Producto  p "
        " WHERE d.cOpercode = o.cOpercode AND d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode AND d.cProdcode "
        "<> 0  AND o.cOperCodeanul = 0 AND TRIM(o.cEstado)= '1' AND o.cOpertipo + 0 in ({OC}, {NC}) {p}{t}  GROUP BY "
        "d.cProdCode   )  GROUP BY  cProdcode  ORDER BY  3"_sql,
};

std::vector<FilaProductoReporte> FilasDeProducto(const Recordset& rs) {
  std::vector<FilaProductoReporte> lista;
  for (const auto& f : rs) {
    lista.push_back({.cProdCode = AEntero(Numero(f[u"cProdCode"])),
                     .catalogo = LimpiarNulo(f[u"Catal"]),
                     .descripcion = LimpiarNulo(f[u"Descrip"]),
                     .cantidad = Numero(f[u"Cant"])});
  }
  return lista;
}

CifrasReporte LeerCifras(Puesto& p, LectorReporte& l, const ConsultasReporte& q, const QDate* fecha) {
  CifrasReporte c;
  c.nTipoCambio = leerTipoCambio(p, l, fecha);
  const Recordset venta = l.filas(kVenta);
  c.nItems = AEntero(Numero(venta[u"TotItem"]));
  c.nVenta = Numero(venta[u"TotMonto"]);
  c.productos = FilasDeProducto(l.filas(q.productos));
  c.nVoucher = l.numero(q.voucher) - l.numero(q.efectivoConTarjeta) + l.numero(kVoucherLiquidacion);
  c.nTickets = l.cuantas(kTickets);
  c.nVouchers = l.cuantas(kVouchers);
  c.nNulosMonto = l.numero(kNulosMonto);
  c.nNulos = l.cuantas(kNulos);
  const Recordset recaudado = l.filas(kRecaudado);
  c.nRecaudado = Numero(recaudado[u"TKMontPago"]);
  c.nRecaudaciones = AEntero(Numero(recaudado[u"TKPago"]));
  const Recordset apertura = l.filas(kApertura);
  c.nAperturaSol = Numero(apertura[u"nImporApertSol"]);
  c.nAperturaDol = Numero(apertura[u"nImporApertDol"]);
  c.nCajaDol = l.numero(q.cajaDol);
  c.nCajaSol = l.numero(q.cajaSol);
  c.nRecaudado = std::min(c.nRecaudado, c.nCajaSol + c.nAperturaSol);
  return c;
}
