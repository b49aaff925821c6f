#pragma once
// What the engine's schema says of tables and columns, as far as the rewriting needs it.
#include <QHash>
#include <QString>
#include <vector>

struct sqlite3;

// Type of a column or of an expression. `Numero` is a number of which only the running statement knows whether it
// is whole; `Real` is never stored whole.
enum class Tipo { Desconocido, Nulo, Logico, Entero, Numero, Real, Texto, Fecha };

inline bool esNumerico(Tipo t) {
  return t == Tipo::Entero || t == Tipo::Numero || t == Tipo::Real || t == Tipo::Logico;
}

struct Columna {
  QString nombre;
  Tipo tipo = Tipo::Desconocido;
  bool sinCaso = false;  // declared COLLATE NOCASE
  bool real = false;     // a column of a table, not an expression of a derived one
};

struct Tabla {
  QString nombre;
  std::vector<Columna> columnas;
};

// The type that a declaration such as "DATETIME" or "VARCHAR(10)" stands for.
Tipo tipoDeclarado(const QString& declaracion);
// ... and back: how a column of that type is declared.
QString declaracionDe(Tipo tipo);

class Catalogo {
 public:
  // Reads all tables of `base`. A failure leaves the catalogue empty: nothing is then known of any type.
  void leer(sqlite3* base);
  // The table of that name, without regard to case; null when there is none. Valid until the next leer().
  const Tabla* tabla(const QString& nombre) const;
  void agregar(Tabla tabla);

 private:
  QHash<QString, Tabla> tablas_;
};
