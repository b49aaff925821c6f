#pragma once
// What all maintenance screens share: a list with "&Nuevo", "&Editar", "&Borrar" and "&Ver", a detail in one of four
// modes.
#include <QString>

enum class ModoDetalle { Nuevo = 0, Editar = 1, Borrar = 2, Ver = 3 };

// "Nuevo Producto", "Editar Producto", "Borrar Producto", "Producto".
QString TituloDetalle(ModoDetalle modo, const QString& nombre);

// In the other two the fields are locked.
inline bool SeEdita(ModoDetalle modo) { return modo == ModoDetalle::Nuevo || modo == ModoDetalle::Editar; }
