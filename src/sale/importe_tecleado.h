#pragma once
#include "platform/text/numero.h"

// What a field of money shows once it was left: blank or unreadable text is zero, never a part of what was typed.
inline QString ImporteTecleado(const QString& campo, QStringView mascara) {
  return Formatear(EsNumerico(campo) ? LeerImporte(campo) : 0, mascara);
}
