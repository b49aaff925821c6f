#pragma once
// What the rooms of the credit accounts share: the two kinds of billing document. The texts that mark, in the store's
// OperacionParalela, the rows that belong to one are in store/codigos.
#include <QString>
#include <optional>

#include "store/codigos.h"

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
