#include "cashday/lector.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

QString valorDeLinea(const QString& alias) {
  return QStringLiteral("((%1.nProdCant * %1.nProdPrecUnit) + ((%1.nProdCant * %1.nProdPrecUnit) * %1.nDscto/100))")
      .arg(alias);
}

}  // namespace

LectorReporte::LectorReporte(Puesto& p, Periodo periodo, QString turno)
    : p_(p), periodo_(std::move(periodo)), turno_(std::move(turno)) {}

Recordset LectorReporte::filas(const QString& consulta) {
  Recordset rs;
  if (!bien_) return rs;
  QString sql = consulta;
  sql.replace(QStringLiteral("{f}"), periodo_.sFiltro)
      .replace(QStringLiteral("{p}"), periodo_.sFiltroP)
      .replace(QStringLiteral("{t}"), turno_)
      .replace(QStringLiteral("{valor}"), valorDeLinea(QStringLiteral("o")))
      .replace(QStringLiteral("{valorp}"), valorDeLinea(QStringLiteral("d")))
      .replace(QStringLiteral("{igv}"), TextoDe(p_.ses.pnIGV));
  bien_ = p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal, sql, rs);
  return rs;
}

double LectorReporte::numero(const char* consulta) {
  const Recordset rs = filas(consulta);
  return Numero(rs[0]);
}

qint64 LectorReporte::cuantas(const char* consulta) { return filas(consulta).RecordCount(); }
