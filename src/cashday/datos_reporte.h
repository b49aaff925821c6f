#pragma once
// What a report of the day tells, as plain values: the readers fill them, the papers and the rows of a closing are made
// of them. Soles unless the name says dollars ("Dol"); nothing is rounded.
#include <QDateTime>
#include <QStringList>
#include <optional>
#include <vector>

struct FilaProductoReporte {
  qint64 cProdCode = 0;
  QString catalogo, descripcion;
  double cantidad = 0;
};

// What every report tells: sold, tickets, cards, voids, withdrawals, drawer.
struct CifrasReporte {
  double nTipoCambio = 0;  // soles per dollar
  qint64 nItems = 0;
  double nVenta = 0;
  std::vector<FilaProductoReporte> productos;
  qint64 nTickets = 0, nVouchers = 0;
  double nVoucher = 0;
  qint64 nNulos = 0;
  double nNulosMonto = 0;
  qint64 nRecaudaciones = 0;
  double nRecaudado = 0;  // never more than came in
  double nAperturaSol = 0, nAperturaDol = 0;
  double nCajaSol = 0, nCajaDol = 0;
};

struct SumaAdelantos {
  double soles = 0, dolares = 0;  // each in its own currency
};

struct FilaAdelanto {
  QString sGlosa, nTarjNumb;
  bool dolares = false;
  double importe = 0;  // in the row's currency
};

// A check over advance payments. `monto` is in soles, whatever the currency of the rows; `suma` is that of the rows.
struct CheckAdelantos {
  double cuenta = 0, monto = 0;
  std::vector<FilaAdelanto> filas;
  SumaAdelantos suma;
};

// One kind of advance payment, PADE or PADV.
struct Adelantos {
  CheckAdelantos recibidos, liqDia, liq, anulados;
};

// What X-1 and Z1 tell of the parallel documents: orders, notes, advance payments and their settlement.
struct CifrasParalelas {
  qint64 nItemsOC = 0;
  double nMontoOC = 0;
  double nVentaTicket = 0;  // sold without O/C
  double itemsNC = 0, montoNC = 0;
  std::vector<FilaProductoReporte> productosNC;
  Adelantos pade, padv;
  double nulosOC = 0, nulosOCMonto = 0;
};

// The tax section: IGV and service of boletas and facturas.
struct Impuestos {
  double igvFactura = 0, igvBoleta = 0;  // of the store and of the billing documents of the central database
  double servicio = 0;
  std::optional<double> servicioParalelo;  // of the O/C, on the alternate printer only
};

// Number of the next Z of a printer and its running total so far.
struct ContadorZ {
  qint64 numero = 1;
  double Imac = 0;
};

// What the letter Z adds.
struct BloqueZ {
  struct Ticket {
    double cuantos = 0, monto = 0;
  };
  std::vector<std::pair<QString, QString>> rangos;  // first and last number, "" for none
  std::vector<Ticket> boletas, facturas;
  std::optional<std::vector<FilaProductoReporte>> notas;  // alternate printer only
  ContadorZ contador;                                     // of a closing
  QString codigoDelDia;                                   // of a report by date, as the store has it
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
  bool sinCentral = false;  // made without the central database: what needs it is left out

  QString usuario, caja, turno, porcServ, correlativo;
};
