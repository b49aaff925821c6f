#pragma once
// The lists of open billing documents that the billing screen chooses from, as they stood when they were opened.
#include "credit/pantallas_credito.h"
#include "platform/sql/recordset.h"

struct Puesto;

// What the document is wanted for.
enum class PendientesDe { Pago, Consumo, Liquidacion };

struct ColumnaPendientes {
  int posicion;    // in the list of the server
  QString titulo;  // "" for the server's own name
  double fraccion;
  enum Clase { Texto, Fecha, Importe } clase = Texto;
};

struct ClasePendientes {
  QString pantalla, titulo;
  int cliente;  // position of the customer's name
  std::vector<ColumnaPendientes> columnas;
};
const ClasePendientes& ClaseDe(PendientesDe para);

struct DocumentosPendientes {
  PendientesDe para{};
  Recordset rs;
  std::vector<QString> nombres;  // of the customers, as the filter compares them; none before its first text
};

// Reads the list from the central database. What fails has shown its box, and the list stays empty.
DocumentosPendientes LeerPendientes(Puesto& p, PendientesDe para, DocCredito doc);

// The rows, counted from 0, whose customer's name holds the text, case and accents aside; all for an empty one.
std::vector<int> FiltrarPendientes(DocumentosPendientes& d, const QString& txtCliente);

// The cells of a row in the order of the columns.
QStringList CeldasPendientes(const DocumentosPendientes& d, int fila);

// A row as the billing screen takes it.
DocumentoPorPagar PorPagar(const DocumentosPendientes& d, int fila);
DocumentoPorConsumir PorConsumir(const DocumentosPendientes& d, int fila);
qint64 PorLiquidar(const DocumentosPendientes& d, int fila);

// A name as filters compare it: capitals, without accents.
QString NombreLlano(const QString& nombre);
