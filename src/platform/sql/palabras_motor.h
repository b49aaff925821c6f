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
  QStringView fila;       // the column that tells the rows of a table apart
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
};

extern const PalabrasMotor kPalabrasSqlite;
