#pragma once
// What the billing screen writes at the centre, as plain data and the statements made of it. They can run later than
// they were made: each holds for itself what must be true, and fails where it no longer is.
#include <QDate>

#include "credit/detraccion.h"
#include "credit/estado_documento.h"
#include "credit/numero_credito.h"
#include "documento/filas_operacion.h"

// Amounts in soles, those named USD in dollars; tax and service to the cent, as the lines showed them.
struct FacturaCredito {
  DocCredito doc = DocCredito::FADE;
  QString serie;
  qint64 numero = 0;
  QString tarjeta, cliente, ruc, credito;
  int idLocal = 0;
  bool enDolares = false;
  double total = 0, totalUSD = 0, igv = 0, servicio = 0;
  QDate emision;
  std::vector<LineaDocumento> lineas;
  Detraccion detraccion;
  QString supervisor;
};

// What the rows of a note, receipt or liquidation share: code and number drawn, card, the present minute.
DatosOperacion OperacionDe(const Puesto& p, const EstadoDocumento& documento, const NumeroTomado& numero,
                           TipoOperacion tipo);

std::vector<Sql> SentenciasFactura(const Puesto& p, const FacturaCredito& f);

// A payment of `documento`, whose receipt is `recibo`. Of the texts, only those of its form are filled.
struct PagoCredito {
  EstadoDocumento documento;
  NumeroTomado recibo;
  QString forma;
  QDate fecha;
  bool enDolares = false;
  ImporteDoble importe;
  QString tarjeta, banco, cuenta, operacion, certificado;
  bool esDetraccion = false;
};

std::vector<Sql> SentenciasPago(const Puesto& p, const PagoCredito& pago);

// What a note takes of the document.
std::vector<Sql> SentenciasConsumo(const Puesto& p, const EstadoDocumento& documento, qint64 codigoNota, double soles);

// Settles the document.
std::vector<Sql> SentenciasLiquidacion(const EstadoDocumento& documento);
