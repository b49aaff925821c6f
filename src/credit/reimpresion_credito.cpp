// Copies of the papers of the billing screen, out of what is stored.
#include "credit/facturacion.h"
#include "credit/pagos.h"
#include "credit/papel_credito.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "printing/canal.h"

namespace {

bool aviso(Puesto& p, const QString& texto) {
  p.mensajes.mostrar(texto);
  return false;
}

// A document that stands; false when there is none, which has been told.
bool leerParaCopia(Puesto& p, Conexion& central, const Sql& donde, const QString& nombre, EstadoDocumento& documento) {
  std::optional<EstadoDocumento> e;
  if (const auto error = LeerEstado(central, donde, e)) return aviso(p, error->descripcion);
  if (!e) return aviso(p, QStringLiteral("No existe ") + nombre + u'.');
  documento = *e;
  return true;
}

LineaDocumento lineaDeCopia(const Recordset::Fila& f) {
  LineaDocumento l;
  l.cProdCode = static_cast<int>(AEntero(Val(LimpiarNulo(f[u"cCodartic"]))));
  l.descripcion = LimpiarNulo(f[u"sProdDscCrta"]);
  l.precio = Numero(f[u"nPrecioOrig"]);
  l.cantidad = static_cast<int>(AEntero(Numero(f[u"nQtdVendida"])));
  l.porcentaje = Numero(f[u"nDescuento"]);
  l.conServicio = Numero(f[u"nServicio"]) != 0;
  return l;
}

bool leerLineas(Puesto& p, Conexion& central, qint64 cCodVta, FacturaCredito& f) {
  Recordset cabeza, lineas;
  if (!p.poDBAdmin.EjecutarConsulta(central, u"SELECT Igv, Serv, bTieneDetraccion FROM Venta01"_sql + DeCodigo(cCodVta),
                                    cabeza) ||
      !p.poDBAdmin.EjecutarConsulta(central,
                                    u"SELECT cCodartic, sProdDscCrta, nPrecioOrig, nQtdVendida, nDescuento, nServicio"
                                    " FROM Venta02"_sql +
                                        DeCodigo(cCodVta) + u" ORDER BY NroItem"_sql,
                                    lineas)) {
    return false;
  }
  f.igv = Numero(cabeza[u"Igv"]);
  f.servicio = Numero(cabeza[u"Serv"]);
  f.detraccion.afecta = Numero(cabeza[u"bTieneDetraccion"]) != 0;
  for (const auto& l : lineas) f.lineas.push_back(lineaDeCopia(l));
  return true;
}

bool leerDetraccion(Puesto& p, Conexion& central, const EstadoDocumento& e, FacturaCredito& f) {
  if (!f.detraccion.afecta) return true;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT MontoDetracc FROM Detraccion WHERE SerieDoc='$' AND NroDoc='$'"_sql,
                       {Texto(e.serie), Texto(e.numero)}),
          rs)) {
    return false;
  }
  f.detraccion.monto = Numero(rs[u"MontoDetracc"]);
  return LeerCuentaDetraccion(p, central, f.detraccion.cuenta);
}

FacturaCredito facturaDe(const EstadoDocumento& e) {
  FacturaCredito f;
  f.doc = e.doc;
  f.serie = e.serie;
  f.numero = AEntero(Val(e.numero));
  f.tarjeta = e.tarjeta;
  f.cliente = e.cliente;
  f.ruc = e.ruc;
  f.enDolares = e.enDolares;
  f.total = e.total;
  f.totalUSD = e.totalUSD;
  return f;
}

// When and by whom the receipt was made, where its row lies in this store; else the day of the payment.
DatosCopia copiaDelRecibo(Puesto& p, const QString& serie, qint64 numero, const QVariant& dia) {
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(
      p.poCnnLocal,
      FormatearSQL(u"SELECT dOperFech, cUserDesc, cTurnoCodi FROM OperacionParalela WHERE cDocSerie = '$'"
                   " AND cDocCodigo = $ AND sGlosa = '$'"_sql,
                   {Texto(serie), numero, Texto(kGlosaPago)}),
      rs);
  if (!leido || rs.Eof()) return {dia.toDateTime(), {}, {}};
  return {rs[u"dOperFech"].toDateTime(), LimpiarNulo(rs[u"cUserDesc"]), LimpiarNulo(rs[u"cTurnoCodi"])};
}

}  // namespace

bool ReimprimirFactura(Puesto& p, DocCredito doc, const QString& serie, const QString& numero) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return false;
  const QString escrito = NumeroEscrito(AEntero(Val(numero)));
  EstadoDocumento e;
  if (!leerParaCopia(p, central, DeNumero(doc, serie, escrito), PalabraDe(doc) + u' ' + serie + u'-' + escrito, e)) {
    return false;
  }
  if (e.anulado) return aviso(p, e.palabras());
  FacturaCredito f = facturaDe(e);
  if (!leerLineas(p, central, e.cCodVta, f) || !leerDetraccion(p, central, e, f) || !CargarCabeceraImpresion(p)) {
    return false;
  }
  p.poDBAdmin.CerrarBD(central);
  ImprimirFactura(p, f, DatosCopia{e.emision, {}, {}});
  return true;
}

bool ReimprimirRecibo(Puesto& p, const QString& serie, const QString& numero) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return false;
  const qint64 n = AEntero(Val(numero));
  const QString nombre = serie + u'-' + NumeroEscrito(n);
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT TipoDoc, cSerieDoc, NroDoc, FormaPago, Monto, Moneda, nTipoCambio, FechaPago,"
                       " FechaAnulacion FROM Pagos WHERE cSerieDocPago = '$' AND NroDocPago = '$'"_sql,
                       {Texto(serie), Texto(NumeroEscrito(n))}),
          rs)) {
    return false;
  }
  if (rs.Eof()) return aviso(p, QStringLiteral("No existe el recibo ") + nombre + u'.');
  if (!rs[u"FechaAnulacion"].isNull())
    return aviso(p, QStringLiteral("El recibo ") + nombre + QStringLiteral(" fue anulado."));
  ReciboCredito r;
  const auto doc = DocCreditoDe(LimpiarNulo(rs[u"TipoDoc"])).value_or(DocCredito::FADE);
  if (!leerParaCopia(p, central, DeNumero(doc, LimpiarNulo(rs[u"cSerieDoc"]), LimpiarNulo(rs[u"NroDoc"])),
                     QStringLiteral("el documento del recibo ") + nombre, r.documento)) {
    return false;
  }
  p.poDBAdmin.CerrarBD(central);
  r.pade = LimpiarNulo(rs[u"FormaPago"]) == u"01";
  r.numero = {n, serie};
  r.enDolares = LimpiarNulo(rs[u"Moneda"]) == u"E";
  r.importe = ImporteDe(Numero(rs[u"Monto"]), r.enDolares, Numero(rs[u"nTipoCambio"]));
  ImprimirRecibo(p, r, copiaDelRecibo(p, serie, n, rs[u"FechaPago"]));
  return true;
}
