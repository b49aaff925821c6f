#pragma once
// The lines that head every ticket and report.
#include <QString>
#include <vector>

#include "foundation/mantenimiento.h"

struct Puesto;

struct FilaCabecera {
  QString linea, descripcion;
};

// The detail screen: texts as typed.
struct DetalleCabecera {
  ModoDetalle modo = ModoDetalle::Nuevo;
  QString txtLinea, txtDescripcion;
};

// All lines in their order. On failure false: the message has been shown and `filas` is empty.
[[nodiscard]] bool LeerCabecera(Puesto& p, std::vector<FilaCabecera>& filas);

// "Nueva Línea", "Editar Línea", "Borrar Línea", "Ver Línea".
QString TituloCabecera(ModoDetalle modo);

// Fills the detail: mode 0 proposes the next line, the others read it. False when it can't be read or is no longer
// there; a box has told it.
[[nodiscard]] bool CargarCabecera(Puesto& p, ModoDetalle modo, const QString& linea, DetalleCabecera& v);

// Stores by the mode; viewing stores nothing and succeeds. False when the store refused; its box has been shown. A
// blank line is stored and left out on the paper.
[[nodiscard]] bool GuardarCabecera(Puesto& p, const DetalleCabecera& v);

FilaCabecera FilaDe(const DetalleCabecera& v);
