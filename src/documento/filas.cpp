#include "documento/filas.h"

#include "foundation/puesto.h"

bool GrabarLinea(Puesto& p, const DatosOperacion& o, const LineaDocumento& l, const QString& supervisor) {
  const QString plantilla = QStringLiteral(
      " INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,"
      " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nDscto, nServicio, cDocCodigo, cRuc, cDocSerie,"
      " cDocTipo, cEmisor, cOpercodeanula, idLocal,cSupervisor) "
      " VALUES"
      " ($, '$', '$', '$', $, $, $, $, '$', $, '$', '$', $, $, $, '$', '$', '$', '$', $, $,'$')");
  const QString sql = FormatearSQL(
      plantilla,
      {o.codigo, ReemplazarComilla(p.ses.psUsuario), o.tarjeta, l.cAlmaCode, l.cProdCode, l.cantidad, l.precio, 0,
       o.fecha, o.tipo, p.ses.psCaja, p.ses.psTurno, l.porcentaje,
       l.conServicio ? p.ses.psPorcServ : QStringLiteral("0"), o.numero, o.ruc, o.serie, o.tipoDoc, o.emisor,
       o.liquidacion, o.idLocal, l.porcentaje != 0 ? ReemplazarComilla(supervisor) : QString()});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}

bool GrabarEfectivo(Puesto& p, const DatosOperacion& o, const EfectivoDocumento& e) {
  const QString plantilla = QStringLiteral(
      " INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit,"
      " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi,nmontosoles, nVueltoDolares, cDocCodigo, cRuc,"
      " cDocSerie, cDocTipo,cEmisor, cOpercodeAnula, IdLocal) "
      " VALUES"
      " ($, '$', '$', $, $, $, $, '$', $, '$', '$',$ ,$, $, '$', '$', '$', '$', $, $)");
  const QString sql = FormatearSQL(
      plantilla,
      {o.codigo, ReemplazarComilla(p.ses.psUsuario), o.tarjeta, 0, 1, 0 - e.vueltoSoles, e.dolares, o.fecha, o.tipo,
       p.ses.psCaja, p.ses.psTurno, e.soles, e.vueltoDolares, o.numero, o.ruc, o.serie, o.tipoDoc, o.emisor,
       o.liquidacion, o.idLocal});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}
