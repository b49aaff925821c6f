#pragma once
// A row of the store in the shape in which the central database takes it. `caja` is the desk's; the row's own is not
// used. Codes and numbers are padded to six digits, never cut.
#include <QHash>

#include "loyalty/puntos.h"
#include "platform/sql/conexion.h"

// "INSERT INTO ... VALUES " of each table, and a row behind it: "(...)".
extern const LiteralSql kCabezaOperacion, kCabezaParalela, kCabezaLineaParalela, kCabezaDetalleZ1;

struct DatosFilaCentral {
  QString caja;
  ClienteTarjeta cliente;
  QString bandera;  // cFlagSincronizacion there
};

Sql TuplaOperacion(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d);
Sql TuplaParalela(const Recordset::Fila& f, const DatosFilaCentral& d);
Sql TuplaLineaParalela(const Recordset::Fila& f, const QString& caja);

// A row of the detail: what a line sells, with its value. `documento` is its document, or the row itself for a sale.
struct DetalleZ1 {
  DetalleZ1(const Recordset::Fila& linea, const Recordset::Fila& documento);
  Sql tupla(const QString& idZ1, const QString& caja) const;

  QDateTime momento;
  QString almacen, tipo;
  qint64 articulo;
  double cantidad, monto;
};

// The detail of many rows. What the centre's digest will add up anyway, by day, warehouse, type of document and
// article, goes there as one row, under its first moment; values are added up in the six places of their column.
class DetallesZ1 {
 public:
  void sumar(const DetalleZ1& d);
  std::vector<Sql> tuplas(const QString& idZ1, const QString& caja) const;

 private:
  using Clave = std::pair<std::pair<qint64, qint64>, std::pair<QString, QString>>;
  std::vector<DetalleZ1> filas_;
  QHash<Clave, size_t> cual_;
};

// The rows behind their head, some to a statement: few enough that an engine has soon read it. The error of the first
// statement that fails; the caller has the transaction.
[[nodiscard]] std::optional<ErrorBD> InsertarTuplas(Conexion& central, LiteralSql cabeza,
                                                    const std::vector<Sql>& tuplas);

// Rows of Operacion within transactions of the caller: bound to one statement where the engine makes one ready, by its
// text elsewhere. To be let go of before the connection is closed.
class OperacionesCentral {
 public:
  // `deUnaEnUna`: each goes at once, with its own error.
  OperacionesCentral(Conexion& central, bool deUnaEnUna);
  [[nodiscard]] std::optional<ErrorBD> tomar(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d);
  // The rows that still wait for others to go with.
  [[nodiscard]] std::optional<ErrorBD> terminar();
  void dejar();  // forgets them

 private:
  std::optional<ErrorBD> correr();
  Conexion& central_;
  bool deUnaEnUna_;
  int porVez_;
  std::unique_ptr<Repetida> sentencia_;
  std::vector<int> columnas_;  // the fields' places in the recordset of the first row, as in all behind it
  std::vector<std::vector<QVariant>> pendientes_;
  std::vector<CeldaBD> valores_;
  std::vector<QByteArray> textos_;
  std::vector<Sql> tuplas_;
};

// A document's number as it stands there.
QString NumeroCentral(const QVariant& cDocCodigo);

// The moment as an expression of the central database.
Sql MomentoCentral(const QVariant& momento);
