#include "voiding/anulacion_filas.h"

#include "documento/filas_paralelas.h"
#include "foundation/puesto.h"

std::vector<Sql> FilasDeVenta(const Puesto& p, const DocumentoGuardado& t, qint64 codigo, const QString& fecha) {
  const bool conLocal = !t.idLocal.isEmpty();
  std::vector<Sql> filas;
  for (const LineaGuardada& linea : t.lineas) {
    const LineaDocumento& l = linea.linea;
    filas.push_back(FormatearSQL(
        u" INSERT INTO OPERACION (cOperCode, cUserDesc, cAlmaCode, cProdCode, nProdCant,"
        " nProdPrecUnit, nDscto, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula,"
        " cCajaCodi, cTurnoCodi$) VALUES ($, '$', '$', $, $, $, $, '$', $, $, $, '$', '$'$)"_sql,
        {conLocal ? u", IdLocal"_sql : Sql(), codigo, Texto(p.ses.psUsuario), Texto(l.cAlmaCode), l.cProdCode,
         0 - l.cantidad, l.precio, l.porcentaje, Texto(fecha), Codigo(t.tipo), 1, t.codigo, Texto(p.ses.psCaja),
         Texto(p.ses.psTurno), conLocal ? FormatearSQL(u", $"_sql, {Cifras(t.idLocal)}) : Sql()}));
  }
  filas.push_back(FormatearSQL(u" UPDATE OPERACION  SET cOperFlagAnula = 1  WHERE cOperCode = $"_sql, {t.codigo}) +
                  SinParalelas());
  return filas;
}

std::vector<Sql> FilasDeParalela(const Puesto& p, const DocumentoGuardado& t, qint64 codigo, const QString& fecha) {
  return SentenciasAnularParalela(p, t.tipo, t.codigo, codigo, fecha);
}

std::vector<Sql> FilasDeLiquidacion(qint64 liquidacion) {
  const Sql suya = FormatearSQL(u"cOpercode= $ AND cOperFlagAbierto=1 AND cDocTipo = '$'"_sql,
                                {liquidacion, Texto(Codigo(TipoDocumento::LIQPAD))});
  // Only what is settled: a voided note stays voided. The link of a note of a billing document counts in other codes
  // and may look the same.
  return {FormatearSQL(u"UPDATE OperacionParalela SET cEstado= '1', cOperCodeRela=0 "
                       "WHERE cOperTipo <> $ AND cOpercodeRela= $ AND cEstado = '2'"_sql,
                       {Codigo(TipoOperacion::OC), liquidacion}) +
              SinVentaFutura(),
          u"DELETE FROM OperacionParalela WHERE "_sql + suya, u"DELETE FROM Operacion WHERE "_sql + suya};
}
