#include "entrada.h"
#include "platform/sql/instante.h"
#include "platform/text/fecha.h"

namespace {

using Error = std::optional<ErrorBD>;

// What the payments of each document that were not voided have brought, in both currencies. Texts that compare bear a
// "~" (sinFinales).
const char kPagado[] =
    "WITH pagado AS (SELECT TipoDoc, cSerieDoc, NroDoc, "
    "SUM(CASE ~Moneda WHEN 'E' THEN Monto * nTipoCambio ELSE Monto END) AS soles, "
    "SUM(CASE ~Moneda WHEN 'E' THEN Monto ELSE Monto / NULLIF(nTipoCambio, 0) END) AS dolares "
    "FROM Pagos WHERE FechaAnulacion IS NULL GROUP BY ~TipoDoc, ~cSerieDoc, ~NroDoc), "
    "cuenta AS (SELECT v.*, CASE v.IdLocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END AS NombreLocal, "
    "CASE ~v.cCodMoneda WHEN 'E' THEN 'DOLARES' ELSE 'SOLES' END AS NombreMoneda, "
    "round(v.TotVta - ifnull(p.soles, 0), 2) AS Restante, round(v.TotVtaUSD - ifnull(p.dolares, 0), 2) AS RestanteUSD "
    "FROM Venta01 v LEFT JOIN pagado p ON ~p.TipoDoc = ~v.TipoDoc AND ~p.cSerieDoc = ~v.cSerieDoc "
    "AND ~p.NroDoc = ~v.NroDoc WHERE v.FechaAnulacion IS NULL) ";

Error consultar(AccesoMotor& bd, const char* sql, const QVariantList& valores, Recordset& rs) {
  return bd.consultar(sinFinales(sql), valores, rs);
}

// Open documents that still take a payment, a deposit of their detraction, or the void of a payment: those with a
// balance, with a detraction that is pending, or with a payment that stands.
Error pendientesDePago(AccesoMotor& bd, const QVariantList& a, Recordset& rs) {
  return consultar(
      bd,
      "SELECT v.TipoDoc, v.cSerieDoc, v.NroDoc, v.fechaemision, "
      "CASE v.IdLocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END AS NombreLocal, v.DscCliente, v.cClienteCode, "
      "v.IdLocal, CASE ~v.cCodMoneda WHEN 'E' THEN 'DOLARES' ELSE 'SOLES' END AS Moneda, v.TotVta, v.TotVtaUSD, "
      "round(v.TotVta - ifnull(SUM(CASE ~p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END), 0), 2) "
      "AS Restante, round(v.TotVtaUSD - ifnull(SUM(CASE ~p.Moneda WHEN 'E' THEN p.Monto "
      "ELSE p.Monto / NULLIF(p.nTipoCambio, 0) END), 0), 2) AS RestanteUSD "
      "FROM Venta01 v LEFT JOIN Pagos p ON p.cSerieDoc = v.cSerieDoc AND p.NroDoc = v.NroDoc "
      "AND p.TipoDoc = v.TipoDoc AND p.FechaAnulacion IS NULL "
      "WHERE v.TipoDoc = ?1 AND v.FechaAnulacion IS NULL AND v.bLiquidado = 0 GROUP BY v.cCodVta "
      // Without a payment that stands its balance is its total.
      "HAVING SUM(CASE ~p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END) IS NOT NULL "
      "OR round(CASE ~v.cCodMoneda WHEN 'E' THEN v.TotVtaUSD ELSE v.TotVta END, 2) > 0 "
      "OR (~v.TipoDoc = '01' AND EXISTS (SELECT 1 FROM Detraccion d WHERE d.SerieDoc = v.cSerieDoc "
      "AND d.NroDoc = v.NroDoc AND ~d.Estado = 'P')) ORDER BY v.fechaemision, v.cSerieDoc, v.NroDoc",
      a, rs);
}

// Open for consumption: neither voided nor settled.
Error pendientesDeConsumo(AccesoMotor& bd, const QVariantList& a, Recordset& rs) {
  return consultar(
      bd,
      "SELECT v.cCodVta, v.cCodCaja, v.TipoDoc, v.cSerieDoc, v.NroDoc, v.cClienteCode, v.IdLocal, "
      "CASE v.IdLocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END AS Local, v.DscCliente, v.NroRuc, v.TotVta, "
      "v.TotVtaUSD, v.cCodMoneda, t.vDscTipoCredito AS TipoCredito, v.fechaemision "
      "FROM Venta01 v LEFT JOIN TipoCredito t ON ~t.cCodTipoCredito = ~v.cCodTipoCredito "
      "WHERE ~v.TipoDoc = ?1 AND v.FechaAnulacion IS NULL AND v.bLiquidado = 0 "
      "ORDER BY v.fechaemision, v.cSerieDoc, v.NroDoc",
      a, rs);
}

Error cuentaDeCliente(AccesoMotor& bd, const QVariantList& a, Recordset& rs) {
  static const QByteArray sql =
      QByteArray(kPagado) +
      "SELECT cCodVta AS Codigo, TipoDoc, CASE ~TipoDoc WHEN '01' THEN 'FACTURA' ELSE 'BOLETA' END AS Documento, "
      "cSerieDoc AS Serie, NroDoc AS Numero, fechaemision AS \"Fec Emision\", NombreMoneda AS Moneda, "
      "TotVta AS \"Total Vta\", TotVtaUSD AS \"Total Vta USD\", Restante AS \"M. Restante\", "
      "RestanteUSD AS \"M. Restante USD\" FROM cuenta WHERE cClienteCode IN (printf('%08d', ?1), "
      "CAST(?1 AS TEXT)) AND IdLocal = ?2 "
      "ORDER BY fechaemision, cSerieDoc, NroDoc";
  return consultar(bd, sql.constData(), a, rs);
}

// The last count of each article up to the end date, and what was sold behind it, from the start date on where nobody
// has counted. Arguments 4 to 6 are of no use here.
Error saldos(AccesoMotor& bd, const QVariantList& a, Recordset& rs) {
  const auto desde = leerInstante(a[0].toString()), hasta = leerInstante(a[1].toString());
  if (!desde || !hasta) return noEsFecha(desde ? a[1] : a[0]);
  const QString fin = FechaISO(hasta->date().addDays(1).startOfDay());
  return consultar(bd,
                   "WITH contado AS (SELECT cCodArtic, MAX(dFecha) AS dia, nSaldo FROM SaldoArticulo "
                   "WHERE ~cCodAlmac = ?4 AND dFecha < ?2 GROUP BY ~cCodArtic) "
                   "SELECT a.vDscartic AS descarticulo, ifnull(u.vDscCrta, a.cUndSalida) AS unidmed, "
                   "a.cCodartic AS ccodidart, ifnull(c.nSaldo, 0) AS saldoanterior, "
                   "ifnull((SELECT SUM(m.nCantidad) FROM ZANKEBMOVIVNTA m WHERE ~m.cProdCode = ~a.cCodartic "
                   "AND ~m.cAlmaCode = ?4 AND m.dFecha >= ifnull(c.dia, ?1) AND m.dFecha < ?2), 0) AS saldos "
                   "FROM Articulo a LEFT JOIN contado c ON ~c.cCodArtic = ~a.cCodartic "
                   "LEFT JOIN UnidadMedida u ON ~u.cUndmedid = ~a.cUndSalida "
                   "WHERE a.bSwActivo = 0 AND a.cCodartic GLOB ?3 ORDER BY a.cCodartic",
                   {FechaISO(desde->date().startOfDay()), fin, a[2], a[6]}, rs);
}

Error reprocesarMovimientos(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  const auto fecha = leerInstante(a[0].toString());
  return fecha ? rehacerMovimientos(bd, fecha->date(), {}) : noEsFecha(a[0]);
}

// Mails wait in a table of the central database; who sends them from there is not the till's business.
Error enviarCorreo(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  return bd.ejecutar(
      QStringLiteral("INSERT INTO CorreoSalida (dFecha, vDe, vPara, vAsunto, vCuerpo) VALUES (?, ?, ?, ?, ?)"),
      QVariantList{FechaISO(bd.ahora())} + a);
}

}  // namespace

// Each unit once: the sale of a liquidation sells what its notes have delivered, and so does the order that closes one.
Error rehacerMovimientos(AccesoMotor& bd, QDate dia, const QString& caja) {
  const QVariantList valores{FechaISO(dia.startOfDay()), FechaISO(dia.addDays(1).startOfDay()), caja};
  if (auto error = bd.ejecutar(sinFinales("DELETE FROM ZANKEBMOVIVNTA WHERE dFecha >= ?1 AND dFecha < ?2 "
                                          "AND (?3 = '' OR ~cCajaCodi = ?3)"),
                               valores)) {
    return error;
  }
  // As in the detail of a Z: what is alike to the letter first.
  return bd.ejecutar(
      sinFinales("INSERT INTO ZANKEBMOVIVNTA (dFecha, cCajaCodi, cAlmaCode, cDocTipo, cDocSerie, cProdCode, nCantidad, "
                 "nMonto) "
                 "SELECT ?1, cCajaCodi, cAlmaCode, cDocTipo, cDocSerie, cProdCode, SUM(cantidad), round(SUM(monto), 6) "
                 "FROM (SELECT cCajaCodi, cAlmaCode, cDocTipo, cDocSerie, cProdCode, SUM(nProdCant) AS cantidad, "
                 "SUM(nProdCant * nProdPrecUnit * (1 + nDscto / 100.0)) AS monto FROM Operacion "
                 "WHERE dOperFech >= ?1 AND dOperFech < ?2 AND (?3 = '' OR ~cCajaCodi = ?3) AND cOperFlagAnula = 0 "
                 "AND cOperTipo <> 3 GROUP BY cProdCode, cDocSerie, cDocTipo, cCajaCodi, cAlmaCode UNION ALL "
                 "SELECT o.cCajaCodi, p.cAlmaCode, o.cDocTipo, o.cDocSerie, p.cProdCode, p.nProdCant, p.nProdCant * "
                 "p.nProdPrecUnit * (1 + p.nDscto / 100.0) "
                 "FROM OperacionParalela o, OperacionParalelaProducto p WHERE o.dOperFech >= ?1 AND o.dOperFech < ?2 "
                 "AND (?3 = '' OR ~o.cCajaCodi = ?3) AND p.cCajaCodi = o.cCajaCodi AND p.cOperCode = o.cOperCode "
                 "AND o.cOperCodeAnul = 0 AND ~o.cEstado <> '0' AND (o.cOperTipo = 21 OR o.cOperTipo = 20 AND "
                 "o.cOperCodeRela = 0)) WHERE CAST(cProdCode AS INTEGER) <> 0 "
                 "GROUP BY ~cCajaCodi, ~cAlmaCode, ~cDocTipo, ~cDocSerie, ~cProdCode"),
      valores);
}

std::vector<EntradaProcedimiento> procedimientosDeCuentas() {
  return {
      {"usp_sel_ListadoDocumentosPendientesPago", 1, pendientesDePago},
      {"usp_sel_ListadoDocumentosPendientesNC", 1, pendientesDeConsumo},
      {"usp_sel_CtaCtexCliente", 2, cuentaDeCliente},
      {"usp_Log_Saldos", 7, saldos},
      {"ZANKEBMOVIVNTA_REPROCESA", 1, reprocesarMovimientos},
      {"sp_send_cdosysmail", 4, enviarCorreo},
  };
}
