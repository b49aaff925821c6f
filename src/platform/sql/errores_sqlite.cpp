#include "platform/sql/errores_sqlite.h"

#include <sqlite3.h>

namespace {

struct Palabras {
  int codigo;
  const char16_t* texto;
};

// What is not a statement's fault reaches the person at the desk: in his language, without the engine's words.
const Palabras kPalabras[] = {
    // A limit of file size or a quota; the engine says no more of it.
    {SQLITE_IOERR_WRITE, u"El disco está lleno o no responde: no se pudo guardar."},
    {SQLITE_BUSY, u"La base de datos está ocupada por otro programa. Intente de nuevo."},
    {SQLITE_LOCKED, u"La base de datos está ocupada. Intente de nuevo."},
    {SQLITE_FULL, u"El disco está lleno: no se pudo guardar."},
    {SQLITE_IOERR, u"El disco no responde: no se pudo leer o guardar."},
    {SQLITE_READONLY, u"La base de datos es de solo lectura: no se pudo guardar."},
    {SQLITE_CORRUPT, u"La base de datos está dañada."},
    {SQLITE_NOTADB, u"El archivo está truncado o es de otro programa."},
    {SQLITE_CANTOPEN, u"No se pudo abrir el archivo de la base de datos."},
    {SQLITE_PERM, u"No hay permiso para usar el archivo de la base de datos."},
    {SQLITE_PROTOCOL, u"La base de datos está ocupada por otro programa. Intente de nuevo."},
    {SQLITE_NOMEM, u"No hay memoria suficiente."},
    {SQLITE_INTERRUPT, u"La consulta fue interrumpida."},
};

bool deSentencia(int codigo) {
  switch (codigo) {
    case SQLITE_ERROR:
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
    case SQLITE_RANGE:
    case SQLITE_AUTH: return true;
    default: return false;
  }
}

}  // namespace

ErrorBD errorDe(sqlite3* base, int codigo) {
  const int extendido = base ? sqlite3_extended_errcode(base) : codigo;
  const int primario = codigo & 0xff;
  const QString motor = QString::fromUtf8(base ? sqlite3_errmsg(base) : sqlite3_errstr(codigo));
  if (extendido == SQLITE_CONSTRAINT_PRIMARYKEY || extendido == SQLITE_CONSTRAINT_UNIQUE ||
      extendido == SQLITE_CONSTRAINT_ROWID) {
    return {kErrorSentencia, kNativoClaveDuplicada,
            QStringLiteral("Ya existe un registro con la misma clave: la operación duplicaría valores de un índice "
                           "único. (%1)")
                .arg(motor)};
  }
  if (deSentencia(primario)) return {kErrorSentencia, primario, motor};
  for (const Palabras& p : kPalabras) {
    if (p.codigo == extendido || p.codigo == primario) {
      return {kErrorGeneral, extendido, QString::fromUtf16(p.texto)};
    }
  }
  return {kErrorGeneral, extendido, QStringLiteral("La base de datos no responde (%1).").arg(motor)};
}
