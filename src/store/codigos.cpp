#include "store/codigos.h"

#include <QStringList>

QString Codigo(TipoDocumento tipo) { return QString::number(static_cast<int>(tipo)).rightJustified(2, u'0'); }

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
