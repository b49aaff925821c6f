#include "platform/sql/funciones_dialecto.h"

namespace {

using R = Resultado;
constexpr auto kTexto0 = ReglaFuncion::PrimeroTexto;
constexpr auto kParte = ReglaFuncion::Intervalo;

// clang-format off
const ReglaFuncion kReglas[] = {
    // name        Jet    T-SQL  arguments  in the engine       result
    {u"ABS",       true,  true,  1, 1, u"",              R::DelPrimero},
    {u"ASC",       true,  false, 1, 1, u"tp_asc",        R::Entero},
    {u"ASCII",     false, true,  1, 1, u"tp_asc",        R::Entero},
    {u"AVG",       true,  true,  1, 1, u"",              R::Real},
    {u"CBOOL",     true,  false, 1, 1, u"tp_bool",       R::Entero},
    {u"CBYTE",     true,  false, 1, 1, u"tp_aentero",    R::Entero},
    {u"CCUR",      true,  false, 1, 1, u"tp_cdbl",       R::Real},
    {u"CDATE",     true,  false, 1, 1, u"tp_cdate",      R::Fecha},
    {u"CDBL",      true,  false, 1, 1, u"tp_cdbl",       R::Real},
    {u"CHAR",      false, true,  1, 1, u"tp_chr",        R::Texto},
    {u"CHARINDEX", false, true,  2, 3, u"tp_charindex",  R::Entero},
    {u"CHR",       true,  true,  1, 1, u"tp_chr",        R::Texto},
    {u"CINT",      true,  false, 1, 1, u"tp_aentero",    R::Entero},
    {u"CHOOSE",    true,  true,  2, 99, u"",             R::Comun, ReglaFuncion::Eleccion},
    {u"CLNG",      true,  false, 1, 1, u"tp_aentero",    R::Entero},
    {u"COALESCE",  true,  true,  2, 99, u"",             R::Comun},
    {u"CONCAT",    false, true,  2, 99, u"tp_concat",    R::Texto},
    {u"COUNT",     true,  true,  1, 1, u"",              R::Entero},
    {u"CSNG",      true,  false, 1, 1, u"tp_cdbl",       R::Real},
    {u"CSTR",      true,  false, 1, 1, u"tp_texto",      R::Texto, kTexto0},
    {u"DATE",      true,  false, 0, 0, u"tp_hoy",        R::Fecha},
    {u"DATALENGTH", false, true, 1, 1, u"length",        R::Entero, kTexto0},
    {u"DATEADD",   true,  true,  3, 3, u"tp_dateadd",    R::Fecha, kParte},
    {u"DATEDIFF",  true,  true,  3, 3, u"tp_datediff",   R::Entero, kParte},
    {u"DATEDIFF",  true,  false, 4, 5, u"tp_datediff",   R::Entero},
    {u"DATENAME",  false, true,  2, 2, u"tp_datename",   R::Texto, kParte},
    {u"DATEPART",  true,  true,  2, 2, u"tp_datepart",   R::Entero, kParte},
    {u"DATEPART",  true,  false, 3, 4, u"tp_datepart",   R::Entero},
    {u"DATESERIAL", true, false, 3, 3, u"tp_dateserial", R::Fecha},
    {u"DATEVALUE", true,  false, 1, 1, u"tp_datevalue",  R::Fecha},
    {u"DAY",       true,  true,  1, 1, u"tp_day",        R::Entero},
    {u"FIRST",     true,  false, 1, 1, u"tp_primero",    R::DelPrimero},
    {u"FIX",       true,  false, 1, 1, u"tp_fix",        R::Numero},
    {u"FLOOR",     false, true,  1, 1, u"tp_int",        R::DelPrimero},
    {u"FORMAT",    true,  false, 1, 4, u"tp_format",     R::Texto},
    {u"GETDATE",   false, true,  0, 0, u"tp_ahora",      R::Fecha},
    {u"HOUR",      true,  false, 1, 1, u"tp_hour",       R::Entero},
    {u"IIF",       true,  true,  3, 3, u"",              R::DelSegundo},
    {u"INSTR",     true,  false, 2, 3, u"tp_instr",      R::Entero},
    {u"INSTR",     true,  false, 4, 4, u"tp_instr",      R::Entero},
    {u"INSTRREV",  true,  false, 2, 2, u"tp_instrrev",   R::Entero},
    {u"INT",       true,  false, 1, 1, u"tp_int",        R::Numero},
    {u"ISDATE",    true,  true,  1, 1, u"tp_isdate",     R::Logico},
    {u"ISNULL",    true,  false, 1, 1, u"tp_isnull",     R::Logico},
    {u"ISNULL",    false, true,  2, 2, u"coalesce",      R::Comun},
    {u"ISNUMERIC", true,  true,  1, 1, u"tp_isnumeric",  R::Logico},
    {u"LAST",      true,  false, 1, 1, u"tp_ultimo",     R::DelPrimero},
    {u"LCASE",     true,  false, 1, 1, u"tp_minus",      R::Texto},
    {u"LEFT",      true,  true,  2, 2, u"tp_izquierda",  R::Texto, kTexto0},
    {u"LEN",       true,  true,  1, 1, u"tp_len",        R::Entero, kTexto0},
    {u"LOG",       true,  true,  1, 1, u"ln",            R::Real},
    {u"LOWER",     false, true,  1, 1, u"tp_minus",      R::Texto},
    {u"LTRIM",     true,  true,  1, 1, u"",              R::Texto, kTexto0},
    {u"MAX",       true,  true,  1, 1, u"",              R::DelPrimero},
    {u"MID",       true,  false, 2, 3, u"substr",        R::Texto, kTexto0},
    {u"MIN",       true,  true,  1, 1, u"",              R::DelPrimero},
    {u"MINUTE",    true,  false, 1, 1, u"tp_minute",     R::Entero},
    {u"MONTH",     true,  true,  1, 1, u"tp_month",      R::Entero},
    {u"NOW",       true,  false, 0, 0, u"tp_ahora",      R::Fecha},
    {u"NZ",        true,  false, 2, 2, u"ifnull",        R::Comun},
    {u"NULLIF",    false, true,  2, 2, u"",              R::DelPrimero},
    {u"PATINDEX",  false, true,  2, 2, u"tp_patindex",   R::Entero},
    {u"REPLACE",   true,  false, 3, 3, u"",              R::Texto, kTexto0},
    {u"REPLACE",   false, true,  3, 3, u"tp_replace",    R::Texto},
    {u"REPLICATE", false, true,  2, 2, u"tp_replicate",  R::Texto},
    {u"REVERSE",   false, true,  1, 1, u"tp_reverso",    R::Texto},
    {u"RIGHT",     true,  true,  2, 2, u"tp_derecha",    R::Texto, kTexto0},
    {u"ROUND",     true,  true,  1, 2, u"tp_round",      R::Real},
    {u"ROUND",     false, true,  3, 3, u"tp_round",      R::Real},
    {u"RTRIM",     true,  true,  1, 1, u"",              R::Texto, kTexto0},
    {u"SECOND",    true,  false, 1, 1, u"tp_second",     R::Entero},
    {u"SGN",       true,  false, 1, 1, u"sign",          R::Numero},
    {u"SPACE",     true,  true,  1, 1, u"tp_space",      R::Texto},
    {u"SQR",       true,  false, 1, 1, u"sqrt",          R::Real},
    {u"STR",       true,  false, 1, 1, u"tp_str",        R::Texto},
    {u"STR",       false, true,  1, 3, u"tp_str",        R::Texto},
    {u"STRCOMP",   true,  false, 2, 3, u"tp_strcomp",    R::Entero},
    {u"STRING",    true,  false, 2, 2, u"tp_string",     R::Texto},
    {u"STRREVERSE", true, false, 1, 1, u"tp_reverso",    R::Texto},
    {u"STUFF",     false, true,  4, 4, u"tp_stuff",      R::Texto},
    {u"SUBSTRING", false, true,  3, 3, u"tp_substring",  R::Texto},
    {u"SUM",       true,  true,  1, 1, u"",              R::Suma},
    {u"SWITCH",    true,  false, 2, 99, u"",             R::Comun, ReglaFuncion::Eleccion},
    {u"TIME",      true,  false, 0, 0, u"tp_hora",       R::Fecha},
    {u"TIMESERIAL", true, false, 3, 3, u"tp_timeserial", R::Fecha},
    {u"TIMEVALUE", true,  false, 1, 1, u"tp_timevalue",  R::Fecha},
    {u"TRIM",      true,  true,  1, 1, u"",              R::Texto, kTexto0},
    {u"UCASE",     true,  false, 1, 1, u"tp_mayus",      R::Texto},
    {u"UPPER",     false, true,  1, 1, u"tp_mayus",      R::Texto},
    {u"VAL",       true,  false, 1, 1, u"tp_val",        R::Real},
    {u"WEEKDAY",   true,  false, 1, 2, u"tp_weekday",    R::Entero},
    {u"YEAR",      true,  true,  1, 1, u"tp_year",       R::Entero},
};
// clang-format on

}  // namespace

const ReglaFuncion* reglaDeFuncion(QStringView nombre, int argumentos, Dialecto dialecto) {
  for (const ReglaFuncion& r : kReglas) {
    if (!(dialecto == Dialecto::Jet ? r.jet : r.tsql)) continue;
    if (argumentos < r.minimo || argumentos > r.maximo) continue;
    if (nombre.compare(r.nombre, Qt::CaseInsensitive) == 0) return &r;
  }
  return nullptr;
}
