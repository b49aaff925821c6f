#include "sync/cuadre_central.h"

#include <map>
#include <set>

#include "foundation/db_admin.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "sync/fila_central.h"

namespace {

constexpr int kTienda = 0, kCentro = 1;

QString cuantos(double n, QStringView uno, QStringView varios) {
  return TextoDe(n) + u' ' + (n == 1 ? uno : varios).toString();
}

struct Sumas {
  std::set<QString> numeros, documentos;  // a document is a number with its operation code
  qint64 lineas = 0;
  double unidades = 0, neto = 0, bruto = 0;

  QString texto() const {
    const auto n = [](const auto& conjunto) { return static_cast<double>(conjunto.size()); };
    return QStringLiteral("%1, %2, %3, %4, neto %5, bruto %6")
        .arg(cuantos(n(numeros), u"número", u"números"), cuantos(n(documentos), u"documento", u"documentos"),
             cuantos(static_cast<double>(lineas), u"línea", u"líneas"), cuantos(unidades, u"unidad", u"unidades"),
             Formatear(neto, u"0.00"), Formatear(bruto, u"0.00"));
  }
};

// A series on a day: both sides, and what tells each of their rows, by number.
struct Grupo {
  Sumas suma[2];
  std::map<QString, std::map<QString, int>> filas[2];  // number -> what a row is -> how often
};

class Cuadre {
 public:
  Cuadre(const PedidoCuadre& pedido, double igv) : pedido_(pedido), igv_(igv) {}

  bool leer(Conexion& cnn, int lado, QString& error) {
    for (const Sql& sql : lado == kTienda ? deLaTienda() : delCentro()) {
      Recordset rs;
      if (const auto e = cnn.consultar(sql, rs)) {
        error = e->descripcion;
        return false;
      }
      for (const auto& f : rs) tomar(f, lado);
    }
    return true;
  }

  ResultadoCuadre resultado() const {
    ResultadoCuadre r;
    for (const auto& [clave, g] : grupos_) {
      const QString tienda = g.suma[kTienda].texto(), centro = g.suma[kCentro].texto();
      const QString diferencia = primeraDiferencia(g);
      if (diferencia.isEmpty()) {
        r.lineas << clave.second + QStringLiteral(": ") + tienda + QStringLiteral(" = centro");
        continue;
      }
      r.igual = false;
      r.lineas << clave.second + QStringLiteral(": tienda ") + tienda + QStringLiteral("; centro ") + centro
               << QStringLiteral("  primer número distinto: ") + diferencia;
    }
    return r;
  }

 private:
  std::vector<Sql> deLaTienda() const {
    std::vector<Sql> todo;
    const Sql dias = FormatearSQL(u" dOperFech >= $ AND dOperFech < $"_sql, {pedido_.desde, pedido_.hasta.addDays(1)});
    const Sql diasO =
        FormatearSQL(u" o.dOperFech >= $ AND o.dOperFech < $"_sql, {pedido_.desde, pedido_.hasta.addDays(1)});
    for (const LiteralSql tabla : {u"Operacion"_sql, u"Operacion_Historico"_sql}) {
      todo.push_back(
          FormatearSQL(
              u"SELECT cDocSerie, cDocCodigo, dOperFech, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, "
              "cOperFlagAnula AS estado FROM $ WHERE cOperFlagAbierto = 0 AND cProdCode <> 0 AND"_sql,
              {tabla}) +
          dias);
    }
    const std::pair<LiteralSql, LiteralSql> paralelas[] = {
        {u"OperacionParalela"_sql, u"OperacionParalelaProducto"_sql},
        {u"OperacionParalela_Historico"_sql, u"OperacionParalelaProductoHist"_sql}};
    for (const auto& [cabeza, lineas] : paralelas) {
      todo.push_back(
          FormatearSQL(
              u"SELECT cDocSerie, cDocCodigo, dOperFech, cOperCode, nMontoSoles AS total, cOperCodeRela, cEstado "
              "AS estado FROM $ WHERE cOperFlagAbierto = 0 AND NOT cOperTipo IN ($) AND cOperCodeAnul = 0 AND NOT "
              "cOperCode IN (SELECT cOperCodeAnul FROM OperacionParalela) AND NOT cOperCode IN (SELECT "
              "cOperCodeAnul FROM OperacionParalela_Historico) AND"_sql,
              {cabeza, Codigos(kSinDocumento)}) +
          dias);
      todo.push_back(
          FormatearSQL(
              u"SELECT o.cDocSerie, o.cDocCodigo, o.dOperFech, o.cOperCode, l.cProdCode, l.nProdCant, "
              "l.nProdPrecUnit, l.nDscto, 0 AS estado FROM $ o INNER JOIN $ l ON l.cOperCode = o.cOperCode WHERE "
              "o.cOperFlagAbierto = 0 AND o.cOperCodeAnul = 0 AND l.cProdCode <> 0 AND NOT o.cOperCode IN (SELECT "
              "cOperCodeAnul FROM OperacionParalela) AND"_sql,
              {cabeza, lineas}) +
          diasO);
    }
    return todo;
  }

  std::vector<Sql> delCentro() const {
    const auto dias = [&](LiteralSql plantilla) {
      return FormatearSQL(plantilla, {Texto(pedido_.caja), MomentoCentral(pedido_.desde.startOfDay()),
                                      MomentoCentral(pedido_.hasta.addDays(1).startOfDay())});
    };
    const Sql suyas = dias(u" WHERE cCajaCodi = '$' AND dOperFech >= $ AND dOperFech < $"_sql);
    return {
        u"SELECT cDocSerie, cDocCodigo, dOperFech, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, "
        "cOperFlagAnula AS estado FROM Operacion"_sql +
            suyas,
        u"SELECT cDocSerie, cDocCodigo, dOperFech, cOperCode, nMontoSoles AS total, cOperCodeRela, cEstado AS estado "
        "FROM OperacionParalela"_sql +
            suyas + u" AND cOperCodeAnul = 0"_sql,
        dias(u"SELECT o.cDocSerie, o.cDocCodigo, o.dOperFech, o.cOperCode, l.cProdCode, l.nProdCant, l.nProdPrecUnit, "
             "l.nDscto, 0 AS estado FROM OperacionParalela o INNER JOIN OperacionParalelaProducto l ON l.cCajaCodi = "
             "o.cCajaCodi AND l.cOperCode = o.cOperCode WHERE o.cCajaCodi = '$' AND o.dOperFech >= $ AND o.dOperFech < "
             "$ AND o.cOperCodeAnul = 0"_sql)};
  }

  void tomar(const Recordset::Fila& f, int lado) {
    const QString serie = LimpiarNulo(f[u"cDocSerie"]), numero = NumeroCentral(f[u"cDocCodigo"]);
    const QDate dia = f[u"dOperFech"].toDateTime().date();
    const QString nombre = (serie.isEmpty() ? QStringLiteral("(anulaciones)") : serie) + u' ' +
                           FormatearFecha(dia.startOfDay(), u"dd/mm/yyyy");
    Grupo& g = grupos_[{dia, nombre}];
    Sumas& s = g.suma[lado];
    s.numeros.insert(numero);
    const QString codigo = LimpiarNulo(f[u"cOperCode"]);
    s.documentos.insert(numero + u'/' + codigo);
    const auto cifra = [&](QStringView campo) { return TextoDe(Numero(f[campo])); };
    QString que = QStringLiteral("operación %1 ").arg(codigo);
    if (f[u"cProdCode"].isNull()) {
      que += QStringLiteral("total %1, relación %2").arg(cifra(u"total"), cifra(u"cOperCodeRela"));
    } else {
      const double cantidad = Numero(f[u"nProdCant"]);
      const double valor = cantidad * Numero(f[u"nProdPrecUnit"]) * (1 + Numero(f[u"nDscto"]) / 100);
      ++s.lineas;
      s.unidades += cantidad;
      s.bruto += Redondear(valor, 2);
      s.neto += Redondear(valor / (1 + igv_), 2);
      que += QStringLiteral("artículo %1, %2 x %3, %4 %")
                 .arg(cifra(u"cProdCode"), cifra(u"nProdCant"), cifra(u"nProdPrecUnit"), cifra(u"nDscto"));
    }
    ++g.filas[lado][numero][que + QStringLiteral(", estado ") + cifra(u"estado")];
  }

  // "" when both sides are the same.
  static QString primeraDiferencia(const Grupo& g) {
    std::set<QString> numeros;
    for (const auto& lado : g.filas) {
      for (const auto& [numero, filas] : lado) numeros.insert(numero);
    }
    for (const QString& numero : numeros) {
      const auto aqui = g.filas[kTienda].find(numero), alla = g.filas[kCentro].find(numero);
      if (alla == g.filas[kCentro].end()) return numero + QStringLiteral(", falta en el centro");
      if (aqui == g.filas[kTienda].end()) return numero + QStringLiteral(", sólo está en el centro");
      for (const auto& [que, veces] : aqui->second) {
        const auto otro = alla->second.find(que);
        const int alli = otro == alla->second.end() ? 0 : otro->second;
        if (alli == veces) continue;
        return QStringLiteral("%1, %2: %3 en la tienda y %4 en el centro").arg(numero, que).arg(veces).arg(alli);
      }
      for (const auto& [que, veces] : alla->second) {
        if (!aqui->second.contains(que)) {
          return QStringLiteral("%1, %2: 0 en la tienda y %3 en el centro").arg(numero, que).arg(veces);
        }
      }
    }
    return {};
  }

  const PedidoCuadre pedido_;
  const double igv_;
  std::map<std::pair<QDate, QString>, Grupo> grupos_;
};

}  // namespace

std::optional<ResultadoCuadre> CuadrarConCentral(Conexion& local, Conexion& central, const PedidoCuadre& pedido,
                                                 double igv, QString& error) {
  Cuadre c(pedido, igv);
  if (!c.leer(local, kTienda, error) || !c.leer(central, kCentro, error)) return {};
  return c.resultado();
}
