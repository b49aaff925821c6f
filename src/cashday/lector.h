#pragma once
// Reads the store for a report.
#include "cashday/periodo.h"
#include "platform/sql/recordset.h"

struct Puesto;

// Statements stand as pieces with marks in them: {f} and {p} are the period on Operacion and OperacionParalela, alias
// o; {t} the turn, nothing in a report of the whole day; {valor} the value in soles of a line of Operacion with its
// discount or surcharge, {valorp} the same of OperacionParalelaProducto, alias d; {igv} the tax as a fraction.
//
// "+ 0" and TRIM beside kinds and states are for the planner: of a long history these leave a great part, so the index
// must be that of the period.
//
// After the first statement that fails, its box shown, all others are left out and give nothing.
class LectorReporte {
 public:
  // `turno` is empty or CondicionTurno.
  LectorReporte(Puesto& p, Periodo periodo, Sql turno);

  bool bien() const { return bien_; }
  Recordset filas(const Sql& consulta);
  // The first field of the first row; 0 for Null and for no row.
  double numero(const Sql& consulta);
  qint64 cuantas(const Sql& consulta);

 private:
  Puesto& p_;
  Periodo periodo_;
  Sql turno_;
  bool bien_ = true;
};
