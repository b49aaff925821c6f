#include "credit/clase_credito.h"

namespace {

constexpr struct {
  DocCredito doc;
  QStringView codigo, palabra;
} kClases[] = {{DocCredito::FADE, u"01", u"FADE"}, {DocCredito::BADE, u"02", u"BADE"}};

}  // namespace

QString Codigo(DocCredito doc) { return kClases[static_cast<size_t>(doc)].codigo.toString(); }

QString PalabraDe(DocCredito doc) { return kClases[static_cast<size_t>(doc)].palabra.toString(); }

std::optional<DocCredito> DocCreditoDe(int indice) {
  return indice == 0 || indice == 1 ? std::optional(static_cast<DocCredito>(indice)) : std::nullopt;
}

std::optional<DocCredito> DocCreditoDe(const QString& tipoDoc) {
  for (const auto& c : kClases) {
    if (tipoDoc == c.codigo) return c.doc;
  }
  return {};
}
