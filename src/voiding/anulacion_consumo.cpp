#include "voiding/anulacion_consumo.h"

#include "documento/filas_paralelas.h"
#include "foundation/acto_doble.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "voiding/anulacion_filas.h"

namespace {

// The document is locked first, so that nobody settles it in between; the code of the void is drawn inside.
std::optional<ErrorBD> preparar(Puesto& p, const DocumentoGuardado& nota, ActoDoble& acto) {
  Conexion& central = p.poCnnCentral;
  const Sql documento = FormatearSQL(u" WHERE cCodVta = $"_sql, {nota.relacion});
  Recordset rs;
  if (auto error = central.ejecutar(u"UPDATE Venta01 SET bLiquidado = bLiquidado"_sql + documento)) return error;
  if (auto error = central.consultar(u"SELECT bLiquidado FROM Venta01"_sql + documento, rs)) return error;
  if (Numero(rs[u"bLiquidado"]) != 0) {
    return ErrorBD{kErrorGeneral, 0, QStringLiteral("El documento de esta nota ya fue liquidado: no puede anularse.")};
  }
  if (auto error = p.poCnnLocal.consultar(u"SELECT MAX(cOperCode) AS maximo FROM OperacionParalela"_sql, rs)) {
    return error;
  }
  const qint64 codigo = AEntero(Numero(rs[u"maximo"])) + 1;
  acto.enLocal = FilasDeParalela(p, nota, codigo, FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm"));
  acto.deshacer = SentenciasDevolverParalela(nota.codigo, codigo);
  // Settled meanwhile, should the act be finished later, it fails.
  acto.enServidor = {
      u"UPDATE Venta01 SET bLiquidado = 0 / (CASE WHEN bLiquidado = 0 THEN 1 ELSE 0 END)"_sql + documento,
      FormatearSQL(u"UPDATE ConsumoVenta SET bAnulado = 1 WHERE cCajaCodi = '$' AND cOperCode = $ AND bAnulado = 0"_sql,
                   {Texto(p.ses.psCaja), nota.codigo})};
  return {};
}

}  // namespace

bool AnularConsumo(Puesto& p, const DocumentoGuardado& nota) {
  if (p.poCnnCentral.abierta()) p.poDBAdmin.CerrarBD(p.poCnnCentral);
  if (!p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral, true)) return false;
  ActoDoble acto;
  acto.nombre = QStringLiteral("anula nota %1").arg(nota.codigo);
  acto.preparar = [&](ActoDoble& a) { return preparar(p, nota, a); };
  const ResultadoActo r = EjecutarActo(p, acto);
  p.poDBAdmin.CerrarBD(p.poCnnCentral);
  if (r.fin == FinActo::Entero) return true;
  if (r.fin == FinActo::Pendiente) {
    p.registro.RegistrarErrorLog(acto.nombre + QStringLiteral(" quedó por completar en la central: ") +
                                 r.error.descripcion);
    return true;  // it stands here, and follows there
  }
  // The store did not answer in its commit, and not when it was asked about it.
  p.mensajes.mostrar(r.fin == FinActo::EnDuda
                         ? r.error.descripcion +
                               QStringLiteral("\nRevise si la nota quedó anulada antes de anularla otra vez.")
                         : r.error.descripcion);
  return false;
}
