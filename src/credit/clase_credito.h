#pragma once
// What the rooms of the credit accounts share: the two kinds of billing document and the texts that mark, in the
// store's OperacionParalela, the rows that belong to one.
#include <QString>
#include <optional>

// A billing document: factura or boleta on account, TipoDoc '01' and '02' of Venta01.
enum class DocCredito { FADE, BADE };

// TipoDoc, as the central tables hold it.
QString Codigo(DocCredito doc);
// "FADE", "BADE".
QString PalabraDe(DocCredito doc);
// By the index of a list that holds "FADE", "BADE"; nothing for -1.
std::optional<DocCredito> DocCreditoDe(int indice);
// By TipoDoc; nothing for any other text.
std::optional<DocCredito> DocCreditoDe(const QString& tipoDoc);

// sGlosa of a note that consumes a billing document, whose cCodVta then stands in cOperCodeRela, and of the receipt of
// a payment on one. Whole texts: what a cashier types in the register is another one.
inline const QString kGlosaConsumo = QStringLiteral("REF. SIST. LOGISTICA");
inline const QString kGlosaPago = QStringLiteral("PAGO REF. SIST. LOGISTICA");
