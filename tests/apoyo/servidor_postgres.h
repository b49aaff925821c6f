#pragma once
// The PostgreSQL server of the tests: the one at TARVOPOS_PG ("host:port", user postgres without a password), else one
// of its own in a temporary folder, started with the first test that asks for it and stopped at the end of the program.
#include <QString>

class ServidorPostgres {
 public:
  // Fails the test when there is neither.
  static ServidorPostgres& uno();
  ~ServidorPostgres();

  QString servidor() const { return servidor_; }  // host:port
  // A new database with the dialect's functions and a clock that stands still, 24/11/2026 17:05:30; its name.
  QString crearBase();
  void borrarBase(const QString& nombre);
  QString cadena(const QString& base) const;
  // In the server's own words, on a database.
  bool correr(const QString& base, const QString& guion);

 private:
  ServidorPostgres();
  void arrancar();

  QString servidor_, plantilla_, carpeta_;
  qint64 proceso_ = 0;
  int bases_ = 0;
};
