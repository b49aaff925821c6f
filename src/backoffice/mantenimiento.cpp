#include "backoffice/mantenimiento.h"

QString TituloDetalle(ModoDetalle modo, const QString& nombre) {
  switch (modo) {
    case ModoDetalle::Nuevo: return QStringLiteral("Nuevo ") + nombre;
    case ModoDetalle::Editar: return QStringLiteral("Editar ") + nombre;
    case ModoDetalle::Borrar: return QStringLiteral("Borrar ") + nombre;
    case ModoDetalle::Ver: break;
  }
  return nombre;
}
