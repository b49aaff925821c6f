#pragma once
// A billing document as the central database has it now: what was paid, what was consumed, what is left.
#include <QDateTime>
#include <optional>

#include "credit/clase_credito.h"
#include "platform/sql/conexion.h"

struct Puesto;

// Amounts in soles, those named USD in dollars.
struct EstadoDocumento {
  qint64 cCodVta = 0;
  DocCredito doc = DocCredito::FADE;
  QString serie, numero;
  QString tarjeta, cliente, ruc, tipoCredito;
  int idLocal = 0;
  QDateTime emision;
  bool enDolares = false;  // its currency; total and totalUSD hold both
  double total = 0, totalUSD = 0;
  bool anulado = false, liquidado = false;
  double pagado = 0, pagadoUSD = 0;  // of the payments that stand, at their own rates, not rounded
  double consumido = 0;
  std::optional<double> detraccion;  // the amount of one that is pending

  double saldo() const;
  double saldoUSD() const;
  double saldoPropio() const { return enDolares ? saldoUSD() : saldo(); }
  double porConsumir() const;
  QString nombre() const;    // "FADE 001-000123"
  QString palabras() const;  // that it was voided or settled, "" when it is open
};

// The condition that finds a document in Venta01.
Sql DeCodigo(qint64 cCodVta);
Sql DeNumero(DocCredito doc, const QString& serie, const QString& numero);

// Locks the document's row till the end of the transaction, on whatever engine; it changes nothing.
Sql SentenciaBloqueo(const Sql& donde);

// Nothing in `estado` when there is no such document. Shows nothing.
[[nodiscard]] std::optional<ErrorBD> LeerEstado(Conexion& central, const Sql& donde,
                                                std::optional<EstadoDocumento>& estado);

// The same of a document that must be open, its row locked till the end of the transaction. One that isn't, or is
// gone, is an error in words.
[[nodiscard]] std::optional<ErrorBD> LeerBloqueado(Conexion& central, const Sql& donde, EstadoDocumento& estado);

// The same without a lock, for a screen: false when there is none that is open, and the box has been shown.
[[nodiscard]] bool LeerAbierto(Puesto& p, Conexion& central, const Sql& donde, EstadoDocumento& estado);

// What a payment is worth in both currencies, rounded to cents by `tipoCambio`.
struct ImporteDoble {
  double soles = 0, dolares = 0;
};
ImporteDoble ImporteDe(double monto, bool enDolares, double tipoCambio);

// Whether the document still takes the amount: what it leaves is not below zero in its own currency.
[[nodiscard]] bool Cabe(const EstadoDocumento& d, const ImporteDoble& importe);
