#include "platform/sql/recordset.h"

#include <QDateTime>

namespace {

constexpr qint64 kMsPorDia = 86'400'000;

// Columns of a table begin alike: most names of one length are told apart by their last sign.
bool otroFinal(QStringView a, QStringView b) {
  if (a.isEmpty()) return false;
  const char16_t x = a.back().unicode(), y = b.back().unicode();
  return x < 0x80 && y < 0x80 && (x | 0x20) != (y | 0x20);
}

}  // namespace

CeldaBD CeldaBD::fecha(QDate d, QTime h) {
  CeldaBD c(d.toJulianDay() * kMsPorDia + h.msecsSinceStartOfDay());
  c.tipo = Tipo::Fecha;
  return c;
}

QVariant CeldaBD::valor() const {
  switch (tipo) {
    case Tipo::Nula: break;
    case Tipo::Entera: return entera;
    case Tipo::Real: return real;
    case Tipo::Texto: return texto.isEmpty() ? QStringLiteral("") : QString::fromUtf8(texto);
    case Tipo::Fecha:
      return QDateTime(QDate::fromJulianDay(entera / kMsPorDia),
                       QTime::fromMSecsSinceStartOfDay(static_cast<int>(entera % kMsPorDia)));
  }
  return {};
}

int Recordset::columna(QStringView nombre) const {
  for (int i = 0; i < campos_.size(); ++i) {
    const QString& campo = campos_[i];
    if (nombre.size() != campo.size() || otroFinal(nombre, campo)) continue;
    if (nombre == campo || nombre.compare(campo, Qt::CaseInsensitive) == 0) return i;
  }
  return -1;
}

void Recordset::nuevo(const QStringList& campos) {
  campos_ = campos;
  celdas_.clear();
  textos_.clear();
  actual_ = 0;
}

void Recordset::llenar(const QStringList& campos, const std::vector<std::vector<QVariant>>& filas) {
  nuevo(campos);
  for (const auto& fila : filas) {
    for (const QVariant& v : fila) {
      switch (v.typeId()) {
        case QMetaType::UnknownType: poner({}); break;
        case QMetaType::Int:
        case QMetaType::Bool:
        case QMetaType::LongLong: poner(CeldaBD(v.toLongLong())); break;
        case QMetaType::Double: poner(CeldaBD(v.toDouble())); break;
        case QMetaType::QDateTime: poner(CeldaBD::fecha(v.toDateTime().date(), v.toDateTime().time())); break;
        default: poner(CeldaBD(QByteArrayView(v.toString().toUtf8())));
      }
    }
  }
}

void Recordset::recortar(qsizetype filas, int columnas) {
  const Recordset todo = std::exchange(*this, {});
  nuevo(todo.campos_.mid(0, columnas));
  for (qsizetype f = 0; f < qMin(filas, todo.RecordCount()); ++f) {
    for (int i = 0; i < columnas; ++i) poner(todo.celda(f, i));
  }
}
