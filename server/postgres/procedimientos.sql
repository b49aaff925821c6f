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
      'usp_log_saldos', 'sp_send_cdosysmail', 'fnretornarigv', 'proc_cuentas') LOOP
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
    VALUES (rtrim(p_caja), p_estado, date_trunc('second', clock_timestamp())) RETURNING idz1;
END $$;

-- The mean price of each article over all its rows; Null where quantities cancel out.
CREATE PROCEDURE dbo.spr_promediar_montos_z1(p_id bigint) LANGUAGE sql AS $$
  UPDATE dbo.tdetallez1 t SET nprecioprom = p.promedio
  FROM (SELECT cprodcode, SUM(nmonto) / NULLIF(SUM(nprodcant), 0) AS promedio FROM dbo.tdetallez1 WHERE nidz1 = p_id
        GROUP BY cprodcode) p
  WHERE t.nidz1 = p_id AND t.cprodcode = p.cprodcode;
$$;

-- One row for each till, day, warehouse, type of document and article: the first takes the sums, the others go.
CREATE PROCEDURE dbo.spr_agrupar_z1(p_id bigint) LANGUAGE sql AS $$
  WITH fila AS (
    SELECT ctid AS esta, MIN(ctid) OVER g AS primera, SUM(nprodcant) OVER g AS cantidad, SUM(nmonto) OVER g AS monto
    FROM dbo.tdetallez1 WHERE nidz1 = p_id
    WINDOW g AS (PARTITION BY ccajacodi, doperfech::date, calmacode, cdoctipo, cprodcode)),
  sobra AS (DELETE FROM dbo.tdetallez1 t USING fila f WHERE t.ctid = f.esta AND f.esta <> f.primera)
  UPDATE dbo.tdetallez1 t SET nprodcant = f.cantidad, nmonto = f.monto FROM fila f
  WHERE t.ctid = f.esta AND f.esta = f.primera;
$$;

CREATE PROCEDURE dbo.spr_inserta_sincronizacion(p_caja text) LANGUAGE sql AS $$
  INSERT INTO dbo.sincronizacioncaja (ccajacodi, dfecha)
  VALUES (rtrim(p_caja), date_trunc('second', clock_timestamp()));
$$;

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

-- The movements of a day anew, from the sales that were not voided.
CREATE PROCEDURE dbo.zankebmovivnta_reprocesa(p_dia text) LANGUAGE plpgsql AS $$
DECLARE
  dia timestamp := dbo.proc_dia(p_dia);
  fin timestamp := dia + interval '1 day';
BEGIN
  DELETE FROM dbo.zankebmovivnta WHERE dfecha >= dia AND dfecha < fin;
  INSERT INTO dbo.zankebmovivnta (dfecha, ccajacodi, calmacode, cdoctipo, cdocserie, cprodcode, ncantidad, nmonto)
    SELECT dia, ccajacodi, calmacode, cdoctipo, cdocserie, cprodcode, SUM(nprodcant), SUM(nprodcant * nprodprecunit)
    FROM dbo.operacion
    WHERE doperfech >= dia AND doperfech < fin AND coperflaganula = 0
      AND substring(cprodcode COLLATE "C" from '^ *(\d+)')::numeric <> 0
    GROUP BY ccajacodi, calmacode, cdoctipo, cdocserie, cprodcode;
END $$;

-- The documents that were not voided, and what is left to pay of each: what payments that were not voided have brought,
-- in both currencies.
CREATE FUNCTION dbo.proc_cuentas()
RETURNS TABLE (venta dbo.venta01, nombrelocal text, nombremoneda text, restante numeric, restanteusd numeric)
LANGUAGE sql STABLE AS $$
  WITH pagado AS (
    SELECT tipodoc, cseriedoc, nrodoc,
      SUM(CASE WHEN moneda = 'E' THEN monto * ntipocambio ELSE monto END) AS soles,
      SUM(CASE WHEN moneda = 'E' THEN monto ELSE monto / NULLIF(ntipocambio, 0) END) AS dolares
    FROM dbo.pagos WHERE fechaanulacion IS NULL GROUP BY tipodoc, cseriedoc, nrodoc)
  SELECT v, CASE v.idlocal WHEN 1 THEN 'SUR' WHEN 2 THEN 'NORTE' END,
    CASE WHEN v.ccodmoneda = 'E' THEN 'DOLARES' ELSE 'SOLES' END,
    round(v.totvta - coalesce(p.soles, 0), 2), round(v.totvtausd - coalesce(p.dolares, 0), 2)
  FROM dbo.venta01 v
  LEFT JOIN pagado p ON p.tipodoc = v.tipodoc AND p.cseriedoc = v.cseriedoc AND p.nrodoc = v.nrodoc
  WHERE v.fechaanulacion IS NULL;
$$;

-- A document counts as paid in its own currency; cents of the rate leave nothing open in the other one.
CREATE FUNCTION dbo.usp_sel_listadodocumentospendientespago(p_tipo text)
RETURNS TABLE ("TipoDoc" text, "cSerieDoc" text, "NroDoc" text, "fechaemision" timestamp, "NombreLocal" text,
  "DscCliente" text, "cClienteCode" text, "IdLocal" bigint, "Moneda" text, "TotVta" numeric, "TotVtaUSD" numeric,
  "Restante" numeric, "RestanteUSD" numeric) LANGUAGE sql STABLE AS $$
  SELECT (venta).tipodoc, (venta).cseriedoc, (venta).nrodoc, (venta).fechaemision, nombrelocal, (venta).dsccliente,
    (venta).cclientecode, (venta).idlocal, nombremoneda, (venta).totvta, (venta).totvtausd, restante, restanteusd
  FROM dbo.proc_cuentas()
  WHERE (venta).tipodoc = rtrim(p_tipo)
    AND CASE WHEN (venta).ccodmoneda = 'E' THEN restanteusd ELSE restante END > 0
  ORDER BY (venta).fechaemision, (venta).cseriedoc, (venta).nrodoc;
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
  ORDER BY v.fechaemision, v.cseriedoc, v.nrodoc;
$$;

CREATE FUNCTION dbo.usp_sel_ctactexcliente(p_tarjeta bigint, p_local bigint)
RETURNS TABLE ("Codigo" bigint, "TipoDoc" text, "Documento" text, "Serie" text, "Numero" text, "Fec Emision" timestamp,
  "Moneda" text, "Total Vta" numeric, "Total Vta USD" numeric, "M. Restante" numeric, "M. Restante USD" numeric)
LANGUAGE sql STABLE AS $$
  SELECT (venta).ccodvta, (venta).tipodoc, CASE WHEN (venta).tipodoc = '01' THEN 'FACTURA' ELSE 'BOLETA' END,
    (venta).cseriedoc, (venta).nrodoc, (venta).fechaemision, nombremoneda, (venta).totvta, (venta).totvtausd, restante,
    restanteusd
  FROM dbo.proc_cuentas()
  WHERE (venta).idlocal = p_local AND coalesce(substring((venta).cclientecode COLLATE "C" from '^ *(\d+)')::numeric, 0)
    = p_tarjeta
  ORDER BY (venta).fechaemision, (venta).cseriedoc, (venta).nrodoc;
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
  WHERE a.bswactivo = 1 AND a.ccodartic COLLATE "C" LIKE parece
  ORDER BY a.ccodartic;
END $$;

-- Mails wait in a table of the central database; who sends them from there is not the till's business.
CREATE PROCEDURE dbo.sp_send_cdosysmail(p_de text, p_para text, p_asunto text, p_cuerpo text) LANGUAGE sql AS $$
  INSERT INTO dbo.correosalida (dfecha, vde, vpara, vasunto, vcuerpo)
  VALUES (date_trunc('second', clock_timestamp()), p_de, p_para, p_asunto, p_cuerpo);
$$;

-- The tax rate as a fraction; Null where none is set.
CREATE FUNCTION dbo.fnretornarigv() RETURNS numeric LANGUAGE sql STABLE AS $$
  SELECT nmonto1 / 100 FROM dbo.parametro WHERE ccodparam = 'IGV';
$$;
