-- Procedures of the central database on PostgreSQL, with the rows of the embedded engine's (server/sqlite). What gives
-- rows is a function, what gives none a procedure; texts are text, numbers bigint or numeric. An error of ours has the
-- SQLSTATE TVnnn, nnn being the number that the desk knows it by.
DO $$
DECLARE r record;
BEGIN
  FOR r IN SELECT oid::regprocedure AS firma FROM pg_proc WHERE pronamespace = 'dbo'::regnamespace AND proname IN (
      'proc_instante', 'proc_dia', 'spr_bloquear_serie', 'spr_insertar_cabecera_z1', 'spr_promediar_montos_z1', 'spr_agrupar_z1',
      'spr_inserta_sincronizacion', 'spr_limpiar_caja_dia', 'zankebmovivnta_reprocesa',
      'usp_sel_listadodocumentospendientespago', 'usp_sel_listadodocumentospendientesnc', 'usp_sel_ctactexcliente',
      'usp_log_saldos', 'sp_send_cdosysmail', 'fnretornarigv', 'proc_cuentas', 'proc_pagado', 'proc_movimientos') LOOP
    EXECUTE 'DROP ROUTINE ' || r.firma;
  END LOOP;
END $$;

-- A date as the calls write it: dd/mm/yyyy, yyyymmdd or yyyy-mm-dd, a time behind it or not.
CREATE FUNCTION dbo.proc_instante(p_texto text) RETURNS timestamp LANGUAGE plpgsql AS $$
DECLARE
  t text COLLATE "C" := btrim(p_texto);
  m text[];
BEGIN
  m := regexp_match(t, '^(\d{4})(\d\d)(\d\d)(?: +(\S+))?$');
  IF m IS NULL THEN m := regexp_match(t, '^(\d{4})[-/.](\d\d?)[-/.](\d\d?)(?:[ T]+(\S+))?$'); END IF;
  IF m IS NULL THEN
    m := regexp_match(t, '^(\d\d?)[-/.](\d\d?)[-/.](\d{4})(?:[ T]+(\S+))?$');
    IF m[2]::int > 12 AND m[1]::int <= 12 THEN m := ARRAY[m[3], m[1], m[2], m[4]];
    ELSE m := ARRAY[m[3], m[2], m[1], m[4]];
    END IF;
  END IF;
  RETURN make_date(m[1]::int, m[2]::int, m[3]::int) + coalesce(m[4], '00:00')::time;
EXCEPTION WHEN datetime_field_overflow OR invalid_datetime_format OR invalid_text_representation OR
    numeric_value_out_of_range THEN
  RETURN NULL;
END $$;

-- The same, its day only; a text that is none is an error.
CREATE FUNCTION dbo.proc_dia(p_texto text) RETURNS timestamp LANGUAGE plpgsql AS $$
DECLARE
  dia timestamp := date_trunc('day', dbo.proc_instante(p_texto));
BEGIN
  IF dia IS NULL THEN
    RAISE EXCEPTION '«%» no es una fecha.', coalesce(p_texto, '') USING ERRCODE = 'TV241';
  END IF;
  RETURN dia;
END $$;

-- To the end of the transaction nobody else gets past this for the same series: numbers by MAX + 1 are drawn behind it.
CREATE PROCEDURE dbo.spr_bloquear_serie(p_serie text) LANGUAGE plpgsql AS $$
BEGIN
  PERFORM pg_advisory_xact_lock(hashtextextended(lower(rtrim(p_serie)), 0));
END $$;

-- A new head for the detail of a closing; gives its number. What a closing of the same till left behind when it was
-- interrupted goes first: it is begun again.
CREATE FUNCTION dbo.spr_insertar_cabecera_z1(p_caja text, p_estado bigint) RETURNS TABLE ("idZ1" bigint)
LANGUAGE plpgsql AS $$
BEGIN
  IF p_estado = -1 THEN
    DELETE FROM dbo.tdetallez1 WHERE nidz1 IN
      (SELECT c.idz1 FROM dbo.tcabeceraz1 c WHERE c.ccajacodi = rtrim(p_caja) AND c.nidestado = -1);
    DELETE FROM dbo.tcabeceraz1 WHERE ccajacodi = rtrim(p_caja) AND nidestado = -1;
  END IF;
  RETURN QUERY INSERT INTO dbo.tcabeceraz1 (ccajacodi, nidestado, dfecha)
    VALUES (rtrim(p_caja), p_estado, dbo.tp_ahora()) RETURNING idz1;
END $$;

-- The mean price of each article over all its rows; Null where quantities cancel out.
CREATE PROCEDURE dbo.spr_promediar_montos_z1(p_id bigint) LANGUAGE sql AS $$
  UPDATE dbo.tdetallez1 t SET nprecioprom = p.promedio
  FROM (SELECT cprodcode, SUM(nmonto) / NULLIF(SUM(nprodcant), 0) AS promedio FROM dbo.tdetallez1 WHERE nidz1 = p_id
        GROUP BY cprodcode) p
  WHERE t.nidz1 = p_id AND t.cprodcode = p.cprodcode;
$$;

-- One row for each till, day, warehouse, type of document and article: the first takes the sums, the others go. What is
-- alike to the letter goes first: comparing without case is slow, and a detail may have 10,000 rows.
CREATE PROCEDURE dbo.spr_agrupar_z1(p_id bigint) LANGUAGE plpgsql AS $$
DECLARE
  orden text;
BEGIN
  FOREACH orden IN ARRAY ARRAY['"C"', 'dbo.espaniol'] LOOP
    EXECUTE replace($q$
      WITH fila AS (
        SELECT tableoid AS parte, ctid AS esta, row_number() OVER (g ORDER BY tableoid, ctid) AS n,
          SUM(nprodcant) OVER g AS cantidad, SUM(nmonto) OVER g AS monto
        FROM dbo.tdetallez1 WHERE nidz1 = $1
        WINDOW g AS (PARTITION BY ccajacodi COLLATE ?, doperfech::date, calmacode COLLATE ?, cdoctipo COLLATE ?,
          cprodcode COLLATE ?)),
      sobra AS (DELETE FROM dbo.tdetallez1 t USING fila f WHERE t.tableoid = f.parte AND t.ctid = f.esta AND f.n > 1)
      UPDATE dbo.tdetallez1 t SET nprodcant = f.cantidad, nmonto = f.monto FROM fila f
      WHERE t.tableoid = f.parte AND t.ctid = f.esta AND f.n = 1 $q$, '?', orden) USING p_id;
  END LOOP;
END $$;

-- The movements of the days that the till has sent something of, by the mark of the rows here.
CREATE PROCEDURE dbo.spr_inserta_sincronizacion(p_caja text) LANGUAGE plpgsql AS $$
DECLARE
  caja text := rtrim(p_caja);
  dia timestamp;
BEGIN
  FOR dia IN
    SELECT date_trunc('day', doperfech) FROM dbo.operacion WHERE ccajacodi = caja AND cflagsincronizacion = '0'
    UNION
    SELECT date_trunc('day', doperfech) FROM dbo.operacionparalela WHERE ccajacodi = caja AND cflagsincronizacion = '0'
  LOOP
    CALL dbo.proc_movimientos(dia, caja);
  END LOOP;
  UPDATE dbo.operacion SET cflagsincronizacion = '1' WHERE ccajacodi = caja AND cflagsincronizacion = '0';
  UPDATE dbo.operacionparalela SET cflagsincronizacion = '1' WHERE ccajacodi = caja AND cflagsincronizacion = '0';
  INSERT INTO dbo.sincronizacioncaja (ccajacodi, dfecha) VALUES (caja, dbo.tp_ahora());
END $$;

-- Takes away what a till has sent of one day: its operations, and its parallel documents with their lines. Z rows stay,
-- since they are not sent again.
CREATE PROCEDURE dbo.spr_limpiar_caja_dia(p_caja text, p_dia text) LANGUAGE plpgsql AS $$
DECLARE
  dia timestamp := dbo.proc_dia(p_dia);
  fin timestamp := dia + interval '1 day';
  caja text := rtrim(p_caja);
BEGIN
  DELETE FROM dbo.operacionparalelaproducto p USING dbo.operacionparalela o
    WHERE o.ccajacodi = caja AND o.doperfech >= dia AND o.doperfech < fin
      AND p.ccajacodi = o.ccajacodi AND p.copercode = o.copercode;
  DELETE FROM dbo.operacionparalela WHERE ccajacodi = caja AND doperfech >= dia AND doperfech < fin;
  DELETE FROM dbo.operacion WHERE ccajacodi = caja AND doperfech >= dia AND doperfech < fin;
END $$;

-- The sales movements of a day anew, of one till or, '', of all: what was sold and not voided, and what orders and notes
-- have delivered, by the lines' value. Each unit once: the sale of a liquidation sells what its notes have delivered, and
-- so does the order that closes one.
CREATE PROCEDURE dbo.proc_movimientos(p_dia timestamp, p_caja text) LANGUAGE plpgsql AS $$
DECLARE
  fin timestamp := p_dia + interval '1 day';
BEGIN
  DELETE FROM dbo.zankebmovivnta WHERE dfecha >= p_dia AND dfecha < fin AND (p_caja = '' OR ccajacodi = p_caja);
  -- Alike to the letter first, as above.
  WITH linea AS MATERIALIZED (
    SELECT o.ccajacodi COLLATE "C" AS ccajacodi, o.calmacode COLLATE "C" AS calmacode, o.cdoctipo COLLATE "C" AS cdoctipo,
      o.cdocserie COLLATE "C" AS cdocserie, o.cprodcode COLLATE "C" AS cprodcode, SUM(o.nprodcant) AS cantidad,
      SUM(o.nprodcant * o.nprodprecunit * (1 + o.ndscto / 100)) AS monto
    FROM dbo.operacion o
    WHERE o.doperfech >= p_dia AND o.doperfech < fin AND (p_caja = '' OR o.ccajacodi = p_caja)
      AND o.coperflaganula = 0 AND o.copertipo <> 3
    GROUP BY 1, 2, 3, 4, 5
    UNION ALL
    SELECT o.ccajacodi COLLATE "C", p.calmacode COLLATE "C", o.cdoctipo COLLATE "C", o.cdocserie COLLATE "C",
      p.cprodcode COLLATE "C", p.nprodcant, p.nprodcant * p.nprodprecunit * (1 + p.ndscto / 100)
    FROM dbo.operacionparalela o
    JOIN dbo.operacionparalelaproducto p ON p.ccajacodi = o.ccajacodi AND p.copercode = o.copercode
    WHERE o.doperfech >= p_dia AND o.doperfech < fin AND (p_caja = '' OR o.ccajacodi = p_caja)
      AND o.copercodeanul = 0 AND o.cestado <> '0'
      AND (o.copertipo = 21 OR o.copertipo = 20 AND o.copercoderela = 0))
  INSERT INTO dbo.zankebmovivnta (dfecha, ccajacodi, calmacode, cdoctipo, cdocserie, cprodcode, ncantidad, nmonto)
    SELECT p_dia, MIN(ccajacodi), MIN(calmacode), MIN(cdoctipo), MIN(cdocserie), MIN(cprodcode), SUM(cantidad), SUM(monto)
    FROM linea WHERE substring(cprodcode from '^ *(\d+)')::numeric <> 0
    GROUP BY ccajacodi COLLATE dbo.espaniol, calmacode COLLATE dbo.espaniol, cdoctipo COLLATE dbo.espaniol,
      cdocserie COLLATE dbo.espaniol, cprodcode COLLATE dbo.espaniol;
END $$;

CREATE PROCEDURE dbo.zankebmovivnta_reprocesa(p_dia text) LANGUAGE plpgsql AS $$
BEGIN
  CALL dbo.proc_movimientos(dbo.proc_dia(p_dia), '');
END $$;

-- What the payments of a document that were not voided have brought, in both currencies: one row, Null for none. Codes of
-- documents are plain letters and figures: the index over them without case answers quicker than that of their collation.
CREATE FUNCTION dbo.proc_pagado(p_tipo text, p_serie text, p_numero text)
RETURNS TABLE (soles numeric, dolares numeric) LANGUAGE sql STABLE AS $$
  SELECT SUM(CASE WHEN lower(p.moneda COLLATE "C") = 'e' THEN p.monto * p.ntipocambio ELSE p.monto END),
    SUM(CASE WHEN lower(p.moneda COLLATE "C") = 'e' THEN p.monto ELSE p.monto / NULLIF(p.ntipocambio, 0) END)
  FROM dbo.pagos p
  WHERE lower(p.nrodoc COLLATE "C") = lower(p_numero COLLATE "C")
    AND lower(p.cseriedoc COLLATE "C") = lower(p_serie COLLATE "C")
    AND lower(p.tipodoc COLLATE "C") = lower(p_tipo COLLATE "C") AND p.fechaanulacion IS NULL;
$$;

-- Open documents that still take a payment, a deposit of their detraction, or the void of a payment: those with a balance
-- in their own currency, with a detraction that is pending, or with a payment that stands.
CREATE FUNCTION dbo.usp_sel_listadodocumentospendientespago(p_tipo text)
RETURNS TABLE ("TipoDoc" text, "cSerieDoc" text, "NroDoc" text, "fechaemision" timestamp, "NombreLocal" text,
  "DscCliente" text, "cClienteCode" text, "IdLocal" bigint, "Moneda" text, "TotVta" numeric, "TotVtaUSD" numeric,
  "Restante" numeric, "RestanteUSD" numeric) LANGUAGE sql STABLE AS $$
  SELECT v.tipodoc, v.cseriedoc, v.nrodoc, v.fechaemision, CASE v.idlocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END,
    v.dsccliente, v.cclientecode, v.idlocal, CASE WHEN v.ccodmoneda = 'E' THEN 'DOLARES' ELSE 'SOLES' END,
    v.totvta, v.totvtausd, round(v.totvta - coalesce(p.soles, 0), 2), round(v.totvtausd - coalesce(p.dolares, 0), 2)
  FROM dbo.venta01 v CROSS JOIN LATERAL dbo.proc_pagado(v.tipodoc, v.cseriedoc, v.nrodoc) p
  WHERE v.tipodoc = rtrim(p_tipo) AND v.fechaanulacion IS NULL AND v.bliquidado = 0
    AND (p.soles IS NOT NULL
      OR round(CASE WHEN v.ccodmoneda = 'E' THEN v.totvtausd ELSE v.totvta END, 2) > 0
      OR (v.tipodoc COLLATE "C" = '01' AND EXISTS (SELECT 1 FROM dbo.detraccion d WHERE d.seriedoc = v.cseriedoc
        AND d.nrodoc = v.nrodoc AND d.estado = 'P')))
  ORDER BY v.fechaemision, v.cseriedoc COLLATE "C", v.nrodoc COLLATE "C";
$$;

-- Open for consumption: neither voided nor settled.
CREATE FUNCTION dbo.usp_sel_listadodocumentospendientesnc(p_tipo text)
RETURNS TABLE ("cCodVta" bigint, "cCodCaja" text, "TipoDoc" text, "cSerieDoc" text, "NroDoc" text, "cClienteCode" text,
  "IdLocal" bigint, "Local" text, "DscCliente" text, "NroRuc" text, "TotVta" numeric, "TotVtaUSD" numeric,
  "cCodMoneda" text, "TipoCredito" text, "fechaemision" timestamp) LANGUAGE sql STABLE AS $$
  SELECT v.ccodvta, v.ccodcaja, v.tipodoc, v.cseriedoc, v.nrodoc, v.cclientecode, v.idlocal,
    CASE v.idlocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END, v.dsccliente, v.nroruc, v.totvta, v.totvtausd,
    v.ccodmoneda, t.vdsctipocredito, v.fechaemision
  FROM dbo.venta01 v LEFT JOIN dbo.tipocredito t ON t.ccodtipocredito = v.ccodtipocredito
  WHERE v.tipodoc = rtrim(p_tipo) AND v.fechaanulacion IS NULL AND v.bliquidado = 0
  ORDER BY v.fechaemision, v.cseriedoc COLLATE "C", v.nrodoc COLLATE "C";
$$;

CREATE FUNCTION dbo.usp_sel_ctactexcliente(p_tarjeta bigint, p_local bigint)
RETURNS TABLE ("Codigo" bigint, "TipoDoc" text, "Documento" text, "Serie" text, "Numero" text, "Fec Emision" timestamp,
  "Moneda" text, "Total Vta" numeric, "Total Vta USD" numeric, "M. Restante" numeric, "M. Restante USD" numeric)
LANGUAGE sql STABLE AS $$
  SELECT v.ccodvta, v.tipodoc, CASE WHEN v.tipodoc = '01' THEN 'FACTURA' ELSE 'BOLETA' END, v.cseriedoc, v.nrodoc,
    v.fechaemision, CASE WHEN v.ccodmoneda = 'E' THEN 'DOLARES' ELSE 'SOLES' END, v.totvta, v.totvtausd,
    round(v.totvta - coalesce(p.soles, 0), 2), round(v.totvtausd - coalesce(p.dolares, 0), 2)
  FROM dbo.venta01 v CROSS JOIN LATERAL dbo.proc_pagado(v.tipodoc, v.cseriedoc, v.nrodoc) p
  WHERE v.cclientecode IN (lpad(p_tarjeta::text, greatest(8, length(p_tarjeta::text)), '0'), p_tarjeta::text)
    AND v.idlocal = p_local AND v.fechaanulacion IS NULL
  ORDER BY v.fechaemision, v.cseriedoc COLLATE "C", v.nrodoc COLLATE "C";
$$;

-- The last count of each article up to the end date, and what was sold behind it, from the start date on where nobody
-- has counted. Arguments 4 to 6 are of no use here.
CREATE FUNCTION dbo.usp_log_saldos(p_desde text, p_hasta text, p_articulo text, p_4 text, p_5 numeric, p_6 numeric,
  p_almacen text)
RETURNS TABLE (descarticulo text, unidmed text, ccodidart text, saldoanterior numeric, saldos numeric)
LANGUAGE plpgsql STABLE AS $$
DECLARE
  desde timestamp := dbo.proc_dia(p_desde);
  fin timestamp := dbo.proc_dia(p_hasta) + interval '1 day';
  parece text := translate(replace(replace(p_articulo, '%', '\%'), '_', '\_'), '*?', '%_');
BEGIN
  RETURN QUERY
  WITH contado AS (
    SELECT DISTINCT ON (s.ccodartic) s.ccodartic, s.dfecha, s.nsaldo FROM dbo.saldoarticulo s
    WHERE s.ccodalmac = rtrim(p_almacen) AND s.dfecha < fin ORDER BY s.ccodartic, s.dfecha DESC)
  SELECT a.vdscartic, coalesce(u.vdsccrta, a.cundsalida), a.ccodartic, coalesce(c.nsaldo, 0),
    coalesce((SELECT SUM(m.ncantidad) FROM dbo.zankebmovivnta m WHERE m.cprodcode = a.ccodartic
      AND m.calmacode = rtrim(p_almacen) AND m.dfecha >= coalesce(c.dfecha, desde) AND m.dfecha < fin), 0)
  FROM dbo.articulo a
  LEFT JOIN contado c ON c.ccodartic = a.ccodartic
  LEFT JOIN dbo.unidadmedida u ON u.cundmedid = a.cundsalida
  WHERE a.bswactivo = 0 AND a.ccodartic COLLATE "C" LIKE parece
  ORDER BY a.ccodartic;
END $$;

-- Mails wait in a table of the central database; who sends them from there is not the till's business.
CREATE PROCEDURE dbo.sp_send_cdosysmail(p_de text, p_para text, p_asunto text, p_cuerpo text) LANGUAGE sql AS $$
  INSERT INTO dbo.correosalida (dfecha, vde, vpara, vasunto, vcuerpo)
  VALUES (dbo.tp_ahora(), p_de, p_para, p_asunto, p_cuerpo);
$$;

-- The tax rate as a fraction; Null where none is set.
CREATE FUNCTION dbo.fnretornarigv() RETURNS numeric LANGUAGE sql STABLE AS $$
  SELECT nmonto1 / 100 FROM dbo.parametro WHERE ccodparam = 'IGV';
$$;
