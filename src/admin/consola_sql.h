#pragma once
// The support console: statements in the system's dialect, each answered by one JSON line.
#include <QByteArray>
#include <iosfwd>
#include <optional>

#include "platform/sql/conexion.h"

enum class BasePuesto { Local, Central, Cliente };

// Opens one of the desk's three databases as the till would: the connection settings are those of the table
// Configuracion, then those of KEB.cfg. Reads only, and takes no lock. Gives the words of a failure.
std::optional<QString> AbrirBase(Motores& motores, const QString& carpeta, BasePuesto base, Conexion& cnn);

// The connection string of one of the two servers, by the same settings; `local` is the desk's open store.
QString CadenaDeServidor(Conexion& local, const QString& carpeta, BasePuesto base);

// Whether the statement only changes something. Anything else is asked for rows, which a procedure may or may not give.
bool SoloCambia(const QString& sql);

// Runs one statement. The answer is one JSON object without a line end: {"columnas":[..],"filas":[[..]]} when it gives
// columns, {"afectadas":n} when it doesn't, {"error":{"numero":..,"nativo":..,"descripcion":".."}} when it fails; with
// `traducir` also "sql", the statement as the engine got it.
QByteArray ResponderSentencia(Conexion& cnn, const QString& sql, bool traducir);

// Answers every line of `entrada` that is not blank, each at once.
void ConsolaSql(Conexion& cnn, std::istream& entrada, std::ostream& salida, bool traducir);
