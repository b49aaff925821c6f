#include "platform/sql/funciones_sqlite.h"

#include <sqlite3.h>

#include <cstring>

#include "platform/sql/comparacion.h"
#include "platform/sql/contiene.h"
#include "platform/text/numero.h"

bool hayNulo(int n, sqlite3_value** v) {
  for (int i = 0; i < n; ++i) {
    if (sqlite3_value_type(v[i]) == SQLITE_NULL) return true;
  }
  return false;
}

QString textoDe(sqlite3_value* v) {
  if (sqlite3_value_type(v) == SQLITE_FLOAT) return TextoDe(sqlite3_value_double(v));
  const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(v));
  return t ? QString::fromUtf8(t, sqlite3_value_bytes(v)) : QString();
}

double numeroDe(sqlite3_value* v) {
  return sqlite3_value_type(v) == SQLITE_TEXT ? Val(textoDe(v)) : sqlite3_value_double(v);
}

void darTexto(sqlite3_context* c, const QString& texto) {
  const QByteArray u = texto.toUtf8();
  sqlite3_result_text(c, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
}

void darError(sqlite3_context* c, const QString& texto) {
  const QByteArray u = texto.toUtf8();
  sqlite3_result_error(c, u.constData(), static_cast<int>(u.size()));
}

EntornoFunciones& entornoDe(sqlite3_context* c) { return *static_cast<EntornoFunciones*>(sqlite3_user_data(c)); }

namespace {

int comparar(int na, const void* a, int nb, const void* b, bool sinFinales) {
  std::string_view x(static_cast<const char*>(a), static_cast<size_t>(na));
  std::string_view y(static_cast<const char*>(b), static_cast<size_t>(nb));
  if (sinFinales) {
    x = x.substr(0, x.find_last_not_of(' ') + 1);
    y = y.substr(0, y.find_last_not_of(' ') + 1);
  }
  if (const auto orden = compararAscii(x, y)) return *orden;
  return compararTextosSql(QString::fromUtf8(x.data(), static_cast<qsizetype>(x.size())),
                           QString::fromUtf8(y.data(), static_cast<qsizetype>(y.size())), sinFinales);
}

int colacionJet(void*, int na, const void* a, int nb, const void* b) { return comparar(na, a, nb, b, false); }

int colacionTSql(void*, int na, const void* a, int nb, const void* b) { return comparar(na, a, nb, b, true); }

int registrar(sqlite3* base, EntornoFunciones& entorno, const EntradaFuncion& f) {
  const bool cambia =
      qstrcmp(f.nombre, "tp_ahora") == 0 || qstrcmp(f.nombre, "tp_hoy") == 0 || qstrcmp(f.nombre, "tp_hora") == 0;
  const int trato = SQLITE_UTF8 | SQLITE_INNOCUOUS | (cambia ? 0 : SQLITE_DETERMINISTIC);
  return sqlite3_create_function_v2(base, f.nombre, f.argumentos, trato, &entorno, f.final ? nullptr : f.funcion,
                                    f.final ? f.funcion : nullptr, f.final, nullptr);
}

// All names begin with "tp_" and are found without regard to case.
int registrarNombrada(sqlite3* base, EntornoFunciones& entorno, std::string_view nombre) {
  for (const EntradaFuncion* tabla :
       {funcionesDeNumero(), funcionesDeTexto(), funcionesDeFecha(), funcionesDeFormato()}) {
    for (const EntradaFuncion* f = tabla; f->nombre; ++f) {
      const bool este = std::strlen(f->nombre) == nombre.size() &&
                        sqlite3_strnicmp(f->nombre, nombre.data(), static_cast<int>(nombre.size())) == 0;
      if (!este) continue;
      return entorno.registradas.insert(f).second ? registrar(base, entorno, *f) : SQLITE_OK;
    }
  }
  return SQLITE_OK;
}

}  // namespace

int registrarFunciones(sqlite3* base, EntornoFunciones& entorno, const QByteArray& sentencia) {
  const std::string_view s(sentencia.data(), static_cast<size_t>(sentencia.size()));
  int rc = SQLITE_OK;
  for (size_t i = 0; rc == SQLITE_OK && (i = s.find('_', i)) != s.npos; ++i) {
    if (i < 2 || sqlite3_strnicmp(s.data() + i - 2, "tp_", 3) != 0) continue;
    size_t fin = i + 1;
    while (fin < s.size() && std::isalpha(static_cast<unsigned char>(s[fin]))) ++fin;
    rc = registrarNombrada(base, entorno, s.substr(i - 2, fin - i + 2));
  }
  if (rc != SQLITE_OK || entorno.conColacion || sqlite3_strlike("%TARVO%", sentencia.data(), 0) != 0) return rc;
  entorno.conColacion = true;
  return sqlite3_create_collation_v2(base, "TARVO", SQLITE_UTF8, nullptr,
                                     entorno.dialecto == Dialecto::Jet ? colacionJet : colacionTSql, nullptr);
}
