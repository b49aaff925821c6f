-- The Transact-SQL dialect on PostgreSQL: how texts compare, and the functions that a rewritten statement calls, under
-- the names that the embedded engine gives them. It can be run anew over what an older program left.
CREATE SCHEMA IF NOT EXISTS dbo;

-- Dictionary order without case: a = A, á apart from a, Ñ behind N.
CREATE COLLATION IF NOT EXISTS dbo.espaniol (provider = icu, locale = 'es-u-ks-level2', deterministic = false);

-- The server's clock, to the second, the same for a whole statement.
CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE sql STABLE PARALLEL SAFE
AS $$ SELECT date_trunc('second', statement_timestamp()::timestamp) $$;

-- ---------------------------------------------------------------------------------------------- Texts as numbers
-- Whether a text is a number from end to end, as the program reads one.
CREATE OR REPLACE FUNCTION dbo.tp_esnumero(t text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT btrim(t COLLATE "C", E' \t\n\r\u00a0') ~ '^[-+]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][-+]?[0-9]{1,2})?$' $$;

-- Beside a number in a comparison: what is no number equals none.
CREATE OR REPLACE FUNCTION dbo.tp_num(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN dbo.tp_esnumero(t) THEN btrim(t, E' \t\n\r\u00a0')::numeric END $$;
CREATE OR REPLACE FUNCTION dbo.tp_num(n numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;

-- On its way into a number: blank text is 0, anything else that is none is an error.
CREATE OR REPLACE FUNCTION dbo.tp_valor(t text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
BEGIN
  IF dbo.tp_esnumero(t) THEN RETURN btrim(t, E' \t\n\r\u00a0')::numeric; END IF;
  IF btrim(t COLLATE "C", E' \t\n\r\u00a0') = '' THEN RETURN 0; END IF;
  RAISE EXCEPTION 'No se puede convertir ''%'' a número.', t USING ERRCODE = '22018';
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_valor(n numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;
CREATE OR REPLACE FUNCTION dbo.tp_valor(n double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;

-- Towards zero; a text must be whole.
CREATE OR REPLACE FUNCTION dbo.tp_convint(n bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;
CREATE OR REPLACE FUNCTION dbo.tp_convint(n numeric) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT trunc(n)::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_convint(n double precision) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT trunc(n)::bigint $$;
-- A plain expression: the highest number of a document is asked for over texts, on a connection that has no language loaded.
CREATE OR REPLACE FUNCTION dbo.tp_convint(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN t COLLATE "C" ~ '^\s*[-+]?[0-9]{1,18}\s*$' THEN t::bigint
  WHEN btrim(t COLLATE "C", E' \t\n\r\u00a0') = '' THEN 0 ELSE ('«' || t || '»')::bigint END $$;

CREATE OR REPLACE FUNCTION dbo.tp_bool(n numeric) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (n <> 0)::int::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_bool(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (dbo.tp_valor(t) <> 0)::int::bigint $$;

CREATE OR REPLACE FUNCTION dbo.tp_cdbl(n double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;
CREATE OR REPLACE FUNCTION dbo.tp_cdbl(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_valor(t)::double precision $$;

CREATE OR REPLACE FUNCTION dbo.tp_decimal(d int, n numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT round(n, d) $$;
CREATE OR REPLACE FUNCTION dbo.tp_decimal(d int, n double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT round(n::numeric, d) $$;
CREATE OR REPLACE FUNCTION dbo.tp_decimal(d int, t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT round(dbo.tp_valor(t), d) $$;

-- ROUND; a third argument that is not 0 asks for a cut.
CREATE OR REPLACE FUNCTION dbo.tp_round(n numeric, d numeric DEFAULT 0, corte numeric DEFAULT 0) RETURNS numeric
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN corte = 0 THEN round(n, d::int) ELSE trunc(n, d::int) END $$;
CREATE OR REPLACE FUNCTION dbo.tp_round(n double precision, d numeric DEFAULT 0, corte numeric DEFAULT 0)
RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (CASE WHEN corte = 0 THEN round(n::numeric, d::int) ELSE trunc(n::numeric, d::int) END)::double precision $$;

CREATE OR REPLACE FUNCTION dbo.tp_int(n smallint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_int(n int) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_int(n bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n $$;
CREATE OR REPLACE FUNCTION dbo.tp_int(n numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT floor(n) $$;
CREATE OR REPLACE FUNCTION dbo.tp_int(n double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT floor(n) $$;

CREATE OR REPLACE FUNCTION dbo.tp_modulo(a numeric, b numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT mod(a, b) $$;
CREATE OR REPLACE FUNCTION dbo.tp_modulo(a double precision, b double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT mod(a::numeric, b::numeric)::double precision $$;

CREATE OR REPLACE FUNCTION dbo.tp_isnumeric(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT coalesce(dbo.tp_esnumero(t), false)::int::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_isnumeric(n numeric) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (n IS NOT NULL)::int::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_isnumeric(f timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT 0::bigint $$;

-- ------------------------------------------------------------------------------------------------ Numbers as texts
-- Fifteen figures, no zeros behind the last of them, never an exponent.
CREATE OR REPLACE FUNCTION dbo.tp_texto(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT t $$;
CREATE OR REPLACE FUNCTION dbo.tp_texto(n bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT n::text $$;
CREATE OR REPLACE FUNCTION dbo.tp_texto(n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT trim_scale(n::numeric)::text $$;
CREATE OR REPLACE FUNCTION dbo.tp_texto(n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT trim_scale(n::double precision::numeric)::text $$;

CREATE OR REPLACE FUNCTION dbo.tp_str(n numeric, largo numeric DEFAULT 10, decimales numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT CASE WHEN length(x) > l THEN repeat('*', l) ELSE lpad(x, l) END
  FROM (SELECT round(n, least(greatest(decimales, 0), 15)::int)::text AS x, least(greatest(largo, 0), 10000)::int AS l) v
$$;
CREATE OR REPLACE FUNCTION dbo.tp_str(n double precision, largo numeric DEFAULT 10, decimales numeric DEFAULT 0)
RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_str(n::numeric, largo, decimales) $$;
CREATE OR REPLACE FUNCTION dbo.tp_str(t text, largo numeric DEFAULT 10, decimales numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_str(dbo.tp_valor(t), largo, decimales) $$;

-- ---------------------------------------------------------------------------------------------------------- Texts
CREATE OR REPLACE FUNCTION dbo.tp_len(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT length(rtrim(t))::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_largo(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT length(t)::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_mayus(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT upper(t COLLATE "es-x-icu") COLLATE dbo.espaniol $$;
CREATE OR REPLACE FUNCTION dbo.tp_minus(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT lower(t COLLATE "es-x-icu") COLLATE dbo.espaniol $$;
CREATE OR REPLACE FUNCTION dbo.tp_izquierda(t text, n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT left(t, greatest(n, 0)::int) $$;
CREATE OR REPLACE FUNCTION dbo.tp_derecha(t text, n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT right(t, greatest(n, 0)::int) $$;
CREATE OR REPLACE FUNCTION dbo.tp_space(n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN n >= 0 THEN repeat(' ', least(n, 10000)::int) END $$;
CREATE OR REPLACE FUNCTION dbo.tp_replicate(t text, n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN n >= 0 THEN repeat(left(t, 10000), least(n, 10000)::int) END $$;
CREATE OR REPLACE FUNCTION dbo.tp_reverso(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT reverse(t) $$;
CREATE OR REPLACE FUNCTION dbo.tp_chr(n numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT convert_from(set_byte('\x00'::bytea, 0, n::int), 'WIN1252') $$;
CREATE OR REPLACE FUNCTION dbo.tp_asc(t text) RETURNS bigint LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
BEGIN
  IF t COLLATE "C" = '' THEN RETURN NULL; END IF;
  RETURN get_byte(convert_to(left(t, 1), 'WIN1252'), 0);
EXCEPTION WHEN untranslatable_character THEN RETURN 63;
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_concat(VARIADIC partes text[]) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT array_to_string(partes, '') $$;

-- Case doesn't count in what is looked for.
CREATE OR REPLACE FUNCTION dbo.tp_pliega(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT lower(t COLLATE "es-x-icu") COLLATE "C" $$;
CREATE OR REPLACE FUNCTION dbo.tp_charindex(que text, en text, desde numeric DEFAULT 1) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT CASE WHEN que IS NULL OR en IS NULL OR desde IS NULL THEN NULL
    WHEN length(que) = 0 OR strpos(dbo.tp_pliega(substr(en, d)) COLLATE "C", dbo.tp_pliega(que)) = 0 THEN 0
    ELSE strpos(dbo.tp_pliega(substr(en, d)) COLLATE "C", dbo.tp_pliega(que)) + d - 1 END::bigint
  FROM (SELECT greatest(desde, 1)::int AS d) v
$$;
CREATE OR REPLACE FUNCTION dbo.tp_replace(t text, que text, por text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  p text := dbo.tp_pliega(que); resto text := t; sale text := ''; i int;
BEGIN
  IF length(que) = 0 THEN RETURN t; END IF;
  LOOP
    i := strpos(dbo.tp_pliega(resto), p COLLATE "C");
    IF i = 0 THEN RETURN sale || resto; END IF;
    sale := sale || left(resto, i - 1) || por;
    resto := substr(resto, i + length(que));
  END LOOP;
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_stuff(t text, desde numeric, largo numeric, por text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT CASE WHEN desde >= 1 AND desde <= length(t) AND largo >= 0
    THEN left(t, desde::int - 1) || coalesce(por, '') || substr(t, (desde + largo)::int) END
$$;
-- Counts from before the first character, too.
CREATE OR REPLACE FUNCTION dbo.tp_substring(t text, desde numeric, largo numeric) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
BEGIN
  IF largo < 0 OR largo > 2147483647 OR abs(desde) > 2147483647 THEN
    RAISE EXCEPTION 'Longitud no válida en SUBSTRING.' USING ERRCODE = '22011';
  END IF;
  RETURN substr(t, greatest(trunc(desde), 1)::int,
                least(greatest(trunc(desde) + trunc(largo) - greatest(trunc(desde), 1), 0), 1000000000)::int);
END $$;

-- ----------------------------------------------------------------------------------------------------------- LIKE
-- A pattern with classes of characters as a regular expression.
CREATE OR REPLACE FUNCTION dbo.tp_expresion(p text, escape text DEFAULT '') RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE
AS $$
DECLARE
  q text COLLATE "C" := dbo.tp_pliega(p); e text COLLATE "C" := dbo.tp_pliega(left(escape, 1));
  r text COLLATE "C" := '^'; c text COLLATE "C"; clase text COLLATE "C"; i int := 1; cierra int;
BEGIN
  WHILE i <= length(q) LOOP
    c := substr(q, i, 1);
    i := i + 1;
    IF e <> '' AND c = e AND i <= length(q) THEN
      r := r || regexp_replace(substr(q, i, 1), '([^[:alnum:]])', '\\\1');
      i := i + 1;
    ELSIF c = '%' THEN r := r || '.*';
    ELSIF c = '_' THEN r := r || '.';
    ELSE
      cierra := CASE WHEN c = '[' THEN strpos(substr(q, i + 1), ']') ELSE 0 END;
      IF cierra > 0 THEN
        clase := substr(q, i, cierra);
        i := i + cierra + 1;
        r := r || CASE WHEN left(clase, 1) = '^' AND length(clase) > 1
          THEN '[^' || regexp_replace(substr(clase, 2), '([\\\[\]^])', '\\\1', 'g') || ']'
          ELSE '[' || regexp_replace(clase, '([\\\[\]^])', '\\\1', 'g') || ']' END;
      ELSE
        r := r || regexp_replace(c, '([^[:alnum:]])', '\\\1');
      END IF;
    END IF;
  END LOOP;
  RETURN r || '$';
END $$;
-- Written out, not by the functions above: each of those would be read anew with every plan.
CREATE OR REPLACE FUNCTION dbo.tp_like(t text, p text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT CASE WHEN strpos(p COLLATE "C", '[') = 0
    THEN lower(t COLLATE "es-x-icu") COLLATE "C" LIKE replace(lower(p COLLATE "es-x-icu") COLLATE "C", '\', '\\')
    ELSE lower(t COLLATE "es-x-icu") COLLATE "C" ~ dbo.tp_expresion(p) END
$$;
CREATE OR REPLACE FUNCTION dbo.tp_like(t text, p text, escape text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_pliega(t) COLLATE "C" ~ dbo.tp_expresion(p, escape) $$;
-- LIKE of a pattern with a plain beginning: between two texts lies all that it leaves, and an index finds them.
CREATE OR REPLACE FUNCTION dbo.tp_empieza(t text, p text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT t >= split_part(translate(p COLLATE "C", '_[', '%%'), '%', 1) COLLATE dbo.espaniol
    AND t < (split_part(translate(p COLLATE "C", '_[', '%%'), '%', 1) || U&'\FFFF') COLLATE dbo.espaniol
    AND CASE WHEN strpos(p COLLATE "C", '[') = 0
      THEN lower(t COLLATE "es-x-icu") COLLATE "C" LIKE replace(lower(p COLLATE "es-x-icu") COLLATE "C", '\', '\\')
      ELSE lower(t COLLATE "es-x-icu") COLLATE "C" ~ dbo.tp_expresion(p) END
$$;

CREATE OR REPLACE FUNCTION dbo.tp_patindex(p text, t text) RETURNS bigint LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  i int;
BEGIN
  IF left(p, 1) COLLATE "C" <> '%' THEN RETURN (length(t) > 0 AND dbo.tp_like(t, p))::int; END IF;
  FOR i IN 1 .. length(t) LOOP
    IF dbo.tp_like(substr(t, i), substr(p, 2)) THEN RETURN i; END IF;
  END LOOP;
  RETURN 0;
END $$;

-- ---------------------------------------------------------------------------------------------------------- Dates
-- "day/month/year", the year first, an impossible order the other way round, an hour behind; Null for no date.
CREATE OR REPLACE FUNCTION dbo.tp_diames(texto text, mesprimero boolean DEFAULT false) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE
AS $$
DECLARE
  n text[]; h text[]; dia int; mes int; anio int; hora int; resto text COLLATE "C";
BEGIN
  n := regexp_match(btrim(texto) COLLATE "C", '^(\d{1,4})[/.-](\d{1,4})[/.-](\d{1,4})(?:[ T](.*))?$');
  IF n IS NULL THEN RETURN NULL; END IF;
  dia := n[1]; mes := n[2]; anio := n[3];
  IF length(n[1]) >= 3 THEN
    anio := n[1]; dia := n[3];
  ELSE
    IF mesprimero THEN dia := n[2]; mes := n[1]; END IF;
    IF mes > 12 AND dia <= 12 THEN hora := dia; dia := mes; mes := hora; END IF;
    IF length(n[3]) <= 2 THEN anio := anio + CASE WHEN anio < 30 THEN 2000 ELSE 1900 END; END IF;
  END IF;
  IF anio < 1 OR mes < 1 OR mes > 12 OR dia < 1 OR dia > 31 THEN RETURN NULL; END IF;
  IF dia > extract(day FROM make_date(anio, mes, 1) + interval '1 month - 1 day') THEN RETURN NULL; END IF;
  IF n[4] IS NULL THEN RETURN make_timestamp(anio, mes, dia, 0, 0, 0); END IF;
  h := regexp_match(btrim(n[4]) COLLATE "C", '^(\d{1,4}):(\d{1,4})(?::(\d{1,4})(?:\.\d{0,4})?)?(.*)$');
  IF h IS NULL THEN RETURN NULL; END IF;
  hora := h[1];
  resto := translate(upper(h[4]), E'. \u00a0', '');
  IF resto IN ('AM', 'PM') THEN
    IF hora < 1 OR hora > 12 THEN RETURN NULL; END IF;
    hora := hora % 12 + CASE WHEN resto = 'PM' THEN 12 ELSE 0 END;
  ELSIF resto <> '' THEN
    RETURN NULL;
  END IF;
  IF hora > 23 OR h[2]::int > 59 OR coalesce(h[3], '0')::int > 59 THEN RETURN NULL; END IF;
  RETURN make_timestamp(anio, mes, dia, hora, h[2]::int, coalesce(h[3], '0')::int);
END $$;

-- Any text that says a moment; Null for one that doesn't.
CREATE OR REPLACE FUNCTION dbo.tp_instante(texto text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  t text COLLATE "C" := btrim(texto, E' \t\n\r\u00a0'); f timestamp; p text[]; mes int;
BEGIN
  IF t ~ '^\d{8}( |$)' THEN
    f := dbo.tp_diames(left(t, 4) || '/' || substr(t, 5, 2) || '/' || substr(t, 7));
    IF f IS NOT NULL THEN RETURN f; END IF;
  END IF;
  IF length(t) > 2 AND strpos(t, ':') IN (2, 3) THEN RETURN dbo.tp_diames('1/1/1900 ' || t); END IF;
  IF substr(t, 11, 1) = 'T' THEN t := overlay(t PLACING ' ' FROM 11 FOR 1); END IF;
  f := dbo.tp_diames(t);
  IF f IS NOT NULL THEN RETURN f; END IF;
  p := regexp_split_to_array(btrim(translate(t, '-/,', '  ')), '\s+');
  IF array_length(p, 1) < 3 THEN RETURN NULL; END IF;
  FOR i IN 1 .. 2 LOOP
    CONTINUE WHEN p[i] !~ '^[[:alpha:]]{3}' AND p[i] !~ '^..[[:alpha:]]';
    mes := CASE lower(left(p[i], 3)) WHEN 'ene' THEN 1 WHEN 'jan' THEN 1 WHEN 'feb' THEN 2 WHEN 'mar' THEN 3
      WHEN 'abr' THEN 4 WHEN 'apr' THEN 4 WHEN 'may' THEN 5 WHEN 'jun' THEN 6 WHEN 'jul' THEN 7 WHEN 'ago' THEN 8
      WHEN 'aug' THEN 8 WHEN 'set' THEN 9 WHEN 'sep' THEN 9 WHEN 'oct' THEN 10 WHEN 'nov' THEN 11 WHEN 'dic' THEN 12
      WHEN 'dec' THEN 12 END;
    CONTINUE WHEN mes IS NULL;
    RETURN dbo.tp_diames(btrim(p[3 - i] || '/' || mes || '/' || p[3] || ' ' || array_to_string(p[4:], ' ')));
  END LOOP;
  RETURN NULL;
END $$;

-- A text, a number of days or a date as a date: blank text is day 0, any other that is none is an error.
CREATE OR REPLACE FUNCTION dbo.tp_cdate(f timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT f $$;
CREATE OR REPLACE FUNCTION dbo.tp_cdate(n numeric) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
BEGIN
  IF abs(n) > 3000000 THEN RAISE EXCEPTION 'La fecha queda fuera de rango.' USING ERRCODE = '22008'; END IF;
  RETURN timestamp '1900-01-01' + floor(n)::int * interval '1 day'
       + round((n - floor(n)) * 86400)::int * interval '1 second';
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_cdate(n double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_cdate(n::numeric) $$;
CREATE OR REPLACE FUNCTION dbo.tp_cdate(t text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  f timestamp := dbo.tp_instante(t);
BEGIN
  IF f IS NOT NULL THEN RETURN f; END IF;
  IF btrim(t COLLATE "C", E' \t\n\r\u00a0') = '' THEN RETURN timestamp '1900-01-01'; END IF;
  RAISE EXCEPTION 'No se puede convertir ''%'' a fecha.', t USING ERRCODE = '22007';
END $$;

-- CONVERT(DATETIME, x, style): only styles that put the month first say anything.
CREATE OR REPLACE FUNCTION dbo.tp_afecha(f timestamp, estilo numeric DEFAULT 0) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT f $$;
CREATE OR REPLACE FUNCTION dbo.tp_afecha(n numeric, estilo numeric DEFAULT 0) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_cdate(n) $$;
CREATE OR REPLACE FUNCTION dbo.tp_afecha(n double precision, estilo numeric DEFAULT 0) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_cdate(n) $$;
CREATE OR REPLACE FUNCTION dbo.tp_afecha(t text, estilo numeric DEFAULT 0) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT coalesce(CASE WHEN estilo IN (1, 101, 10, 110) THEN dbo.tp_diames(t, true) END, dbo.tp_cdate(t))
$$;

CREATE OR REPLACE FUNCTION dbo.tp_datevalue(f timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT date_trunc('day', f) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datevalue(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT date_trunc('day', dbo.tp_cdate(t)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_isdate(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (dbo.tp_instante(t) IS NOT NULL)::int::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_isdate(f timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (f IS NOT NULL)::int::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_isdate(n numeric) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT 0::bigint $$;

-- With its time, unless it is midnight.
CREATE OR REPLACE FUNCTION dbo.tp_textofecha(f timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT to_char(f, CASE WHEN f = date_trunc('day', f) THEN 'DD/MM/YYYY' ELSE 'DD/MM/YYYY HH24:MI:SS' END) $$;

-- Names of months and days in the servers' language.
CREATE OR REPLACE FUNCTION dbo.tp_estilo(f timestamp, estilo numeric) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  mascara text := CASE estilo::int
    WHEN 1 THEN 'MM/DD/YY' WHEN 101 THEN 'MM/DD/YYYY' WHEN 2 THEN 'YY.MM.DD' WHEN 102 THEN 'YYYY.MM.DD'
    WHEN 3 THEN 'DD/MM/YY' WHEN 103 THEN 'DD/MM/YYYY' WHEN 4 THEN 'DD.MM.YY' WHEN 104 THEN 'DD.MM.YYYY'
    WHEN 5 THEN 'DD-MM-YY' WHEN 105 THEN 'DD-MM-YYYY' WHEN 6 THEN 'DD Mon YY' WHEN 106 THEN 'DD Mon YYYY'
    WHEN 7 THEN 'Mon DD, YY' WHEN 107 THEN 'Mon DD, YYYY' WHEN 8 THEN 'HH24:MI:SS' WHEN 24 THEN 'HH24:MI:SS'
    WHEN 108 THEN 'HH24:MI:SS' WHEN 10 THEN 'MM-DD-YY' WHEN 110 THEN 'MM-DD-YYYY' WHEN 11 THEN 'YY/MM/DD'
    WHEN 111 THEN 'YYYY/MM/DD' WHEN 12 THEN 'YYMMDD' WHEN 112 THEN 'YYYYMMDD' WHEN 13 THEN 'DD Mon YYYY HH24:MI:SS:000'
    WHEN 113 THEN 'DD Mon YYYY HH24:MI:SS:000' WHEN 14 THEN 'HH24:MI:SS:000' WHEN 114 THEN 'HH24:MI:SS:000'
    WHEN 20 THEN 'YYYY-MM-DD HH24:MI:SS' WHEN 120 THEN 'YYYY-MM-DD HH24:MI:SS' WHEN 21 THEN 'YYYY-MM-DD HH24:MI:SS.000'
    WHEN 25 THEN 'YYYY-MM-DD HH24:MI:SS.000' WHEN 121 THEN 'YYYY-MM-DD HH24:MI:SS.000' WHEN 23 THEN 'YYYY-MM-DD'
    WHEN 126 THEN 'YYYY-MM-DD"T"HH24:MI:SS' END;
BEGIN
  IF mascara IS NOT NULL THEN RETURN to_char(f, mascara); END IF;
  IF estilo NOT IN (0, 100, 9, 109) THEN
    RAISE EXCEPTION '% no es un estilo de fecha.', estilo USING ERRCODE = '22023';
  END IF;
  RETURN to_char(f, 'Mon ') || lpad(to_char(f, 'FMDD'), 2) || to_char(f, ' YYYY ') || lpad(to_char(f, 'FMHH12'), 2)
      || to_char(f, CASE WHEN estilo IN (0, 100) THEN ':MIAM' ELSE ':MI:SS:000AM' END);
END $$;

-- CONVERT(VARCHAR(n), x, style), its length in front: below 0 it is filled up with blanks.
CREATE OR REPLACE FUNCTION dbo.tp_cortar(largo int, t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT CASE WHEN largo < 0 THEN rpad(t, -largo) ELSE left(t, largo) END $$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, n bigint, estilo numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_cortar(largo, CASE WHEN length(n::text) > abs(largo) THEN '*' ELSE n::text END) $$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, n numeric, estilo numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT dbo.tp_cortar(largo, CASE WHEN n = trunc(n) AND length(dbo.tp_texto(n)) > abs(largo) THEN '*'
    ELSE dbo.tp_texto(n) END)
$$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, n double precision, estilo numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_convtexto(largo, n::numeric) $$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, f timestamp, estilo numeric DEFAULT 0) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_cortar(largo, dbo.tp_estilo(f, estilo)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_cortar(largo, t) $$;
CREATE OR REPLACE FUNCTION dbo.tp_convtexto(largo int, t text, estilo numeric) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT dbo.tp_cortar(largo, coalesce(dbo.tp_estilo(dbo.tp_instante(t), estilo), t)) $$;

-- Dates and days, in either order.
CREATE OR REPLACE FUNCTION dbo.tp_masdias(f timestamp, n numeric) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
BEGIN
  IF abs(n) > 3000000 THEN RAISE EXCEPTION 'La fecha queda fuera de rango.' USING ERRCODE = '22008'; END IF;
  RETURN f + round(n * 86400)::bigint * interval '1 second';
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_masdias(f timestamp, n double precision) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_masdias(f, n::numeric) $$;
CREATE OR REPLACE FUNCTION dbo.tp_masdias(n numeric, f timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_masdias(f, n) $$;
CREATE OR REPLACE FUNCTION dbo.tp_menosdias(f timestamp, n numeric) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_masdias(f, -n) $$;
CREATE OR REPLACE FUNCTION dbo.tp_menosdias(f timestamp, n double precision) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_masdias(f, -n::numeric) $$;
CREATE OR REPLACE FUNCTION dbo.tp_dias(a timestamp, b timestamp) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT (extract(epoch FROM a) - extract(epoch FROM b))::double precision / 86400 $$;

-- The part that a name stands for, by one of its names; an error for a name that is none.
CREATE OR REPLACE FUNCTION dbo.tp_parte(nombre text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  p text := CASE lower(btrim(nombre) COLLATE "C")
    WHEN 'yyyy' THEN 'year' WHEN 'yy' THEN 'year' WHEN 'year' THEN 'year'
    WHEN 'q' THEN 'quarter' WHEN 'qq' THEN 'quarter' WHEN 'quarter' THEN 'quarter'
    WHEN 'm' THEN 'month' WHEN 'mm' THEN 'month' WHEN 'month' THEN 'month'
    WHEN 'd' THEN 'day' WHEN 'dd' THEN 'day' WHEN 'day' THEN 'day'
    WHEN 'y' THEN 'doy' WHEN 'dy' THEN 'doy' WHEN 'dayofyear' THEN 'doy'
    WHEN 'w' THEN 'dow' WHEN 'dw' THEN 'dow' WHEN 'weekday' THEN 'dow'
    WHEN 'ww' THEN 'week' WHEN 'wk' THEN 'week' WHEN 'week' THEN 'week'
    WHEN 'h' THEN 'hour' WHEN 'hh' THEN 'hour' WHEN 'hour' THEN 'hour'
    WHEN 'n' THEN 'minute' WHEN 'mi' THEN 'minute' WHEN 'minute' THEN 'minute'
    WHEN 's' THEN 'second' WHEN 'ss' THEN 'second' WHEN 'second' THEN 'second'
    WHEN 'ms' THEN 'millisecond' WHEN 'millisecond' THEN 'millisecond' END;
BEGIN
  IF p IS NULL THEN RAISE EXCEPTION '''%'' no es parte de una fecha.', nombre USING ERRCODE = '22023'; END IF;
  RETURN p;
END $$;

CREATE OR REPLACE FUNCTION dbo.tp_dateadd(nombre text, cuanto numeric, f timestamp) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  p text COLLATE "C" := dbo.tp_parte(nombre); k bigint; r timestamp;
BEGIN
  IF abs(cuanto) > 4000000000 THEN RAISE EXCEPTION 'La fecha queda fuera de rango.' USING ERRCODE = '22008'; END IF;
  k := trunc(cuanto);
  IF abs(k) > 100000 AND p IN ('year', 'quarter', 'month') THEN
    RAISE EXCEPTION 'La fecha queda fuera de rango.' USING ERRCODE = '22008';
  END IF;
  r := f + CASE p WHEN 'year' THEN k * interval '1 year' WHEN 'quarter' THEN k * interval '3 months'
    WHEN 'month' THEN k * interval '1 month' WHEN 'week' THEN k * interval '7 days' WHEN 'day' THEN k * interval '1 day'
    WHEN 'doy' THEN k * interval '1 day' WHEN 'dow' THEN k * interval '1 day' WHEN 'hour' THEN k * interval '1 hour'
    WHEN 'minute' THEN k * interval '1 minute' WHEN 'second' THEN k * interval '1 second'
    ELSE k * interval '1 millisecond' END;
  r := date_trunc('second', r);
  IF extract(year FROM r) NOT BETWEEN 1 AND 9999 THEN
    RAISE EXCEPTION 'La fecha queda fuera de rango.' USING ERRCODE = '22008';
  END IF;
  RETURN r;
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_dateadd(nombre text, cuanto numeric, t text) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_dateadd(nombre, cuanto, dbo.tp_cdate(t)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_dateadd(nombre text, cuanto numeric, n numeric) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_dateadd(nombre, cuanto, dbo.tp_cdate(n)) $$;

-- Counts the borders passed: from 31/12 to 1/1 is one year.
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a timestamp, b timestamp) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  p text COLLATE "C" := dbo.tp_parte(nombre);
  meses bigint := (extract(year FROM b) - extract(year FROM a)) * 12 + extract(month FROM b) - extract(month FROM a);
BEGIN
  CASE p
    WHEN 'year' THEN RETURN extract(year FROM b) - extract(year FROM a);
    WHEN 'quarter' THEN RETURN (extract(year FROM b) - extract(year FROM a)) * 4
                               + extract(quarter FROM b) - extract(quarter FROM a);
    WHEN 'month' THEN RETURN meses;
    WHEN 'week' THEN RETURN div(extract(julian FROM b::date)::numeric + 1, 7)
                            - div(extract(julian FROM a::date)::numeric + 1, 7);
    WHEN 'hour' THEN RETURN div(extract(epoch FROM date_trunc('hour', b)) - extract(epoch FROM date_trunc('hour', a)), 3600);
    WHEN 'minute' THEN RETURN div(extract(epoch FROM date_trunc('minute', b)) - extract(epoch FROM date_trunc('minute', a)), 60);
    WHEN 'second' THEN RETURN extract(epoch FROM date_trunc('second', b)) - extract(epoch FROM date_trunc('second', a));
    WHEN 'millisecond' THEN RETURN (extract(epoch FROM date_trunc('second', b)) - extract(epoch FROM date_trunc('second', a))) * 1000;
    ELSE RETURN b::date - a::date;
  END CASE;
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a text, b text) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, dbo.tp_cdate(a), dbo.tp_cdate(b)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a timestamp, b text) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, a, dbo.tp_cdate(b)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a text, b timestamp) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, dbo.tp_cdate(a), b) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a numeric, b timestamp) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, dbo.tp_cdate(a), b) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a numeric, b text) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, dbo.tp_cdate(a), dbo.tp_cdate(b)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a text, b numeric) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, dbo.tp_cdate(a), dbo.tp_cdate(b)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datediff(nombre text, a timestamp, b numeric) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datediff(nombre, a, dbo.tp_cdate(b)) $$;

-- Weeks begin on Sunday, the first of the year on its first day.
CREATE OR REPLACE FUNCTION dbo.tp_datepart(nombre text, f timestamp) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE
AS $$
DECLARE
  p text COLLATE "C" := dbo.tp_parte(nombre);
BEGIN
  IF p = 'dow' THEN RETURN extract(dow FROM f) + 1; END IF;
  IF p = 'week' THEN
    RETURN div(extract(doy FROM f) - 1 + extract(dow FROM date_trunc('year', f)), 7) + 1;
  END IF;
  IF p = 'millisecond' THEN RETURN 0; END IF;
  RETURN trunc(date_part(p, f));
END $$;
CREATE OR REPLACE FUNCTION dbo.tp_datepart(nombre text, t text) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datepart(nombre, dbo.tp_cdate(t)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datepart(nombre text, n numeric) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datepart(nombre, dbo.tp_cdate(n)) $$;
CREATE OR REPLACE FUNCTION dbo.tp_datename(nombre text, f timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$
  SELECT CASE dbo.tp_parte(nombre) COLLATE "C" WHEN 'month' THEN to_char(f, 'FMMonth')
    WHEN 'dow' THEN to_char(f, 'FMDay') ELSE dbo.tp_datepart(nombre, f)::text END
$$;
CREATE OR REPLACE FUNCTION dbo.tp_datename(nombre text, t text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.tp_datename(nombre, dbo.tp_cdate(t)) $$;

CREATE OR REPLACE FUNCTION dbo.tp_year(f timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(year FROM f)::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_year(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(year FROM dbo.tp_cdate(t))::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_month(f timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(month FROM f)::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_month(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(month FROM dbo.tp_cdate(t))::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_day(f timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(day FROM f)::bigint $$;
CREATE OR REPLACE FUNCTION dbo.tp_day(t text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
AS $$ SELECT extract(day FROM dbo.tp_cdate(t))::bigint $$;
