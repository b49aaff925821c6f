#include "libro.h"

#include <algorithm>
#include <set>

namespace jornada {

const char* const kConsultaFilas =
    "SELECT cOperCode, cOperTipo, IFNULL(cDocTipo,''), IFNULL(cDocSerie,''), IFNULL(cDocCodigo,0), "
    "IFNULL(cProdCode,0), "
    "IFNULL(nProdCant,0), IFNULL(nProdPrecUnit,0), IFNULL(nMontoSoles,0), IFNULL(nMontoDolares,0), "
    "IFNULL(nVueltoDolares,0), CASE WHEN nProdCant<0 THEN 0 ELSE IFNULL(nDscto,0) END, "
    "CASE WHEN nProdCant<0 THEN 0 ELSE IFNULL(nServicio,0) END, IFNULL(cEmisor,''), IFNULL(cOperCodeAnula,0), "
    "IFNULL(cOperFlagAnula,0), IFNULL(nTarjNumb,''), cTurnoCodi, cOperFlagAbierto FROM Operacion ORDER BY cOperID";
const char* const kConsultaParalelas =
    "SELECT cOperCode, cOperTipo, IFNULL(cDocTipo,''), IFNULL(cDocSerie,''), IFNULL(cDocCodigo,0), IFNULL(nMoneda,0), "
    "IFNULL(nMontoSoles,0), IFNULL(nMontoDolares,0), IFNULL(nEfectivoSoles,0), IFNULL(nEfectivoDolares,0), "
    "IFNULL(nVueltoSoles,0), IFNULL(nVueltoDolares,0), cEstado, IFNULL(cOperCodeRela,0), IFNULL(cOperCodeAnul,0), "
    "IFNULL(nTarjNumb,''), cTurnoCodi, cOperFlagAbierto FROM OperacionParalela ORDER BY cOperCode";
const char* const kConsultaLineas =
    "SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio FROM OperacionParalelaProducto "
    "ORDER BY cOperCode, rowid";

namespace {

const QString kServicio = QStringLiteral("10");

QString unir(const QStringList& celdas) { return celdas.join(u'|'); }
QString t(qint64 n) { return QString::number(n); }

// Counted as sold: a line of a sale in force.
bool vendida(const Fila& f) { return f.tipo >= 1 && f.tipo <= 3 && f.linea.articulo != 0 && !f.anulada; }
// Cash of a sale: its tender row.
bool recibo(const Fila& f) { return f.linea.articulo == 0 && !f.anulada && f.tipo != 5 && f.tipo < 10; }

}  // namespace

QString enSoles(Centimos c) {
  QString s = QString::number(std::abs(c) / 100);
  const int resto = static_cast<int>(std::abs(c) % 100);
  if (resto != 0) s += u'.' + QString::number(resto + 100).mid(1);
  if (s.contains(u'.') && s.endsWith(u'0')) s.chop(1);
  return c < 0 ? u'-' + s : s;
}

QString Fila::texto() const {
  return unir({t(codigo), t(tipo), doc, serie, t(numero), t(linea.articulo), t(linea.cantidad), enSoles(linea.precio),
               enSoles(dinero.soles), enSoles(dinero.dolares), enSoles(dinero.vueltoDolares),
               t(linea.cantidad < 0 ? 0 : linea.dscto), linea.servicio && linea.cantidad > 0 ? kServicio : t(0), emisor,
               t(anula), t(anulada), tarjeta, turno, t(abierta)});
}

QString Paralela::texto() const {
  return unir({t(codigo), t(tipo), doc, serie, t(numero), t(moneda), enSoles(soles), enSoles(dolares),
               enSoles(dinero.soles), enSoles(dinero.dolares), enSoles(dinero.vueltoSoles),
               enSoles(dinero.vueltoDolares), t(estado), t(relacion), t(anuladaPor), tarjeta, turno, t(abierta)});
}

int Libro::siguienteNumero(const QString& doc) const {
  int maximo = 0;
  for (const Fila& f : filas) {
    if (doc == u"02" && f.fiscal()) maximo = std::max(maximo, f.numero);
  }
  for (const Paralela& p : paralelas) {
    if (p.doc == doc) maximo = std::max(maximo, p.numero);
  }
  const auto c = contador.find(doc);
  return (maximo > 0 ? maximo : c == contador.end() ? 0 : c->second) + 1;
}

int Libro::siguienteCodigo(bool paralela) const {
  int maximo = 0;
  if (paralela) {
    for (const Paralela& p : paralelas) maximo = std::max(maximo, p.codigo);
  } else {
    for (const Fila& f : filas) maximo = std::max(maximo, f.codigo);
  }
  return maximo + 1;
}

Paralela* Libro::paralela(int codigo) {
  for (Paralela& p : paralelas) {
    if (p.codigo == codigo) return &p;
  }
  return nullptr;
}

QStringList Libro::textoFilas() const {
  QStringList r;
  for (const Fila& f : filas) r << f.texto();
  return r;
}

QStringList Libro::textoParalelas() const {
  QStringList r;
  for (const Paralela& p : paralelas) r << p.texto();
  return r;
}

QStringList Libro::textoLineas() const {
  QStringList r;
  for (const Paralela& p : paralelas) {
    for (const Renglon& l : p.lineas) {
      r << unir(
          {t(p.codigo), t(l.articulo), t(l.cantidad), enSoles(l.precio), t(l.dscto), l.servicio ? kServicio : t(0)});
    }
  }
  return r;
}

Cifras cifrasDe(const Libro& l, const QString& turno) {
  Cifras c;
  std::set<int> tickets, vouchers, nulos;
  for (const Fila& f : l.filas) {
    if (!f.abierta) continue;
    const Centimos valor = f.linea.valor();
    if (f.tipo == 5 && !f.anulada) {
      ++c.retiros;
      c.retirado += valor;
    }
    if (recibo(f) && f.fiscal() && (f.tipo == 1 || f.tipo == 3)) {
      c.cajaSoles += f.dinero.soles + f.linea.precio;
      c.cajaDolares += f.dinero.dolares - f.dinero.vueltoDolares;
    }
    if (!turno.isEmpty() && f.turno != turno) continue;
    if (vendida(f)) {
      c.unidades += f.linea.cantidad;
      c.venta += valor;
      const double base = static_cast<double>(valor) / 100 / (1.18 + (f.linea.servicio ? 0.10 : 0));
      c.servicio += f.linea.servicio ? base * 0.10 : 0;
      (f.doc == u"02" ? c.igvBoletas : c.igvFacturas) += base * 0.18;
      ++(f.doc == u"02" ? c.boletas : c.facturas);
      (f.doc == u"02" ? c.boletasMonto : c.facturasMonto) += valor;
      c.productos[f.linea.articulo] += f.linea.cantidad;
    }
    if (f.fiscal() && !f.anulada) tickets.insert(f.codigo);
    if (!f.anulada && f.tipo < 10 && (!f.emisor.isEmpty() || f.tipo == 2)) vouchers.insert(f.codigo);
    if (f.tipo == 2 && !f.anulada) {
      c.voucher += f.linea.articulo != 0 ? valor : 0;
      if (f.doc == u"14") c.voucher += f.dinero.soles + f.linea.precio;
    }
    if (f.tipo == 1 && !f.anulada && f.fiscal() && !f.emisor.isEmpty()) c.voucher -= f.dinero.soles;
    // The rows of a voided sale that settled a liquidation carry a code there as its mirror does.
    if (f.anulada && f.linea.articulo != 0 && f.anula != 0) {
      nulos.insert(f.codigo);
      c.nulosMonto += valor;
    }
    if (f.fiscal() && f.numero > 0 && f.tipo <= 5) {
      c.primero = c.primero == 0 ? f.numero : std::min(c.primero, f.numero);
      c.ultimo = std::max(c.ultimo, f.numero);
    }
  }
  c.tickets = static_cast<int>(tickets.size());
  c.vouchers = static_cast<int>(vouchers.size());
  c.nulos = static_cast<int>(nulos.size());
  c.retirado = std::min(c.retirado, c.cajaSoles + l.aperturaSoles);
  return c;
}

namespace {

// Cards of sales that settle no liquidation, and those that pay a liquidation itself.
Centimos tarjetas(const Fila& f) {
  if (f.tipo != 2 || f.anulada) return 0;
  Centimos suma = f.anula == 0 && f.linea.articulo != 0 ? f.linea.valor() : 0;
  if (f.doc == u"14") suma += f.dinero.soles + f.linea.precio;
  return suma;
}

}  // namespace

LadoEsperado ladoPrincipal(const Libro& l) {
  LadoEsperado r;
  for (const Fila& f : l.filas) {
    if (!f.abierta) continue;
    if (f.tipo == 5 && !f.anulada) r.pagos += f.linea.precio;
    r.voucher += tarjetas(f);
    if (f.tipo == 1 && !f.anulada && !f.emisor.isEmpty()) r.voucher -= f.dinero.soles;
    if (!recibo(f) || !f.fiscal() || (f.tipo != 1 && f.tipo != 3)) continue;
    r.cash += f.dinero.soles + f.linea.precio;
    r.cashDolares += f.dinero.dolares - f.dinero.vueltoDolares;
  }
  return r;
}

LadoEsperado ladoZ1(const Libro& l) {
  LadoEsperado r;
  for (const Fila& f : l.filas) {
    if (!f.abierta) continue;
    if (f.tipo == 5 && !f.anulada) r.pagos += f.linea.precio;
    r.voucher += tarjetas(f);
    if (!recibo(f) || f.tipo != 1) continue;
    if (!f.emisor.isEmpty()) r.voucher -= f.dinero.soles + f.linea.precio;
    r.cash += f.dinero.soles + f.linea.precio;
    r.cashDolares += f.dinero.dolares - f.dinero.vueltoDolares;
  }
  for (const Paralela& p : l.paralelas) {
    if (!p.abierta || p.anuladaPor != 0 || p.estado == 0 || (p.tipo != 22 && p.tipo != 23)) continue;
    // In force all that was received counts; settled, only what came in the document's currency.
    const Centimos soles = p.estado == 1 || p.moneda != 2 ? p.dinero.soles : 0;
    const Centimos dolares = p.estado == 1 || p.moneda == 2 ? p.dinero.dolares : 0;
    (p.tipo == 22 ? r.cash : r.voucher) += soles;
    (p.tipo == 22 ? r.cashDolares : r.voucherDolares) += dolares;
  }
  return r;
}

Centimos vendidoConOrdenes(const Libro& l, int* unidades) {
  const Cifras c = cifrasDe(l, {});
  Centimos suma = c.venta;
  int cuantas = c.unidades;
  for (const Paralela& p : l.paralelas) {
    if (!p.abierta || p.tipo != 20 || p.estado != 1 || p.anuladaPor != 0) continue;
    for (const Renglon& r : p.lineas) {
      suma += r.valor();
      cuantas += r.cantidad;
    }
  }
  if (unidades) *unidades = cuantas;
  return suma;
}

Centimos detalleDelDia(const Libro& l) {
  Centimos suma = cifrasDe(l, {}).venta;
  for (const Paralela& p : l.paralelas) {
    const bool cuenta = (p.estado == 1 && (p.tipo == 20 || p.tipo == 21)) || p.doc == u"11";
    if (!p.abierta || p.anuladaPor != 0 || !cuenta) continue;
    for (const Renglon& r : p.lineas) suma += r.valor();
  }
  return suma;
}

}  // namespace jornada
