#include "store/codigos.h"

QString Codigo(TipoDocumento tipo) { return QString::number(static_cast<int>(tipo)).rightJustified(2, u'0'); }

Sql ConCodigos(const Sql& sql) {
  const auto fila = [](TipoOperacion t) { return Codigos({t}); };
  const auto documento = [](TipoDocumento t) { return Codigos({t}); };
  return sql.con(u"{OC}"_sql, fila(TipoOperacion::OC))
      .con(u"{NC}"_sql, fila(TipoOperacion::NC))
      .con(u"{PADE}"_sql, fila(TipoOperacion::PADE))
      .con(u"{PADV}"_sql, fila(TipoOperacion::PADV))
      .con(u"{LIQPAD}"_sql, fila(TipoOperacion::LIQPAD))
      .con(u"{dOC}"_sql, documento(TipoDocumento::OC))
      .con(u"{dNC}"_sql, documento(TipoDocumento::NC))
      .con(u"{dPADE}"_sql, documento(TipoDocumento::PADE))
      .con(u"{dPADV}"_sql, documento(TipoDocumento::PADV))
      .con(u"{dLIQPAD}"_sql, documento(TipoDocumento::LIQPAD));
}

Sql SinVentaFutura() {
  return FormatearSQL(u" AND (sGlosa IS NULL OR sGlosa NOT IN ('$', '$'))"_sql,
                      {Texto(kGlosaConsumo), Texto(kGlosaPago)});
}

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
