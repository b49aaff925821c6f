-- The schema of tables, functions and procedures, and how texts compare: a = A, á apart from a, Ñ behind N.
CREATE SCHEMA IF NOT EXISTS dbo;
CREATE COLLATION IF NOT EXISTS dbo.espaniol (provider = icu, locale = 'es-u-ks-level2', deterministic = false);
