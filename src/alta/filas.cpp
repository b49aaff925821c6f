#include "alta/filas.h"

#include <QStringList>

#include "platform/text/fecha.h"
#include "platform/text/numero.h"

QString Literal(const QVariant& valor) {
  switch (valor.typeId()) {
    case QMetaType::UnknownType: return QStringLiteral("NULL");
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Bool: return QString::number(valor.toLongLong());
    case QMetaType::Double: return TextoDe(valor.toDouble());
    case QMetaType::QDate:
    case QMetaType::QDateTime: return u'\'' + FechaISO(valor.toDateTime()) + u'\'';
    default: return u'\'' + valor.toString().replace(u'\'', QStringLiteral("''")) + u'\'';
  }
}

QString Insercion(const QString& tabla, const QString& columnas, const QVariantList& valores) {
  QStringList literales;
  for (const QVariant& v : valores) literales << Literal(v);
  return QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (") + columnas + QStringLiteral(") VALUES (") +
         literales.join(QStringLiteral(", ")) + u')';
}
