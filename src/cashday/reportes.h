#pragma once
// The reports of the cash day. X and Z go to the main printer, X-1 and Z1 to the alternate one; each of them can be had
// again for a past date.
#include <QString>

struct Puesto;

// What is asked for.
struct PedidoReporte {
  int nOperTipo = 10;
  QString letra = QStringLiteral("X");
  bool soloTurno = true;
  int intentos = 4;     // how often it is tried in all
  int iCierreCaja = 0;  // the step of the closing that stands in the store once the report is done; 0 for no closing
};

inline PedidoReporte PedidoX() { return {}; }
inline PedidoReporte PedidoZ(int iCierreCaja) {
  return {.nOperTipo = 11, .letra = QStringLiteral("Z"), .soloTurno = false, .intentos = 3, .iCierreCaja = iCierreCaja};
}

enum class FinReporte {
  Hecho,     // the text went its way to the printer and all rows are written
  SinFecha,  // the date was cancelled or is none
  Fallo      // the store failed at each attempt
};

// How a report ended. Whatever the end, its boxes have been shown.
struct ResultadoReporte {
  FinReporte fin = FinReporte::Hecho;
  bool impreso = false;  // went to print, if only in an attempt that failed behind its paper
  QString porque{};      // the words of a failed write of figures; "" when that was not what failed last

  bool hecho() const { return fin == FinReporte::Hecho; }
};

// Report X or Z, main printer. Every attempt writes its mark row into Operacion and draws a correlative; a failed
// statement of the store shows a box and starts the report again, as often as the order says. What the printer did with
// the paper is told by its own box and changes nothing.
//   Writes   Z only, behind the print, in one transaction of the store: the counters of _Tmp1 and the row of _Tmp,
//            cCodiTurno blank, and iCierreCaja when it is not 0. A process that dies before that, or a report that
//            gives up, leaves mark rows, correlatives and perhaps paper, but no total; the step is then done again as a
//            whole.
//   Changes  Z blanks psTurno.
// There must be no open transaction on the store.
[[nodiscard]] ResultadoReporte ReportesEspeciales(Puesto& p, const PedidoReporte& pedido);

// Report X-1 or Z1, alternate printer; the same but for this: the transaction of a Z1 holds its row of CabeceraZ with
// DetalleZ, written over those of an earlier Z1 of the same range, and counters, _Tmp and iCierreCaja. The turn stays.
[[nodiscard]] ResultadoReporte ReportesEspeciales1(Puesto& p, const PedidoReporte& pedido);

// The same papers for a past date, which is asked for. They write nothing.
ResultadoReporte ReportesEspecialesFecha(Puesto& p, const QString& letra);
ResultadoReporte ReportesEspeciales1Fecha(Puesto& p, const QString& letra);

// Sends the day's sales per article, document type and warehouse to the central database, as the detail number psIdZ1
// that this call draws; all of it or nothing. `estado` is -1 in a closing. Leaves poCnnCentral open when it could be
// opened. False when it was not sent: one box has told it in plain words, psIdZ1 is as it was, the closing goes on.
[[nodiscard]] bool EnviarDetalleZ1(Puesto& p, int estado);
