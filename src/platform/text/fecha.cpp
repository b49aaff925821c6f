#include "platform/text/fecha.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

constexpr std::array<const char16_t*, 7> kDias = {u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb", u"dom"};
constexpr std::array<const char16_t*, 12> kMeses = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                                                    u"jul", u"ago", u"set", u"oct", u"nov", u"dic"};
constexpr std::array<const char16_t*, 7> kDiasLargos = {u"lunes",   u"martes", u"miércoles", u"jueves",
                                                        u"viernes", u"sábado", u"domingo"};
constexpr std::array<const char16_t*, 12> kMesesLargos = {u"enero",     u"febrero", u"marzo",     u"abril",
                                                          u"mayo",      u"junio",   u"julio",     u"agosto",
                                                          u"setiembre", u"octubre", u"noviembre", u"diciembre"};

QString conCeros(int n, int largo) { return QString::number(n).rightJustified(largo, u'0'); }

QString campo(QChar letra, int n, const QDateTime& t) {
  const QDate d = t.date();
  const QTime h = t.time();
  switch (letra.unicode()) {
    case u'd':
      return n >= 3 ? QString::fromUtf16((n > 3 ? kDiasLargos : kDias).at(d.dayOfWeek() - 1)) : conCeros(d.day(), n);
    case u'm':
      return n >= 3 ? QString::fromUtf16((n > 3 ? kMesesLargos : kMeses).at(d.month() - 1)) : conCeros(d.month(), n);
    case u'y': return n >= 3 ? conCeros(d.year(), 4) : conCeros(d.year() % 100, 2);
    case u'h': return conCeros(h.hour(), n);
    case u'n': return conCeros(h.minute(), n);
    default: return conCeros(h.second(), n);
  }
}

// Digits from `i` on, moving it behind them; -1 when there are none.
int numero(QStringView t, qsizetype& i) {
  const qsizetype desde = i;
  int v = 0;
  while (i < t.size() && t[i] >= u'0' && t[i] <= u'9' && i - desde < 4) v = v * 10 + (t[i++].unicode() - u'0');
  return i == desde ? -1 : v;
}

std::optional<QTime> leerHora(QStringView t) {
  qsizetype i = 0;
  const int h = numero(t, i);
  if (h < 0 || i >= t.size() || t[i] != u':') return {};
  ++i;
  const int m = numero(t, i);
  int s = 0;
  if (i < t.size() && t[i] == u':') {
    ++i;
    s = numero(t, i);
    if (i < t.size() && t[i] == u'.') {  // a fraction of a second is read over
      ++i;
      numero(t, i);
    }
  }
  const QString resto = t.mid(i).toString().toUpper().remove(u'.').remove(u' ').remove(QChar(0xA0));  // "p. m.", too
  int hora = h;
  if (resto == u"AM" || resto == u"PM") {
    if (h < 1 || h > 12) return {};
    hora = h % 12 + (resto == u"PM" ? 12 : 0);
  } else if (!resto.isEmpty()) {
    return {};
  }
  const QTime r(hora, m, s);
  return r.isValid() ? std::optional(r) : std::nullopt;
}

}  // namespace

QString FormatearFecha(const QDateTime& momento, QStringView mascara) {
  if (!momento.isValid()) return {};
  QString sale;
  QChar anterior;
  for (qsizetype i = 0; i < mascara.size();) {
    QChar letra = mascara[i].toLower();
    if (letra == u'"' || letra == u'\\') {  // what stands as it is, up to the next quote or the one character behind
      const qsizetype cierra = letra == u'"' ? mascara.indexOf(u'"', i + 1) : i + 2;
      const qsizetype fin = cierra < 0 ? mascara.size() : std::min(cierra, mascara.size());
      sale += mascara.mid(i + 1, fin - i - 1);
      i = letra == u'"' ? fin + 1 : fin;
      continue;
    }
    qsizetype j = i;
    while (j < mascara.size() && mascara[j].toLower() == letra) ++j;
    if (QStringView(u"dmyhns").contains(letra)) {
      if (letra == u'm' && anterior == u'h') letra = u'n';
      sale += campo(letra, static_cast<int>(j - i), momento);
      anterior = letra;
    } else {
      sale += mascara.mid(i, j - i);
    }
    i = j;
  }
  return sale;
}

std::optional<QDateTime> LeerFecha(QStringView texto, OrdenFecha orden) {
  const QStringView t = texto.trimmed();
  qsizetype i = 0;
  std::array<int, 3> n{};
  std::array<qsizetype, 3> largo{};
  for (int k = 0; k < 3; ++k) {
    if (k > 0) {
      if (i >= t.size() || !QStringView(u"/-.").contains(t[i])) return {};
      ++i;
    }
    const qsizetype desde = i;
    n[k] = numero(t, i);
    largo[k] = i - desde;
    if (n[k] < 0) return {};
  }
  int dia = n[0];
  int mes = n[1];
  int anio = n[2];
  if (largo[0] >= 3) {
    anio = n[0];
    dia = n[2];
  } else {
    if (orden == OrdenFecha::MesDia) std::swap(dia, mes);
    if (mes > 12 && dia <= 12) std::swap(dia, mes);
    if (largo[2] <= 2) anio += anio < 30 ? 2000 : 1900;
  }
  const QDate d(anio, mes, dia);
  if (!d.isValid()) return {};
  if (i == t.size()) return d.startOfDay();
  if (t[i] != u' ' && t[i] != u'T') return {};
  const auto h = leerHora(t.mid(i + 1).trimmed());
  if (!h) return {};
  return QDateTime(d, *h);
}

QString FechaISO(const QDateTime& momento) {
  int anio = 0, mes = 0, dia = 0;
  momento.date().getDate(&anio, &mes, &dia);
  const QTime hora = momento.time();
  if (anio < 1 || anio > 9999 || !hora.isValid()) return FormatearFecha(momento, u"yyyy-mm-dd hh:nn:ss");
  QString sale = QStringLiteral("0000-00-00 00:00:00");
  QChar* const t = sale.data();
  const auto poner = [t](int fin, int n) {
    for (; n > 0; n /= 10) t[fin--] = QChar(u'0' + n % 10);
  };
  poner(3, anio);
  poner(6, mes);
  poner(9, dia);
  poner(12, hora.hour());
  poner(15, hora.minute());
  poner(18, hora.second());
  return sale;
}
