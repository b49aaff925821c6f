#include "cashday/marcas.h"

#include "foundation/puesto.h"

namespace {

bool consultar(Puesto& p, const Sql& sql, Recordset& rs) { return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs); }

}  // namespace

bool LeerMarcas(Puesto& p, MarcasDia& m) {
  Recordset rs;
  if (!consultar(p,
                 u"SELECT IIF(ISNULL(MAX(cOperID)),0, MAX(cOperID)) as cOperIDx FROM Operacion "
                 "Where coperflagabierto = 0 "_sql,
                 rs)) {
    return false;
  }
  m.cOperIdx = LimpiarNulo(rs[0]);
  if (!consultar(p,
                 u"SELECT IIF(ISNULL(MAX(cOperCode)),0, MAX(cOperCode)) as cOperCodex FROM "
                 "OperacionParalela Where coperflagabierto = 0 "_sql,
                 rs)) {
    return false;
  }
  m.cOperCodex = LimpiarNulo(rs[0]);
  return true;
}

bool AvisarRelojAtrasado(Puesto& p) {
  for (const LiteralSql tabla : {u"Operacion"_sql, u"OperacionParalela"_sql}) {
    Recordset rs;
    // Straight to the connection: what can't be read is told by the statements that follow.
    if (p.poCnnLocal.consultar(FormatearSQL(u"SELECT Max(dOperFech) AS Ultima FROM $"_sql, {tabla}), rs)) continue;
    const QDate ultima = rs[u"Ultima"].toDateTime().date();
    if (!ultima.isValid() || p.reloj.today() >= ultima) continue;
    p.mensajes.mostrar(QStringLiteral("La fecha del sistema no puede ser posterior a al ultima operacion "
                                      "realizada...Verifique!!"),
                       QStringLiteral("Mensaje"));
    return true;
  }
  return false;
}

bool HayOperaciones(Puesto& p) {
  Recordset rs;
  QString marca;
  if (consultar(p, u"SELECT cOperId FROM Configuracion"_sql, rs)) marca = LimpiarNulo(rs[u"cOperId"]);
  const Sql condicion = marca.isEmpty() ? Sql(u"   and o.cOperflagabierto = 1 "_sql)
                                        : FormatearSQL(u"   and o.cOperId > $ "_sql, {Cifras(marca)});
  if (!consultar(p, u" SELECT count(*) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5)"_sql + condicion,
                 rs)) {
    return false;
  }
  return Numero(rs[u"TOTAL"]) >= 1;
}
