#include "sale/caja_rapida.h"

#include "documento/desmesura.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

constexpr double kCantidadMaxima = 2147483647;  // quantities are stored as 32-bit numbers
constexpr int kLargoRotulo = 25;

// In the order of their cycle.
const struct {
  ClaseDocumento clase;
  QString palabra;
} kTipos[] = {
    {ClaseDocumento::VentaExacta, QStringLiteral("CASH")},
    {ClaseDocumento::VentaVoucher, QStringLiteral("VOUCHER")},
    {ClaseDocumento::VentaConVuelto, QStringLiteral("C/VUELTO")},
};

QString rotuloDe(const QString& descripcion) {
  return descripcion.size() > kLargoRotulo ? Izquierda(descripcion, kLargoRotulo) + QStringLiteral("...") : descripcion;
}

void cargarTeclado(Puesto& p, CajaRegistradora& v) {
  v.teclas = {};
  Recordset rs;
  const Sql sql = FormatearSQL(u" SELECT C.cTeclCode, C.sTeclDesc, C.cProdCode, P.sProdDescCrta"
                               " FROM ConfiguracionTeclado AS C INNER JOIN Producto AS P ON C.cProdCode = P.cProdCode"
                               " WHERE C.cTeclCode BETWEEN 1 AND 24 AND P.cAlmaCode = '$' ORDER BY C.cTeclCode"_sql,
                               {Texto(p.ses.psAlmacen)});
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs)) return;
  for (const auto& f : rs) {
    TeclaConArticulo& t = v.teclas[static_cast<size_t>(AEntero(Numero(f[u"cTeclCode"])))];
    const QString propio = LimpiarNulo(f[u"sTeclDesc"]);
    t.articulo = rotuloDe(LimpiarNulo(f[u"sProdDescCrta"]));
    t.rotulo = propio.isEmpty() ? t.articulo : propio;
    t.nCodigoTecla = static_cast<int>(AEntero(Numero(f[u"cProdCode"])));
  }
}

LineaRapida lineaConArticulo(const Puesto& p, int nCodigo, const Recordset::Fila& r) {
  LineaRapida l;
  l.cAlmaCode = p.ses.psAlmacen;
  l.cProdCode = nCodigo;
  l.descripcion = LimpiarNulo(r[u"sProdDesc"]);
  l.corta = LimpiarNulo(r[u"sProdDescCrta"]);
  l.catalogo = LimpiarNulo(r[u"cCodCatalogo"]);
  // The price in cents, as it stands on the display and in the other register.
  l.precio = Redondear(Numero(r[u"nProdPrecUnit"]), 2);
  l.cantidad = 1;
  l.puntos = static_cast<int>(AEntero(Numero(r[u"nPuntos"])));
  l.canje = l.puntos == 0                   ? QStringLiteral("NO")
            : Numero(r[u"cFlagCanje"]) == 1 ? QStringLiteral("PTOS")
                                            : QStringLiteral("VNTA");
  l.conServicio = Numero(r[u"cFlagServicio"]) != 0;
  return l;
}

QString cifra(const QString& rotulo, double valor) {
  return rotulo + Derecha(Espacios(14) + Formatear(valor, u"###,###,###,##0.00"), 14);
}

}  // namespace

void MostrarLinea(CajaRegistradora& v) {
  const LineaRapida& l = v.lineas.back();
  v.lblProducto =
      Izquierda(l.corta + Espacios(10), 11) + Derecha(Espacios(11) + Formatear(l.precio, u"###,###,##0.00"), 11);
  v.txtCantidad = QString::number(l.cantidad);
  TotalVenta(v);
}

void MostrarVuelto(CajaRegistradora& v, const EfectivoDocumento& pago) {
  if (Redondear(pago.vueltoSoles, 2) > 0) {
    v.lblProducto = QStringLiteral("VUELTO S/. ") + Rellenar(Formatear(pago.vueltoSoles, u"###,###,##0.00"), 11);
  }
  if (Redondear(pago.vueltoDolares, 2) > 0) {
    v.lblTipo = QStringLiteral("VUELTO US$ ") + Formatear(pago.vueltoDolares, u"###,###,##0.00");
  }
}

void OlvidarVuelto(CajaRegistradora& v) {
  if (v.bVentaIniciada) return;
  v.lblProducto.clear();
  v.lblTipo.clear();
}

void AbrirRapida(Puesto& p, CajaRegistradora& v) {
  SeleccionarImpresora(p, p.ses.kPAR_IMPRESORA);
  cargarTeclado(p, v);
  CargarLocales(p, v);
  LeerReglaPunto(p);
  v.clase = ClaseDocumento::VentaConVuelto;
}

bool CapturaDatosProducto(Puesto& p, CajaRegistradora& v, int nCodigo) {
  const auto rechazar = [&p](const QString& texto) {
    p.mensajes.mostrar(texto);
    return false;
  };
  if (nCodigo == 0) return rechazar(QStringLiteral("Este botón no tiene un producto asignado"));
  Recordset rs;
  const Sql sql =
      FormatearSQL(u" SELECT sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos,"
                   " cFlagServicio, cCodCatalogo FROM Producto WHERE cProdCode = $ AND cAlmaCode = '$'"_sql,
                   {nCodigo, Texto(p.ses.psAlmacen)});
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs)) return false;
  if (rs.RecordCount() != 1) {
    return rechazar(QStringLiteral("El producto asignado no existe. Actualice la configuración de este botón."));
  }
  if (Numero(rs[u"cProdEstd"]) != 1 || Numero(rs[u"nActivo"]) != 1) {
    return rechazar(QStringLiteral("El Producto no se encuentra activo."));
  }
  if (!v.bVentaIniciada) {
    v.bVentaIniciada = true;
    v.lineas.clear();
    PonerTipoRapida(v, ClaseDocumento::VentaConVuelto);
  }
  v.lineas.push_back(lineaConArticulo(p, nCodigo, *rs.begin()));
  MostrarLinea(v);
  return true;
}

bool SalirCantidad(Puesto& p, CajaRegistradora& v) {
  if (!v.bVentaIniciada) return true;
  const QString texto = Recortar(v.txtCantidad);
  double cantidad = 1;
  if (!texto.isEmpty()) cantidad = EsNumerico(texto) ? Redondear(LeerImporte(texto), 0) : 0;
  if (cantidad < 1 || cantidad > kCantidadMaxima) return false;
  LineaRapida nueva = v.lineas.back();
  nueva.cantidad = static_cast<int>(cantidad);
  const double importe = ImportesDe(nueva).importe;
  const bool otra = nueva.cantidad != v.lineas.back().cantidad;
  if (otra && (nueva.cantidad > kCantidadNormal || importe > kImporteNormal) &&
      !PreguntarDesmesura(p, nueva.cantidad, importe)) {
    MostrarLinea(v);
    return false;
  }
  v.lineas.back() = nueva;
  MostrarLinea(v);
  return true;
}

void TotalVenta(CajaRegistradora& v) {
  v.nTotalVenta = 0;
  for (const auto& l : v.lineas) v.nTotalVenta += ImportesDe(l).importe;
  v.lblSubtotal = cifra(QStringLiteral("Sub:"), ImportesDe(v.lineas.back()).importe);
  v.lblTotal = cifra(QStringLiteral("TOT:"), v.nTotalVenta);
}

void PonerTipoRapida(CajaRegistradora& v, ClaseDocumento clase) {
  for (const auto& t : kTipos) {
    if (t.clase != clase) continue;
    v.clase = clase;
    v.lblTipo = t.palabra;
  }
}

void SiguienteTipoVenta(Puesto& p, CajaRegistradora& v) {
  ClaseDocumento siguiente = v.clase == ClaseDocumento::VentaExacta    ? ClaseDocumento::VentaVoucher
                             : v.clase == ClaseDocumento::VentaVoucher ? ClaseDocumento::VentaConVuelto
                                                                       : ClaseDocumento::VentaExacta;
  if (siguiente == ClaseDocumento::VentaConVuelto && p.ses.pnTipoCambio == 0) {
    p.mensajes.mostrar(QStringLiteral("Para registrar ventas en dólares debe registrar el tipo de cambio"));
    siguiente = ClaseDocumento::VentaExacta;
  }
  PonerTipoRapida(v, siguiente);
}

void CancelarACTC(CajaRegistradora& v) {
  v.bVentaIniciada = false;
  v.lineas.clear();
  v.nTotalVenta = 0;
  v.clase = ClaseDocumento::VentaConVuelto;
  v.txtTarjeta.clear();
  OlvidarCliente(v);
  v.localVisible = false;
  for (QString* campo : {&v.txtRuc, &v.txtCantidad, &v.lblProducto, &v.lblSubtotal, &v.lblTotal, &v.lblTipo}) {
    campo->clear();
  }
}
