#pragma once
// The exchange rate of each day, in soles per dollar.
#include <QString>
#include <vector>

#include "foundation/mantenimiento.h"

struct Puesto;

struct FilaTipoCambio {
  QString fecha;  // dd/mm/yyyy
  QString monto;  // mask "###,###,##0.00"
};

// The detail screen: texts as typed.
struct TipoCambio {
  ModoDetalle modo = ModoDetalle::Nuevo;
  QString txtFecha;  // dd/mm/yyyy once it has been left
  QString txtTC;     // soles per dollar
  QString campoMal;  // name of the field that was refused
};

// All rates by date. On failure false: the message has been shown and `filas` is empty.
bool LeerTiposCambio(Puesto& p, std::vector<FilaTipoCambio>& filas);

// Fills the detail: mode 0 proposes today, the others read the rate of `fecha`. False when it can't be read (the
// message has been shown) or is no longer there (a box says so).
bool CargarTipoCambio(Puesto& p, ModoDetalle modo, const QString& fecha, TipoCambio& v);

// Checks and stores by the mode; viewing stores nothing and succeeds. On failure false: a box has told why, and
// `campoMal` names the field, "" when the store refused. Date and rate come back as they were stored.
bool GuardarTipoCambio(Puesto& p, TipoCambio& v);

FilaTipoCambio FilaDe(const TipoCambio& v);

// The texts as they stand after their field was left; what is no date, or no amount, stays as typed.
QString MascaraFecha(const QString& texto);
QString MascaraTipoCambio(const QString& texto);
