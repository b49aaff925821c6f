#pragma once
// The central and client databases on a PostgreSQL server: how a person names one, making it, bringing it up to date.
#include <optional>

#include "platform/sql/cadena_conexion.h"
#include "servidores.h"

// The lowest release whose ordering of texts our tables need.
constexpr int kPostgresMinimo = 15;

// The server named "postgres:[USER[:PASSWORD]@]HOST[:PORT][/DATABASE]" ("postgres://..." as well); user, password and
// database may hold %XX. What is left out is taken from `supuestos`. Nothing for another kind of server or a name that
// can't be read.
std::optional<CadenaConexion> leerServidorPostgres(const QString& palabras, const CadenaConexion& supuestos = {});

// The connection string of such a server for Conexion::abrir.
QString cadenaDe(const CadenaConexion& servidor);

enum class FinBase {
  Hecha,
  YaEstaba,  // with the tables of a central or client database; left as it is
  Lejos,     // the server does not answer, or refuses the user
  Fallo      // nothing was made
};
struct ResultadoBase {
  FinBase fin = FinBase::Hecha;
  QString palabras;  // Spanish; "" for Hecha
};

// Makes the database if the server has none of that name, then its tables, functions and procedures and `filas`, in one
// transaction. A database that is there must be empty.
[[nodiscard]] ResultadoBase CrearBasePostgres(const CadenaConexion& servidor, BaseServidor base,
                                              const QStringList& filas);

// Brings its tables to the newest version, and functions and procedures to those of this program, in one transaction. A
// server that is newer than this program is left alone: tables only ever gain columns, so older desks work with it.
[[nodiscard]] Actualizacion ActualizarBasePostgres(const CadenaConexion& servidor, BaseServidor base);

// What a desk must know before it works with the open server, in Spanish: no database of ours, or tables that are older
// than this program. "" when all is well.
QString RevisarBasePostgres(Conexion& servidor, BaseServidor base);
