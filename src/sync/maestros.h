#pragma once
// Master data from the central database into the store: units, articles, customers and cards, table by table. A row
// that fails is logged and left out.
#include "sync/pasada.h"
#include "sync/surtido.h"

// `marca` is the watermark, "yyyyMMdd", "" for a full load. poCnnCentral is open. The bar goes to 70 when all of it
// went well.
[[nodiscard]] FinPasada TraerMaestros(Puesto& p, FrmUpdt& pantalla, const QString& marca);

// The step among them that takes articles out of sale here and puts them back, those of the range that need it.
[[nodiscard]] FinPasada ActivarArticulos(Puesto& p, FrmUpdt& pantalla, const Surtido& surtido);

// An article's code as the central database has it: six digits at least.
QString CodigoCentral(qint64 codigo);
