#include "platform/sql/errores_postgres.h"

#include <libpq-fe.h>

#include "platform/sql/motor.h"

namespace {

struct Palabras {
  const char* codigo;  // or the class it belongs to
  const char16_t* texto;
};

const Palabras kPalabras[] = {
    {"53100", u"El disco del servidor está lleno: no se pudo guardar."},
    {"53200", u"No hay memoria suficiente en el servidor."},
    {"53300", u"El servidor no admite más conexiones. Intente de nuevo."},
    {"55P03", u"La base de datos está ocupada por otro programa. Intente de nuevo."},
    {"40P01", u"La base de datos está ocupada por otro programa. Intente de nuevo."},
    {"40001", u"La base de datos está ocupada por otro programa. Intente de nuevo."},
    {"25006", u"La base de datos es de solo lectura: no se pudo guardar."},
    {"57014", u"La consulta fue interrumpida."},
    {"42501", u"No hay permiso para usar esas tablas del servidor."},
    {"57P", u"El servidor se está deteniendo o reiniciando. Intente de nuevo."},
    {"58", u"El disco del servidor no responde: no se pudo leer o guardar."},
    {"XX", u"La base de datos está dañada."},
};

// What the embedded engine says in words of its own, too.
const Palabras kDeSentencia[] = {{"22012", u"División por cero."},
                                 {"22P02", u"No se puede convertir el valor."},
                                 {"42P01", u"El servidor no tiene esa tabla."},
                                 {"42703", u"Esa tabla del servidor no tiene la columna."}};

}  // namespace

ErrorBD errorPostgres(const pg_conn* conexion, const pg_result* resultado) {
  const char* estado = resultado ? PQresultErrorField(resultado, PG_DIAG_SQLSTATE) : nullptr;
  const char* mensaje = resultado ? PQresultErrorField(resultado, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
  const QString palabras = mensaje ? QString::fromUtf8(mensaje) : QString::fromUtf8(PQerrorMessage(conexion)).trimmed();
  const QByteArray codigo(estado);
  if (codigo == "23505") {
    return {kErrorSentencia, kNativoClaveDuplicada,
            QStringLiteral("Ya existe un registro con la misma clave: la operación duplicaría valores de un índice "
                           "único. (%1)")
                .arg(palabras)};
  }
  if (codigo.isEmpty() || codigo.startsWith("08") || codigo == "57P01") {
    return {kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor: ") + palabras};
  }
  if (codigo.startsWith("TV")) return {kErrorSentencia, codigo.mid(2).toInt(), palabras};  // of our own procedures
  const qint64 numero = codigo == "55P03" ? kErrorTiempo : kErrorGeneral;
  const int nativo = codigo == "40P01" || codigo == "40001" ? kNativoNudo : 1;
  for (const Palabras& p : kPalabras) {
    if (codigo.startsWith(p.codigo)) return {numero, nativo, QString::fromUtf16(p.texto)};
  }
  for (const Palabras& p : kDeSentencia) {
    if (codigo.startsWith(p.codigo)) {
      return {kErrorSentencia, 1, QStringLiteral("%1 (%2)").arg(QString::fromUtf16(p.texto), palabras)};
    }
  }
  return {kErrorSentencia, codigo.startsWith("23") ? 19 : 1, palabras};
}
