#include <sqlite3.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "platform/sql/comparacion.h"
#include "platform/sql/contiene.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

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
    {"tp_chr", 1, fChr},                 {"tp_asc", 1, fAsc},                 {"tp_len", 1, fLen},
    {"tp_mayus", 1, fMayus},             {"tp_minus", 1, fMinus},             {"tp_izquierda", 2, fIzquierda},
    {"tp_derecha", 2, fDerecha},         {"tp_space", 1, fSpace},             {"tp_replicate", 2, fReplicate},
    {"tp_instr", -1, fInstr},            {"tp_charindex", -1, fCharindex},    {"tp_like", -1, fLike},
    {"tp_patindex", 2, fPatindex},       {"tp_substring", 3, fSubstring},     {"tp_string", 2, fString},
    {"tp_reverso", 1, fReverso},         {"tp_concat", -1, fConcat},          {"tp_replace", 3, fReplace},
    {"tp_stuff", 4, fStuff},             {"tp_str", -1, fStr},                {"tp_strcomp", -1, fStrcomp},
    {"tp_instrrev", 2, fInstrrev},
    {nullptr, 0, nullptr}};
// clang-format on

}  // namespace

const EntradaFuncion* funcionesDeTexto() { return kFunciones; }
