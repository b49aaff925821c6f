#pragma once
// The values that live for one session, by the names every room uses. Texts are empty and numbers zero until set.
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>

#include "foundation/textos_papel.h"

struct Sesion {
  // Connections
  bool pbClienteConectado = false;  // poCnnCliente is open now
  bool pbClienteCaido = false;      // the last attempt to reach the client database failed
  bool bCentralCaida = false;       // the same of the central database, for the status line
  bool bSinCentral = false;  // the start went on without the central database; its part is done at the first contact
  QHash<QString, QDateTime> tiempoAgotado;  // connection string -> when it last timed out inside a sale
  std::array<bool, 2> actosPorMirar{};  // acts over the store and the central, the client database may be unfinished
  bool bAvisoCliente = false;           // the box about the client database was shown in this outage

  // Paths and connection strings
  QString psRutaBD, psArchivoCfg;
  QString psUserName, psPassWord, psDataBase, psDataServer, psConexionCentral;
  QString psServidorSQL, psUserSQL, psPwdUserSQL, psBaseDatosSQL, psConexionCliente;
  QString psIdiomaSQL, psFORMATO_FECHA_SQL_SERVER_INS, psRutaBDCliente;

  // Till, user and day
  QString psCaja, psAlmacen;
  QString psPorcServ;  // percentage as text: "10" is ten per cent
  QString psTurno;     // blank while the desk is closed
  QString psUsuario, psPerfilUsuario;
  double pnIGV = 0;         // a fraction: 0.18
  double pnTipoCambio = 0;  // soles per dollar of the day; 0 while not known
  QDate pdTipoCambio;       // the day that it was read on
  QDateTime pdUltimaSincronizacion;
  QString psIdZ1;
  bool pbSincronizaMaestros = false, pbSincronizaCierre = false;

  // For the status line, "" when all is well
  QString avisoDisco, avisoRespaldo;

  // Documents and series
  QString psOpeB, psOpeF, psNC, psOC, psPADE, psPADV, psLIQ;
  QString psSerieBoleta, psSerieFactura;
  QString psDFlag;  // "S" lets the cashier type a discount

  // Printing
  QString kPAR_IMPRESORA, kPAR_IMPRESORA_ALTERNA;
  int pnCortaPapel = 0, pnCortaPapelAlterna = 0;  // 0 driver, 1 raw port with cut
  QString psSerieImpresora, psSerieImpresoraAlterna;
  QString psPuertoPrint;
  QStringList psCabeceraImpresion;
  TextosPapel textosPapel;
  QString impresoraActual;  // device name that SeleccionarImpresora chose last
  QString ultimoPapel;      // printer and correlative of the last paper, for the status line

  // Points rule
  int pnImpoMaxi = 0, pnPuntImpo = 0, pnPuntCant = 0;
  int nBlancosSeguidos = 0;  // typed one after the other in fields of names
};
