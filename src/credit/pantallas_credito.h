#pragma once
// The screens that the billing screen opens; wired where the program is put together, scripted in a test.
#include "credit/clase_credito.h"
#include "loyalty/cliente_documento.h"

// A row of the picker of documents to pay. Amounts in the currency that their names say.
struct DocumentoPorPagar {
  QString TipoDoc, cSerieDoc, NroDoc;
  QString moneda;                  // as the list names it: "SOLES", "DOLARES"
  QString cliente, codigoCliente;  // name, and the number of the card
  int idLocal = 0;
  double total = 0, totalUSD = 0;
  double saldo = 0, saldoUSD = 0;
};

// A row of the picker of documents to consume.
struct DocumentoPorConsumir {
  qint64 cCodVta = 0;
  QString TipoDoc, cSerieDoc, NroDoc;
  QString codigoCliente, cliente;
  QString local, tipoCredito;  // their names
  QString fechaEmision;        // dd/MM/yyyy
  double total = 0, totalUSD = 0;
};

class PantallasCredito : public BuscadorClientes {
 public:
  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;
  // The article search. Gives the code, six digits; nothing when none was chosen.
  virtual std::optional<QString> buscarArticulo() = 0;

  // The pickers of open documents of one kind. Nothing when none was chosen; what failed has been told.
  virtual std::optional<DocumentoPorPagar> documentoPorPagar(DocCredito doc) = 0;
  virtual std::optional<DocumentoPorConsumir> documentoPorConsumir(DocCredito doc) = 0;
  virtual std::optional<qint64> documentoPorLiquidar(DocCredito doc) = 0;  // cCodVta

  // The cash withdrawal, from its amount to its receipt.
  virtual void retiro() {}

  // The void of a billing document, which asks for series and number, and of a payment by that of its receipt.
  virtual void anularDocumento(DocCredito doc) = 0;
  virtual void anularPago(const QString& serie, const QString& numero) = 0;

  // The registry of a new customer. Gives his card; nothing when none was stored.
  virtual std::optional<TarjetaElegida> nuevoCliente() = 0;
};
