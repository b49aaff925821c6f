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
  return bd.ejecutar(sinFinales("UPDATE TDETALLEZ1 SET nPrecioProm = (SELECT round(SUM(d.nMonto) / "
                                "NULLIF(SUM(d.nProdCant), 0), 6) "
                                "FROM TDETALLEZ1 d WHERE d.nidZ1 = ?1 AND ~d.cProdCode = ~TDETALLEZ1.cProdCode) "
                                "WHERE nidZ1 = ?1"), {a[0]});
}

// One row for each till, day, warehouse, type of document and article: the first takes the sums, the others go.
Error agruparZ1(AccesoMotor& bd, const QVariantList& a, Recordset&) {
  const QString primeras = sinFinales(
      "SELECT MIN(rowid) FROM TDETALLEZ1 WHERE nidZ1 = ?1 "
      "GROUP BY ~cCajaCodi, date(dOperFech), ~cAlmaCode, ~cdocTipo, ~cProdCode");
  const QString sumas = sinFinales(
      "SELECT SUM(d.nProdCant), SUM(d.nMonto) FROM TDETALLEZ1 d WHERE d.nidZ1 = ?1 AND ~d.cCajaCodi IS "
      "~TDETALLEZ1.cCajaCodi AND date(d.dOperFech) IS date(TDETALLEZ1.dOperFech) AND ~d.cAlmaCode IS "
      "~TDETALLEZ1.cAlmaCode AND ~d.cdocTipo IS ~TDETALLEZ1.cdocTipo AND ~d.cProdCode IS ~TDETALLEZ1.cProdCode");
  if (auto error = bd.ejecutar(
          QStringLiteral("UPDATE TDETALLEZ1 SET (nProdCant, nMonto) = (%1) WHERE rowid IN (%2)").arg(sumas, primeras),
          {a[0]})) return error;
  return bd.ejecutar(QStringLiteral("DELETE FROM TDETALLEZ1 WHERE nidZ1 = ?1 AND rowid NOT IN (%1)").arg(primeras),
                     {a[0]});
}

Error insertaSincronizacion(AccesoMotor& bd, const QVariantList& a, Recordset&) {
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
