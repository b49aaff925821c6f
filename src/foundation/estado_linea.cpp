#include "foundation/estado_linea.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

DatosEstado EstadoDelPuesto(const Puesto& p) {
  DatosEstado d;
  d.caja = p.ses.psCaja;
  d.turno = Recortar(p.ses.psTurno);
  d.usuario = p.ses.psUsuario;
  if (p.ses.pnTipoCambio != 0) d.tipoCambio = Formatear(p.ses.pnTipoCambio, u"###,##0.00");
  d.central = !p.ses.bCentralCaida;
  d.clientes = !p.ses.pbClienteCaido;
  d.papel = p.ses.ultimoPapel;
  QStringList avisos{p.ses.avisoDisco, p.ses.avisoRespaldo};
  avisos.removeAll(QString());
  d.aviso = avisos.join(QStringLiteral(" · "));
  return d;
}
