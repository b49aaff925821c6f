#pragma once
#include <functional>

#include "platform/sql/catalogo.h"
#include "platform/sql/recordset.h"

// Reads the tables that the connection's search path shows. `preguntar` runs a query of the engine's own language over
// a name and tells whether it could.
class CatalogoPostgres final : public Catalogo {
 public:
  using Preguntar = std::function<bool(const QByteArray& consulta, const QByteArray& nombre, Recordset& rs)>;
  CatalogoPostgres(Preguntar preguntar, std::shared_ptr<Tablas> sabidas)
      : Catalogo(std::move(sabidas)), preguntar_(std::move(preguntar)) {}

 private:
  Tabla leer(const QString& nombre) const override;

  Preguntar preguntar_;
};
