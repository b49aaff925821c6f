// The values of a prepared statement, and a statement for many rows.
#include "platform/sql/motor_postgres.h"
#include "platform/sql/preparada_postgres.h"

namespace {

constexpr unsigned kInt8 = 20, kTexto = 25, kFecha = 1114, kNumeric = 1700;

}  // namespace

// The types under which the values go.
std::optional<ErrorBD> MotorPostgres::tiposDe(const PreparadaPostgres& p, const std::vector<QVariant>& valores,
                                              std::vector<unsigned>& tipos) {
  tipos.reserve(valores.size());
  for (const Literal& l : p.forma->literales) {
    if (!l.ligado) continue;
    const QVariant& v = valores[tipos.size()];
    const int clase = v.typeId();
    const bool numero = clase == QMetaType::LongLong || clase == QMetaType::Double;
    unsigned tipo = clase == QMetaType::LongLong ? kInt8 : numero ? kNumeric : kTexto;
    if (l.lectura == Lectura::FechaDiaMes) tipo = kFecha;
    const unsigned antes = tipos.size() < p.tipos.size() ? p.tipos[tipos.size()] : tipo;
    // A text beside a number was whole before, or is now; a Null has no type of its own.
    if ((p.hecha && tipo == kInt8 && antes == kNumeric) || v.isNull()) tipo = antes;
    if (!numero && v.toString().contains(QChar(0))) {
      return ErrorBD{kErrorSentencia, 1, QStringLiteral("La sentencia contiene un carácter nulo.")};
    }
    tipos.push_back(tipo);
  }
  return {};
}

class RepetidaPostgres final : public Repetida {
 public:
  RepetidaPostgres(MotorPostgres& motor, std::shared_ptr<PreparadaPostgres> p)
      : motor_(motor), p_(std::move(p)), aperturas_(motor.aperturas_) {
    for (const Literal& l : p_->forma->literales) {
      if (l.ligado) lecturas_.push_back(l.lectura);
    }
  }

  std::optional<ErrorBD> correr(const std::vector<CeldaBD>& valores) override {
    if (valores.size() != lecturas_.size()) {
      return ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia tiene otro número de valores.")};
    }
    if (auto e = motor_.listo()) return e;
    if (std::exchange(aperturas_, motor_.aperturas_) != motor_.aperturas_) p_->hecha = false;
    leidos_.resize(valores.size());
    for (size_t i = 0; i < leidos_.size(); ++i) {
      leidos_[i] = valores[i].valor();
      if (auto e = leerValor(leidos_[i], lecturas_[i], Dialecto::TSql)) return e;
    }
    return motor_.correrPreparada(*p_, leidos_, nullptr, nullptr);
  }

 private:
  MotorPostgres& motor_;
  std::shared_ptr<PreparadaPostgres> p_;
  int aperturas_;
  std::vector<Lectura> lecturas_;
  std::vector<QVariant> leidos_;
};

std::unique_ptr<Repetida> MotorPostgres::repetir(const QString& sql) {
  SentenciaLeida s(sql, Dialecto::TSql);
  if (listo() || leerLlamada(sql) || camino_.reconocer(s)) return {};
  std::optional<ErrorBD> error;
  bool vieja = false;
  auto p = preparada(s, vieja, error);
  if (!p || !s.tokens[0].es(u"INSERT") || p->forma->conPatron) return {};
  std::vector<QVariant> muestra;
  if (camino_.valores(*p->forma, s, muestra) || tiposDe(*p, muestra, p->tipos)) return {};
  return std::make_unique<RepetidaPostgres>(*this, std::move(p));
}
