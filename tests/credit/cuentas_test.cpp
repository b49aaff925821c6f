// What is read of the accounts: pickers, the tree of all customers, the statement of one, and the query of the store's
// parallel documents.
#include <gtest/gtest.h>

#include "apoyo/golden.h"
#include "credit/cuenta_cliente.h"
#include "credit/cuentas_clientes.h"
#include "credit/documentos_pendientes.h"
#include "credit/operacion_paralela_consulta.h"
#include "credito_prueba.h"

namespace {

struct Cuentas {
  Credito e;

  Cuentas() {
    leer([this](Conexion& central) {
      ejecutarArchivo(e.p, central, "credit/casos/cuentas.sql");
      return ErrorCuentas();
    });
  }
  template <class F>
  void leer(F f) {
    Conexion central;
    ASSERT_TRUE(e.p.poDBAdmin.AbrirBD(central, e.p.ses.psConexionCentral));
    const auto error = f(central);
    EXPECT_FALSE(error) << error->descripcion.toStdString();
  }
};

QString numeros(const DocumentosPendientes& d, int columna) {
  QStringList l;
  for (const auto& f : d.rs) l << LimpiarNulo(f[columna]);
  return l.join(u' ');
}

TEST(Pendientes, OfPaymentAreThoseWithSomethingLeftToDo) {
  Cuentas c;
  const auto lista = [&c] { return numeros(LeerPendientes(c.e.p, PendientesDe::Pago, DocCredito::FADE), 2); };
  EXPECT_EQ(q("000101 000103 000104 000105"), lista()) << "000104 is paid, but its payment may be voided";
  c.e.enCentral("UPDATE Pagos SET FechaAnulacion = '20261124' WHERE NroDocPago = '000054'");
  c.e.enCentral("UPDATE Venta01 SET TotVta = 0 WHERE cCodVta = 4");
  EXPECT_EQ(q("000101 000103 000105"), lista()) << "nothing is left of 000104";
  c.e.enCentral("INSERT INTO Detraccion (SerieDoc, NroDoc, MontoDetracc, Estado) VALUES ('001', '000104', 6, 'P')");
  EXPECT_EQ(q("000101 000103 000104 000105"), lista()) << "but its detraction";
  c.e.enCentral("UPDATE Venta01 SET bLiquidado = 1 WHERE cCodVta = 3");
  c.e.enCentral("UPDATE Venta01 SET FechaAnulacion = '20261124' WHERE cCodVta = 5");
  EXPECT_EQ(q("000101 000104"), lista());
  EXPECT_EQ(q("000101 000104"), numeros(LeerPendientes(c.e.p, PendientesDe::Consumo, DocCredito::FADE), 4));
  EXPECT_EQ(q("000101 000104"), numeros(LeerPendientes(c.e.p, PendientesDe::Liquidacion, DocCredito::FADE), 3));
}

TEST(Pendientes, GiveTheirRowToTheBillingScreen) {
  Cuentas c;
  const DocumentosPendientes pago = LeerPendientes(c.e.p, PendientesDe::Pago, DocCredito::BADE);
  ASSERT_EQ(1, pago.rs.RecordCount());
  EXPECT_EQ(q("001|000102|21/11/2026|SUR|MUÑOZ ROSA|DOLARES|375.00|100.00|227.00|60.00"),
            CeldasPendientes(pago, 0).join(u'|'));
  const DocumentoPorPagar p = PorPagar(pago, 0);
  EXPECT_EQ(q("02 001 000102 00000001 DOLARES"),
            p.TipoDoc + u' ' + p.cSerieDoc + u' ' + p.NroDoc + u' ' + p.codigoCliente + u' ' + p.moneda);
  EXPECT_EQ(60, p.saldoUSD);
  const DocumentosPendientes nota = LeerPendientes(c.e.p, PendientesDe::Consumo, DocCredito::BADE);
  const DocumentoPorConsumir n = PorConsumir(nota, 0);
  EXPECT_EQ(q("2 000102 SUR 30 DIAS 21/11/2026"), QString::number(n.cCodVta) + u' ' + n.NroDoc + u' ' + n.local + u' ' +
                                                      n.tipoCredito + u' ' + n.fechaEmision);
  EXPECT_EQ(2, PorLiquidar(LeerPendientes(c.e.p, PendientesDe::Liquidacion, DocCredito::BADE), 0));
  DocumentosPendientes fade = LeerPendientes(c.e.p, PendientesDe::Pago, DocCredito::FADE);
  EXPECT_EQ((std::vector<int>{0}), FiltrarPendientes(fade, q("muñoz")));
  EXPECT_EQ((std::vector<int>{1}), FiltrarPendientes(fade, q("varez j")));
  EXPECT_EQ(4U, FiltrarPendientes(fade, q(" ")).size());
  EXPECT_EQ(0U, FiltrarPendientes(fade, q("nadie")).size());
}

TEST(Cuentas, ThreeLevelsThatLeaveOutWhatWasVoided) {
  Cuentas c;
  std::vector<CuentaCliente> cuentas;
  c.leer([&](Conexion& central) { return LeerCuentas(central, cuentas); });
  c.leer([&](Conexion& central) { return LeerTotales(central, cuentas, 0, 2); });
  c.leer([&](Conexion& central) { return LeerTotales(central, cuentas, 2, 200); });
  QStringList filas;
  for (const CuentaCliente& x : cuentas) {
    filas << x.DscCliente + u' ' + x.local() + u' ' + TextoDe(x.ventas) + u' ' + TextoDe(x.pagos);
  }
  EXPECT_EQ(q("ÁLVAREZ JUAN Norte 100 0,MUÑOZ ROSA Sur 675 248,O'HIGGINS ANA Sur 120 50"), filas.join(u','));
  std::vector<DocumentoCuenta> documentos;
  c.leer([&](Conexion& central) { return LeerDocumentosCuenta(central, cuentas[1], documentos); });
  ASSERT_EQ(2U, documentos.size());
  // 40.00 at 3.70; 100.00 at 3.75.
  EXPECT_EQ(148, documentos[1].pagado);
  EXPECT_EQ(26.67, documentos[0].pagadoUSD);
  EXPECT_EQ(q("Pendiente"), documentos[1].estado());
  std::vector<PagoCuenta> pagos;
  c.leer([&](Conexion& central) { return LeerPagosCuenta(central, documentos[0], pagos); });
  ASSERT_EQ(1U, pagos.size());
  EXPECT_EQ(q("PA1-000051 A EFECTIVO"), pagos[0].recibo + u' ' + pagos[0].formaPago);
  c.leer([&](Conexion& central) { return LeerDocumentosCuenta(central, cuentas[2], documentos); });
  EXPECT_EQ(q("Cancelado Pendiente"), documentos[0].estado() + u' ' + documentos[1].estado());
}

TEST(Cuenta, OfOneCustomerOnPaper) {
  Cuentas c;
  ConsultaCtaCteCliente v;
  v.cliente.txtTarjeta = q("40000");
  for (const char* local : {"", "3", "x"}) {
    v.cliente.txtLocal = q(local);
    ConsultarCuenta(c.e.p, v);
    EXPECT_EQ(0, v.documentos.RecordCount()) << local;
  }
  v.cliente.txtLocal = q("1");
  v.cliente.txtNombres = q("O'HIGGINS ANA");
  ConsultarCuenta(c.e.p, v);
  EXPECT_EQ(2, v.documentos.RecordCount());
  v.cliente.txtTarjeta = q("1");
  v.cliente.txtNombres = q("MUÑOZ ROSA");
  ConsultarCuenta(c.e.p, v);
  EXPECT_EQ(2, PagosDe(c.e.p, v, 0).RecordCount()) << "voided ones show on the screen";
  EXPECT_EQ(q("B NACION"), CeldaCuenta(PagosDe(c.e.p, v, 1)[4]));
  EXPECT_EQ(q("40.00"), CeldaCuenta(PagosDe(c.e.p, v, 1)[5]));
  EXPECT_EQ(q("           ESTADO DE CUENTA\n           24/11/2026 10:30\n"
              "---------------------------------------\nCliente: MUÑOZ ROSA\nTarjeta: 1   Local: 1\n"
              "---------------------------------------\nFADE 001-000101 20/11/2026   S/. 300.00\n"
              "  PA1-000051 23/11/2026      S/. 100.00\n  Saldo                      S/. 200.00\n"
              "---------------------------------------\nBADE 001-000102 21/11/2026   US$ 100.00\n"
              "  PA1-000052 23/11/2026       US$ 40.00\n  Saldo                       US$ 60.00\n"
              "---------------------------------------\nDEUDA EN SOLES               S/. 200.00\n"
              "DEUDA EN DOLARES              US$ 60.00\n"),
            PapelCuenta(c.e.p, v).remove(u'\r').section(q("\n"), -17));
}

TEST(Consulta, ByKindStateAndDays) {
  PuestoPrueba p;
  p.articulo(101, q("CAFE"), 10);
  ejecutarArchivo(p, "credit/casos/paralelas.sql");
  // clang-format off
  const struct { int tipo, estado; const char *desde, *hasta, *codigos; } casos[] = {
      {0, 0, "23/11/2026", "24/11/2026", "1 3 2"}, {0, 0, "25/11/2026", "25/11/2026", "4"},
      {0, 0, "25/11/2026", "24/11/2026", ""},
      {3, 0, "23/11/2026", "24/11/2026", "3 2"}, {0, 3, "23/11/2026", "24/11/2026", "3"},
      {1, 1, "01/01/2026", "31/12/2026", "1"},
      {4, 0, "01/01/2026", "31/12/2026", ""}};
  // clang-format on
  for (const auto& c : casos) {
    std::vector<FilaOperacionParalela> filas;
    QString campoMal;
    ASSERT_TRUE(BuscarOperaciones(p, {c.tipo, c.estado, q(c.desde), q(c.hasta)}, filas, campoMal));
    QStringList codigos;
    for (const auto& f : filas) codigos << QString::number(f.cOperCode);
    EXPECT_EQ(q(c.codigos), codigos.join(u' ')) << c.tipo << ' ' << c.estado << ' ' << c.desde;
  }
  std::vector<FilaOperacionParalela> filas;
  QString campoMal;
  ASSERT_TRUE(BuscarOperaciones(p, {1, 1, q("23/11/2026"), q("23/11/2026")}, filas, campoMal));
  EXPECT_EQ(q("1|O/C|23/11/2026 00:00:00||12-7||0.00|0.00|0.00|VIGT||0|||0|0"), filas[0].celdas.join(u'|'));
  const auto lineas = LineasOperacion(p, 1);
  ASSERT_EQ(2U, lineas.size());
  EXPECT_EQ(q("01|101||CAFE|CAFE|2.00|10.00|0.00|0.00|NO|0|NO||Activo"), lineas[0].join(u'|'));
  EXPECT_EQ(q("01|999||||1.00|5.00|0.00|0.00|VNTA||NO||Inactivo"), lineas[1].join(u'|')) << "an article that is gone";
  p.persona().espera(q("La fecha debe tener el formato dd/mm/yyyy"));
  EXPECT_FALSE(BuscarOperaciones(p, {0, 0, q("1/11/2026"), q("31/11/2026")}, filas, campoMal));
  EXPECT_EQ(q("DTHasta"), campoMal);
}

}  // namespace
