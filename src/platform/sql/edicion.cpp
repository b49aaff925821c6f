#include "platform/sql/edicion.h"

#include "platform/sql/instante.h"
#include "platform/text/fecha.h"

namespace {

ErrorBD noCoincide(const QString& texto, QStringView que) {
  return {kErrorSentencia, 0, QStringLiteral("No coinciden los tipos de datos: '%1' no es %2.").arg(texto, que)};
}

// The figures of `t` from `i` on, -1 where there are others.
int cifras(QStringView t, qsizetype i, int n) {
  int v = 0;
  for (qsizetype k = i; k < i + n; ++k) {
    if (t[k] < u'0' || t[k] > u'9') return -1;
    v = v * 10 + (t[k].unicode() - u'0');
  }
  return v;
}

// The forms that the program itself writes, day/month/year and year-month-day, a time of eight signs behind them or
// none, without the general reader's cost. Nothing for any other.
std::optional<QString> fechaLlana(const QString& t) {
  if (t.size() != 10 && t.size() != 19) return {};
  const bool anioPrimero = t[4] == u'-' && t[7] == u'-', diaPrimero = t[2] == u'/' && t[5] == u'/';
  if (!anioPrimero && !diaPrimero) return {};
  const int anio = cifras(t, anioPrimero ? 0 : 6, 4), mes = cifras(t, anioPrimero ? 5 : 3, 2);
  if (!QDate::isValid(anio, mes, cifras(t, anioPrimero ? 8 : 0, 2)) || anio < 1000) return {};
  if (t.size() == 19) {
    const bool hora = t[10] == u' ' && t[13] == u':' && t[16] == u':';
    if (!hora || !QTime::isValid(cifras(t, 11, 2), cifras(t, 14, 2), cifras(t, 17, 2))) return {};
    if (anioPrimero) return t;
  }
  QString iso = anioPrimero ? t : t.mid(6, 4) + u'-' + t.mid(3, 2) + u'-' + t.mid(0, 2);
  return iso + (t.size() == 19 ? t.mid(10) : QStringLiteral(" 00:00:00"));
}

// Both dialects read blank text beside a date or a number differently: the server takes it for its zero.
ValorLiteral fechaDe(const QString& texto, OrdenFecha orden, Dialecto dialecto) {
  if (orden == OrdenFecha::DiaMes) {
    if (auto llana = fechaLlana(texto)) return {*llana, {}};
  }
  // Between number signs the month comes first; a year in front or an impossible order overrides either.
  auto f = orden == OrdenFecha::MesDia ? LeerFecha(texto, orden) : std::nullopt;
  if (!f) f = leerInstante(texto, dialecto);
  if (f) return {FechaISO(*f), {}};
  if (dialecto == Dialecto::TSql && texto.trimmed().isEmpty()) return {QStringLiteral("1900-01-01 00:00:00"), {}};
  return {{}, noCoincide(texto, u"una fecha")};
}

// Whole numbers of few figures, which nearly all are, by themselves.
std::optional<qint64> cifrasSolas(QStringView t) {
  constexpr qsizetype kSeguras = 18;
  if (t.isEmpty() || t.size() > kSeguras) return {};
  qint64 n = 0;
  for (const QChar c : t) {
    if (c < u'0' || c > u'9') return {};
    n = n * 10 + (c.unicode() - u'0');
  }
  return n;
}

ValorLiteral numeroDe(const QString& texto, Dialecto dialecto) {
  const QVariant n = leerNumero(texto);
  if (n.isValid()) return {n, {}};
  if (dialecto == Dialecto::TSql && texto.trimmed().isEmpty()) return {qint64(0), {}};
  return {{}, noCoincide(texto, u"un número")};
}

}  // namespace

QVariant leerNumero(const QString& texto) {
  const QString t = texto.trimmed();
  bool bien = false;
  const qint64 entero = t.toLongLong(&bien);
  if (bien) return entero;
  for (const QChar c : t) {
    if (!(c.isDigit() || c == u'.' || c == u'-' || c == u'+' || c == u'e' || c == u'E')) return {};
  }
  const double real = t.toDouble(&bien);
  return bien ? QVariant(real) : QVariant();
}

ValorLiteral leerLiteral(const Token& token, Lectura lectura, Dialecto dialecto) {
  if (token.tipo == TipoToken::Fecha) return fechaDe(contenido(token), OrdenFecha::MesDia, dialecto);
  if (token.tipo == TipoToken::Numero) {
    if (const auto entero = cifrasSolas(token.texto)) return {*entero, {}};
    const QVariant n = leerNumero(token.texto.toString());
    return n.isValid() ? ValorLiteral{n, {}} : ValorLiteral{{}, noCoincide(token.texto.toString(), u"un número")};
  }
  QString texto = contenido(token);
  switch (lectura) {
    case Lectura::FechaDiaMes: return fechaDe(texto, OrdenFecha::DiaMes, dialecto);
    case Lectura::NumeroEstricto: return numeroDe(texto, dialecto);
    case Lectura::SinFinales:
      while (texto.endsWith(u' ')) texto.chop(1);
      break;
    case Lectura::TalCual: break;
  }
  return {texto, {}};
}

std::optional<ErrorBD> leerValor(QVariant& valor, Lectura lectura, Dialecto dialecto) {
  if (lectura == Lectura::TalCual || valor.isNull()) return {};
  QString texto = valor.toString();
  if (lectura == Lectura::SinFinales) {
    if (valor.typeId() != QMetaType::QString || !texto.endsWith(u' ')) return {};
    while (texto.endsWith(u' ')) texto.chop(1);
    valor = texto;
    return {};
  }
  const ValorLiteral leido =
      lectura == Lectura::FechaDiaMes ? fechaDe(texto, OrdenFecha::DiaMes, dialecto) : numeroDe(texto, dialecto);
  if (!leido.error) valor = leido.valor;
  return leido.error;
}

Edicion::Edicion(QStringView sql, Dialecto dialecto, const PalabrasMotor& palabras)
    : sql_(sql),
      dialecto_(dialecto),
      palabras_(palabras),
      tokens_(separar(sql, dialecto)),
      ediciones_(tokens_.size()),
      literalDe_(tokens_.size(), -1) {
  for (size_t i = 0; i < tokens_.size(); ++i) {
    incompleta_ = incompleta_ || tokens_[i].abierto;
    if (!tokens_[i].literal()) continue;
    literalDe_[i] = static_cast<int>(literales_.size());
    literales_.push_back({static_cast<int>(i), false, Lectura::TalCual});
  }
}

void Edicion::reemplazar(int token, const QString& texto) {
  ediciones_[token].nuevo = texto;
  ediciones_[token].cambiado = true;
}

Literal* Edicion::literal(int token) {
  const int n = literalDe_[token];
  return n < 0 ? nullptr : &literales_[n];
}

QString Edicion::deToken(int i, bool conLiterales, int& parametro) const {
  const Token& t = tokens_[i];
  if (ediciones_[i].cambiado) return ediciones_[i].nuevo;
  // Quotes of the dialect's own; a typed engine has but one kind, and folds no name in them.
  if (t.tipo == TipoToken::NombreCitado && palabras_.tipado) return palabras_.citado(contenido(t));
  if (!t.literal()) return t.texto.toString();
  const Literal& l = literales_[literalDe_[i]];
  if (l.ligado && !conLiterales) return palabras_.parametro.toString() + QString::number(++parametro);
  const bool comoEsta = l.lectura == Lectura::TalCual && t.tipo != TipoToken::Fecha && t.texto[0] != u'"' &&
                        t.texto[0] != u'N' && t.texto[0] != u'n';
  if (comoEsta) return t.texto.toString();
  const ValorLiteral v = leerLiteral(t, l.lectura, dialecto_);
  return v.error ? t.texto.toString() : palabras_.literal(v.valor);
}

QString Edicion::trozo(int ini, int fin) const {
  QString sale;
  int parametro = 0;
  for (int i = ini; i < fin; ++i) {
    if (i > ini) sale += u' ';
    sale += ediciones_[i].antes + deToken(i, true, parametro) + ediciones_[i].despues;
  }
  return sale;
}

QString Edicion::texto(bool conLiterales) const {
  if (incompleta_) return sql_.toString();
  QString sale;
  sale.reserve(sql_.size() + 64);
  qsizetype hasta = 0;
  int parametro = 0;
  QString apartado;
  const auto cambiar = [&](size_t i) {  // from the text to what is set aside, and back
    if (static_cast<int>(i) == movidos_.ini || static_cast<int>(i) == movidos_.fin) std::swap(sale, apartado);
  };
  for (size_t i = 0; i < tokens_.size(); ++i) {
    cambiar(i);
    const QStringView entre = sql_.mid(hasta, tokens_[i].ini - hasta);
    // Comments nest there.
    if (palabras_.tipado && (entre.contains(u"--") || entre.contains(u"/*"))) sale += u' ';
    else sale += entre;
    sale += ediciones_[i].antes;
    const QString nuevo = deToken(static_cast<int>(i), conLiterales, parametro);
    if (sale.endsWith(u'\'') && nuevo.startsWith(u'\'')) sale += u' ';  // two texts side by side would become one
    sale += nuevo;
    sale += ediciones_[i].despues;
    hasta = tokens_[i].ini + tokens_[i].largo;
    if (static_cast<int>(i) == movidos_.tras) sale += apartado + movidos_.cierra;
  }
  return sale;
}
