// Calls of the dialects' functions.
#include <algorithm>

#include "platform/sql/reescritor.h"

namespace {

using R = Resultado;
constexpr auto kTexto0 = ReglaFuncion::PrimeroTexto;
constexpr auto kParte = ReglaFuncion::Intervalo;

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
  if (m_.tipado) unTipo(nombre, regla, args);
  if (!regla) return n;
  if (llamado.size() < tk(nombre).largo) e_.reemplazar(nombre, llamado.toString());
  if (tk(nombre).es(u"MAX") && ambitos_.size() == 2) maximo_ = true;
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
  if (m_.tipado && tk(nombre).es(u"IIF")) return siNo(nombre, args, n);
  if (tk(nombre).es(u"SUM") && n.tipo == Tipo::Entero && !es(u"OVER")) e_.despues(p_ - 1, m_.sumaEntera.toString());
  if (!jet_ && tk(nombre).es(u"AVG") && args[0].tipo == Tipo::Entero &&
      !es(u"OVER")) {  // the mean of whole numbers is whole there
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

// Before a typed engine: a function that no rule knows is the server's own or one of the few that are the same, and
// each argument has the type that the function takes.
void Reescritor::unTipo(int nombre, const ReglaFuncion* regla, std::vector<Nodo>& args) {
  static constexpr QStringView kIguales[] = {u"CEILING",    u"POWER", u"SQRT", u"SIGN", u"EXP",         u"LOG10",
                                             u"PI",         u"SIN",   u"COS",  u"TAN",  u"ROW_NUMBER",  u"RANK",
                                             u"DENSE_RANK", u"NTILE", u"LAG",  u"LEAD", u"FIRST_VALUE", u"LAST_VALUE"};
  if (!regla) {
    const bool igual =
        std::any_of(std::begin(kIguales), std::end(kIguales), [&](QStringView f) { return tk(nombre).es(f); });
    if (!igual) e_.reemplazar(nombre, m_.funciones.toString() + m_.citado(tk(nombre).texto.toString()));
    return;
  }
  // clang-format off
  static constexpr struct { QStringView nombre; unsigned cuales; } kTextos[] = {
      {u"UPPER", 1}, {u"LOWER", 1}, {u"REVERSE", 1}, {u"REPLICATE", 1}, {u"SUBSTRING", 1}, {u"ASCII", 1},
      {u"REPLACE", 7}, {u"STUFF", 9}, {u"CHARINDEX", 3}, {u"PATINDEX", 3}, {u"CONCAT", ~0U}};
  // clang-format on
  for (const auto& t : kTextos) {
    if (!tk(nombre).es(t.nombre)) continue;
    for (size_t i = 0; i < args.size() && i < 32; ++i) {
      if ((t.cuales & (1U << i)) != 0) comoTexto(args[i]);
    }
  }
  for (const QStringView f : {u"ROUND", u"FLOOR", u"ABS", u"SUM", u"AVG", u"LOG"}) {
    if (tk(nombre).es(f) && !args.empty()) unValor(args[0]);
  }
}

// IIF(condition, value, value) as a CASE.
Nodo Reescritor::siNo(int nombre, const std::vector<Nodo>& args, Nodo n) {
  for (const Nodo& a : args) {
    if (a.vacio() || !(tk(a.fin).op(u",") || tk(a.fin).op(u")"))) return n;
  }
  e_.reemplazar(nombre, QStringLiteral("(CASE"));
  e_.reemplazar(nombre + 1, QStringLiteral(" WHEN "));
  e_.reemplazar(args[0].fin, QStringLiteral(" THEN "));
  e_.reemplazar(args[1].fin, QStringLiteral(" ELSE "));
  e_.reemplazar(args[2].fin, QStringLiteral(" END)"));
  return n;
}

// OVER ([PARTITION BY ...] [ORDER BY ...]) behind a call.
void Reescritor::ventana() {
  p_ += 2;
  const bool ligable = ambito().ligable;
  ambito().ligable = false;
  while (!fin() && !tk(p_).op(u")")) {
    const int de = p_;
    const bool orden = es(u"ORDER");
    if (orden || es(u"PARTITION")) {
      ++p_;
      come(u"BY");
      do {
        const Nodo n = expresion();
        if (n.vacio() || !orden) continue;
        if (n.tipo == Tipo::Texto && n.literal < 0 && !(m_.tipado && n.columna && n.sinCaso)) colacion(n);
        const bool baja = !come(u"ASC") && come(u"DESC");
        e_.despues(p_ - 1, (baja ? m_.nulosBaja : m_.nulosSube).toString());
      } while (comeOp(u","));
    }
    if (p_ == de) ++p_;
  }
  comeOp(u")");
  ambito().ligable = ligable;
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
    malEscrita(p_);
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
    malEscrita(p_);
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
  if (!comeOp(u")")) {
    malEscrita(p_);
    hastaCerrar();
  }
  return {ini, p_, tipo.tipo, true};
}
