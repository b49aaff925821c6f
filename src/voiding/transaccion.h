#pragma once
// A closed sale or parallel document as it is stored, and how far a void of it has come.
#include <QDateTime>
#include <QString>
#include <vector>

#include "documento/linea.h"
#include "store/codigos.h"

struct Puesto;

struct LineaTransaccion {
  LineaDocumento linea;
  double servicio = 0;  // percentage charged in this line
};

struct Transaccion {
  qint64 codigo = 0;
  bool paralela = false;
  TipoOperacion tipo = TipoOperacion::Ninguno;
  QDateTime fecha;
  QString docTipo, docSerie, docNumero;
  QString tarjeta, ruc;
  QString idLocal;  // "" for none; parallel documents have none
  QString usuario, caja, turno;
  bool anulada = false;   // cOperFlagAnula, or cEstado '0' of a parallel document
  bool abierta = false;   // of the open cash day
  bool vigente = false;   // cEstado '1'
  qint64 relacion = 0;    // the liquidation that the document closes
  qint64 anuladaPor = 0;  // of a parallel document: the code of its void
  double dolares = 0;     // taken in cash
  double montoSoles = 0, montoDolares = 0;
  bool enDolares = false;
  double efectivo = 0, vuelto = 0;       // soles, parallel documents only
  std::vector<LineaTransaccion> lineas;  // only those of known articles: no tender row
};

enum class LecturaTransaccion { Fallo, NoExiste, Leida };

// Reads the document of that code: a sale by its rows of Operacion, those of parallel documents with the same code
// left out, or a parallel document. Fallo: the box has been shown.
LecturaTransaccion LeerTransaccion(Puesto& p, qint64 codigo, bool paralela, Transaccion& t);

// The condition that leaves out the rows that parallel documents keep in Operacion under codes of their own.
extern const QString kSinParalelas;
// Conditions on the rows that a liquidation left under its own code.
extern const QString kDeLiquidacion;
// The condition on the rows that a parallel document keeps in Operacion.
extern const QString kDineroParalelo;

enum class Anulada { No, AMedias, Del_todo };

// How far the void of a transaction has come: one that was cut off in the middle can be taken up again.
struct AvanceAnulacion {
  Anulada estado = Anulada::No;
  qint64 codigo = 0;  // the void's own, 0 for none yet
  size_t lineas = 0;  // of a sale: mirrored so far
};

// False when the store can't be read, and then the box has been shown.
[[nodiscard]] bool LeerAvance(Puesto& p, const Transaccion& t, AvanceAnulacion& avance);
