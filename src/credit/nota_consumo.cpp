#include "credit/nota_consumo.h"

#include <cmath>

#include "credit/acto_credito.h"
#include "credit/papel_credito.h"
#include "documento/clase.h"
#include "documento/filas_paralelas.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr QStringView kImporte = u"0.00";

void mostrarDocumento(TabNota& v, const DocumentoPorConsumir& d, const EstadoDocumento& e) {
  v.cboTipoDocumento2 = e.doc == DocCredito::FADE ? 0 : 1;
  v.lblNroDocumentoNC = e.serie + u'-' + e.numero;
  v.lblClienteNC = e.cliente;
  v.lblLocalNC = d.local;
  v.lblCreditoaNC = d.tipoCredito;
  v.lblFecEmisionNC = FormatearFecha(e.emision, u"dd/mm/yyyy");
  v.txtMontoDocumento = Formatear(e.total, kImporte);
  v.txtMontoPorConsumirDocumento = Formatear(e.porConsumir(), kImporte);
}

LineaVendida lineaVendida(const Recordset::Fila& f) {
  return {LimpiarNulo(f[u"cCodArtic"]), LimpiarNulo(f[u"sProdDscCrta"]), Numero(f[u"nQtdVendida"]),
          Numero(f[u"nPrecioOrig"]), Numero(f[u"nDescuento"])};
}

// The document with its lines, over one connection; false when it can't be had, and the box has been shown.
bool leer(Puesto& p, TabNota& v, const DocumentoPorConsumir& d) {
  const Ocupado ocupado(p.mensajes, QStringLiteral("Leyendo el documento…"));
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return false;
  EstadoDocumento e;
  Recordset lineas;
  if (!LeerAbierto(p, central, DeCodigo(d.cCodVta), e) ||
      !p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"select nroitem,cCodArtic,sProdDscCrta,nPrecioOrig,nQtdVendida,nDescuento,nServicio"
                       " from venta02 where ccodvta=$ order by nroitem"_sql,
                       {d.cCodVta}),
          lineas)) {
    return false;
  }
  p.poDBAdmin.CerrarBD(central);
  for (const auto& f : lineas) v.lineas.push_back(lineaVendida(f));
  mostrarDocumento(v, d, e);
  return true;
}

QString noPuedeConsumir(const QString& queda) {
  return QStringLiteral("No puede consumir mas de ") + queda + QStringLiteral(" Soles.");
}

struct Nota {
  NotaCredito papel;
  NumeroTomado numero;
  double dolares = 0;
};

void sentenciasLocales(const Puesto& p, const Nota& n, ActoDoble& acto) {
  const DatosOperacion o = OperacionDe(p, n.papel.documento, n.numero, TipoOperacion::NC);
  DatosParalela d;
  d.montoSoles = n.papel.total;
  d.montoDolares = n.dolares;
  d.glosa = kGlosaConsumo;
  d.relacion = n.papel.documento.cCodVta;
  acto.enLocal = {n.numero.guardar, SentenciaParalela(p, o, d)};
  for (const auto& l : n.papel.lineas) acto.enLocal.push_back(SentenciaLineaParalela(p, o, l, n.papel.supervisor));
  acto.deshacer = {n.numero.devolver,
                   FormatearSQL(u"DELETE FROM OperacionParalela WHERE cOperCode = $"_sql, {n.numero.codigo}),
                   FormatearSQL(u"DELETE FROM OperacionParalelaProducto WHERE cOperCode = $"_sql, {n.numero.codigo})};
}

std::optional<ErrorBD> preparar(Puesto& p, qint64 cCodVta, Nota& n, ActoDoble& acto) {
  Conexion& central = p.poCnnCentral;
  EstadoDocumento e;
  if (auto error = LeerBloqueado(central, DeCodigo(cCodVta), e)) return error;
  n.papel.documento = e;
  if (n.papel.total > e.porConsumir()) return RechazoDelActo(noPuedeConsumir(Formatear(e.porConsumir(), kImporte)));
  if (auto error = TomarNumeroParalelo(p, central, TipoDocumento::NC, n.numero)) return error;
  n.papel.numero = n.numero.documento;
  acto.nombre = QStringLiteral("nota ") + n.papel.numero.serie + u'-' + NumeroEscrito(n.papel.numero.numero);
  sentenciasLocales(p, n, acto);
  acto.enServidor = SentenciasConsumo(p, e, n.numero.codigo, n.papel.total);
  return {};
}

std::optional<QString> validar(Puesto& p, TabNota& v) {
  if (!v.documento) {
    p.mensajes.mostrar(QStringLiteral("Seleccione el documento (BADE o FADE)"));
    return QStringLiteral("cboTipoDocumento2");
  }
  if (LineasConArticulo(p, v.rejilla).empty()) {
    p.mensajes.mostrar(QStringLiteral("Debe registrar un artìculo."));
    return QStringLiteral("TDGNotaConsumo");
  }
  TotalesNota(p, v);
  if (LeerImporte(v.txtSolesNC) <= 0) {
    p.mensajes.mostrar(QStringLiteral("Debe registar una cantidad mayor que cero."));
    return QStringLiteral("TDGNotaConsumo");
  }
  if (LeerImporte(v.txtMontoPorConsumirDocumento) < LeerImporte(v.txtSolesNC)) {
    p.mensajes.mostrar(noPuedeConsumir(v.txtMontoPorConsumirDocumento));
    return QStringLiteral("TDGNotaConsumo");
  }
  return {};
}

}  // namespace

void LimpiarNota(TabNota& v) {
  v = {};
  v.txtSolesNC = v.txtDolaresNC = QStringLiteral("0.00");
}

void TotalesNota(const Puesto& p, TabNota& v) { TotalesDeRejilla(p, v.rejilla, v.txtSolesNC, v.txtDolaresNC); }

std::optional<QString> BuscarDocumentoNC(Puesto& p, CajaFacturacionPagos& v, PantallasCredito& pantallas) {
  const auto doc = DocCreditoDe(v.nota.cboTipoDocumento2);
  if (!doc) {
    p.mensajes.mostrar(QStringLiteral("Seleccione tipo documento"));
    return QStringLiteral("cboTipoDocumento2");
  }
  const auto elegido = pantallas.documentoPorConsumir(*doc);
  if (!elegido) return {};
  CargarDocumentoNC(p, v.nota, *elegido);
  return v.nota.documento ? QStringLiteral("TDGNotaConsumo") : QStringLiteral("cboTipoDocumento2");
}

void CargarDocumentoNC(Puesto& p, TabNota& v, const DocumentoPorConsumir& documento) {
  LimpiarNota(v);
  if (leer(p, v, documento)) v.documento = documento;
  else LimpiarNota(v);
}

std::optional<int> TomarLineaVendida(Puesto& p, TabNota& v, int linea) {
  if (linea < 0 || linea >= static_cast<int>(v.lineas.size())) return {};
  const LineaVendida& l = v.lineas[static_cast<size_t>(linea)];
  FilaVenta f;
  if (!LeerArticulo(p, p.ses.psAlmacen, l.codigo, f)) return {};
  if (f[kDescripcion].isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("Articulo No Existe...!!!"));
    return {};
  }
  f[kPrecio] = Formatear(l.precio, kImporte);
  f[kSigno] = l.porcentaje > 0 ? QStringLiteral("+") : QStringLiteral("-");
  f[kPorc] = Formatear(std::fabs(l.porcentaje), kImporte);
  const int fila = AgregarFila(v.rejilla);
  f[kItem] = QString::number(fila + 1);
  v.rejilla.filas[static_cast<size_t>(fila)] = f;
  TotalesNota(p, v);
  return fila;
}

std::optional<QString> GrabarNota(Puesto& p, CajaFacturacionPagos& todo, PantallasCredito& pantallas) {
  TabNota& v = todo.nota;
  if (auto campo = validar(p, v)) return campo;
  Nota n;
  n.papel.lineas = LineasConArticulo(p, v.rejilla);
  n.papel.total = LeerImporte(v.txtSolesNC);
  n.dolares = LeerImporte(v.txtDolaresNC);
  const qint64 cCodVta = v.documento->cCodVta;
  if (!AutorizarLineas(pantallas, v.rejilla, n.papel.supervisor) || !AbrirCentralDelActo(p)) return QString();
  const FinCredito fin = HacerActo(p, QStringLiteral("La nota de consumo"),
                                   [&](ActoDoble& acto) { return preparar(p, cCodVta, n, acto); });
  if (fin == FinCredito::Nada) {
    // What another desk took meanwhile shows.
    const EstadoDocumento& e = n.papel.documento;
    if (e.cCodVta != 0) v.txtMontoPorConsumirDocumento = Formatear(e.porConsumir(), kImporte);
    return QString();
  }
  AvisarCorreccion(p, n.numero);
  if (fin == FinCredito::Hecho) ImprimirNota(p, n.papel);
  LimpiarNota(v);
  return {};
}
