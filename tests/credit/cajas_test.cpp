// Four desks, each a process with a store of its own, that pay, consume, void and settle the same documents of one
// PostgreSQL server at random: behind it all, centre and stores tell the same to the cent.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <random>

#include "cashday/cuadre.h"
#include "escenas.h"

namespace {

constexpr int kCajas = 4;

struct Documento {
  qint64 codigo = 0;
  QString tipo, serie, numero;
};

// What a desk may be told on such a day.
bool esperada(const QString& caja) {
  // clang-format off
  static const QStringList conocidas{
      q("Esta seguro de anular el documento?"), q("Se anuló el documento!"), q("Hay un saldo a favor del cliente"),
      q("registró un pago igual"), q("es de la caja"), q("El monto a pagar no debe ser mayor que el saldo"),
      q("Ya no hay saldo por cancelar"), q("La detracción de este documento ya no está pendiente"),
      q("No puede consumir mas de"), q("fue anulado."), q("ya fue liquidado"), q("solo se liquida con saldo 0"),
      q("ya se encuentra anulado"), q("no se puede anular por presentar"), q("Otra caja cambió los pagos"),
      q("Debe registar una cantidad mayor que cero.")};
  // clang-format on
  return std::any_of(conocidas.begin(), conocidas.end(), [&](const QString& c) { return caja.contains(c); });
}

// A desk at work. What it voided of another one's receipts it writes down.
class Cajera {
 public:
  Cajera(Credito& e, unsigned semilla, int ventana) : e_(e), azar_(semilla), ventana_(ventana) {}

  void acto() {
    const auto d = documento();
    if (!d) return;
    switch (azar_() % 11) {
      case 0:
      case 1:
      case 2:
      case 3: return pagar(*d);
      case 4:
      case 5: return consumir(*d);
      case 6: return anularPago(*d);
      case 7: return anularUnaNota(*d);
      case 8: return anularDocumento(*d);
      case 9: return liquidar(*d);
      default: return vender();
    }
  }
  void vender() {
    const int tipo = static_cast<int>(azar_() % 2);
    const int moneda = static_cast<int>(azar_() % 2);
    const bool saco = azar_() % 3 == 0;
    EXPECT_EQ(q("hecho"), e_.facturar(tipo, saco ? "9" : "10", moneda, saco ? "807" : "101"));
  }
  QStringList ajenos;

 private:
  QStringList lista(const QString& sql) {
    Conexion c;
    EXPECT_TRUE(e_.p.poDBAdmin.AbrirBD(c, e_.p.ses.psConexionCentral));
    const QString filas = e_.p.filas(c, sql);
    return filas.isEmpty() ? QStringList() : filas.split(u'\n');
  }
  std::optional<QString> una(const QStringList& de) {
    if (de.isEmpty()) return {};
    return de[static_cast<qsizetype>(azar_() % static_cast<unsigned>(de.size()))];
  }
  // One of the newest.
  std::optional<Documento> documento() {
    const auto fila = una(lista(q("SELECT TOP %1 cCodVta, TipoDoc, cSerieDoc, NroDoc FROM Venta01 "
                                  "ORDER BY cCodVta DESC")
                                    .arg(ventana_)));
    if (!fila) return {};
    const QStringList f = fila->split(u'|');
    return Documento{f[0].toLongLong(), f[1], f[2], f[3]};
  }
  void pagar(const Documento& d) {
    e_.cargarPago(d.tipo, d.serie, d.numero);
    if (!e_.v.pago.documento) return;
    if (e_.v.pago.detraccion && azar_() % 2 == 0) {
      (void)e_.depositar();
      return;
    }
    const bool dolares = e_.v.pago.enDolares;
    const double saldo = LeerImporte(dolares ? e_.v.pago.lblSaldoDolares : e_.v.pago.lblSaldoSoles);
    const bool todo = azar_() % 3 != 0;
    const int moneda = todo ? (dolares ? 1 : 0) : static_cast<int>(azar_() % 2);
    const double monto = todo ? saldo : static_cast<double>(azar_() % 4000) / 100;
    (void)e_.pagar(static_cast<int>(azar_() % 4), moneda, Formatear(monto, u"0.00").toUtf8().constData());
  }
  void consumir(const Documento& d) {
    e_.cargarNota(d.codigo);
    if (!e_.v.nota.documento) return;
    e_.linea(e_.v.nota.rejilla, "101", QByteArray::number(1 + static_cast<int>(azar_() % 6)).constData());
    TotalesNota(e_.p, e_.v.nota);
    (void)GrabarNota(e_.p, e_.v, e_.pantallas);
  }
  void anularPago(const Documento& d) {
    const auto recibo =
        una(lista(q("SELECT cSerieDocPago, NroDocPago FROM Pagos WHERE FechaAnulacion IS NULL AND TipoDoc = '%1' AND "
                    "cSerieDoc = '%2' AND NroDoc = '%3'")
                      .arg(d.tipo, d.serie, d.numero)));
    if (!recibo) return;
    const QString serie = recibo->section(u'|', 0, 0), numero = recibo->section(u'|', 1, 1);
    const bool hecho = anular(e_, ModoAnular::PADE, serie, numero) == u"hecho";
    if (hecho && !serie.endsWith(e_.p.ses.psCaja.right(1))) ajenos << serie + u'-' + numero;
  }
  void liquidar(const Documento& d) {
    LimpiarLiquidacion(e_.v.liquidacion);
    e_.v.liquidacion.txtTXL = QString::number(d.codigo);
    (void)AgregarDocumentoLQ(e_.p, e_.v.liquidacion);
    if (!e_.v.liquidacion.lvwTX[0].empty()) (void)GrabarLiquidacion(e_.p, e_.v);
  }
  void anularUnaNota(const Documento& d) {
    const QString suyas = e_.p.filas(
        q("SELECT cOperCode FROM OperacionParalela WHERE cOperTipo = 21 AND cEstado = '1' AND cOperCodeRela = %1")
            .arg(d.codigo));
    if (const auto nota = una(suyas.isEmpty() ? QStringList() : suyas.split(u'\n'))) {
      (void)anularNota(e_, nota->toLongLong());
    }
  }
  void anularDocumento(const Documento& d) {
    (void)anular(e_, d.tipo == u"01" ? ModoAnular::FADE : ModoAnular::BADE, d.serie, d.numero);
  }

  Credito& e_;
  std::mt19937 azar_;
  int ventana_;
};

// The shop: its desks with a series each.
struct Tienda {
  ServidoresCredito servidores = *servidoresEn(EnMotor::Postgres);
  std::vector<std::unique_ptr<Credito>> cajas;

  Tienda() {
    for (int n = 1; n <= kCajas; ++n) {
      cajas.push_back(std::make_unique<Credito>(Envolver{}, servidores, n > 1));
      Credito& e = *cajas.back();
      e.p.ses.psCaja = q("0000%1").arg(n);
      e.p.ses.pnTipoCambio = 3 + 0.1 * n;
      e.pantallas.supervisor = q("JEFE");
      e.p.persona().dejaPasar(q("Sí"));
      for (const TipoDocumento t : {TipoDocumento::Boleta, TipoDocumento::NC, TipoDocumento::PADE, TipoDocumento::PADV,
                                    TipoDocumento::LIQPAD}) {
        e.p.ejecuta(q("UPDATE Config_Documento SET cSerieDoc = '%1' WHERE cTipoDoc = '%2'")
                        .arg(SerieInicial(t, e.p.ses.psCaja), Codigo(t)));
      }
      e.p.ejecuta(q("PRAGMA synchronous=OFF"));
    }
  }
  Recordset central(const QString& sql) { return ServidorPrueba::uno().crudo(servidores.central, sql); }
  // Nothing where all is well.
  QString malos(const QByteArray& sql) {
    QStringList lineas;
    for (const auto& f : central(QString::fromUtf8(sql))) lineas << f[0].toString();
    return lineas.join(u' ');
  }
};

const QString kAjenos = q("ajenos.txt");

// The whole of a desk's process.
int trabajar(Credito& e, int caja, int ventana, int actos, int duracion_ms) {
  e.abrirAlmacen();
  e.p.ejecuta(q("PRAGMA synchronous=OFF"));
  Cajera cajera(e, 77 + static_cast<unsigned>(caja), ventana);
  QElapsedTimer reloj;
  reloj.start();
  for (int n = 0; actos > 0 ? n < actos : reloj.elapsed() < duracion_ms; ++n) cajera.acto();
  for (const auto& c : e.p.persona().vistas) EXPECT_TRUE(esperada(c.texto)) << c.texto.toStdString();
  QFile f(e.p.rutas.enPrograma(kAjenos));
  EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(cajera.ajenos.join(u'\n').toUtf8()) >= 0);
  return testing::Test::HasFailure() ? 1 : 0;
}

// The central rows among themselves.
void comprobarCentral(Tienda& t) {
  const char* const pagado =
      "(SELECT coalesce(sum(CASE WHEN v.ccodmoneda = 'E' THEN CASE p.moneda WHEN 'E' THEN p.monto ELSE p.monto / "
      "p.ntipocambio END ELSE CASE p.moneda WHEN 'E' THEN p.monto * p.ntipocambio ELSE p.monto END END), 0) FROM "
      "dbo.pagos p WHERE p.tipodoc = v.tipodoc AND p.cseriedoc = v.cseriedoc AND p.nrodoc = v.nrodoc AND "
      "p.fechaanulacion IS NULL)";
  const QByteArray saldo =
      QByteArray("round(CASE WHEN v.ccodmoneda = 'E' THEN v.totvtausd ELSE v.totvta END - ") + pagado + ", 2)";
  const QByteArray consumido =
      "(SELECT coalesce(sum(nmonto), 0) FROM dbo.consumoventa c WHERE c.ccodvta = v.ccodvta AND c.banulado = 0)";
  EXPECT_EQ("", t.malos("SELECT v.ccodvta FROM dbo.venta01 v WHERE " + saldo + " < 0")) << "overpaid";
  EXPECT_EQ("", t.malos("SELECT v.ccodvta FROM dbo.venta01 v WHERE " + consumido + " > v.totvta")) << "overconsumed";
  EXPECT_EQ("", t.malos("SELECT v.ccodvta FROM dbo.venta01 v WHERE v.bliquidado = 1 AND " + saldo + " <> 0"))
      << "settled with a balance";
  EXPECT_EQ("", t.malos("SELECT v.ccodvta FROM dbo.venta01 v WHERE v.fechaanulacion IS NOT NULL AND (v.bliquidado = 1 "
                        "OR " +
                        consumido + " > 0 OR " + pagado + " > 0)"))
      << "voided, and yet used";
  EXPECT_EQ("",
            t.malos("SELECT tipodoc || nrodoc FROM dbo.pagos GROUP BY tipodoc, cseriedoc, nrodoc HAVING count(*) <> "
                    "max(nroitem) OR count(DISTINCT nroitem) <> count(*)"))
      << "items of payments";
  EXPECT_EQ("", t.malos("SELECT seriedoc || nrodoc FROM dbo.detraccion d WHERE (estado = 'C') <> EXISTS (SELECT 1 FROM "
                        "dbo.pagos p WHERE p.tipodoc = '01' AND p.cseriedoc = d.seriedoc AND p.nrodoc = d.nrodoc AND "
                        "p.bespagodetraccion = 1 AND p.fechaanulacion IS NULL)"))
      << "state of a detraction";
  EXPECT_EQ("", t.malos("SELECT cactO FROM dbo.diario_acto"));
  EXPECT_EQ("", t.malos("SELECT ccodcaja FROM dbo.venta01 GROUP BY ccodcaja HAVING count(*) <> max(nrodoc::int) OR "
                        "count(DISTINCT nrodoc) <> count(*)"))
      << "a number twice, or a gap";
  EXPECT_EQ("", t.malos("SELECT count(*) FROM dbo.venta01 HAVING count(*) <> max(ccodvta)"));
}

// A desk's store beside the centre: every receipt and every note, their series without a gap, and the drawer.
void comprobarCaja(Tienda& t, Credito& e, const QStringList& ajenos, double& vueltos) {
  const QString caja = e.p.ses.psCaja;
  EXPECT_EQ("", e.local("SELECT cActo FROM Diario_Acto"));
  QStringList aqui, alla;
  for (const QString& f : e.local("SELECT cDocSerie, cDocCodigo, nMoneda, nMontoSoles, nMontoDolares, cEstado FROM "
                                  "OperacionParalela WHERE sGlosa = 'PAGO REF. SIST. LOGISTICA'")
                              .split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList c = f.split(u'|');
    const QString recibo = c[0] + u'-' + NumeroEscrito(c[1].toLongLong());
    aqui << recibo + u' ' + Formatear(c[c[2] == u"2" ? 4 : 3].toDouble(), u"0.00") + q(c[2] == u"2" ? " E " : " N ") +
                (c[5] == u"0" || ajenos.contains(recibo) ? q("anulado") : q("vale"));
    const bool quedo = !ajenos.contains(recibo) || c[5] == u"1";
    EXPECT_TRUE(quedo) << "voided at another desk, its row is left to its own one";
  }
  for (const auto& f :
       t.central(q("SELECT cseriedocpago || '-' || nrodocpago || ' ' || round(monto, 2) || ' ' || moneda "
                   "|| CASE WHEN fechaanulacion IS NULL THEN ' vale' ELSE ' anulado' END FROM dbo.pagos "
                   "WHERE cseriedocpago IN ('PA%1', 'PV%1')")
                     .arg(caja.right(1)))) {
    alla << f[0].toString();
  }
  aqui.sort();
  alla.sort();
  EXPECT_EQ(alla.join(u'\n'), aqui.join(u'\n')) << caja.toStdString();
  EXPECT_EQ(
      e.local("SELECT cOperCode, nMontoSoles, cOperCodeRela, IIF(cEstado = '0', 1, 0) FROM OperacionParalela WHERE "
              "sGlosa = 'REF. SIST. LOGISTICA' ORDER BY cOperCode"),
      e.central(("SELECT cOperCode, nMonto, cCodVta, bAnulado FROM ConsumoVenta WHERE cCajaCodi = '" + caja.toUtf8() +
                 "' ORDER BY cOperCode")
                    .constData()));
  EXPECT_EQ("",
            e.local("SELECT cDocTipo, MAX(cDocCodigo) FROM OperacionParalela WHERE cDocCodigo > 0 GROUP BY cDocTipo "
                    "HAVING COUNT(*) <> MAX(cDocCodigo)"))
      << "a number twice, or a gap";
  double efectivo[2] = {};
  for (const auto& f : t.central(q("SELECT moneda, sum(monto) FROM dbo.pagos WHERE cseriedocpago = 'PA%1' AND "
                                   "fechaanulacion IS NULL GROUP BY moneda")
                                     .arg(caja.right(1)))) {
    efectivo[f[0].toString() == u"E"] = f[1].toDouble();
  }
  for (const QString& recibo : ajenos) {
    if (!recibo.startsWith(q("PA") + caja.right(1))) continue;
    const Recordset rs =
        t.central(q("SELECT moneda, monto FROM dbo.pagos WHERE cseriedocpago = '%1' AND nrodocpago = '%2'")
                      .arg(recibo.section(u'-', 0, 0), recibo.section(u'-', 1)));
    efectivo[rs[0].toString() == u"E"] += rs[1].toDouble();
  }
  const double vuelto = Val(e.local("SELECT SUM(nVueltoSoles) FROM OperacionParalela WHERE cOperTipo = 24"));
  vueltos += vuelto;
  LadoCuadre c;
  EXPECT_TRUE(CuadreCajaZ1(e.p, c));
  EXPECT_EQ(Formatear(efectivo[0] - vuelto, u"###,###,###,##0.00"), c.txtCash) << caja.toStdString();
  EXPECT_EQ(Formatear(efectivo[1], u"###,###,###,##0.00"), c.txtCashDolares) << caja.toStdString();
}

TEST(CuatroCajas, AgreeToTheCent) {
  Tienda t;
  const int documentos = largo() ? 100 : 10, actos = largo() ? 0 : 40;
  Cajera primera(*t.cajas[0], 5, documentos);
  for (int n = 0; n < documentos; ++n) primera.vender();
  for (auto& e : t.cajas) {
    for (Conexion* c : {&e->p.poCnnLocal, &e->p.poCnnCentral, &e->p.poCnnCliente}) c->cerrar();
  }
  std::vector<pid_t> hijos;
  for (int n = 0; n < kCajas; ++n) {
    hijos.push_back(::fork());
    if (hijos.back() == 0) ::_exit(trabajar(*t.cajas[static_cast<size_t>(n)], n, documentos, actos, 60'000));
  }
  for (const pid_t hijo : hijos) {
    int estado = -1;
    EXPECT_EQ(hijo, ::waitpid(hijo, &estado, 0));
    EXPECT_EQ(0, estado);
  }
  comprobarCentral(t);
  QStringList ajenos;
  for (auto& e : t.cajas) {
    e->abrirAlmacen();
    QFile f(e->p.rutas.enPrograma(kAjenos));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    ajenos += QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
  }
  double vueltos = 0, liquidaciones = 0;
  for (auto& e : t.cajas) {
    comprobarCaja(t, *e, ajenos, vueltos);
    liquidaciones += Val(e->local("SELECT COUNT(*) FROM OperacionParalela WHERE cOperTipo = 24"));
  }
  const Recordset liquidados = t.central(
      q("SELECT count(*), coalesce(sum(greatest(least(v.totvta, round((SELECT sum(CASE p.moneda WHEN 'E' THEN p.monto "
        "* p.ntipocambio ELSE p.monto END) FROM dbo.pagos p WHERE p.tipodoc = v.tipodoc AND p.cseriedoc = v.cseriedoc "
        "AND p.nrodoc = v.nrodoc AND p.fechaanulacion IS NULL), 2)) - (SELECT coalesce(sum(nmonto), 0) FROM "
        "dbo.consumoventa c WHERE c.ccodvta = v.ccodvta AND c.banulado = 0), 0)), 0) FROM dbo.venta01 v "
        "WHERE v.bliquidado = 1"));
  EXPECT_EQ(liquidados[0].toDouble(), liquidaciones) << "settled at one desk, once";
  EXPECT_EQ(Formatear(liquidados[1].toDouble(), u"0.00"), Formatear(vueltos, u"0.00"));
  const Recordset hechos =
      t.central(q("SELECT (SELECT count(*) FROM dbo.pagos), (SELECT count(*) FROM dbo.consumoventa)"));
  EXPECT_GT(hechos[0].toInt(), documentos);
  EXPECT_GT(hechos[1].toInt(), documentos / 2);
  EXPECT_GE(liquidaciones, largo() ? 10 : 0);
  RecordProperty("pagos", hechos[0].toInt());
  RecordProperty("notas", hechos[1].toInt());
  RecordProperty("liquidaciones", static_cast<int>(liquidaciones));
}

// A knot of locks that the server breaks with an act is nobody's business: the act is done again.
TEST(CuatroCajas, AnActThatAKnotOfLocksEndedIsDoneAgain) {
  Credito e({}, servidoresEn(EnMotor::Postgres));
  ServidorPrueba::uno().crudo(
      e.servidores->central,
      q("CREATE SEQUENCE dbo.veces; CREATE FUNCTION dbo.nudo() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF "
        "nextval('dbo.veces') % 3 <> 0 THEN RAISE EXCEPTION 'nudo' USING ERRCODE = '40P01'; END IF; RETURN NEW; END $$;"
        "CREATE TRIGGER nudo BEFORE INSERT ON dbo.venta01 FOR EACH ROW EXECUTE FUNCTION dbo.nudo();"
        "CREATE TRIGGER nudo BEFORE INSERT ON dbo.pagos FOR EACH ROW EXECUTE FUNCTION dbo.nudo();"
        "CREATE TRIGGER nudo BEFORE INSERT ON dbo.consumoventa FOR EACH ROW EXECUTE FUNCTION dbo.nudo()"));
  EXPECT_EQ(q("hecho"), e.facturar(1, "10"));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("hecho"), e.pagar(0, 0, "100"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "3"));
  EXPECT_EQ(q("1|1|1"),
            e.central("SELECT (SELECT COUNT(*) FROM Venta01), (SELECT COUNT(*) FROM Pagos), (SELECT COUNT(*) "
                      "FROM ConsumoVenta) FROM parametro WHERE cCodParam = 'IGV'"));
  EXPECT_EQ(q("2"), e.local("SELECT COUNT(*) FROM OperacionParalela"));
  ServidorPrueba::uno().crudo(e.servidores->central, q("DROP FUNCTION dbo.nudo() CASCADE; DROP SEQUENCE dbo.veces"));
}

}  // namespace
