#pragma once
// The kinds of payment card.
#include <QString>
#include <vector>

#include "foundation/mantenimiento.h"

struct Puesto;

constexpr int kLargoCodigoTarjeta = 5;

struct FilaTipoTarjeta {
  QString codigo, descripcion;
};

// The detail screen: texts as typed.
struct DetalleTipoTarjeta {
  ModoDetalle modo = ModoDetalle::Nuevo;
  QString txtcod, txtDes;
  QString campoMal;
};

// All kinds. On failure false: the message has been shown and `filas` is empty.
[[nodiscard]] bool LeerTiposTarjeta(Puesto& p, std::vector<FilaTipoTarjeta>& filas);

// "Crear Nuevo", "Modificar", "Consulta".
QString TituloTipoTarjeta(ModoDetalle modo);

// Fills the detail: adding proposes the next code of three digits, else the row stands there as shown. False when the
// code can't be proposed; the message has been shown.
[[nodiscard]] bool CargarTipoTarjeta(Puesto& p, ModoDetalle modo, const FilaTipoTarjeta& fila, DetalleTipoTarjeta& v);

// Checks and stores by the mode. On failure false: a box has told why, and `campoMal` names the field, "" when the
// store refused.
[[nodiscard]] bool GuardarTipoTarjeta(Puesto& p, DetalleTipoTarjeta& v);

FilaTipoTarjeta FilaDe(const DetalleTipoTarjeta& v);
