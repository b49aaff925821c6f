#pragma once
// The accounts of all customers in three levels: customers, their documents, the payments of each. Voided documents and
// payments are left out. Amounts in soles unless the name says USD; a payment counts at the rate that it was taken at.
#include <QDateTime>
#include <QString>
#include <vector>

#include "platform/sql/conexion.h"

// A customer is a card and a site.
struct CuentaCliente {
  QString cClienteCode, DscCliente;
  int IdLocal = 0;
  bool conTotales = false;  // both have been read
  double ventas = 0, pagos = 0;

  double deuda() const { return ventas - pagos; }
  QString local() const;
};

struct DocumentoCuenta {
  QString TipoDoc, cSerieDoc, NroDoc, credito;
  QDateTime emision;
  bool enDolares = false;
  double total = 0, totalUSD = 0, pagado = 0, pagadoUSD = 0;

  QString numero() const { return cSerieDoc + u'-' + NroDoc; }
  // "Cancelado" when exactly nothing is left in its own currency, else "Pendiente".
  QString estado() const;
};

struct PagoCuenta {
  QString recibo, formaPago;
  QDateTime fecha;
  bool enDolares = false;
  double soles = 0, dolares = 0;
};

using ErrorCuentas = std::optional<ErrorBD>;

// All customers with a document, by name. Their totals are still to be read.
[[nodiscard]] ErrorCuentas LeerCuentas(Conexion& central, std::vector<CuentaCliente>& cuentas);
// The totals of `cuantas` customers from that place on.
[[nodiscard]] ErrorCuentas LeerTotales(Conexion& central, std::vector<CuentaCliente>& cuentas, size_t desde,
                                       size_t cuantas);
[[nodiscard]] ErrorCuentas LeerDocumentosCuenta(Conexion& central, const CuentaCliente& cuenta,
                                                std::vector<DocumentoCuenta>& documentos);
[[nodiscard]] ErrorCuentas LeerPagosCuenta(Conexion& central, const DocumentoCuenta& documento,
                                           std::vector<PagoCuenta>& pagos);
