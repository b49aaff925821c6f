#pragma once
// The period that a report of the day covers, as conditions that stand behind a statement of the store.
#include <QDate>

#include "platform/sql/sentencia.h"

struct Puesto;

// Conditions on the table with the alias `o`, each beginning with " and ".
struct Periodo {
  Sql sFiltro;   // on Operacion
  Sql sFiltroP;  // on OperacionParalela
};

// The day under way: above its watermarks, or by the open flag when one of them is blank. False when they can't be
// read, the box has been shown and the open flag bounds the period.
bool LeerPeriodo(Puesto& p, Periodo& periodo);

// A past day.
Periodo PeriodoDeFecha(const QDate& fecha);

// The condition that leaves one turn.
Sql CondicionTurno(const QString& turno);
