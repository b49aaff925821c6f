#include "cashday/periodo.h"
#include "cashday/reportes.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "store/codigos.h"
#include "sync/detalle_enviado.h"

namespace {

constexpr int kCierreEnMarcha = -1;

constexpr LiteralSql kDetalle =
    u" SELECT o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy') as dOperFech, o.cAlmaCode, o.cDocTipo "
    "      , o.cProdCode, sum(o.nProdCant) as cant, sum ((O.nProdCant * O.nProdPrecUnit)+ ((O.nProdCant * "
    "O.nProdPrecUnit) * O.nDscto/100)) as precio  FROM Operacion o, Producto p  Where o.cProdcode = p.cProdcode    "
    "and o.cAlmaCode = p.cAlmaCode    and o.cProdcode <> 0 {f}   and o.cOperFlaganula = 0 "
    " GROUP BY o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy'), o.cAlmaCode, o.cDocTipo, o.cProdCode "
    " Union  SELECT o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy') as dOperFech, d.cAlmaCode, o.cDocTipo "
    "      , d.cProdCode, sum(d.nProdCant) as cant, sum((d.nProdPrecUnit * d.nProdCant) + ((d.nProdPrecUnit * "
    "d.nProdCant) * d.nDscto/100)) as precio  FROM OperacionParalelaProducto as d, OperacionParalela as o, Producto "
    "as p  Where d.cOperCode = o.cOperCode    and d.cProdCode = p.cProdCode    and d.cAlmaCode = p.cAlmaCode {p}"
    "   and o.cOperCodeanul= 0    and ( (TRIM(o.cEstado) = '1' and o.cOpertipo + 0 in ({OC}, {NC})) or "
    "(TRIM(o.cdocTipo) = {dNC}) )"
    "  GROUP BY o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy'), d.cAlmaCode, o.cDocTipo, d.cProdCode "_sql;

// The head, the rows and their mean prices; the words of the failure.
std::optional<ErrorBD> grabarDetalle(Conexion& central, const Recordset& filas, const QString& caja, int estado,
                                     QString& idZ1) {
  Recordset rs;
  if (auto e =
          central.consultar(FormatearSQL(u"exec dbo.spr_insertar_cabecera_z1 '$', $"_sql, {Texto(caja), estado}), rs)) {
    return e;
  }
  if (!rs.Eof()) idZ1 = LimpiarNulo(rs[u"idZ1"]);
  for (const auto& f : filas) {
    const auto texto = [&f](QStringView campo) { return Texto(LimpiarNulo(f[campo])); };
    if (auto e = central.ejecutar(FormatearSQL(
            u"INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) "
            "VALUES($,'$',CONVERT(DATETIME,'$',103),'$','$','$',$,$)"_sql,
            {Cifras(idZ1), texto(u"cCajaCodi"), texto(u"dOperFech"), texto(u"cAlmaCode"), texto(u"cDocTipo"),
             texto(u"cProdCode"), Numero(f[u"cant"]), Numero(f[u"precio"])}))) {
      return e;
    }
  }
  return central.ejecutar(FormatearSQL(u"dbo.spr_promediar_montos_z1 $"_sql, {Cifras(idZ1)}));
}

bool avisar(Puesto& p, const QString& porque) {
  p.mensajes.mostrar(QStringLiteral("El detalle de ventas del cierre (Z1) no llegó a la base central: ") + porque +
                     QStringLiteral("\nEl cierre continúa."));
  return false;
}

}  // namespace

bool EnviarDetalleZ1(Puesto& p, int estado) {
  Periodo periodo;
  (void)LeerPeriodo(p, periodo);  // what can't be read counts as blank
  if (!p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral)) return avisar(p, QStringLiteral("no responde."));
  const Sql sql = ConCodigos(kDetalle).con(u"{f}"_sql, periodo.sFiltro).con(u"{p}"_sql, periodo.sFiltroP);
  Recordset filas;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, filas)) return false;
  QString idZ1 = p.ses.psIdZ1;
  const auto error =
      EnTransaccion(p.poCnnCentral, [&] { return grabarDetalle(p.poCnnCentral, filas, p.ses.psCaja, estado, idZ1); });
  if (error) return avisar(p, error->descripcion);
  p.ses.psIdZ1 = idZ1;
  // One that can't be noted is taken back by the last step, and goes with the rows.
  if (estado == kCierreEnMarcha) (void)AnotarDetalleEnviado(p, idZ1);
  return true;
}
