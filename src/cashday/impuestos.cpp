#include "cashday/impuestos.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr LiteralSql kDeDocumento =
    u" SELECT SUM({valor} / (1 + {igv} +  (o.nServicio /100) )  * (o.nServicio/100) ) as Servicio, "
    "        SUM({valor} / (1 + {igv} + (o.nServicio / 100)) * {igv}) As Igv    FROM Operacion o "
    "   WHERE o.cDoctipo= '$'    AND o.cOperFlaganula= 0    AND o.cProdcode <> 0 {f}{t}"_sql;
constexpr LiteralSql kParalelo =
    u"  SELECT SUM({valorp} / (1 + ({igv} +  (d.nServicio /100) ) ) * (d.nServicio/100)) as Servicio  "
    "    FROM OperacionParalelaProducto d , OperacionParalela o    WHERE d.cOpercode = o.cOpercode "
    "     AND o.cOperTipo + 0= {OC} and d.cProdCode <> 0      and  o.cOpercodeAnul=0 {p}{t}"_sql;

// The IGV of this desk's billing documents; false when the central database can't tell, and the box has been shown.
bool sumarCentral(Puesto& p, Conexion& central, Impuestos& t) {
  if (!central.abierta()) return false;
  const QString serie = Derecha(Recortar(p.ses.psCaja), 2);
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT TipoDoc, sum(igv)  AS SumaIgv FROM VENTA01 WHERE cSerieDoc ='B$' or  cSerieDoc ='F$'  "
                       "GROUP BY TipoDoc"_sql,
                       {Texto(serie), Texto(serie)}),
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

std::optional<Impuestos> LeerImpuestos(Puesto& p, LectorReporte& l, NumeroImpresora impresora, Conexion& central) {
  Impuestos t;
  const auto leer = [&](const char* tipo, double& igv) {
    const Recordset rs = l.filas(FormatearSQL(kDeDocumento, {Texto(QString::fromLatin1(tipo))}));
    igv = Numero(rs[u"Igv"]);
    t.servicio += Numero(rs[u"Servicio"]);
  };
  leer("01", t.igvFactura);
  leer("02", t.igvBoleta);
  if (impresora == kImpresoraAlterna) t.servicioParalelo = l.numero(kParalelo);
  if (!l.bien() || !sumarCentral(p, central, t)) return {};
  return t;
}
