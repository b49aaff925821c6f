#include "documento/desmesura.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

bool PreguntarDesmesura(Puesto& p, int cantidad, double importe) {
  return p.mensajes.preguntar(QStringLiteral("La línea queda en %1 unidades por S/. %2.\n¿Es correcto?")
                                  .arg(Formatear(cantidad, u"###,###,##0"), Formatear(importe, u"###,###,###,##0.00")),
                              Mensajes::kTitulo, false);
}
