// The tender dialogs, the search and the withdrawal, without their windows.
#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "platform/sql/comparacion.h"
#include "platform/sql/contiene.h"
#include "platform/text/texto.h"
#include "sale/buscador.h"
#include "sale/caja_full_tipos.h"
#include "sale/pago_efectivo.h"
#include "sale/retiro.h"
#include "sale/voucher.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

TEST(PagoEnEfectivo, SettlesWhatWasTyped) {
  for (const auto& c : leerCasos("sale/pago_en_efectivo")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    PagoEnEfectivo v;
    AbrirPagoEfectivo(p, 100, v);
    EXPECT_EQ(q("33.33"), v.txtTotalDolares);
    const auto deja = [&](const char* columna, QString& campo, CampoEfectivo cual) {
      if (c.falta(columna)) return;
      const QString texto = c[columna];
      if (!texto.isEmpty()) campo = texto;
      if (!texto.isEmpty() && cual == CampoEfectivo::Soles) v.efectivoTecleado = true;
      SalirCampoEfectivo(p, v, cual);
    };
    deja("dolares", v.txtEfectivoDolares, CampoEfectivo::Dolares);
    deja("vueltoUS", v.txtVueltoDolares, CampoEfectivo::VueltoDolares);
    deja("soles", v.txtEfectivo, CampoEfectivo::Soles);
    const QStringList queda{v.txtEfectivo, v.txtEfectivoDolares, v.txtVuelto, v.txtVueltoDolares};
    EXPECT_EQ(c["queda"], queda.join(u'|'));
    const bool negativo = queda.join(u'|').contains(u'-');
    if (negativo) p.persona().espera(q("No pueden existir montos negativos"));
    EXPECT_EQ(!negativo, AceptarPagoEfectivo(p, v).has_value());
  }
}

// Their cells don't take such keys; what comes by another road is refused all the same.
TEST(Voucher, AnAmountThatIsNoneLeavesTheCardAsItWas) {
  PuestoPrueba p;
  p.ejecuta(q("INSERT INTO tipo_tarjeta (cod_tar, descrip) VALUES ('001', 'VISTA')"));
  CajaVoucher v;
  AbrirVoucher(p, {TipoVenta::Voucher, q("50.00"), q("16.67"), {}}, v);
  ASSERT_TRUE(AgregarTarjeta(p, v, 0));
  for (const char* mal : {"-3", "3x"}) EXPECT_FALSE(PonerPago(v, 0, q(mal))) << mal;
  EXPECT_EQ(q("50.00"), v.pagos[0].Pago);
}

TEST(Busqueda, PagesOfArticles) {
  PuestoPrueba p;
  for (int n = 1; n <= 36; ++n) {
    p.articulo(n, q("%1 ARTICULO").arg(n, 2, 10, QChar(u'0')), 1, false, n % 2 ? q("O''%1").arg(n) : q("P%1").arg(n));
  }
  p.ejecuta(q("UPDATE Producto SET nActivo = 0 WHERE cProdCode = 36"));
  p.ejecuta(
      q("INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, cProdEstd, nActivo) VALUES ('02', 1, 'AJENO', 1, 1)"));
  Busqueda b;
  InicioBusqueda(p, b);
  const auto ve = [&b] {
    return b.filas.empty() ? q("-") : q("%1:%2-%3").arg(b.nPagina).arg(b.filas.front().codigo, b.filas.back().codigo);
  };
  EXPECT_EQ(q("1:000001-000017"), ve());
  EXPECT_FALSE(PuedePaginar(b, Paginado::Anterior) || PuedePaginar(b, Paginado::Primera));
  Paginar(p, b, Paginado::Siguiente);
  EXPECT_EQ(q("2:000018-000034"), ve());
  Paginar(p, b, Paginado::Siguiente);
  EXPECT_EQ(q("3:000035-000035"), ve());
  EXPECT_FALSE(PuedePaginar(b, Paginado::Siguiente) || PuedePaginar(b, Paginado::Ultima));
  Paginar(p, b, Paginado::Siguiente);
  EXPECT_EQ(q("3:000035-000035"), ve());
  Paginar(p, b, Paginado::Primera);
  Paginar(p, b, Paginado::Ultima);
  EXPECT_EQ(q("3:000035-000035"), ve());
  for (const auto& c : leerCasos("sale/buscar_articulo")) {
    SCOPED_TRACE(c.donde());
    b.txtBuscar = c["texto"];
    b.nPagina = 1;
    EXPECT_TRUE(LeerPagina(p, b));
    EXPECT_EQ(c["ve"], ve());
  }
}

TEST(Busqueda, CustomersAndDocumentsOnceEach) {
  PuestoPrueba p;
  EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
  for (Conexion* c : {&p.poCnnCliente, &p.poCnnLocal}) ejecutarArchivo(p, *c, "sale/casos/tarjetahabientes.sql");
  p.poDBAdmin.CerrarBD(p.poCnnCliente);
  Busqueda b;
  b.tipo = TipoBusqueda::Cliente;
  InicioBusqueda(p, b);
  EXPECT_TRUE(b.filas.empty());
  for (const char* texto : {"ojas", "0007", "07"}) {  // by name, by card, by both: each card once a site
    b.txtBuscar = q(texto);
    EXPECT_TRUE(LeerPagina(p, b));
    ASSERT_EQ(2u, b.filas.size()) << texto;
    EXPECT_EQ(q("00000007"), b.filas[0].codigo);
    EXPECT_EQ(3, b.filas[0].idLocal + b.filas[1].idLocal);
  }
  ejecutarArchivo(p, "sale/casos/paralelas.sql");
  const QHash<QString, TipoBusqueda> tipos{{q("adelantos"), TipoBusqueda::PagoAdelantado},
                                           {q("adelantos a liquidar"), TipoBusqueda::Liquidacion0},
                                           {q("notas a liquidar"), TipoBusqueda::Liquidacion1}};
  for (const auto& c : leerCasos("sale/buscar_documento")) {
    SCOPED_TRACE(c.donde());
    Busqueda d;
    d.tipo = tipos.value(c["tipo"]);
    d.txtBuscar = c["texto"];
    EXPECT_TRUE(LeerPagina(p, d));
    QStringList codigos;
    for (const auto& f : d.filas) codigos << QString::number(f.documento.codigo);
    EXPECT_EQ(c["codigos"], codigos.join(u' '));
    if (codigos.value(0) == u"5") {
      EXPECT_EQ(q("5|PADE|00000007|PA1-3|ROJAS 07 ANA - BODA|US$ 25.00|24/11/2026|25.00|US$"),
                d.filas[0].celdas.join(u'|'));
    }
  }
  p.ses.psConexionCliente = q("Provider=SQLOLEDB.1;Data Source=sqlite:nohay.db");
  p.persona().espera(q("No se pudo conectar a la Base de Datos Cliente."));
  InicioBusqueda(p, b);
  EXPECT_FALSE(LeerPagina(p, b));  // no second box in one outage
  EXPECT_TRUE(b.filas.empty() && b.sinServidor);
}

// The quick matcher may give up, but never say anything else than the general one.
TEST(Contiene, AgreesWithTheGeneralMatcher) {
  int directos = 0;
  for (const char* patron :
       {"%cafe%", "%%", "%ñ%", "%É%", "%a_b%", "%*%", "%#%", "cafe%", "%µ%", "%ß%", "%×%", "%Ÿ%", "%k%"}) {
    for (const char* texto : {"CAFÉ", "Café pasado", "ÑANDÚ", "", "cafe", "axb a_b", "K5 \xE2\x84\xAA", "Μμµ", "STRAßE",
                              "3×4÷2", "ÿŸ", "éÉ"}) {
      SCOPED_TRACE(std::string(patron) + " | " + texto);
      const auto c = Contiene::de(patron, "%_[*?#");
      const auto rapido = c ? c->en(texto) : std::nullopt;
      if (!rapido) continue;
      ++directos;
      EXPECT_EQ(pareceSql(q(texto), q(patron), Dialecto::Jet, QChar()), *rapido);
    }
  }
  EXPECT_GT(directos, 50);
}

TEST(Retiro, TheReceiptIsThePaperWeExpect) {
  const QDateTime momento(QDate(2026, 11, 25), QTime(9, 5));
  // clang-format off
  const struct {
    const char* papel;
    QStringList cabecera;
    double monto;
    const char* usuario;
    qint64 codigo;
  } kCasos[] = {
      {"con_cabecera.txt", {q("TARVO S.A.C."), q("   "), q("JR. LOS ÑANDÚES 145 - SURQUILLO - LIMA")}, 1234567.5,
       "CAJERO PRINCIPAL", 1234567},
      {"sin_cabecera.txt", {}, 0, "ANA", 12}};
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.papel);
    const DocumentoImpreso recibo = ReciboRetiro({}, c.cabecera, c.monto, q(c.usuario), c.codigo, momento);
    EXPECT_TRUE(recibo.partes[2].puntos == 9 && recibo.partes[2].negrita);
    const QString texto = recibo.textos().join(u'\n');
    EXPECT_EQ(leerGolden(q("retiros/") + q(c.papel)).replace("\r\n", "\n"), AUnByte(texto).replace("\r\n",
        "\n") + '\n');
  }
  // clang-format on
}

TEST(Retiro, AsksByWhatWasSold) {
  PuestoPrueba p;
  EXPECT_FALSE(*VerificaSaldo(p, 0));
  p.ejecuta(q("INSERT INTO Operacion (cOperCode, cOperTipo, nProdCant, nProdPrecUnit) VALUES (1, 1, 3, 0.1)"));
  p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMontoSoles) VALUES (1, 22, 40)"));
  p.ejecuta(
      q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMontoSoles, cOperCodeAnul) VALUES (2, 22, 90, 3)"));
  EXPECT_TRUE(*VerificaSaldo(p, 40.3));
  EXPECT_FALSE(*VerificaSaldo(p, 40.31));
  p.persona().espera(q("Se registrará un retiro de 40.30 ¿Desea continuar?"), q("No"));
  EXPECT_FALSE(Retirar(p, q("40.30")));
  p.persona().espera(q("No cuenta con saldo suficiente para realizar esta operación ¿Desea continuar?"), q("Sí"));
  p.persona().espera(q("Se ha registrado un retiro por 1,040.30."));
  EXPECT_TRUE(Retirar(p, MontoRetiro(q("1040.3"))));
  EXPECT_EQ(q("2|CAJERO|1|1040.3|5|00001|01|1|0"),
            p.filas(q("SELECT cOperCode, cUserDesc, nProdCant, nProdPrecUnit, cOperTipo, cCajaCodi, cTurnoCodi, "
                      "cOperFlagAbierto, nMontoSoles FROM Operacion WHERE cOperTipo = 5")));
  EXPECT_EQ(1u, p.papeles().impresos.size());
}

TEST(Retiro, EachStatementHasItsTurn) {
  constexpr int kSentencias = 6;  // two sums, the code here and in the history, the header, the row
  for (int n = 1; n <= kSentencias + 1; ++n) {
    SCOPED_TRACE(n);
    PlanFallas plan;
    PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    const auto hay = [&p] {
      return p.filas(q("SELECT COUNT(*) FROM Operacion")) + u' ' + QString::number(p.papeles().impresos.size());
    };
    const bool falla = n <= kSentencias;
    if (n > 2) p.persona().espera(q("¿Desea continuar?"), q("Sí"));
    p.persona().espera(falla ? q("falla forzada") : q("Se ha registrado"));
    plan.armar(n);
    EXPECT_EQ(!falla, Retirar(p, q("5.00")));
    EXPECT_EQ(qMin(n, kSentencias), plan.van());
    plan.armar(0);
    EXPECT_EQ(falla ? q("0 0") : q("1 1"), hay());
    if (!falla) continue;
    p.papeles().fallo = q("sin papel");  // the money is out: the row stands without its receipt
    p.persona().espera(q("¿Desea continuar?"), q("Sí"));
    p.persona().espera(q("sin papel"));
    p.persona().espera(q("Se ha registrado"));
    EXPECT_TRUE(Retirar(p, q("5.00")));
    EXPECT_EQ(q("1 0"), hay());
  }
}

}  // namespace
