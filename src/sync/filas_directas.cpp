// Rows of the centre that go into the store many at a time, their values bound to one statement.
#include <cmath>

#include "platform/sql/va_entera.h"
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

// In one byte each, without a null.
bool esLlano(QByteArrayView t) {
  return std::all_of(t.cbegin(), t.cend(), [](char c) { return static_cast<signed char>(c) > 0; });
}

Valor muestraDe(const CampoDirecto& c) {
  if (c.lee == Lee::Texto || c.fijo.typeId() == QMetaType::QString) return Texto(QStringLiteral("a"));
  if (c.lee == Lee::Dia) return Texto(QStringLiteral("02/01/2026"));
  return c.lee == Lee::Precio ? Valor(1.5) : Valor(1);
}

}  // namespace

FilasDirectas::FilasDirectas(Conexion& cnn, LiteralSql plantilla, const std::vector<CampoDirecto>& campos)
    : campos_(campos) {
  std::vector<Valor> muestra;
  muestra.reserve(campos.size());
  for (const CampoDirecto& c : campos) muestra.push_back(muestraDe(c));
  sentencia_ = cnn.repetir(FormatearSQL(plantilla, muestra));
  valores_.resize(campos.size());
  textos_.resize(campos.size());
  for (size_t i = 0; i < campos.size(); ++i) {
    if (campos[i].fijo.typeId() == QMetaType::QString) guardar(campos[i].fijo.toString(), i);
    else if (campos[i].lee == Lee::Fijo) valores_[i] = CeldaBD(campos[i].fijo.toLongLong());
  }
}

bool FilasDirectas::tomar(const Recordset::Fila& f) {
  if (!sentencia_) return false;
  if (columnas_.empty()) {
    for (const CampoDirecto& c : campos_) columnas_.push_back(c.lee == Lee::Fijo ? -1 : f.columna(c.nombre));
  }
  for (size_t i = 0; i < campos_.size(); ++i) {
    if (campos_[i].lee != Lee::Fijo && !leer(f.celda(columnas_[i]), i)) return false;
  }
  return !sentencia_->correr(valores_);
}

void FilasDirectas::guardar(const QString& texto, size_t i) {
  textos_[i] = texto.toUtf8();
  valores_[i] = CeldaBD(QByteArrayView(textos_[i]));
}

// Without the blanks round it. What is plain goes on as it lies there.
bool FilasDirectas::texto(const CeldaBD& de, size_t i) {
  if (de.nula() || (de.tipo == CeldaBD::Tipo::Texto && esLlano(de.texto))) {
    QByteArrayView t = de.texto;
    while (t.startsWith(' ')) t = t.sliced(1);
    while (t.endsWith(' ')) t.chop(1);
    valores_[i] = CeldaBD(t);
    return true;
  }
  const QString t = LimpiarNulo(de);
  guardar(t, i);
  return VaEntera(t);
}

bool FilasDirectas::leer(const CeldaBD& de, size_t i) {
  CeldaBD& sale = valores_[i];
  switch (campos_[i].lee) {
    case Lee::Texto: return texto(de, i);
    case Lee::Numero: {
      const double n = Numero(de);
      sale = CeldaBD(static_cast<qint64>(esEntera(n) ? n : 0));
      return esEntera(n);
    }
    case Lee::Precio: {
      const double n = Numero(de);
      sale = CeldaBD(esEntera(n) ? n : TextoDe(n).toDouble());
      return true;
    }
    case Lee::Entero: sale = CeldaBD(AEntero(Numero(de))); return true;
    case Lee::Dia:
      if (de.nula()) sale = {};
      else guardar(FormatearFecha(de.valor().toDateTime(), u"DD/MM/YYYY"), i);
      return true;
    case Lee::Codigo: {
      const qint64 n = NumeroDeArticulo(de);
      sale = CeldaBD(n);
      return n >= 0;
    }
    case Lee::Bit: sale = CeldaBD(qint64{Numero(de) != 0}); return true;
    case Lee::NoBit: sale = CeldaBD(qint64{Numero(de) == 0}); return true;
    case Lee::Fijo: return true;
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
