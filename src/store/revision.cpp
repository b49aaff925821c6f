#include "store/revision.h"

#include <QSet>
#include <algorithm>

#include "platform/sql/conexion.h"
#include "store/tablas.h"

namespace {

// "CREATE TABLE name (" gives the name; "" for any other statement.
QString tablaDe(const QString& sentencia) {
  static const QString kInicio = QStringLiteral("CREATE TABLE ");
  if (!sentencia.startsWith(kInicio, Qt::CaseInsensitive)) return {};
  return sentencia.mid(kInicio.size(), sentencia.indexOf(u'(') - kInicio.size()).trimmed();
}

}  // namespace

QStringList tablasQueFaltan(Conexion& local, int version) {
  Recordset rs;
  QSet<QString> hay;
  if (!local.consultar(u"SELECT name FROM sqlite_master WHERE type = 'table'"_sql, rs)) {
    for (const auto& fila : rs) hay.insert(fila[0].toString().toLower());
  }
  const PasosDeVersion pasos = pasosDelPuesto();
  for (size_t paso = static_cast<size_t>(std::max(version, 0)); paso < pasos.size(); ++paso) {
    for (const QString& s : pasos[paso]) hay.insert(tablaDe(s).toLower());
  }
  QStringList faltan;
  const QStringList sentencias = tablasDelPuesto();
  for (const QString& s : sentencias) {
    const QString tabla = tablaDe(s);
    if (!tabla.isEmpty() && !hay.contains(tabla.toLower())) faltan += tabla;
  }
  return faltan;
}
