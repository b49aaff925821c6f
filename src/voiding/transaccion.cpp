#include "voiding/transaccion.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/numero.h"

const QString kSinParalelas = QStringLiteral(" AND (cDocTipo IS NULL OR cDocTipo NOT IN (%1))")
                                  .arg(Codigos({TipoDocumento::OC, TipoDocumento::NC, TipoDocumento::PADE,
                                                TipoDocumento::PADV, TipoDocumento::LIQPAD}));
const QString kDeLiquidacion =
    QStringLiteral("cOpercode= $ AND cOperFlagAbierto=1 AND cDocTipo = ") + Codigos({TipoDocumento::LIQPAD});
const QString kDineroParalelo = QStringLiteral("cOpercode= $ AND cOperFlagAbierto=1 AND cDocTipo in (%1)")
                                    .arg(Codigos({TipoDocumento::OC, TipoDocumento::LIQPAD}));

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

// How many rows a query counts; -1 when it fails.
qint64 contar(Puesto& p, const QString& tabla, const QString& condicion, qint64 codigo) {
  Recordset rs;
  const QString sql = QStringLiteral(" SELECT count(*) as TOTAL FROM ") + tabla + QStringLiteral(" WHERE ") +
                      FormatearSQL(condicion, {codigo});
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs) ? entero(rs[u"TOTAL"]) : -1;
}

bool leerLineas(Puesto& p, const QString& sql, Transaccion& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, FormatearSQL(sql, {t.codigo}), rs)) return false;
  for (const auto& f : rs) {
    LineaTransaccion l;
    l.linea.cAlmaCode = LimpiarNulo(f[u"cAlmaCode"]);
    l.linea.cProdCode = static_cast<int>(entero(f[u"cProdCode"]));
    l.linea.descripcion = LimpiarNulo(f[u"sProdDescCrta"]);
    l.linea.precio = Numero(f[u"nProdPrecUnit"]);
    l.linea.cantidad = static_cast<int>(entero(f[u"nProdCant"]));
    l.linea.porcentaje = Numero(f[u"nDscto"]);
    l.servicio = Numero(f[u"nServicio"]);
    l.linea.conServicio = l.servicio != 0;
    t.lineas.push_back(l);
  }
  return true;
}

// What both tables name alike.
void tomarComun(const Recordset& rs, Transaccion& t) {
  t.tipo = static_cast<TipoOperacion>(entero(rs[u"cOperTipo"]));
  t.fecha = rs[u"dOperFech"].toDateTime();
  t.docTipo = LimpiarNulo(rs[u"cDocTipo"]);
  t.docSerie = LimpiarNulo(rs[u"cDocSerie"]);
  t.docNumero = LimpiarNulo(rs[u"cDocCodigo"]);
  t.tarjeta = LimpiarNulo(rs[u"nTarjNumb"]);
  t.usuario = LimpiarNulo(rs[u"cUserDesc"]);
  t.caja = LimpiarNulo(rs[u"cCajaCodi"]);
  t.turno = LimpiarNulo(rs[u"cTurnoCodi"]);
  t.abierta = entero(rs[u"cOperFlagAbierto"]) == 1;
}

LecturaTransaccion leerVenta(Puesto& p, Transaccion& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(QStringLiteral("Select * FROM Operacion WHERE cOperCode= $"), {t.codigo}) + kSinParalelas +
              QStringLiteral(" ORDER BY cOperID"),
          rs)) {
    return LecturaTransaccion::Fallo;
  }
  if (rs.Eof()) return LecturaTransaccion::NoExiste;
  tomarComun(rs, t);
  t.ruc = LimpiarNulo(rs[u"cRuc"]);
  t.idLocal = LimpiarNulo(rs[u"IdLocal"]);
  t.relacion = entero(rs[u"cOperCodeAnula"]);
  for (const auto& f : rs) {
    t.dolares = std::max(t.dolares, Numero(f[u"nMontoDolares"]));
    t.anulada = t.anulada || entero(f[u"cOperFlagAnula"]) != 0;
  }
  const bool leidas = leerLineas(
      p,
      QStringLiteral("SELECT O.cProdCode, O.cAlmaCode, O.nProdCant, O.nProdPrecUnit, P.sProdDescCrta, O.nDscto,"
                     " O.nServicio FROM Operacion AS O INNER JOIN Producto AS P ON (O.cProdCode = P.cProdCode)"
                     " AND (O.cAlmaCode = P.cAlmaCode) WHERE O.cOperCode =$ ORDER BY O.cOperID"),
      t);
  return leidas ? LecturaTransaccion::Leida : LecturaTransaccion::Fallo;
}

LecturaTransaccion leerParalela(Puesto& p, Transaccion& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, FormatearSQL(QStringLiteral("Select * FROM OperacionParalela WHERE cOperCode= $"), {t.codigo}),
          rs)) {
    return LecturaTransaccion::Fallo;
  }
  if (rs.Eof()) return LecturaTransaccion::NoExiste;
  tomarComun(rs, t);
  const QString estado = LimpiarNulo(rs[u"cEstado"]);
  t.vigente = estado == u"1";
  t.anulada = estado == u"0";
  t.relacion = entero(rs[u"cOperCodeRela"]);
  t.anuladaPor = entero(rs[u"cOperCodeAnul"]);
  t.montoSoles = Numero(rs[u"nMontoSoles"]);
  t.montoDolares = Numero(rs[u"nMontoDolares"]);
  t.enDolares = LimpiarNulo(rs[u"nMoneda"]) == u"2";
  t.efectivo = Numero(rs[u"nEfectivoSoles"]);
  t.vuelto = Numero(rs[u"nVueltoSoles"]);
  const bool leidas = leerLineas(
      p,
      QStringLiteral("SELECT A.cAlmaCode, A.cProdCode, A.nProdCant, A.nProdPrecUnit, A.nDscto, P.sProdDescCrta,"
                     " A.nServicio FROM OperacionParalelaProducto AS A INNER JOIN Producto AS P"
                     " ON (A.cProdCode = P.cProdCode) AND (A.cAlmaCode = P.cAlmaCode) WHERE A.cOperCode = $"),
      t);
  return leidas ? LecturaTransaccion::Leida : LecturaTransaccion::Fallo;
}

// Rows that the undoing of the sale's liquidation would still take away; -1 when they can't be counted. A liquidation
// issued since under the same code is another one: its sale is in force, or it is younger than the void.
qint64 quedaDeLiquidacion(Puesto& p, const Transaccion& t) {
  if (t.tipo != TipoOperacion::Liquidado || t.relacion == 0) return 0;
  const qint64 otraVenta =
      contar(p, QStringLiteral("Operacion"),
             QStringLiteral("cOperCodeAnula = $ AND cOperTipo = 3 AND cOperFlagAnula = 0 AND cOperFlagAbierto = 1"),
             t.relacion);
  if (otraVenta != 0) return otraVenta > 0 ? 0 : -1;
  const QString hastaAnular =
      kDeLiquidacion +
      QStringLiteral(" AND dOperFech <= (SELECT MAX(dOperFech) FROM Operacion WHERE cOperCodeAnula = %1 "
                     "AND cOperFlagAnula = 1 AND nProdCant < 0)")
          .arg(t.codigo);
  const qint64 documento = contar(p, QStringLiteral("OperacionParalela"), hastaAnular, t.relacion);
  if (documento != 0) return documento;
  return contar(p, QStringLiteral("Operacion"), hastaAnular, t.relacion);
}

bool avanceVenta(Puesto& p, const Transaccion& t, AvanceAnulacion& a) {
  Recordset rs;
  // Only mirrors: the rows of a voided sale document carry its liquidation's code in the same column.
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(QStringLiteral(" SELECT count(*) as TOTAL, MAX(cOperCode) AS Nuevo FROM Operacion"
                                      " WHERE cOperCodeAnula =$ AND cOperFlagAbierto = 1 AND cOperFlagAnula = 1"
                                      " AND nProdCant < 0"),
                       {t.codigo}),
          rs)) {
    return false;
  }
  a.lineas = static_cast<size_t>(entero(rs[u"TOTAL"]));
  if (a.lineas == 0) return true;
  a.codigo = entero(rs[u"Nuevo"]);
  const qint64 sinMarca = contar(p, QStringLiteral("Operacion"),
                                 QStringLiteral("cOperCode = $ AND cOperFlagAnula = 0") + kSinParalelas, t.codigo);
  const qint64 queda = quedaDeLiquidacion(p, t);
  if (sinMarca < 0 || queda < 0) return false;
  const bool todo = sinMarca == 0 && queda == 0 && a.lineas >= t.lineas.size();
  a.estado = todo ? Anulada::Del_todo : Anulada::AMedias;
  return true;
}

// A void's row that no document points to yet comes from an attempt that was cut off before it marked its document.
bool avanceParalela(Puesto& p, const Transaccion& t, AvanceAnulacion& a) {
  if (!t.anulada || t.anuladaPor == 0) {
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(
            p.poCnnLocal,
            FormatearSQL(QStringLiteral("SELECT MAX(cOperCode) AS Nuevo FROM OperacionParalela"
                                        " WHERE sGlosa = 'ANULACION' AND cEstado = '0' AND cOperCodeAnul = 0"
                                        " AND cOperFlagAbierto = 1 AND cOperTipo = $ AND cOperCode NOT IN"
                                        " (SELECT cOperCodeAnul FROM OperacionParalela WHERE cOperFlagAbierto = 1)"),
                         {Codigo(t.tipo)}),
            rs)) {
      return false;
    }
    a.codigo = entero(rs[u"Nuevo"]);
    return true;
  }
  a.codigo = t.anuladaPor;
  const qint64 dinero = contar(p, QStringLiteral("Operacion"), kDineroParalelo, t.codigo);
  if (dinero < 0) return false;
  a.estado = dinero == 0 ? Anulada::Del_todo : Anulada::AMedias;
  return true;
}

}  // namespace

LecturaTransaccion LeerTransaccion(Puesto& p, qint64 codigo, bool paralela, Transaccion& t) {
  t = {};
  t.codigo = codigo;
  t.paralela = paralela;
  return paralela ? leerParalela(p, t) : leerVenta(p, t);
}

bool LeerAvance(Puesto& p, const Transaccion& t, AvanceAnulacion& avance) {
  avance = {};
  return t.paralela ? avanceParalela(p, t, avance) : avanceVenta(p, t, avance);
}
