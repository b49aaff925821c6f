#include "platform/text/numero.h"

#include <cmath>
#include <limits>

namespace {

constexpr int kDigitos = 15;
constexpr double kEnteroExacto = 1e15;  // below it a whole double has 15 digits at most
constexpr double kDiezmil = 1e4;

// A double as a decimal of 15 significant digits: 0.d1d2d3... x 10^exponente.
struct Decimal {
  bool negativo = false;
  QByteArray digitos;  // no leading zeros; empty for 0
  int exponente = 0;
};

// The ten-thousandths of a positive value whose decimal text ends there or earlier, as most figures do; 0 for others.
// The nearest double of a text of 15 digits or fewer has that very text.
qint64 diezmilesimas(double valor) {
  if (valor * kDiezmil >= kEnteroExacto) return 0;
  const qint64 n = std::llround(valor * kDiezmil);
  return static_cast<double>(n) / kDiezmil == valor ? n : 0;
}

Decimal descomponer(double valor) {
  Decimal d;
  if (valor == 0 || !std::isfinite(valor)) return d;
  d.negativo = valor < 0;
  if (qint64 n = diezmilesimas(std::fabs(valor)); n > 0) {
    while (n % 10 == 0) n /= 10, ++d.exponente;
    d.digitos = QByteArray::number(n);
    d.exponente += static_cast<int>(d.digitos.size()) - 4;
    return d;
  }
  const QByteArray e = QByteArray::number(std::fabs(valor), 'e', kDigitos - 1);
  const auto corte = e.indexOf('e');
  d.digitos = e.left(corte);
  d.digitos.remove(1, 1);
  d.exponente = e.mid(corte + 1).toInt() + 1;
  while (d.digitos.endsWith('0')) d.digitos.chop(1);
  return d;
}

// Keeps `decimales` places behind the point, half away from zero.
void redondear(Decimal& d, int decimales) {
  const int quedan = d.exponente + decimales;
  if (quedan >= d.digitos.size()) return;
  if (quedan < 0) {
    d.digitos.clear();
    return;
  }
  const bool sube = d.digitos.at(quedan) >= '5';
  d.digitos.truncate(quedan);
  if (sube) {
    int i = quedan - 1;
    while (i >= 0 && d.digitos.at(i) == '9') --i;
    if (i < 0) {
      d.digitos = "1";
      ++d.exponente;
    } else {
      d.digitos[i] = static_cast<char>(d.digitos.at(i) + 1);
      d.digitos.truncate(i + 1);
    }
  }
  while (d.digitos.endsWith('0')) d.digitos.chop(1);
}

QByteArray parteEntera(const Decimal& d) {
  if (d.digitos.isEmpty() || d.exponente <= 0) return {};
  return d.digitos.left(d.exponente).leftJustified(d.exponente, '0');
}

QByteArray parteDecimal(const Decimal& d) {
  if (d.digitos.isEmpty()) return {};
  if (d.exponente < 0) return QByteArray(-d.exponente, '0') + d.digitos;
  return d.digitos.mid(d.exponente);
}

double aDouble(const Decimal& d) {
  if (d.digitos.isEmpty()) return 0;
  const QByteArray t = "0." + d.digitos + 'e' + QByteArray::number(d.exponente);
  const double v = t.toDouble();
  return d.negativo ? -v : v;
}

bool esPlaza(QChar c) { return c == u'0' || c == u'#'; }

}  // namespace

double Val(QStringView texto) {
  qsizetype i = 0;
  while (i < texto.size() && texto[i].isSpace()) ++i;
  QByteArray n;
  if (i < texto.size() && (texto[i] == u'-' || texto[i] == u'+')) n += texto[i++].toLatin1();
  bool punto = false;
  bool cifra = false;
  for (; i < texto.size(); ++i) {
    const QChar c = texto[i];
    if (c >= u'0' && c <= u'9') {
      n += c.toLatin1();
      cifra = true;
    } else if (c == u'.' && !punto) {
      n += '.';
      punto = true;
    } else {
      break;
    }
  }
  return cifra ? n.toDouble() : 0;
}

double Int(double valor) { return std::floor(valor); }

double Redondear(double valor, int decimales) {
  Decimal d = descomponer(valor);
  redondear(d, decimales);
  return aDouble(d);
}

qint64 AEntero(double valor) {
  if (std::fabs(valor) < kEnteroExacto && valor == std::trunc(valor)) return static_cast<qint64>(valor);
  const double r = Redondear(valor, 0);
  constexpr double tope = 9.2e18;
  if (r >= tope) return std::numeric_limits<qint64>::max();
  if (r <= -tope) return std::numeric_limits<qint64>::min();
  return static_cast<qint64>(r);
}

QString Formatear(double valor, QStringView mascara) {
  // The places stand between the first and the last '0' or '#'; what stands outside them is literal.
  qsizetype desde = 0;
  while (desde < mascara.size() && !esPlaza(mascara[desde]) && mascara[desde] != u'.') ++desde;
  qsizetype hasta = mascara.size();
  while (hasta > desde && !esPlaza(mascara[hasta - 1]) && mascara[hasta - 1] != u'.') --hasta;
  if (desde == hasta) return mascara.toString();

  int minimoEntero = 0;
  int minimoDecimal = 0;
  int decimales = 0;
  bool miles = false;
  bool enDecimal = false;
  bool cero = false;
  for (QChar c : mascara.mid(desde, hasta - desde)) {
    if (c == u'.') {
      enDecimal = true;
    } else if (c == u',') {
      miles = miles || !enDecimal;
    } else if (esPlaza(c)) {
      if (enDecimal) {
        ++decimales;
        if (c == u'0') minimoDecimal = decimales;
      } else {
        cero = cero || c == u'0';
        if (cero) ++minimoEntero;
      }
    }
  }

  Decimal d = descomponer(valor);
  redondear(d, decimales);
  QByteArray entero = parteEntera(d).rightJustified(minimoEntero, '0');
  QByteArray decimal = parteDecimal(d).leftJustified(minimoDecimal, '0');
  if (miles) {
    for (qsizetype i = entero.size() - 3; i > 0; i -= 3) entero.insert(i, ',');
  }
  QString sale = mascara.left(desde).toString();
  if (d.negativo && !d.digitos.isEmpty()) sale += u'-';
  sale += QString::fromLatin1(entero);
  if (enDecimal) sale += u'.' + QString::fromLatin1(decimal);
  sale += mascara.mid(hasta);
  return sale;
}

QString TextoDe(double valor) {
  const Decimal d = descomponer(valor);
  if (d.digitos.isEmpty()) return QStringLiteral("0");
  QByteArray entero = parteEntera(d);
  const QByteArray decimal = parteDecimal(d);
  if (entero.isEmpty()) entero = "0";
  QByteArray sale = d.negativo ? "-" + entero : entero;
  if (!decimal.isEmpty()) sale += '.' + decimal;
  return QString::fromLatin1(sale);
}

bool EsNumerico(QStringView texto) {
  const QStringView t = texto.trimmed();
  qsizetype i = 0;
  if (i < t.size() && (t[i] == u'-' || t[i] == u'+')) ++i;
  bool cifra = false, punto = false, comas = false;
  int grupo = 0;  // digits behind the last comma
  for (; i < t.size(); ++i) {
    const QChar c = t[i];
    if (c >= u'0' && c <= u'9') {
      cifra = true;
      if (!punto) ++grupo;
    } else if (c == u'.' && !punto && (!comas || grupo == 3)) {
      punto = true;
    } else if (c == u',' && !punto && (comas ? grupo == 3 : grupo >= 1 && grupo <= 3)) {
      comas = true;
      grupo = 0;
    } else {
      return false;
    }
  }
  return cifra && (!comas || grupo == 3);
}

bool ConComaDecimal(QStringView texto) {
  return texto.contains(u',') && !EsNumerico(texto) && EsNumerico(texto.toString().remove(u','));
}

double LeerImporte(const QString& texto) {
  if (!texto.contains(u',')) return Val(texto);
  QString t = texto;
  return ConComaDecimal(texto) ? 0 : Val(t.remove(u','));
}
