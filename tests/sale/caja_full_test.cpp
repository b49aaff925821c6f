#include "sale/caja_full.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "sale/autorizar.h"
#include "sale/caja_lineas.h"
#include "sale/caja_totales.h"
#include "sale/pantallas_guion.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

const QString kSinCliente = q("No se pudo conectar a la Base de Datos Cliente.\n"
                              "Las Operaciones se guardaran temporalmente hasta que se restablesca la conexión.");

// In the order of ResultadoTarjeta.
const QStringList kResultados{q("sin tarjeta"), q("sin servidor"), q("no existe"), q("hallada"), q("varios locales")};

struct CajaFull : testing::Test {
  PuestoPrueba p;
  PantallasGuion pantallas;
  CajaRegistradoraFull v;

  void SetUp() override {
    p.articulo(1, q("CAFE"), 10, true);
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
    for (const char* sql : {
             "INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1000, 10, 1)",
             "INSERT INTO local (idlocal, dsclocal, Activo) VALUES (1, 'CENTRO', 1)",
             "INSERT INTO local (idlocal, dsclocal, Activo) VALUES (2, 'NORTE', 0)",
             "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo) VALUES (5, 1, 'PÉREZ ', 'ANA', 1)",
             "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo) VALUES (5, 2, 'DÍAZ', 'LUZ', 1)",
         }) {
      p.ejecuta(p.poCnnCliente, q(sql));
    }
    // Number, sites in which it is active and not expired.
    tarjeta("00000005", 1, 1, "2026-11-24 00:00:00");
    tarjeta("00000006", 1, 1, "2026-11-23 23:59:00");
    tarjeta("00000007", 1, 0, "2027-11-24 00:00:00");
    tarjeta("00000008", 1, 1, "2027-11-24 00:00:00");
    tarjeta("00000008", 2, 1, "2027-11-24 00:00:00");
    tarjeta("00000009", 2, 1, "2027-11-24 00:00:00");
    p.poDBAdmin.CerrarBD(p.poCnnCliente);
  }
  void tarjeta(const char* numero, int local, int activa, const char* caduca) {
    p.ejecuta(p.poCnnCliente,
              q("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES "
                "(5, %1, '%2', %3, CONVERT(DATETIME,'%4',120))").arg(local).arg(q(numero)).arg(activa).arg(q(caduca)));
  }
  void caeElCliente() { p.ses.psConexionCliente = q("Provider=SQLOLEDB.1;Data Source=sqlite:nohay.db"); }
  ResultadoTarjeta busca(const char* numero) {
    v.txtTarjeta = q(numero);
    return BuscaTarjeta(p, v, pantallas);
  }
};

TEST_F(CajaFull, InicioGivesACleanSale) {
  Inicio(p, v);
  ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")));
  v.txtRUC = q("20100070970");
  v.txtsupervisor = v.txtGlosa = v.txtTX = v.txtTotalNC = q("x");
  v.bAcceso = v.localVisible = v.efectivoTecleado = p.ses.pbVoucher = true;
  v.lvwTX[0].resize(2);
  p.ses.poVoucher.push_back({q("1"), q("VISA"), 5});
  p.ses.poVoucherTotal = 5;
  ASSERT_EQ(ResultadoTarjeta::Hallada, busca("5"));

  Inicio(p, v);
  const QStringList vacios{v.txtRUC, v.txtTarjeta, v.txtNombres, v.txtLocal, v.txtsupervisor,
                           v.txtGlosa, v.txtTX, v.txtTotalNC, v.txtSoles, v.txtDolares};
  EXPECT_EQ(QString(), vacios.join(QString()));
  EXPECT_EQ(q("0.00"), v.txtEfectivoSoles);
  EXPECT_EQ(0, v.nIdLocal);
  EXPECT_FALSE(v.bAcceso || v.localVisible || v.efectivoTecleado || p.ses.pbVoucher);
  EXPECT_TRUE(VentaVacia(v));
  EXPECT_TRUE(v.lvwTX[0].empty() && p.ses.poVoucher.empty());
  EXPECT_EQ(0, p.ses.poVoucherTotal);
  EXPECT_EQ(q("CAJERO 00001 01 3.00 24/11/2026 0"),
            (QStringList{v.txtCajero, v.txtCaja, v.txtTurno, v.txtTC, v.lblFecha, v.txtPADEDolares}.join(u' ')));
  EXPECT_EQ(9u, v.tipos.size());
  EXPECT_EQ(2u, v.locales.size());
}

TEST_F(CajaFull, InicioKeepsLinesThatWereJustLoaded) {
  Inicio(p, v);
  ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")));
  v.txtRUC = q("20100070970");
  v.txtNombres = q("ANA");
  v.txtsupervisor = q("JEFE");
  v.bConservarLineas = true;
  Inicio(p, v);
  EXPECT_EQ(q("000001"), v.lineas[0][kCod]);
  EXPECT_EQ(q("10.00"), v.txtSoles);
  EXPECT_EQ(q("20100070970ANA"), v.txtRUC + v.txtNombres);
  EXPECT_EQ(QString(), v.txtsupervisor);
  CancelarVenta(p, v);
  EXPECT_TRUE(VentaVacia(v));
}

TEST_F(CajaFull, ThePointsRuleAndItsCopy) {
  p.ejecuta(q("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1, 2, 3)"));
  Inicio(p, v);
  EXPECT_EQ(10, p.ses.pnPuntImpo);
  EXPECT_EQ(q("1000|10|1"), p.filas(q("SELECT nImpoMaxi, nPuntImpo, nPuntCant FROM Regla_Punto")));
  EXPECT_FALSE(p.poCnnCliente.abierta() || p.ses.pbClienteConectado);

  caeElCliente();
  p.ses.pnPuntImpo = 0;
  p.persona().espera(kSinCliente);
  Inicio(p, v);
  Inicio(p, v);  // no second box in the same outage
  EXPECT_EQ(10, p.ses.pnPuntImpo);
  EXPECT_TRUE(p.ses.pbClienteCaido);
  p.ejecuta(q("DELETE FROM Regla_Punto"));
  p.persona().espera(q("Reglas en relación a los puntos no han sido establecidos"));
  Inicio(p, v);
}

TEST_F(CajaFull, Cards) {
  Inicio(p, v);
  for (const auto& c : leerCasos("sale/tarjetas")) {
    SCOPED_TRACE(c.donde());
    CancelarVenta(p, v);
    v.txtLocal = c["local"];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    EXPECT_EQ(kResultados.indexOf(c["sale"]), static_cast<int>(busca(qPrintable(c["tarjeta"]))));
    EXPECT_EQ(c["queda"], v.txtTarjeta);
    EXPECT_EQ(c["nombre"], v.txtNombres);
    EXPECT_EQ(c["suLocal"], v.txtLocal);
    EXPECT_EQ(v.txtLocal.toInt(), v.nIdLocal);
    EXPECT_EQ(c["sale"] == u"varios locales", v.localVisible);
  }
  EXPECT_EQ(QStringList{q("clientes 00000008")}, pantallas.abiertas);
}

TEST_F(CajaFull, AnotherCardDropsTheFirstOnesSite) {
  Inicio(p, v);
  ASSERT_EQ(ResultadoTarjeta::Hallada, busca("5"));
  EXPECT_EQ(ResultadoTarjeta::Hallada, busca("9"));
  EXPECT_EQ(q("DÍAZ LUZ"), v.txtNombres);
  v.txtTarjeta = q("77");
  AjustarCliente(v);
  EXPECT_EQ(QString(), v.txtNombres + v.txtLocal);
  v.txtLocal = q("2");
  AjustarCliente(v);
  EXPECT_EQ(2, v.nIdLocal);
}

TEST_F(CajaFull, WithoutTheClientDatabaseTheCardStays) {
  Inicio(p, v);
  caeElCliente();
  v.txtNombres = q("ANA");
  p.persona().espera(kSinCliente);
  EXPECT_EQ(ResultadoTarjeta::SinServidor, busca("5"));
  EXPECT_EQ(ResultadoTarjeta::SinServidor, busca("5"));
  EXPECT_EQ(q("00000005ANA"), v.txtTarjeta + v.txtNombres);
  p.ses.psConexionCliente.replace(q("nohay"), q("cliente"));
  EXPECT_EQ(ResultadoTarjeta::Hallada, busca("5"));
  EXPECT_FALSE(p.ses.pbClienteCaido || p.poCnnCliente.abierta());
}

TEST_F(CajaFull, EveryCheckBeforeTheCommit) {
  using V = CajaRegistradoraFull;
  const struct { const char* porque; void (*falta)(V&); const char *caja, *foco; int fila; } kCasos[] = {
      {"fit to sell",     [](V&) {}, "", "", -1},
      {"dollars back",    [](V& v) { v.txtVueltoDolares = q("-1"); }, "No se puede registrar la operacion si el vuelto es negativo", "txtVueltoDolares", -1},
      {"soles back",      [](V& v) { v.txtVueltoSoles = q("-1"); }, "No se puede registrar la operacion si el vuelto es negativo", "txtEfectivoSoles", -1},
      {"soles",           [](V& v) { v.txtEfectivoSoles = q("-1"); }, "No se puede registrar la operacion si el efectivo es negativo", "txtEfectivoSoles", -1},
      {"dollars",         [](V& v) { v.txtEfectivoDolares = q("-1"); }, "No se puede registrar la operacion si el efectivo es negativo", "txtEfectivoDolares", -1},
      {"in the customer's favour", [](V& v) { v.bLiquidando = true; v.txtVueltoSoles = v.txtEfectivoDolares = q("-1"); }, "", "", -1},
      {"a row to fill",   [](V& v) { AgregarFila(v); }, "Debe registrar un artìculo.", "TDBGrid1", 1},
      {"the same behind another tab", [](V& v) { AgregarFila(v); v.pestana = 1; }, "Debe registrar un artìculo.", "TDBGrid1", 1},
      {"no note",         [](V& v) { v.pestana = 2; }, "Debe seleccionar Nota de Consumo a Liquidar", "txtTXL(1)", -1},
      {"ten digits",      [](V& v) { v.txtRUC = q("2010007097"); }, "El RUC debe poseer 11 dígitos", "txtRUC", -1},
      {"eleven letters",  [](V& v) { v.txtRUC = q("2010007097X"); }, "El RUC debe poseer 11 dígitos", "txtRUC", -1},
      {"eleven digits",   [](V& v) { v.txtRUC = q(" 20100070970 "); }, "", "", -1},
      {"change comes before the article", [](V& v) { AgregarFila(v); v.txtVueltoSoles = q("-1"); }, "No se puede registrar la operacion si el vuelto es negativo", "txtEfectivoSoles", -1},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Inicio(p, v);
    v.bLiquidando = false;
    ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")));
    c.falta(v);
    if (*c.caja) p.persona().espera(q(c.caja));
    const auto foco = ValidaVenta(p, v, pantallas);
    EXPECT_EQ(!*c.caja, !foco);
    EXPECT_EQ(q(c.foco), foco ? foco->control : QString());
    EXPECT_EQ(c.fila, foco ? foco->fila : -1);
  }
}

TEST_F(CajaFull, AnEmptyGridGetsItsDefaultsAndAPriceOfZeroMaySell) {
  Inicio(p, v);
  p.persona().espera(q("Debe registrar un artìculo."));
  ASSERT_TRUE(ValidaVenta(p, v, pantallas));
  EXPECT_EQ(q("1|1.00|0.00|0.00|0"), (QStringList{v.lineas[0][kItem], v.lineas[0][kCant], v.lineas[0][kPrecio],
                                                  v.lineas[0][kSubTotal], v.lineas[0][kPorc]}.join(u'|')));
  ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")) && SalirCelda(p, v, 0, kPrecio, q("0")));
  EXPECT_FALSE(ValidaVenta(p, v, pantallas));
}

TEST_F(CajaFull, AChangeOfKind) {
  Inicio(p, v);
  ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")));
  v.txtRUC = q("20100070970");
  v.txtEfectivoSoles = q("50.00");
  v.efectivoTecleado = true;
  v.txtTX = v.txtGlosa = v.txtPADE = q("x");
  for (const auto& t : tiposDeVenta()) {
    SCOPED_TRACE(qPrintable(t.entrada));
    pantallas.faltan.clear();
    pantallas.abiertas.clear();
    const bool abre = t.tipo == kAnular || t.tipo == kRecaudacion;  // opens a screen and goes back to the first entry
    CambiarTipo(p, v, pantallas, t.tipo);
    EXPECT_EQ(abre ? QStringList{t.tipo == kAnular ? t.entrada : q("retiro")} : QStringList{}, pantallas.faltan + pantallas.abiertas);
    EXPECT_EQ(abre ? kEfectivo : t.tipo, v.nTipoVenta);
    EXPECT_EQ(t.llevaLineas || abre ? q("10.00") : q("0.00"), v.txtSoles);
    EXPECT_EQ(q("0.00"), v.txtEfectivoSoles);
    EXPECT_FALSE(v.efectivoTecleado);
    EXPECT_EQ(QString(), v.txtTX + v.txtGlosa + v.txtPADE);
    EXPECT_EQ(t.rucEditable || abre, !v.txtRUC.isEmpty());
    v.txtRUC = q("20100070970");
  }
  EXPECT_EQ(q("000001"), v.lineas[0][kCod]) << "the lines stay";
  PonerTipo(v, kLIQPAD);
  EXPECT_EQ(2, v.pestana);
}

TEST_F(CajaFull, TheDateHoldsTheDeskUp) {
  p.ejecuta(q("INSERT INTO Operacion (cOperCode, dOperFech) VALUES (1, '25/11/2026 08:00')"));
  p.persona().espera(q("La fecha del sistema no puede ser posterior a al ultima operacion realizada...Verifique!!\n"
                       "El sistema se cerrara!!!"));
  try {
    PulsarTecla(p, v, pantallas, 2);
    ADD_FAILURE() << "the process goes on";
  } catch (const ProcesoTerminado& e) {
    EXPECT_EQ(1, e.estado);
  }
  EXPECT_EQ(q("Mensaje"), p.persona().vistas.back().titulo);
}

TEST_F(CajaFull, WhoMayAuthorise) {
  p.ejecuta(q("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) VALUES ('JEFE', 'Abc', 1, 1)"));
  p.ejecuta(q("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) VALUES ('EXJEFE', 'Abc', 1, 0)"));
  p.ejecuta(q("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) VALUES ('ANA', 'Abc', 2, 1)"));
  for (const auto& c : leerCasos("sale/supervisores")) {
    SCOPED_TRACE(c.donde());
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    const auto rechazo = RechazoAutorizacion(p, c["usuario"], c["clave"]);
    EXPECT_EQ(c["caja"].isEmpty(), !rechazo);
    EXPECT_EQ(c["foco"], rechazo.value_or(QString()));
  }
}

TEST(Autorizar, WhatTheDialogLeavesBehind) {
  for (const auto& c : leerCasos("sale/autorizacion")) {
    SCOPED_TRACE(c.donde());
    bool acceso = c.si("antes");
    QString supervisor = c["tenia"];
    CerrarAutorizacion(c.falta("nombre") ? std::nullopt : std::optional(c["nombre"]), acceso, supervisor);
    EXPECT_EQ(c.si("acceso"), acceso);
    EXPECT_EQ(c["queda"], supervisor);
  }
}

}  // namespace
