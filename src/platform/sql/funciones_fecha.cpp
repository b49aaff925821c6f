#include <sqlite3.h>

#include <QLocale>

#include <cmath>

#include "platform/sql/funciones_sqlite.h"
#include "platform/sql/instante.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

enum class Parte { Nada, Anio, Trimestre, Mes, Dia, DiaDelAnio, DiaSemana, Semana, Hora, Minuto, Segundo, Milesima };

Parte parteDe(const QString& nombre) {
  // clang-format off
  static const struct { const char16_t* nombres; Parte parte; } kPartes[] = {
      {u" yyyy yy year ", Parte::Anio},        {u" q qq quarter ", Parte::Trimestre}, {u" m mm month ", Parte::Mes},
      {u" d dd day ", Parte::Dia},             {u" y dy dayofyear ", Parte::DiaDelAnio},
      {u" w dw weekday ", Parte::DiaSemana},   {u" ww wk week ", Parte::Semana},      {u" h hh hour ", Parte::Hora},
      {u" n mi minute ", Parte::Minuto},       {u" s ss second ", Parte::Segundo},
      {u" ms millisecond ", Parte::Milesima}};
  const QString buscado = u' ' + nombre.trimmed().toLower() + u' ';
  for (const auto& p : kPartes) {
    if (QStringView(p.nombres).contains(buscado)) return p.parte;
  }
  // clang-format on
  return Parte::Nada;
}

void darFecha(sqlite3_context* c, const QDateTime& f) {
  const QByteArray t = FechaISO(f).toUtf8();
  sqlite3_result_text(c, t.constData(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
}

// The argument as a moment; an error is given for anything that is no date.
bool fecha(sqlite3_context* c, sqlite3_value* v, QDateTime& f) {
  if (const auto leida = instanteDe(c, v)) {
    f = *leida;
    return true;
  }
  const QString t = textoDe(v);
  if (entornoDe(c).dialecto == Dialecto::TSql && t.trimmed().isEmpty()) {
    f = QDateTime(QDate(1900, 1, 1), QTime(0, 0));
    return true;
  }
  darError(c, QStringLiteral("No se puede convertir '%1' a fecha.").arg(t));
  return false;
}

void fAhora(sqlite3_context* c, int, sqlite3_value**) { darFecha(c, entornoDe(c).ahora()); }

void fHoy(sqlite3_context* c, int, sqlite3_value**) {
  darFecha(c, QDateTime(entornoDe(c).ahora().date(), QTime(0, 0)));
}

// A time of the day is that time on day 0.
void darHora(sqlite3_context* c, const QTime& hora) { darFecha(c, QDateTime(QDate(1899, 12, 30), hora)); }

void fHora(sqlite3_context* c, int, sqlite3_value**) { darHora(c, entornoDe(c).ahora().time()); }

void fTimeserial(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const qint64 minutos = qint64(sqlite3_value_int(v[0])) * 60 + sqlite3_value_int(v[1]);
  const qint64 s = minutos * 60 + sqlite3_value_int(v[2]);
  if (s < 0 || s >= 86400) return darError(c, QStringLiteral("La hora queda fuera de rango."));
  darHora(c, QTime(0, 0).addSecs(static_cast<int>(s)));
}

void fTimevalue(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const QString t = textoDe(v[0]);
  if (const auto f = leerInstante(t)) return darHora(c, f->time());
  darError(c, QStringLiteral("No se puede convertir '%1' a hora.").arg(t));
}

void fIsdate(sqlite3_context* c, int n, sqlite3_value** v) {
  sqlite3_result_int(c, !hayNulo(n, v) && sqlite3_value_type(v[0]) == SQLITE_TEXT && leerInstante(textoDe(v[0])));
}

void fCdate(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime f;
  if (!hayNulo(n, v) && fecha(c, v[0], f)) darFecha(c, f);
}

void fDatevalue(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime f;
  if (!hayNulo(n, v) && fecha(c, v[0], f)) darFecha(c, QDateTime(f.date(), QTime(0, 0)));
}

// A date as a text: with its time, unless it is midnight.
QString textoFecha(const QDateTime& f) {
  const bool medianoche = f.time() == QTime(0, 0);
  return FormatearFecha(f, medianoche ? u"dd/mm/yyyy" : u"dd/mm/yyyy hh:nn:ss");
}

void fTextofecha(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const auto f = instanteDe(c, v[0]);
  darTexto(c, f ? textoFecha(*f) : textoDe(v[0]));
}

// CONVERT(DATETIME, x [, style]): styles 1 and 101, 10 and 110 are month first, the others day first; a year in
// front is year/month/day whatever the style, also without signs between.
void fAfecha(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  if (sqlite3_value_type(v[0]) == SQLITE_TEXT) {
    const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(v[0]));
    if (esInstanteGuardado(t, sqlite3_value_bytes(v[0]))) return sqlite3_result_value(c, v[0]);
  }
  const int estilo = n > 1 ? sqlite3_value_int(v[1]) : 0;
  const bool mesPrimero = estilo == 1 || estilo == 101 || estilo == 10 || estilo == 110;
  if (mesPrimero && sqlite3_value_type(v[0]) == SQLITE_TEXT) {
    if (const auto f = LeerFecha(textoDe(v[0]), OrdenFecha::MesDia)) return darFecha(c, *f);
  }
  QDateTime f;
  if (fecha(c, v[0], f)) darFecha(c, f);
}

const char16_t* mascaraDeEstilo(int estilo) {
  switch (estilo) {
    case 1: return u"mm/dd/yy";
    case 3: return u"dd/mm/yy";
    case 101: return u"mm/dd/yyyy";
    case 102: return u"yyyy.mm.dd";
    case 103: return u"dd/mm/yyyy";
    case 104: return u"dd.mm.yyyy";
    case 105: return u"dd-mm-yyyy";
    case 108: return u"hh:nn:ss";
    case 110: return u"mm-dd-yyyy";
    case 111: return u"yyyy/mm/dd";
    case 112: return u"yyyymmdd";
    case 21:
    case 25:
    case 121: return u"yyyy-mm-dd hh:nn:ss.000";
    case 2: return u"yy.mm.dd";
    case 4: return u"dd.mm.yy";
    case 5: return u"dd-mm-yy";
    case 8:
    case 24: return u"hh:nn:ss";
    case 10: return u"mm-dd-yy";
    case 11: return u"yy/mm/dd";
    case 12: return u"yymmdd";
    case 23: return u"yyyy-mm-dd";
    case 14:
    case 114: return u"hh:nn:ss:000";
    case 20:
    case 120: return u"yyyy-mm-dd hh:nn:ss";
    case 126: return u"yyyy-mm-ddThh:nn:ss";
    default: return nullptr;
  }
}

// Styles with the name of the month, in the servers' language; nothing for a style that there isn't.
QString conMesEnLetras(const QDateTime& f, int estilo) {
  static const char* const kMeses[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const QString mes = QString::fromLatin1(kMeses[f.date().month() - 1]), dia = FormatearFecha(f, u"dd");
  const QString anio = FormatearFecha(f, u"yyyy");
  const int hora = f.time().hour() % 12 == 0 ? 12 : f.time().hour() % 12;
  const QString media = QStringLiteral("%1%2").arg(hora, 2).arg(FormatearFecha(f, u":nn"));
  const QString letras = f.time().hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
  const QString fecha = mes + QStringLiteral(" %1 ").arg(f.date().day(), 2) + anio + u' ';
  switch (estilo) {
    case 0:
    case 100: return fecha + media + letras;
    case 9:
    case 109: return fecha + media + FormatearFecha(f, u":ss:000") + letras;
    case 6: return dia + u' ' + mes + u' ' + anio.right(2);
    case 106: return dia + u' ' + mes + u' ' + anio;
    case 7: return mes + u' ' + dia + QStringLiteral(", ") + anio.right(2);
    case 107: return mes + u' ' + dia + QStringLiteral(", ") + anio;
    case 13:
    case 113: return dia + u' ' + mes + u' ' + anio + FormatearFecha(f, u" hh:nn:ss:000");
    default: return {};
  }
}

// CONVERT(VARCHAR(n), x [, style]), its length in front. A style speaks of dates; a stored date is one.
void fConvtexto(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  QString t = textoDe(v[1]);
  const int estilo = n > 2 ? sqlite3_value_int(v[2]) : 0;
  const bool conEstilo = n > 2 && sqlite3_value_type(v[1]) == SQLITE_TEXT;
  if (const auto f = conEstilo ? instanteDe(c, v[1]) : std::nullopt) {
    const char16_t* mascara = mascaraDeEstilo(estilo);
    t = mascara ? FormatearFecha(*f, mascara) : conMesEnLetras(*f, estilo);
    if (t.isEmpty()) return darError(c, QStringLiteral("%1 no es un estilo de fecha.").arg(estilo));
  }
  const int largo = sqlite3_value_int(v[0]);
  if (sqlite3_value_type(v[1]) == SQLITE_INTEGER && t.size() > std::abs(largo)) t = u'*';  // a number is never cut
  darTexto(c, largo < 0 ? t.leftJustified(-largo, u' ', true) : t.left(largo));
}

void sumarDias(sqlite3_context* c, sqlite3_value** v, double signo) {
  if (hayNulo(2, v)) return;
  QDateTime f;
  const bool alReves = sqlite3_value_type(v[0]) != SQLITE_TEXT;  // 3 + date()
  if (!fecha(c, v[alReves ? 1 : 0], f)) return;
  const double dias = signo * numeroDe(v[alReves ? 0 : 1]);
  if (std::fabs(dias) > 3000000) return darError(c, QStringLiteral("La fecha queda fuera de rango."));
  darFecha(c, f.addSecs(static_cast<qint64>(std::llround(dias * 86400))));
}

void fMasdias(sqlite3_context* c, int, sqlite3_value** v) { sumarDias(c, v, 1); }
void fMenosdias(sqlite3_context* c, int, sqlite3_value** v) { sumarDias(c, v, -1); }

void fDias(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime a, b;
  if (hayNulo(n, v) || !fecha(c, v[0], a) || !fecha(c, v[1], b)) return;
  sqlite3_result_double(c, static_cast<double>(b.secsTo(a)) / 86400);
}

void fDateadd(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime f;
  if (hayNulo(n, v) || !fecha(c, v[2], f)) return;
  const double cuanto = numeroDe(v[1]);
  if (std::fabs(cuanto) > 4e9) return darError(c, QStringLiteral("La fecha queda fuera de rango."));
  const auto k = static_cast<qint64>(std::trunc(cuanto));
  const Parte parte = parteDe(textoDe(v[0]));
  if (std::abs(k) > 100000 && parte < Parte::Dia) return darError(c, QStringLiteral("La fecha queda fuera de rango."));
  switch (parte) {
    case Parte::Anio: f = f.addYears(static_cast<int>(k)); break;
    case Parte::Trimestre: f = f.addMonths(static_cast<int>(3 * k)); break;
    case Parte::Mes: f = f.addMonths(static_cast<int>(k)); break;
    case Parte::Semana: f = f.addDays(7 * k); break;
    case Parte::Dia:
    case Parte::DiaDelAnio:
    case Parte::DiaSemana: f = f.addDays(k); break;
    case Parte::Hora: f = f.addSecs(3600 * k); break;
    case Parte::Minuto: f = f.addSecs(60 * k); break;
    case Parte::Segundo: f = f.addSecs(k); break;
    case Parte::Milesima: f = f.addMSecs(k); break;
    case Parte::Nada: return darError(c, QStringLiteral("'%1' no es parte de una fecha.").arg(textoDe(v[0])));
  }
  if (f.date().year() < 1 || f.date().year() > 9999)
    return darError(c, QStringLiteral("La fecha queda fuera de rango."));
  darFecha(c, f);
}

// The first day of the week that Jet may be told, 1 for Sunday.
int primerDia(int n, sqlite3_value** v, int cual) {
  return n > cual ? std::clamp(sqlite3_value_int(v[cual]), 1, 7) : 1;
}

// Counts the borders passed, as both dialects do: from 31/12 to 1/1 is one year.
void fDatediff(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime a, b;
  if (hayNulo(n, v) || !fecha(c, v[1], a) || !fecha(c, v[2], b)) return;
  const qint64 anios = b.date().year() - a.date().year();
  const qint64 meses = anios * 12 + b.date().month() - a.date().month();
  const qint64 dias = a.date().daysTo(b.date());
  const auto tramo = [&](qint64 segundos) {
    const auto borde = [&](const QDateTime& f) {
      return (f.date().toJulianDay() * 86400 + f.time().msecsSinceStartOfDay() / 1000) / segundos;
    };
    return borde(b) - borde(a);
  };
  qint64 r = 0;
  switch (parteDe(textoDe(v[0]))) {
    case Parte::Anio: r = anios; break;
    case Parte::Trimestre: r = anios * 4 + (b.date().month() - 1) / 3 - (a.date().month() - 1) / 3; break;
    case Parte::Mes: r = meses; break;
    case Parte::DiaSemana: r = entornoDe(c).dialecto == Dialecto::Jet ? dias / 7 : dias; break;
    case Parte::Semana: {
      const int corrido = 2 - primerDia(n, v, 3);
      r = (b.date().toJulianDay() + corrido) / 7 - (a.date().toJulianDay() + corrido) / 7;
      break;
    }
    case Parte::Dia:
    case Parte::DiaDelAnio: r = dias; break;
    case Parte::Hora: r = tramo(3600); break;
    case Parte::Minuto: r = tramo(60); break;
    case Parte::Segundo: r = tramo(1); break;
    case Parte::Milesima: r = tramo(1) * 1000; break;
    case Parte::Nada: return darError(c, QStringLiteral("'%1' no es parte de una fecha.").arg(textoDe(v[0])));
  }
  sqlite3_result_int64(c, r);
}

// From `primero` on, the days of a week that begins on Sunday with 1.
int desdePrimero(const QDate& d, int primero) { return (d.dayOfWeek() + 8 - primero) % 7; }

std::optional<int> valorDeParte(const QDateTime& f, Parte parte, int primero) {
  const QDate d = f.date();
  switch (parte) {
    case Parte::Anio: return d.year();
    case Parte::Trimestre: return (d.month() + 2) / 3;
    case Parte::Mes: return d.month();
    case Parte::Dia: return d.day();
    case Parte::DiaDelAnio: return d.dayOfYear();
    case Parte::DiaSemana: return desdePrimero(d, primero) + 1;
    case Parte::Semana: return (d.dayOfYear() - 1 + desdePrimero(QDate(d.year(), 1, 1), primero)) / 7 + 1;
    case Parte::Hora: return f.time().hour();
    case Parte::Minuto: return f.time().minute();
    case Parte::Segundo: return f.time().second();
    case Parte::Milesima: return 0;
    case Parte::Nada: break;
  }
  return {};
}

void darParte(sqlite3_context* c, Parte parte, sqlite3_value* v, int primero = 1) {
  QDateTime f;
  if (sqlite3_value_type(v) == SQLITE_NULL || !fecha(c, v, f)) return;
  if (const auto valor = valorDeParte(f, parte, primero)) return sqlite3_result_int(c, *valor);
  darError(c, QStringLiteral("No es parte de una fecha."));
}

template <Parte parte>
void fParte(sqlite3_context* c, int, sqlite3_value** v) {
  darParte(c, parte, v[0]);
}

// WEEKDAY(date [, first day of the week]), 1 for Sunday unless told.
void fWeekday(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darParte(c, Parte::DiaSemana, v[0], primerDia(n, v, 1));
}

void fDatepart(sqlite3_context* c, int n, sqlite3_value** v) {
  if (!hayNulo(n, v)) darParte(c, parteDe(textoDe(v[0])), v[1], primerDia(n, v, 2));
}

// DATENAME: months and days by their names, in the servers' language.
void fDatename(sqlite3_context* c, int n, sqlite3_value** v) {
  QDateTime f;
  if (hayNulo(n, v) || !fecha(c, v[1], f)) return;
  const Parte parte = parteDe(textoDe(v[0]));
  if (parte == Parte::Mes) return darTexto(c, QLocale::c().monthName(f.date().month()));
  if (parte == Parte::DiaSemana) return darTexto(c, QLocale::c().dayName(f.date().dayOfWeek()));
  darParte(c, parte, v[1]);
}

void fDateserial(sqlite3_context* c, int n, sqlite3_value** v) {
  if (hayNulo(n, v)) return;
  const int anio = sqlite3_value_int(v[0]), mes = sqlite3_value_int(v[1]), dia = sqlite3_value_int(v[2]);
  if (anio < 100 || anio > 9999 || std::abs(mes) > 10000 || std::abs(dia) > 100000) {
    return darError(c, QStringLiteral("La fecha queda fuera de rango."));
  }
  darFecha(c, QDateTime(QDate(anio, 1, 1).addMonths(mes - 1).addDays(dia - 1), QTime(0, 0)));
}

// clang-format off
const EntradaFuncion kFunciones[] = {
    {"tp_ahora", 0, fAhora},        {"tp_hoy", 0, fHoy},           {"tp_cdate", 1, fCdate},
    {"tp_datevalue", 1, fDatevalue}, {"tp_textofecha", 1, fTextofecha}, {"tp_afecha", -1, fAfecha},
    {"tp_convtexto", -1, fConvtexto}, {"tp_masdias", 2, fMasdias}, {"tp_menosdias", 2, fMenosdias},
    {"tp_dias", 2, fDias},          {"tp_dateadd", 3, fDateadd},   {"tp_datediff", -1, fDatediff},
    {"tp_datename", 2, fDatename},
    {"tp_datepart", -1, fDatepart},  {"tp_dateserial", 3, fDateserial},
    {"tp_year", 1, fParte<Parte::Anio>},   {"tp_month", 1, fParte<Parte::Mes>}, {"tp_day", 1, fParte<Parte::Dia>},
    {"tp_hour", 1, fParte<Parte::Hora>},   {"tp_minute", 1, fParte<Parte::Minuto>},
    {"tp_second", 1, fParte<Parte::Segundo>}, {"tp_weekday", -1, fWeekday},
    {"tp_hora", 0, fHora},          {"tp_timeserial", 3, fTimeserial}, {"tp_timevalue", 1, fTimevalue},
    {"tp_isdate", 1, fIsdate},
    {nullptr, 0, nullptr}};

// clang-format on

}  // namespace

std::optional<QDateTime> instanteDe(sqlite3_context* c, sqlite3_value* v) {
  const int tipo = sqlite3_value_type(v);
  if (tipo != SQLITE_INTEGER && tipo != SQLITE_FLOAT) return leerInstante(textoDe(v), entornoDe(c).dialecto);
  const QDateTime f = instanteDeNumero(sqlite3_value_double(v), entornoDe(c).dialecto);
  return f.isValid() ? std::optional(f) : std::nullopt;
}

std::optional<int> parteDeFecha(const QDateTime& f, const QString& nombre, int primero) {
  return valorDeParte(f, parteDe(nombre), std::clamp(primero, 1, 7));
}

const EntradaFuncion* funcionesDeFecha() { return kFunciones; }
