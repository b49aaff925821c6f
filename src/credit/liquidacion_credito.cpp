#include "credit/liquidacion_credito.h"

#include <algorithm>

#include "credit/estado_documento.h"
#include "documento/clase.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "store/codigos.h"

namespace {

constexpr QStringView kImporte = u"0.00";

LineaLQ documentoDe(const EstadoDocumento& e) {
  LineaLQ l;
  l.tx = QString::number(e.cCodVta);
  l.tipo = PalabraDe(e.doc);
  l.doc = e.serie + u'-' + e.numero;
  l.tarjeta = e.tarjeta;
  l.total = Formatear(e.total, kImporte);
  l.fecha = FormatearFecha(e.emision, u"dd/mm/yyyy");
  l.original = e.enDolares ? QStringLiteral("US$ ") + Formatear(e.totalUSD, kImporte)
                           : QStringLiteral("S/. ") + Formatear(e.total, kImporte);
  l.cliente = e.cliente;
  return l;
}

// The note's own row, where it lies in this store.
bool completarNota(Puesto& p, LineaLQ& l) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT nTarjNumb, dOperFech, cDocSerie, cDocCodigo FROM OperacionParalela"
                       " WHERE cOperCode = $ AND cOperCodeRela = $ AND cEstado = '1' AND cDocTipo = '$'"
                       " AND sGlosa = '$'"_sql,
                       {Cifras(l.tx), Cifras(l.relacion), Texto(Codigo(TipoDocumento::NC)), Texto(kGlosaConsumo)}),
          rs)) {
    return false;
  }
  l.deOtraCaja = rs.Eof();
  if (rs.Eof()) return true;
  l.tarjeta = LimpiarNulo(rs[u"nTarjNumb"]);
  l.doc = LimpiarNulo(rs[u"cDocSerie"]) + u'-' + LimpiarNulo(rs[u"cDocCodigo"]);
  l.fecha = FormatearFecha(rs[u"dOperFech"].toDateTime(), u"dd/mm/yyyy");
  return true;
}

bool leerNotas(Puesto& p, Conexion& central, const EstadoDocumento& e, std::vector<LineaLQ>& notas) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT cCajaCodi, cOperCode, dFecha, nMonto FROM ConsumoVenta WHERE cCodVta = $"
                       " AND bAnulado = 0 ORDER BY dFecha, cCajaCodi, cOperCode"_sql,
                       {e.cCodVta}),
          rs)) {
    return false;
  }
  for (const auto& f : rs) {
    const QString caja = LimpiarNulo(f[u"cCajaCodi"]);
    LineaLQ l;
    l.tx = LimpiarNulo(f[u"cOperCode"]);
    l.tipo = PalabraDe(TipoOperacion::NC);
    l.doc = QStringLiteral("Caja ") + caja;
    l.tarjeta = e.tarjeta;
    l.total = Formatear(Numero(f[u"nMonto"]), kImporte);
    l.fecha = FormatearFecha(f[u"dFecha"].toDateTime(), u"dd/mm/yyyy");
    l.relacion = QString::number(e.cCodVta);
    l.deOtraCaja = true;
    if (caja == p.ses.psCaja && !completarNota(p, l)) return false;
    notas.push_back(l);
  }
  return true;
}

QString conSaldo(const EstadoDocumento& e) {
  return QStringLiteral("El documento ") + e.nombre() + QStringLiteral(" tiene un saldo de S/. ") +
         Formatear(e.saldo(), kImporte) + QStringLiteral(" (US$ ") + Formatear(e.saldoUSD(), kImporte) +
         QStringLiteral("): solo se liquida con saldo 0.");
}

double suma(const std::vector<LineaLQ>& lista) {
  double s = 0;
  for (const auto& l : lista) s += LeerImporte(l.total);
  return s;
}

// The document and its notes, over one connection; false when there is nothing to add, which has been told.
bool leerConNotas(Puesto& p, qint64 codigo, EstadoDocumento& documento, std::vector<LineaLQ>& notas) {
  const Ocupado ocupado(p.mensajes, QStringLiteral("Leyendo el documento…"));
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true) ||
      !LeerAbierto(p, central, DeCodigo(codigo), documento)) {
    return false;
  }
  if (documento.saldoPropio() != 0) {
    p.mensajes.mostrar(conSaldo(documento));
    return false;
  }
  const bool leidas = leerNotas(p, central, documento, notas);
  p.poDBAdmin.CerrarBD(central);
  return leidas;
}

}  // namespace

void LimpiarLiquidacion(TabLiquidacion& v) {
  const int tipo = v.cboTipoDocumento3;
  v = {};
  v.cboTipoDocumento3 = tipo;
  for (QString* campo : {&v.txtTotalPA, &v.txtTotalNC, &v.txtSolesLQ, &v.txtDolaresLQ, &v.txtEfectivoSolesLQ,
                         &v.txtEfectivoDolaresLQ, &v.txtVueltoSolesLQ, &v.txtVueltoDolaresLQ}) {
    *campo = QStringLiteral("0.00");
  }
}

std::optional<QString> BuscarDocumentoLQ(Puesto& p, CajaFacturacionPagos& todo, PantallasCredito& pantallas) {
  TabLiquidacion& v = todo.liquidacion;
  const auto doc = DocCreditoDe(v.cboTipoDocumento3);
  if (!doc) {
    p.mensajes.mostrar(QStringLiteral("Seleccione tipo documento"));
    return QStringLiteral("cboTipoDocumento3");
  }
  const auto elegido = pantallas.documentoPorLiquidar(*doc);
  if (!elegido) return {};
  LimpiarLiquidacion(v);
  v.txtTXL = QString::number(*elegido);
  return AgregarDocumentoLQ(p, v);
}

std::optional<QString> AgregarDocumentoLQ(Puesto& p, TabLiquidacion& v) {
  const QString campo = QStringLiteral("txtTXL(0)");
  const QString tecleado = Recortar(v.txtTXL);
  if (tecleado.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("Debe ingresar el código de transacción."));
    return campo;
  }
  const qint64 codigo = AEntero(Val(tecleado));
  v.txtTXL = Rellenar(tecleado, 6, u'0');
  const auto mismo = [codigo](const LineaLQ& l) { return AEntero(Val(l.tx)) == codigo; };
  if (std::any_of(v.lvwTX[0].begin(), v.lvwTX[0].end(), mismo)) {
    p.mensajes.mostrar(QStringLiteral("El código de transacciòn ya existe."));
    return campo;
  }
  EstadoDocumento e;
  std::vector<LineaLQ> notas;
  if (!leerConNotas(p, codigo, e, notas)) return campo;
  v.cboTipoDocumento3 = e.doc == DocCredito::FADE ? 0 : 1;
  v.lvwTX[0].push_back(documentoDe(e));
  v.lvwTX[1].insert(v.lvwTX[1].end(), notas.begin(), notas.end());
  v.pagado = e.pagado;
  v.consumido = e.consumido;
  v.txtEfectivoSolesLQ = v.txtEfectivoDolaresLQ = QStringLiteral("0.00");
  TotalesLQ(p, v);
  return QStringLiteral("cmdGrabaLiq");
}

void QuitarDocumentoLQ(const Puesto& p, TabLiquidacion& v, int fila) {
  auto& documentos = v.lvwTX[0];
  if (fila < 0 || fila >= static_cast<int>(documentos.size())) return;
  const QString tx = documentos[static_cast<size_t>(fila)].tx;
  documentos.erase(documentos.begin() + fila);
  std::erase_if(v.lvwTX[1], [&tx](const LineaLQ& nota) { return nota.relacion == tx; });
  if (documentos.empty()) v.pagado = v.consumido = 0;
  TotalesLQ(p, v);
}

bool CobraLQ(const TabLiquidacion& v) { return LeerImporte(v.txtSolesLQ) > 0; }

void TotalesLQ(const Puesto& p, TabLiquidacion& v) {
  const double total = suma(v.lvwTX[0]), consumido = suma(v.lvwTX[1]);
  const double diferencia = Redondear(consumido - total, 2);
  v.txtTotalPA = Formatear(total, kImporte);
  v.txtTotalNC = Formatear(consumido, kImporte);
  v.txtSolesLQ = Formatear(diferencia, kImporte);
  v.txtDolaresLQ = Formatear(p.ses.pnTipoCambio > 0 ? diferencia / p.ses.pnTipoCambio : 0, kImporte);
  if (!CobraLQ(v)) v.txtEfectivoSolesLQ = v.txtEfectivoDolaresLQ = QStringLiteral("0.00");
  const double cobrado = Redondear(
      LeerImporte(v.txtEfectivoSolesLQ) + Redondear(LeerImporte(v.txtEfectivoDolaresLQ) * p.ses.pnTipoCambio, 2), 2);
  // No more goes back than came in.
  const double tope = Redondear(v.pagado - v.consumido + cobrado, 2);
  const double vuelto = Redondear(cobrado - diferencia, 2);
  v.txtVueltoSolesLQ = Formatear(vuelto > 0 ? std::clamp(tope, 0.0, vuelto) : vuelto, kImporte);
  v.txtVueltoDolaresLQ = QStringLiteral("0.00");
}

bool CerrarNotasLiquidadas(Puesto& p, Conexion& central) {
  Recordset notas, liquidados;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT DISTINCT cOperCodeRela FROM OperacionParalela WHERE cEstado = '1' AND cOperTipo = $"
                       " AND sGlosa = '$'"_sql,
                       {Codigo(TipoOperacion::NC), Texto(kGlosaConsumo)}),
          notas)) {
    return false;
  }
  std::vector<Sql> codigos;
  for (const auto& f : notas) codigos.push_back(FormatearSQL(u"$"_sql, {AEntero(Numero(f[0]))}));
  if (codigos.empty()) return true;
  if (!p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u"SELECT cCodVta FROM Venta01 WHERE bLiquidado = 1 AND cCodVta IN ($)"_sql,
                       {UnirSql(codigos, u", "_sql)}),
          liquidados)) {
    return false;
  }
  std::vector<Sql> cierres;
  for (const auto& f : liquidados) {
    cierres.push_back(FormatearSQL(u"UPDATE OperacionParalela SET cEstado = '2' WHERE cOperCodeRela = $"
                                   " AND cEstado = '1' AND cOperTipo = $ AND sGlosa = '$'"_sql,
                                   {AEntero(Numero(f[0])), Codigo(TipoOperacion::NC), Texto(kGlosaConsumo)}));
  }
  if (cierres.empty()) return true;
  const auto error = EjecutarJuntas(p.poCnnLocal, cierres);
  if (error) p.mensajes.mostrar(error->descripcion);
  return !error;
}
