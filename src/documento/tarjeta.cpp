#include "documento/tarjeta.h"

#include "platform/text/texto.h"

QString NumeroTarjeta(const QString& tecleado) {
  constexpr int kDigitos = 8;
  const QString numero = Recortar(tecleado);
  return numero.isEmpty() || numero.size() > kDigitos ? QString() : Rellenar(numero, kDigitos, u'0');
}
