#include "documento/lineas.h"

#include <algorithm>
#include <cmath>

#include "documento/desmesura.h"
#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr QStringView kImporte = u"0.00";
constexpr double kCantidadMaxima = 2147483647;  // quantities are stored as 32-bit numbers

Sql consultaArticulos(const QString& almacen) {
  return FormatearSQL(u" SELECT sProdDescCrta, nProdPrecUnit, cProdEstd, cFlagCanje, nPuntos, cFlagServicio, nActivo,"
                      " ccodcatalogo, cProdCode FROM Producto"
                      " WHERE cAlmaCode = '$'"_sql,
                      {Texto(almacen)});
}
Sql consultaCodigo(const QString& almacen, const QString& codigo) {
  return consultaArticulos(almacen) + FormatearSQL(u" AND cProdCode = $"_sql, {Cifras(codigo)});
}

bool vacia(const FilaVenta& f) { return f[kCod].isEmpty(); }

void numerar(RejillaLineas& l) {
  for (size_t i = 0; i < l.filas.size(); ++i) {
    QString& item = l.filas[i][kItem];
    if (!vacia(l.filas[i]) || !item.isEmpty()) item = QString::number(i + 1);
  }
}

bool seVende(const Recordset::Fila& r) { return Numero(r[u"cProdEstd"]) == 1 && Numero(r[u"nActivo"]) == 1; }

void avisarNoExiste(Puesto& p) { p.mensajes.mostrar(QStringLiteral("Articulo No Existe...!!!")); }

void ponerArticulo(const Recordset::Fila& r, FilaVenta& f) {
  const double puntos = Numero(r[u"nPuntos"]);
  f[kCod] = Formatear(Numero(r[u"cProdCode"]), u"000000");
  f[kCatalogo] = LimpiarNulo(r[u"ccodcatalogo"]);
  f[kDescripcion] = LimpiarNulo(r[u"sProdDescCrta"]);
  f[kCant] = QStringLiteral("1.00");
  f[kPrecio] = Formatear(Numero(r[u"nProdPrecUnit"]), kImporte);
  f[kSigno] = QStringLiteral("-");
  f[kPorc] = QStringLiteral("0.00");
  f[kCanje] = puntos == 0                     ? QStringLiteral("NO")
              : Numero(r[u"cFlagCanje"]) == 1 ? QStringLiteral("PTOS")
                                              : QStringLiteral("VNTA");
  f[kPtos] = TextoDe(puntos);
  f[kConServ] = Numero(r[u"cFlagServicio"]) == 1 ? QStringLiteral("SI") : QStringLiteral("NO");
}

// The article goes into the row as one piece with discount 0, or nothing when it is not on sale.
bool llenarFila(Puesto& p, RejillaLineas& l, int fila, const Recordset::Fila& r) {
  if (!seVende(r)) {
    p.mensajes.mostrar(QStringLiteral("El Producto no se encuentra activo."));
    return false;
  }
  FilaVenta& f = l.filas[static_cast<size_t>(fila)];
  f[kItem] = QString::number(fila + 1);
  ponerArticulo(r, f);
  return true;
}

bool soloDigitos(const QString& t) {
  return std::all_of(t.begin(), t.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString sinPuntos(QString t) { return t.remove(u'.'); }

// A catalogue code as the number that is left without its points; "" when it is none.
QString numeroDe(const QString& catalogo) {
  const QString n = sinPuntos(catalogo);
  if (n.isEmpty() || !soloDigitos(n)) return {};
  const auto primero = std::find_if(n.begin(), n.end(), [](QChar c) { return c != u'0'; });
  return primero == n.end() ? QStringLiteral("0") : n.mid(primero - n.begin());
}

// How near an article's catalogue code comes to what was typed; the lowest wins.
enum Cercania { kExacto, kExactoRetirado, kFinal, kNumero, kFinalRetirado, kLejos };

// One that the server has withdrawn counts, to be refused by its words, when its code is exactly this or nothing else
// is.
int cercaniaDe(const Recordset::Fila& r, const QString& texto) {
  const QString catalogo = LimpiarNulo(r[u"ccodcatalogo"]);
  const bool retirado = Numero(r[u"nActivo"]) != 1;
  if (catalogo.compare(texto, Qt::CaseInsensitive) == 0) return retirado ? kExactoRetirado : kExacto;
  if (catalogo.endsWith(texto, Qt::CaseInsensitive)) return retirado ? kFinalRetirado : kFinal;
  const QString numero = numeroDe(texto);
  return !retirado && !numero.isEmpty() && numero == numeroDe(catalogo) ? kNumero : kLejos;
}

// An article found by its catalogue code, with the rows that it is one of.
struct PorCatalogo {
  Recordset rs[3];
  std::optional<Recordset::Fila> fila;
};

// False when the store can't be read. A whole code is not found by its end: what a scanner read, or stands where an
// article's number belongs, must not be another article.
bool buscarCatalogo(Puesto& p, const QString& texto, bool entero, PorCatalogo& hallado) {
  int mejor = kLejos;
  const auto mirar = [&](Recordset& r, const Sql& condicion) {
    const Sql sql = consultaArticulos(p.ses.psAlmacen) + condicion + u" ORDER BY cProdCode"_sql;
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, r)) return false;
    for (const auto& f : r) {
      const int suya = cercaniaDe(f, texto);
      if (suya >= mejor || (entero && (suya == kFinal || suya == kFinalRetirado))) continue;
      mejor = suya;
      hallado.fila = f;
    }
    return true;
  };
  const Sql final = FormatearSQL(u" AND ccodcatalogo like  '%$' "_sql, {Texto(texto)});
  const Sql activo = u" and nactivo=1"_sql;
  return mirar(hallado.rs[0], final + activo) && (mejor == kExacto || mirar(hallado.rs[1], final)) &&
         (mejor < kNumero || numeroDe(texto).isEmpty() || mirar(hallado.rs[2], activo));
}

bool salirCatalogo(Puesto& p, RejillaLineas& l, int fila, const QString& texto) {
  if (texto == l.filas[static_cast<size_t>(fila)][kCatalogo]) return true;
  PorCatalogo hallado;
  if (!buscarCatalogo(p, texto, false, hallado)) {
    p.mensajes.mostrar(QStringLiteral("No se pudo seleccionar el artìculo"));
    return false;
  }
  if (!hallado.fila) {
    avisarNoExiste(p);
    return false;
  }
  return llenarFila(p, l, fila, *hallado.fila);
}

// No article has that number: a catalogue code will do.
bool salirCodigoAjeno(Puesto& p, RejillaLineas& l, int fila, const QString& texto) {
  PorCatalogo hallado;
  if (!buscarCatalogo(p, texto, true, hallado)) return false;
  if (!hallado.fila) {
    avisarNoExiste(p);
    return false;
  }
  return llenarFila(p, l, fila, *hallado.fila);
}

bool salirCodigo(Puesto& p, RejillaLineas& l, int fila, const QString& texto) {
  const QString codigo = Ceros(texto, 6);
  // A longer code must not lose its head: what is left could be another article.
  if (!soloDigitos(texto) || codigo.toInt() != texto.toLongLong()) return salirCodigoAjeno(p, l, fila, texto);
  if (codigo == l.filas[static_cast<size_t>(fila)][kCod]) return true;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consultaCodigo(p.ses.psAlmacen, codigo), rs)) return false;
  if (rs.RecordCount() != 1) return salirCodigoAjeno(p, l, fila, texto);
  return llenarFila(p, l, fila, *rs.begin());
}

bool conValor(const FilaVenta& f) { return Redondear(LeerImporte(f[kCant]) * LeerImporte(f[kPrecio]), 2) != 0; }

// Columns 6 to 10: the masked text that the cell takes, nothing when it is refused.
std::optional<QString> importeAceptado(Puesto& p, int columna, const QString& texto) {
  if (columna == kSigno) return texto == u"+" ? QStringLiteral("+") : QStringLiteral("-");
  if (texto.isEmpty()) return columna == kCant ? QStringLiteral("1.00") : QStringLiteral("0.00");
  if (!SinComaDecimal(p, texto) || !EsNumerico(texto)) return {};
  const double valor = LeerImporte(texto);
  if (columna == kCant) {
    const double entera = Redondear(valor, 0);
    if (entera < 1 || entera > kCantidadMaxima) return {};
    return Formatear(entera, kImporte);
  }
  if (valor < 0 || !EsImporte(texto)) return {};
  if (columna == kPorc && valor > 100) {
    p.mensajes.mostrar(QStringLiteral("Porcentaje Recargo/ Descuento incorrecto "));
    return {};
  }
  return Formatear(valor, kImporte);
}

QString cantidadDe(const FilaVenta& f) { return f[kCant].isEmpty() ? QStringLiteral("1") : f[kCant]; }
QString precioDe(const FilaVenta& f) { return f[kPrecio].isEmpty() ? QStringLiteral("0") : f[kPrecio]; }

// Fills the computed columns of a line and gives its value, unrounded.
double calcularLinea(const Puesto& p, FilaVenta& f) {
  const double cant = LeerImporte(cantidadDe(f));
  const double precio = LeerImporte(precioDe(f));
  const double monto = precio * (cant * (LeerImporte(f[kPorc]) / 100));
  const double linea = f[kSigno] == u"+" ? cant * precio + monto : cant * precio - monto;
  const ImpuestosImporte i = ImpuestosDe(p, linea, f[kConServ] == u"SI");
  f[kSubTotal] = Formatear(linea, kImporte);
  f[kServ] = Formatear(i.servicio, kImporte);
  f[kIgv] = Formatear(i.igv, kImporte);
  return linea;
}

bool seCuenta(const FilaVenta& f) {
  const bool enBlanco = f[kCod].isEmpty() && f[kPrecio].isEmpty();
  return !enBlanco && EsNumerico(cantidadDe(f)) && EsNumerico(precioDe(f));
}

// A scanned code in the quantity, or a price without its point: more than a shop sells in a line is asked for once. The
// totals of the line are not needed for it.
bool confirmarDesmesura(Puesto& p, const FilaVenta& f, int columna) {
  const LineaDocumento l = LineaDe(p, f);
  const double importe = ImportesDe(l).importe;
  const bool mucha = columna == kCant && l.cantidad > kCantidadNormal;
  if (!mucha && importe <= kImporteNormal) return true;
  return PreguntarDesmesura(p, l.cantidad, importe);
}

}  // namespace

bool SinLineas(const RejillaLineas& l) { return l.filas.size() == 1 && vacia(l.filas.front()); }

int AgregarFila(RejillaLineas& l) {
  if (!vacia(l.filas.back())) l.filas.emplace_back();
  l.filas.back()[kItem] = QString::number(l.filas.size());
  return static_cast<int>(l.filas.size()) - 1;
}

void QuitarFila(RejillaLineas& l, int fila) {
  if (fila < 0 || fila >= static_cast<int>(l.filas.size())) return;
  l.filas.erase(l.filas.begin() + fila);
  if (l.filas.empty()) l.filas.emplace_back();
  numerar(l);
}

bool CeldaEditable(const Puesto& p, const RejillaLineas& l, int fila, int columna) {
  if (l.bloqueada) return false;
  if (columna == kCod || columna == kCatalogo) return true;
  if (columna < kCant || columna > kSubTotal || vacia(l.filas[static_cast<size_t>(fila)])) return false;
  return columna != kPorc || p.ses.psDFlag.compare(u"S", Qt::CaseInsensitive) == 0;
}

TrasCelda DejarCelda(Puesto& p, RejillaLineas& l, int fila, int columna, const QString& texto) {
  const QString tecleado = Recortar(texto);
  FilaVenta& f = l.filas[static_cast<size_t>(fila)];
  if (tecleado == f[static_cast<size_t>(columna)]) return TrasCelda::Igual;
  if (!CeldaEditable(p, l, fila, columna)) return TrasCelda::Rechazada;
  if (columna == kCod || columna == kCatalogo) {
    // An emptied code changes nothing: a line goes away by its own key.
    if (tecleado.isEmpty()) return TrasCelda::Igual;
    return (columna == kCod ? salirCodigo : salirCatalogo)(p, l, fila, tecleado) ? TrasCelda::Cambiada
                                                                                 : TrasCelda::Rechazada;
  }
  const auto aceptado = importeAceptado(p, columna, tecleado);
  if (!aceptado) return TrasCelda::Rechazada;
  if (*aceptado == f[static_cast<size_t>(columna)]) return TrasCelda::Igual;
  FilaVenta nueva = f;
  nueva[static_cast<size_t>(columna)] = *aceptado;
  // A percentage holds for the line it was given to, not for another quantity or the other sign.
  const bool otraLinea = columna == kCant || (columna == kSigno && *aceptado == u"+");
  if (otraLinea && conValor(nueva)) nueva[kPorc] = QStringLiteral("0.00");
  if (!confirmarDesmesura(p, nueva, columna)) return TrasCelda::Igual;
  f = nueva;
  return TrasCelda::Cambiada;
}

double TotalDeLineas(const Puesto& p, RejillaLineas& l) {
  double total = 0;
  for (FilaVenta& f : l.filas) {
    if (seCuenta(f)) total += calcularLinea(p, f);
  }
  return std::fabs(total);
}

std::optional<int> FilaSinArticulo(RejillaLineas& l) {
  for (size_t i = 0; i < l.filas.size(); ++i) {
    FilaVenta& f = l.filas[i];
    if (!Recortar(f[kCod]).isEmpty()) continue;
    f[kItem] = QString::number(i + 1);
    const std::pair<size_t, QString> defectos[] = {{kCant, QStringLiteral("1.00")},
                                                   {kPrecio, QStringLiteral("0.00")},
                                                   {kSigno, QStringLiteral("0.00")},
                                                   {kSubTotal, QStringLiteral("0.00")},
                                                   {kPorc, QStringLiteral("0")}};
    for (const auto& [columna, defecto] : defectos) {
      if (f[columna].isEmpty()) f[columna] = defecto;
    }
    return static_cast<int>(i);
  }
  return {};
}

bool LeerArticulo(Puesto& p, const QString& almacen, const QString& codigo, FilaVenta& fila) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consultaCodigo(almacen, codigo), rs)) return false;
  fila[kCod] = Ceros(codigo, 6);
  if (!rs.Eof()) ponerArticulo(*rs.begin(), fila);
  return true;
}

std::optional<QString> CodigoDeCatalogo(Puesto& p, const QString& catalogo) {
  PorCatalogo hallado;
  if (!buscarCatalogo(p, catalogo, true, hallado)) return {};
  return hallado.fila ? Formatear(Numero((*hallado.fila)[u"cProdCode"]), u"000000") : QString();
}

LineaDocumento LineaDe(const Puesto& p, const FilaVenta& fila) {
  LineaDocumento l;
  l.cAlmaCode = p.ses.psAlmacen;
  l.cProdCode = static_cast<int>(AEntero(Val(fila[kCod])));
  l.descripcion = fila[kDescripcion];
  l.precio = LeerImporte(fila[kPrecio]);
  l.cantidad = fila[kCant].isEmpty() ? 1 : static_cast<int>(AEntero(LeerImporte(fila[kCant])));
  const double porcentaje = LeerImporte(fila[kPorc]);
  l.porcentaje = fila[kSigno] == u"+" ? porcentaje : 0 - porcentaje;
  l.canje = fila[kCanje];
  l.puntos = static_cast<int>(AEntero(LeerImporte(fila[kPtos])));
  l.conServicio = fila[kConServ] == u"SI";
  return l;
}
