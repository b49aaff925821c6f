#pragma once
// Operation codes and document numbers. A number is printed on fiscal paper, so the desk's own counter is never
// trusted by itself: each number is held against what is stored here and what the central database has seen.
//
// Facturas and boletas share one run of numbers, in the boletas' row of Config_Documento; each type of parallel
// document has its own.
#include <QString>

#include "store/codigos.h"

struct Puesto;

struct NumeroDocumento {
  qint64 numero = 0;
  QString serie;
};

// Stem of the log file that a corrected number leaves in the temp folder, with and without a central figure.
struct NombreLog {
  QString conCentral, sinCentral;
};
inline const NombreLog kLogCajaFull{QStringLiteral("Error_Full_1"), QStringLiteral("Error_Full_1")};
inline const NombreLog kLogFacturacion{QStringLiteral("Error_Full2"), QStringLiteral("Error_Full2")};

// The series of a type on a new desk, `caja`, where no other desk has the same. That of facturas is only in their own
// row: they are numbered in the boletas' one.
QString SerieInicial(TipoDocumento tipo, const QString& caja);

// The next operation code of Operacion or, `paralela`, of OperacionParalela; 1 for an empty table. False when the store
// can't be read, and then the box has been shown.
[[nodiscard]] bool CodigoOperacion(Puesto& p, bool paralela, qint64& codigo);

// Series and next number as Config_Documento has them; those of a new desk without a row. Sets the session's series of
// boletas or facturas. Writes nothing: the number is used up by GuardarNumeroDocumento. False when the row can't be
// read.
[[nodiscard]] bool LeerNumeroDocumento(Puesto& p, TipoDocumento tipo, NumeroDocumento& n);

// The series that boletas carry, read from the store while the session has none yet. Makes no row: the first boleta
// does, with its number.
[[nodiscard]] bool SerieDeBoletas(Puesto& p, QString& serie);

// Holds the number against the highest one stored and, for a fiscal document, the highest one of the central database,
// which is asked with the patience of a sale; away, it is left out. A number that isn't the next one is corrected: a
// log file in the temp folder, one box, and the sale goes on. False, with `n` untouched, when the store can't be read.
[[nodiscard]] bool VerificarNumeroDocumento(Puesto& p, TipoDocumento tipo, const NombreLog& log, NumeroDocumento& n);

// Tells that a number was corrected: the log file of that stem, and the box.
void AvisarNumeroCorregido(Puesto& p, TipoDocumento tipo, const QString& log, qint64 viejo, qint64 nuevo);

// Stores series and number as the last ones used; a missing row is made.
[[nodiscard]] bool GuardarNumeroDocumento(Puesto& p, TipoDocumento tipo, const NumeroDocumento& n);

// The three above, in that order. When it returns true the number is used, also if the caller fails later; when it
// returns false the box has been shown, the number is still free and `n` is untouched.
[[nodiscard]] bool ReservarDocumento(Puesto& p, TipoDocumento tipo, const NombreLog& log, NumeroDocumento& n);

// Keeps the operation code and the user of the last document of that type, and for a parallel document its number
// too. A factura touches a row of its own here; a missing row is made.
[[nodiscard]] bool GuardarUltimaOperacion(Puesto& p, TipoDocumento tipo, qint64 codigo, qint64 numero);
// Its statement, for a type whose row has been made: by the reservation of the number.
Sql SentenciaUltimaOperacion(const Puesto& p, TipoDocumento tipo, qint64 codigo, qint64 numero);

// At start and at the first contact with the central database: pulls the counters up to what it has seen of this desk
// and leaves marker rows that no report sees. False when it is away or can't tell; then nothing has changed.
// poCnnCentral stays open.
[[nodiscard]] bool RepararNumeracion(Puesto& p);
[[nodiscard]] bool RepararNumeracionParalela(Puesto& p);

// Behind them: operation codes and the numbers of Z rows go above what the central database, open, holds of this desk,
// by marker rows as well; documents that are open here and settled or voided there take that state. A store that was
// lost or put back from an older copy then never meets its own past there. One
// that can't be read changes nothing; the next start tries again.
void RepararCodigos(Puesto& p);
