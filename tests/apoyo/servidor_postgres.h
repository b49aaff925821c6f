#pragma once
// The PostgreSQL server of the dialect's tests: the one at TARVOPOS_PG ("host:port", user postgres without a password),
// else the test program's own (servidor_prueba.h).
#include <QString>

class ServidorPostgres {
 public:
  // Fails the test when there is neither.
  static ServidorPostgres& uno();
  ~ServidorPostgres();

  QString servidor() const;  // host:port
  // A new database with the dialect's functions and a clock that stands still, 24/11/2026 17:05:30; its name.
  QString crearBase();
  void borrarBase(const QString& nombre);
  QString cadena(const QString& base) const;
  // In the server's own words, on a database.
  bool correr(const QString& base, const QString& guion);

 private:
  ServidorPostgres();

  QString plantilla_;
  int bases_ = 0;
};
