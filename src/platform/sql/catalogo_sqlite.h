#pragma once
#include "platform/sql/catalogo.h"

struct sqlite3;

// The tables of `base`, which stays the caller's.
class CatalogoSqlite final : public Catalogo {
 public:
  explicit CatalogoSqlite(sqlite3* base) : base_(base) {}

 private:
  Tabla leer(const QString& nombre) const override;

  sqlite3* base_;
};
