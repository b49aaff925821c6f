#pragma once
#include <optional>

#include "platform/sql/catalogo.h"
#include "platform/sql/recordset.h"

struct pg_result;

// A value as the server reads it; nothing for Null.
std::optional<QByteArray> enTexto(const QVariant& v);

// The rows of an answer, as the embedded engine would give them, taken as they come.
class FilasPostgres {
 public:
  // `salida` are the columns as the rewriting knows them, none when it doesn't: their names, and whether a number is
  // one of those that are held whole. They outlive this.
  explicit FilasPostgres(const std::vector<Columna>* salida = nullptr, int agregadas = 0)
      : salida_(salida), agregadas_(agregadas) {}
  // False when there are more than any screen or paper asks for: a join that was forgotten.
  bool tomar(const pg_result* resultado);
  // What was taken, and what the last result holds.
  void dejar(const pg_result* ultimo, Recordset& rs);

 private:
  void mirarColumnas(const pg_result* r);

  const std::vector<Columna>* salida_;
  int agregadas_;
  Recordset leidas_;
  std::vector<std::pair<unsigned, Tipo>> tipos_;
};
