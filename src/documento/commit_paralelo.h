#pragma once
// The commit of the documents that are kept beside the sales, over data of its own: a screen fills them in its first
// steps and takes back what it needs in its last. Which of the steps a kind has, and in which order, tells the list of
// the screen that issues it (documento/pasos.h).
#include "documento/commit_documento.h"
#include "documento/filas_paralelas.h"

struct CommitParalelo : CommitDocumento {
  // From the screen
  DatosParalela paralela;
  std::vector<PagoTarjeta> tarjetas;              // cards that pay the document
  std::optional<LiquidacionEnCurso> liquidacion;  // the one that the document closes
  double servicio = 0;                            // sum of the lines' rounded texts
  double adelanto = 0;                            // of a liquidation: what was paid in advance
  QString etiquetaAdelanto = QStringLiteral(" PADE/PADV");
  std::vector<qint64> consumos;    // of a liquidation: the notes whose lines its ticket shows
  std::vector<qint64> liquidadas;  // the documents that it closes, in this order
  bool enlazaLiquidadas = true;    // and ties to itself

  // From the steps
  double subtotal = 0;  // of the notes
  QString serieDinero;  // of the row that the document's money leaves in Operacion
};

// Steps. Each gives false where the commit must end; the box has been shown then, unless another reason is told.

// The lines of the notes that a liquidation settles, for its ticket.
[[nodiscard]] bool LeerConsumos(Puesto& p, CommitParalelo& c);
// Settles the kind of the row and makes the totals of the ticket.
[[nodiscard]] bool PrepararParalela(Puesto& p, CommitParalelo& c);
// A document that says the same as the one before it within a minute is the same: its number goes back and the commit
// ends without a word.
[[nodiscard]] bool RechazarRepetida(Puesto& p, CommitParalelo& c);

// Steps that write to the store.

// Code, user and number as the last ones of the type, whose row the reservation of the number has made.
[[nodiscard]] std::vector<Sql> EscribirUltima(Puesto& p, CommitParalelo& c);
[[nodiscard]] std::vector<Sql> EscribirCabeza(Puesto& p, CommitParalelo& c);
[[nodiscard]] std::vector<Sql> EscribirLineas(Puesto& p, CommitParalelo& c);
// The row of the cash, where any was taken, and of what the cards pay, where there are any.
[[nodiscard]] std::vector<Sql> EscribirEfectivo(Puesto& p, CommitParalelo& c);
[[nodiscard]] std::vector<Sql> EscribirTarjetas(Puesto& p, CommitParalelo& c);
// Closes the liquidation itself and what it settles.
[[nodiscard]] std::vector<Sql> Liquidar(Puesto& p, CommitParalelo& c);
