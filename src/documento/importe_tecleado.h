#pragma once
#include <cmath>

#include "platform/text/numero.h"

// More than any sale takes, less than a scanned code: what is above was not meant as an amount.
constexpr double kImporteMaximo = 9999999999.99;

// Whether a field of money holds an amount.
inline bool EsImporte(const QString& campo) {
  return EsNumerico(campo) && std::fabs(LeerImporte(campo)) <= kImporteMaximo;
}

// What a field of money shows once it was left: what is no amount is zero, never a part of what was typed.
inline QString ImporteTecleado(const QString& campo, QStringView mascara) {
  return Formatear(EsImporte(campo) ? LeerImporte(campo) : 0, mascara);
}
