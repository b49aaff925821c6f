#pragma once
// A PostgreSQL server of the test program's own, in a folder under /tmp, on loopback.
#include <unistd.h>

#include <QProcess>
#include <memory>

#include "platform/sql/cadena_conexion.h"
#include "platform/sql/recordset.h"
#include "postgres/servidor_demo.h"
#include "servidores.h"

class ServidorPrueba {
 public:
  // Started at the first call, ended by its own process with the program.
  static ServidorPrueba& uno();
  ~ServidorPrueba();
  ServidorPrueba(const ServidorPrueba&) = delete;

  // A database with the tables, functions and procedures of that kind, without rows; `filas` are added. Each call gives
  // another one.
  CadenaConexion base(BaseServidor clase, const QStringList& filas = {});
  // A name that no database has.
  CadenaConexion sinBase();

  // Statements in the server's own language, as its owner; a failure is a failed test.
  Recordset crudo(const CadenaConexion& base, const QString& sql);

  // "127.0.0.1:PORT" and the words of a person.
  QString servidor() const { return QStringLiteral("127.0.0.1:%1").arg(demo_.puerto); }
  QString palabras() const { return demo_.palabras(); }
  // Ends it as a power cut would, and starts it again on the same port.
  void cortar();
  void volver();

 private:
  ServidorPrueba();
  void arrancar();

  ServidorDemo demo_;
  std::unique_ptr<QProcess> proceso_;
  pid_t duenio_ = ::getpid();
  int bases_ = 0;
  bool modelos_[2] = {};
};
