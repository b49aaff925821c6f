#include "admin/simula_cotejo_caja.h"

#include "admin/consola_sql.h"
#include "admin/simula_papel.h"
#include "foundation/db_admin.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "sync/cuadre_central.h"

namespace {

constexpr int kDiasEnTienda = 80;  // history of three months goes for good
constexpr int kMostradas = 20;     // differences of one kind that are told one by one

QString q(const char* s) { return QString::fromUtf8(s); }
QString soles(qint64 centimos) { return Formatear(static_cast<double>(centimos) / 100, u"0.00"); }

// What a row is, whichever side tells it: texts as they are, figures without a form of their own.
QString claveDe(const QStringList& celdas, const QString& forma) {
  QStringList k{forma.left(1)};
  for (qsizetype i = 0; i < celdas.size(); ++i) {
    const QChar f = forma[i + 1];
    k << (f == u'n' ? TextoDe(Redondear(Val(celdas[i]), 4)) : celdas[i].trimmed());
  }
  return k.join(u'|');
}

// Kinds of row: O a line of Operacion, P a parallel document, L a line of one.
const QString kFormaO = QStringLiteral("Otnntnnnnnn"), kFormaP = QStringLiteral("Ptnntnn"),
              kFormaL = QStringLiteral("Ltnnnnnn");
const QString& formaDe(QChar clase) { return clase == u'O' ? kFormaO : clase == u'P' ? kFormaP : kFormaL; }

}  // namespace

CotejoDeCaja::CotejoDeCaja(const PlanSimulacion& plan, int n, Conexion& central, Conexion& cliente, ResultadoCotejo& r)
    : plan_(plan),
      n_(n),
      caja_(plan.codigo(n)),
      central_(central),
      cliente_(cliente),
      r_(r),
      libro_(plan.caja(n)),
      motores_(motoresDelSistema(plan.caja(n), {{}, procedimientosDeServidores(), {}})) {}

void CotejoDeCaja::correr() {
  const int antes = r_.diferencias;
  (void)libro_.leer();
  for (const QString& d : libro_.diferencias) dif(d);
  if (libro_.cierres.size() != static_cast<size_t>(plan_.dias)) {
    dif(q("se cerraron %1 días de %2").arg(libro_.cierres.size()).arg(plan_.dias));
  }
  if (const auto e = AbrirBase(*motores_, plan_.caja(n_), BasePuesto::Local, local_)) return dif(*e);
  for (const auto& [fila, perdida] : libro_.filas()) {
    const QStringList c = fila.split(u'|');
    ++(perdida ? perdidas_ : esperadas_)[claveDe(c.mid(1), formaDe(fila[0]))];
    if (perdida) diasPerdidos_.insert(fila[0] == u'L' ? QString() : c[4].left(10));
  }
  cotejarCentro();
  cotejarTienda();
  cotejarSeries();
  cotejarPuntos();
  cotejarCierres();
  cotejarExistencias();
  cotejarPapel();
  cotejarPrecios();
  comparar();
  if (r_.diferencias == antes) resumir();
}

void CotejoDeCaja::dif(const QString& texto) {
  ++r_.diferencias;
  r_.lineas << q("DIFERENCIA caja %1: ").arg(caja_) + texto;
}

// Many of one kind: the first ones, then how many.
void CotejoDeCaja::difs(const QString& que, const QStringList& cuales) {
  for (qsizetype i = 0; i < std::min<qsizetype>(cuales.size(), kMostradas); ++i) dif(que + u' ' + cuales[i]);
  if (cuales.size() > kMostradas) dif(que + q(": %1 más").arg(cuales.size() - kMostradas));
}

QList<QStringList> CotejoDeCaja::filas(Conexion& cnn, const Sql& sql) {
  Recordset rs;
  QList<QStringList> r;
  if (const auto e = cnn.consultar(sql, rs)) {
    dif(e->descripcion + q(" - ") + sql.texto(cnn.dialecto()));
    return r;
  }
  for (const auto& f : rs) {
    QStringList celdas;
    for (int i = 0; i < rs.campos().size(); ++i) {
      const QVariant v = f[i];
      celdas << (v.typeId() == QMetaType::QDateTime ? FechaISO(v.toDateTime()) : LimpiarNulo(v));
    }
    r << celdas;
  }
  return r;
}

Multiconjunto CotejoDeCaja::leer(Conexion& cnn, std::initializer_list<std::pair<const QString*, Sql>> fuentes) {
  Multiconjunto m;
  for (const auto& [forma, sql] : fuentes) {
    for (const QStringList& f : filas(cnn, sql)) ++m[claveDe(f, *forma)];
  }
  return m;
}

// Every row there once and as it was; of what a copy put back has lost no more than there was.
void CotejoDeCaja::cotejarCentro() {
  const Texto caja(caja_);
  enCentro_ =
      leer(central_,
           {{&kFormaO,
             FormatearSQL(u"SELECT cDocSerie, cDocCodigo, cOperCode, dOperFech, cProdCode, nProdCant, "
                          "nProdPrecUnit, nDscto, cOperFlagAnula, cOperTipo FROM Operacion WHERE cCajaCodi = '$'"_sql,
                          {caja})},
            {&kFormaP, FormatearSQL(u"SELECT cDocSerie, cDocCodigo, cOperCode, dOperFech, nMontoSoles, cOperTipo FROM "
                                    "OperacionParalela WHERE cCajaCodi = '$'"_sql,
                                    {caja})},
            {&kFormaL,
             FormatearSQL(u"SELECT o.cDocSerie, o.cDocCodigo, o.cOperCode, l.cProdCode, l.nProdCant, "
                          "l.nProdPrecUnit, l.nDscto FROM OperacionParalela o INNER JOIN OperacionParalelaProducto l "
                          "ON l.cCajaCodi = o.cCajaCodi AND l.cOperCode = o.cOperCode WHERE o.cCajaCodi = '$'"_sql,
                          {caja})}});
  QStringList faltan, sobran;
  for (const auto& [k, veces] : esperadas_) {
    const int hay = cuantas(enCentro_, k);
    if (hay < veces) faltan << q("%1 (%2 de %3)").arg(k).arg(hay).arg(veces);
  }
  for (const auto& [k, veces] : enCentro_) {
    const int debidas = cuantas(esperadas_, k) + cuantas(perdidas_, k);
    if (veces > debidas) sobran << q("%1 (%2, van %3)").arg(k).arg(veces).arg(debidas);
  }
  difs(q("falta en el centro"), faltan);
  difs(q("sobra en el centro"), sobran);
}

int CotejoDeCaja::cuantas(const Multiconjunto& m, const QString& k) {
  const auto i = m.find(k);
  return i == m.end() ? 0 : i->second;
}

void CotejoDeCaja::cotejarTienda() {
  const Multiconjunto hay = leer(
      local_, {{&kFormaO, consultaTienda(u"Operacion"_sql)}, {&kFormaO, consultaTienda(u"Operacion_Historico"_sql)}});
  const QString limite = DiaSimulado(plan_.dias - kDiasEnTienda).toString(q("yyyy-MM-dd"));
  QStringList faltan, sobran;
  for (const auto& [k, veces] : esperadas_) {
    if (k[0] == u'O' && k.section(u'|', 4, 4) >= limite && cuantas(hay, k) != veces) faltan << k;
  }
  for (const auto& [k, veces] : hay) {
    if (veces > cuantas(esperadas_, k)) sobran << k;
  }
  difs(q("falta en la tienda"), faltan);
  difs(q("sobra en la tienda"), sobran);
}

Sql CotejoDeCaja::consultaTienda(LiteralSql tabla) {
  return FormatearSQL(
      u"SELECT cDocSerie, cDocCodigo, cOperCode, dOperFech, cProdCode, nProdCant, nProdPrecUnit, nDscto, "
      "cOperFlagAnula, cOperTipo FROM $ WHERE cProdCode <> 0 AND cOperFlagAbierto = 0"_sql,
      {tabla});
}

// No number for two documents; none left out but those that stand only on paper since a copy was put back.
void CotejoDeCaja::cotejarSeries() {
  std::map<QString, std::map<qint64, std::set<QString>>> series;
  for (const Multiconjunto* m : {&enCentro_, &perdidas_}) {
    for (const auto& [k, veces] : *m) {
      const QStringList c = k.split(u'|');
      if (c[0] == u'L' || c[1].isEmpty()) continue;
      auto& suyos = series[c[1]][c[2].toLongLong()];
      if (m == &enCentro_) suyos.insert(c[3]);
    }
  }
  if (libro_.restauraciones > 0) {
    for (const TicketEnPapel& t : TicketsEnPapel(plan_.caja(n_))) series[t.serie][t.numero];
  }
  for (const Asiento& a : libro_.asientos) {
    if (a.anulado) series[a.serie][a.numero];  // a parallel document that was voided never goes up
  }
  for (const auto& [serie, numeros] : series) {
    qint64 debido = 1;
    for (const auto& [numero, codigos] : numeros) {
      if (codigos.size() > 1) dif(q("%1-%2 es de %3 documentos").arg(serie).arg(numero).arg(codigos.size()));
      // While nothing is stored yet the counter alone tells the next number, also behind a sale that died.
      const bool delComienzo = debido == 1 && numero - debido <= libro_.vacios;
      if (numero > debido && !delComienzo)
        dif(q("%1: faltan los números %2 a %3").arg(serie).arg(debido).arg(numero - 1));
      debido = numero + 1;
    }
  }
}

// The program's own proof, of the days that no copy has taken from the store.
void CotejoDeCaja::comparar() {
  if (!diasPerdidos_.empty()) diasPerdidos_.erase(QString());
  QString error;
  const int primero = std::max(1, plan_.dias - kDiasEnTienda);
  for (int dia = primero; dia <= plan_.dias; ++dia) {
    int hasta = plan_.dias;
    if (!diasPerdidos_.empty()) {
      hasta = dia;
      if (diasPerdidos_.count(DiaSimulado(dia).toString(q("yyyy-MM-dd"))) > 0) continue;
    }
    const auto r = CuadrarConCentral(local_, central_, {caja_, DiaSimulado(dia), DiaSimulado(hasta)}, 0.18, error);
    if (!r) return dif(error);
    if (!r->igual) difs(q("comparar:"), r->lineas.filter(q("distinto")));
    dia = hasta;
  }
}

void CotejoDeCaja::resumir() {
  qint64 total = 0;
  int documentos = 0, anulados = 0, puntos = 0;
  for (const Asiento& a : libro_.asientos) {
    ++documentos;
    if (a.anulado) ++anulados;
    else if (a.tipo == u"01" || a.tipo == u"02") total += a.total;
    if (!a.anulado && a.puntos > 0) puntos += static_cast<int>(a.puntos);
  }
  r_.lineas
      << q("caja %1: %2 días, %3 documentos (%4 anulados), %5 averías, %6 copias puestas; ventas S/. %7, %8 puntos: "
           "tienda, centro y papel coinciden")
             .arg(caja_)
             .arg(libro_.cierres.size())
             .arg(documentos)
             .arg(anulados)
             .arg(libro_.veces.size())
             .arg(libro_.restauraciones)
             .arg(soles(total))
             .arg(puntos);
}

namespace {

// A balance is what its rows have brought: all began with none.
void cotejarSaldos(Conexion& cliente, ResultadoCotejo& r) {
  Recordset rs;
  if (const auto e = cliente.consultar(
          u"SELECT c.cClieCode, c.IdLocal, c.nPuntCant, (SELECT SUM(a.nPuntCant) FROM Acumulacion_Punto a WHERE "
          "a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal) FROM Cliente c"_sql,
          rs)) {
    ++r.diferencias;
    r.lineas << e->descripcion;
    return;
  }
  for (const auto& f : rs) {
    const qint64 saldo = AEntero(Numero(f[2])), filas = AEntero(Numero(f[3]));
    if (saldo == filas) continue;
    ++r.diferencias;
    r.lineas << q("DIFERENCIA cliente %1/%2: saldo %3 puntos, sus filas suman %4")
                    .arg(LimpiarNulo(f[0]), LimpiarNulo(f[1]))
                    .arg(saldo)
                    .arg(filas);
  }
}

}  // namespace

ResultadoCotejo CotejarSimulacion(const PlanSimulacion& plan, Conexion& central, Conexion& cliente) {
  ResultadoCotejo r;
  for (int n = 1; n <= plan.puestos; ++n) CotejoDeCaja(plan, n, central, cliente, r).correr();
  cotejarSaldos(cliente, r);
  return r;
}
