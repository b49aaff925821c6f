#include "sync/depuracion.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "store/codigos.h"
#include "sync/updt.h"

namespace {

constexpr int kDias = 8;
const QDate kNinguno(1800, 1, 1);

// The day before which rows of the table may move: the eighth newest with rows, or the oldest. Yesterday doesn't count
// among them, and neither its rows nor today's ever move.
bool leerLimite(Puesto& p, LiteralSql tabla, QDate& limite) {
  const QDate hoy = p.reloj.today(), ayer = hoy.addDays(-1);
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(
              u"SELECT distinct TOP $ cdate(FORMAT( DOPERFECH  , 'DD/MM/YYYY')) as fechalimite   FROM $  WHERE "
              "DOPERFECH < $ OR DOPERFECH >= $ ORDER BY 1  desc"_sql,
              {kDias, tabla, ayer, hoy}),
          rs)) {
    return false;
  }
  limite = kNinguno;
  for (const auto& f : rs) limite = f[0].toDateTime().date();
  limite = std::min(limite, ayer);
  return true;
}

// Rows behind the first Z that waits stay: its sending looks them up here.
bool leerEnviadas(Puesto& p, Sql& operaciones, Sql& paralelas) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          u"SELECT MIN(cOperIdIni) AS nIni, MIN(cOperIdPIni) AS nIniP FROM CabeceraZ WHERE bFlagSincro = 0"_sql, rs)) {
    return false;
  }
  if (rs[u"nIni"].isNull()) return true;
  operaciones = FormatearSQL(u" AND cOperID <= $"_sql, {AEntero(Numero(rs[u"nIni"]))});
  paralelas = FormatearSQL(u" AND cOperCode <= $"_sql, {AEntero(Numero(rs[u"nIniP"]))});
  return true;
}

bool ejecutar(Puesto& p, const std::vector<Sql>& sentencias) {
  Sql laQueFallo;
  const auto error = EjecutarJuntas(p.poCnnLocal, sentencias, &laQueFallo);
  if (!error) return true;
  p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + laQueFallo.texto(Dialecto::Jet));
  return false;
}

// Parallel documents with their lines; one whose last state the centre does not know yet stays. The marks of reports,
// which are never sent, go once they are closed.
std::vector<Sql> moverParalelas(QDate limite, const Sql& enviadas) {
  const Sql cuales = FormatearSQL(
      u"((cFlagSincronizacion ='1' AND dOperFech < $ AND  not(cEstado='1') AND not (cDocTipo in($)) "
      "AND cOperCode IN (SELECT o.cOperCode FROM OPERACIONPARALELA o INNER JOIN ParalelaEnviada e ON e.cOperCode = "
      "o.cOperCode WHERE o.cEstado = e.cEstado AND o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = "
      "e.cOperCodeAnul)$) OR (cOperTipo = $ AND cOperFlagAbierto = 0 AND dOperFech < $))"_sql,
      {limite, Codigos({TipoDocumento::PADE, TipoDocumento::PADV}), enviadas, Codigo(TipoOperacion::ReporteParalelas),
       limite});
  const Sql suyos = u"(SELECT cOpercode FROM OPERACIONPARALELA WHERE "_sql + cuales + u") "_sql;
  return {
      u"INSERT INTO OPERACIONPARALELAPRODUCTOHIST SELECT * FROM  OPERACIONPARALELAPRODUCTO WHERE cOperCode IN "_sql +
          suyos,
      u"DELETE from OPERACIONPARALELAPRODUCTO WHERE cOperCode IN "_sql + suyos,
      u"INSERT INTO OPERACIONPARALELA_HISTORICO   SELECT * FROM OPERACIONPARALELA WHERE "_sql + cuales,
      u"DELETE FROM OPERACIONPARALELA WHERE "_sql + cuales,
      u"DELETE FROM ParalelaEnviada WHERE NOT cOperCode IN (SELECT cOperCode FROM OPERACIONPARALELA)"_sql,
  };
}

// Lines, and the money beside them: that of a sale once no line of it waits, that of a parallel document once it has
// gone itself.
std::vector<Sql> moverOperaciones(QDate limite, const Sql& enviadas) {
  const Sql lineas =
      FormatearSQL(u"cFlagSincronizacion ='1' AND cDoctipo<>'01' AND dOperFech < $ AND cProdCode <> 0"_sql, {limite});
  const Sql dinero = FormatearSQL(
      u"cProdCode = 0 AND cOperFlagAbierto = 0 AND dOperFech < $ AND ((cDocTipo = '02' AND NOT cOperCode IN (SELECT "
      "cOperCode FROM OPERACION WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1' AND dOperFech < $ AND cDocTipo = "
      "'02')) OR (cDocTipo IN ($) AND NOT cOperCode IN (SELECT cOperCode FROM OPERACIONPARALELA)))"_sql,
      {limite, limite,
       Codigos(
           {TipoDocumento::OC, TipoDocumento::NC, TipoDocumento::PADE, TipoDocumento::PADV, TipoDocumento::LIQPAD})});
  std::vector<Sql> todo;
  for (const Sql& cuales : {lineas, dinero}) {
    todo.push_back(u"INSERT INTO OPERACION_HISTORICO   SELECT  * FROM OPERACION WHERE "_sql + cuales + enviadas);
    todo.push_back(u"DELETE FROM OPERACION WHERE "_sql + cuales + enviadas);
  }
  return todo;
}

// The highest number of a run, and the highest code, stay as markers: a number must not come twice.
Sql salvoLaUltima(LiteralSql tabla, const std::vector<Sql>& tipos) {
  Sql sql = FormatearSQL(u" AND cOperCode < (SELECT MAX(cOperCode) FROM $)"_sql, {tabla});
  for (const Sql& tipo : tipos) {
    sql +=
        FormatearSQL(u" AND (cDocCodigo IS NULL OR NOT cDocTipo IN ($) OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM $ "
                     "WHERE cDocTipo IN ($)))"_sql,
                     {tipo, tabla, tipo});
  }
  return sql;
}

std::vector<Sql> olvidar() {
  constexpr LiteralSql viejas = u" WHERE DOPERFECH <  dateadd( 'm', -3, date())"_sql;
  const Sql paralelas = viejas + SalvoLaUltimaParalela(u"OPERACIONPARALELA_HISTORICO"_sql);
  return {u"DELETE FROM OPERACIONPARALELAPRODUCTOHIST WHERE cOpercode in (SELECT copercode FROM "
          "OPERACIONPARALELA_HISTORICO"_sql +
              paralelas + u")"_sql,
          u"DELETE FROM OPERACIONPARALELA_HISTORICO"_sql + paralelas,
          u"DELETE FROM OPERACION_HISTORICO"_sql + viejas + SalvoLaUltimaOperacion(u"OPERACION_HISTORICO"_sql)};
}

}  // namespace

Sql SalvoLaUltimaOperacion(LiteralSql tabla) {
  return salvoLaUltima(tabla, {Codigos({TipoDocumento::Factura, TipoDocumento::Boleta})});
}

Sql SalvoLaUltimaParalela(LiteralSql tabla) {
  std::vector<Sql> tipos;
  for (const TipoDocumento t : kTiposDocumento) {
    if (!EsFiscal(t)) tipos.push_back(Codigos({t}));
  }
  return salvoLaUltima(tabla, tipos);
}

bool DepurarHistoria(Puesto& p, FrmUpdt& pantalla) {
  pantalla.InsertaLinea(QStringLiteral("Depurando transacciones Historicas"));
  QDate limite, limiteParalelas;
  Sql operaciones, paralelas;
  if (!leerEnviadas(p, operaciones, paralelas)) return false;
  if (!leerLimite(p, u"OPERACION"_sql, limite) || !leerLimite(p, u"OPERACIONPARALELA"_sql, limiteParalelas)) {
    return false;
  }
  pantalla.InsertaLinea(QStringLiteral("Eliminando operaciones Históricas"));
  return ejecutar(p, moverParalelas(limiteParalelas, paralelas)) &&
         ejecutar(p, moverOperaciones(limite, operaciones)) && ejecutar(p, olvidar());
}
