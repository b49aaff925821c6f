#pragma once
// The words of an engine, one constant table each: all that the rewriting puts into a statement and that engines say
// differently. Functions of the dialects that an engine lacks bear the names of funciones_dialecto on every engine.
#include <QString>
#include <QVariant>

#include "platform/sql/catalogo.h"

struct PalabrasMotor {
  QStringView colacion;   // behind an expression: it compares as the dialects do
  QStringView suelta;     // before a column that no index of another comparison may serve
  QStringView parametro;  // a bound literal; its number follows
  QStringView fila;       // the column that tells the rows of a table apart ...
  QStringView nulosSube;  // behind a rising key of ORDER BY, where Nulls come first
  QStringView nulosBaja;  // behind a falling one, where they come last
  QStringView sinNombre;  // the name of a query between tables that has none; empty where it needs none
  bool asEnCambios;       // whether the table that is changed takes its alias with AS only
  QStringView dividir;    // in the place of "/" between numbers that may be whole: keeps what is behind the point
  QStringView parece;     // LIKE as a call, up to its first argument ...
  QStringView noParece;   // ... and NOT LIKE, which is closed by one parenthesis more
  QStringView nada;       // a statement that does nothing and gives no rows
  QStringView tope;       // behind a query: no more rows than the number that follows
  QString (*literal)(const QVariant& valor);  // a qint64, double or text as it stands in a statement
  QString (*citado)(QString nombre);          // a name as it stands
  QStringView (*tipo)(Tipo tipo);             // how a column of that type is declared; empty for none
  // Of an engine that knows types, not values: it wants one type where the dialects mix them, names as it folds them,
  // and a column of texts compares there as the dialects do, whatever stands beside it.
  bool tipado = false;
  QStringView parte{};       // ... within this one, where a table may be several; empty where none is
  QStringView funciones{};   // before the name of a function of the dialects or of a server
  QStringView divisor{};     // before what must not be zero, where the engine itself doesn't mind
  QStringView recursiva{};   // behind WITH
  QStringView empieza{};     // LIKE as a call, where an index may find what the pattern begins with
  QStringView sumaEntera{};  // behind a sum of whole numbers, which is one
  QString (*declarado)(const QString& tipo) = nullptr;  // a type as the dialect declares it, in capitals; "" keeps it
};

extern const PalabrasMotor kPalabrasSqlite;
extern const PalabrasMotor kPalabrasPostgres;
