#pragma once
// Statements of one shape differ in their literals only. A shape is rewritten and prepared once; the literals of
// later statements are bound to it.
#include <sqlite3.h>

#include <list>
#include <memory>

#include "platform/sql/reescritura.h"

// A prepared statement and what must be known to run it.
struct Preparada {
  ~Preparada() { sqlite3_finalize(sentencia); }
  Preparada() = default;
  Preparada(const Preparada&) = delete;
  Preparada& operator=(const Preparada&) = delete;

  sqlite3_stmt* sentencia = nullptr;
  std::vector<Literal> literales;
  std::vector<bool> fechas;   // columns that come back as dates
  QStringList campos;
  std::vector<Tipo> tipos;    // of the columns; empty when they can't be told
  QString tablaNueva;         // SELECT ... INTO
  bool cambiaEsquema = false;
};

// The most recently used shapes of one connection.
class Formas {
 public:
  explicit Formas(size_t tope) : tope_(tope) {}

  // The shape of a statement: its text with a mark in the place of each literal. Literals that are known to stay in
  // the statement (`fijos`, places in the order of literals) are part of it.
  static QString clave(QStringView sql, const std::vector<Token>& tokens, const std::vector<int>& fijos);

  // Which literals of a shape stay in the statement; null when the shape has not been seen.
  const std::vector<int>* fijos(const QString& forma) const;
  void recordarFijos(const QString& forma, std::vector<int> fijos);

  std::shared_ptr<Preparada> buscar(const QString& clave);
  void guardar(const QString& clave, std::shared_ptr<Preparada> p);
  void vaciar();

 private:
  using Lista = std::list<std::pair<QString, std::shared_ptr<Preparada>>>;
  size_t tope_;
  Lista recientes_;
  QHash<QString, Lista::iterator> por_clave_;
  QHash<QString, std::vector<int>> fijos_;
};
