#pragma once
// Statements of one shape differ in their literals only. A shape is rewritten and prepared once; the literals of
// later statements are bound to it. The rewriting outlives the connection, the prepared statement does not.
#include <QHash>
#include <list>
#include <memory>

#include "platform/sql/reescritura.h"

// What the rewriting makes of a shape.
struct FormaEscrita {
  QByteArray texto;  // in the engine's language, bound literals as its parameters
  std::vector<Literal> literales;
  std::vector<int> fijos;       // literals that stay in the text, in their order
  std::vector<Columna> salida;  // empty when the columns can't be told
  QString tablaNueva;           // SELECT ... INTO
  QString serie;                // the table whose highest number it asks for
  bool conPatron = false;       // its plan depends on the values
  Tope tope;
  bool cambiaEsquema = false;
};

// The shape of a statement: its text with a mark in the place of each literal. Literals that are known to stay in the
// statement (`fijos`) are part of it.
QString ClaveDeForma(QStringView sql, const std::vector<Token>& tokens, const std::vector<int>& fijos);

// The most recently used shapes and what belongs to each.
template <class T>
class Formas {
 public:
  explicit Formas(size_t tope) : tope_(tope) {}

  // What is kept of the statement's shape, null when nothing is. `forma` is its key without literals that stay.
  std::shared_ptr<T> buscar(const QString& forma, QStringView sql, const std::vector<Token>& tokens) {
    const auto fijos = fijos_.constFind(forma);
    if (fijos == fijos_.constEnd()) return {};
    const auto i = por_clave_.constFind(fijos->empty() ? forma : ClaveDeForma(sql, tokens, *fijos));
    if (i == por_clave_.constEnd()) return {};
    recientes_.splice(recientes_.begin(), recientes_, *i);
    return (*i)->second;
  }

  void guardar(const QString& forma, QStringView sql, const std::vector<Token>& tokens, const std::vector<int>& fijos,
               std::shared_ptr<T> que) {
    if (fijos_.size() > 4 * static_cast<qsizetype>(tope_)) vaciar();
    fijos_.insert(forma, fijos);
    const QString clave = fijos.empty() ? forma : ClaveDeForma(sql, tokens, fijos);
    if (const auto i = por_clave_.constFind(clave); i != por_clave_.constEnd()) {
      recientes_.erase(*i);
      por_clave_.remove(clave);
    }
    recientes_.emplace_front(clave, std::move(que));
    por_clave_.insert(clave, recientes_.begin());
    if (recientes_.size() <= tope_) return;
    por_clave_.remove(recientes_.back().first);
    recientes_.pop_back();
  }

  void vaciar() {
    recientes_.clear();
    por_clave_.clear();
    fijos_.clear();
  }

 private:
  using Lista = std::list<std::pair<QString, std::shared_ptr<T>>>;
  size_t tope_;
  Lista recientes_;
  QHash<QString, typename Lista::iterator> por_clave_;
  QHash<QString, std::vector<int>> fijos_;
};

// What the connections to one database have learnt of it: they come and go, a sale opens five. It holds for one state
// of the tables, which `esquema` numbers: the engine counts it up with every change of them.
class MemoriaDeFormas {
 public:
  // What holds for that state; what was learnt in another one falls.
  Formas<const FormaEscrita>& alDia(int esquema) {
    if (esquema_ != esquema) {
      formas_.vaciar();
      tablas_->clear();
    }
    esquema_ = esquema;
    return formas_;
  }
  // The tables of that state, where reading them is worth keeping.
  const std::shared_ptr<Catalogo::Tablas>& tablas() { return tablas_; }

 private:
  int esquema_ = -1;
  Formas<const FormaEscrita> formas_{300};
  std::shared_ptr<Catalogo::Tablas> tablas_ = std::make_shared<Catalogo::Tablas>();
};
