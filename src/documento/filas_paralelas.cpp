#include "documento/filas_paralelas.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

bool GrabarParalela(Puesto& p, const DatosOperacion& o, const DatosParalela& d) {
  const QString plantilla =
      QStringLiteral(" INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, nTarjNumb,"
                     " nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa,"
                     " cEstado, cCajaCodi, cFlagSincronizacion, cTurnoCodi, cUserDesc, cOpercodeRela, "
                     " nEfectivoDolares, nVueltoDolares, cDocSerie, cDocCodigo, cDocTipo ) "
                     " VALUES"
                     " ($, $, '$', '$', $, $, $, $, $, '$', '$', '$', '$', '$', '$', $ ,$ ,$,'$',$,'$')");
  const EfectivoDocumento& e = d.efectivo;
  const QString sql = FormatearSQL(plantilla, {o.codigo,
                                               Codigo(o.tipo),
                                               o.fecha,
                                               o.tarjeta,
                                               d.moneda,
                                               d.montoSoles,
                                               d.montoDolares,
                                               e.soles,
                                               e.vueltoSoles,
                                               ReemplazarComilla(d.glosa),
                                               1,
                                               p.ses.psCaja,
                                               d.sincronizada ? 1 : 0,
                                               p.ses.psTurno,
                                               ReemplazarComilla(p.ses.psUsuario),
                                               d.relacion,
                                               e.dolares,
                                               e.vueltoDolares,
                                               o.serie,
                                               o.numero,
                                               Codigo(o.documento)});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}

bool GrabarLineaParalela(Puesto& p, const DatosOperacion& o, const LineaDocumento& l, const QString& supervisor) {
  const QString plantilla =
      QStringLiteral(" INSERT INTO OPERACIONPARALELAPRODUCTO (cAlmaCode, cOperCode, cProdCode, nProdCant,"
                     " nProdPrecUnit, nDscto, nServicio,cSupervisor)"
                     " VALUES"
                     " ('$', $, $, $, $, $,$,'$')");
  const QString sql = FormatearSQL(plantilla, {l.cAlmaCode, o.codigo, l.cProdCode, qAbs(l.cantidad), l.precio,
                                               l.porcentaje, l.conServicio ? p.ses.psPorcServ : QStringLiteral("0"),
                                               l.porcentaje != 0 ? ReemplazarComilla(supervisor) : QString()});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}

namespace {

// The row that money leaves in Operacion. `emisor`: with the card's column, which stands empty.
bool grabarDinero(Puesto& p, const DatosOperacion& o, const QString& serie, const EfectivoDocumento& e, bool emisor) {
  const QString plantilla =
      QStringLiteral(" INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit,"
                     " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nmontosoles, nVueltoDolares, "
                     " cDocSerie, cDoccodigo, cdocTipo, cOpercodeAnula,") +
      (emisor ? QStringLiteral(" cemisor,") : QString()) +
      QStringLiteral(" IdLocal)  VALUES ($, '$', '$', $, $, $, $, '$', $, '$', '$',$ ,$, '$', $, '$', $,") +
      (emisor ? QStringLiteral(" '',") : QString()) + QStringLiteral(" $)");
  const QString sql = FormatearSQL(
      plantilla, {o.codigo, ReemplazarComilla(p.ses.psUsuario), o.tarjeta, 0, 1, 0 - e.vueltoSoles, e.dolares, o.fecha,
                  Codigo(o.tipo), p.ses.psCaja, p.ses.psTurno, e.soles, e.vueltoDolares, ReemplazarComilla(serie),
                  o.numero, Codigo(o.documento), o.liquidacion, o.idLocal});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}

}  // namespace

bool GrabarEfectivoParalelo(Puesto& p, const DatosOperacion& o, const QString& serie, const EfectivoDocumento& e) {
  return grabarDinero(p, o, serie, e, false);
}

bool GrabarTarjetaParalela(Puesto& p, const DatosOperacion& o, const QString& serie, double soles) {
  return grabarDinero(p, o, serie, {soles, 0, 0, 0}, true);
}

bool EsRepetida(Puesto& p, const DatosOperacion& o, const DatosParalela& d, bool& repetida) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          QStringLiteral("SELECT dOperFech,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,nEfectivoSoles,sGlosa"
                         " FROM OPERACIONPARALELA WHERE cOperCode=") +
              QString::number(o.codigo - 1),
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

bool CerrarParalela(Puesto& p, qint64 codigo, qint64 liquidacion) {
  const QString plantilla =
      liquidacion == 0
          ? QStringLiteral(" UPDATE OPERACIONPARALELA SET cEstado = 2 WHERE cOperCode = %1").arg(codigo)
          : QStringLiteral(" UPDATE OPERACIONPARALELA SET cOpercodeRela = %2, cEstado = 2 WHERE cOperCode = %1")
                .arg(codigo)
                .arg(liquidacion);
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, plantilla, true);
}
