#include "cashday/tipo_cambio.h"

#include "cashday/pantallas_principal.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"

namespace {

// False when the query failed, which has been told; `hay` tells whether the day has one rate.
bool leer(Puesto& p, bool& hay) {
  p.ses.pnTipoCambio = 0;
  p.ses.pdTipoCambio = p.reloj.today();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, ConsultaTipoCambio(p), rs)) return false;
  hay = rs.RecordCount() == 1;
  if (hay) p.ses.pnTipoCambio = Numero(rs[u"nTipoCambMont"]);
  return true;
}

}  // namespace

Sql ConsultaTipoCambio(const Puesto& p) {
  return FormatearSQL(u" SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') = '$'"_sql,
                      {Texto(FormatearFecha(p.reloj.now(), u"yyyy/mm/dd"))});
}

void CapturaTipoCambio(Puesto& p, PantallasPrincipal& pantallas) {
  bool hay = false;
  if (!leer(p, hay) || hay) return;
  p.mensajes.mostrar(QStringLiteral("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  pantallas.tipoCambioDetalle(0);
}

void OlvidarTipoCambioPasado(Puesto& p) {
  if (p.ses.pdTipoCambio != p.reloj.today()) p.ses.pnTipoCambio = 0;
}

void AsegurarTipoCambio(Puesto& p, PantallasPrincipal& pantallas) {
  OlvidarTipoCambioPasado(p);
  if (p.ses.pnTipoCambio != 0) return;
  CapturaTipoCambio(p, pantallas);
  bool hay = false;
  if (p.ses.pnTipoCambio == 0) (void)leer(p, hay);
}
