#pragma once
// The points of a customer's card. A customer is always the pair of code and site; only customers of kind 1 earn
// points. Amounts in soles. Nothing here stops a sale: what fails has shown its box.
#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

#include "documento/commit_documento.h"

class Sql;
struct Puesto;

// The document that points belong to: cDocTipo, series and number.
struct ClavePuntos {
  QString tipo, serie;
  qint64 numero = 0;
};

// The points that an amount earns by the session's rule, whole units only, never rounded up. A rule of 0 soles counts
// as 1.
int CalcularPuntos(const Puesto& p, double importe);

// Whether a document earns points at all: a card's number, an amount above 0, and no liquidation, whose notes have
// earned theirs.
[[nodiscard]] bool GanaPuntos(const ClavePuntos& documento, const QString& tarjeta, double importe);

// The balance of a card as text, "-1" when there is none to show: no such card, a customer of another kind, or the
// client database away. "0" when it can't be read, and then the box has been shown.
QString SaldoPuntos(Puesto& p, const QString& tarjeta, int idLocal);

// The points lines of a document about to be printed, with the balance before its own points. Nothing when the document
// earns none or the card has no balance to show.
std::optional<PuntosTicket> PuntosDelTicket(Puesto& p, const ClavePuntos& documento, const QString& tarjeta,
                                            int idLocal, double importe);

// Records the points of a document whose rows are stored, under the moment of that document; nothing when GanaPuntos
// says no or the customer is of another kind. Goes to the client database. When that is away or locked, and without a
// site when several have issued the card, it goes to the queue in the store, the store's copies of cards and customers
// standing in for a database that is away. Leaves poCnnCliente closed.
void AcumularPuntos(Puesto& p, const QString& tarjeta, const ClavePuntos& documento, double importe, int idLocal,
                    const QDateTime& momento);

// The statements that take a document's points out of the queue, and off the store's copy of the customer's balance,
// for the transaction of its void; none when nothing waits. False when the queue can't be read, and then the box has
// been shown.
[[nodiscard]] bool LeerPuntosEnEspera(Puesto& p, const ClavePuntos& documento, std::vector<Sql>& quitarlos);

// The two as steps of a commit: before the ticket, and behind the rows. Neither ends a commit.
[[nodiscard]] bool LeerPuntos(Puesto& p, CommitDocumento& c);
[[nodiscard]] bool Acumular(Puesto& p, CommitDocumento& c);

struct ClienteTarjeta {
  QString codigo = QStringLiteral("0");
  QString nombre = QStringLiteral("Público en General");
  int tipo = 0;
};
// The customer of a card, surname and name with the surname cut to 50 characters; as above when there is none or the
// client database is away. The connection stays open for the next call.
ClienteTarjeta ClienteDeTarjeta(Puesto& p, const QString& tarjeta, int idLocal);

// Takes back the points of a voided sale of that amount, and its rows, in the client database, which is tried once
// whatever came of it before. There is no queue for it: when the database is away or a statement fails a box says so
// and the points stay. Points that were `enEspera` never left the store, unless their row stands in the client database
// all the same: a sending was cut off before it marked them. Leaves poCnnCliente closed.
void Extorna_puntos(Puesto& p, const QString& tarjeta, double Total, int nIdLocal, const ClavePuntos& documento,
                    bool enEspera = false);
