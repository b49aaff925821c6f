#include "documento/filas_paralelas.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

Sql SentenciaParalela(const Puesto& p, const DatosOperacion& o, const DatosParalela& d) {
  const EfectivoDocumento& e = d.efectivo;
  return FormatearSQL(u" INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, nTarjNumb,"
                      " nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa,"
                      " cEstado, cCajaCodi, cFlagSincronizacion, cTurnoCodi, cUserDesc, cOpercodeRela, "
                      " nEfectivoDolares, nVueltoDolares, cDocSerie, cDocCodigo, cDocTipo ) "
                      " VALUES"
                      " ($, $, '$', '$', $, $, $, $, $, '$', '$', '$', '$', '$', '$', $ ,$ ,$,'$',$,'$')"_sql,
                      {o.codigo,
                       Codigo(o.tipo),
                       Texto(o.fecha),
                       Texto(o.tarjeta),
                       d.moneda,
                       d.montoSoles,
                       d.montoDolares,
                       e.soles,
                       e.vueltoSoles,
                       Texto(d.glosa),
                       1,
                       Texto(p.ses.psCaja),
                       d.sincronizada,
                       Texto(p.ses.psTurno),
                       Texto(p.ses.psUsuario),
                       d.relacion,
                       e.dolares,
                       e.vueltoDolares,
                       Texto(o.serie),
                       o.numero,
                       Texto(Codigo(o.documento))});
}

Sql SentenciaLineaParalela(const Puesto& p, const DatosOperacion& o, const LineaDocumento& l,
                           const QString& supervisor) {
  return FormatearSQL(u" INSERT INTO OPERACIONPARALELAPRODUCTO (cAlmaCode, cOperCode, cProdCode, nProdCant,"
                      " nProdPrecUnit, nDscto, nServicio,cSupervisor)"
                      " VALUES"
                      " ('$', $, $, $, $, $,$,'$')"_sql,
                      {Texto(l.cAlmaCode), o.codigo, l.cProdCode, qAbs(l.cantidad), l.precio, l.porcentaje,
                       ServicioDe(p, l), Texto(l.porcentaje != 0 ? supervisor : QString())});
}

namespace {

// The row that money leaves in Operacion. `emisor`: with the card's column, which stands empty.
Sql sentenciaDinero(const Puesto& p, const DatosOperacion& o, const QString& serie, const EfectivoDocumento& e,
                    bool emisor) {
  const Sql plantilla = u" INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit,"
                        " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nmontosoles, nVueltoDolares, "
                        " cDocSerie, cDoccodigo, cdocTipo, cOpercodeAnula,"_sql +
                        (emisor ? Sql(u" cemisor,"_sql) : Sql()) +
                        u" IdLocal)  VALUES ($, '$', '$', $, $, $, $, '$', $, '$', '$',$ ,$, '$', $, '$', $,"_sql +
                        (emisor ? Sql(u" '',"_sql) : Sql()) + u" $)"_sql;
  return FormatearSQL(
      plantilla, {o.codigo, Texto(p.ses.psUsuario), Texto(o.tarjeta), 0, 1, 0 - e.vueltoSoles, e.dolares,
                  Texto(o.fecha), Codigo(o.tipo), Texto(p.ses.psCaja), Texto(p.ses.psTurno), e.soles, e.vueltoDolares,
                  Texto(serie), o.numero, Texto(Codigo(o.documento)), o.liquidacion, ValorLocal(o)});
}

}  // namespace

Sql SentenciaEfectivoParalelo(const Puesto& p, const DatosOperacion& o, const QString& serie,
                              const EfectivoDocumento& e) {
  return sentenciaDinero(p, o, serie, e, false);
}

Sql SentenciaTarjetaParalela(const Puesto& p, const DatosOperacion& o, const QString& serie, double soles) {
  return sentenciaDinero(p, o, serie, {soles, 0, 0, 0}, true);
}

Sql SentenciaCerrarParalela(qint64 codigo, qint64 liquidacion) {
  return liquidacion == 0
             ? FormatearSQL(u" UPDATE OPERACIONPARALELA SET cEstado = 2 WHERE cOperCode = $"_sql, {codigo})
             : FormatearSQL(u" UPDATE OPERACIONPARALELA SET cOpercodeRela = $, cEstado = 2 WHERE cOperCode = $"_sql,
                            {liquidacion, codigo});
}

std::vector<Sql> SentenciasAnularParalela(const Puesto& p, TipoOperacion tipo, qint64 anulada, qint64 codigo,
                                          const QString& fecha) {
  return {FormatearSQL(
              u" INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, sGlosa, cEstado, cCajaCodi,"
              " cTurnoCodi, cUserDesc) VALUES ($, $, '$', 'ANULACION', '0', '$', '$', '$')"_sql,
              {codigo, Codigo(tipo), Texto(fecha), Texto(p.ses.psCaja), Texto(p.ses.psTurno), Texto(p.ses.psUsuario)}),
          FormatearSQL(u" UPDATE OPERACIONPARALELA SET cEstado = '0', cOpercodeAnul = $ WHERE cOperCode = $"_sql,
                       {codigo, anulada}),
          FormatearSQL(u"DELETE FROM Operacion WHERE cOpercode= $ AND cOperFlagAbierto=1 AND cDocTipo in ($)"_sql,
                       {anulada, Codigos({TipoDocumento::OC, TipoDocumento::LIQPAD})})};
}

std::vector<Sql> SentenciasDevolverParalela(qint64 anulada, qint64 codigo) {
  return {FormatearSQL(u"DELETE FROM OperacionParalela WHERE cOperCode = $"_sql, {codigo}),
          FormatearSQL(u"UPDATE OperacionParalela SET cEstado = '1', cOperCodeAnul = 0 WHERE cOperCode = $"_sql,
                       {anulada})};
}

bool EsRepetida(Puesto& p, const DatosOperacion& o, const DatosParalela& d, bool& repetida) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT dOperFech,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,nEfectivoSoles,sGlosa"
                       " FROM OPERACIONPARALELA WHERE cOperCode=$"_sql,
                       {o.codigo - 1}),
          rs)) {
    return false;
  }
  const auto igual = [&rs](QStringView campo, double valor) { return TextoDe(Numero(rs[campo])) == TextoDe(valor); };
  repetida = !rs.Eof() && FormatearFecha(rs[u"dOperFech"].toDateTime(), u"DD/MM/YYYY hh:mm") == o.fecha &&
             LimpiarNulo(rs[u"nTarjNumb"]) == o.tarjeta && igual(u"nMoneda", d.moneda) &&
             igual(u"nMontoSoles", d.montoSoles) && igual(u"nMontoDolares", d.montoDolares) &&
             igual(u"nEfectivoSoles", d.efectivo.soles) && LimpiarNulo(rs[u"sGlosa"]) == Recortar(d.glosa);
  return true;
}
