#pragma once
// What the engine's schema says of tables and columns, as far as the rewriting needs it.
#include <QString>
#include <map>
#include <memory>
#include <vector>

// Type of a column or of an expression. `Numero` is a number of which only the running statement knows whether it
// is whole; `Real` is never stored whole.
enum class Tipo { Desconocido, Nulo, Logico, Entero, Numero, Real, Texto, Fecha };

inline bool esNumerico(Tipo t) {
  return t == Tipo::Entero || t == Tipo::Numero || t == Tipo::Real || t == Tipo::Logico;
}

struct Columna {
  QString nombre;
  Tipo tipo = Tipo::Desconocido;
  bool sinCaso = false;  // compared without regard to case by the engine itself, as far as ASCII goes
  bool real = false;     // a column of a table, not an expression of a derived one
  bool noNula = false;   // as far as the engine tells
};

struct Tabla {
  QString nombre;
  std::vector<Columna> columnas;
};

// The type that a declaration such as "DATETIME" or "VARCHAR(10)" stands for.
Tipo tipoDeclarado(const QString& declaracion);

// A table is read when it is first asked for: a connection that lives for one statement reads what that one names. One
// that was not there is looked for again, since another program may have made it meanwhile. Each engine has its reader.
class Catalogo {
 public:
  using Tablas = std::map<QString, Tabla>;

  // `sabidas` are those that other connections to the database have read, and get what this one reads.
  explicit Catalogo(std::shared_ptr<Tablas> sabidas = {})
      : tablas_(sabidas ? std::move(sabidas) : std::make_shared<Tablas>()) {}
  virtual ~Catalogo() = default;
  // The table of that name, without regard to case; null when there is none or it can't be read. Valid until olvidar().
  const Tabla* tabla(const QString& nombre) const;
  // The tables have changed.
  void olvidar() { tablas_->clear(); }

 private:
  // Without columns when there is none.
  virtual Tabla leer(const QString& nombre) const = 0;

  std::shared_ptr<Tablas> tablas_;
};
