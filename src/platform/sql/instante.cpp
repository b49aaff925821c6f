#include "platform/sql/instante.h"

#include <array>
#include <cmath>

#include "platform/text/fecha.h"

namespace {

// "24 Nov 2026", "24-nov-26" and "Nov 24 2026" as day/month/year; another text as it is.
QString conMesEnCifras(const QString& t) {
  static const QString kMeses = QStringLiteral("ene jan feb mar abr apr may jun jul ago aug set sep oct nov dic dec ");
  static const int kCual[] = {1, 1, 2, 3, 4, 4, 5, 6, 7, 8, 8, 9, 9, 10, 11, 12, 12};
  QString limpio = t.simplified();
  limpio.replace(u'-', u' ').replace(u'/', u' ').remove(u',');
  QStringList partes = limpio.split(u' ');
  if (partes.size() < 3) return t;
  for (int i = 0; i < 2; ++i) {
    const qsizetype mes = partes[i].size() < 3 ? -1 : kMeses.indexOf(partes[i].left(3).toLower() + u' ');
    if (mes < 0 || !partes[i][2].isLetter()) continue;
    const QString fecha = partes[1 - i] + u'/' + QString::number(kCual[mes / 4]) + u'/' + partes[2];
    return (fecha + u' ' + partes.mid(3).join(u' ')).trimmed();
  }
  return t;
}

// Year, month, day, hour, minute and second; false for another text.
bool cifrasGuardadas(const char* t, int largo, std::array<int, 6>& v) {
  static const char kForma[] = "dddd-dd-dd dd:dd:dd";
  if (largo != sizeof kForma - 1) return false;
  v = {};
  size_t campo = 0;
  for (int i = 0; i < largo; ++i) {
    if (kForma[i] != 'd') {
      if (t[i] != kForma[i]) return false;
      ++campo;
    } else if (t[i] < '0' || t[i] > '9') {
      return false;
    } else {
      v[campo] = v[campo] * 10 + (t[i] - '0');
    }
  }
  return QDate::isValid(v[0], v[1], v[2]) && QTime::isValid(v[3], v[4], v[5]);
}

}  // namespace

bool esInstanteGuardado(const char* texto, int largo) {
  std::array<int, 6> v;
  return cifrasGuardadas(texto, largo, v);
}

std::optional<std::pair<QDate, QTime>> instanteGuardado(const char* texto, int largo) {
  std::array<int, 6> v;
  if (!cifrasGuardadas(texto, largo, v)) return {};
  return std::pair(QDate(v[0], v[1], v[2]), QTime(v[3], v[4], v[5]));
}

std::optional<QDateTime> leerInstante(const QString& texto, Dialecto dialecto) {
  const QString t = texto.trimmed();
  if (t.size() == 8 || (t.size() > 9 && t[8] == u' ')) {  // yyyymmdd, with a time or without
    const QDate d = QDate::fromString(t.left(8), QStringLiteral("yyyyMMdd"));
    const QString separada = t.left(4) + u'/' + t.mid(4, 2) + u'/' + t.mid(6);
    if (d.isValid()) {
      if (const auto f = LeerFecha(separada)) return f;
    }
  }
  if (t.size() > 2 && t.indexOf(u':') > 0 && t.indexOf(u':') < 3) {  // a time alone is on day 0
    return LeerFecha((dialecto == Dialecto::Jet ? QStringLiteral("30/12/1899 ") : QStringLiteral("1/1/1900 ")) + t);
  }
  QString conBlanco = t;
  if (conBlanco.size() > 10 && conBlanco[10] == u'T') conBlanco[10] = u' ';
  if (const auto f = LeerFecha(conBlanco)) return f;
  return LeerFecha(conMesEnCifras(conBlanco));
}

// Day 0 of numbers that stand for dates.
QDateTime instanteDeNumero(double dias, Dialecto dialecto) {
  const QDate cero = dialecto == Dialecto::Jet ? QDate(1899, 12, 30) : QDate(1900, 1, 1);
  const double entero = std::floor(dias);
  if (std::fabs(entero) > 3000000) return {};
  return QDateTime(cero.addDays(static_cast<qint64>(entero)), QTime(0, 0))
      .addSecs(static_cast<qint64>(std::llround((dias - entero) * 86400)));
}
