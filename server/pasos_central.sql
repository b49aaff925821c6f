-- Steps from each version of the central tables to the next, in the language of central.sql. A line "== N" begins the
-- one that makes version N; version 1 is made by the program itself. Released steps never change.
== 2
CREATE INDEX Operacion_caja_fecha ON Operacion (cCajaCodi, dOperFech);
CREATE INDEX Operacion_caja_marca ON Operacion (cCajaCodi, cFlagSincronizacion);
CREATE INDEX OperacionParalela_caja_fecha ON OperacionParalela (cCajaCodi, dOperFech);
CREATE INDEX OperacionParalela_caja_marca ON OperacionParalela (cCajaCodi, cFlagSincronizacion);

== 3
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

== 4
CREATE INDEX Venta01_cliente ON Venta01 (cClienteCode, IdLocal, FechaAnulacion);
CREATE INDEX Venta01_abierto ON Venta01 (bLiquidado, TipoDoc, FechaAnulacion);

== 5
CREATE INDEX Articulo_creado ON Articulo (dFechCrea);
CREATE INDEX Articulo_cambiado ON Articulo (dFechModi);
CREATE INDEX ArticuloPrecioVenta_ultimo ON ArticuloPrecioVenta (cCodArtic, nNumItem, nPrecioVtaNew);
CREATE INDEX Cliente_creado ON Cliente (dFechCrea);
CREATE INDEX Cliente_cambiado ON Cliente (dFechModi);
CREATE INDEX Tarjeta_creada ON Tarjeta (dFechCrea);
CREATE INDEX Tarjeta_cambiada ON Tarjeta (dFechModi);
