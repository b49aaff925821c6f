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

// Names don't tell case apart in the dialect; the engine folds those that stand bare.
QString citado(QString nombre) { return u'"' + nombre.toLower().replace(u'"', QStringLiteral("\"\"")) + u'"'; }

QStringView tipo(Tipo tipo) {
  switch (tipo) {
    case Tipo::Fecha: return u"timestamp(0)";
    case Tipo::Logico:
    case Tipo::Entero: return u"bigint";
    case Tipo::Real: return u"double precision";
    case Tipo::Numero: return u"numeric";
    default: return u"text";
  }
}

// Without the length, which the embedded engine doesn't hold either.
QString declarado(const QString& tipo) {
  // clang-format off
  static const struct { QStringView del, propio; } kTipos[] = {
      {u"CHAR", u"text COLLATE dbo.espaniol"},     {u"VARCHAR", u"text COLLATE dbo.espaniol"},
      {u"NCHAR", u"text COLLATE dbo.espaniol"},    {u"NVARCHAR", u"text COLLATE dbo.espaniol"},
      {u"TEXT", u"text COLLATE dbo.espaniol"},     {u"NTEXT", u"text COLLATE dbo.espaniol"},
      {u"DATETIME", u"timestamp(0)"},              {u"SMALLDATETIME", u"timestamp(0)"},
      {u"BIT", u"smallint"},                       {u"TINYINT", u"smallint"},
      {u"FLOAT", u"double precision"},             {u"REAL", u"double precision"},
      {u"MONEY", u"numeric(19,4)"},                {u"SMALLMONEY", u"numeric(10,4)"}};
  // clang-format on
  for (const auto& t : kTipos) {
    if (tipo == t.del) return t.propio.toString();
  }
  return {};
}

}  // namespace

const PalabrasMotor kPalabrasPostgres = {
    .colacion = u" COLLATE dbo.espaniol",
    .suelta = {},
    .parametro = u"$",
    .fila = u"ctid",
    .nulosSube = u" NULLS FIRST",
    .nulosBaja = u" NULLS LAST",
    .sinNombre = u" AS tp_consulta",
    .asEnCambios = true,
    .dividir = u"*1.0/",
    .parece = u"dbo.tp_like(",
    .noParece = u"(NOT dbo.tp_like(",
    .nada = u"SELECT WHERE false",
    .tope = u" LIMIT ",
    .literal = literal,
    .citado = citado,
    .tipo = tipo,
    .tipado = true,
    .parte = u"tableoid",
    .funciones = u"dbo.",
    .divisor = {},
    .recursiva = u" RECURSIVE",
    .empieza = u"dbo.tp_empieza(",
    .sumaEntera = u"::bigint",
    .declarado = declarado,
};
