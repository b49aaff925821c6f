// Points, heads of the closings, stock, paper and prices of one desk.
#include "admin/simula_cotejo_caja.h"
#include "admin/simula_papel.h"
#include "foundation/db_admin.h"
#include "platform/text/numero.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }
QString soles(qint64 centimos) { return Formatear(static_cast<double>(centimos) / 100, u"0.00"); }

}  // namespace

void CotejoDeCaja::cotejarPuntos() {
  std::map<QString, std::pair<int, qint64>> hay;  // document -> rows, points
  for (const QStringList& f :
       filas(cliente_,
             FormatearSQL(u"SELECT cDocTipo, cDocSerie, cDocCodigo, COUNT(*), SUM(nPuntCant) FROM "
                          "Acumulacion_Punto WHERE cDocSerie IN ($) GROUP BY cDocTipo, cDocSerie, cDocCodigo"_sql,
                          {seriesSql()}))) {
    hay[f.mid(0, 3).join(u'|')] = {f[3].toInt(), f[4].toLongLong()};
  }
  std::map<QString, std::pair<std::set<qint64>, bool>> debidos;  // what each may have earned
  for (const Asiento& a : libro_.asientos) {
    if (a.puntos == 0) continue;
    auto& d = debidos[q("%1|%2|%3").arg(a.tipo, a.serie).arg(a.numero)];
    d.first.insert(a.anulado ? 0 : a.puntos);
    // A void takes back those of a sale, and of a document beside the sales the ones that still wait.
    if (a.anulado && a.tipo > u"02") d.first.insert(a.puntos);
    if (a.puntosDudosos || a.perdido) d.first.insert({0, a.puntos});
  }
  for (const auto& [doc, d] : debidos) {
    const auto i = hay.find(doc);
    const qint64 puntos = i == hay.end() ? 0 : i->second.second;
    if (d.first.count(puntos) == 0) dif(q("puntos de %1: hay %2, van %3").arg(doc).arg(puntos).arg(*d.first.rbegin()));
    if (i != hay.end() && i->second.first > 1) dif(q("puntos de %1: %2 veces").arg(doc).arg(i->second.first));
  }
  for (const auto& [doc, h] : hay) {
    if (h.second != 0 && debidos.count(doc) == 0) dif(q("puntos de %1, que no los gana: %2").arg(doc).arg(h.second));
  }
}

Sql CotejoDeCaja::seriesSql() const {
  std::set<QString> series;
  for (const Asiento& a : libro_.asientos) series.insert(a.serie);
  std::vector<Sql> piezas{u"''"_sql};
  for (const QString& s : series) piezas.push_back(FormatearSQL(u"'$'"_sql, {Texto(s)}));
  return UnirSql(piezas, u", "_sql);
}

// One head for each closing, with what was sold and ordered.
void CotejoDeCaja::cotejarCierres() {
  std::map<QString, std::vector<QString>> hay;
  for (const QStringList& f :
       filas(central_, FormatearSQL(u"SELECT Fecha, MontoTotal FROM CabeceraZ WHERE Caja = '$'"_sql, {Texto(caja_)}))) {
    hay[f[0].left(10)].push_back(Formatear(Val(f[1]), u"0.00"));
  }
  for (const auto& [dia, monto] : libro_.cierres) {
    const QString fecha = DiaSimulado(dia).toString(q("yyyy-MM-dd"));
    const auto i = hay.find(fecha);
    if (i == hay.end()) {
      if (diasPerdidos_.count(fecha) == 0) dif(q("falta en el centro el Z del ") + fecha);
    } else if (i->second.size() > 1 || i->second[0] != soles(monto)) {
      dif(q("Z del %1 en el centro: %2, va %3")
              .arg(fecha, QStringList(i->second.begin(), i->second.end()).join(u' '), soles(monto)));
    }
    hay.erase(fecha);
  }
  for (const auto& [fecha, montos] : hay) dif(q("sobra en el centro el Z del ") + fecha);
}

// Units, by article: what the rows there have taken out of the stock, the movements and the detail of the closings.
void CotejoDeCaja::cotejarExistencias() {
  std::map<QString, double> salida;
  double todas = 0;
  std::set<QString> fuera;
  const Texto caja(caja_);
  for (const QStringList& f :
       filas(central_, FormatearSQL(u"SELECT cOperCode FROM OperacionParalela WHERE cCajaCodi = '$' "
                                    "AND (cOperCodeAnul <> 0 OR cEstado = '0')"_sql,
                                    {caja}))) {
    fuera.insert(f[0]);
  }
  for (const auto& [k, veces] : enCentro_) {
    const QStringList c = k.split(u'|');
    if (c[0] == u'O') {
      todas += Val(c[6]) * veces;
      if (c[9] == u"0" && c[10] != u"3") salida[c[5]] += Val(c[6]) * veces;
    } else if (c[0] == u'L' && fuera.count(c[3]) == 0) {
      todas += Val(c[5]) * veces;
      salida[c[4]] += Val(c[5]) * veces;
    }
  }
  for (const QStringList& f :
       filas(central_, FormatearSQL(u"SELECT cProdCode, SUM(ncantidad) FROM ZANKEBMOVIVNTA WHERE "
                                    "cCajaCodi = '$' GROUP BY cProdCode"_sql,
                                    {caja}))) {
    const QString articulo = QString::number(f[0].toLongLong());
    if (std::abs(salida[articulo] - Val(f[1])) > 0.001) {
      dif(q("salidas del artículo %1: movimientos %2, filas %3").arg(articulo, f[1], TextoDe(salida[articulo])));
    }
    salida.erase(articulo);
  }
  for (const auto& [articulo, cantidad] : salida) {
    if (std::abs(cantidad) > 0.001)
      dif(q("el artículo %1 no tiene movimientos y salió %2").arg(articulo, TextoDe(cantidad)));
  }
  if (!perdidas_.empty()) return;  // a closing whose rows are lost may have told its detail
  const double detalle =
      Val(filas(central_, FormatearSQL(u"SELECT SUM(nProdCant) FROM TDETALLEZ1 WHERE cCajaCodi = '$'"_sql, {caja}))
              .value(0)
              .value(0));
  if (std::abs(detalle - todas) > 0.001) {
    dif(q("unidades en el detalle de los Z: %1, en las filas %2").arg(TextoDe(detalle), TextoDe(todas)));
  }
}

// What stands in the book was handed to the customer: the last ticket of its number has its lines.
void CotejoDeCaja::cotejarPapel() {
  std::map<QString, qint64> ultimos;
  for (const TicketEnPapel& t : TicketsEnPapel(plan_.caja(n_)))
    ultimos[q("%1-%2").arg(t.serie).arg(t.numero)] = t.lineas;
  for (const Asiento& a : libro_.asientos) {
    if (a.perdido) continue;
    const QString doc = q("%1-%2").arg(a.serie).arg(a.numero);
    const auto t = ultimos.find(doc);
    if (t == ultimos.end()) {
      dif(q("%1 no está en el papel").arg(doc));
    } else if (a.tipo <= u"11" && !a.dudoso && t->second != a.total) {
      dif(q("%1 en el papel: %2, va %3").arg(doc, soles(t->second), soles(a.total)));
    }
  }
}

void CotejoDeCaja::cotejarPrecios() {
  std::map<QString, QString> precios;
  for (const QStringList& f :
       filas(central_, u"SELECT a.cCodartic, b.nPrecioVtaNew FROM Articulo a, ArticuloPrecioVenta b "
                       "WHERE b.cCodArtic = a.cCodartic AND a.bFlagVenta = 1 ORDER BY b.nNumItem"_sql)) {
    precios[QString::number(f[0].toLongLong())] = Formatear(Val(f[1]), u"0.00");
  }
  std::map<QString, QString> aqui;
  for (const QStringList& f : filas(local_, u"SELECT cProdCode, nProdPrecUnit FROM Producto WHERE nActivo = 1"_sql)) {
    aqui[f[0]] = Formatear(Val(f[1]), u"0.00");
  }
  for (const auto& [articulo, precio] : precios) {
    if (aqui[articulo] != precio)
      dif(q("artículo %1: precio %2, en el centro %3").arg(articulo, aqui[articulo], precio));
    aqui.erase(articulo);
  }
  for (const auto& [articulo, precio] : aqui) dif(q("artículo %1 a la venta, que el centro no vende").arg(articulo));
}
