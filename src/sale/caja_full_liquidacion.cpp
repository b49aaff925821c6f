#include "sale/caja_full_liquidacion.h"

#include <algorithm>
#include <cmath>

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_adelanto.h"
#include "sale/caja_full_totales.h"

namespace {

constexpr QStringView kImporte = u"0.00";

// The open document of a code or, by `columna`, those that are tied to it.
Sql consultaTX(const Sql& columna, const QString& codigo) {
  return FormatearSQL(u" SELECT b.cOperCode, b.nTarjNumb, C.cClieCode, c.sName, b.nMoneda, b.nMontoDolares,"
                      " b.dOperFech, b.nMontoSoles, b.cOperTipo, b.sGlosa, cOpercodeRela, cdocserie, cdoccodigo"
                      " FROM OperacionParalela b LEFT JOIN"
                      " (SELECT Cliente.cClieCode, Tarjeta.nTarjNumb, sClieApel + ' ' + sClieName as sName"
                      " FROM CLIENTE inner join Tarjeta"
                      " ON Cliente.cClieCode = Tarjeta.cClieCode AND Cliente.IdLocal = Tarjeta.IdLocal) c"
                      " ON b.nTarjNumb = c.nTarjNumb"
                      " WHERE $ = $ AND b.cEstado = '1'"_sql,
                      {columna, Cifras(codigo)});
}

// The same column names are read for both lists; only one of `original` and `pade` is shown in each.
LineaTX documentoDe(const Recordset::Fila& r) {
  const auto tipo = static_cast<TipoOperacion>(AEntero(Numero(r[u"cOperTipo"])));
  const bool dolares = Numero(r[u"nMoneda"]) == 2;
  LineaTX l;
  l.tx = LimpiarNulo(r[u"cOperCode"]);
  // Whatever is typed by hand enters the list; what is neither counts as an advance payment.
  const bool propia = tipo == TipoOperacion::NC || tipo == TipoOperacion::PADV;
  l.tipo = PalabraDe(propia ? tipo : TipoOperacion::PADE);
  l.doc = LimpiarNulo(r[u"cdocserie"]) + u'-' + LimpiarNulo(r[u"cdoccodigo"]);
  l.tarjeta = LimpiarNulo(r[u"nTarjNumb"]);
  l.total = Formatear(Numero(r[u"nMontoSoles"]), kImporte);
  l.fecha = FormatearFecha(r[u"dOperFech"].toDateTime(), u"dd/mm/yyyy");
  l.original = dolares ? QStringLiteral("US$ ") + Formatear(Numero(r[u"nMontoDolares"]), kImporte)
                       : QStringLiteral("S/. ") + l.total;
  l.clienteGlosa = LimpiarNulo(r[u"sName"]) + QStringLiteral(" - ") + LimpiarNulo(r[u"sGlosa"]);
  l.pade = LimpiarNulo(r[u"cOpercodeRela"]);
  return l;
}

bool esta(const std::vector<LineaTX>& lista, const QString& tx) {
  return std::any_of(lista.begin(), lista.end(), [&tx](const LineaTX& l) { return l.tx == tx; });
}

// A card of customers at two sites gives a document's row twice; it is one document all the same.
void juntar(std::vector<LineaTX>& lista, const Recordset& rs) {
  for (const auto& r : rs) {
    // A note of a billing document carries that document's code, which may be the same number.
    if (EsVentaFutura(LimpiarNulo(r[u"sGlosa"]))) continue;
    const LineaTX l = documentoDe(r);
    if (!esta(lista, l.tx)) lista.push_back(l);
  }
}

double suma(const std::vector<LineaTX>& lista) {
  double s = 0;
  for (const auto& l : lista) s += LeerImporte(l.total);
  return s;
}

// Only notes that are settled: an open note of a billing document carries that document's code, which may be the same.
bool filasLiquidadas(Puesto& p, qint64 codigo, std::vector<FilaVenta>& filas) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u" SELECT cAlmaCode, cProdCode, nProdCant as Cant,"
                       " nProdPrecUnit as Precio, nDscto As Dscto, nServicio as Servicio"
                       " From OperacionParalelaProducto WHERE cOperCode IN("
                       " Select cOpercode From Operacionparalela Where cOperTipo= $ and cOperflagAbierto=1"
                       " and cEstado = '2' and cOpercodeRela = $ $)"_sql,
                       {Codigo(TipoOperacion::NC), codigo, SinVentaFutura()}),
          rs)) {
    return false;
  }
  for (const auto& r : rs) {
    FilaVenta f;
    f[kConServ] = Numero(r[u"Servicio"]) > 0 ? QStringLiteral("SI") : QStringLiteral("NO");
    const QString codigoProducto = LimpiarNulo(r[u"cProdCode"]);
    if (!LeerArticulo(p, LimpiarNulo(r[u"cAlmaCode"]), codigoProducto, f)) return false;
    const double porcentaje = Numero(r[u"Dscto"]);
    f[kItem] = QString::number(filas.size() + 1);
    f[kCant] = Formatear(Numero(r[u"Cant"]), kImporte);
    // What was agreed on the note, not today's list: liquidation and document must bill the same.
    f[kPrecio] = Formatear(Numero(r[u"Precio"]), kImporte);
    f[kSigno] = porcentaje > 0 ? QStringLiteral("+") : QStringLiteral("-");
    f[kPorc] = Formatear(std::fabs(porcentaje), u"##0.00");
    filas.push_back(f);
  }
  return true;
}

}  // namespace

QString CodigoTXL(const QString& texto) {
  const QString t = Recortar(texto);
  return t.isEmpty() ? t : Rellenar(t, 6, u'0');
}

void TotalesTX(const Puesto& p, CajaRegistradoraFull& v) {
  const double pagado = suma(v.lvwTX[0]), consumido = suma(v.lvwTX[1]);
  v.txtTotalPA = Formatear(pagado, kImporte);
  v.txtTotalNC = Formatear(consumido, kImporte);
  if (v.nTipoVenta != TipoVenta::LIQPAD) return;  // another kind's total is that of its lines
  v.txtSoles = Formatear(consumido - pagado, kImporte);
  v.txtDolares = Formatear(p.ses.pnTipoCambio > 0 ? (consumido - pagado) / p.ses.pnTipoCambio : 0, kImporte);
  v.txtEfectivoSoles = v.txtEfectivoDolares = v.txtVueltoSoles = v.txtVueltoDolares = QStringLiteral("0.00");
  v.efectivoTecleado = false;
  CalculaVuelto(p, v);
}

bool EfectivoFijo(const CajaRegistradoraFull& v) {
  return v.nTipoVenta == TipoVenta::LIQPAD && LeerImporte(v.txtSoles) == 0;
}

std::optional<Foco> AgregarTX(Puesto& p, CajaRegistradoraFull& v, int lista) {
  const auto i = static_cast<size_t>(lista);
  const Foco campo{QStringLiteral("txtTXL(%1)").arg(lista)};
  v.txtTXL[i] = CodigoTXL(v.txtTXL[i]);
  if (v.txtTXL[i].isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("Debe ingresar el código de transacción."));
    return campo;
  }
  const QString codigo = TextoDe(Val(v.txtTXL[i]));
  if (esta(v.lvwTX[i], codigo)) {
    p.mensajes.mostrar(QStringLiteral("El código de transacciòn ya existe."));
    return campo;
  }
  Recordset documento, notas;
  const auto leer = [&p, &codigo](const Sql& columna, Recordset& rs) {
    return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consultaTX(columna, codigo), rs);
  };
  if (!leer(u"cOperCode"_sql, documento) || documento.Eof()) return campo;
  if (EsVentaFutura(LimpiarNulo(documento[u"sGlosa"]))) {
    AvisarVentaFutura(p);
    return campo;
  }
  if (lista == 0 && !leer(u"cOperCodeRela"_sql, notas)) return campo;
  juntar(v.lvwTX[i], documento);
  juntar(v.lvwTX[1], notas);
  TotalesTX(p, v);
  return {};
}

void EliminarTX(const Puesto& p, CajaRegistradoraFull& v, int lista, int fila) {
  auto& filas = v.lvwTX[static_cast<size_t>(lista)];
  if (fila < 0 || fila >= static_cast<int>(filas.size())) return;
  const QString tx = filas[static_cast<size_t>(fila)].tx;
  filas.erase(filas.begin() + fila);
  if (lista == 0) std::erase_if(v.lvwTX[1], [&tx](const LineaTX& nota) { return nota.pade == tx; });
  TotalesTX(p, v);
}

void QuitarNoVigentes(Puesto& p, CajaRegistradoraFull& v) {
  const auto cerrado = [&p](const LineaTX& l) {
    Recordset rs;
    const Sql sql = FormatearSQL(u"SELECT cEstado FROM OperacionParalela WHERE cOperCode = $ AND cEstado = '1'"_sql,
                                 {Cifras(l.tx)});
    return !p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs) || rs.Eof();
  };
  for (auto& lista : v.lvwTX) std::erase_if(lista, cerrado);
  TotalesTX(p, v);
}

bool CargaLiquidacion(Puesto& p, CajaRegistradoraFull& v, const LiquidacionEnCurso& liquidacion) {
  std::vector<FilaVenta> filas;
  if (!filasLiquidadas(p, liquidacion.codigo, filas)) return false;
  if (filas.empty()) {
    v.cobro.reset();
    return true;
  }
  v.rejilla = {filas, true};
  Inicio(p, v, true);
  using T = TipoVenta;
  v.tipos = v.cobro ? std::vector{T::Efectivo, T::Voucher, T::OC} : std::vector{T::Efectivo, T::OC};
  PonerTipo(v, v.cobro ? T::Voucher : T::Efectivo);
  v.liquidacion = liquidacion;
  CalculaTotales(p, v);
  return true;
}
