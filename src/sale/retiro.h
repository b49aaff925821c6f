#pragma once
// The cash withdrawal: money taken out of the till, its row and its receipt. Amounts in soles.
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

struct DocumentoImpreso;
struct TextosPapel;
struct Puesto;

// What txtMonto shows once it was left: mask "###,###,###,##0.00", blank or unreadable text as zero.
QString MontoRetiro(const QString& texto);

// Whether what was sold in the open day covers `monto`. Nothing when the store can't be read; the box has been shown.
std::optional<bool> VerificaSaldo(Puesto& p, double monto);

// The receipt, part by part as the driver takes it; the amount stands out.
DocumentoImpreso ReciboRetiro(const TextosPapel& textos, const QStringList& cabecera, double monto,
                              const QString& usuario, qint64 codigo, const QDateTime& momento);

// Asks, stores the row, prints the receipt on the current printer and says so. A shortage only warns.
//   Returns  false when the cashier said no, or when a statement failed: its box has been shown and neither row nor
//            receipt exists. A printer that fails shows its words; the withdrawal stands.
[[nodiscard]] bool Retirar(Puesto& p, const QString& txtMonto);
