// What must not compile: a text on its way into a statement without a name for what it is. See CMakeLists.txt beside
// it; CASO 0 is the way that it goes.
#include "platform/sql/sentencia.h"

Sql unaSentencia(const QString& texto);

Sql unaSentencia(const QString& texto) {
#if CASO == 1
  return FormatearSQL(u"SELECT a FROM b WHERE c = '$'"_sql, {texto});
#elif CASO == 2
  return FormatearSQL(u"SELECT a FROM b WHERE c = $"_sql, {"texto"});
#elif CASO == 3
  return u"SELECT a FROM b WHERE c = "_sql + texto;
#elif CASO == 4
  return u"SELECT a FROM b WHERE c = '"_sql + FormatearSQL(u"$"_sql, {Texto(texto)});
#else
  return FormatearSQL(u"SELECT a FROM b WHERE c = '$'"_sql, {Texto(texto)});
#endif
}
