#include "platform/sql/palabras_motor.h"
#include "platform/text/numero.h"

namespace {

QString literal(const QVariant& valor) {
  if (valor.typeId() == QMetaType::LongLong) return QString::number(valor.toLongLong());
  if (valor.typeId() == QMetaType::Double) {
    const QString n = TextoDe(valor.toDouble());
    return n.contains(u'.') ? n : n + QStringLiteral(".0");
  }
  return u'\'' + valor.toString().replace(u'\'', QStringLiteral("''")) + u'\'';
}

QString citado(QString nombre) { return u'"' + nombre.replace(u'"', QStringLiteral("\"\"")) + u'"'; }

QStringView tipo(Tipo tipo) {
  switch (tipo) {
    case Tipo::Fecha: return u"DATETIME";
    case Tipo::Logico:
    case Tipo::Entero: return u"INTEGER";
    case Tipo::Texto: return u"TEXT COLLATE NOCASE";
    case Tipo::Real: return u"REAL";
    case Tipo::Numero: return u"NUMERIC";
    default: return {};
  }
}

}  // namespace

const PalabrasMotor kPalabrasSqlite = {
    .colacion = u" COLLATE TARVO",
    .suelta = u"+",
    .parametro = u"?",
    .fila = u"rowid",
    .nulosSube = {},
    .nulosBaja = {},
    .sinNombre = {},
    .asEnCambios = true,
    .dividir = u"*1.0/",
    .parece = u"tp_like(",
    .noParece = u"(0 = tp_like(",
    .nada = u"PRAGMA tp_nada",
    .tope = u" LIMIT ",
    .literal = literal,
    .citado = citado,
    .tipo = tipo,
    .divisor = u"tp_divisor(",
};
