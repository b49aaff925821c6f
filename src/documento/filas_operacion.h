#pragma once
// The rows that a document leaves in Operacion: one a line, and one for the cash taken.
#include <QString>

#include "documento/linea.h"
#include "documento/totales.h"
#include "store/codigos.h"

struct Puesto;

// What all rows of one document share.
struct DatosOperacion {
  qint64 codigo = 0;
  QString tarjeta;  // 8 digits or ""
  QString idLocal;  // digits, or "" for none
  QString fecha;    // DD/MM/YYYY hh:mm
  TipoOperacion tipo = TipoOperacion::Efectivo;
  TipoDocumento documento = TipoDocumento::Boleta;
  QString serie, ruc;
  qint64 numero = 0;
  QString emisor;          // "," and the card's code for each card payment
  qint64 liquidacion = 0;  // the liquidation that the document closes
  bool breve = false;      // leaves percentage, supervisor, issuer and liquidation to the table's defaults
};

// What stands in a row for the customer's site, and for the service of a line.
Valor ValorLocal(const DatosOperacion& o);
Valor ServicioDe(const Puesto& p, const LineaDocumento& linea);

// Each gives false when the row could not be written, and then the box has been shown.

// An article line. The supervisor stands only in a line with a percentage.
[[nodiscard]] bool GrabarLinea(Puesto& p, const DatosOperacion& o, const LineaDocumento& linea,
                               const QString& supervisor);

// The cash of a boleta or factura: soles, dollars and change as they were taken and given.
[[nodiscard]] bool GrabarEfectivo(Puesto& p, const DatosOperacion& o, const EfectivoDocumento& e);
