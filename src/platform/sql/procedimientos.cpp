#include "platform/sql/procedimientos.h"

#include "platform/sql/edicion.h"

namespace {

bool empiezaSentencia(const Token& t) {
  for (const QStringView palabra :
       {u"SELECT", u"INSERT",   u"UPDATE",    u"DELETE",  u"CREATE", u"ALTER",   u"DROP",     u"PRAGMA",  u"BEGIN",
        u"COMMIT", u"ROLLBACK", u"WITH",      u"REPLACE", u"VALUES", u"EXPLAIN", u"ANALYZE",  u"REINDEX", u"VACUUM",
        u"ATTACH", u"DETACH",   u"SAVEPOINT", u"RELEASE", u"END",    u"SHAPE",   u"TRUNCATE", u"SET"}) {
    if (t.es(palabra)) return true;
  }
  return false;
}

// One argument at `i`, moved behind it: a literal, a signed number, Null, a bare word (a text, as there).
bool argumento(const std::vector<Token>& t, size_t& i, QVariant& valor) {
  bool negativo = false;
  if (t[i].op(u"-") || t[i].op(u"+")) negativo = t[i++].op(u"-");
  const Token& k = t[i];
  if (k.tipo != TipoToken::Numero && (negativo || k.abierto)) return false;
  if (k.tipo == TipoToken::Numero) {
    valor = leerNumero(k.texto.toString());
    if (negativo) {
      valor = valor.typeId() == QMetaType::LongLong ? QVariant(-valor.toLongLong()) : QVariant(-valor.toDouble());
    }
  } else if (k.tipo == TipoToken::Texto) {
    valor = contenido(k);
  } else if (k.nombre()) {
    valor = k.es(u"NULL") || k.es(u"DEFAULT") ? QVariant() : QVariant(contenido(k));
  } else {
    return false;
  }
  ++i;
  return true;
}

}  // namespace

std::optional<Llamada> leerLlamada(const QString& sql) {
  const QStringView inicio = QStringView(sql).trimmed();
  for (const QStringView verbo : {u"SELECT ", u"INSERT ", u"UPDATE ", u"DELETE "}) {  // nearly all, told at a glance
    if (inicio.startsWith(verbo, Qt::CaseInsensitive)) return {};
  }
  const std::vector<Token> t = separar(sql, Dialecto::TSql);
  for (const Token& uno : t) {
    if (uno.abierto) return {};  // no statement at all
  }
  size_t i = 0;
  const bool conExec = t[0].es(u"EXEC") || t[0].es(u"EXECUTE");
  if (conExec) ++i;
  if (!t[i].nombre() || (!conExec && empiezaSentencia(t[i]))) return {};
  while (t[i + 1].op(u".")) {
    i += t[i + 2].op(u".") ? 3 : 2;
    if (!t[i].nombre()) return {};
  }
  Llamada ll;
  ll.nombre = contenido(t[i++]);
  while (t[i].op(u";") && t[i + 1].tipo == TipoToken::Fin) ++i;
  while (t[i].tipo != TipoToken::Fin) {
    if (t[i].nombre() && t[i].texto.startsWith(u'@') && t[i + 1].op(u"=")) i += 2;  // @name = value, in order
    QVariant valor;
    const bool leido = argumento(t, i, valor);
    if (leido) ll.argumentos << valor;
    while (t[i].op(u";") && t[i + 1].tipo == TipoToken::Fin) ++i;
    const bool sigue = t[i].op(u",") && t[i + 1].tipo != TipoToken::Fin;
    if (leido && (sigue || t[i].tipo == TipoToken::Fin)) {
      if (sigue) ++i;
      continue;
    }
    ll.error =
        ErrorBD{kErrorSentencia, 170, QStringLiteral("Línea 1: sintaxis incorrecta cerca de '%1'.").arg(t[i].texto)};
    return ll;
  }
  return ll;
}
