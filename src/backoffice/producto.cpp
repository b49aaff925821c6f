#include "backoffice/producto.h"

#include <limits>

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

QString precioMostrado(double precio) { return Formatear(precio, u"###,###,###,####.00"); }

QString tipoDe(bool ficha, bool canje) {
  return canje ? QStringLiteral("Canje") : ficha ? QStringLiteral("Ficha") : QString();
}

QString siNo(bool si) { return si ? QStringLiteral("SI") : QStringLiteral("NO"); }

bool esUno(const QVariant& v) { return Numero(v) == 1; }

// Whole, from 1 to what the column of an integer holds.
bool sonFichas(const QString& texto) {
  const double n = LeerImporte(texto);
  return EsNumerico(texto) && n >= 1 && n == Int(n) && n <= std::numeric_limits<int>::max();
}

bool validar(Puesto& p, DetalleProducto& v) {
  MarcarCanje(v);
  // clang-format off
  return Comprobar(p, {
      {v.chkCanje && !v.chkFicha, u"chkFicha", u"Debe indicar el número de fichas equivalentes"},
      {v.chkFicha && !sonFichas(v.txtFichas), u"txtFichas", u"Debe ingresar el número de fichas"},
      {Recortar(v.txtDescripcion).isEmpty(), u"txtDescripcion", u"Ingresar Nombre de Producto"},
      {Recortar(v.txtCorta).isEmpty(), u"txtCorta", u"Ingresar Descripción Corta de Producto"},
      // What is no amount would be stored as another price than the one that stands there.
      {!EsNumerico(v.txtPUnitario) || LeerImporte(v.txtPUnitario) < 0, u"txtPUnitario",
       u"Ingresar PRecio Unitario del Producto"},
  }, v.campoMal);
  // clang-format on
}

SentenciasDetalle sentencias(const Puesto& p, const DetalleProducto& v) {
  const double fichas = sonFichas(v.txtFichas) ? LeerImporte(v.txtFichas) : 0;
  const Texto almacen(p.ses.psAlmacen), descripcion(v.txtDescripcion), corta(v.txtCorta);
  const Cifras codigo(v.txtCodigo), precio(Formatear(LeerImporte(v.txtPUnitario), u"#########0.00"));
  return {FormatearSQL(
              u"INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, "
              "cProdEstd, cProdFlagFicha, cProdFichaCant, cProdFlagCanje, cProdFlagControl) "
              "VALUES ('$', $, '$', '$', $, $, $, $, $, $)"_sql,
              {almacen, codigo, descripcion, corta, precio, v.activo, v.chkFicha, fichas, v.chkCanje, v.chkControl}),
          FormatearSQL(
              u"UPDATE Producto SET sProdDesc = '$', sProdDescCrta = '$', nProdPrecUnit = $, "
              "cProdEstd = $, cProdFlagFicha = $, cProdFichaCant = $, cProdFlagCanje = $, "
              "cProdFlagControl = $ WHERE cProdCode = $ AND cAlmaCode = '$'"_sql,
              {descripcion, corta, precio, v.activo, v.chkFicha, fichas, v.chkCanje, v.chkControl, codigo, almacen}),
          FormatearSQL(u"DELETE * FROM Producto WHERE cProdCode = $ and cAlmaCode ='$'"_sql, {codigo, almacen})};
}

}  // namespace

bool LeerProductos(Puesto& p, std::vector<FilaProducto>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u" SELECT cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, cProdFlagFicha, "
                       "cProdFlagCanje, cProdFlagControl FROM Producto where cAlmaCode = '$' ORDER BY cProdCode"_sql,
                       {Texto(p.ses.psAlmacen)}),
          rs))
    return false;
  for (const auto& f : rs) {
    filas.push_back({LimpiarNulo(f[u"cProdCode"]), LimpiarNulo(f[u"sProdDesc"]), LimpiarNulo(f[u"sProdDescCrta"]),
                     precioMostrado(Numero(f[u"nProdPrecUnit"])),
                     tipoDe(esUno(f[u"cProdFlagFicha"]), esUno(f[u"cProdFlagCanje"])),
                     siNo(esUno(f[u"cProdFlagControl"])), esUno(f[u"cProdEstd"])});
  }
  return true;
}

bool CargarProducto(Puesto& p, ModoDetalle modo, const QString& codigo, DetalleProducto& v) {
  v = {};
  v.modo = modo;
  Recordset rs;
  if (modo == ModoDetalle::Nuevo) {
    if (!p.poDBAdmin.EjecutarConsulta(
            p.poCnnLocal,
            FormatearSQL(u"SELECT MAX(cProdCode) AS CODIGO FROM Producto where cAlmaCode='$'"_sql,
                         {Texto(p.ses.psAlmacen)}),
            rs))
      return false;
    v.txtCodigo = TextoDe(Numero(rs[u"CODIGO"]) + 1);
    return true;
  }
  if (!LeerFilaDetalle(p,
                       FormatearSQL(u"SELECT * FROM Producto WHERE cProdCode = $ AND cAlmaCode ='$'"_sql,
                                    {Cifras(codigo), Texto(p.ses.psAlmacen)}),
                       QStringLiteral("El producto %1 ya no existe.").arg(codigo), rs))
    return false;
  v.txtCodigo = LimpiarNulo(rs[u"cProdCode"]);
  v.txtDescripcion = LimpiarNulo(rs[u"sProdDesc"]);
  v.txtCorta = LimpiarNulo(rs[u"sProdDescCrta"]);
  v.txtPUnitario = precioMostrado(Numero(rs[u"nProdPrecUnit"]));
  v.activo = esUno(rs[u"cProdEstd"]);
  v.chkFicha = esUno(rs[u"cProdFlagFicha"]);
  v.txtFichas = LimpiarNulo(rs[u"cProdFichaCant"]);
  v.chkCanje = esUno(rs[u"cProdFlagCanje"]);
  v.chkControl = esUno(rs[u"cProdFlagControl"]);
  MarcarCanje(v);
  return true;
}

void MarcarCanje(DetalleProducto& v) {
  if (v.chkCanje) v.txtPUnitario = QStringLiteral("0");
}

bool GuardarProducto(Puesto& p, DetalleProducto& v) { return GuardarDetalle(p, v, validar, sentencias); }

FilaProducto FilaDe(const DetalleProducto& v) {
  return {v.txtCodigo,
          Recortar(v.txtDescripcion),
          Recortar(v.txtCorta),
          precioMostrado(LeerImporte(v.txtPUnitario)),
          tipoDe(v.chkFicha, v.chkCanje),
          siNo(v.chkControl),
          v.activo};
}

bool ActivarProducto(Puesto& p, FilaProducto& fila) {
  if (!PreguntarActivar(p, fila.activo, fila.descripcion)) return false;
  if (!EjecutarConAviso(p, FormatearSQL(u"UPDATE Producto SET cProdEstd = $ WHERE cProdCode = $ and "
                                        "cAlmaCode = '$'"_sql,
                                        {!fila.activo, Cifras(fila.codigo), Texto(p.ses.psAlmacen)})))
    return false;
  fila.activo = !fila.activo;
  return true;
}

QString MascaraPrecio(const QString& texto) {
  return EsNumerico(texto) ? Formatear(LeerImporte(texto), u"###,###,##0.00") : texto;
}
