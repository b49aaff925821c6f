#include "documento/frm_lineas.h"

#include "foundation/puesto.h"

namespace {

std::vector<ColumnaRejilla> columnasDeLineas(bool conPorcentaje) {
  //  title                            width right  typed  button hidden
  return {
      {QStringLiteral("Item"), 82, true, false, false, false},
      {QStringLiteral("Cod."), 94, false, true, false, false},
      {QStringLiteral("Cod. Catalog"), 128, false, true, false, false},
      {QStringLiteral("Descripción"), 190, false, false, false, false},
      {QString(), 30, false, false, true, false},
      {QString(), 0, false, false, false, true},
      {QStringLiteral("Cant."), 92, true, true, false, false},
      {QStringLiteral("Prec.Unit."), 112, true, true, false, false},
      {QString(), 26, false, true, false, false},
      {TituloPorcentaje(false), 104, true, conPorcentaje, false, false},
      {QStringLiteral("SubTotal"), 112, true, true, false, false},
      {QStringLiteral("Canje"), 70, false, false, false, false},
      {QStringLiteral("Ptos."), 60, true, false, false, false},
      {QStringLiteral("(%) Serv."), 96, false, false, false, false},
      {QStringLiteral("Serv"), 86, true, false, false, false},
      {QStringLiteral("Igv"), 86, true, false, false, false},
  };
}

}  // namespace

QString TituloPorcentaje(bool recargo) { return recargo ? QStringLiteral("Recar(S/.)") : QStringLiteral("Dscto(S/.)"); }

Rejilla* nuevaRejillaLineas(const QString& nombre, const Puesto& p, const RejillaLineas& l) {
  const bool conPorcentaje = p.ses.psDFlag.compare(u"S", Qt::CaseInsensitive) == 0;
  auto* r = new Rejilla(nombre, columnasDeLineas(conPorcentaje),
                        {[&l] { return static_cast<int>(l.filas.size()); },
                         [&l](int f, int c) { return l.filas[static_cast<size_t>(f)][static_cast<size_t>(c)]; }});
  r->filtro = [&p, &l](int f, int c, QChar tecla) { return CeldaEditable(p, l, f, c) ? tecla : QChar(); };
  r->siguiente = [&l](int fila, int columna) {
    const bool conArticulo = !l.filas[static_cast<size_t>(fila)][kCod].isEmpty();
    const bool enCodigo = columna == kCod || columna == kCatalogo;
    return conArticulo && enCodigo ? std::optional(CeldaRejilla{fila, kCant}) : std::nullopt;
  };
  return r;
}
