#include "sync/detalle_enviado.h"

#include <QSet>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

}  // namespace

bool AnotarDetalleEnviado(Puesto& p, const QString& idZ1) {
  Recordset rs;
  const auto leer = [&](const Sql& sql) { return !p.poCnnLocal.consultar(sql, rs); };
  if (!leer(u"SELECT cOperId, cOperIdP FROM Configuracion"_sql)) return false;
  RangoEnviado r{.ini = entero(rs[0]), .fin = 0, .iniP = entero(rs[1]), .finP = 0};
  if (!leer(u"select max(coperid) from operacion"_sql)) return false;
  r.fin = entero(rs[0]);
  if (!leer(u"select max(copercode) from operacionParalela"_sql)) return false;
  r.finP = entero(rs[0]);
  return !EjecutarJuntas(
      p.poCnnLocal,
      {FormatearSQL(u"DELETE FROM DetalleEnviado WHERE cOperIdIni = $ AND cOperIdPIni = $"_sql, {r.ini, r.iniP}),
       FormatearSQL(u"INSERT INTO DetalleEnviado (nIdZ1, cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin) VALUES "
                    "($, $, $, $, $)"_sql,
                    {Cifras(idZ1), r.ini, r.fin, r.iniP, r.finP})});
}

bool LeerDetallesEnviados(Puesto& p, std::vector<RangoEnviado>& rangos) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, u"SELECT cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin FROM DetalleEnviado"_sql, rs)) {
    return false;
  }
  for (const auto& f : rs) rangos.push_back({entero(f[0]), entero(f[1]), entero(f[2]), entero(f[3])});
  return true;
}

std::optional<ErrorBD> AsentarCabecerasZ1(Puesto& p) {
  Recordset enMarcha, conocidas;
  if (auto e = p.poCnnCentral.consultar(
          FormatearSQL(u"SELECT idZ1 FROM TCABECERAZ1 WHERE nidEstado = -1 AND cCajaCodi = '$'"_sql,
                       {Texto(p.ses.psCaja)}),
          enMarcha)) {
    return e;
  }
  if (enMarcha.Eof()) return {};
  if (auto e = p.poCnnLocal.consultar(u"SELECT nIdZ1 FROM DetalleEnviado"_sql, conocidas)) return e;
  QSet<qint64> suyas;
  for (const auto& f : conocidas) suyas.insert(entero(f[0]));
  for (const auto& f : enMarcha) {
    const qint64 id = entero(f[0]);
    const auto error =
        suyas.contains(id)
            ? p.poCnnCentral.ejecutar(
                  FormatearSQL(u" UPDATE TCABECERAZ1 SET nidEstado = 0 WHERE nidEstado = -1 AND idZ1 = $"_sql, {id}))
            : EjecutarJuntas(p.poCnnCentral, {FormatearSQL(u"DELETE FROM TDETALLEZ1 WHERE nidZ1 = $"_sql, {id}),
                                              FormatearSQL(u"DELETE FROM TCABECERAZ1 WHERE idZ1 = $"_sql, {id})});
    if (error) return error;
  }
  return {};
}
