#include "credit/detraccion.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

bool leerMonto(Puesto& p, Conexion& central, LiteralSql sql, double& monto) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(central, sql, rs)) return false;
  monto = Numero(rs[u"nmonto1"]);
  // Without them nobody knows whether and how much: a document must not go out wrong.
  if (rs.Eof())
    p.mensajes.mostrar(QStringLiteral("Faltan los parámetros de la detracción en la base de datos central."));
  return !rs.Eof();
}

bool tieneAfecto(Puesto& p, const std::vector<LineaDocumento>& lineas, bool& tiene) {
  tiene = false;
  for (const LineaDocumento& l : lineas) {
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(
            p.poCnnLocal,
            FormatearSQL(u"SELECT  cFlagDetracc FROM Producto WHERE cProdCode=$ AND cAlmaCode='$'"_sql,
                         {l.cProdCode, Texto(l.cAlmaCode)}),
            rs)) {
      return false;
    }
    tiene = Numero(rs[u"cFlagDetracc"]) == 1;
    if (tiene) return true;
  }
  return true;
}

}  // namespace

bool CalcularDetraccion(Puesto& p, Conexion& central, const std::vector<LineaDocumento>& lineas, double total,
                        Detraccion& d) {
  d = {};
  bool candidata = false;
  double desde = 0;
  if (!tieneAfecto(p, lineas, candidata)) return false;
  if (!candidata) return true;
  if (!leerMonto(p, central, u"select nmonto1 from parametro where cCodParam='DETRS'"_sql, desde)) return false;
  if (total <= desde) return true;
  if (!leerMonto(p, central, u"select nmonto1 from parametro where cCodParam='DETRP'"_sql, d.porcentaje) ||
      !LeerCuentaDetraccion(p, central, d.cuenta)) {
    return false;
  }
  d.afecta = true;
  d.monto = Redondear(total * d.porcentaje / 100, 2);
  return true;
}

bool LeerCuentaDetraccion(Puesto& p, Conexion& central, QString& cuenta) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(central, u"select vtexto1 from parametro where cCodParam='CTABN'"_sql, rs)) {
    return false;
  }
  cuenta = LimpiarNulo(rs[u"vtexto1"]);
  return true;
}
