#pragma once
// What the commits of all screens share: the data that live for the length of one commit, and the steps over them that
// don't differ from screen to screen. A screen derives its own data from CommitDocumento and puts these steps into its
// list by Comun<Step, ItsData> (documento/pasos.h), among its own.
#include "documento/filas_operacion.h"
#include "documento/ticket.h"
#include "store/numeracion.h"

struct CommitDocumento {
  ClaseDocumento clase = ClaseDocumento::VentaExacta;
  DatosOperacion o;   // what the rows take
  QDateTime momento;  // of all its rows, to the minute; o.fecha is its text
  NumeroDocumento documento;
  NombreLog logReserva = kLogCajaFull, logFinal = kLogCajaFull;

  // As they are printed
  QString tarjeta, nombre, ruc;  // 8 digits or "", as typed, as typed
  QString supervisor;            // "" when nothing had to be authorised
  std::vector<LineaDocumento> lineas;
  std::vector<NotaTicket> notas;  // of a liquidation, in place of lines
  FormaLineas forma;
  std::vector<RenglonTotal> totales;
  std::optional<PuntosTicket> puntos;
  std::optional<QDateTime> momentoImpreso;  // of a copy, that of its document; else the present one
  bool sinHora = false;                     // the document keeps its day only
  QString usuario, turno;                   // of a copy as well; "" for those of the session

  double total = 0;  // soles: the figure that earns points
  int idLocal = 0;   // the customer's site, 0 when there is none
  EfectivoDocumento efectivo;

  bool factura() const { return o.documento == TipoDocumento::Factura; }
};

// Card and site as they stand on the screen. A number that is nobody's leaves the document without a card; a site that
// is no number is stored as none.
void FijarCliente(CommitDocumento& c, const QString& tarjeta, const QString& local);
// Factura with a RUC, boleta without; a parallel document takes its own type.
void FijarTipoDocumento(CommitDocumento& c, const QString& ruc);

// Steps. Each gives false only where the commit must end; the box has been shown then.

// The moment that all rows carry, to the minute.
[[nodiscard]] bool FijarFecha(Puesto& p, CommitDocumento& c);
// The drawer, where the desk has one. Never ends a commit.
[[nodiscard]] bool AbrirCajon(Puesto& p, CommitDocumento& c);
// Chooses the printer and draws the operation code of the kind's table.
[[nodiscard]] bool TomarCodigo(Puesto& p, CommitDocumento& c);
[[nodiscard]] bool CargarCabecera(Puesto& p, CommitDocumento& c);
// Takes the document number: it is used from here on, whatever follows.
[[nodiscard]] bool ReservarNumero(Puesto& p, CommitDocumento& c);
// The ticket out of what stands above, on the kind's printer, with its correlative. Never ends a commit.
[[nodiscard]] bool ImprimirTicket(Puesto& p, CommitDocumento& c);
// The number of a boleta or factura once more, now that the paper is out: the rows must not take one that the store
// has seen meanwhile.
[[nodiscard]] bool VerificarNumero(Puesto& p, CommitDocumento& c);
// Code, user and, for a parallel document, number as the last ones of the type.
[[nodiscard]] bool GuardarUltima(Puesto& p, CommitDocumento& c);
