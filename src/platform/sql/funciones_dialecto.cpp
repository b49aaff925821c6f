#include "platform/sql/funciones_dialecto.h"

#include "platform/sql/reescritor.h"

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
    {u"ISNULL",    false, true,  2, 2, u"ifnull",        R::Comun},
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

Tipo tipoResultado(Resultado r, const std::vector<Nodo>& args, Tipo comunDeTodos, Tipo comunDeRamas) {
  switch (r) {
    case R::Entero: return Tipo::Entero;
    case R::Numero: return Tipo::Numero;
    case R::Real: return Tipo::Real;
    case R::Texto: return Tipo::Texto;
    case R::Fecha: return Tipo::Fecha;
    case R::Logico: return Tipo::Logico;
    case R::DelPrimero: return args.empty() ? Tipo::Desconocido : args[0].tipo;
    case R::DelSegundo: return comunDeRamas;
    case R::Comun: return comunDeTodos;
    case R::Suma: break;
  }
  const Tipo t = args.empty() ? Tipo::Desconocido : args[0].tipo;
  return t == Tipo::Entero || t == Tipo::Real ? t : Tipo::Numero;
}

}  // namespace

const ReglaFuncion* reglaDeFuncion(QStringView nombre, int argumentos, Dialecto dialecto) {
  for (const ReglaFuncion& r : kReglas) {
    if (!(dialecto == Dialecto::Jet ? r.jet : r.tsql)) continue;
    if (argumentos < r.minimo || argumentos > r.maximo) continue;
    if (nombre.compare(r.nombre, Qt::CaseInsensitive) == 0) return &r;
  }
  return nullptr;
}

// A call: p_ stands on the function's name and is left behind the closing parenthesis.
Nodo Reescritor::llamada(int ini) {
  const int nombre = p_;
  if (es(u"CONVERT") && !jet_) return convertir(nombre);
  if (es(u"CAST")) return moldear(nombre);
  p_ += 2;
  const bool distintos = es(u"DISTINCT");
  if (distintos || es(u"ALL")) ++p_;
  std::vector<Nodo> args;
  argumentos(nombre, args, distintos);
  Nodo n{ini, p_, Tipo::Desconocido, true};
  QStringView llamado = tk(nombre).texto;
  if (jet_ && llamado.endsWith(u'$')) llamado.chop(1);  // LEFT$ is LEFT
  const ReglaFuncion* regla = reglaDeFuncion(llamado, static_cast<int>(args.size()), e_.dialecto());
  if (!regla) return n;
  if (llamado.size() < tk(nombre).largo) e_.reemplazar(nombre, llamado.toString());
  if (regla->forma == ReglaFuncion::Eleccion) return eleccion(nombre, args, n);
  if (regla->forma == kParte && !args.empty() && args[0].literal < 0 && args[0].fin == args[0].ini + 1) {
    e_.reemplazar(args[0].ini, u'\'' + tk(args[0].ini).texto.toString() + u'\'');
  }
  const bool mascara = regla->nuevo == u"tp_format" && args.size() == 1;
  if ((regla->forma == kTexto0 || mascara) && !args.empty()) comoTexto(args[0]);
  if (!regla->nuevo.isEmpty()) e_.reemplazar(nombre, regla->nuevo.toString());
  if (regla->resultado == R::Comun) {
    igualarRamas(args);
  } else if (regla->resultado == R::DelSegundo) {
    std::vector<Nodo> ramasDeSi(args.begin() + 1, args.end());
    igualarRamas(ramasDeSi);
    std::copy(ramasDeSi.begin(), ramasDeSi.end(), args.begin() + 1);
  } else if ((regla->resultado == R::Real || regla->nuevo == u"tp_aentero") && regla->minimo == 1 && !args.empty()) {
    fechaComoNumero(args[0]);  // CDBL, CLNG ...
  }
  // The first one's type is the result's.
  if (!jet_ && tk(nombre).es(u"ISNULL") && args[0].tipo == Tipo::Texto && esNumerico(args[1].tipo)) {
    comoTexto(args[1]);
    args[1].tipo = Tipo::Texto;
  } else if (!jet_ && tk(nombre).es(u"ISNULL") && esNumerico(args[0].tipo) && args[1].tipo == Tipo::Texto &&
             args[1].literal >= 0 && !leerLiteral(tk(args[1].literal), Lectura::NumeroEstricto, Dialecto::TSql).error) {
    unNumeroUnTexto(args[1]);
  }
  Tipo todos = Tipo::Nulo;
  Tipo ramas = Tipo::Nulo;
  for (size_t i = 0; i < args.size(); ++i) {
    todos = comun(todos, args[i].tipo);
    if (i > 0) ramas = comun(ramas, args[i].tipo);
  }
  n.tipo = tipoResultado(regla->resultado, args, todos, ramas);
  if (jet_ && (tk(nombre).es(u"INT") || tk(nombre).es(u"FIX")) && args[0].tipo == Tipo::Fecha) {  // its day
    e_.reemplazar(nombre, QStringLiteral("tp_datevalue"));
    n.tipo = Tipo::Fecha;
  }
  if (!jet_ && tk(nombre).es(u"AVG") && args[0].tipo == Tipo::Entero) {  // the mean of whole numbers is whole there
    e_.reemplazar(nombre, QStringLiteral("tp_convint(avg"));
    e_.despues(p_ - 1, QStringLiteral(")"));
    n.tipo = Tipo::Entero;
  }
  return n;
}

// What stands in the parentheses of the call of `nombre`, up to behind them.
void Reescritor::argumentos(int nombre, std::vector<Nodo>& args, bool distintos) {
  const bool condicion = tk(nombre).es(u"IIF") || tk(nombre).es(u"SWITCH");
  const bool extremo = tk(nombre).es(u"MAX") || tk(nombre).es(u"MIN");
  while (!fin() && !tk(p_).op(u")")) {
    const int de = p_;
    if (tk(p_).op(u"*")) {
      args.push_back({p_, p_ + 1});
      ++p_;
    } else if (es(u"SELECT")) {
      Nodo n{p_, p_};
      const std::vector<Columna> c = seleccion();
      if (!c.empty()) n.tipo = c[0].tipo;
      n.fin = p_;
      args.push_back(n);
    } else {
      Nodo n = expresion();
      if (!condicion || (tk(nombre).es(u"IIF") && !args.empty())) comoNumero(n);
      if ((distintos || extremo) && pideColacion(n)) colacion(n);
      if (args.empty() && tk(nombre).es(u"NULLIF") && n.tipo == Tipo::Texto) colacion(n);
      args.push_back(n);
    }
    if (!comeOp(u",") && !tk(p_).op(u")")) {
      if (p_ > de) break;
      ++p_;
    }
  }
  if (!comeOp(u")")) hastaCerrar();
}

// SWITCH(condition, value, ...) and CHOOSE(n, value, ...) are a CASE.
Nodo Reescritor::eleccion(int nombre, const std::vector<Nodo>& args, Nodo n) {
  const bool porNumero = tk(nombre).es(u"CHOOSE");
  if (!porNumero && args.size() % 2 != 0) return n;
  for (const Nodo& a : args) {
    if (a.vacio() || !(tk(a.fin).op(u",") || tk(a.fin).op(u")"))) return n;
  }
  e_.reemplazar(nombre, QStringLiteral("(CASE"));
  e_.reemplazar(nombre + 1, porNumero ? QStringLiteral(" ") : QStringLiteral(" WHEN "));
  n.tipo = Tipo::Nulo;
  for (size_t i = 0; i < args.size(); ++i) {
    if (porNumero ? i > 0 : i % 2 == 1) n.tipo = comun(n.tipo, args[i].tipo);
    if (i + 1 == args.size()) break;
    e_.reemplazar(args[i].fin, porNumero    ? QStringLiteral(" WHEN %1 THEN ").arg(i + 1)
                               : i % 2 == 0 ? QStringLiteral(" THEN ")
                                            : QStringLiteral(" WHEN "));
  }
  e_.reemplazar(args.back().fin, QStringLiteral(" END)"));
  return n;
}

// A type as CONVERT and CAST name it: name, and in parentheses a length or a precision with its decimals.
Reescritor::TipoSql Reescritor::tipoSql() {
  TipoSql t;
  t.ini = p_;
  if (!tk(p_).nombre()) {
    t.fin = p_;
    return t;
  }
  t.soloDia = tk(p_).es(u"DATE");
  t.tipo = tipoDeclarado(contenido(tk(p_++)));
  const bool conLargo = tk(p_).op(u"(") && (tk(p_ + 1).tipo == TipoToken::Numero || tk(p_ + 1).es(u"MAX"));
  const bool conDecimales = conLargo && tk(p_ + 2).op(u",") && tk(p_ + 3).tipo == TipoToken::Numero;
  const int cierra = p_ + (conDecimales ? 4 : 2);
  if (conLargo && tk(cierra).op(u")")) {
    t.largo = tk(p_ + 1).es(u"MAX") ? QStringLiteral("1000000") : tk(p_ + 1).texto.toString();
    if (conDecimales) t.decimales = tk(p_ + 3).texto.toString();
    p_ = cierra + 1;
  }
  t.fin = p_;
  return t;
}

// 30 characters unless told; CHAR is filled up with blanks, which a length below zero asks for.
QString Reescritor::largoDeTexto(const TipoSql& tipo) const {
  const int largo = tipo.largo.toInt() > 0 ? tipo.largo.toInt() : 30;
  const bool llena = tk(tipo.ini).es(u"CHAR") || tk(tipo.ini).es(u"NCHAR");
  return QString::number(llena ? -largo : largo);
}

QString Reescritor::funcionDeTipo(const TipoSql& tipo) const {
  switch (tipo.tipo) {
    case Tipo::Fecha: return tipo.soloDia ? QStringLiteral("tp_datevalue(tp_afecha") : QStringLiteral("tp_afecha");
    case Tipo::Entero: return tk(tipo.ini).es(u"BIT") ? QStringLiteral("tp_bool") : QStringLiteral("tp_convint");
    case Tipo::Texto: return QStringLiteral("tp_convtexto");
    case Tipo::Real: return QStringLiteral("tp_cdbl");
    case Tipo::Numero: return QStringLiteral("tp_decimal");
    default: return {};
  }
}

// CONVERT(type, value [, style]) becomes a call of the type's own function with the length, value and style.
Nodo Reescritor::convertir(int ini) {
  p_ = ini + 2;
  const TipoSql tipo = tipoSql();
  const QString funcion = funcionDeTipo(tipo);
  if (!tk(p_).op(u",") || funcion.isEmpty()) {
    hastaCerrar();
    return {ini, p_, Tipo::Desconocido, true};
  }
  const bool conLargo = tipo.tipo == Tipo::Texto || tipo.tipo == Tipo::Numero;
  for (int i = tipo.ini; i < tipo.fin; ++i) e_.borrar(i);
  if (conLargo) {
    const bool dinero = tk(tipo.ini).texto.contains(u"money", Qt::CaseInsensitive);
    const QString decimales = QString::number(dinero ? 4 : tipo.decimales.toInt());
    e_.reemplazar(tipo.ini, tipo.tipo == Tipo::Texto ? largoDeTexto(tipo) : decimales);
  } else {
    e_.borrar(p_);
  }
  ++p_;
  Nodo valor = expresion();
  if (esNumerico(tipo.tipo)) fechaComoNumero(valor);
  const bool estilo = comeOp(u",");
  // Styles speak of dates: a number has none here, and a text stays as it is on its way to a text.
  const bool conEstilo = tipo.tipo == Tipo::Fecha || (tipo.tipo == Tipo::Texto && valor.tipo != Tipo::Texto);
  if (estilo && !conEstilo && tk(p_).tipo == TipoToken::Numero && tk(p_ + 1).op(u")")) {
    e_.borrar(p_ - 1);
    e_.borrar(p_);
  }
  if (estilo) {
    const Nodo cual = expresion();
    if (cual.literal >= 0) e_.literal(cual.literal)->ligado = false;
  }
  e_.reemplazar(ini, funcion);
  if (!estilo && tipo.tipo == Tipo::Texto && valor.tipo == Tipo::Fecha) e_.antes(p_, QStringLiteral(",0"));
  if (!comeOp(u")")) hastaCerrar();
  if (tipo.soloDia) e_.despues(p_ - 1, QStringLiteral(")"));
  return {ini, p_, tipo.tipo, true};
}

// CAST(value AS type)
Nodo Reescritor::moldear(int ini) {
  p_ = ini + 2;
  Nodo valor = expresion();
  const int como = p_;
  if (!come(u"AS")) {
    hastaCerrar();
    return {ini, p_, Tipo::Desconocido, true};
  }
  const TipoSql tipo = tipoSql();
  const QString funcion = funcionDeTipo(tipo);
  if (funcion.isEmpty()) {  // the engine would give the value for any word
    error_ = tipo.ini == tipo.fin ? QStringLiteral("Falta el tipo de CAST.")
                                  : QStringLiteral("No existe el tipo '%1'.").arg(contenido(tk(tipo.ini)));
  }
  if (esNumerico(tipo.tipo)) fechaComoNumero(valor);
  if (!funcion.isEmpty() && tk(p_).op(u")")) {
    if (tipo.soloDia) e_.despues(p_, QStringLiteral(")"));
    for (int i = como; i < tipo.fin; ++i) e_.borrar(i);
    e_.reemplazar(ini, funcion);
    if (tipo.tipo == Tipo::Texto) e_.despues(ini + 1, largoDeTexto(tipo) + u',');
    if (tipo.tipo == Tipo::Texto && valor.tipo == Tipo::Fecha) e_.antes(p_, QStringLiteral(",0"));
    if (tipo.tipo == Tipo::Numero) e_.despues(ini + 1, QString::number(tipo.decimales.toInt()) + u',');
  }
  if (!comeOp(u")")) hastaCerrar();
  return {ini, p_, tipo.tipo, true};
}
