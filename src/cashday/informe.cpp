#include "cashday/informe.h"

#include "platform/text/numero.h"
#include "platform/text/texto.h"

QString ALaDerecha(const QString& etiqueta, const QString& texto, int ancho) {
  return etiqueta + Derecha(Espacios(ancho) + texto, ancho);
}

QString ALaIzquierda(const QString& texto, int ancho) { return Izquierda(texto + Espacios(ancho), ancho); }

QString Importe(double valor) { return Formatear(valor, u"###,###,##0.00"); }

QString Cuenta(double cuantos) { return QStringLiteral("000000") + TextoDe(cuantos) + Espacios(3); }

bool EsPositivo(double importe) { return Redondear(importe, 2) > 0; }

bool NoEsCero(double importe) { return Redondear(importe, 2) != 0; }
