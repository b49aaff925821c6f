#include <sqlite3.h>

#include <algorithm>

#include "platform/sql/edicion.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

// The masks that have a name.
QString mascaraDe(const QString& nombre) {
  // clang-format off
  static const struct { const char16_t *nombre, *mascara; } kConNombre[] = {
      {u"general date", u"dd/mm/yyyy hh:nn:ss"}, {u"short date", u"dd/mm/yyyy"},
      {u"medium date", u"dd-mmm-yy"}, {u"long date", u"dddd, dd \"de\" mmmm \"de\" yyyy"},
      {u"medium time", u"hh:nn AM/PM"}, {u"short time", u"hh:nn"},
      {u"long time", u"hh:nn:ss"}, {u"standard", u"#,##0.00"}, {u"fixed", u"0.00"}, {u"percent", u"0.00%"}};
  const QString buscado = nombre.toLower();
  for (const auto& m : kConNombre) {
    if (buscado == QStringView(m.nombre)) return QString::fromUtf16(m.mascara);
  }
  // clang-format on
  return nombre;
}

// "hh:nn AM/PM" counts to twelve.
QString fechaConMascara(QDateTime f, QString mascara) {
  const qsizetype i = mascara.indexOf(u"am/pm", 0, Qt::CaseInsensitive);
  if (i < 0) return FormatearFecha(f, mascara);
  const QTime h = f.time();
  f.setTime(QTime((h.hour() + 11) % 12 + 1, h.minute(), h.second()));
  const QString mitad = h.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
  return FormatearFecha(f, mascara.left(i)) + mitad + FormatearFecha(f, mascara.mid(i + 5));
}

// Up to three masks: of positive numbers, of negative ones, of zero.
QString numeroConMascara(double x, const QString& mascara) {
  const QStringList partes = mascara.split(u';');
  const bool negativo = x < 0 && !partes.value(1).isEmpty(), cero = x == 0 && !partes.value(2).isEmpty();
  const QString& parte = partes[negativo ? 1 : cero ? 2 : 0];
  return Formatear((negativo ? -x : x) * (parte.contains(u'%') ? 100 : 1), parte).remove(u'"').remove(u'\\');
}

// A mask of places formats a number, > and < a text, any other a date. A third argument is the first day
// of the week for the masks that are a part of a date alone.
void fFormat(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(std::min(n, 2), v)) {  // FORMAT of Null is a blank text there
    return darTexto(c, QString());
  }
  const QString t = textoDe(v[0]);
  if (n < 2) return darTexto(c, t);
  const QString mascara = mascaraDe(textoDe(v[1]));
  if (mascara == u">" || mascara == u"<") return darTexto(c, mascara == u">" ? t.toUpper() : t.toLower());
  if (mascara.contains(u'0') || mascara.contains(u'#')) {
    const QVariant x = sqlite3_value_type(v[0]) == SQLITE_TEXT ? leerNumero(t) : QVariant(sqlite3_value_double(v[0]));
    return darTexto(c, x.isValid() ? numeroConMascara(x.toDouble(), mascara) : t);
  }
  // clang-format off
  static const struct { QStringView mascara; const char *si, *no; } kSiNo[] = {
      {u"yes/no", "Sí", "No"}, {u"true/false", "Verdadero", "Falso"}, {u"on/off", "Activado", "Desactivado"}};
  for (const auto& k : kSiNo) {
    if (mascara.compare(k.mascara, Qt::CaseInsensitive) != 0) continue;
    return darTexto(c, QString::fromUtf8(numeroDe(v[0]) != 0 ? k.si : k.no));
  }
  // clang-format on
  const auto f = instanteDe(c, v[0]);
  static const QStringList kPartes{QStringLiteral("q"), QStringLiteral("w"), QStringLiteral("y"), QStringLiteral("ww")};
  if (f && kPartes.contains(mascara, Qt::CaseInsensitive)) {
    return darTexto(c, QString::number(*parteDeFecha(*f, mascara, n > 2 ? sqlite3_value_int(v[2]) : 1)));
  }
  darTexto(c, f ? fechaConMascara(*f, mascara) : t);
}

const EntradaFuncion kFunciones[] = {{"tp_format", -1, fFormat}, {nullptr, 0, nullptr}};

}  // namespace

const EntradaFuncion* funcionesDeFormato() { return kFunciones; }
