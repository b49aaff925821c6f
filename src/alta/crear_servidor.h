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

// The PostgreSQL server behind "postgres:USER:PASSWORD@HOST[:PORT][/DATABASE]": without a database the one named after
// its kind, without a user "tarvopos". Nothing for another kind of server.
std::optional<CadenaConexion> ServidorDePalabras(const QString& palabras, BaseServidor base);
