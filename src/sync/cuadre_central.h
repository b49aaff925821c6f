#pragma once
// The proof of a period: for each series and day what store and centre hold side by side, and the first number that
// differs with the reason. Only reads.
#include <QDate>
#include <QStringList>
#include <optional>

#include "platform/sql/conexion.h"

struct PedidoCuadre {
  QString caja;
  QDate desde, hasta;  // both of them included
};

struct ResultadoCuadre {
  QStringList lineas;  // one a series and day; one more for each that differs
  bool igual = true;
};

// Nothing when a side can't be read; `error` then has the words. Closed rows of the store count, live and history;
// amounts in soles, net by that tax rate (a fraction).
[[nodiscard]] std::optional<ResultadoCuadre> CuadrarConCentral(Conexion& local, Conexion& central,
                                                               const PedidoCuadre& pedido, double igv, QString& error);
