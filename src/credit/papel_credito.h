#pragma once
// The papers of the billing screen, over the ticket that all documents share. Each draws a correlative and goes to its
// printer; what the printer says is told by its own box, and the document stands.
#include <optional>

#include "credit/sentencias_credito.h"
#include "documento/totales.h"

struct NotaTicket;

// What makes a copy of a paper: when and by whom the document was made.
struct DatosCopia {
  QDateTime momento;
  QString usuario, turno;  // "" where the document doesn't keep them
};

void ImprimirFactura(Puesto& p, const FacturaCredito& f, const std::optional<DatosCopia>& copia = {});

// A receipt. `documento` is that before the payment, `saldo` what is left in soles.
struct ReciboCredito {
  bool pade = true;  // else PADV
  NumeroDocumento numero;
  bool enDolares = false;
  ImporteDoble importe;
  EstadoDocumento documento;
  std::optional<double> saldo;  // nothing on a copy, where it has moved on
};
void ImprimirRecibo(Puesto& p, const ReciboCredito& r, const std::optional<DatosCopia>& copia = {});

struct NotaCredito {
  EstadoDocumento documento;
  NumeroDocumento numero;
  std::vector<LineaDocumento> lineas;
  double total = 0;
  QString supervisor;
};
void ImprimirNota(Puesto& p, const NotaCredito& n);

struct LiquidacionCredito {
  EstadoDocumento documento;
  NumeroDocumento numero;
  std::vector<NotaTicket> notas;
  double subtotal = 0, adelanto = 0, diferencia = 0;
  EfectivoDocumento efectivo;
};
void ImprimirLiquidacion(Puesto& p, const LiquidacionCredito& l);
