// What holds over any life of billing documents: what was paid and what is left make the total, no more is delivered
// than was sold, and the drawer holds the payments in cash less change and withdrawals. The book beside it is kept from
// what was typed and answered alone.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "cashday/cuadre.h"
#include "credit/documentos_pendientes.h"
#include "escenas.h"
#include "sale/retiro.h"

namespace {

// A life takes as long as a hundred sums.
[[maybe_unused]] const int kVidas = largo() ? 0 : ::setenv("RC_PARAMS", "max_success=12 max_size=60", /*overwrite=*/0);

struct Pago {
  QString serie, numero;
  bool enEfectivo = false, enDolares = false, vive = true;
  double monto = 0, tipoCambio = 1;

  double soles() const { return enDolares ? monto * tipoCambio : monto; }
  double dolares() const { return enDolares ? monto : monto / tipoCambio; }
};

struct Nota {
  qint64 codigo = 0;
  double soles = 0;
  bool vive = true;
};

struct Documento {
  qint64 codigo = 0;
  int tipo = 0;  // 0 FADE, 1 BADE
  bool enDolares = false, anulado = false, liquidado = false;
  QString numero;
  double total = 0, totalUSD = 0;
  std::vector<Pago> pagos;
  std::vector<Nota> notas;

  double pagado(bool dolares) const {
    double s = 0;
    for (const Pago& p : pagos) s += !p.vive ? 0 : dolares ? p.dolares() : p.soles();
    return s;
  }
  double consumido() const {
    double s = 0;
    for (const Nota& n : notas) s += n.vive ? n.soles : 0;
    return s;
  }
  double saldo() const { return enDolares ? totalUSD - pagado(true) : total - pagado(false); }
};

// A desk, and the book.
struct Libro {
  Credito e;
  std::vector<Documento> documentos;  // of the life under way
  double caja[2] = {};                // soles, dollars

  Libro() {
    e.p.persona().dejaPasar(q("Sí"));
    e.pantallas.supervisor = q("JEFE");
    e.p.ejecuta(q("PRAGMA synchronous=OFF"));
  }
  double entero(const QString& sql) { return Val(e.p.filas(sql)); }

  void vender(int a, int b) {
    Documento d;
    d.tipo = a % 2;
    d.enDolares = b % 2 == 1;
    const bool hecho = e.facturar(d.tipo, QByteArray::number(1 + b % 20).constData(), d.enDolares ? 1 : 0) == u"hecho";
    RC_ASSERT(hecho);
    const QStringList f =
        e.central("SELECT TOP 1 cCodVta, NroDoc, TotVta, TotVtaUSD FROM Venta01 ORDER BY cCodVta DESC").split(u'|');
    d.codigo = f[0].toLongLong();
    d.numero = f[1];
    d.total = 10.0 * (1 + b % 20);
    d.totalUSD = Redondear(d.total / e.p.ses.pnTipoCambio, 2);
    RC_ASSERT(f[2].toDouble() == d.total && f[3].toDouble() == d.totalUSD);
    documentos.push_back(d);
  }
  void pagar(Documento& d, int a, int b) {
    e.cargarPago(d.tipo == 0 ? "01" : "02", d.numero.toUtf8().constData());
    Pago p;
    p.enEfectivo = a % 2 == 0;
    const bool todo = b % 3 == 0;
    p.enDolares = todo ? d.enDolares : b % 2 == 1;
    p.monto = todo ? Redondear(d.saldo(), 2) : (1 + b * 37 % 9000) / 100.0;
    p.tipoCambio = e.p.ses.pnTipoCambio;
    const double propio = d.enDolares == p.enDolares ? p.monto
                          : d.enDolares              ? Redondear(p.monto / p.tipoCambio, 2)
                                                     : Redondear(p.monto * p.tipoCambio, 2);
    const bool cabe = !d.anulado && !d.liquidado && p.monto > 0 && propio <= Redondear(d.saldo(), 2);
    const bool hecho = e.pagar(p.enEfectivo ? 0 : 1 + a % 3, p.enDolares ? 1 : 0,
                               Formatear(p.monto, u"0.00").toUtf8().constData()) == u"hecho";
    RC_ASSERT(hecho == cabe);
    if (!hecho) return;
    const QStringList f =
        e.central("SELECT TOP 1 cSerieDocPago, NroDocPago FROM Pagos ORDER BY idpago DESC").split(u'|');
    p.serie = f[0];
    p.numero = f[1];
    d.pagos.push_back(p);
    if (p.enEfectivo) caja[p.enDolares] += p.monto;
  }
  void consumir(Documento& d, int b) {
    Nota n;
    n.soles = 10.0 * (1 + b % 9);
    const bool cabe = !d.anulado && !d.liquidado && n.soles <= Redondear(d.total - d.consumido(), 2);
    const bool hecho = e.consumir(d.codigo, QByteArray::number(1 + b % 9).constData()) == u"hecho";
    e.v.nota = {};
    RC_ASSERT(hecho == cabe);
    n.codigo = static_cast<qint64>(entero(q("SELECT MAX(cOperCode) FROM OperacionParalela")));
    if (hecho) d.notas.push_back(n);
  }
  void anularPago(Documento& d, int b) {
    if (d.pagos.empty()) return;
    Pago& p = d.pagos[static_cast<size_t>(b) % d.pagos.size()];
    const bool hecho = anular(e, ModoAnular::PADE, p.serie, p.numero) == u"hecho";
    RC_ASSERT(hecho == (p.vive && !d.liquidado));
    if (hecho && p.enEfectivo) caja[p.enDolares] -= p.monto;
    p.vive = p.vive && !hecho;
  }
  void anularConsumo(Documento& d, int b) {
    if (d.notas.empty()) return;
    Nota& n = d.notas[static_cast<size_t>(b) % d.notas.size()];
    const bool hecho = anularNota(e, n.codigo) == u"hecho";
    RC_ASSERT(hecho == (n.vive && !d.liquidado));
    n.vive = n.vive && !hecho;
  }
  void anularDocumento(Documento& d) {
    const bool libre = !d.anulado && !d.liquidado && d.pagado(false) == 0 && d.consumido() == 0;
    const bool hecho = anular(e, d.tipo == 0 ? ModoAnular::FADE : ModoAnular::BADE, q("001"), d.numero) == u"hecho";
    RC_ASSERT(hecho == libre);
    d.anulado = d.anulado || hecho;
  }
  void liquidar(Documento& d) {
    const bool pagado = !d.anulado && !d.liquidado && Redondear(d.saldo(), 2) == 0;
    const bool hecho = pagado ? e.liquidar(d.codigo) == u"hecho" : false;
    RC_ASSERT(hecho == pagado);
    if (!hecho) return;
    d.liquidado = true;
    const double vuelto = Redondear(qMax(0.0, qMin(d.total, d.pagado(false)) - d.consumido()), 2);
    RC_ASSERT(
        entero(q("SELECT TOP 1 nVueltoSoles FROM OperacionParalela WHERE cOperTipo = 24 ORDER BY cOperCode DESC")) ==
        vuelto);
    caja[0] -= vuelto;
  }
  void retirar(int b) {
    const double monto = 1 + b % 50;
    RC_ASSERT(Retirar(e.p, Formatear(monto, u"0.00")));
    caja[0] -= monto;
  }

  // What all screens tell of them.
  void comprobar() {
    for (const DocCredito doc : {DocCredito::FADE, DocCredito::BADE}) {
      const DocumentosPendientes lista = LeerPendientes(e.p, PendientesDe::Pago, doc);
      for (const Documento& d : documentos) {
        if ((d.tipo == 0) != (doc == DocCredito::FADE)) continue;
        int fila = -1;
        for (int n = 0; n < lista.rs.RecordCount(); ++n) {
          if (PorPagar(lista, n).NroDoc == d.numero) fila = n;
        }
        const bool pendiente = !d.anulado && !d.liquidado && (Redondear(d.saldo(), 2) > 0 || d.pagado(false) > 0);
        RC_ASSERT((fila >= 0) == pendiente);
        if (fila < 0) continue;
        const DocumentoPorPagar p = PorPagar(lista, fila);
        RC_ASSERT(p.saldo == Redondear(d.total - d.pagado(false), 2));
        RC_ASSERT(p.saldoUSD == Redondear(d.totalUSD - d.pagado(true), 2));
      }
    }
    for (const Documento& d : documentos) {
      RC_ASSERT(d.consumido() <= d.total);
      const double saldo = Redondear(d.saldo(), 2);
      RC_ASSERT(saldo >= 0);
      const QString consumido = e.central(q("SELECT SUM(nMonto) FROM ConsumoVenta WHERE bAnulado = 0 AND cCodVta = %1")
                                              .arg(d.codigo)
                                              .toUtf8()
                                              .constData());
      RC_ASSERT(Val(consumido) == d.consumido());
    }
    LadoCuadre c;
    RC_ASSERT(CuadreCajaZ1(e.p, c));
    RC_ASSERT(c.txtCashDRW == Formatear(Redondear(caja[0], 2), u"###,###,###,##0.00"));
    RC_ASSERT(c.txtCashDRWDolares == Formatear(Redondear(caja[1], 2), u"###,###,###,##0.00"));
  }
};

RC_GTEST_PROP(Vidas, AddUpToTheCent, ()) {
  static Libro libro;
  libro.documentos.clear();
  const auto pasos = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(
      rc::gen::tuple(rc::gen::inRange(0, 13), rc::gen::inRange(0, 600), rc::gen::inRange(0, 3000)));
  libro.e.p.ses.pnTipoCambio = 3;
  for (const auto& [que, a, b] : pasos) {
    if (libro.documentos.empty() || que == 0) {
      libro.vender(a, b);
      continue;
    }
    Documento& d = libro.documentos[static_cast<size_t>(a) % libro.documentos.size()];
    switch (que) {
      case 1:
      case 2:
      case 3:
      case 4: libro.pagar(d, a / 3, b); break;
      case 5:
      case 6: libro.consumir(d, b); break;
      case 7: libro.anularPago(d, b); break;
      case 8: libro.anularConsumo(d, b); break;
      case 9: libro.anularDocumento(d); break;
      case 10: libro.liquidar(d); break;
      case 11: libro.retirar(b); break;
      default: libro.e.p.ses.pnTipoCambio = 2.9 + (b % 120) / 100.0;
    }
  }
  libro.comprobar();
}

}  // namespace
