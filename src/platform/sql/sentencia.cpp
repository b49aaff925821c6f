#include "platform/sql/sentencia.h"

#include <algorithm>

#include "platform/sql/va_entera.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// In a value these characters are held by others that no text has, so that a quote waits for its dialect, and a "$" or
// "{" is not taken for a place or a mark.
constexpr struct {
  char16_t signo, guardado;
} kGuardados[] = {{u'\'', u'\uFDD0'}, {u'$', u'\uFDD1'}, {u'{', u'\uFDD2'}};
constexpr char16_t kComilla = kGuardados[0].guardado;

constexpr QStringView kConvert = u"CONVERT(DATETIME,'";

bool guardar(QString& texto) {
  bool alguno = false;
  for (QChar& c : texto) {
    for (const auto& [signo, guardado] : kGuardados) {
      if (c == guardado) c = QChar::ReplacementCharacter;
      if (c != signo) continue;
      c = guardado;
      alguno = true;
    }
  }
  return alguno;
}

bool sonCifras(QStringView t) {
  qsizetype digitos = 0, puntos = 0;
  for (qsizetype i = 0; i < t.size(); ++i) {
    if (t[i] >= u'0' && t[i] <= u'9') ++digitos;
    else if (t[i] == u'.') ++puntos;
    else if (i > 0 || (t[i] != u'-' && t[i] != u'+')) return false;
  }
  return digitos > 0 && puntos <= 1;
}

bool esNombre(QStringView t) {
  for (const QChar c : t) {
    if (c != u'_' && !(c >= u'0' && c <= u'9') && !(c >= u'a' && c <= u'z') && !(c >= u'A' && c <= u'Z')) return false;
  }
  return !t.isEmpty() && !t[0].isDigit();
}

}  // namespace

bool VaEntera(QStringView texto) {
  return std::none_of(texto.begin(), texto.end(), [](QChar c) {
    return c.isNull() ||
           std::any_of(std::begin(kGuardados), std::end(kGuardados), [c](const auto& g) { return c == g.guardado; });
  });
}

Sql Sql::crudo(const QString& sql) {
  Sql s;
  s.texto_ = sql;
  return s;
}

QString Sql::texto(Dialecto dialecto) const {
  QString sale = texto_;
  if (!marcado_) return sale;
  for (const auto& [signo, guardado] : kGuardados) {
    if (guardado != kComilla) sale.replace(guardado, signo);
  }
  return sale.replace(kComilla, dialecto == Dialecto::Jet ? QStringLiteral("' + Chr(39) + '") : QStringLiteral("''"));
}

Sql Sql::con(LiteralSql marca, const Sql& pieza) const {
  Sql s = *this;
  s.texto_.replace(marca.texto().toString(), pieza.texto_);
  s.marcado_ |= pieza.marcado_;
  return s;
}

Sql& Sql::operator+=(const Sql& otra) {
  texto_ += otra.texto_;
  marcado_ |= otra.marcado_;
  return *this;
}

Sql operator+(Sql a, const Sql& b) { return a += b; }

Sql UnirSql(const std::vector<Sql>& piezas, const Sql& entre) {
  Sql s;
  for (size_t i = 0; i < piezas.size(); ++i) {
    if (i > 0) s += entre;
    s += piezas[i];
  }
  return s;
}

Valor::Valor(const Texto& texto) : clase_(Clase::Texto) {
  pieza_.texto_ = Recortar(texto.texto);
  pieza_.marcado_ = guardar(pieza_.texto_);
}

// No table has a column of such a name.
Valor Valor::desconocido(const QString& texto) {
  Valor v = suelto(QStringLiteral("[?%1]").arg(QString(texto).remove(u']')));
  v.pieza_.marcado_ = guardar(v.pieza_.texto_);
  return v;
}

Valor::Valor(const Cifras& cifras) {
  const QString t = Recortar(cifras.texto);
  *this = sonCifras(t) ? suelto(t) : desconocido(t);
}

Valor::Valor(const NombreSql& nombre) {
  const QString t = Recortar(nombre.texto);
  *this = esNombre(t) ? suelto(t) : desconocido(t);
}

Valor::Valor(double numero) : Valor(suelto(TextoDe(numero))) {}

Valor::Valor(const QDateTime& momento)
    : Valor(momento.isValid() ? Valor(Texto(FormatearFecha(momento, u"dd/mm/yyyy hh:nn:ss"))) : Valor()) {}

Valor::Valor(QDate dia) : Valor(suelto(FormatearFecha(dia.startOfDay(), u"#mm/dd/yyyy#"))) {}

Valor::Valor(const Sql& pieza) : clase_(Clase::Suelto), pieza_(pieza) { pieza_.texto_ = Recortar(pieza_.texto_); }

Valor Valor::suelto(const QString& texto) {
  Valor v;
  v.clase_ = Clase::Suelto;
  v.pieza_.texto_ = texto;
  return v;
}

void Valor::poner(Sql& sale, bool entreComillas) const {
  if (entreComillas && pieza_.texto_.contains(u'\'')) {
    QString texto = pieza_.texto_;
    guardar(texto);
    sale.texto_ += texto;
    sale.marcado_ = true;
    return;
  }
  const bool comillas = !entreComillas && clase_ == Clase::Texto;
  if (comillas) sale.texto_ += u'\'';
  sale += pieza_;
  if (comillas) sale.texto_ += u'\'';
}

Sql FormatearSQL(const Sql& plantilla, const std::vector<Valor>& valores) {
  const QStringView p = plantilla.texto_;
  Sql sale;
  sale.marcado_ = plantilla.marcado_;
  sale.texto_.reserve(p.size() + 16 * static_cast<qsizetype>(valores.size()));
  bool dentro = false;
  size_t n = 0;
  qsizetype desde = 0;
  for (qsizetype i = 0; i < p.size(); ++i) {
    if (p[i] == u'\'') dentro = !dentro;
    if (p[i] != u'$') continue;
    // A value that is missing would change the statement's meaning: no database takes what stands for it.
    static const Valor falta{Cifras(QStringLiteral("falta un valor"))};
    const Valor& valor = n < valores.size() ? valores[n++] : falta;
    sale.texto_ += p.mid(desde, i - desde);
    desde = i + 1;
    if (valor.clase_ != Valor::Clase::Nulo) {
      valor.poner(sale, dentro);
      continue;
    }
    const QStringView antes = p.left(i), despues = p.mid(desde);
    if (antes.endsWith(kConvert) && despues.startsWith(u"')")) {
      sale.texto_.chop(kConvert.size());
      desde += 2;
      dentro = false;
    } else if (antes.endsWith(u'\'') && despues.startsWith(u'\'')) {
      sale.texto_.chop(1);
      desde += 1;
      dentro = false;
    }
    i = desde - 1;
    sale.texto_ += QStringLiteral("Null");
  }
  sale.texto_ += p.mid(desde);
  return sale;
}
