#pragma once
// A statement of a shape as a PostgreSQL server has it prepared.
#include <QByteArrayList>

#include "platform/sql/formas.h"

struct PreparadaPostgres {
  ~PreparadaPostgres() {
    if (hecha) *sobrantes << nombre;
  }
  std::shared_ptr<const FormaEscrita> forma;
  std::vector<unsigned> tipos;  // of the bound literals
  QByteArray nombre;
  bool hecha = false;  // the server has it
  std::shared_ptr<QByteArrayList> sobrantes;
};
