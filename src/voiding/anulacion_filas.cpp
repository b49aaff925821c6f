#include "voiding/anulacion_filas.h"

#include "foundation/puesto.h"

namespace {

bool hacer(Puesto& p, const QString& plantilla, const std::vector<QVariant>& valores) {
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(plantilla, valores), true);
}

}  // namespace

bool AnularVenta(Puesto& p, const Transaccion& t, const AvanceAnulacion& avance, const QString& fecha) {
  const bool conLocal = !t.idLocal.isEmpty();
  const QString espejo =
      QStringLiteral(" INSERT INTO OPERACION (cOperCode, cUserDesc, cAlmaCode, cProdCode, nProdCant,"
                     " nProdPrecUnit, nDscto, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula,"
                     " cCajaCodi, cTurnoCodi$) VALUES ($, '$', '$', $, $, $, $, '$', $, $, $, '$', '$'$)");
  const QString marca =
      QStringLiteral(" UPDATE OPERACION  SET cOperFlagAnula = 1  WHERE cOperCode = $") + kSinParalelas;
  for (size_t n = 0; n < t.lineas.size(); ++n) {
    const LineaDocumento& l = t.lineas[n].linea;
    if (n >= avance.lineas &&
        !hacer(p, espejo,
               {conLocal ? QStringLiteral(", IdLocal") : QString(), avance.codigo, ReemplazarComilla(p.ses.psUsuario),
                l.cAlmaCode, l.cProdCode, 0 - l.cantidad, l.precio, l.porcentaje, fecha, Codigo(t.tipo),
                QStringLiteral("1"), t.codigo, p.ses.psCaja, p.ses.psTurno,
                conLocal ? QStringLiteral(", ") + t.idLocal : QString()})) {
      return false;
    }
    if (!hacer(p, marca, {t.codigo})) return false;
  }
  return true;
}

bool AnularParalela(Puesto& p, const Transaccion& t, const AvanceAnulacion& avance, bool filaNueva,
                    const QString& fecha) {
  if (filaNueva &&
      !hacer(
          p,
          QStringLiteral(" INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, sGlosa, cEstado, cCajaCodi,"
                         " cTurnoCodi, cUserDesc) VALUES ($, $, '$', 'ANULACION', '0', '$', '$', '$')"),
          {avance.codigo, Codigo(t.tipo), fecha, p.ses.psCaja, p.ses.psTurno, ReemplazarComilla(p.ses.psUsuario)})) {
    return false;
  }
  return hacer(p, QStringLiteral(" UPDATE OPERACIONPARALELA SET cEstado = '0', cOpercodeAnul = $ WHERE cOperCode = $"),
               {avance.codigo, t.codigo}) &&
         hacer(p, QStringLiteral("DELETE FROM Operacion WHERE ") + kDineroParalelo, {t.codigo});
}

bool DeshacerLiquidacion(Puesto& p, qint64 liquidacion) {
  // Only what is settled: a voided note stays voided, and a note of a billing document that is open keeps its link,
  // which counts in other codes and may look the same.
  return hacer(p,
               QStringLiteral("UPDATE OperacionParalela SET cEstado= '1', cOperCodeRela=0 "
                              "WHERE cOperTipo <> $ AND cOpercodeRela= $ AND cEstado = '2'"),
               {Codigo(TipoOperacion::OC), liquidacion}) &&
         hacer(p, QStringLiteral("DELETE FROM OperacionParalela WHERE ") + kDeLiquidacion, {liquidacion}) &&
         hacer(p, QStringLiteral("DELETE FROM Operacion WHERE ") + kDeLiquidacion, {liquidacion});
}
