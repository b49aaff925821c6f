#include "cashday/impuestos.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

constexpr LiteralSql kDeDocumento =
    u" SELECT SUM({valor} / (1 + {igv} +  (o.nServicio /100) )  * (o.nServicio/100) ) as Servicio, "
    "        SUM({valor} / (1 + {igv} + (o.nServicio / 100)) * {igv}) As Igv    FROM Operacion o "
    "   WHERE o.cDoctipo= '$'    AND o.cOperFlaganula= 0    AND o.cProdcode <> 0 {f}{t}"_sql;
constexpr LiteralSql kParalelo =
    u"  SELECT SUM({valorp} / (1 + ({igv} +  (d.nServicio /100) ) ) * (d.nServicio/100)) as Servicio  "
    "    FROM OperacionParalelaProducto d , OperacionParalela o    WHERE d.cOpercode = o.cOpercode "
    "     AND o.cOperTipo + 0= {OC} and d.cProdCode <> 0      and  o.cOpercodeAnul=0 {p}{t}"_sql;

// The days of the billing documents that a report counts: those of its sales, up to today, or the one that was asked
// for. They carry no time.
struct Dias {
  QDate desde, hasta;
};

Dias diasDe(const Puesto& p, LectorReporte& l, const QDate* fecha) {
  if (fecha) return {*fecha, *fecha};
  const QDate hoy = p.reloj.today();
  const Recordset rs = l.filas(u"SELECT MIN(o.dOperFech) AS Fecha, COUNT(*) AS Filas FROM Operacion o"
                               " WHERE o.cOperTipo > 0 {f}"_sql);
  const QVariant primera = rs[u"Fecha"];
  return {primera.isNull() ? hoy : qMin(hoy, primera.toDateTime().date()), hoy};
}

// The IGV of this desk's billing documents; false when the central database can't tell, and the box has been shown.
bool sumarCentral(Puesto& p, const Dias& dias, Impuestos& t) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return false;
  const auto dia = [](const QDate& d) { return Texto(FormatearFecha(d.startOfDay(), u"yyyymmdd")); };
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT TipoDoc, sum(igv)  AS SumaIgv FROM VENTA01 WHERE cCodCaja ='$'"
                       " AND FechaAnulacion IS NULL AND fechaemision >= CONVERT(DATETIME,'$',112)"
                       " AND fechaemision < CONVERT(DATETIME,'$',112) GROUP BY TipoDoc"_sql,
                       {Texto(p.ses.psCaja), dia(dias.desde), dia(dias.hasta.addDays(1))}),
          rs)) {
    return false;
  }
  for (const auto& f : rs) {
    const QString tipo = LimpiarNulo(f[u"TipoDoc"]);
    if (tipo == u"01") t.igvFactura += Numero(f[u"SumaIgv"]);
    if (tipo == u"02") t.igvBoleta += Numero(f[u"SumaIgv"]);
  }
  return true;
}

}  // namespace

std::optional<Impuestos> LeerImpuestos(Puesto& p, LectorReporte& l, NumeroImpresora impresora, const QDate* fecha) {
  Impuestos t;
  const auto leer = [&](const char* tipo, double& igv) {
    const Recordset rs = l.filas(FormatearSQL(kDeDocumento, {Texto(QString::fromLatin1(tipo))}));
    igv = Numero(rs[u"Igv"]);
    t.servicio += Numero(rs[u"Servicio"]);
  };
  leer("01", t.igvFactura);
  leer("02", t.igvBoleta);
  if (impresora == kImpresoraAlterna) t.servicioParalelo = l.numero(kParalelo);
  const Dias dias = diasDe(p, l, fecha);
  if (!l.bien() || !sumarCentral(p, dias, t)) return {};
  return t;
}
