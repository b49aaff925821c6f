#pragma once
// A closed sale or parallel document as it is stored.
#include <QDateTime>
#include <QString>
#include <vector>

#include "documento/linea.h"
#include "platform/sql/sentencia.h"
#include "store/codigos.h"

struct Puesto;

struct LineaGuardada {
  LineaDocumento linea;
  double servicio = 0;  // percentage charged in this line
};

struct DocumentoGuardado {
  qint64 codigo = 0;
  bool paralela = false;
  TipoOperacion tipo = TipoOperacion::Ninguno;
  QDateTime fecha;
  QString docTipo, docSerie, docNumero;
  QString tarjeta, ruc;
  QString idLocal;  // "" for none; parallel documents have none
  QString usuario, caja, turno;
  bool anulada = false;  // cOperFlagAnula, or cEstado '0' of a parallel document
  bool abierta = false;  // of the open cash day
  bool vigente = false;  // cEstado '1'
  QString glosa;
  qint64 relacion = 0;  // the liquidation that the document closes
  double dolares = 0;   // taken in cash
  double montoSoles = 0, montoDolares = 0;
  bool enDolares = false;
  double efectivo = 0, vuelto = 0;    // soles, parallel documents only
  std::vector<LineaGuardada> lineas;  // only those of known articles: no tender row
};

enum class LecturaDocumento { Fallo, NoExiste, Leida };

// Reads the document of that code: a sale by its rows of Operacion, those of parallel documents with the same code
// left out, or a parallel document. Fallo: the box has been shown.
LecturaDocumento LeerDocumento(Puesto& p, qint64 codigo, bool paralela, DocumentoGuardado& t);

// The condition that leaves out the rows that parallel documents keep in Operacion under codes of their own.
Sql SinParalelas();

// Whether the document has been voided: a sale by the mirrors of its lines. False when the store can't be read, and
// then the box has been shown.
[[nodiscard]] bool LeerAnulada(Puesto& p, const DocumentoGuardado& t, bool& anulada);
