#pragma once
// The ticket text of a stored document, block by block: 40 columns, line ends CR LF. Amounts in soles unless said.
#include <QString>

#include "voiding/documento_guardado.h"

struct Puesto;

struct BloquesTransaccion {
  QString cabecera, fecha, cuerpo, documento;
  double total = 0;  // value of all lines, to the cent; of an advance payment its amount, in its own currency
};

// The words by which the two screens' texts differ.
struct FormaTransaccion {
  QString titulo;  // over the article lines
  QString item;    // before the count of articles
};

// The print header, read afresh, each line centred.
QString BloqueCabecera(Puesto& p);

// Article lines, service, totals and count as the void screen has them, and the document's total.
QString CuerpoTransaccion(const DocumentoGuardado& t, const FormaTransaccion& forma, double& total);

// "Documento:", series and number.
QString BloqueDocumento(const DocumentoGuardado& t);
