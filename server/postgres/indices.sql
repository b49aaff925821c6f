-- Indexes for LIKE '%text%' on the columns that searches read: the folded text in runs of three letters. A server without
-- that extension, or a user who may not add it, searches without them.
DO $$
BEGIN
  CREATE EXTENSION IF NOT EXISTS pg_trgm SCHEMA dbo;
  CREATE INDEX IF NOT EXISTS cliente_parecido ON dbo.cliente
    USING gin ((dbo.tp_pliega(sclieapel) COLLATE "C") dbo.gin_trgm_ops);
  CREATE INDEX IF NOT EXISTS tarjeta_parecido ON dbo.tarjeta
    USING gin ((dbo.tp_pliega(ntarjnumb) COLLATE "C") dbo.gin_trgm_ops);
EXCEPTION WHEN insufficient_privilege OR undefined_file OR feature_not_supported OR undefined_object THEN
  NULL;
END $$;
-- The accounts: the payments of a document by its codes without case, and the newest document of each customer.
DO $$
BEGIN
  IF to_regclass('dbo.pagos') IS NOT NULL THEN
    CREATE INDEX IF NOT EXISTS pagos_exacto ON dbo.pagos (lower(nrodoc COLLATE "C"), lower(cseriedoc COLLATE "C"));
    CREATE INDEX IF NOT EXISTS venta01_ultima ON dbo.venta01 (cclientecode, idlocal, ccodvta)
      WHERE fechaanulacion IS NULL;
  END IF;
END $$;
