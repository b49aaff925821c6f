#pragma once
// Connection strings: "key=value;key=value", keys without regard to case.
//
//   driver={Microsoft Access Driver (*.mdb)};Password=...;DBQ=path      SQLite file at that path, Jet dialect
//   Provider=SQLOLEDB.1;...;Data Source=sqlite:name                     SQLite file in the program folder, T-SQL
//   Provider=SQLOLEDB.1;...;Data Source=postgres:host[:port]            PostgreSQL, T-SQL
//   Provider=SQLOLEDB.1;...;Data Source=anything else                   SQL Server through ODBC
#include <QString>

#include "platform/sql/token.h"

enum class TipoMotor { Local, Embebido, Postgres, SqlServer };

struct CadenaConexion {
  TipoMotor tipo = TipoMotor::SqlServer;
  QString archivo;   // Local: the path; Embebido: the name in the program folder
  QString servidor;  // host[:port] or the server's name
  QString usuario, clave, catalogo;
};

// A string without driver and without data source reads as SqlServer with an empty server.
CadenaConexion leerCadenaConexion(const QString& cadena);

// The string of a server in the settings, blanks off the ends of each part.
QString cadenaDeServidor(const QString& usuario, const QString& clave, const QString& catalogo,
                         const QString& servidor);

// The dialect of the statements for such a connection.
Dialecto dialectoDe(const QString& cadena);
