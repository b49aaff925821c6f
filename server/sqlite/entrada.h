#pragma once
// A stored procedure of the embedded central database as its table lists it.
#include <vector>

#include "platform/sql/procedimientos.h"

struct EntradaProcedimiento {
  const char* nombre;
  int argumentos;
  std::optional<ErrorBD> (*hacer)(AccesoMotor&, const QVariantList&, Recordset&);
};

// The statement with each text column "~x" compared as a server does: without case and blanks at its end.
QString sinFinales(const char* sql);

// A text that is no date, as an error of the server.
ErrorBD noEsFecha(const QVariant& texto);

// The procedures that only read, and those that serve the accounts: pickers, stock, sales movements, mail.
std::vector<EntradaProcedimiento> procedimientosDeCuentas();
