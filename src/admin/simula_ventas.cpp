// What the cashier of a simulated desk sells.
#include "admin/pantallas_mudas.h"
#include "admin/simula_caja.h"
#include "cashday/tipo_cambio.h"
#include "platform/text/numero.h"
#include "sale/caja_full_adelanto.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/caja_full_totales.h"
#include "sale/caja_rapida.h"
#include "store/codigos.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }
QString conDecimales(qint64 c) { return Formatear(static_cast<double>(c) / 100, u"0.00"); }
qint64 centimos(const QString& texto) { return qRound64(Val(texto) * 100); }

const char* const kRuc = "20999999991";

// What the menu does before it opens a register.
void delMenu(Puesto& p, Principal& ventana) {
  PrincipalDelDia menu(p);
  OlvidarTipoCambioPasado(p);
  PrepararOperacion(p, ventana, menu);
}

}  // namespace

CajaRegistradoraFull& CajaSimulada::pantalla() {
  if (!pantalla_ || azar_.unoDe(3)) {
    pantalla_.emplace();
    delMenu(*p_, ventana_);
    Inicio(*p_, *pantalla_);
  }
  return *pantalla_;
}

std::vector<RenglonTecleado> CajaSimulada::teclear(CajaRegistradoraFull& v, bool conDescuento) {
  const QStringList articulos =
      filas(u"SELECT cProdCode, nProdPrecUnit FROM Producto WHERE cProdEstd = 1 AND nActivo = 1 AND nProdPrecUnit > 0 "
            "ORDER BY cProdCode"_sql);
  std::vector<RenglonTecleado> lineas;
  for (int n = azar_.entre(1, 4); n > 0; --n) {
    const QString& articulo = articulos[azar_.entre(0, static_cast<int>(articulos.size()) - 1)];
    const int fila = AgregarFila(v.rejilla);
    lineas.push_back(TeclearRenglon(azar_, articulo.section(u'|', 0, 0).toInt(), centimos(articulo.section(u'|', 1, 1)),
                                    conDescuento, [&](ColumnaLinea columna, const QString& texto) {
                                      if (!SalirCelda(*p_, v, fila, columna, texto))
                                        diferencia(q("celda rechazada: ") + texto);
                                    }));
  }
  return lineas;
}

// Puts a card on the screen, now and then; the points that the sale must earn.
qint64 CajaSimulada::puntosDe(CajaRegistradoraFull& v, PantallasDelDia& otras, qint64 total) {
  static const struct {
    const char* numero;
    int local;
    bool gana;
  } kTarjetas[] = {{"00000001", 1, true}, {"00000002", 1, true}, {"00000003", 1, false}, {"00000007", 2, true}};
  if (!azar_.unoDe(2)) return 0;
  // Two customers hold the last one, and only their database tells the site.
  const auto& t = kTarjetas[azar_.entre(0, 3) % (p_->ses.pbClienteCaido ? 2 : 4)];
  v.txtTarjeta = q(t.numero);
  otras.cliente = {q(t.numero), t.local};
  (void)BuscaTarjeta(*p_, v, otras);
  return t.gana ? total / 1000 : 0;
}

// Cash: exact, too much, or dollars, with their change.
void CajaSimulada::cobrar(CajaRegistradoraFull& v, qint64 total) {
  switch (azar_.entre(1, 4)) {
    case 1:
      v.txtEfectivoSoles = conDecimales((total / 1000 + azar_.entre(1, 5)) * 1000);
      v.efectivoTecleado = true;
      SalirEfectivoSoles(*p_, v);
      break;
    case 2:
      v.txtEfectivoDolares = conDecimales(azar_.entre(1, 60) * 100);
      SalirDolares(*p_, v);
      break;
    default: break;
  }
}

void CajaSimulada::venta() {
  CajaRegistradoraFull& v = pantalla();
  PantallasDelDia otras(*p_);
  const bool voucher = azar_.unoDe(3);
  CambiarTipo(*p_, v, otras, voucher ? TipoVenta::Voucher : TipoVenta::Efectivo);
  const auto lineas = teclear(v, true);
  Intento i = intento(voucher ? "venta voucher" : "venta", lineas);
  i.puntos = puntosDe(v, otras, i.total);
  if (azar_.unoDe(4)) v.txtRUC = q(kRuc);
  if (voucher) otras.pagos = {conDecimales(azar_.unoDe(2) ? i.total : std::max<qint64>(10, i.total / 200 * 100))};
  else cobrar(v, i.total);
  hacer(i, 1, [&] { PulsarBoton(*p_, v, otras, 2); });
}

void CajaSimulada::rapida() {
  CajaRegistradora v;
  PantallasDelDia otras(*p_);
  delMenu(*p_, ventana_);
  AbrirRapida(*p_, v);
  std::vector<RenglonTecleado> lineas;
  for (int n = azar_.entre(1, 4); n > 0; --n) {
    const int tecla = azar_.entre(1, 22), cantidad = azar_.entre(1, 3);
    if (v.teclas[static_cast<size_t>(tecla)].nCodigoTecla == 0) continue;
    const size_t antes = v.lineas.size();
    PulsarBotonRapida(*p_, v, otras, tecla);
    if (v.lineas.size() == antes) continue;  // off sale since the keys were shown
    const LineaRapida& l = v.lineas.back();
    v.txtCantidad = QString::number(cantidad);
    lineas.push_back({l.cProdCode, cantidad, qRound64(l.precio * 100)});
    if (!SalirCantidad(*p_, v)) diferencia(q("cantidad rechazada"));
  }
  if (lineas.empty()) return venta();
  const int vueltas = azar_.entre(0, 2);  // C/VUELTO, CASH, VOUCHER
  for (int n = 0; n < vueltas; ++n) PulsarBotonRapida(*p_, v, otras, kBotonTipo);
  if (azar_.unoDe(4)) v.txtRuc = q(kRuc);
  const Intento i = intento("rápida", lineas);
  otras.efectivo = conDecimales(vueltas == 1 ? i.total : (i.total / 1000 + 1) * 1000);
  hacer(i, 1, [&] { PulsarBotonRapida(*p_, v, otras, kBotonImprime); });
}

void CajaSimulada::orden() {
  CajaRegistradoraFull& v = pantalla();
  PantallasDelDia otras(*p_);
  CambiarTipo(*p_, v, otras, TipoVenta::OC);
  const auto lineas = teclear(v, true);
  Intento i = intento("O/C", lineas);
  i.puntos = puntosDe(v, otras, i.total);
  cobrar(v, i.total);
  hacer(i, 1, [&] { PulsarBoton(*p_, v, otras, 2); });
}

void CajaSimulada::adelanto() {
  CajaRegistradoraFull& v = pantalla();
  PantallasDelDia otras(*p_);
  const bool voucher = azar_.unoDe(3);
  CambiarTipo(*p_, v, otras, voucher ? TipoVenta::PADV : TipoVenta::PADE);
  Intento i;
  i.nombre = voucher ? q("PADV") : q("PADE");
  i.total = azar_.entre(1, 20) * 1000;
  v.txtPagoAdelantado = conDecimales(i.total);
  SalirMonto(v.txtPagoAdelantado);
  if (voucher) otras.pagos = {conDecimales(i.total)};
  hacer(i, 1, [&] { PulsarBoton(*p_, v, otras, 2); });
}

void CajaSimulada::nota() {
  const QStringList hay =
      filas(ConCodigos(u"SELECT cOperCode FROM OperacionParalela WHERE cOperTipo IN ({PADE},{PADV}) AND cEstado = '1' "
                       "ORDER BY cOperCode"_sql));
  if (hay.isEmpty()) return adelanto();
  CajaRegistradoraFull& v = pantalla();
  PantallasDelDia otras(*p_);
  CambiarTipo(*p_, v, otras, TipoVenta::NC);
  if (!SalirAdelanto(*p_, v, hay[azar_.entre(0, static_cast<int>(hay.size()) - 1)])) diferencia(q("adelanto"));
  const auto lineas = teclear(v, true);
  hacer(intento("N/C", lineas), 1, [&] { PulsarBoton(*p_, v, otras, 2); });
}

void CajaSimulada::liquidacion() {
  const QStringList hay = filas(
      ConCodigos(u"SELECT n.cOperCode, p.cOperCode, p.nMontoSoles, p.cEstado FROM OperacionParalela n LEFT JOIN "
                 "OperacionParalela p ON p.cOperCode = n.cOperCodeRela WHERE n.cOperTipo = {NC} AND n.cEstado = '1' "
                 "ORDER BY n.cOperCode"_sql));
  if (hay.isEmpty()) return nota();
  const QStringList una = hay[azar_.entre(0, static_cast<int>(hay.size()) - 1)].split(u'|');
  const bool conPago = una[3] == u"1";
  CajaRegistradoraFull& v = pantalla();
  PantallasDelDia otras(*p_);
  CambiarTipo(*p_, v, otras, TipoVenta::LIQPAD);
  const size_t lista = conPago ? 0 : 1;
  v.txtTXL[lista] = conPago ? una[1] : una[0];
  if (AgregarTX(*p_, v, static_cast<int>(lista))) diferencia(q("documento de la liquidación"));
  Intento i;
  i.nombre = q("LIQPAD");
  const Sql suyas =
      conPago ? FormatearSQL(u"cOperCodeRela = $ AND cOperTipo = {NC} AND cEstado = '1'"_sql, {Cifras(una[1])})
              : FormatearSQL(u"cOperCode = $"_sql, {Cifras(una[0])});
  i.total = (conPago ? -centimos(una[2]) : 0) +
            centimos(filas(ConCodigos(u"SELECT SUM(nMontoSoles) FROM OperacionParalela WHERE "_sql + suyas)).value(0));
  const bool conTarjeta = i.total > 0 && azar_.unoDe(3);
  if (conTarjeta) otras.pagos = {conDecimales(i.total)};
  else if (i.total > 0) {
    v.txtEfectivoSoles = conDecimales((i.total / 1000 + 1) * 1000);
    v.efectivoTecleado = true;
    SalirEfectivoSoles(*p_, v);
  }
  hacer(i, 1, [&] {
    if (conTarjeta) PulsarVoucher(*p_, v, otras);
    else PulsarBoton(*p_, v, otras, 2);
  });
  if (pantalla_ && pantalla_->liquidacion) documentoDeLiquidacion();
}

void CajaSimulada::documentoDeLiquidacion() {
  CajaRegistradoraFull& v = *pantalla_;
  PantallasDelDia otras(*p_);
  if (azar_.unoDe(3)) v.txtRUC = q(kRuc);
  Intento i;
  i.nombre = q("documento de liquidación");
  i.total = centimos(v.txtSoles);
  for (const FilaVenta& f : v.rejilla.filas) i.unidades += static_cast<int>(Val(f[kCant]));
  hacer(i, 1, [&] { PulsarBoton(*p_, v, otras, 2); });
}
