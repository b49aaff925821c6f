#pragma once
// The void of a billing document or of a payment: the screen "Anular Documento" without its window.
#include <optional>

#include "credit/pantallas_credito.h"
#include "credit/papel_credito.h"

struct Puesto;

// What is voided, by the index of cboTipoDocumento.
enum class ModoAnular { FADE = 0, BADE = 1, PADE = 2 };

// A payment as it is shown, found by its receipt.
struct PagoGuardado {
  qint64 idpago = 0;
  QString serie, numero;  // of the receipt
  QString formaPago, descripcionForma;
  QDateTime fecha;
  double monto = 0;
  bool enDolares = false, esDetraccion = false, anulado = false;

  bool enEfectivo() const { return formaPago == u"01"; }
};

// The screen: texts as shown.
struct AnularTransaccionCtaCte {
  ModoAnular Modo = ModoAnular::FADE;
  bool fijo = false;  // series and number came along and can't be changed
  QString txtSerie, txtNumero, txtsupervisor;
  QStringList titulos, dgdDetalle;  // columns and the row; both empty for nothing loaded
  // What stands behind the row, as it was read.
  std::optional<EstadoDocumento> documento;
  std::optional<PagoGuardado> pago;

  bool cargado() const { return !dgdDetalle.isEmpty(); }
};

// The columns of the grid in that mode.
QStringList TitulosDetalle(ModoAnular modo);

// cmdCargar: reads what the fields name into the grid. False when it can't be voided and the screen is to close; the
// box has been shown. Without a row the box has been shown too, and the screen stays.
[[nodiscard]] bool CargarDocumentoAnular(Puesto& p, AnularTransaccionCtaCte& v);

// cmdAceptar: asks, has a supervisor authorise, voids at the centre and, for a payment that this desk holds, in the
// store, as one act; then the paper. True when the screen is to close.
[[nodiscard]] bool AceptarAnulacion(Puesto& p, AnularTransaccionCtaCte& v, PantallasCredito& pantallas);
