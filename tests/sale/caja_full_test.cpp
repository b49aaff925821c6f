#include "sale/caja_full.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
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
    ejecutarArchivo(p, p.poCnnCliente, "sale/casos/clientes.sql");
    p.poDBAdmin.CerrarBD(p.poCnnCliente);
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
  const QStringList vacios{v.txtRUC,   v.txtTarjeta, v.txtNombres, v.txtLocal, v.txtsupervisor,
                           v.txtGlosa, v.txtTX,      v.txtTotalNC, v.txtSoles, v.txtDolares};
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

TEST_F(CajaFull, ASiteTypedOverAFoundCardIsLookedUp) {
  Inicio(p, v);
  for (const auto& c : leerCasos("sale/locales")) {
    SCOPED_TRACE(c.donde());
    CancelarVenta(p, v);
    v.txtLocal = c["local"];
    ASSERT_EQ(ResultadoTarjeta::Hallada, busca(qPrintable(c["tarjeta"])));
    v.txtTarjeta = c["otra"];
    v.txtLocal = c["otroLocal"];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    EXPECT_EQ(c["campo"], CampoPorMirar(p, v, pantallas));
    EXPECT_EQ(c["queda"], v.txtTarjeta);
    EXPECT_EQ(c["nombre"], v.txtNombres);
    EXPECT_EQ(c["suLocal"], v.txtLocal);
    EXPECT_EQ(v.txtLocal.toInt(), v.nIdLocal);
  }
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
  for (const auto& c : leerCasos("sale/validacion")) {
    SCOPED_TRACE(c.donde());
    Inicio(p, v);
    v.bLiquidando = false;
    ASSERT_TRUE(SalirCelda(p, v, 0, kCod, q("1")));
    v.bLiquidando = c.si("liquidando");
    if (c.si("vacia")) AgregarFila(v);
    if (!c.falta("pestana")) v.pestana = c.entero("pestana");
    for (const auto& [columna, campo] : {std::pair("vueltoS", &V::txtVueltoSoles),
                                         {"vueltoUS", &V::txtVueltoDolares},
                                         {"soles", &V::txtEfectivoSoles},
                                         {"dolares", &V::txtEfectivoDolares},
                                         {"ruc", &V::txtRUC}}) {
      if (!c.falta(columna)) v.*campo = c[columna];
    }
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    const auto foco = ValidaVenta(p, v, pantallas);
    EXPECT_EQ(c["caja"].isEmpty(), !foco);
    EXPECT_EQ(c["foco"], foco ? foco->control : QString());
    EXPECT_EQ(c.entero("fila"), foco ? foco->fila : -1);
  }
}

TEST_F(CajaFull, AnEmptyGridGetsItsDefaultsAndAPriceOfZeroMaySell) {
  Inicio(p, v);
  p.persona().espera(q("Debe registrar un artìculo."));
  ASSERT_TRUE(ValidaVenta(p, v, pantallas));
  EXPECT_EQ(q("1|1.00|0.00|0.00|0"), (QStringList{v.lineas[0][kItem], v.lineas[0][kCant], v.lineas[0][kPrecio],
                                                  v.lineas[0][kSubTotal], v.lineas[0][kPorc]}
                                          .join(u'|')));
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
    const bool abre = t.tipo == TipoVenta::Anular ||
                      t.tipo == TipoVenta::Recaudacion;  // opens a screen and goes back to the first entry
    CambiarTipo(p, v, pantallas, t.tipo);
    EXPECT_EQ(abre ? QStringList{t.tipo == TipoVenta::Anular ? t.entrada : q("retiro")} : QStringList{},
              pantallas.faltan + pantallas.abiertas);
    EXPECT_EQ(abre ? TipoVenta::Efectivo : t.tipo, v.nTipoVenta);
    EXPECT_EQ(t.llevaLineas || abre ? q("10.00") : q("0.00"), v.txtSoles);
    EXPECT_EQ(q("0.00"), v.txtEfectivoSoles);
    EXPECT_FALSE(v.efectivoTecleado);
    EXPECT_EQ(QString(), v.txtTX + v.txtGlosa + v.txtPADE);
    EXPECT_EQ(t.rucEditable || abre, !v.txtRUC.isEmpty());
    v.txtRUC = q("20100070970");
  }
  EXPECT_EQ(q("000001"), v.lineas[0][kCod]) << "the lines stay";
  PonerTipo(v, TipoVenta::LIQPAD);
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

}  // namespace
