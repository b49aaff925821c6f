#pragma once
// The statements that a void writes into the store, in their order. They stand together or not at all.
#include <vector>

#include "voiding/documento_guardado.h"

class Sql;
struct Puesto;

// A mirror of each line under the void's code, and the mark on the rows of the sale.
std::vector<Sql> FilasDeVenta(const Puesto& p, const DocumentoGuardado& t, qint64 codigo, const QString& fecha);

// The void's own row, the mark on the document, its money taken out of Operacion.
std::vector<Sql> FilasDeParalela(const Puesto& p, const DocumentoGuardado& t, qint64 codigo, const QString& fecha);

// What a liquidation had taken up becomes open again, and the liquidation and its money go.
std::vector<Sql> FilasDeLiquidacion(qint64 liquidacion);
