#include "printing/configura_impresora.h"

#include "foundation/puesto.h"
#include "platform/text/texto.h"

void CargarImpresoras(Puesto& p, ConfiguraImpresora& v) {
  v = {};
  for (const auto& i : p.puertos.impresoras()) v.impresoras << i.nombre;
  v.cboImpresora = {p.ses.kPAR_IMPRESORA, p.ses.kPAR_IMPRESORA_ALTERNA};
  v.flagCortaPapel = {p.ses.pnCortaPapel == 1, p.ses.pnCortaPapelAlterna == 1};
}

void ElegirImpresora(ConfiguraImpresora& v, int cual, const QString& dispositivo) {
  const auto n = static_cast<size_t>(cual);
  v.cboImpresora[n] = dispositivo;
  if (Recortar(dispositivo).isEmpty()) v.flagCortaPapel[n] = false;
}

bool GrabarImpresoras(Puesto& p, const ConfiguraImpresora& v) {
  const auto& [principal, alterna] = v.cboImpresora;
  const auto flag = [&v](size_t n) { return v.flagCortaPapel[n] ? 1 : 0; };
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal,
          FormatearSQL(u"UPDATE Configuracion SET sImpresora = '$', sImpresoraAlterna = '$', "
                       "nFlagCortaPapel=$, nFlagCortaPapelALT=$"_sql,
                       {Texto(principal), Texto(alterna), flag(0), flag(1)}),
          true))
    return false;
  p.ses.kPAR_IMPRESORA = principal;
  p.ses.kPAR_IMPRESORA_ALTERNA = alterna;
  p.ses.pnCortaPapel = flag(0);
  p.ses.pnCortaPapelAlterna = flag(1);
  return true;
}
