#include "cashday/lector.h"

#include "foundation/puesto.h"
#include "store/codigos.h"

namespace {

constexpr LiteralSql kValor =
    u"((o.nProdCant * o.nProdPrecUnit) + ((o.nProdCant * o.nProdPrecUnit) * o.nDscto/100))"_sql;
constexpr LiteralSql kValorP =
    u"((d.nProdCant * d.nProdPrecUnit) + ((d.nProdCant * d.nProdPrecUnit) * d.nDscto/100))"_sql;

}  // namespace

LectorReporte::LectorReporte(Puesto& p, Periodo periodo, Sql turno)
    : p_(p), periodo_(std::move(periodo)), turno_(std::move(turno)) {}

Recordset LectorReporte::filas(const Sql& consulta) {
  Recordset rs;
  if (!bien_) return rs;
  const Sql sql = ConCodigos(consulta)
                      .con(u"{f}"_sql, periodo_.sFiltro)
                      .con(u"{p}"_sql, periodo_.sFiltroP)
                      .con(u"{t}"_sql, turno_)
                      .con(u"{valor}"_sql, kValor)
                      .con(u"{valorp}"_sql, kValorP)
                      .con(u"{igv}"_sql, FormatearSQL(u"$"_sql, {p_.ses.pnIGV}));
  bien_ = p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal, sql, rs);
  return rs;
}

double LectorReporte::numero(const Sql& consulta) {
  const Recordset rs = filas(consulta);
  return Numero(rs[0]);
}

qint64 LectorReporte::cuantas(const Sql& consulta) { return filas(consulta).RecordCount(); }
