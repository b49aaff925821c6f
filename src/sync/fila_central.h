#pragma once
// A row of the store in the shape in which the central database takes it. `caja` is the desk's; the row's own is not
// used. Codes and numbers are padded to six digits, never cut.
#include "loyalty/puntos.h"
#include "platform/sql/conexion.h"

// "INSERT INTO ... VALUES " of each table, and a row behind it: "(...)".
extern const LiteralSql kCabezaOperacion, kCabezaParalela, kCabezaLineaParalela, kCabezaDetalleZ1;

struct DatosFilaCentral {
  QString caja;
  ClienteTarjeta cliente;
  LiteralSql bandera;  // cFlagSincronizacion there
};

Sql TuplaOperacion(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d);
Sql TuplaParalela(const Recordset::Fila& f, const DatosFilaCentral& d);
Sql TuplaLineaParalela(const Recordset::Fila& f, const QString& caja);
// A row of the detail, with the line's value; `documento` is its document, or the row itself for a sale.
Sql TuplaDetalleZ1(const Recordset::Fila& linea, const Recordset::Fila& documento, const QString& idZ1,
                   const QString& caja);

// The rows behind their head, some to a statement: few enough that an engine has soon read it. The error of the first
// statement that fails; the caller has the transaction.
[[nodiscard]] std::optional<ErrorBD> InsertarTuplas(Conexion& central, LiteralSql cabeza,
                                                    const std::vector<Sql>& tuplas);

// A document's number as it stands there.
QString NumeroCentral(const QVariant& cDocCodigo);

// The moment as an expression of the central database.
Sql MomentoCentral(const QVariant& momento);
