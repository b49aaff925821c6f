#include "platform/sql/catalogo_postgres.h"

#include "platform/sql/palabras_motor.h"

namespace {

const QByteArray kConsulta =
    "SELECT a.attname, format_type(a.atttypid, NULL), coalesce(c.collname, ''), a.attnotnull::int "
    "FROM pg_attribute a LEFT JOIN pg_collation c ON c.oid = a.attcollation "
    "WHERE a.attrelid = to_regclass($1) AND a.attnum > 0 AND NOT a.attisdropped ORDER BY a.attnum";

Tipo tipoDe(const QString& nombre) {
  if (nombre == u"smallint" || nombre == u"integer" || nombre == u"bigint" || nombre == u"boolean") return Tipo::Entero;
  if (nombre == u"numeric") return Tipo::Numero;
  if (nombre == u"double precision" || nombre == u"real") return Tipo::Real;
  if (nombre.startsWith(u"timestamp") || nombre == u"date") return Tipo::Fecha;
  if (nombre == u"text" || nombre.startsWith(u"character")) return Tipo::Texto;
  return Tipo::Desconocido;
}

}  // namespace

Tabla CatalogoPostgres::leer(const QString& nombre) const {
  Tabla t{nombre, {}};
  Recordset rs;
  if (nombre.isEmpty() || !preguntar_(kConsulta, kPalabrasPostgres.citado(nombre).toUtf8(), rs)) return t;
  for (const auto fila : rs) {
    Columna c;
    c.nombre = fila[0].toString();
    c.tipo = tipoDe(fila[1].toString());
    c.sinCaso = fila[2].toString() == u"espaniol";
    c.noNula = fila[3].toInt() != 0;
    c.real = true;
    t.columnas.push_back(std::move(c));
  }
  return t;
}
