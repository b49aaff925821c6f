#pragma once
// The account of one customer, found by card and site: the screen "Consulta Cuenta Corriente x Cliente" without its
// window, and its statement on paper.
#include "loyalty/cliente_documento.h"
#include "platform/sql/recordset.h"

struct Puesto;

struct ConsultaCtaCteCliente {
  ClienteDocumento cliente;
  Recordset documentos;          // the columns are the server's own
  std::vector<Recordset> pagos;  // of each document, once it was asked for
  std::vector<bool> pagosLeidos;
};

// cmdConsultar: reads the documents of the customer. Nothing happens, without a word, unless card and site are numbers
// and the site is 1 or 2. What can't be read has been told by its box.
void ConsultarCuenta(Puesto& p, ConsultaCtaCteCliente& v);

// The payments of a document, voided ones too; read once. Empty for none, or after a failure that its box has told.
const Recordset& PagosDe(Puesto& p, ConsultaCtaCteCliente& v, int documento);

// A cell as shown: dates "dd/mm/yyyy", amounts with two decimals.
QString CeldaCuenta(const QVariant& valor);

// The statement as paper, 39 columns wide, with all documents and payments that were not voided. Reads the payments
// that are missing; "" when one of them can't be read.
QString PapelCuenta(Puesto& p, ConsultaCtaCteCliente& v);

// "Ver Reporte": the statement on the alternate printer, and as a PDF beside the papers, which is opened or, where no
// program is there for it, named in a box.
void VerReporteCuenta(Puesto& p, ConsultaCtaCteCliente& v);
