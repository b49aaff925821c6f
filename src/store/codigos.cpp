#include "store/codigos.h"

QString Codigo(TipoDocumento tipo) { return QString::number(static_cast<int>(tipo)).rightJustified(2, u'0'); }

namespace {

template <class Tipo, class ComoValor>
Sql enLista(std::initializer_list<Tipo> tipos, ComoValor comoValor) {
  std::vector<Sql> piezas;
  for (const Tipo t : tipos) piezas.push_back(FormatearSQL(u"$"_sql, {comoValor(t)}));
  return UnirSql(piezas, u", "_sql);
}

}  // namespace

Sql Codigos(std::initializer_list<TipoOperacion> tipos) {
  return enLista(tipos, [](TipoOperacion t) { return Valor(Codigo(t)); });
}

Sql Codigos(std::initializer_list<TipoDocumento> tipos) {
  return enLista(tipos, [](TipoDocumento t) { return Valor(Texto(Codigo(t))); });
}
