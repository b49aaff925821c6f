#include "credit/sentencias_credito.h"

#include <algorithm>

#include "documento/tarjeta.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

QString dia(const QDate& d) { return FormatearFecha(d.startOfDay(), u"yyyymmdd"); }

Valor oNulo(const QString& texto) { return texto.isEmpty() ? Valor() : Valor(Texto(texto)); }

// Holds the document open, with `condicion` on top: a division by zero ends the act where it isn't.
Sql exigir(const EstadoDocumento& d, const Sql& condicion, int liquidado) {
  return FormatearSQL(u"UPDATE Venta01 SET bLiquidado = $ / (CASE WHEN FechaAnulacion IS NULL AND bLiquidado = 0 $"
                      " THEN 1 ELSE 0 END)"_sql,
                      {liquidado, condicion}) +
         DeCodigo(d.cCodVta);
}

// What is left to pay of it in its own currency, not rounded, and what was consumed, read where the statement runs.
Sql saldo(const EstadoDocumento& d) {
  return FormatearSQL(
      u"$ - ISNULL((SELECT SUM($) FROM Pagos p WHERE p.TipoDoc = '$' AND p.cSerieDoc = '$' AND p.NroDoc = '$'"
      " AND p.FechaAnulacion IS NULL),0)"_sql,
      {d.enDolares ? u"TotVtaUSD"_sql : u"TotVta"_sql,
       d.enDolares ? u"CASE WHEN p.Moneda = 'E' THEN p.Monto WHEN p.nTipoCambio > 0 THEN p.Monto / p.nTipoCambio"
                     " ELSE 0 END"_sql
                   : u"CASE p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END"_sql,
       Texto(Codigo(d.doc)), Texto(d.serie), Texto(d.numero)});
}

Sql consumido(const EstadoDocumento& d) {
  return FormatearSQL(
      u"ISNULL((SELECT SUM(c.nMonto) FROM ConsumoVenta c WHERE c.cCodVta = $ AND c.bAnulado = 0),0)"_sql, {d.cCodVta});
}

// Lines in one statement, so many at most as every engine takes: one round trip. The first row names the columns.
constexpr size_t kLineasJuntas = 100;
Sql lineas(const Puesto& p, const FacturaCredito& f, const Sql& donde, size_t desde) {
  constexpr LiteralSql kPrimera =
      u"SELECT $ AS NroItem, '$' AS cCodartic, '$' AS sProdDscCrta, $ AS nPrecioOrig, $ AS nQtdVendida,"
      " $ AS nDescuento, $ AS nServicio"_sql;
  constexpr LiteralSql kOtra = u"SELECT $, '$', '$', $, $, $, $"_sql;
  std::vector<Sql> filas;
  for (size_t i = desde; i < std::min(f.lineas.size(), desde + kLineasJuntas); ++i) {
    const LineaDocumento& l = f.lineas[i];
    filas.push_back(
        FormatearSQL(filas.empty() ? kPrimera : kOtra,
                     {i + 1, Texto(Ceros(QString::number(l.cProdCode), 6)), Texto(l.descripcion), l.precio, l.cantidad,
                      l.porcentaje, l.conServicio ? Valor(Cifras(p.ses.psPorcServ)) : Valor(0)}));
  }
  return FormatearSQL(u"INSERT INTO Venta02 (cCodVta, NroItem, cCodartic, sProdDscCrta, nPrecioOrig, nQtdVendida,"
                      " nDescuento, nServicio) SELECT v.cCodVta, l.NroItem, l.cCodartic, l.sProdDscCrta, l.nPrecioOrig,"
                      " l.nQtdVendida, l.nDescuento, l.nServicio FROM Venta01 v, ($) l"_sql,
                      {UnirSql(filas, u" UNION ALL "_sql)}) +
         donde;
}

}  // namespace

DatosOperacion OperacionDe(const Puesto& p, const EstadoDocumento& documento, const NumeroTomado& numero,
                           TipoOperacion tipo) {
  DatosOperacion o;
  o.codigo = numero.codigo;
  o.tarjeta = NumeroTarjeta(documento.tarjeta);
  o.fecha = FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm");
  o.tipo = tipo;
  o.documento = numero.tipo;
  o.serie = numero.documento.serie;
  o.numero = numero.documento.numero;
  return o;
}

std::vector<Sql> SentenciasFactura(const Puesto& p, const FacturaCredito& f) {
  const QString numero = NumeroEscrito(f.numero);
  // The lock lies on a row that every central database has: the highest code is read behind it.
  std::vector<Sql> s{u"UPDATE parametro SET nmonto1 = nmonto1 WHERE cCodParam = 'IGV'"_sql};
  s.push_back(FormatearSQL(
      u"INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, NroRuc,"
      " ValorVta, Igv, Serv, TotVta, nPorcIGV, TotVtaUSD, cCodMoneda, nTipoCambio, cCodTipoCredito, fechaemision,"
      " FechaAnulacion, FechaVencimiento, cCodCabVtaRef, bTieneDetraccion)"
      " SELECT isnull(max(CAST(cCodVta AS INT)),0) + 1, '$', '$', '$', '$', '$', $, '$', '$', $, $, $, $, $, $, '$',"
      " $, '$', CONVERT(DATETIME,'$',112), Null, Null, Null, $ FROM Venta01"_sql,
      {Texto(Codigo(f.doc)), Texto(f.serie), Texto(numero), Texto(p.ses.psCaja), Texto(f.tarjeta), f.idLocal,
       Texto(f.cliente), Texto(f.ruc), Redondear(f.total - f.igv - f.servicio, 2), f.igv, f.servicio, f.total,
       p.ses.pnIGV, f.totalUSD, Texto(QString(f.enDolares ? u'E' : u'N')), p.ses.pnTipoCambio, Texto(f.credito),
       Texto(dia(f.emision)), f.detraccion.afecta}));
  const Sql donde = DeNumero(f.doc, f.serie, numero);
  for (size_t i = 0; i < f.lineas.size(); i += kLineasJuntas) s.push_back(lineas(p, f, donde, i));
  if (f.detraccion.afecta) {
    s.push_back(FormatearSQL(
        u"INSERT INTO Detraccion (SerieDoc,NroDoc,MontoDetracc,PorcDetracc,Estado)VALUES ('$','$',$,$,'P')"_sql,
        {Texto(f.serie), Texto(numero), f.detraccion.monto, f.detraccion.porcentaje / 100}));
  }
  return s;
}

std::vector<Sql> SentenciasPago(const Puesto& p, const PagoCredito& pago) {
  const EstadoDocumento& d = pago.documento;
  // What the others have paid meanwhile counts too, should the act be finished later.
  const Sql cabe =
      FormatearSQL(u" AND $ >= $"_sql,
                   // Half a cent for sums that were not rounded.
                   {saldo(d), Redondear((d.enDolares ? pago.importe.dolares : pago.importe.soles) - 0.0055, 4)});
  const NumeroDocumento& recibo = pago.recibo.documento;
  std::vector<Sql> s{exigir(d, cabe, 0)};
  s.push_back(FormatearSQL(
      u"INSERT INTO PAGOS (cSerieDocPago, NroDocPago, TipoDoc, cSerieDoc, NroDoc, NroItem, FormaPago, FechaPago, Monto,"
      " Moneda, nTipoCambio, IdTarjeta, IdBanco, NroCtaBancaria, NroOperacion, NroCertificadoRetencion,"
      " NroDepositoDetraccion, cClieCode, idLocal, bEsPagoDetraccion)"
      " SELECT '$','$','$','$','$',isnull(max(CAST(NroItem AS INT)),0) + 1,'$',CONVERT(DATETIME,'$',112),$,'$',$,'$',"
      "'$','$','$','$',Null,$,$,$ FROM Pagos WHERE TipoDoc = '$' AND cSerieDoc = '$' AND NroDoc = '$'"_sql,
      {Texto(recibo.serie),
       Texto(NumeroEscrito(recibo.numero)),
       Texto(Codigo(d.doc)),
       Texto(d.serie),
       Texto(d.numero),
       Texto(pago.forma),
       Texto(dia(pago.fecha)),
       pago.enDolares ? pago.importe.dolares : pago.importe.soles,
       Texto(QString(pago.enDolares ? u'E' : u'N')),
       p.ses.pnTipoCambio,
       oNulo(pago.tarjeta),
       oNulo(pago.banco),
       oNulo(pago.cuenta),
       oNulo(pago.operacion),
       oNulo(pago.certificado),
       Val(d.tarjeta),
       d.idLocal,
       pago.esDetraccion,
       Texto(Codigo(d.doc)),
       Texto(d.serie),
       Texto(d.numero)}));
  if (pago.esDetraccion) {
    s.push_back(FormatearSQL(u"UPDATE DETRACCION SET Estado='C' WHERE SerieDoc='$' AND NroDoc='$' AND Estado='P'"_sql,
                             {Texto(d.serie), Texto(d.numero)}));
  }
  return s;
}

std::vector<Sql> SentenciasConsumo(const Puesto& p, const EstadoDocumento& d, qint64 codigoNota, double soles) {
  const Sql cabe = FormatearSQL(u" AND TotVta - $ >= $"_sql, {consumido(d), Redondear(soles - 0.0005, 4)});
  return {exigir(d, cabe, 0),
          FormatearSQL(u"INSERT INTO ConsumoVenta (cCodVta, cCajaCodi, cOperCode, dFecha, nMonto, bAnulado)"
                       " VALUES ($,'$',$,'$',$,0)"_sql,
                       {d.cCodVta, Texto(p.ses.psCaja), codigoNota,
                        Texto(FormatearFecha(p.reloj.now(), u"yyyymmdd hh:nn:ss")), soles})};
}

std::vector<Sql> SentenciasLiquidacion(const EstadoDocumento& d) {
  // As it was weighed: paid, and nothing consumed beyond it.
  return {exigir(
      d,
      FormatearSQL(u" AND $ BETWEEN -0.0055 AND 0.0055 AND $ BETWEEN $ AND $"_sql,
                   {saldo(d), consumido(d), Redondear(d.consumido - 0.0005, 4), Redondear(d.consumido + 0.0005, 4)}),
      1)};
}
