#include "store/codigos.h"

#include <QStringList>

QString Codigo(TipoDocumento tipo) { return QString::number(static_cast<int>(tipo)).rightJustified(2, u'0'); }

Sql CodigosSql(std::initializer_list<TipoOperacion> tipos) {
  std::vector<Sql> r;
  for (const TipoOperacion t : tipos) r.push_back(FormatearSQL(u"$"_sql, {Codigo(t)}));
  return UnirSql(r, u", "_sql);
}

Sql CodigosSql(std::initializer_list<TipoDocumento> tipos) {
  std::vector<Sql> r;
  for (const TipoDocumento t : tipos) r.push_back(FormatearSQL(u"$"_sql, {Texto(Codigo(t))}));
  return UnirSql(r, u", "_sql);
}

QString Codigos(std::initializer_list<TipoOperacion> tipos) {
  QStringList r;
  for (const TipoOperacion t : tipos) r << QString::number(Codigo(t));
  return r.join(QStringLiteral(", "));
}

QString Codigos(std::initializer_list<TipoDocumento> tipos) {
  QStringList r;
  for (const TipoDocumento t : tipos) r << u'\'' + Codigo(t) + u'\'';
  return r.join(QStringLiteral(", "));
}
