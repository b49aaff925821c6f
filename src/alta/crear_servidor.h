#pragma once
// New central and client databases on the embedded engine.
#include <QStringList>
#include <optional>

// The rows without which no desk can work: tax rate, the desk's warehouse, forms of payment, the locals, the rule of
// points. In SQLite's own language.
QStringList FilasDelCentral(const QString& almacen);
QStringList FilasDelCliente();

// The file behind the server name "sqlite:FILE", seen from `carpeta`; nothing for another kind of server.
std::optional<QString> ArchivoDeServidor(const QString& servidor, const QString& carpeta);
