// What the cashier sells: sales and documents of both registers.
#include <algorithm>

#include "admin/pantallas_mudas.h"
#include "admin/tecleo.h"
#include "alta/tienda_articulos.h"
#include "cashday/tipo_cambio.h"
#include "jornada.h"
#include "platform/text/texto.h"
#include "sale/caja_full_adelanto.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/caja_full_totales.h"
#include "sale/caja_rapida.h"

namespace jornada {

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }
QString importe(Centimos c) { return QString::number(c / 100) + u'.' + QString::number(100 + c % 100).mid(1); }

// The dollars that an amount in soles makes, to the cent.
Centimos enDolares(Centimos soles, Centimos cambio) {
  return qRound64(static_cast<double>(soles) * 100 / static_cast<double>(cambio));
}
void encabezar(const Caja& c, const Esperado& e, int tipo, Paralela& p) {
  p.codigo = c.libro.siguienteCodigo(true);
  p.tipo = tipo;
  p.doc = e.doc;
  p.serie = e.serie;
  p.numero = e.numero;
  p.turno = c.libro.turno;
}

// What the menu does before it opens a register.
void delMenu(Caja& c) {
  PrincipalDelDia menu(c.p());
  OlvidarTipoCambioPasado(c.p());
  PrepararOperacion(c.p(), c.ventana, menu);
}

Centimos suma(const std::vector<Renglon>& lineas) {
  Centimos s = 0;
  for (const Renglon& l : lineas) s += l.valor();
  return s;
}

// Each desk counts in series of its own.
QString serieDe(const Caja& c, const QString& doc) {
  const std::pair<const char*, const char*> kPrefijos[] = {{"10", "OC"}, {"11", "NC"}, {"12", "PA"},
                                                           {"13", "PV"}, {"14", "LQ"}, {"02", "00"}};
  for (const auto& [tipo, prefijo] : kPrefijos) {
    if (doc == QLatin1String(tipo)) return q("%1%2").arg(QLatin1String(prefijo)).arg(c.numero);
  }
  return {};
}

const char* const kRuc = "20999999991";

constexpr struct {
  const char* numero;
  int local;
  bool gana;
} kTarjetas[] = {{"00000001", 1, true}, {"00000002", 1, true}, {"00000003", 1, false}, {"00000007", 2, true}};

}  // namespace

CajaRegistradoraFull& Jornada::pantalla(Caja& c) {
  auto& v = pantallas_[c.numero - 1];
  if (!v || azar_.unoDe(3)) {
    v.emplace();
    delMenu(c);
    Inicio(c.p(), *v);
  }
  return *v;
}

std::vector<Renglon> Jornada::teclear(Caja& c, CajaRegistradoraFull& v, bool conDescuento) {
  static const std::vector<ArticuloTienda> articulos = [] {
    std::vector<ArticuloTienda> lista;
    for (const ArticuloTienda& a : ArticulosDeTienda()) {
      if (a.venta == Venta::Normal && a.precio > 0) lista.push_back(a);
    }
    return lista;
  }();
  std::vector<Renglon> lineas;
  for (int n = azar_.entre(1, 4); n > 0; --n) {
    const ArticuloTienda& a = azar_.de(articulos);
    const int fila = AgregarFila(v.rejilla);
    const RenglonTecleado r = TeclearRenglon(
        azar_, a.codigo, qRound64(a.precio * 100), conDescuento, [&](ColumnaLinea columna, const QString& texto) {
          exigir(SalirCelda(c.p(), v, fila, columna, texto), q("celda rechazada: ") + texto);
        });
    lineas.push_back({r.articulo, r.cantidad, r.precio, r.dscto, a.servicio});
  }
  return lineas;
}

QString Jornada::cliente(Caja& c, CajaRegistradoraFull& v, PantallasDelDia& otras) {
  if (!azar_.unoDe(2)) return {};
  const auto& t = kTarjetas[azar_.entre(0, clienteCaido_ ? 1 : 3)];
  v.txtTarjeta = q(t.numero);
  otras.cliente = {q(t.numero), t.local};
  (void)BuscaTarjeta(c.p(), v, otras);
  return t.gana ? q(t.numero) : q(t.numero) + u'-';
}

Fila Jornada::filaBase(const Caja& c, const Esperado& e, int tipo, const QString& doc, const QString& tarjeta) const {
  Fila f;
  f.codigo = c.libro.siguienteCodigo(false);
  f.tipo = tipo;
  f.doc = doc;
  f.serie = e.serie;
  f.numero = e.numero;
  f.tarjeta = tarjeta.left(8);
  f.turno = c.libro.turno;
  return f;
}

std::vector<Fila> Jornada::filasDeVenta(const Caja& c, const Esperado& e, int tipo, const QString& doc,
                                        const QString& tarjeta, const std::vector<Renglon>& lineas) const {
  std::vector<Fila> filas;
  for (const Renglon& l : lineas) {
    filas.push_back(filaBase(c, e, tipo, doc, tarjeta));
    filas.back().linea = l;
  }
  return filas;
}

// Cash on the full register: exact, too much, or dollars, with their change.
Dinero Jornada::cobrar(Caja& c, CajaRegistradoraFull& v, Centimos total) {
  Dinero d{total, 0, 0, 0};
  switch (azar_.entre(1, 4)) {
    case 1:
      d.soles = (total / 1000 + azar_.entre(1, 5)) * 1000;
      d.vueltoSoles = d.soles - total;
      v.txtEfectivoSoles = importe(d.soles);
      v.efectivoTecleado = true;
      SalirEfectivoSoles(c.p(), v);
      break;
    case 2:
      d.dolares = azar_.entre(1, 60) * 100;
      d.soles = std::max<Centimos>(0, total - d.dolares * cambio() / 100);
      d.vueltoSoles = std::max<Centimos>(0, d.dolares * cambio() / 100 - total);
      v.txtEfectivoDolares = importe(d.dolares);
      SalirDolares(c.p(), v);
      break;
    default: break;
  }
  return d;
}

// Of the demo shop's list, in cents of sol a dollar.
Centimos Jornada::cambio() const { return tienda_.reloj.ahora.date().day() == 24 ? 375 : 377; }

void Jornada::emitir(Caja& c, const QString& nombre, Esperado e, const std::function<void()>& acto) {
  const qsizetype papel = largoDelPapel(c);
  const qint64 antes = puntos();
  const Suerte s = hacer(c, nombre + q(" %1-%2").arg(e.serie).arg(e.numero), acto);
  asentar(c, e, s, papel, antes);
  if (!s.limpia()) pantallas_[c.numero - 1].reset();
}

void Jornada::venta(Caja& c) {
  CajaRegistradoraFull& v = pantalla(c);
  PantallasDelDia otras(c.p());
  const bool voucher = azar_.unoDe(3), factura = azar_.unoDe(4);
  CambiarTipo(c.p(), v, otras, voucher ? TipoVenta::Voucher : TipoVenta::Efectivo);
  const QString tarjeta = cliente(c, v, otras);
  const auto lineas = teclear(c, v, true);
  const Centimos total = suma(lineas);
  if (factura) v.txtRUC = q(kRuc);
  const QString doc = factura ? q("01") : q("02");
  Esperado e{q("02"), serieDe(c, q("02")), c.libro.siguienteNumero(q("02")), {}, {}, {}, 0};
  e.filas = filasDeVenta(c, e, voucher ? 2 : 1, doc, tarjeta, lineas);
  Fila efectivo = filaBase(c, e, 1, doc, tarjeta);
  if (voucher) {
    const Centimos enTarjeta = azar_.unoDe(2) ? total : std::max<Centimos>(10, total / 200 * 100);
    otras.pagos = {importe(enTarjeta)};
    efectivo.dinero.soles = total - enTarjeta;
    for (Fila& f : e.filas) f.emisor = q(",001");
    efectivo.emisor = q(",001");
  } else {
    efectivo.dinero = cobrar(c, v, total);
    efectivo.linea.precio = -efectivo.dinero.vueltoSoles;
  }
  if (efectivo.dinero.soles > 0 || efectivo.dinero.dolares > 0) e.filas.push_back(efectivo);
  e.puntuable = tarjeta.size() == 8 ? total : 0;
  emitir(c, voucher ? q("venta voucher") : q("venta"), e, [&] { PulsarBoton(c.p(), v, otras, 2); });
}

void Jornada::rapida(Caja& c) {
  CajaRegistradora v;
  PantallasDelDia otras(c.p());
  delMenu(c);
  AbrirRapida(c.p(), v);
  std::vector<Renglon> lineas;
  for (int n = azar_.entre(1, 4); n > 0; --n) {
    const int tecla = azar_.entre(1, 22);
    PulsarBotonRapida(c.p(), v, otras, tecla);
    const LineaRapida& l = v.lineas.back();
    const int cantidad = azar_.entre(1, 3);
    v.txtCantidad = QString::number(cantidad);
    lineas.push_back({l.cProdCode, cantidad, qRound64(l.precio * 100), 0, l.conServicio});
    exigir(SalirCantidad(c.p(), v), q("cantidad rechazada"));
  }
  const int vueltas = azar_.entre(0, 2);  // C/VUELTO, CASH, VOUCHER
  for (int n = 0; n < vueltas; ++n) PulsarBotonRapida(c.p(), v, otras, kBotonTipo);
  const bool factura = azar_.unoDe(4);
  if (factura) v.txtRuc = q(kRuc);
  const QString doc = factura ? q("01") : q("02");
  const Centimos total = suma(lineas);
  Esperado e{q("02"), serieDe(c, q("02")), c.libro.siguienteNumero(q("02")), {}, {}, {}, 0};
  e.filas = filasDeVenta(c, e, vueltas == 2 ? 2 : 1, doc, {}, lineas);
  if (vueltas != 2) {
    Fila efectivo = filaBase(c, e, 1, doc, {});
    efectivo.dinero.soles = vueltas == 1 ? total : (total / 1000 + 1) * 1000;
    efectivo.dinero.vueltoSoles = efectivo.dinero.soles - total;
    efectivo.linea.precio = -efectivo.dinero.vueltoSoles;
    otras.efectivo = importe(efectivo.dinero.soles);
    e.filas.push_back(efectivo);
  }
  emitir(c, q("rápida"), e, [&] { PulsarBotonRapida(c.p(), v, otras, kBotonImprime); });
}

void Jornada::orden(Caja& c) {
  CajaRegistradoraFull& v = pantalla(c);
  PantallasDelDia otras(c.p());
  CambiarTipo(c.p(), v, otras, TipoVenta::OC);
  const QString tarjeta = cliente(c, v, otras);
  const auto lineas = teclear(c, v, true);
  const Centimos total = suma(lineas);
  const QString doc = q("10");
  Esperado e{doc, serieDe(c, doc), c.libro.siguienteNumero(doc), {}, {}, {}, 0};
  Paralela p;
  p.dinero = cobrar(c, v, total);
  encabezar(c, e, 20, p);
  p.soles = total;
  p.dolares = enDolares(total, cambio());
  p.tarjeta = tarjeta.left(8);
  p.lineas = lineas;
  Fila f = filaBase(c, e, 1, doc, tarjeta);
  f.codigo = p.codigo;
  f.serie = serieDe(c, q("02"));
  f.dinero = p.dinero;
  f.linea.precio = -p.dinero.vueltoSoles;
  e.filas = {f};
  e.paralela = p;
  e.puntuable = tarjeta.size() == 8 ? total : 0;
  emitir(c, q("O/C"), e, [&] { PulsarBoton(c.p(), v, otras, 2); });
}

void Jornada::adelanto(Caja& c) {
  CajaRegistradoraFull& v = pantalla(c);
  PantallasDelDia otras(c.p());
  const bool voucher = azar_.unoDe(3), dolares = !voucher && azar_.unoDe(3);
  CambiarTipo(c.p(), v, otras, voucher ? TipoVenta::PADV : TipoVenta::PADE);
  const Centimos monto = azar_.entre(1, 20) * 1000;
  (dolares ? v.txtPADEDolares : v.txtPagoAdelantado) = importe(monto);
  SalirMonto(dolares ? v.txtPADEDolares : v.txtPagoAdelantado);
  const QString doc = voucher ? q("13") : q("12");
  Esperado e{doc, serieDe(c, doc), c.libro.siguienteNumero(doc), {}, {}, {}, 0};
  Paralela p;
  encabezar(c, e, voucher ? 23 : 22, p);
  p.moneda = dolares ? 2 : 1;
  p.soles = dolares ? monto * cambio() / 100 : monto;
  p.dolares = dolares ? monto : enDolares(monto, cambio());
  (dolares ? p.dinero.dolares : p.dinero.soles) = monto;
  e.paralela = p;
  if (voucher) {
    otras.pagos = {importe(monto)};
    Fila f = filaBase(c, e, 2, doc, {});
    f.codigo = p.codigo;
    f.serie = serieDe(c, q("02"));
    f.dinero.soles = -monto;
    e.filas = {f};
  }
  emitir(c, voucher ? q("PADV") : q("PADE"), e, [&] { PulsarBoton(c.p(), v, otras, 2); });
}

void Jornada::nota(Caja& c) {
  std::vector<int> adelantos;
  for (const Paralela& p : c.libro.paralelas) {
    if ((p.tipo == 22 || p.tipo == 23) && p.estado == 1) adelantos.push_back(p.codigo);
  }
  if (adelantos.empty()) return adelanto(c);
  CajaRegistradoraFull& v = pantalla(c);
  PantallasDelDia otras(c.p());
  CambiarTipo(c.p(), v, otras, TipoVenta::NC);
  const int pade = azar_.de(adelantos);
  exigir(SalirAdelanto(c.p(), v, QString::number(pade)), q("adelanto"));
  const auto lineas = teclear(c, v, true);
  const QString doc = q("11");
  Esperado e{doc, serieDe(c, doc), c.libro.siguienteNumero(doc), {}, {}, {}, 0};
  Paralela p;
  encabezar(c, e, 21, p);
  p.soles = suma(lineas);
  p.dolares = enDolares(p.soles, cambio());
  p.relacion = pade;
  p.lineas = lineas;
  e.paralela = p;
  emitir(c, q("N/C"), e, [&] { PulsarBoton(c.p(), v, otras, 2); });
}

void Jornada::liquidacion(Caja& c) {
  std::vector<int> notas;
  for (const Paralela& p : c.libro.paralelas) {
    if (p.tipo == 21 && p.estado == 1) notas.push_back(p.codigo);
  }
  if (notas.empty()) return nota(c);
  const Paralela una = *c.libro.paralela(azar_.de(notas));
  const Paralela* pade = c.libro.paralela(una.relacion);
  const bool conPago = pade != nullptr && pade->estado == 1;
  CajaRegistradoraFull& v = pantalla(c);
  PantallasDelDia otras(c.p());
  CambiarTipo(c.p(), v, otras, TipoVenta::LIQPAD);
  const int lista = conPago ? 0 : 1;
  v.txtTXL[static_cast<size_t>(lista)] = QString::number(conPago ? pade->codigo : una.codigo);
  exigir(!AgregarTX(c.p(), v, lista), q("documento de la liquidación"));
  std::vector<int> liquidadas;
  std::vector<Renglon> lineas;
  Centimos diferencia = conPago ? -pade->soles : 0;
  if (conPago) liquidadas.push_back(pade->codigo);
  for (const Paralela& p : c.libro.paralelas) {
    if (conPago ? p.relacion != pade->codigo || p.estado != 1 : p.codigo != una.codigo) continue;
    liquidadas.push_back(p.codigo);
    diferencia += p.soles;
    if (p.abierta) lineas.insert(lineas.end(), p.lineas.begin(), p.lineas.end());
  }
  const bool conTarjeta = diferencia > 0 && azar_.unoDe(3);
  const QString doc = q("14");
  Esperado e{doc, serieDe(c, doc), c.libro.siguienteNumero(doc), {}, {}, liquidadas, 0};
  Paralela p;
  encabezar(c, e, 24, p);
  p.soles = diferencia;
  p.dolares = enDolares(diferencia, cambio());
  Fila f = filaBase(c, e, conTarjeta ? 2 : 1, doc, {});
  f.codigo = p.codigo;
  f.serie = serieDe(c, q("02"));
  if (conTarjeta) {
    otras.pagos = {importe(diferencia)};
    f.dinero.soles = diferencia;
    e.filas = {f};
  } else if (diferencia > 0) {
    p.dinero.soles = (diferencia / 1000 + 1) * 1000;
    p.dinero.vueltoSoles = p.dinero.soles - diferencia;
    v.txtEfectivoSoles = importe(p.dinero.soles);
    v.efectivoTecleado = true;
    SalirEfectivoSoles(c.p(), v);
    f.dinero.soles = p.dinero.soles;
    f.linea.precio = -p.dinero.vueltoSoles;
    e.filas = {f};
  } else {
    p.dinero.vueltoSoles = -diferencia;
    f.linea.precio = diferencia;
    if (diferencia < 0) e.filas = {f};
  }
  p.estado = 2;
  e.paralela = p;
  emitir(c, q("LIQPAD"), e, [&] {
    if (conTarjeta) PulsarVoucher(c.p(), v, otras);
    else PulsarBoton(c.p(), v, otras, 2);
  });
  if (pantallas_[c.numero - 1] && v.liquidacion) documentoDeLiquidacion(c, p.codigo, lineas, conTarjeta);
}

void Jornada::documentoDeLiquidacion(Caja& c, int codigo, const std::vector<Renglon>& lineas, bool conTarjeta) {
  CajaRegistradoraFull& v = *pantallas_[c.numero - 1];
  PantallasDelDia otras(c.p());
  const bool factura = azar_.unoDe(3);
  if (factura) v.txtRUC = q(kRuc);
  const QString doc = factura ? q("01") : q("02");
  Esperado e{q("02"), serieDe(c, q("02")), c.libro.siguienteNumero(q("02")), {}, {}, {}, 0};
  e.filas = filasDeVenta(c, e, 3, doc, {}, lineas);
  if (!conTarjeta) {
    e.filas.push_back(filaBase(c, e, 3, doc, {}));
    e.filas.back().dinero.soles = suma(lineas);
  }
  for (Fila& f : e.filas) {
    f.anula = codigo;
    if (conTarjeta) f.emisor = q(",001");
  }
  emitir(c, q("documento de liquidación"), e, [&] { PulsarBoton(c.p(), v, otras, 2); });
}

}  // namespace jornada
