#pragma once
// The short closing report of one kind of parallel document, 27 columns wide, on the alternate printer's driver.
#include <QDateTime>
#include <QStringList>
#include <optional>
#include <vector>

#include "store/codigos.h"

struct DocumentoImpreso;
struct Puesto;

// A line of a document. One that has none of its own is one line by itself: its amount, once.
struct LineaParalela {
  QString nombre;
  double precio = 0, cantidad = 0, porcentaje = 0;  // soles, units, signed percentage
};
struct TransaccionParalela {
  qint64 codigo = 0;
  std::vector<LineaParalela> lineas;
  double monto = 0;  // soles, discounts and surcharges counted
};

// How often something came in, less how often it went out, and what is left of it in soles.
struct CobroParalelo {
  qint64 cuenta = 0;
  double monto = 0;
};

// What the report tells. Voided documents are left out.
struct DatosReporteParalelo {
  TipoOperacion tipo = TipoOperacion::OC;
  QDateTime momento;
  QStringList cabecera;
  qint64 numero = 0;  // code of the report's own mark
  double unidades = 0, monto = 0;
  std::vector<TransaccionParalela> transacciones;
  CobroParalelo efectivo, tarjetas;
  qint64 cobrados = 0;  // documents with any of both, each once
  QString usuario, caja, turno;
};

DocumentoImpreso PapelReporteParalelo(const DatosReporteParalelo& d);

// Writes the mark of the report (kind 30) and prints. True when it went to print; else a box has told why, and the mark
// may stand all the same. A day without a rate counts its dollars as nothing, after the box that says so.
[[nodiscard]] bool ReporteParalelo(Puesto& p, TipoOperacion nTipo);
