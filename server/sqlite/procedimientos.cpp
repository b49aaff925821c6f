#include "entrada.h"

#include <QRegularExpression>

#include "platform/text/fecha.h"
#include "servidores.h"

namespace {

using Error = std::optional<ErrorBD>;

constexpr int kFaltanArgumentos = 201;
constexpr int kNoEsFecha = 241;
constexpr int kCierreEnMarcha = -1;

// The first failure ends the rest.
Error todas(AccesoMotor& bd, std::initializer_list<std::pair<const char*, QVariantList>> sentencias) {
  for (const auto& [sql, valores] : sentencias) {
    if (auto error = bd.ejecutar(QString::fromLatin1(sql), valores)) return error;
  }
  return {};
}

// The day as two bounds of ISO text, the second one outside it; nothing for a text that is no date.
std::optional<QVariantList> limitesDelDia(const QVariant& texto) {
  const auto fecha = LeerFecha(texto.toString());
  if (!fecha) return {};
  const QDateTime dia = fecha->date().startOfDay();
  return QVariantList{FechaISO(dia), FechaISO(dia.addDays(1))};
}

// A new head for the detail of a closing; gives its number. What a closing of the same till left behind when it was
// interrupted goes first: it is begun again.
Error insertarCabeceraZ1(AccesoMotor& bd, const QVariantList& a, Recordset& rs) {
  if (a[1].toInt() == kCierreEnMarcha) {
    // clang-format off
    if (auto error = todas(bd, {
            {"DELETE FROM TDETALLEZ1 WHERE nidZ1 IN (SELECT idZ1 FROM TCABECERAZ1 WHERE cCajaCodi = ? AND nidEstado "
             "= -1)", {a[0]}},
            {"DELETE FROM TCABECERAZ1 WHERE cCajaCodi = ? AND nidEstado = -1", {a[0]}},
        })) return error;
  }
  if (auto error = bd.ejecutar(QStringLiteral("INSERT INTO TCABECERAZ1 (cCajaCodi, nidEstado, dFecha) VALUES (?, ?, "
                                              "?)"),
                               {a[0], a[1], FechaISO(bd.ahora())})) return error;
  return bd.consultar(QStringLiteral("SELECT last_insert_rowid() AS idZ1"), {}, rs);
}

// The mean price of each article over all its rows; Null where quantities cancel out.
Error promediarMontosZ1(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  return bd.ejecutar(sinFinales("UPDATE TDETALLEZ1 SET nPrecioProm = p.promedio FROM (SELECT ~cProdCode AS articulo, "
                                "round(SUM(nMonto) / NULLIF(SUM(nProdCant), 0), 6) AS promedio FROM TDETALLEZ1 "
                                "WHERE nidZ1 = ?1 GROUP BY 1) p WHERE nidZ1 = ?1 AND ~TDETALLEZ1.cProdCode = "
                                "p.articulo"), {a[0]});
}

// One row for each till, day, warehouse, type of document and article: the first takes the sums, the others go. Texts
// that are alike to the letter are added up before case and blanks are looked at: a detail may have 10,000 rows.
Error agruparZ1(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  const QString grupos = sinFinales(
      "SELECT MIN(primera) AS primera, SUM(cantidad) AS cantidad, SUM(monto) AS monto FROM (SELECT MIN(rowid) AS "
      "primera, SUM(nProdCant) AS cantidad, SUM(nMonto) AS monto, cCajaCodi, date(dOperFech) AS dia, cAlmaCode, "
      "cdocTipo, cProdCode FROM TDETALLEZ1 WHERE nidZ1 = ?1 GROUP BY cProdCode, cdocTipo, dia, cCajaCodi, cAlmaCode) "
      "GROUP BY ~cCajaCodi, dia, ~cAlmaCode, ~cdocTipo, ~cProdCode");
  if (auto error = bd.ejecutar(QStringLiteral("UPDATE TDETALLEZ1 SET nProdCant = g.cantidad, nMonto = g.monto FROM "
                                              "(%1) g WHERE TDETALLEZ1.rowid = g.primera").arg(grupos),
                               {a[0]})) return error;
  return bd.ejecutar(QStringLiteral("DELETE FROM TDETALLEZ1 WHERE nidZ1 = ?1 AND rowid NOT IN (SELECT primera FROM "
                                    "(%1))").arg(grupos), {a[0]});
}

// The movements of the days that the till has sent something of, by the mark of the rows here. Till and mark are of the
// desks' own making, without blanks, and found by their index.
Error insertaSincronizacion(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  Recordset dias;
  if (auto error = bd.consultar(
          QStringLiteral("SELECT date(dOperFech) FROM Operacion WHERE cCajaCodi = ?1 AND cFlagSincronizacion = '0' "
                         "UNION SELECT date(dOperFech) FROM OperacionParalela WHERE cCajaCodi = ?1 AND "
                         "cFlagSincronizacion = '0'"),
          {a[0]}, dias)) {
    return error;
  }
  for (const auto& f : dias) {
    const QDate dia = QDate::fromString(f[0].toString().left(10), Qt::ISODate);
    if (auto error = rehacerMovimientos(bd, dia, a[0].toString())) return error;
  }
  for (const char* tabla : {"Operacion", "OperacionParalela"}) {
    if (auto error = bd.ejecutar(QStringLiteral("UPDATE %1 SET cFlagSincronizacion = '1' WHERE cCajaCodi = ?1 AND "
                                                "cFlagSincronizacion = '0'")
                                     .arg(QLatin1String(tabla)),
                                 {a[0]})) {
      return error;
    }
  }
  return bd.ejecutar(QStringLiteral("INSERT INTO SincronizacionCaja (cCajaCodi, dFecha) VALUES (?, ?)"),
                     {a[0], FechaISO(bd.ahora())});
}

// Takes away what a till has sent of one day: its operations, and its parallel documents with their lines. Z rows stay,
// since they are not sent again.
Error limpiarCajaDia(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  const auto dia = limitesDelDia(a[1]);
  if (!dia) return noEsFecha(a[1]);
  const QVariantList valores = QVariantList{a[0]} + *dia;
  return todas(bd, {
      {"DELETE FROM OperacionParalelaProducto WHERE cCajaCodi = ?1 AND cOperCode IN (SELECT cOperCode FROM "
       "OperacionParalela "
       "WHERE cCajaCodi = ?1 AND dOperFech >= ?2 AND dOperFech < ?3)", valores},
      {"DELETE FROM OperacionParalela WHERE cCajaCodi = ?1 AND dOperFech >= ?2 AND dOperFech < ?3", valores},
      {"DELETE FROM Operacion WHERE cCajaCodi = ?1 AND dOperFech >= ?2 AND dOperFech < ?3", valores},
  });
}

QVariantList sinBlancosFinales(QVariantList valores) {
  for (QVariant& v : valores) {
    if (v.typeId() != QMetaType::QString) continue;
    QString t = v.toString();
    while (t.endsWith(u' ')) t.chop(1);
    v = t;
  }
  return valores;
}

// A transaction here keeps every other desk out already.
Error bloquearSerie(AccesoMotor&, const QVariantList&, Recordset&) { return {}; }

Error retornarIgv(AccesoMotor& bd, const QVariantList&, QVariant& valor) {
  Recordset rs;
  if (auto error = bd.consultar(QStringLiteral("SELECT nmonto1 FROM parametro WHERE cCodParam = 'IGV'"), {},
      rs)) return error;
  if (!rs[0].isNull()) valor = rs[0].toDouble() / 100;
  return {};
}

}  // namespace

QString sinFinales(const char* sql) {
  static const QRegularExpression columna(QStringLiteral("~([A-Za-z0-9_.]+)"));
  return QString::fromLatin1(sql).replace(columna, QStringLiteral("rtrim(\\1) COLLATE NOCASE"));
}

ErrorBD noEsFecha(const QVariant& texto) {
  return {kErrorSentencia, kNoEsFecha, QStringLiteral("«%1» no es una fecha.").arg(texto.toString())};
}

std::shared_ptr<const Procedimientos> procedimientosDeServidores() {
  auto todos = std::make_shared<Procedimientos>();
  std::vector<EntradaProcedimiento> tabla = procedimientosDeCuentas();
  tabla.insert(tabla.end(), {
      {"spr_bloquear_serie", 1, bloquearSerie},
      {"spr_insertar_cabecera_z1", 2, insertarCabeceraZ1},
      {"spr_promediar_montos_z1", 1, promediarMontosZ1},
      {"spr_agrupar_z1", 1, agruparZ1},
      {"spr_inserta_sincronizacion", 1, insertaSincronizacion},
      {"spr_limpiar_caja_dia", 2, limpiarCajaDia},
  });
  for (const auto& p : tabla) {
    const QString nombre = QString::fromLatin1(p.nombre);
    todos->agregar(nombre, [nombre, p](AccesoMotor& bd, const QVariantList& a, Recordset& rs) -> Error {
      if (a.size() == p.argumentos) return p.hacer(bd, sinBlancosFinales(a), rs);
      return ErrorBD{kErrorSentencia, kFaltanArgumentos,
                     QStringLiteral("El procedimiento %1 lleva %2 argumentos y recibió %3.")
                         .arg(nombre).arg(p.argumentos).arg(a.size())};
    });
    // clang-format on
  }
  todos->agregarFuncion(QStringLiteral("fnRetornarIGV"), retornarIgv);
  return todos;
}
