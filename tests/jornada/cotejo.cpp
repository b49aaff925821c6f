// What the book is held against.
#include "admin/pantallas_mudas.h"
#include "admin/verificar.h"
#include "alta/tienda_articulos.h"
#include "cashday/cuadre.h"
#include "jornada.h"
#include "platform/text/texto.h"
#include "sync/cuadre_central.h"

namespace jornada {

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

// "1,234.50".
QString conMiles(Centimos c) {
  QString s = QString::number(std::abs(c) / 100);
  for (qsizetype i = s.size() - 3; i > 0; i -= 3) s.insert(i, u',');
  return (c < 0 ? q("-") : QString()) + s + u'.' + QString::number(100 + std::abs(c) % 100).mid(1);
}

// The last word of the first line that begins so, or of one behind it, without the marks round it.
QString dato(const QStringList& lineas, const QString& rotulo, qsizetype detras = 0, qsizetype desde = 0) {
  for (qsizetype i = desde; i + detras < lineas.size(); ++i) {
    if (!lineas[i].startsWith(rotulo)) continue;
    QString s = lineas[i + detras].trimmed().section(u' ', -1);
    return s.remove(u'*').remove(u'(').remove(u')');
  }
  return {};
}

QString cuenta(int n) { return n == 0 ? QString() : q("000000%1").arg(n); }
QString siNoCero(Centimos c) { return c == 0 ? QString() : conMiles(c); }

}  // namespace

qint64 Jornada::puntos() {
  qint64 suma =
      cajas_[0].valor(q("SELECT SUM(nPuntCant) FROM Cliente WHERE iTipo=1"), Caja::Base::Cliente).toLongLong();
  for (Caja& c : cajas_) {
    suma += c.valor(q("SELECT IFNULL(SUM(nPuntCant),0) FROM Acumulacion_Punto WHERE cSincroFlag=0")).toLongLong();
  }
  return suma;
}

qsizetype Jornada::largoDelPapel(Caja& c) const {
  return c.papel.papel[q("LPT1")].size() * 100'000'000 + c.papel.papel[q("LPT2")].size();
}

QByteArray Jornada::papelDesde(Caja& c, qsizetype antes) const {
  return c.papel.papel[q("LPT1")].mid(antes / 100'000'000) + c.papel.papel[q("LPT2")].mid(antes % 100'000'000);
}

void Jornada::asentarFilas(Caja& c, const Esperado& e, bool limpia) {
  Libro& l = c.libro;
  const QStringList hay = c.filas(QLatin1String(kConsultaFilas));
  const auto viejas = static_cast<qsizetype>(l.filas.size());
  igual(q("older rows"), l.textoFilas(), hay.mid(0, viejas));
  QStringList nuevas;
  for (const Fila& f : e.filas) nuevas << f.texto();
  const QStringList escritas = hay.mid(viejas);
  igual(q("rows"), limpia ? nuevas : nuevas.mid(0, escritas.size()), escritas);
  l.filas.insert(l.filas.end(), e.filas.begin(), e.filas.begin() + escritas.size());
}

void Jornada::asentarParalelas(Caja& c, const Esperado& e, bool limpia) {
  Libro& l = c.libro;
  const QStringList lineas = c.filas(QLatin1String(kConsultaLineas));
  if (!limpia) {
    // As far as it came: the row, some of its lines, itself settled, some of those that it settles.
    const QString codigo = e.paralela ? QString::number(e.paralela->codigo) : QString();
    const auto estado = [&](int cual) {
      return c.valor(q("SELECT cEstado FROM OperacionParalela WHERE cOperCode=%1").arg(cual));
    };
    if (e.paralela && !estado(e.paralela->codigo).isEmpty()) {
      l.paralelas.push_back(*e.paralela);
      Paralela& p = l.paralelas.back();
      const auto escritas = lineas.size() - l.textoLineas().size() + static_cast<qsizetype>(p.lineas.size());
      exigir(escritas >= 0 && escritas <= static_cast<qsizetype>(p.lineas.size()), q("lines of ") + codigo);
      p.lineas.resize(static_cast<size_t>(escritas));
      if (p.tipo == 24) p.estado = estado(p.codigo).toInt();
      bool sigue = p.estado == 2;
      for (const int cual : e.liquidadas) {
        Paralela* x = l.paralela(cual);
        sigue = sigue && estado(cual) == u"2";
        if (!sigue) break;
        x->estado = 2;
        x->relacion = e.paralela->codigo;
      }
    }
  } else if (e.paralela) {
    l.paralelas.push_back(*e.paralela);
    for (const int cual : e.liquidadas) {
      l.paralela(cual)->estado = 2;
      l.paralela(cual)->relacion = e.paralela->codigo;
    }
  }
  igual(q("documents"), l.textoParalelas(), c.filas(QLatin1String(kConsultaParalelas)));
  igual(q("lines"), l.textoLineas(), lineas);
}

void Jornada::asentar(Caja& c, const Esperado& e, const Suerte& s, qsizetype papelAntes, qint64 puntosAntes) {
  const bool limpia = s.limpia();
  asentarFilas(c, e, limpia);
  asentarParalelas(c, e, limpia);
  if (!e.doc.isEmpty()) {
    const QString numero = c.valor(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='%1'").arg(e.doc));
    int& contador = c.libro.contador[e.doc];
    exigir(numero.toInt() == e.numero || (!limpia && numero.toInt() == contador), q("counter ") + numero);
    contador = numero.toInt();
    const QByteArray ticket = q("TK NRO: %1-%2 NS:").arg(e.serie).arg(e.numero, 6, 10, QChar(u'0')).toLatin1();
    const QByteArray papel = papelDesde(c, papelAntes);
    const auto veces = papel.count(ticket);
    exigir(papel.count("TK NRO: ") == veces && (limpia ? veces == 1 : veces <= 1), q("tickets %1").arg(veces));
    exigir(veces == 0 || contador == e.numero, q("paper without its number"));
  }
  if (!limpia || clienteCaido_) sinPuntos_.insert(q("%1-%2").arg(e.serie).arg(e.numero));
  const qint64 ganados = puntos() - puntosAntes, debidos = e.puntuable / 1000;
  exigir(ganados == debidos || (!limpia && ganados == 0), q("points: expected %1, came %2").arg(debidos).arg(ganados));
}

void Jornada::asentarMarcas(Caja& c, int tipo, int cuantas, bool limpia) {
  Libro& l = c.libro;
  const auto viejas = static_cast<qsizetype>(l.filas.size());
  const QStringList nuevas = c.filas(QLatin1String(kConsultaFilas)).mid(viejas);
  exigir(limpia ? nuevas.size() == cuantas : nuevas.size() <= 8, q("%1 marks").arg(nuevas.size()));
  for (const QString& n : nuevas) {
    Fila f;
    f.codigo = l.siguienteCodigo(false);
    f.tipo = tipo;
    f.linea.cantidad = 0;
    f.turno = n.section(u'|', 17, 17);
    exigir(f.turno == l.turno || f.turno.isEmpty(), q("turn of a mark"));
    l.filas.push_back(f);
  }
  igual(q("rows with marks"), l.textoFilas(), c.filas(QLatin1String(kConsultaFilas)));
}

void Jornada::cotejar(Caja& c) {
  igual(q("rows"), c.libro.textoFilas(), c.filas(QLatin1String(kConsultaFilas)));
  igual(q("documents"), c.libro.textoParalelas(), c.filas(QLatin1String(kConsultaParalelas)));
  igual(q("verificar"), QStringList(), VerificarPuesto(tienda_.carpetaDe(c.numero)));
  igual(q("a number with two documents"), QString(),
        c.valor(q("SELECT cDocSerie, cDocCodigo FROM Operacion WHERE cDocTipo IN ('01','02') "
                  "GROUP BY cDocSerie, cDocCodigo HAVING COUNT(DISTINCT cOperCode) > 1")));
  igual(q("points earned twice"), QString(),
        c.valor(q("SELECT cDocTipo, cDocSerie, cDocCodigo FROM Acumulacion_Punto WHERE cDocCodigo IS NOT NULL "
                  "GROUP BY cDocTipo, cDocSerie, cDocCodigo HAVING COUNT(*) > 1"),
                Caja::Base::Cliente));
  if (c.enMarcha()) cotejarCuadre(c);
}

void Jornada::cotejarCuadre(Caja& c) {
  PrincipalDelDia menu(c.p());
  c.ventana.bReporteImpreso = false;
  menu.cuadreDeCaja(c.ventana, kCuadreVista);
  const std::pair<LadoEsperado, size_t> lados[] = {{ladoPrincipal(c.libro), kLadoZ}, {ladoZ1(c.libro), kLadoZ1}};
  for (const auto& [x, n] : lados) {
    const LadoCuadre& v = menu.cuadre->lado[n];
    const auto cifra = [&](const char* que, Centimos esperada, const QString& hay) {
      igual(q("count %1 %2").arg(n == kLadoZ ? q("Z") : q("Z1"), q(que)), conMiles(esperada),
            hay == u"0" ? q("0.00") : hay);
    };
    const Libro& l = c.libro;
    cifra("Pagos", x.pagos, v.txtPagos);
    cifra("Voucher", x.voucher, v.txtVoucher);
    if (n == kLadoZ1) cifra("Voucher US$", x.voucherDolares, v.txtVoucherDolares);
    cifra("Cash", x.cash, v.txtCash);
    cifra("Cash US$", x.cashDolares, v.txtCashDolares);
    cifra("Cash-DRW", x.cash + l.aperturaSoles - x.pagos, v.txtCashDRW);
    cifra("Cash-DRW US$", x.cashDolares + l.aperturaDolares, v.txtCashDRWDolares);
  }
}

void Jornada::cotejarReporte(Caja& c, const QString& papel, const QString& letra, const Cifras& k) {
  // The last attempt's paper, should there be more than one.
  const QString titulo = letra + q("  CHECK                             01");
  const QStringList r = papel.mid(papel.lastIndexOf(titulo)).remove(u'\r').split(u'\n');
  const auto cifra = [&](const char* que, const QString& esperada, const QString& hay) {
    igual(q("report %1: %2").arg(letra, q(que)), esperada, hay);
  };
  cifra("units", conMiles(k.unidades * Centimos(100)), dato(r, q("TOTAL ")));
  cifra("sold", conMiles(k.venta), dato(r, q("TOTAL "), 1));
  cifra("tickets", cuenta(k.tickets), dato(r, q("TICKET  ")));
  cifra("vouchers", cuenta(k.vouchers), dato(r, q("VOUCHER VTA ")));
  cifra("by card", k.vouchers == 0 ? QString() : conMiles(k.voucher), dato(r, q("VOUCHER VTA "), 1));
  cifra("withdrawals", k.retirado > 0 ? cuenta(k.retiros) : QString(), dato(r, q("RECAUDACION ")));
  cifra("withdrawn", k.retirado > 0 ? conMiles(k.retirado) : QString(), dato(r, q("RECAUDACION "), 1));
  cifra("drawer", siNoCero(k.cajaSoles + c.libro.aperturaSoles - k.retirado), dato(r, q("CASH-DRW S/.")));
  cifra("drawer US$", siNoCero(k.cajaDolares + c.libro.aperturaDolares), dato(r, q("CASH-DRW$(")));
  cifra("voids", cuenta(k.nulos), dato(r, q("NULOS  TK ")));
  cifra("voided", k.nulos == 0 ? QString() : conMiles(k.nulosMonto), dato(r, q("NULOS  TK "), 1));
  QStringList esperados, hay;
  for (const ArticuloTienda& a : ArticulosDeTienda()) {
    const auto p = k.productos.find(a.codigo);
    if (p != k.productos.end()) {
      esperados << QString::fromUtf16(a.catalogo).leftJustified(11, u' ') + conMiles(p->second * Centimos(100));
    }
    const QString d = dato(r, QString::fromUtf16(a.catalogo).leftJustified(11, u' '));
    if (!d.isEmpty()) hay << QString::fromUtf16(a.catalogo).leftJustified(11, u' ') + d;
  }
  igual(q("products of report ") + letra, esperados, hay);
  // Left out, with a box, when the central database could not be read for it.
  if (!r.filter(q("SIN SERVIDOR CENTRAL")).isEmpty()) return;
  if (r.filter(q("IGV FACTURA")).isEmpty() && !diario.filter(q("FROM VENTA01")).isEmpty()) return;
  // A cent at most: the sum of doubles may stand on either side of the half.
  const auto impuesto = [&](const char* rotulo, double esperado) {
    const double hayImporte = dato(r, q(rotulo), 2).remove(u',').toDouble();
    exigir(std::abs(hayImporte - esperado) < 0.0051,
           q("report %1 %2: %3, expected %4").arg(letra, q(rotulo)).arg(hayImporte).arg(esperado));
  };
  impuesto("        IGV FACTURA", k.igvFacturas);
  impuesto("        IGV BOLETA", k.igvBoletas);
  impuesto("     SERVICIOS (", k.servicio);
}

void Jornada::cotejarCierre(Caja& c, bool sinDetalle) {
  Libro& l = c.libro;
  const Cifras k = cifrasDe(l, {});
  int unidades = 0;
  const Centimos conOrdenes = vendidoConOrdenes(l, &unidades);
  if (!sinDetalle) l.detalleCentral.push_back(detalleDelDia(l));
  // The marks of its reports, then all rows closed and the turn blank.
  for (Fila& f : l.filas) f.abierta = false;
  for (Paralela& p : l.paralelas) p.abierta = false;
  const QStringList nuevas = c.filas(QLatin1String(kConsultaFilas)).mid(static_cast<qsizetype>(l.filas.size()));
  for (const QString& n : nuevas) {
    Fila f;
    f.codigo = l.siguienteCodigo(false);
    f.tipo = 11;
    f.linea.cantidad = 0;
    f.turno = n.section(u'|', 17, 17);
    f.abierta = false;
    l.filas.push_back(f);
  }
  l.turno.clear();
  exigir(nuevas.size() >= 2, q("a Z left no mark"));
  igual(q("closed rows"), l.textoFilas(), c.filas(QLatin1String(kConsultaFilas)));
  igual(q("closed documents"), l.textoParalelas(), c.filas(QLatin1String(kConsultaParalelas)));
  ++l.cierres;
  l.acumulado[0] += k.venta;
  l.acumulado[1] += conOrdenes;
  for (const int n : {1, 2}) {
    igual(q("counter of Z ") + QString::number(n), q("%1|%2").arg(l.cierres).arg(enSoles(l.acumulado[n - 1])),
          c.valor(q("SELECT idz, ROUND(Imac, 2) FROM _Tmp1 WHERE prn=%1").arg(n)));
  }
  igual(q("CabeceraZ"), q("%1|%2|%3").arg(l.cierres).arg(unidades).arg(enSoles(conOrdenes)),
        c.valor(q("SELECT COUNT(*), SUM(CASE WHEN IdZ=(SELECT MAX(IdZ) FROM CabeceraZ) THEN CantidadTotal END), "
                  "ROUND(SUM(CASE WHEN IdZ=(SELECT MAX(IdZ) FROM CabeceraZ) THEN MontoTotal END), 2) FROM CabeceraZ")));
  igual(q("step and turn"), q("|"),
        c.valor(q("SELECT CASE WHEN iCierreCaja IN (0,6) THEN '' ELSE iCierreCaja END, "
                  "IFNULL(TRIM(cCodiTurno),'') FROM Configuracion")));
  cotejarCentral(c);
  const QString papel = DeUnByte(c.papel.papel[q("LPT1")]);
  cotejarReporte(c, papel, q("Z"), k);
  const QStringList z = papel.mid(papel.lastIndexOf(q("Z  CHECK                             01"))).split(q("\r\n"));
  igual(q("Z boletas"), conMiles(k.boletasMonto), dato(z, q("TICKETS -- BOLETA"), 4));
  igual(q("Z facturas"), conMiles(k.facturasMonto), dato(z, q("TICKETS -- FACTURA"), 4));
  igual(q("Z range"), q("RANGO [ %1  ---  %2 ]").arg(k.primero).arg(k.ultimo), z.filter(q("RANGO [")).value(0));
  igual(q("Z running total"), conMiles(l.acumulado[0]), dato(z, q("Total acumulado:")));
}

void Jornada::cotejarCentral(Caja& c) {
  QStringList esperado;
  for (const Centimos d : c.libro.detalleCentral) esperado << enSoles(d);
  igual(q("detail at the central database"), esperado,
        c.filas(q("SELECT ROUND(SUM(d.nMonto), 2) FROM TDETALLEZ1 d, TCABECERAZ1 h WHERE d.nidZ1 = h.idZ1 AND "
                  "h.nidEstado = 0 AND d.cCajaCodi = '%1' GROUP BY d.nidZ1 ORDER BY d.nidZ1")
                    .arg(c.p().ses.psCaja),
                Caja::Base::Central));
}

// Closed days stand in the central database as they stand here, once a start has synchronised.
void Jornada::cotejarEnvio(Caja& c) {
  levantar(c);
  const QString caja = c.p().ses.psCaja;
  igual(q("rows to send"), q("0|0"),
        c.valor(q("SELECT COUNT(*), (SELECT COUNT(*) FROM CabeceraZ WHERE bFlagSincro = 0) FROM Operacion WHERE "
                  "cProdCode <> 0 AND cOperFlagAbierto = 0 AND cFlagSincronizacion <> '1'")));
  QString error;
  Conexion central;
  exigir(c.p().poDBAdmin.AbrirBD(central, c.p().ses.psConexionCentral), q("no central database"));
  const auto r =
      CuadrarConCentral(c.p().poCnnLocal, central, {caja, QDate(2026, 11, 20), QDate(2026, 12, 31)}, 0.18, error);
  exigir(r.has_value(), error);
  exigir(r->igual, r->lineas.join(u'\n'));
}

}  // namespace jornada
