// An act of a simulated desk, what it must have left, and all acts beside selling.
#include "admin/pantallas_mudas.h"
#include "admin/simula_caja.h"
#include "cashday/reportes.h"
#include "cashday/turno.h"
#include "platform/text/numero.h"
#include "sale/retiro.h"
#include "store/codigos.h"
#include "voiding/anulacion.h"
#include "voiding/reimpresion.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }
QString soles(qint64 centimos) { return Formatear(static_cast<double>(centimos) / 100, u"0.00"); }

qint64 centimos(const QString& celda) { return qRound64(Val(celda) * 100); }

constexpr LiteralSql kVentas =
    u"SELECT cDocTipo, cDocSerie, cDocCodigo, cOperCode, nProdCant * nProdPrecUnit * (1 + nDscto / 100), nProdCant "
    "FROM Operacion WHERE cOperID > $ AND cProdCode <> 0 AND cDocTipo IN ('01','02') AND nProdCant > 0 ORDER BY "
    "cOperID"_sql;
constexpr LiteralSql kParalelas =
    u"SELECT o.cDocTipo, o.cDocSerie, o.cDocCodigo, o.cOperCode, o.nMontoSoles, (SELECT SUM(l.nProdCant) FROM "
    "OperacionParalelaProducto l WHERE l.cOperCode = o.cOperCode) FROM OperacionParalela o WHERE "
    "o.cOperCode > $ AND o.cOperTipo BETWEEN {OC} AND {LIQPAD} AND o.cDocTipo <> '' ORDER BY o.cOperCode"_sql;
constexpr LiteralSql kVentasAbiertas =
    u"SELECT DISTINCT cOperCode FROM Operacion WHERE cOperFlagAbierto = 1 AND cOperFlagAnula = 0 AND cProdCode <> 0 "
    "AND cDocTipo IN ('01','02') ORDER BY cOperCode"_sql;

}  // namespace

Intento CajaSimulada::intento(const char* nombre, const std::vector<RenglonTecleado>& lineas) const {
  Intento i;
  i.nombre = q(nombre);
  for (const RenglonTecleado& l : lineas) {
    i.total += l.valor();
    i.unidades += l.cantidad;
  }
  return i;
}

std::vector<Asiento> CajaSimulada::documentosDesde(const Intento& i) {
  std::vector<Asiento> todos;
  const auto sumar = [&](const QString& fila) {
    const QStringList c = fila.split(u'|');
    if (todos.empty() || todos.back().codigo != c[3].toLongLong() || todos.back().tipo != c[0]) {
      todos.push_back({.dia = i.dia, .acto = i.acto, .tipo = c[0], .serie = c[1]});
      todos.back().numero = c[2].toLongLong();
      todos.back().codigo = c[3].toLongLong();
    }
    todos.back().total += centimos(c[4]);
    todos.back().unidades += static_cast<int>(Val(c[5]));
  };
  for (const QString& f : filas(FormatearSQL(kVentas, {i.marca}))) sumar(f);
  for (const QString& f : filas(ConCodigos(FormatearSQL(kParalelas, {i.marcaParalela})))) sumar(f);
  return todos;
}

// What an act that ran to its end has left is what was keyed, whatever happened to the servers; one that died may have
// left less, never more.
void CajaSimulada::mirar(const Intento& i, bool murio, bool cortado, int documentos) {
  if (i.nombre.startsWith(u"anula ")) {
    mirarAnulacion(murio, cortado);
    return libro_.terminar();
  }
  std::vector<Asiento> hay = documentosDesde(i);
  const bool cuenta = murio ? static_cast<int>(hay.size()) <= documentos : static_cast<int>(hay.size()) == documentos;
  if (!cuenta) {
    diferencia(i.nombre + q(" dejó %1 documentos; cajas: %2").arg(hay.size()).arg(persona_.cajas.join(u'/')));
  }
  for (Asiento& a : hay) {
    a.puntos = i.puntos;
    a.dudoso = murio && a.tipo < u"10";  // a sale is written line by line, a document beside the sales at once
    a.puntosDudosos = murio || cortado || ServidorCaeElDia(plan_, dia_);
    const bool bien =
        a.dudoso ? a.total <= i.total && a.unidades <= i.unidades : a.total == i.total && a.unidades == i.unidades;
    if (!bien) {
      diferencia(q("%1 %2-%3: se teclearon %4 unidades por %5 y quedaron %6 por %7")
                     .arg(i.nombre, a.serie)
                     .arg(a.numero)
                     .arg(i.unidades)
                     .arg(soles(i.total))
                     .arg(a.unidades)
                     .arg(soles(a.total)));
    }
    libro_.asentar(a);
  }
  libro_.terminar();
}

void CajaSimulada::hacer(Intento i, int documentos, const std::function<void()>& acto) {
  i.dia = dia_;
  i.acto = acto_;
  i.marca = cifra(u"SELECT MAX(cOperID) FROM Operacion"_sql);
  i.marcaParalela = cifra(u"SELECT MAX(cOperCode) FROM OperacionParalela"_sql);
  libro_.intentar(i);
  persona_.cajas.clear();
  (void)armar(acto_, 70, 30);
  bool murio = false;
  try {
    acto();
  } catch (const ProgramaTerminado&) {
    murio = true;
  }
  const bool cortado = desarmar();
  mirar(i, murio, cortado, documentos);
  if (cortado) pantalla_.reset();
}

void CajaSimulada::acto(int n) {
  using Acto = void (CajaSimulada::*)();
  static const std::vector<Acto> bolsa = [] {
    const std::pair<Acto, int> pesos[] = {
        {&CajaSimulada::venta, 8},      {&CajaSimulada::rapida, 6},      {&CajaSimulada::orden, 2},
        {&CajaSimulada::adelanto, 2},   {&CajaSimulada::nota, 2},        {&CajaSimulada::liquidacion, 2},
        {&CajaSimulada::anular, 2},     {&CajaSimulada::retirar, 1},     {&CajaSimulada::reporteX, 1},
        {&CajaSimulada::reimprimir, 1}, {&CajaSimulada::cambiarTurno, 1}};
    std::vector<Acto> b;
    for (const auto& [acto, peso] : pesos) b.insert(b.end(), static_cast<size_t>(peso), acto);
    return b;
  }();
  latir();
  // The first is a sale: a day without one can't be closed.
  if (n == 1) return venta();
  (this->*azar_.de(bolsa))();
}

// One document of the open day, a sale or one beside the sales.
void CajaSimulada::anular() {
  const bool paralela = azar_.unoDe(4);
  const QStringList hay =
      filas(paralela ? ConCodigos(u"SELECT cOperCode FROM OperacionParalela WHERE cOperFlagAbierto = 1 AND cEstado = "
                                  "'1' AND cOperTipo BETWEEN {OC} AND {PADV} ORDER BY cOperCode"_sql)
                     : Sql(kVentasAbiertas));
  if (hay.size() < 2) return venta();
  const QString& codigo = hay[azar_.entre(0, static_cast<int>(hay.size()) - 1)];
  hacer(intento(qPrintable(q("anula %1 %2").arg(paralela ? q("p") : q("v"), codigo)), {}), 0, [&] {
    PantallaTransaccion v;
    AnulacionDelDia jefe;
    AbrirTransacciones(*p_, v);
    if (paralela) CambiarAlterno(*p_, v, true);
    v.txtTransaccion = codigo;
    BuscarTransaccion(*p_, v);
    if (v.cargada) Anular(*p_, v, jefe);
  });
}

// Voided as a whole or not at all.
void CajaSimulada::mirarAnulacion(bool murio, bool cortado) {
  const QString codigo = libro_.abierto->nombre.section(u' ', 2);
  const bool paralela = libro_.abierto->nombre.section(u' ', 1, 1) == u"p";
  QString estado;
  Asiento* suyo = nullptr;
  for (Asiento& a : libro_.asientos) {
    const bool fiscal = a.tipo == u"01" || a.tipo == u"02";
    if (a.dia == libro_.abierto->dia && !a.perdido && QString::number(a.codigo) == codigo && fiscal != paralela)
      suyo = &a;
  }
  if (paralela) {
    estado = filas(FormatearSQL(u"SELECT cEstado FROM OperacionParalela WHERE cOperCode = $ AND cDocTipo <> ''"_sql,
                                {Cifras(codigo)}))
                 .value(0);
    estado = estado == u"0" ? q("1") : q("0");
  } else {
    estado =
        filas(FormatearSQL(u"SELECT MIN(cOperFlagAnula) + MAX(cOperFlagAnula) FROM Operacion WHERE cOperCode = $ AND "
                           "cProdCode <> 0 AND cDocTipo IN ('01','02')"_sql,
                           {Cifras(codigo)}))
            .value(0);
    if (estado == u"1") diferencia(q("la venta %1 quedó anulada a medias").arg(codigo));
  }
  if (estado == u"0") {
    if (!murio && !cortado) diferencia(q("no se anuló %1: %2").arg(codigo, persona_.cajas.join(u'/')));
    if (suyo != nullptr && (murio || cortado)) suyo->puntosDudosos = true;
    return;
  }
  if (suyo == nullptr) return diferencia(q("anulado lo que no está en el libro: %1").arg(codigo));
  libro_.anular(suyo->dia, suyo->tipo, suyo->serie, suyo->numero, murio || cortado || ServidorCaeElDia(plan_, dia_));
}

void CajaSimulada::retirar() {
  hacer(intento("retira", {}), 0, [&] { (void)Retirar(*p_, MontoRetiro(QString::number(azar_.entre(1, 30) * 5))); });
}

void CajaSimulada::reporteX() {
  const bool alterna = azar_.unoDe(3);
  hacer(intento("X", {}), 0, [&] {
    PrincipalDelDia menu(*p_);
    PrepararOperacion(*p_, ventana_, menu);
    if (!AutorizarOperacion(ventana_, menu, q("Reporte X"))) return;
    const auto r = (alterna ? ReportesEspeciales1 : ReportesEspeciales)(*p_, PedidoX());
    if (!r.hecho()) diferencia(q("no hubo X"));
  });
}

// With the next clerk comes a new start, faults and all.
void CajaSimulada::cambiarTurno() {
  bool rearranca = false;
  hacer(intento("turno", {}), 0, [&] {
    PrincipalDelDia menu(*p_);
    PrepararOperacion(*p_, ventana_, menu);
    if (!AutorizarOperacion(ventana_, menu, q("Cambio de turno"))) return;
    CambioTurno(*p_, ventana_, menu);
    rearranca = menu.rearranca;
  });
  if (rearranca) (void)arrancar(false);
}

void CajaSimulada::reimprimir() {
  const QStringList hay = filas(kVentasAbiertas);
  if (hay.isEmpty()) return venta();
  hacer(intento("reimprime", {}), 0, [&] {
    PantallaTransaccion v;
    v.uso = Uso::Reimprimir;
    AbrirTransacciones(*p_, v);
    v.txtTransaccion = hay[azar_.entre(0, static_cast<int>(hay.size()) - 1)];
    BuscarTransaccion(*p_, v);
    if (v.cargada) Reimprimir(*p_, v);
  });
}
