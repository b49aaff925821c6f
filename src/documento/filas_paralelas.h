#pragma once
// The rows of the documents that are kept beside the sales: one in OperacionParalela, one a line in
// OperacionParalelaProducto, and the cash or card row that some of them leave in Operacion.
#include "documento/filas_operacion.h"

// What the row of a parallel document holds beside DatosOperacion, of which `tipo` is its kind. Amounts in
// the currency that their names say.
struct DatosParalela {
  int moneda = 0;  // advance payments: 1 paid in soles, 2 in dollars
  double montoSoles = 0, montoDolares = 0;
  EfectivoDocumento efectivo;
  QString glosa;        // as typed
  qint64 relacion = 0;  // the document that this one is tied to
  bool sincronizada = false;
};

// The statements of the rows, which an act runs together.
Sql SentenciaParalela(const Puesto& p, const DatosOperacion& o, const DatosParalela& d);
// An article line; the supervisor stands only in one with a percentage.
Sql SentenciaLineaParalela(const Puesto& p, const DatosOperacion& o, const LineaDocumento& linea,
                           const QString& supervisor);
// Cash taken with the document, and the part paid by cards, in soles. `serie` is that of the boletas, not its own.
Sql SentenciaEfectivoParalelo(const Puesto& p, const DatosOperacion& o, const QString& serie,
                              const EfectivoDocumento& e);
Sql SentenciaTarjetaParalela(const Puesto& p, const DatosOperacion& o, const QString& serie, double soles);
// Closes a document. With a liquidation's code that is the document that it is tied to from now on.
Sql SentenciaCerrarParalela(qint64 codigo, qint64 liquidacion = 0);
// What voids a parallel document of the store, under the void's own code: a row of its own, the mark on the document,
// its money taken out of Operacion. `fecha` is "DD/MM/YYYY hh:mm".
std::vector<Sql> SentenciasAnularParalela(const Puesto& p, TipoOperacion tipo, qint64 anulada, qint64 codigo,
                                          const QString& fecha);
// Takes that back, of a document without money in Operacion.
std::vector<Sql> SentenciasDevolverParalela(qint64 anulada, qint64 codigo);

// Whether the document of the code just before this one says the same: moment, card, amounts and text. False when the
// store could not be read, and then the box has been shown.
[[nodiscard]] bool EsRepetida(Puesto& p, const DatosOperacion& o, const DatosParalela& d, bool& repetida);
