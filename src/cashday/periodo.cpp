#include "cashday/periodo.h"

#include "foundation/puesto.h"

namespace {

// A date literal, which is no text: its parts stand bare.
Sql dia(const QDate& d) { return FormatearSQL(u"#$/$/$#"_sql, {d.month(), d.day(), d.year()}); }

}  // namespace

bool LeerPeriodo(Puesto& p, Periodo& periodo) {
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT cOperId, cOperIdP FROM Configuracion"_sql, rs);
  const QString cOperId = LimpiarNulo(rs[u"cOperId"]), cOperIdP = LimpiarNulo(rs[u"cOperIdP"]);
  if (cOperId.isEmpty() || cOperIdP.isEmpty()) {
    periodo.sFiltro = periodo.sFiltroP = u"   and o.cOperflagabierto = 1 "_sql;
  } else {
    periodo.sFiltro = FormatearSQL(u"   and o.cOperId > $ "_sql, {Cifras(cOperId)});
    periodo.sFiltroP = FormatearSQL(u"   and o.cOperCode > $ "_sql, {Cifras(cOperIdP)});
  }
  return leido;
}

Periodo PeriodoDeFecha(const QDate& fecha) {
  // Two bounds instead of a formatted date: an index serves them.
  Sql filtro = FormatearSQL(u" and o.dOperFech >= $ "_sql, {dia(fecha)});
  // Behind the last day that a date can name there is none.
  if (fecha < QDate(9999, 12, 31)) {
    filtro += FormatearSQL(u" and o.dOperFech < $ "_sql, {dia(fecha.addDays(1))});
  }
  return {.sFiltro = filtro, .sFiltroP = filtro};
}

Sql CondicionTurno(const QString& turno) { return FormatearSQL(u" AND o.cTurnoCodi = '$'"_sql, {Texto(turno)}); }
