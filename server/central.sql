-- Central database, for every engine, in the language of platform/sql/esquema.h.

-- Catalogue
CREATE TABLE UnidadMedida (
  cUndmedid TEXT NOT NULL PRIMARY KEY, vDscundmd TEXT, vDscCrta TEXT, dFechCrea DATETIME, dFechModi DATETIME
);
CREATE TABLE Proveedor (cCodProve TEXT NOT NULL PRIMARY KEY, vRazSocPrv TEXT);
CREATE TABLE LINEA (CCODLINEA TEXT NOT NULL PRIMARY KEY, vDscLinea TEXT);
CREATE TABLE Articulo (
  cCodartic TEXT NOT NULL PRIMARY KEY,
  vDscartic TEXT,
  cCodCatal TEXT,
  vDscartCt TEXT,
  bSwActivo SMALLINT DEFAULT 0,
  bswensamb SMALLINT DEFAULT 0,
  bswCtrlStck SMALLINT DEFAULT 0,
  cFlagCanje SMALLINT DEFAULT 0,
  nPtosxItem INTEGER DEFAULT 0,
  nFlagServ SMALLINT DEFAULT 0,
  cUndSalida TEXT,
  bFlagDetracc SMALLINT DEFAULT 0,
  bFlagVenta SMALLINT DEFAULT 1,
  bFlagDesc SMALLINT DEFAULT 0,
  cCodProve TEXT,
  CCODLINEA TEXT,
  dFechCrea DATETIME,
  dFechModi DATETIME
);
CREATE INDEX Articulo_creado ON Articulo (dFechCrea);
CREATE INDEX Articulo_cambiado ON Articulo (dFechModi);
CREATE TABLE ArticuloPrecioVenta (
  cCodArtic TEXT NOT NULL, nNumItem INTEGER NOT NULL, nPrecioVtaNew NUMERIC(18,6) DEFAULT 0, PRIMARY KEY (cCodArtic, nNumItem)
);
CREATE INDEX ArticuloPrecioVenta_ultimo ON ArticuloPrecioVenta (cCodArtic, nNumItem, nPrecioVtaNew);
CREATE TABLE Almacen (cCodAlmac TEXT NOT NULL PRIMARY KEY, vDscAlmac TEXT);
CREATE TABLE parametro (cCodParam TEXT NOT NULL PRIMARY KEY, nmonto1 NUMERIC(18,6), vtexto1 TEXT);

-- Customers and cards, from where the desks pull them
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
  dFechCrea DATETIME, dFechModi DATETIME,
  PRIMARY KEY (cClieCode, IdLocal)
);
CREATE INDEX Cliente_creado ON Cliente (dFechCrea);
CREATE INDEX Cliente_cambiado ON Cliente (dFechModi);
CREATE TABLE Tarjeta (
  cClieCode INTEGER,
  IdLocal INTEGER NOT NULL DEFAULT 0,
  nTarjNumb TEXT NOT NULL,
  cTarjActi SMALLINT DEFAULT 1,
  dEmisDate DATETIME, dCaduDate DATETIME,
  sUserDesc TEXT,
  dUltOper DATETIME,
  dFechCrea DATETIME, dFechModi DATETIME,
  PRIMARY KEY (nTarjNumb, IdLocal)
);
CREATE INDEX Tarjeta_creada ON Tarjeta (dFechCrea);
CREATE INDEX Tarjeta_cambiada ON Tarjeta (dFechModi);
CREATE TABLE local (idlocal INTEGER PRIMARY KEY, dsclocal TEXT, Activo SMALLINT DEFAULT 0);

-- Credit accounts
CREATE TABLE TipoCredito (cCodTipoCredito TEXT NOT NULL PRIMARY KEY, vDscTipoCredito TEXT);
CREATE TABLE tipoformapago (cCodTipoPago TEXT NOT NULL PRIMARY KEY, vDscTipoPago TEXT);
CREATE TABLE banco (cCodBanco TEXT NOT NULL PRIMARY KEY, vDscBanco TEXT);
CREATE TABLE tipo_tarjeta (cod_tar TEXT NOT NULL PRIMARY KEY, descrip TEXT);
CREATE TABLE Venta01 (
  cCodVta INTEGER PRIMARY KEY,
  TipoDoc TEXT,
  cSerieDoc TEXT,
  NroDoc TEXT,
  cCodCaja TEXT,
  cClienteCode TEXT,
  IdLocal INTEGER,
  DscCliente TEXT,
  NroRuc TEXT,
  ValorVta NUMERIC(18,6) DEFAULT 0,
  Igv NUMERIC(18,6) DEFAULT 0,
  Serv NUMERIC(18,6) DEFAULT 0,
  TotVta NUMERIC(18,6) DEFAULT 0,
  nPorcIGV NUMERIC(18,6) DEFAULT 0,
  TotVtaUSD NUMERIC(18,6) DEFAULT 0,
  cCodMoneda TEXT,
  nTipoCambio NUMERIC(18,6) DEFAULT 0,
  cCodTipoCredito TEXT,
  fechaemision DATETIME,
  FechaAnulacion DATETIME,
  FechaVencimiento DATETIME,
  cCodCabVtaRef TEXT,
  bTieneDetraccion SMALLINT DEFAULT 0,
  bLiquidado SMALLINT DEFAULT 0
);
CREATE INDEX Venta01_serie ON Venta01 (cSerieDoc, NroDoc);
CREATE INDEX Venta01_caja ON Venta01 (cCodCaja, TipoDoc, NroDoc);
-- The accounts: customers with the code of each document behind them, and the documents that are open.
CREATE INDEX Venta01_cliente ON Venta01 (cClienteCode, IdLocal, FechaAnulacion);
CREATE INDEX Venta01_abierto ON Venta01 (bLiquidado, TipoDoc, FechaAnulacion);
CREATE TABLE Venta02 (
  cCodVta INTEGER NOT NULL,
  NroItem INTEGER NOT NULL,
  cCodartic TEXT,
  sProdDscCrta TEXT,
  nPrecioOrig NUMERIC(18,6) DEFAULT 0,
  nQtdVendida NUMERIC(18,6) DEFAULT 0,
  nDescuento NUMERIC(18,6) DEFAULT 0,
  nServicio NUMERIC(18,6) DEFAULT 0,
  PRIMARY KEY (cCodVta, NroItem)
);
CREATE TABLE Pagos (
  idpago INTEGER PRIMARY KEY AUTOINCREMENT,
  cSerieDocPago TEXT,
  NroDocPago TEXT,
  TipoDoc TEXT,
  cSerieDoc TEXT,
  NroDoc TEXT,
  NroItem INTEGER,
  FormaPago TEXT,
  FechaPago DATETIME,
  Monto NUMERIC(18,6) DEFAULT 0,
  Moneda TEXT,
  nTipoCambio NUMERIC(18,6) DEFAULT 0,
  IdTarjeta TEXT,
  IdBanco TEXT,
  NroCtaBancaria TEXT,
  NroOperacion TEXT,
  NroCertificadoRetencion TEXT,
  NroDepositoDetraccion TEXT,
  cClieCode INTEGER,
  idLocal INTEGER,
  bEsPagoDetraccion SMALLINT DEFAULT 0,
  FechaAnulacion DATETIME
);
CREATE INDEX Pagos_recibo ON Pagos (cSerieDocPago, NroDocPago);
CREATE INDEX Pagos_documento ON Pagos (cSerieDoc, NroDoc);
CREATE INDEX Pagos_cliente ON Pagos (cClieCode, idLocal);
CREATE TABLE Detraccion (
  SerieDoc TEXT,
  NroDoc TEXT,
  MontoDetracc NUMERIC(18,6) DEFAULT 0,
  PorcDetracc NUMERIC(18,6) DEFAULT 0,
  Estado TEXT,
  Observaciones TEXT
);
CREATE INDEX Detraccion_documento ON Detraccion (SerieDoc, NroDoc);
-- What was delivered against a billing document, by whichever desk: its note there and the amount in soles.
CREATE TABLE ConsumoVenta (
  cCodVta INTEGER NOT NULL,
  cCajaCodi TEXT NOT NULL,
  cOperCode INTEGER NOT NULL,
  dFecha DATETIME,
  nMonto NUMERIC(18,6) DEFAULT 0,
  bAnulado SMALLINT DEFAULT 0
);
CREATE INDEX ConsumoVenta_documento ON ConsumoVenta (cCodVta);
CREATE INDEX ConsumoVenta_nota ON ConsumoVenta (cCajaCodi, cOperCode);
-- Documents that the accounts have posted: what stands here is not taken up a second time.
CREATE TABLE Cuentacte (
  cSerieDoc TEXT, cNroDoc TEXT, cCodCaja TEXT, cTipoDoc TEXT, dFecha DATETIME, nMonto NUMERIC(18,6) DEFAULT 0
);
CREATE INDEX Cuentacte_documento ON Cuentacte (cSerieDoc, cNroDoc, cCodCaja);

-- What the desks send. The row number is the server's own, one run a desk.
CREATE TABLE Operacion (
  cOperID INTEGER NOT NULL,
  cOperCode INTEGER,
  cUserDesc TEXT,
  nTarjNumb TEXT,
  cAlmaCode TEXT,
  cProdCode TEXT,
  nProdCant NUMERIC(18,6) DEFAULT 0,
  nProdPrecUnit NUMERIC(18,6) DEFAULT 0,
  nMontoSoles NUMERIC(18,6) DEFAULT 0,
  nMontoDolares NUMERIC(18,6) DEFAULT 0,
  nVueltoDolares NUMERIC(18,6) DEFAULT 0,
  dOperFech DATETIME,
  cOperTipo INTEGER DEFAULT 0,
  cCajaCodi TEXT NOT NULL,
  cTurnoCodi TEXT,
  nDscto NUMERIC(18,6) DEFAULT 0,
  nServicio NUMERIC(18,6) DEFAULT 0,
  cDocTipo TEXT,
  cDocSerie TEXT,
  cDocCodigo TEXT,
  cRuc TEXT,
  cEmisor TEXT,
  cSupervisor TEXT,
  cOperCodeAnula INTEGER DEFAULT 0,
  cOperFlagAnula SMALLINT DEFAULT 0,
  cOperFlagAbierto SMALLINT DEFAULT 1,
  cFlagSincronizacion TEXT DEFAULT '0',
  IdLocal INTEGER,
  cCodiCLie TEXT,
  vDescClie TEXT,
  iTipoCliente INTEGER DEFAULT 0,
  PRIMARY KEY (cCajaCodi, cOperID)
);
CREATE INDEX Operacion_serie ON Operacion (cCajaCodi, cDocSerie, cDocCodigo);
CREATE INDEX Operacion_fecha ON Operacion (dOperFech);
CREATE TABLE OperacionParalela (
  cCajaCodi TEXT NOT NULL,
  cOperCode INTEGER NOT NULL,
  cOperTipo INTEGER DEFAULT 0,
  dOperFech DATETIME,
  nTarjNumb TEXT,
  nMoneda INTEGER DEFAULT 0,
  nMontoSoles NUMERIC(18,6) DEFAULT 0,
  nMontoDolares NUMERIC(18,6) DEFAULT 0,
  nEfectivoSoles NUMERIC(18,6) DEFAULT 0,
  nEfectivoDolares NUMERIC(18,6) DEFAULT 0,
  nVueltoSoles NUMERIC(18,6) DEFAULT 0,
  nVueltoDolares NUMERIC(18,6) DEFAULT 0,
  sGlosa TEXT,
  cEstado TEXT,
  cTurnoCodi TEXT,
  cUserDesc TEXT,
  cFlagSincronizacion TEXT DEFAULT '0',
  cOperCodeRela INTEGER DEFAULT 0,
  cOperCodeAnul INTEGER DEFAULT 0,
  cOperFlagAbierto SMALLINT DEFAULT 1,
  cDocSerie TEXT,
  cDocCodigo TEXT,
  cDocTipo TEXT,
  cCodiCLie TEXT,
  vDescClie TEXT,
  iTipoCliente INTEGER DEFAULT 0
);
CREATE INDEX OperacionParalela_codigo ON OperacionParalela (cCajaCodi, cOperCode);
CREATE INDEX OperacionParalela_serie ON OperacionParalela (cCajaCodi, cDocSerie, cDocCodigo);
CREATE TABLE OperacionParalelaProducto (
  cCajaCodi TEXT NOT NULL,
  cOperCode INTEGER NOT NULL,
  nItem INTEGER,
  cAlmaCode TEXT,
  cProdCode TEXT,
  nProdCant NUMERIC(18,6) DEFAULT 0,
  nProdPrecUnit NUMERIC(18,6) DEFAULT 0,
  nDscto NUMERIC(18,6) DEFAULT 0,
  nServicio NUMERIC(18,6) DEFAULT 0,
  cSupervisor TEXT
);
-- What a desk has sent of some moments, and what was sent and is not yet among the movements.
CREATE INDEX Operacion_caja_fecha ON Operacion (cCajaCodi, dOperFech);
CREATE INDEX Operacion_caja_marca ON Operacion (cCajaCodi, cFlagSincronizacion);
CREATE INDEX OperacionParalela_caja_fecha ON OperacionParalela (cCajaCodi, dOperFech);
CREATE INDEX OperacionParalela_caja_marca ON OperacionParalela (cCajaCodi, cFlagSincronizacion);
CREATE INDEX OperacionParalelaProducto_codigo ON OperacionParalelaProducto (cCajaCodi, cOperCode);
CREATE TABLE CabeceraZ (
  IdZ INTEGER NOT NULL,
  Caja TEXT NOT NULL,
  CantidadTotal NUMERIC(18,6) DEFAULT 0,
  MontoTotal NUMERIC(18,6) DEFAULT 0,
  Fecha DATETIME,
  RangoTKBOL TEXT,
  RangoTKFAC TEXT,
  CodigoRep TEXT,
  cOperIdIni INTEGER DEFAULT 0,
  cOperIdFin INTEGER DEFAULT 0,
  cOperIdPIni INTEGER DEFAULT 0,
  cOperIdPFin INTEGER DEFAULT 0,
  obs TEXT,
  PRIMARY KEY (IdZ, Caja)
);
CREATE TABLE DetalleZ (
  IdZ INTEGER NOT NULL, Caja TEXT NOT NULL, nItem INTEGER, CodProd INTEGER, DscProd TEXT, Cantidad NUMERIC(18,6) DEFAULT 0
);
CREATE INDEX DetalleZ_id ON DetalleZ (IdZ, Caja);
-- nidEstado: -1 a closing runs, -2 made by a synchronisation, 0 the closing has ended.
CREATE TABLE TCABECERAZ1 (
  idZ1 INTEGER PRIMARY KEY AUTOINCREMENT, cCajaCodi TEXT, nidEstado INTEGER DEFAULT 0, dFecha DATETIME
);
CREATE INDEX TCABECERAZ1_estado ON TCABECERAZ1 (nidEstado);
CREATE TABLE TDETALLEZ1 (
  nidZ1 INTEGER,
  cCajaCodi TEXT,
  dOperFech DATETIME,
  cAlmaCode TEXT,
  cdocTipo TEXT,
  cProdCode TEXT,
  nProdCant NUMERIC(18,6) DEFAULT 0,
  nMonto NUMERIC(18,6) DEFAULT 0,
  nPrecioProm NUMERIC(18,6)
);
CREATE INDEX TDETALLEZ1_id ON TDETALLEZ1 (nidZ1);
CREATE TABLE SincronizacionCaja (cCajaCodi TEXT, dFecha DATETIME);

-- Sales movements of a day, rebuilt from Operacion, and the stock that the warehouse counted
CREATE TABLE ZANKEBMOVIVNTA (
  dFecha DATETIME,
  cCajaCodi TEXT,
  cAlmaCode TEXT,
  cDocTipo TEXT,
  cDocSerie TEXT,
  cProdCode TEXT,
  nCantidad NUMERIC(18,6) DEFAULT 0,
  nMonto NUMERIC(18,6) DEFAULT 0
);
CREATE INDEX ZANKEBMOVIVNTA_fecha ON ZANKEBMOVIVNTA (dFecha);
CREATE TABLE SaldoArticulo (
  cCodAlmac TEXT NOT NULL, cCodArtic TEXT NOT NULL, dFecha DATETIME NOT NULL, nSaldo NUMERIC(18,6) DEFAULT 0,
  PRIMARY KEY (cCodAlmac, cCodArtic, dFecha)
);

-- Alarms of the cross-check; values arrive in this order, without column names
CREATE TABLE MsgErrorRegistroVentas (cFecha TEXT, vAsunto TEXT, vMensaje TEXT);
CREATE TABLE CorreoSalida (dFecha DATETIME, vDe TEXT, vPara TEXT, vAsunto TEXT, vCuerpo TEXT);
