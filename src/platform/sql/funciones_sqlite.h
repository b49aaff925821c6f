#pragma once
// The functions and the collation that the dialects need and the engine lacks. Their names begin with "tp_", since
// several of the dialects' names mean something else there.
#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>
#include <set>

#include "platform/sql/instante.h"

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

// What the functions of one connection share; outlives the connection.
struct EntornoFunciones {
  Dialecto dialecto = Dialecto::Jet;
  std::function<QDateTime()> ahora;
  std::set<const void*> registradas;  // what the connection has of them
  bool conColacion = false;
};

// Registers what `sentencia`, in the engine's language, names and was not registered before: a connection that lives
// for one statement would spend more on all of them than on that. Gives back an engine's code, 0 when all are in place.
int registrarFunciones(sqlite3* base, EntornoFunciones& entorno, const QByteArray& sentencia);

// The moment that a value stands for; a number counts days.
std::optional<QDateTime> instanteDe(sqlite3_context* c, sqlite3_value* v);

// The number of a part of a date, named as in DATEPART (q, ww ...); nothing for a name that is none. Weeks begin on
// `primero`, 1 for Sunday to 7; a day out of that range counts as the nearest.
std::optional<int> parteDeFecha(const QDateTime& f, const QString& nombre, int primero = 1);

// Shared by the files of functions.
using FuncionSql = void (*)(sqlite3_context*, int, sqlite3_value**);
struct EntradaFuncion {
  const char* nombre;
  int argumentos;
  FuncionSql funcion;  // a step of it, where `final` gives the answer
  void (*final)(sqlite3_context*) = nullptr;
};
bool hayNulo(int n, sqlite3_value** v);
QString textoDe(sqlite3_value* v);
double numeroDe(sqlite3_value* v);
void darTexto(sqlite3_context* c, const QString& texto);
void darError(sqlite3_context* c, const QString& texto);
EntornoFunciones& entornoDe(sqlite3_context* c);

// The functions of each file, closed by a null name.
const EntradaFuncion* funcionesDeNumero();
const EntradaFuncion* funcionesDeTexto();
const EntradaFuncion* funcionesDeFecha();
const EntradaFuncion* funcionesDeFormato();
