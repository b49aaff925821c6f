#pragma once
// The cross-check of a day: what the store says of the desk's sales against what the central database received. Each
// check that finds a difference raises one alarm: a mail (CorreoSalida, addresses of the central `parametro`, CORREODE
// and CORREOPARA), a row of MsgErrorRegistroVentas, and a box. All need the central database; without it they end in
// silence, as they do at a query that fails.
#include <QDate>
#include <QString>

struct Puesto;

// The document numbers of both series of the shared run have no hole.
void CompararCorrelativos(Puesto& p, QDate dia);
// Units sold.
void CompararSumaProductos(Puesto& p, QDate dia);
// Lines sold.
void CompararCantidadProductos(Puesto& p, QDate dia);
// Lines and net value of each series, each line rounded to the cent on both sides.
void CompararTotalesSerie(Puesto& p, QDate dia);

// Lines and net value (soles without tax) of a series in the store; false when it has none that day.
bool TotalesLocalesSerie(Puesto& p, const QString& serie, QDate dia, qint64& cantidad, double& monto);

// All four, for the days that the last closing has closed, once its Z stands in the central database.
void CompararUltimoCierre(Puesto& p);
