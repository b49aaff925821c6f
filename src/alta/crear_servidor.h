#pragma once
// New central and client databases.
#include <QStringList>
#include <optional>

#include "platform/sql/cadena_conexion.h"
#include "servidores.h"

// The rows without which no desk can work: tax rate, the desk's warehouse, forms of payment, the locals, the rule of
// points. Plain enough for every engine.
QStringList FilasDelCentral(const QString& almacen);
QStringList FilasDelCliente();

// The file behind the server name "sqlite:FILE", seen from `carpeta`; nothing for another kind of server.
std::optional<QString> ArchivoDeServidor(const QString& servidor, const QString& carpeta);

// How a server that is none of this machine's files is entered.
struct AccesoServidor {
  QString base, usuario, clave;
};

// The PostgreSQL server behind "postgres:[USER[:PASSWORD]@]HOST[:PORT][/DATABASE]". What its words leave out is taken
// from `acceso`, then the database named after its kind and the user "tarvopos". Nothing for another kind of server.
std::optional<CadenaConexion> ServidorDePalabras(const QString& palabras, BaseServidor base,
                                                 const AccesoServidor& acceso = {});
