#include "sync/depurar_tablas.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "store/codigos.h"
#include "sync/depuracion.h"

namespace {

Sql enLosDias(const FrmDepurarTablas& v, LiteralSql columna) {
  return FormatearSQL(u"$ >= $ AND $ < $"_sql, {columna, v.dtpFechaInicial, columna, v.dtpFechaFinal.addDays(1)});
}

// Rows of the days that stay: not sent, of the open day or, of documents, open.
constexpr LiteralSql kOperacionQueda = u"(cOperFlagAbierto = 1 OR (cProdCode <> 0 AND cFlagSincronizacion <> '1'))"_sql;
constexpr LiteralSql kParalelaQueda = u"(cOperFlagAbierto = 1 OR cEstado = '1' OR (cFlagSincronizacion <> '1' AND "
                                      "cOperCodeAnul = 0 AND cEstado <> '0'))"_sql;

bool contar(Puesto& p, const Sql& sql, qint64& n) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs)) return false;
  n = AEntero(Numero(rs[0]));
  return true;
}

// False when the store can't be read.
bool avisarDeLoQueQueda(Puesto& p, const FrmDepurarTablas& v) {
  const Sql dias = enLosDias(v, u"dOperFech"_sql);
  qint64 operaciones = 0, paralelas = 0, abiertos = 0;
  if (!contar(p, u"SELECT COUNT(*) FROM Operacion WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1' AND "_sql + dias,
              operaciones) ||
      !contar(p,
              u"SELECT COUNT(*) FROM OperacionParalela WHERE cOperCodeAnul = 0 AND cEstado <> '0' AND "
              "cFlagSincronizacion <> '1' AND "_sql +
                  dias,
              paralelas) ||
      !contar(p, u"SELECT COUNT(*) FROM OperacionParalela WHERE cEstado = '1' AND "_sql + dias, abiertos)) {
    return false;
  }
  if (operaciones + paralelas + abiertos == 0) return true;
  p.mensajes.mostrar(QStringLiteral("En esos días hay %1 registros que no están en el servidor central y %2 documentos "
                                    "abiertos. Se conservan.")
                         .arg(operaciones + paralelas)
                         .arg(abiertos),
                     QStringLiteral("Mensaje"), Icono::Aviso);
  return true;
}

std::vector<Sql> sentencias(const FrmDepurarTablas& v) {
  const Sql dias = enLosDias(v, u"dOperFech"_sql);
  const Sql documentos = u" FROM OperacionParalela  WHERE "_sql + dias + u" AND NOT "_sql + kParalelaQueda +
                         SalvoLaUltimaParalela(u"OperacionParalela"_sql);
  // Money stays with what it belongs to.
  const Sql operaciones =
      (u"DELETE FROM Operacion  WHERE "_sql + dias + u" AND NOT "_sql + kOperacionQueda +
       u" AND NOT cOperCode IN (SELECT cOperCode FROM Operacion WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1') "
       "AND "
       "NOT (cDocTipo IN ({paralelas}) AND cOperCode IN (SELECT cOperCode FROM OperacionParalela))"_sql +
       SalvoLaUltimaOperacion(u"Operacion"_sql))
          .con(u"{paralelas}"_sql, Codigos({TipoDocumento::OC, TipoDocumento::NC, TipoDocumento::PADE,
                                            TipoDocumento::PADV, TipoDocumento::LIQPAD}));
  std::vector<Sql> todo{
      u"DELETE FROM OperacionParalelaProducto  WHERE cOperCode IN (SELECT cOperCode "_sql + documentos + u")"_sql,
      u"DELETE"_sql + documentos, operaciones,
      u"DELETE FROM ParalelaEnviada WHERE NOT cOperCode IN (SELECT cOperCode FROM OperacionParalela)"_sql};
  todo.push_back(u"DELETE FROM cuadre_caja WHERE "_sql + enLosDias(v, u"dCuadreFecha"_sql));
  for (const LiteralSql tabla : {u"canje_punto"_sql, u"canje_ticket"_sql}) {
    todo.push_back(FormatearSQL(u"DELETE FROM $ WHERE "_sql, {tabla}) + enLosDias(v, u"dCanjDate"_sql));
  }
  if (v.chkTeclado) todo.push_back(u" UPDATE configuracionTeclado    SET cProdCode = 0, cTeclFlagAsig = '0'"_sql);
  if (v.chkProducto) todo.push_back(u"DELETE FROM producto "_sql);
  todo.push_back(u" UPDATE Sincronizacion    SET dFechSincro = '01/01/1900'"_sql);
  return todo;
}

}  // namespace

FrmDepurarTablas AbrirDepurarTablas(const Puesto& p) {
  const QDate hoy = p.reloj.today();
  return {.dtpFechaInicial = hoy.addDays(-1), .dtpFechaFinal = hoy};
}

FinDepurar DepurarTablas(Puesto& p, const FrmDepurarTablas& v, const std::function<bool()>& supervisor) {
  if (!avisarDeLoQueQueda(p, v) ||
      !p.mensajes.preguntar(QStringLiteral("Esta seguro de eliminar información importante del sistema"),
                            QStringLiteral("Pregunta"), false) ||
      !supervisor()) {
    return FinDepurar::Nada;
  }
  Sql laQueFallo;
  if (const auto error = EjecutarJuntas(p.poCnnLocal, sentencias(v), &laQueFallo)) {
    p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + laQueFallo.texto(Dialecto::Jet));
    return FinDepurar::Fallo;
  }
  p.mensajes.mostrar(QStringLiteral("La Operación se realizó con éxito"), QStringLiteral("Mensaje"));
  return FinDepurar::Hecho;
}
