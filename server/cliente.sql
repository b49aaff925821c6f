-- Client database, for every engine, in the language of platform/sql/esquema.h.
CREATE TABLE Cliente (
  cClieCode INTEGER NOT NULL,
  IdLocal INTEGER NOT NULL,
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
  bFlagSincro SMALLINT DEFAULT 0,
  PRIMARY KEY (cClieCode, IdLocal)
);
-- A search by any part of the surnames reads this index through instead of the whole rows.
CREATE INDEX Cliente_apellidos ON Cliente (sClieApel, cClieCode, IdLocal);
CREATE TABLE Tarjeta (
  cClieCode INTEGER,
  IdLocal INTEGER NOT NULL,
  nTarjNumb TEXT NOT NULL,
  cTarjActi SMALLINT DEFAULT 1,
  dEmisDate DATETIME, dCaduDate DATETIME,
  sUserDesc TEXT,
  dUltOper DATETIME,
  bFlagSincro SMALLINT DEFAULT 0,
  PRIMARY KEY (nTarjNumb, IdLocal)
);
CREATE INDEX Tarjeta_cliente ON Tarjeta (cClieCode, IdLocal);
-- No key on the code: two desks that draw the same number at once must both keep their points.
CREATE TABLE Acumulacion_Punto (
  cClieCode INTEGER, cAcumCode INTEGER, nTarjNumb TEXT,
  nAcumImpo NUMERIC(18,6) DEFAULT 0, nPuntCant INTEGER DEFAULT 0,
  sUserDesc TEXT, dAcumDate DATETIME,
  cDocTipo TEXT, cDocSerie TEXT, cDocCodigo INTEGER,
  IdLocal INTEGER
);
CREATE INDEX Acumulacion_Punto_codigo ON Acumulacion_Punto (cClieCode, IdLocal, cAcumCode);
CREATE INDEX Acumulacion_Punto_documento ON Acumulacion_Punto (cDocSerie, cDocCodigo);
CREATE TABLE Regla_Punto (nImpoMaxi INTEGER DEFAULT 0, nPuntImpo INTEGER DEFAULT 0, nPuntCant INTEGER DEFAULT 0);
CREATE TABLE local (idlocal INTEGER PRIMARY KEY, dsclocal TEXT, Activo SMALLINT DEFAULT 0);
CREATE TABLE Localidad (
  cDepaCode INTEGER NOT NULL, cProvCode INTEGER NOT NULL, cDistCode INTEGER NOT NULL, sLocaName TEXT,
  PRIMARY KEY (cDepaCode, cProvCode, cDistCode)
);
