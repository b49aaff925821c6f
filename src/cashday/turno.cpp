#include "cashday/turno.h"

#include "cashday/pantallas_principal.h"
#include "cashday/principal.h"
#include "cashday/reportes.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

void CambioTurno(Puesto& p, Principal& v, PantallasPrincipal& pantallas) {
  PrepararOperacion(p, v, pantallas);
  const bool conReporte = AutorizarOperacion(v, pantallas, QStringLiteral("Reporte X"));
  const Ocupado ocupado(p.mensajes, QStringLiteral("Cambiando el turno…"));
  if (conReporte) (void)ReportesEspeciales(p, PedidoX());
  const QString turno = Derecha(QStringLiteral("00") + TextoDe(Val(p.ses.psTurno) + 1), 2);
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal, FormatearSQL(u"UPDATE Configuracion SET cCodiTurno = '$'"_sql, {Texto(turno)}), true)) {
    return;
  }
  p.ses.psTurno = turno;
  p.ses.pbSincronizaMaestros = p.ses.pbSincronizaCierre = false;
  pantallas.sincronizar(false);
  p.ses.pbSincronizaMaestros = true;
  pantallas.rearrancar();
}
