#include "documento/desmesura.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

bool PreguntarDesmesura(Puesto& p, int cantidad, double importe) {
  const QString unidades =
      cantidad == 1 ? QStringLiteral("1 unidad") : Formatear(cantidad, u"###,###,##0") + QStringLiteral(" unidades");
  return p.mensajes.preguntar(QStringLiteral("La línea queda en %1 por S/. %2.\n¿Es correcto?")
                                  .arg(unidades, Formatear(importe, u"###,###,###,##0.00")),
                              Mensajes::kTitulo, false);
}
