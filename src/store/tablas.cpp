#include "store/tablas.h"

#include "foundation/acto_doble.h"
#include "platform/sql/esquema.h"

namespace {

// Types are INTEGER, REAL, TEXT and DATETIME only: the dialect layer reads them from the catalogue.

// The three tables that the purge moves to their history twins with "INSERT INTO twin SELECT *".
const char* const kOperaciones = R"(
CREATE TABLE Operacion (
  cOperID INTEGER PRIMARY KEY AUTOINCREMENT,  -- never given out twice, also after a purge: it is a watermark
  cOperCode INTEGER,
  cUserDesc TEXT,
  nTarjNumb TEXT,
  cAlmaCode TEXT,
  cProdCode INTEGER,                          -- Null in a row without article, 0 in a tender row
  nProdCant REAL DEFAULT 0,
  nProdPrecUnit REAL DEFAULT 0,
  nMontoSoles REAL DEFAULT 0,
  nMontoDolares REAL DEFAULT 0,
  nVueltoDolares REAL DEFAULT 0,
  dOperFech DATETIME,
  cOperTipo INTEGER DEFAULT 0,
  cCajaCodi TEXT,
  cTurnoCodi TEXT,
  nDscto REAL DEFAULT 0,
  nServicio REAL DEFAULT 0,
  cDocTipo TEXT,
  cDocSerie TEXT,
  cDocCodigo INTEGER,
  cRuc TEXT,
  cEmisor TEXT,
  cSupervisor TEXT,
  cOperCodeAnula INTEGER DEFAULT 0,
  cOperFlagAnula INTEGER DEFAULT 0,
  cOperFlagAbierto INTEGER DEFAULT 1,
  cFlagSincronizacion TEXT DEFAULT '0',
  IdLocal INTEGER
);
CREATE TABLE OperacionParalela (
  cOperCode INTEGER,
  cOperTipo INTEGER DEFAULT 0,
  dOperFech DATETIME,
  nTarjNumb TEXT,
  nMoneda INTEGER DEFAULT 0,
  nMontoSoles REAL DEFAULT 0,
  nMontoDolares REAL DEFAULT 0,
  nEfectivoSoles REAL DEFAULT 0,
  nEfectivoDolares REAL DEFAULT 0,
  nVueltoSoles REAL DEFAULT 0,
  nVueltoDolares REAL DEFAULT 0,
  sGlosa TEXT,
  cEstado TEXT,
  cCajaCodi TEXT,
  cTurnoCodi TEXT,
  cUserDesc TEXT,
  cFlagSincronizacion TEXT DEFAULT '0',
  cOperCodeRela INTEGER DEFAULT 0,
  cOperCodeAnul INTEGER DEFAULT 0,
  cOperFlagAbierto INTEGER DEFAULT 1,
  cDocSerie TEXT,
  cDocCodigo INTEGER,
  cDocTipo TEXT
);
CREATE TABLE OperacionParalelaProducto (
  cAlmaCode TEXT,
  cOperCode INTEGER,
  cProdCode INTEGER,
  nProdCant REAL DEFAULT 0,
  nProdPrecUnit REAL DEFAULT 0,
  nDscto REAL DEFAULT 0,
  nServicio REAL DEFAULT 0,
  cSupervisor TEXT
);
)";

// Each of these costs something at every sale, so each has its statement; of the history tables only the highest
// number is asked for.
const char* const kIndices = R"(
CREATE INDEX Operacion_codigo ON Operacion (cOperCode);
-- Number first: the highest of two document types is then found from the top, and a number within any series too.
CREATE INDEX Operacion_numero ON Operacion (cDocCodigo, cDocTipo);
CREATE INDEX Operacion_fecha ON Operacion (dOperFech);
CREATE INDEX Operacion_abierto ON Operacion (cOperFlagAbierto);
CREATE INDEX OperacionParalela_codigo ON OperacionParalela (cOperCode);
-- Type first: each kind has a run of its own.
CREATE INDEX OperacionParalela_numero ON OperacionParalela (cDocTipo, cDocCodigo);
CREATE INDEX OperacionParalela_serie ON OperacionParalela (cDocCodigo, cDocSerie);
CREATE INDEX OperacionParalela_fecha ON OperacionParalela (dOperFech);
CREATE INDEX OperacionParalela_abierto ON OperacionParalela (cOperFlagAbierto);
CREATE INDEX OperacionParalela_estado ON OperacionParalela (cEstado, cOperTipo);
CREATE INDEX OperacionParalela_relacion ON OperacionParalela (cOperCodeRela);
CREATE INDEX OperacionParalelaProducto_codigo ON OperacionParalelaProducto (cOperCode);
CREATE INDEX Operacion_Historico_numero ON Operacion_Historico (cDocCodigo, cDocTipo);
)";

const char* const kMaestros = R"(
CREATE TABLE Config_Documento (
  cTipoDoc TEXT NOT NULL PRIMARY KEY,
  cOperCode INTEGER DEFAULT 0,
  nDocCodigo INTEGER DEFAULT 0,
  cSerieDoc TEXT,
  cUserDesc TEXT,
  dUltAct DATETIME,
  observacion TEXT
);
CREATE TABLE Configuracion (
  UserName TEXT, PassWord TEXT, DataBase TEXT, DataServer TEXT, RutaBDCliente TEXT,
  Caja TEXT, Almacen TEXT, PorcServ TEXT,
  cOpeB TEXT, cOpeF TEXT, NC TEXT, OC TEXT, PADE TEXT, PADV TEXT, LIQ TEXT,
  SerieBOL TEXT, SerieFAC TEXT, DFlag TEXT, GAVETA TEXT, PRINTER TEXT, PuertoPrinter TEXT, nIGV TEXT,
  ServidorSQL TEXT, UserSQL TEXT, PwdUserSQL TEXT, BaseDatosSQL TEXT, IdionaSQLServer TEXT,
  sImpresora TEXT, sImpresoraAlterna TEXT,
  nFlagCortaPapel INTEGER DEFAULT 0, nFlagCortaPapelALT INTEGER DEFAULT 0,
  cCodiTurno TEXT,
  iCierreCaja INTEGER DEFAULT 0,
  nImporApertSol REAL DEFAULT 0, nImporApertDol REAL DEFAULT 0,
  cOperId INTEGER, cOperIdP INTEGER,
  sWebCName TEXT, sWebCRout TEXT, nUFotNumb INTEGER, sFotoPref TEXT, sFotoExte TEXT
);
CREATE TABLE _Tmp (idz INTEGER, tvd REAL DEFAULT 0, fec DATETIME, prn INTEGER);
CREATE TABLE _Tmp1 (
  prn INTEGER PRIMARY KEY,
  idct INTEGER DEFAULT 0,
  maxid INTEGER DEFAULT 999999,
  nsmr TEXT,
  idz INTEGER DEFAULT 0,
  Imac REAL DEFAULT 0
);
CREATE TABLE Producto (
  cAlmaCode TEXT NOT NULL,
  cProdCode INTEGER NOT NULL,
  sProdDesc TEXT,
  sProdDescCrta TEXT,
  nProdPrecUnit REAL DEFAULT 0,
  cProdEstd INTEGER DEFAULT 1,
  nActivo INTEGER DEFAULT 1,
  cProdFlagFicha INTEGER DEFAULT 0,
  cProdFichaCant INTEGER DEFAULT 0,
  cProdFlagCanje INTEGER DEFAULT 0,
  cProdFlagControl INTEGER DEFAULT 0,
  cFlagCanje INTEGER DEFAULT 0,
  nPuntos INTEGER DEFAULT 0,
  cFlagServicio INTEGER DEFAULT 0,
  vDescProv TEXT,
  cUndSalida TEXT,
  cCodCatalogo TEXT,
  sDescLinea TEXT,
  cFlagDetracc INTEGER DEFAULT 0,
  PRIMARY KEY (cProdCode, cAlmaCode)
);
CREATE INDEX Producto_catalogo ON Producto (cCodCatalogo);
CREATE TABLE ConfiguracionTeclado (
  cTeclCode INTEGER PRIMARY KEY,
  sTeclDesc TEXT,
  sTeclRapd TEXT,
  cTeclFlagAsig TEXT DEFAULT '0',
  cProdCode INTEGER DEFAULT 0
);
CREATE TABLE Tipo_Cambio (dTipoCambFech DATETIME NOT NULL PRIMARY KEY, nTipoCambMont REAL DEFAULT 0);
CREATE TABLE Cabecera_Impresion (cCabeLinea INTEGER PRIMARY KEY, sCabeDescripcion TEXT);
CREATE TABLE Usuario (
  sUserDesc TEXT NOT NULL PRIMARY KEY,
  sUserPass TEXT,
  cPerfCode INTEGER,
  sUserApel TEXT,
  sUserName TEXT,
  cUserActi INTEGER DEFAULT 1,
  cUserFlag INTEGER DEFAULT 0
);
CREATE TABLE Perfil (cPerfCode INTEGER PRIMARY KEY, sPerfDesc TEXT);
CREATE TABLE UnidadMedida (cUndmedid TEXT NOT NULL PRIMARY KEY, vDscundmd TEXT, vDscCrta TEXT);
CREATE TABLE Sincronizacion (dFechSincro DATETIME);
CREATE TABLE tipo_tarjeta (cod_tar TEXT NOT NULL PRIMARY KEY, descrip TEXT);
CREATE TABLE CUADRE_CAJA (dCuadreFecha DATETIME, dCuadreID INTEGER, dCuadreLinea INTEGER, dCuadreDetalle TEXT);
CREATE INDEX CUADRE_CAJA_id ON CUADRE_CAJA (dCuadreID);
CREATE TABLE CabeceraZ (
  IdZ INTEGER NOT NULL,
  Caja TEXT NOT NULL,
  CantidadTotal REAL DEFAULT 0,
  MontoTotal REAL DEFAULT 0,
  Fecha DATETIME,
  RangoTKBOL TEXT,
  RangoTKFAC TEXT,
  CodigoRep TEXT,
  cOperIdIni INTEGER DEFAULT 0,
  cOperIdFin INTEGER DEFAULT 0,
  cOperIdPIni INTEGER DEFAULT 0,
  cOperIdPFin INTEGER DEFAULT 0,
  bFlagSincro INTEGER DEFAULT 0,
  obs TEXT,
  PRIMARY KEY (IdZ, Caja)
);
CREATE TABLE DetalleZ (
  IdZ INTEGER, Caja TEXT, nItem INTEGER, CodProd INTEGER, DscProd TEXT, Cantidad REAL DEFAULT 0,
  bFlagSincro INTEGER DEFAULT 0
);
CREATE INDEX DetalleZ_id ON DetalleZ (IdZ, Caja);
)";

const char* const kClientes = R"(
-- The pull brings customers and cards without a local: their key then holds 0.
CREATE TABLE Cliente (
  cClieCode INTEGER NOT NULL,
  IdLocal INTEGER NOT NULL DEFAULT 0,
  sClieApel TEXT, sClieName TEXT, sClieAddr TEXT,
  cDepaCode INTEGER, cProvCode INTEGER, cDistCode INTEGER,
  sDepaDesc TEXT, sProvDesc TEXT, sDistDesc TEXT,
  sClieTelf TEXT, sClieMail TEXT,
  dNacmDate DATETIME, dUltTDate DATETIME,
  cTranCode INTEGER,
  sClieRout TEXT,
  iTipo INTEGER,
  nPuntCant INTEGER DEFAULT 0,
  nTickCant INTEGER DEFAULT 0,
  bFlagSincro INTEGER DEFAULT 0,
  cSincroFlag INTEGER DEFAULT 1,
  PRIMARY KEY (cClieCode, IdLocal)
);
CREATE TABLE Tarjeta (
  cClieCode INTEGER,
  IdLocal INTEGER NOT NULL DEFAULT 0,
  nTarjNumb TEXT NOT NULL,
  cTarjActi INTEGER DEFAULT 1,
  dEmisDate DATETIME, dCaduDate DATETIME,
  sUserDesc TEXT,
  dUltOper DATETIME,
  bFlagSincro INTEGER DEFAULT 0,
  PRIMARY KEY (nTarjNumb, IdLocal)
);
-- No key: the code comes from the client database, so two waiting rows of one customer can carry the same.
CREATE TABLE Acumulacion_Punto (
  cClieCode INTEGER, cAcumCode INTEGER, nTarjNumb TEXT,
  nAcumImpo REAL DEFAULT 0, nPuntCant INTEGER DEFAULT 0,
  sUserDesc TEXT, dAcumDate DATETIME,
  cSincroFlag INTEGER DEFAULT 1,
  cDocTipo TEXT, cDocSerie TEXT, cDocCodigo INTEGER,
  IdLocal INTEGER
);
CREATE INDEX Acumulacion_Punto_pendiente ON Acumulacion_Punto (cSincroFlag);
CREATE INDEX Cliente_pendiente ON Cliente (cSincroFlag);
CREATE TABLE Canje_Punto (
  cClieCode INTEGER, IdLocal INTEGER, cCanjCode INTEGER, nTarjNumb TEXT, nPuntCant INTEGER DEFAULT 0,
  cProdCode INTEGER, sUserDesc TEXT, dCanjDate DATETIME, cSincroFlag INTEGER DEFAULT 1
);
CREATE TABLE Canje_Ticket (
  cClieCode INTEGER, IdLocal INTEGER, cCanjCode INTEGER, nTarjNumb TEXT, nTickCant INTEGER DEFAULT 0,
  cProdCode INTEGER, sUserDesc TEXT, dCanjDate DATETIME, cSincroFlag INTEGER DEFAULT 1
);
CREATE TABLE Regla_Punto (nImpoMaxi INTEGER DEFAULT 0, nPuntImpo INTEGER DEFAULT 0, nPuntCant INTEGER DEFAULT 0);
)";

// The history twin of a table: the same columns in the same order, and the counter is a plain number.
QString gemela(QString tabla, const QString& nombre, const QString& historia) {
  const QString cabeza = QStringLiteral("CREATE TABLE %1 (");
  tabla.replace(cabeza.arg(nombre), cabeza.arg(historia));
  return tabla.replace(QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT"), QStringLiteral("INTEGER"));
}

}  // namespace

QStringList tablasDelPuesto() {
  const QStringList operaciones = sentenciasDeEsquema(QString::fromLatin1(kOperaciones));
  QStringList s = operaciones;
  s << gemela(operaciones[0], QStringLiteral("Operacion"), QStringLiteral("Operacion_Historico"))
    << gemela(operaciones[1], QStringLiteral("OperacionParalela"), QStringLiteral("OperacionParalela_Historico"))
    << gemela(operaciones[2], QStringLiteral("OperacionParalelaProducto"),
              QStringLiteral("OperacionParalelaProductoHist"));
  for (const char* parte : {kIndices, kMaestros, kClientes}) s << sentenciasDeEsquema(QString::fromLatin1(parte));
  return s << tablasDeActos() << sentenciaDeVersion(pasosDelPuesto());
}

// A step never changes once a desk may have taken it, so it doesn't follow the tables above.
PasosDeVersion pasosDelPuesto() {
  return {tablasDeActos(),
          {QStringLiteral("CREATE INDEX Operacion_Historico_numero ON Operacion_Historico (cDocCodigo, cDocTipo)")}};
}
