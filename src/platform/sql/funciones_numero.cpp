#include <sqlite3.h>

#include <cmath>

#include "platform/sql/edicion.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/text/numero.h"

namespace {

void darNumero(sqlite3_context* c, const QVariant& n) {
  if (n.typeId() == QMetaType::LongLong) sqlite3_result_int64(c, n.toLongLong());
  else if (n.isValid()) sqlite3_result_double(c, n.toDouble());
  else sqlite3_result_null(c);
}

// A number, read strictly: in T-SQL blank text is 0, anything else that is no number is an error.
bool estricto(sqlite3_context* c, sqlite3_value* v, QVariant& n) {
  if (sqlite3_value_type(v) == SQLITE_INTEGER) {
    n = static_cast<qint64>(sqlite3_value_int64(v));
    return true;
  }
  if (sqlite3_value_type(v) == SQLITE_FLOAT) {
    n = sqlite3_value_double(v);
    return true;
  }
  const QString t = textoDe(v);
  n = leerNumero(t);
  if (!n.isValid() && entornoDe(c).dialecto == Dialecto::TSql && t.trimmed().isEmpty()) n = qint64(0);
  if (n.isValid()) return true;
  darError(c, QStringLiteral("No se puede convertir '%1' a número.").arg(t));
  return false;
}

void fTexto(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, textoDe(v[0]));
}

void fUne(sqlite3_context* c, int n, sqlite3_value** v) {
  const bool nulos = sqlite3_value_type(v[0]) == SQLITE_NULL && sqlite3_value_type(v[n - 1]) == SQLITE_NULL;
  if (!nulos) darTexto(c, textoDe(v[0]) + textoDe(v[1]));
}

// Beside a number in a comparison: what is no number equals none.
void fNum(sqlite3_context* c, int, sqlite3_value** v) {
  if (sqlite3_value_type(v[0]) == SQLITE_TEXT) darNumero(c, leerNumero(textoDe(v[0])));
  else sqlite3_result_value(c, v[0]);
}

// On its way into a column of numbers.
void fValor(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (!hayNulo(n, v) && estricto(c, v[0], x)) darNumero(c, x);
}

void fCdbl(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (!hayNulo(n, v) && estricto(c, v[0], x)) sqlite3_result_double(c, x.toDouble());
}

void fAEntero(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (!hayNulo(n, v) && estricto(c, v[0], x)) sqlite3_result_int64(c, AEntero(x.toDouble()));
}

// CONVERT(INT, x): towards zero; a text must be whole.
void fConvInt(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (hayNulo(n, v) || !estricto(c, v[0], x)) return;
  if (x.typeId() == QMetaType::LongLong) return sqlite3_result_int64(c, x.toLongLong());
  if (sqlite3_value_type(v[0]) == SQLITE_TEXT || std::fabs(x.toDouble()) > 9e18) {
    return darError(c, QStringLiteral("No se puede convertir '%1' a entero.").arg(textoDe(v[0])));
  }
  sqlite3_result_int64(c, static_cast<qint64>(x.toDouble()));
}

void fDecimal(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (hayNulo(n, v) || !estricto(c, v[1], x)) return;
  sqlite3_result_double(c, Redondear(x.toDouble(), sqlite3_value_int(v[0])));
}

// A third argument that is not 0 asks for a cut.
void fRound(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const int decimales = n > 1 ? sqlite3_value_int(v[1]) : 0;
  const double x = numeroDe(v[0]), r = Redondear(x, decimales);
  const bool subio = n > 2 && sqlite3_value_int(v[2]) != 0 && std::fabs(r) > std::fabs(x);
  sqlite3_result_double(c, subio ? Redondear(r - std::copysign(std::pow(10, -decimales), x), decimales) : r);
}

void fInt(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  if (sqlite3_value_type(v[0]) == SQLITE_INTEGER) sqlite3_result_value(c, v[0]);
  else sqlite3_result_double(c, Int(numeroDe(v[0])));
}

void fFix(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) sqlite3_result_double(c, std::trunc(numeroDe(v[0])));
}

const QString kEntreCero = QStringLiteral("División por cero.");

void fDivisor(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v) && numeroDe(v[0]) == 0) return darError(c, kEntreCero);
  sqlite3_result_value(c, v[0]);
}

void fResto(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const qint64 b = AEntero(numeroDe(v[1]));
  if (b == 0) return darError(c, kEntreCero);
  sqlite3_result_int64(c, b == -1 ? 0 : AEntero(numeroDe(v[0])) % b);
}

void fModulo(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) sqlite3_result_double(c, Redondear(std::fmod(numeroDe(v[0]), numeroDe(v[1])), 10));
}

void fPotencia(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) sqlite3_result_double(c, std::pow(numeroDe(v[0]), numeroDe(v[1])));
}

// True is -1 in Jet and 1 in T-SQL.
void fBool(sqlite3_context* c, int n, sqlite3_value** v) {
  QVariant x;
  if (hayNulo(n, v) || !estricto(c, v[0], x)) return;
  sqlite3_result_int(c, x.toDouble() == 0 ? 0 : entornoDe(c).dialecto == Dialecto::Jet ? -1 : 1);
}

void fDividir(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const qint64 a = AEntero(numeroDe(v[0]));
  const qint64 b = AEntero(numeroDe(v[1]));
  if (b == 0) return darError(c, kEntreCero);
  if (b == -1) return sqlite3_result_double(c, -static_cast<double>(a));
  sqlite3_result_int64(c, a / b);
}

// &H1F and &O17, up to the first sign that is no digit of theirs. What fits two bytes is a number of two bytes, so that
// &HFFFF is -1.
double deOtraBase(QStringView t) {
  const bool hexa = t.startsWith(u'H', Qt::CaseInsensitive);
  if (hexa || t.startsWith(u'O', Qt::CaseInsensitive)) t = t.mid(1);
  qint64 x = 0;
  for (const QChar c : t) {
    const int d = c >= u'0' && c <= u'9'   ? c.unicode() - u'0'
                  : c >= u'A' && c <= u'F' ? c.unicode() - u'A' + 10
                  : c >= u'a' && c <= u'f' ? c.unicode() - u'a' + 10
                                           : 99;
    if (d >= (hexa ? 16 : 8) || x > 0xFFFFFFF) break;
    x = x * (hexa ? 16 : 8) + d;
  }
  return static_cast<double>(x <= 0xFFFF ? static_cast<qint16>(x) : static_cast<qint32>(x));
}

// Jet's VAL passes over blanks, also between digits, and knows exponents and other bases.
void fVal(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  QString t = textoDe(v[0]);
  t.removeIf([](QChar x) { return x == u' ' || x == u'\t' || x == u'\n' || x == u'\r'; });
  if (t.startsWith(u'&')) return sqlite3_result_double(c, deOtraBase(QStringView(t).mid(1)));
  qsizetype fin = 0;
  const auto digitos = [&] {
    const qsizetype desde = fin;
    while (fin < t.size() && t[fin] >= u'0' && t[fin] <= u'9') ++fin;
    return fin > desde;
  };
  if (fin < t.size() && (t[fin] == u'-' || t[fin] == u'+')) ++fin;
  digitos();
  if (fin < t.size() && t[fin] == u'.') {
    ++fin;
    digitos();
  }
  const qsizetype mantisa = fin;
  if (fin < t.size() && QStringView(u"eEdD").contains(t[fin])) {
    t[fin++] = u'e';
    if (fin < t.size() && (t[fin] == u'-' || t[fin] == u'+')) ++fin;
    if (!digitos()) fin = mantisa;
  }
  sqlite3_result_double(c, t.left(fin).toDouble());
}

void fIsNull(sqlite3_context* c, int n, sqlite3_value** v) { sqlite3_result_int(c, hayNulo(n, v)); }

void fIsNumeric(sqlite3_context* c, int n, sqlite3_value** v) {
  sqlite3_result_int(c, !hayNulo(n, v) && leerNumero(textoDe(v[0])).isValid());
}

// FIRST and LAST: the value of a row, Null too, so it is kept beside a mark.
struct Extremo {
  sqlite3_value* valor;
  bool visto;
};

template <bool primero>
void fExtremo(sqlite3_context* c, int, sqlite3_value** v) {
  auto* e = static_cast<Extremo*>(sqlite3_aggregate_context(c, sizeof(Extremo)));
  if (!e || (primero && e->visto)) return;
  sqlite3_value_free(e->valor);
  e->valor = sqlite3_value_dup(v[0]);
  e->visto = true;
}

void finExtremo(sqlite3_context* c) {
  auto* e = static_cast<Extremo*>(sqlite3_aggregate_context(c, 0));
  if (!e || !e->valor) return;
  sqlite3_result_value(c, e->valor);
  sqlite3_value_free(e->valor);
}

// clang-format off
const EntradaFuncion kFunciones[] = {
    {"tp_texto", 1, fTexto},             {"tp_une", 2, fUne},                 {"tp_num", 1, fNum},
    {"tp_valor", 1, fValor},             {"tp_cdbl", 1, fCdbl},               {"tp_aentero", 1, fAEntero},
    {"tp_convint", 1, fConvInt},         {"tp_decimal", 2, fDecimal},         {"tp_round", -1, fRound},
    {"tp_int", 1, fInt},                 {"tp_fix", 1, fFix},                 {"tp_dividir", 2, fDividir},
    {"tp_val", 1, fVal},                 {"tp_isnull", 1, fIsNull},           {"tp_isnumeric", 1, fIsNumeric},
    {"tp_modulo", 2, fModulo},           {"tp_divisor", 1, fDivisor},         {"tp_resto", 2, fResto},
    {"tp_potencia", 2, fPotencia},       {"tp_bool", 1, fBool},
    {"tp_primero", 1, fExtremo<true>, finExtremo},
    {"tp_ultimo", 1, fExtremo<false>, finExtremo},
    {nullptr, 0, nullptr}};
// clang-format on

}  // namespace

const EntradaFuncion* funcionesDeNumero() { return kFunciones; }
