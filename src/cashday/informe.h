#pragma once
// A report under construction, line by line, for a roll of 39 columns.
#include "printing/canal.h"

class Informe {
 public:
  void linea(QString texto) { AgregarLineaBloque(bloques_, texto); }
  void doble() { linea(QString(39, u'=')); }
  void raya() { linea(QString(39, u'-')); }
  // A title between two double rules.
  void titulo(const QString& texto) {
    doble();
    linea(texto);
    doble();
  }

  const BloquesInforme& bloques() const { return bloques_; }

 private:
  BloquesInforme bloques_;
};

// A label and the last `ancho` characters of blanks and a finished text.
QString ALaDerecha(const QString& etiqueta, const QString& texto, int ancho);
// The first `ancho` characters of a text and blanks.
QString ALaIzquierda(const QString& texto, int ancho);

// An amount with mask "###,###,##0.00".
QString Importe(double valor);
// A count as "000000" + number + three blanks.
QString Cuenta(double cuantos);

// Whether an amount is more than nothing, and whether it is something, once masked.
bool EsPositivo(double importe);
bool NoEsCero(double importe);
