#pragma once
// The text of a report out of its figures. Nothing here reads or writes; it cannot fail.
#include <QDateTime>
#include <QStringList>
#include <optional>

#include "cashday/cifras_paralelas.h"
#include "cashday/impuestos.h"

// What the letter Z adds.
struct BloqueZ {
  struct Ticket {
    double cuantos = 0, monto = 0;
  };
  std::vector<std::pair<QString, QString>> rangos;  // first and last number, "" for none
  std::vector<Ticket> boletas, facturas;
  std::optional<std::vector<FilaProductoReporte>> notas;  // alternate printer only
  QString codigo, acumulado;                              // the two finished lines
};

struct DatosReporte {
  QString letra;
  QDateTime momento;
  std::optional<QDate> fecha;  // of a report by date
  QStringList cabecera;
  QString serieImpresora;

  CifrasReporte cifras;
  std::optional<CifrasParalelas> paralelas;  // makes it an X-1 or Z1
  std::optional<BloqueZ> z;
  std::optional<Impuestos> impuestos;

  QString usuario, caja, turno, porcServ, correlativo;
};

// The two lines of a document type's totals.
QStringList LineasTicket(const BloqueZ::Ticket& t);

BloquesInforme PapelDeReporte(const DatosReporte& d);
