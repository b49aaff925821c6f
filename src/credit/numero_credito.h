#pragma once
// Numbers drawn inside an act, where no box may be shown: what was found is told behind it.
#include <optional>

#include "platform/sql/conexion.h"
#include "store/numeracion.h"

struct NumeroTomado {
  TipoDocumento tipo = TipoDocumento::Boleta;
  NumeroDocumento documento;
  qint64 codigo = 0;     // operation code of a parallel document
  qint64 corregido = 0;  // the number that the counter would have given; 0 when that was right
  Sql guardar;           // takes the number: it is used once this stands
  Sql devolver;          // gives it back, unless another one was taken since
};

// The next number of FADE and BADE, one run a desk with boletas and facturas: above the counter, the desk's sales and
// their history, and its documents in the open central database.
[[nodiscard]] std::optional<ErrorBD> TomarNumeroFiscal(Puesto& p, Conexion& central, NumeroTomado& n);

// Operation code and number of a parallel document; that of a receipt is held against the payments of its series too.
[[nodiscard]] std::optional<ErrorBD> TomarNumeroParalelo(Puesto& p, Conexion& central, TipoDocumento tipo,
                                                         NumeroTomado& n);

// Log file and box of a number that was corrected.
void AvisarCorreccion(Puesto& p, const NumeroTomado& n);

// Six digits at least, never cut.
QString NumeroEscrito(qint64 numero);
