#include "cashday/periodo.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/texto.h"

bool LeerPeriodo(Puesto& p, Periodo& periodo) {
  Recordset rs;
  const bool leido =
      p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, QStringLiteral("SELECT cOperId, cOperIdP FROM Configuracion"), rs);
  const QString cOperId = LimpiarNulo(rs[u"cOperId"]), cOperIdP = LimpiarNulo(rs[u"cOperIdP"]);
  if (cOperId.isEmpty() || cOperIdP.isEmpty()) {
    periodo.sFiltro = periodo.sFiltroP = QStringLiteral("   and o.cOperflagabierto = 1 ");
  } else {
    periodo.sFiltro = QStringLiteral("   and o.cOperId > ") + cOperId + u' ';
    periodo.sFiltroP = QStringLiteral("   and o.cOperCode > ") + cOperIdP + u' ';
  }
  return leido;
}

Periodo PeriodoDeFecha(const QDate& fecha) {
  // Two bounds instead of a formatted date: an index serves them.
  const auto literal = [](const QDate& d) { return FormatearFecha(d.startOfDay(), u"#mm/dd/yyyy#"); };
  QString filtro = QStringLiteral(" and o.dOperFech >= ") + literal(fecha);
  // Behind the last day that a date can name there is none.
  if (fecha < QDate(9999, 12, 31)) filtro += QStringLiteral(" and o.dOperFech < ") + literal(fecha.addDays(1));
  filtro += u' ';
  return {filtro, filtro};
}

QString CondicionTurno(const QString& turno) { return QStringLiteral(" AND o.cTurnoCodi = '") + turno + u'\''; }
