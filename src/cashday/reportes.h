#pragma once
// The reports of the cash day. X and Z go to the main printer, X-1 and Z1 to the alternate one; each of them can be had
// again for a past date.
#include <QString>

struct Principal;
struct Puesto;

// What is asked for. `iCierreCaja` is the step of the closing that stands in the store once the report is done; 0 when
// the report is no step of a closing.
struct PedidoReporte {
  int nOperTipo = 10;
  QString letra = QStringLiteral("X");
  bool soloTurno = true;
  int iCierreCaja = 0;
};

inline PedidoReporte PedidoX() { return {}; }
inline PedidoReporte PedidoZ(int iCierreCaja) { return {11, QStringLiteral("Z"), false, iCierreCaja}; }

// Report X or Z, main printer. Every attempt writes its mark row into Operacion and draws a correlative; a failed
// statement of the store shows a box, raises v.nIntentosReporte and starts the report again, until the counter stands at
// 3. X is called with the counter at 0, Z with 1.
//   Returns  true when the text went its way to the printer and all rows are written. What the printer did with it
//            is told by its own box and changes nothing. False when it gave up, or when the central database is out of
//            reach: boxes have been shown, and nothing is written but mark rows and correlatives.
//   Writes   Z only, behind the print, in one transaction of the store: the counters of _Tmp1 and the row of _Tmp (when
//            the counter stood at 1, that is on a first attempt), cCodiTurno blank, and iCierreCaja when it is not 0.
//            A process that dies before that leaves paper and no total; the step is then done again as a whole.
//   Changes  v.bReporteImpreso once printed; Z blanks psTurno and shuts the menus by ProcesoCaja.
// There must be no open transaction on the store.
bool ReportesEspeciales(Puesto& p, Principal& v, const PedidoReporte& pedido);

// Report X-1 or Z1, alternate printer; the same but for this: the transaction of a Z1 holds its row of CabeceraZ with
// DetalleZ, written over those of an earlier Z1 of the same range, and counters, _Tmp and iCierreCaja. The turn stays.
bool ReportesEspeciales1(Puesto& p, Principal& v, const PedidoReporte& pedido);

// The same papers for a past date, which is asked for. They write nothing. False when the date was cancelled or is
// none, or when the report gave up.
bool ReportesEspecialesFecha(Puesto& p, Principal& v, const QString& letra);
bool ReportesEspeciales1Fecha(Puesto& p, Principal& v, const QString& letra);

// Sends the day's sales per article, document type and warehouse to the central database, as the detail number psIdZ1
// that this call draws; all of it or nothing. `estado` is -1 in a closing. Leaves poCnnCentral open when it could be
// opened. False when it was not sent: one box has told it in plain words, psIdZ1 is as it was, the closing goes on.
bool EnviarDetalleZ1(Puesto& p, int estado);
