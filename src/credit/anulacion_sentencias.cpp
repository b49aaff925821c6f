#include "credit/anulacion_sentencias.h"

#include "documento/filas_paralelas.h"
#include "documento/ticket.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n");

Sql deEseDocumento(LiteralSql tabla, const EstadoDocumento& d) {
  return FormatearSQL(u" FROM $ x WHERE x.TipoDoc = '$' AND x.cSerieDoc = '$' AND x.NroDoc = '$'"_sql,
                      {tabla, Texto(Codigo(d.doc)), Texto(d.serie), Texto(d.numero)});
}

// 1 where the condition holds; a division by it ends the act where it doesn't.
Sql siVale(const Sql& condicion) {
  return FormatearSQL(u"(CASE WHEN FechaAnulacion IS NULL AND $ THEN 1 ELSE 0 END)"_sql, {condicion});
}

QString palabraAnulada(const AnularTransaccionCtaCte& v) {
  if (!v.pago) return PalabraDe(v.documento->doc);
  return Izquierda(v.pago->serie, 2) == u"PA" ? QStringLiteral("PADE") : QStringLiteral("PADV");
}

}  // namespace

std::optional<ErrorBD> LeerPago(Conexion& central, const QString& serie, const QString& numero,
                                std::optional<PagoGuardado>& pago) {
  std::optional<EstadoDocumento> d;
  return LeerPagoConDocumento(central, serie, numero, pago, d);
}

std::optional<ErrorBD> LeerPagoConDocumento(Conexion& central, const QString& serie, const QString& numero,
                                            std::optional<PagoGuardado>& pago,
                                            std::optional<EstadoDocumento>& documento) {
  Recordset rs;
  pago.reset();
  if (auto error = central.consultar(
          FormatearSQL(u"SELECT p.idpago, p.TipoDoc, p.cSerieDoc, p.NroDoc, p.cSerieDocPago, p.NroDocPago, p.FormaPago,"
                       " (SELECT vDscTipoPago FROM tipoformapago t WHERE t.cCodTipoPago = p.FormaPago) AS Forma,"
                       " p.FechaPago, p.Monto, p.Moneda, p.bEsPagoDetraccion, p.FechaAnulacion FROM Pagos p"
                       " WHERE p.cSerieDocPago='$' AND CONVERT(INT,p.NroDocPago)=$"_sql,
                       {Texto(serie), AEntero(Val(numero))}),
          rs)) {
    return error;
  }
  if (rs.Eof()) return {};
  PagoGuardado x;
  x.idpago = AEntero(Numero(rs[u"idpago"]));
  x.serie = LimpiarNulo(rs[u"cSerieDocPago"]);
  x.numero = LimpiarNulo(rs[u"NroDocPago"]);
  x.formaPago = LimpiarNulo(rs[u"FormaPago"]);
  x.descripcionForma = LimpiarNulo(rs[u"Forma"]);
  x.fecha = rs[u"FechaPago"].toDateTime();
  x.monto = Numero(rs[u"Monto"]);
  x.enDolares = LimpiarNulo(rs[u"Moneda"]) == u"E";
  x.esDetraccion = Numero(rs[u"bEsPagoDetraccion"]) != 0;
  x.anulado = !rs[u"FechaAnulacion"].isNull();
  pago = x;
  const DocCredito doc = DocCreditoDe(LimpiarNulo(rs[u"TipoDoc"])).value_or(DocCredito::FADE);
  return LeerEstado(central, DeNumero(doc, LimpiarNulo(rs[u"cSerieDoc"]), LimpiarNulo(rs[u"NroDoc"])), documento);
}

std::optional<ErrorBD> LeerVida(Conexion& central, const EstadoDocumento& d, VidaDocumento& vida) {
  Recordset rs;
  const auto error = central.consultar(
      FormatearSQL(u"SELECT (SELECT COUNT(*)$ AND x.FechaAnulacion IS NULL) AS Pagos,"
                   " (SELECT COUNT(*) FROM ConsumoVenta c WHERE c.cCodVta = v.cCodVta AND c.bAnulado = 0) AS Notas,"
                   " (SELECT SUM(l.nQtdVendida) FROM Venta02 l WHERE l.cCodVta = v.cCodVta) AS Unidades"
                   " FROM Venta01 v"_sql,
                   {deEseDocumento(u"Pagos"_sql, d)}) +
          DeCodigo(d.cCodVta),
      rs);
  vida = {static_cast<int>(AEntero(Numero(rs[u"Pagos"]))), static_cast<int>(AEntero(Numero(rs[u"Notas"]))),
          Numero(rs[u"Unidades"])};
  return error;
}

QString RechazoDocumento(const EstadoDocumento& d, const VidaDocumento& vida) {
  if (d.anulado) return QStringLiteral("El documento seleccionado ya se encuentra anulado");
  if (vida.pagos > 0) {
    return QStringLiteral("El documento seleccionado no se puede anular por presentar Pagos asociados sin anular.");
  }
  if (vida.notas > 0) {
    return QStringLiteral(
        "El documento seleccionado no se puede anular por presentar Notas de Consumo asociadas sin anular.");
  }
  return d.palabras();
}

QString RechazoPago(const EstadoDocumento& d, const PagoGuardado& pago) {
  if (pago.anulado) return QStringLiteral("El documento seleccionado ya se encuentra anulado");
  if (!d.liquidado) return {};
  return d.palabras() + QStringLiteral(" Sus pagos ya no se anulan.");
}

std::vector<Sql> SentenciasAnularDocumento(const EstadoDocumento& d) {
  const Sql libre = u"bLiquidado = 0 AND (SELECT COUNT(*)"_sql + deEseDocumento(u"Pagos"_sql, d) +
                    u" AND x.FechaAnulacion IS NULL) = 0"_sql +
                    FormatearSQL(u" AND (SELECT COUNT(*) FROM ConsumoVenta c WHERE c.cCodVta = $ AND c.bAnulado = 0)"
                                 " = 0"_sql,
                                 {d.cCodVta});
  return {
      FormatearSQL(u"UPDATE Venta01 SET bLiquidado = bLiquidado / $, FechaAnulacion = getdate()"_sql, {siVale(libre)}) +
      DeCodigo(d.cCodVta)};
}

std::vector<Sql> SentenciasAnularPago(const EstadoDocumento& d, const PagoGuardado& pago) {
  const Sql abierto = u"(SELECT MAX(x.bLiquidado)"_sql + deEseDocumento(u"Venta01"_sql, d) + u") = 0"_sql;
  std::vector<Sql> s{FormatearSQL(u"UPDATE Pagos SET NroItem = NroItem / $, FechaAnulacion = getdate()"
                                  " WHERE idpago = $"_sql,
                                  {siVale(abierto), pago.idpago})};
  if (pago.esDetraccion) {
    s.push_back(FormatearSQL(u"UPDATE Detraccion SET Estado='P' WHERE SerieDoc='$' AND NroDoc='$'"_sql,
                             {Texto(d.serie), Texto(d.numero)}));
  }
  return s;
}

std::optional<ErrorBD> BuscarPagoAqui(Puesto& p, const PagoGuardado& pago, std::optional<TomadaAqui>& fila) {
  Recordset rs;
  fila.reset();
  const auto error = p.poCnnLocal.consultar(
      FormatearSQL(u"SELECT cOperCode, cOperTipo, cEstado, cOperFlagAbierto FROM OperacionParalela"
                   " WHERE cDocSerie = '$' AND cDocCodigo = $ AND cOperTipo IN ($)"_sql,
                   {Texto(pago.serie), AEntero(Val(pago.numero)), Codigos({TipoOperacion::PADE, TipoOperacion::PADV})}),
      rs);
  if (error || rs.RecordCount() != 1) return error;
  TomadaAqui t;
  t.codigo = AEntero(Numero(rs[u"cOperCode"]));
  t.tipo = static_cast<TipoOperacion>(AEntero(Numero(rs[u"cOperTipo"])));
  t.seAnula = LimpiarNulo(rs[u"cEstado"]) == u"1" && Numero(rs[u"cOperFlagAbierto"]) == 1;
  fila = t;
  return {};
}

std::optional<ErrorBD> SentenciasAnularPagoAqui(Puesto& p, const TomadaAqui& fila, ActoDoble& acto) {
  Recordset rs;
  if (auto error = p.poCnnLocal.consultar(u"SELECT MAX(cOperCode) AS maximo FROM OperacionParalela"_sql, rs)) {
    return error;
  }
  const qint64 codigo = AEntero(Numero(rs[0])) + 1;
  acto.enLocal =
      SentenciasAnularParalela(p, fila.tipo, fila.codigo, codigo, FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm"));
  acto.deshacer = SentenciasDevolverParalela(fila.codigo, codigo);
  return {};
}

QString CajaDeRecibo(const QString& serie) { return Rellenar(serie.mid(2), 5, u'0'); }

void ImprimirAnulacionCredito(Puesto& p, const AnularTransaccionCtaCte& v, double unidades) {
  (void)CargarCabeceraImpresion(p);  // a header that can't be read stays as it was
  const EstadoDocumento& d = *v.documento;
  const bool dolares = v.pago ? v.pago->enDolares : d.enDolares;
  const double importe = v.pago ? v.pago->monto : d.enDolares ? d.totalUSD : d.total;
  const QString serie = v.pago ? v.pago->serie : d.serie, numero = v.pago ? v.pago->numero : d.numero;
  const QDateTime ahora = p.reloj.now();
  const QString anulada = Espacios(10) + QStringLiteral("TRANSACCION ANULADA") + kFin;
  const auto conAsterisco = [](double valor, int ancho, QStringView mascara) {
    return Derecha(Espacios(28) + u'*' + Formatear(valor, mascara), ancho);
  };
  const QString texto =
      LineasCabecera(p.ses.psCabeceraImpresion) + kFin + Espacios(13) + FormatearFecha(ahora, u"DD/MM/YYYY (DDD)") +
      kFin + anulada + Espacios(18) + palabraAnulada(v) + kFin + Separador() + kFin + QStringLiteral("CASH/TL  ") +
      (dolares ? QStringLiteral("$  ") : QStringLiteral("S/.")) + conAsterisco(importe, 26, u"###,###,##0.00") + kFin +
      QStringLiteral("   ITEM  ") + conAsterisco(unidades, 29, u"###,##0.00") + kFin + kFin + Espacios(10) +
      QStringLiteral("Documento:") + NumeroImpreso(serie, numero, 7) + kFin + anulada + kFin + u' ' +
      Izquierda(p.ses.psUsuario, 10) + u' ' + FormatearFecha(ahora, u"hh:mm") + u' ' + kFin +
      QStringLiteral("Supervisor: ") + Izquierda(v.txtsupervisor, 10) + u' ' + kFin + QStringLiteral("CAJA: ") +
      p.ses.psCaja + QStringLiteral("   TURNO: ") + p.ses.psTurno + kFin + QStringLiteral("Correlativo: ") +
      CorrelativoImpresion(p, kImpresoraPrincipal);
  ImprimirDocumento(p, texto, kImpresoraPrincipal);
}
