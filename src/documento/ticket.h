#pragma once
// The printed ticket: fixed-column text for a roll of 40 characters, line ends CR LF. Building blocks first, then the
// whole. Everything here is plain functions over plain data and cannot fail.
#include <QDateTime>
#include <QStringList>
#include <optional>
#include <vector>

#include "documento/clase.h"
#include "documento/linea.h"
#include "foundation/textos_papel.h"

// 39 dashes, without a line end.
QString Separador();
// Centred in 40 columns; a text longer than that loses characters on its left.
QString LineaCentrada(const QString& texto);

// Pieces that the copy and the void of a document print as its ticket does.

// The print header: its lines that aren't blank, each centred.
QString LineasCabecera(const QStringList& cabecera);
// " RUC Cliente: " and the number, with its line end.
QString LineaRuc(const QString& ruc);
// Series and number as printed: "001-000033" with six digits, the last ones of a longer number.
QString NumeroImpreso(const QString& serie, const QString& numero, int digitos = 6);
// The same with the printer's serial mark behind it.
QString NumeroConMarca(const QString& serie, const QString& numero, const QString& marca);
// "U$(TC: 3.50)", the word of a sale that took dollars.
QString PalabraDolares(double tipoCambio);
// The slogan of the shop that ends a sale's paper, two line ends in front.
QString LineaLema(const QString& lema);

// A line of the totals. The value is a finished text.
struct RenglonTotal {
  QString etiqueta, valor;
  bool ancho = false;  // value in 19 columns instead of 15
  bool llano = false;  // both as they are, no columns
};
QString LineaTotal(const RenglonTotal& renglon);
// A total with mask "0.00".
RenglonTotal Total(const QString& etiqueta, double valor);

// The columns of the article lines.
struct FormaLineas {
  QString titulo = QStringLiteral("Producto         Cant Precio  SubTotal ");
  int descripcion = 16, cantidad = 4, precio = 6, importe = 9;
  QString mascara = QStringLiteral("0.00"), mascaraItem = QStringLiteral("0.00");
  QString turno = QStringLiteral(" T:");  // before the turn, at the end of the ticket
  bool entero = false;  // a figure wider than its column takes the room from the description, in place of being cut
};
// The article line and, with a discount, the line below it. No line end behind the last of them.
QString LineasArticulo(const LineaDocumento& linea, const FormaLineas& forma);

// What the document earned and what the card holds with it.
struct PuntosTicket {
  int ganados = 0;
  double acumulado = 0;  // a negative balance prints as "**"
};
// Two lines, with an empty one behind them.
QString LineasPuntos(const PuntosTicket& puntos);

// What a liquidation settles: a note and its lines.
struct NotaTicket {
  qint64 tx = 0;
  std::vector<LineaDocumento> lineas;
};

struct DatosTicket {
  ClaseDocumento clase = ClaseDocumento::VentaExacta;
  // Customer and document
  bool factura = false;
  QStringList cabecera;
  QString tarjeta, nombre, ruc;
  QString serie, serieImpresora;
  qint64 numero = 0;
  bool dolares = false;  // a cash sale in which dollars were taken
  double tipoCambio = 0;
  // Body
  FormaLineas forma;
  std::vector<LineaDocumento> lineas;
  std::vector<NotaTicket> notas;  // of a liquidation, in place of lines
  std::vector<RenglonTotal> totales;
  // Close
  std::optional<PuntosTicket> puntos;
  QDateTime momento;
  bool sinHora = false;  // only its day is known
  QString supervisor;    // "" when nothing had to be authorised
  QString usuario, caja, turno, correlativo;
  QString lema = TextosPapel().Lema;
};

// The whole ticket. An item that prints nothing brings no line end either.
QString TextoTicket(const DatosTicket& t);
