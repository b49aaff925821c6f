#include "platform/sql/funciones_sqlite.h"

#include <sqlite3.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "platform/sql/contiene.h"
#include "platform/sql/edicion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

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

void fVal(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) sqlite3_result_double(c, Val(textoDe(v[0])));
}

void fIsNull(sqlite3_context* c, int n, sqlite3_value** v) { sqlite3_result_int(c, hayNulo(n, v)); }

void fIsNumeric(sqlite3_context* c, int n, sqlite3_value** v) {
  sqlite3_result_int(c, !hayNulo(n, v) && leerNumero(textoDe(v[0])).isValid());
}

void fChr(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, DeUnByte(QByteArray(1, static_cast<char>(sqlite3_value_int(v[0])))));
}

void fAsc(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const QByteArray b = AUnByte(textoDe(v[0]).left(1));
  if (!b.isEmpty()) sqlite3_result_int(c, static_cast<unsigned char>(b[0]));
}

void fLen(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  QString t = textoDe(v[0]);
  if (entornoDe(c).dialecto == Dialecto::TSql) {  // blanks at the end don't count there
    while (t.endsWith(u' ')) t.chop(1);
  }
  sqlite3_result_int64(c, t.size());
}

void fMayus(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, textoDe(v[0]).toUpper());
}

void fMinus(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, textoDe(v[0]).toLower());
}

void fIzquierda(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, Izquierda(textoDe(v[0]), sqlite3_value_int(v[1])));
}

void fDerecha(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, Derecha(textoDe(v[0]), sqlite3_value_int(v[1])));
}

// A statement can ask for any number of copies; a shop never does.
constexpr int kCopias = 10000;

void fSpace(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v) && sqlite3_value_int(v[0]) >= 0) darTexto(c, Espacios(std::min(sqlite3_value_int(v[0]), kCopias)));
}

void fReplicate(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v) || sqlite3_value_int(v[1]) < 0) return;
  darTexto(c, textoDe(v[0]).left(kCopias).repeated(std::min(sqlite3_value_int(v[1]), kCopias)));
}

void fString(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darTexto(c, textoDe(v[1]).left(1).repeated(std::clamp(sqlite3_value_int(v[0]), 0, kCopias)));
}

void fReverso(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  QString t = textoDe(v[0]);
  std::reverse(t.begin(), t.end());
  darTexto(c, t);
}

void fConcat(sqlite3_context* c, int n, sqlite3_value** v) {
  QString t;
  for (int i = 0; i < n; ++i) t += textoDe(v[i]);
  darTexto(c, t);
}

void fReplace(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const QString que = textoDe(v[1]);
  darTexto(c, que.isEmpty() ? textoDe(v[0]) : textoDe(v[0]).replace(que, textoDe(v[2]), Qt::CaseInsensitive));
}

// STUFF(text, from, how many, instead)
void fStuff(sqlite3_context* c, int n, sqlite3_value** v) {
  if (n < 3 || sqlite3_value_type(v[0]) == SQLITE_NULL) return;
  const QString t = textoDe(v[0]);
  const int desde = sqlite3_value_int(v[1]), largo = sqlite3_value_int(v[2]);
  if (desde < 1 || desde > t.size() || largo < 0) return;
  darTexto(c, t.left(desde - 1) + textoDe(v[3]) + t.mid(qint64(desde) - 1 + largo));
}

// STR: Jet keeps a place for the sign; T-SQL rounds and fills up to a length, 10 unless told.
void fStr(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const double x = numeroDe(v[0]);
  const QString signo = x < 0 ? QString() : QStringLiteral(" ");
  if (entornoDe(c).dialecto == Dialecto::Jet) return darTexto(c, signo + TextoDe(x));
  const int largo = n > 1 ? std::clamp(sqlite3_value_int(v[1]), 0, kCopias) : 10;
  const int decimales = n > 2 ? std::clamp(sqlite3_value_int(v[2]), 0, 15) : 0;
  const QString mascara = decimales > 0 ? QStringLiteral("0.") + QString(decimales, u'0') : QStringLiteral("0");
  const QString t = Formatear(x, mascara);
  darTexto(c, t.size() > largo ? QString(largo, u'*') : t.rightJustified(largo));
}

void fStrcomp(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const bool binario = n > 2 && sqlite3_value_int(v[2]) == 0;
  const QString a = textoDe(v[0]), b = textoDe(v[1]);
  const int orden = binario ? a.compare(b) : compararTextosSql(a, b, false);
  sqlite3_result_int(c, (orden > 0) - (orden < 0));
}

void fInstrrev(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) sqlite3_result_int64(c, textoDe(v[0]).lastIndexOf(textoDe(v[1]), -1, Qt::CaseInsensitive) + 1);
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

// INSTR([from,] text, wanted) of Jet and CHARINDEX(wanted, text [, from]) of T-SQL.
void buscar(sqlite3_context* c, const QString& en, const QString& que, int desde, bool conCaso = false) {
  if (desde < 1) desde = 1;
  sqlite3_result_int64(c, en.indexOf(que, desde - 1, conCaso ? Qt::CaseSensitive : Qt::CaseInsensitive) + 1);
}

void fInstr(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const bool conCaso = n == 4 && sqlite3_value_int(v[3]) == 0;
  if (n >= 3) buscar(c, textoDe(v[1]), textoDe(v[2]), sqlite3_value_int(v[0]), conCaso);
  else buscar(c, textoDe(v[0]), textoDe(v[1]), 1);
}

void fCharindex(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  if (textoDe(v[0]).isEmpty()) return sqlite3_result_int(c, 0);
  buscar(c, textoDe(v[1]), textoDe(v[0]), n == 3 ? sqlite3_value_int(v[2]) : 1);
}

// PATINDEX(pattern, text): where what is like the pattern begins.
void fPatindex(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const QString patron = textoDe(v[0]), t = textoDe(v[1]);
  const bool dondeSea = patron.startsWith(u'%');
  qsizetype i = 0;
  while (i < t.size() && dondeSea && !pareceSql(QStringView(t).mid(i), QStringView(patron).mid(1), Dialecto::TSql)) ++i;
  const bool hay = i < t.size() && (dondeSea || pareceSql(t, patron, Dialecto::TSql));
  sqlite3_result_int64(c, hay ? i + 1 : 0);
}

// SUBSTRING(text, from, how many) counts from before the first character, too.
void fSubstring(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const qint64 desde = sqlite3_value_int64(v[1]), largo = sqlite3_value_int64(v[2]);
  if (largo < 0 || largo > INT_MAX || std::llabs(desde) > INT_MAX) {
    return darError(c, QStringLiteral("Longitud no válida en SUBSTRING."));
  }
  const qint64 primero = std::max<qint64>(desde, 1);
  darTexto(c, textoDe(v[0]).mid(primero - 1, std::max<qint64>(desde + largo - primero, 0)));
}

// The bytes of a text where the engine holds them: asked as a text it would copy each one to end it with a zero.
std::string_view bytesDe(sqlite3_value* v) {
  const auto* t = static_cast<const char*>(sqlite3_value_blob(v));
  return t ? std::string_view(t, static_cast<size_t>(sqlite3_value_bytes(v))) : std::string_view();
}

// The search for a text anywhere, prepared once for all rows of a statement; nullptr when the pattern asks for more.
const Contiene* busquedaDe(sqlite3_context* c, sqlite3_value* patron) {
  auto* guardada = static_cast<std::optional<Contiene>*>(sqlite3_get_auxdata(c, 1));
  if (!guardada) {
    const bool jet = entornoDe(c).dialecto == Dialecto::Jet;
    guardada = new std::optional<Contiene>(Contiene::de(bytesDe(patron), jet ? "%_[*?#" : "%_["));
    sqlite3_set_auxdata(c, 1, guardada, [](void* p) { delete static_cast<std::optional<Contiene>*>(p); });
    // The engine may have dropped it at once.
    guardada = static_cast<std::optional<Contiene>*>(sqlite3_get_auxdata(c, 1));
  }
  return guardada && *guardada ? &**guardada : nullptr;
}

void fLike(sqlite3_context* c, int n, sqlite3_value** v) {
  const bool textos = n == 2 && sqlite3_value_type(v[0]) == SQLITE_TEXT && sqlite3_value_type(v[1]) == SQLITE_TEXT;
  if (const Contiene* busqueda = textos ? busquedaDe(c, v[1]) : nullptr) {
    if (const auto hay = busqueda->en(bytesDe(v[0]))) return sqlite3_result_int(c, *hay);
  }
  if (hayNulo(n, v)) return;
  const QString escape = n > 2 ? textoDe(v[2]) : QString();
  sqlite3_result_int(
      c, pareceSql(textoDe(v[0]), textoDe(v[1]), entornoDe(c).dialecto, escape.isEmpty() ? QChar() : escape[0]));
}

// clang-format off
const EntradaFuncion kFunciones[] = {
    {"tp_texto", 1, fTexto},       {"tp_une", 2, fUne},           {"tp_num", 1, fNum},
    {"tp_valor", 1, fValor},
    {"tp_cdbl", 1, fCdbl},         {"tp_aentero", 1, fAEntero},   {"tp_convint", 1, fConvInt},
    {"tp_decimal", 2, fDecimal},   {"tp_round", -1, fRound},      {"tp_int", 1, fInt},
    {"tp_fix", 1, fFix},           {"tp_dividir", 2, fDividir},   {"tp_val", 1, fVal},
    {"tp_isnull", 1, fIsNull},     {"tp_isnumeric", 1, fIsNumeric}, {"tp_chr", 1, fChr},
    {"tp_asc", 1, fAsc},           {"tp_len", 1, fLen},           {"tp_mayus", 1, fMayus},
    {"tp_minus", 1, fMinus},       {"tp_izquierda", 2, fIzquierda}, {"tp_derecha", 2, fDerecha},
    {"tp_space", 1, fSpace},       {"tp_replicate", 2, fReplicate}, {"tp_instr", -1, fInstr},
    {"tp_charindex", -1, fCharindex}, {"tp_like", -1, fLike},
    {"tp_patindex", 2, fPatindex}, {"tp_substring", 3, fSubstring}, {"tp_modulo", 2, fModulo},
    {"tp_divisor", 1, fDivisor},   {"tp_resto", 2, fResto},       {"tp_potencia", 2, fPotencia},
    {"tp_bool", 1, fBool},         {"tp_string", 2, fString},     {"tp_reverso", 1, fReverso},
    {"tp_concat", -1, fConcat},    {"tp_replace", 3, fReplace},   {"tp_stuff", 4, fStuff},
    {"tp_str", -1, fStr},          {"tp_strcomp", -1, fStrcomp},  {"tp_instrrev", 2, fInstrrev},
    {"tp_primero", 1, fExtremo<true>, finExtremo}, {"tp_ultimo", 1, fExtremo<false>, finExtremo},
    {nullptr, 0, nullptr}};

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
// clang-format on

int colacionJet(void*, int na, const void* a, int nb, const void* b) { return comparar(na, a, nb, b, false); }

int colacionTSql(void*, int na, const void* a, int nb, const void* b) { return comparar(na, a, nb, b, true); }

class Parecido {
 public:
  Parecido(QStringView texto, QStringView patron, bool jet, QChar escape)
      : t_(texto), p_(patron), jet_(jet), escape_(escape) {}

  // Backtracks only to the last run of any characters, so a long pattern can't hang the desk.
  bool correr() {
    qsizetype i = 0, k = 0, vuelveT = -1, vuelveP = -1;
    while (i < t_.size()) {
      qsizetype sigue = k;
      if (k < p_.size() && cualquiera(k)) {
        vuelveP = ++k;
        vuelveT = i;
      } else if (k < p_.size() && uno(t_[i], sigue)) {
        k = sigue;
        ++i;
      } else if (vuelveP >= 0) {
        k = vuelveP;
        i = ++vuelveT;
      } else {
        return false;
      }
    }
    while (k < p_.size() && cualquiera(k)) ++k;
    return k == p_.size();
  }

 private:
  bool cualquiera(qsizetype k) const { return p_[k] == u'%' || (jet_ && p_[k] == u'*'); }

  // Whether the pattern's element at `k` takes `c`; k moves behind the element.
  bool uno(QChar c, qsizetype& k) const {
    const QChar q = p_[k++];
    if (!escape_.isNull() && q == escape_ && k < p_.size()) return igual(p_[k++], c);
    if (q == u'_' || (jet_ && q == u'?')) return true;
    if (jet_ && q == u'#') return c >= u'0' && c <= u'9';
    if (q == u'[') {
      const qsizetype cierra = p_.indexOf(u']', k + 1);
      if (cierra > 0) {
        const QStringView clase = p_.mid(k, cierra - k);
        k = cierra + 1;
        return enClase(c, clase, jet_);
      }
    }
    return igual(q, c);
  }

  static bool igual(QChar a, QChar b) { return a.toCaseFolded() == b.toCaseFolded(); }

  static bool enClase(QChar c, QStringView clase, bool jet) {
    const bool no = clase.size() > 1 && (clase[0] == u'^' || (jet && clase[0] == u'!'));
    if (no) clase = clase.mid(1);
    const QChar x = c.toCaseFolded();
    for (qsizetype i = 0; i < clase.size(); ++i) {
      const bool tramo = i + 2 < clase.size() && clase[i + 1] == u'-';
      const QChar a = clase[i].toCaseFolded();
      const QChar b = tramo ? clase[i + 2].toCaseFolded() : a;
      if (x >= a && x <= b) return !no;
      if (tramo) i += 2;
    }
    return no;
  }

  QStringView t_, p_;
  bool jet_;
  QChar escape_;
};

}  // namespace

int compararTextosSql(QString a, QString b, bool sinFinales) {
  if (sinFinales) {
    while (a.endsWith(u' ')) a.chop(1);
    while (b.endsWith(u' ')) b.chop(1);
  }
  if (a == b) return 0;
  const QString fa = a.toCaseFolded();
  const QString fb = b.toCaseFolded();
  if (fa == fb) return 0;
  const int orden = CompararEspanol(fa, fb);
  return orden != 0 ? orden : fa.compare(fb);
}

bool pareceSql(QStringView texto, QStringView patron, Dialecto dialecto, QChar escape) {
  return Parecido(texto, patron, dialecto == Dialecto::Jet, escape).correr();
}

namespace {

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
       {static_cast<const EntradaFuncion*>(kFunciones), funcionesDeFecha(), funcionesDeFormato()}) {
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
