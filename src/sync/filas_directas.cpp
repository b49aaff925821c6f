// Rows of the centre that go into the store many at a time, their values bound to one statement.
#include <cmath>

#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sync/pasadas_maestros.h"

namespace {

// Whole as a literal without a point is; the dialect rounds others on their way into a column of whole numbers.
bool esEntera(double n) {
  constexpr double kCifrasLlanas = 1e15;
  return qAbs(n) < kCifrasLlanas && n == std::trunc(n);
}

// What the statement's own text would not carry as it is.
bool esRara(QChar c) { return c.isNull() || (c.unicode() >= 0xFDD0 && c.unicode() <= 0xFDD2); }

Valor muestraDe(const CampoDirecto& c) {
  if (c.lee == Lee::Texto || c.fijo.typeId() == QMetaType::QString) return Texto(QStringLiteral("a"));
  if (c.lee == Lee::Dia) return Texto(QStringLiteral("02/01/2026"));
  return c.lee == Lee::Precio ? Valor(1.5) : Valor(1);
}

}  // namespace

FilasDirectas::FilasDirectas(Conexion& cnn, LiteralSql plantilla, const std::vector<CampoDirecto>& campos)
    : campos_(campos) {
  std::vector<Valor> muestra;
  for (const CampoDirecto& c : campos) muestra.push_back(muestraDe(c));
  sentencia_ = cnn.repetir(FormatearSQL(plantilla, muestra));
  valores_.resize(campos.size());
}

bool FilasDirectas::tomar(const Recordset::Fila& f) {
  if (!sentencia_) return false;
  if (columnas_.empty()) {
    for (const CampoDirecto& c : campos_) columnas_.push_back(c.lee == Lee::Fijo ? -1 : f.columna(c.nombre));
  }
  for (size_t i = 0; i < campos_.size(); ++i) {
    if (!leer(f, i)) return false;
  }
  return !sentencia_->correr(valores_);
}

bool FilasDirectas::leer(const Recordset::Fila& f, size_t i) {
  const CampoDirecto& c = campos_[i];
  QVariant& sale = valores_[i];
  const QVariant v = f[columnas_[i]];
  switch (c.lee) {
    case Lee::Texto: {
      const QString t = LimpiarNulo(v);
      sale = t;
      return std::none_of(t.cbegin(), t.cend(), esRara);
    }
    case Lee::Numero: {
      const double n = Numero(v);
      sale = static_cast<qint64>(esEntera(n) ? n : 0);
      return esEntera(n);
    }
    case Lee::Precio: {
      const double n = Numero(v);
      sale = esEntera(n) ? n : TextoDe(n).toDouble();
      return true;
    }
    case Lee::Entero: sale = AEntero(Numero(v)); return true;
    case Lee::Dia: sale = v.isNull() ? QVariant() : FormatearFecha(v.toDateTime(), u"DD/MM/YYYY"); return true;
    case Lee::Codigo: {
      const qint64 n = NumeroDeArticulo(v);
      sale = n;
      return n >= 0;
    }
    case Lee::Bit: sale = Numero(v) != 0 ? 1 : 0; return true;
    case Lee::NoBit: sale = Numero(v) != 0 ? 0 : 1; return true;
    case Lee::Fijo: sale = c.fijo; return true;
  }
  return false;
}

std::function<std::vector<FinFila>(const Filas&)> PasadasDeMaestros::loteDeNuevas(
    const Maestro& m, std::function<FinFila(const Recordset::Fila&)> fila) {
  return [this, &m, enLote = EnUnaTransaccion(p_.poCnnLocal, std::move(fila))](const Filas& filas) {
    if (!m.campos.empty()) directas_ = std::make_unique<FilasDirectas>(p_.poCnnLocal, m.plantilla, m.campos);
    auto fines = enLote(filas);
    directas_.reset();
    return fines;
  };
}
