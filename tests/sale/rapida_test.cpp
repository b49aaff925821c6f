// The quick register: keys, amounts, what a sale stores and prints, what a fault leaves, and the way to the full one.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "apoyo/plan_fallas.h"
#include "sale/caja_rapida.h"
#include "sale/caja_rapida_commit.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const QString kVentas =
    q("SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit, nServicio, nMontoSoles, nMontoDolares, "
      "nVueltoDolares, cOperTipo FROM Operacion ORDER BY cOperID");

LineaRapida lineaRapida(int codigo, const QString& descripcion, double precio, int cantidad, bool servicio = false) {
  LineaRapida l;
  l.cAlmaCode = q("01");
  l.cProdCode = codigo;
  l.descripcion = descripcion;
  l.corta = descripcion;
  l.precio = precio;
  l.cantidad = cantidad;
  l.conServicio = servicio;
  return l;
}

struct Rapida {
  PuestoDeVenta p;
  CajaRegistradora v;
  PantallasGuion pantallas;

  explicit Rapida(const Envolver& envolver = {}) : p(envolver) { ejecutarArchivo(p, "sale/casos/teclado.sql"); }
  TrasTeclaRapida pulsar(int indice) { return PulsarBotonRapida(p, v, pantallas, indice); }
  // Three of the first and one of the second.
  void teclear() {
    v.lineas = {lineaRapida(101, q("Cafe"), 10, 3), lineaRapida(102, q("Torta"), 12.5, 1, true)};
    v.bVentaIniciada = true;
    v.txtCantidad = q("1");
  }
};

TEST(Rapida, OpensWithItsKeys) {
  Rapida r;
  AbrirRapida(r.p, r.v);
  EXPECT_EQ(q("BEBIDAS"), r.v.teclas[1].rotulo);
  EXPECT_EQ(q("Torta de chocolate entera..."), r.v.teclas[2].rotulo);
  EXPECT_EQ(0, r.v.teclas[3].nCodigoTecla);
  EXPECT_EQ(103, r.v.teclas[24].nCodigoTecla);
  r.p.persona().espera(q("Este botón no tiene un producto asignado"));
  r.p.persona().espera(q("El Producto no se encuentra activo."));
  r.p.persona().espera(q("Ingrese el código del producto"));
  for (const int n : {3, 24, int{kBotonCodProd}}) r.pulsar(n);
  r.p.ejecuta(q("DELETE FROM Producto WHERE cProdCode = 102"));
  r.p.persona().espera(q("El producto asignado no existe. Actualice la configuración de este botón."));
  r.pulsar(2);
  EXPECT_FALSE(r.v.bVentaIniciada);
}

TEST(Rapida, KeysAndQuantitiesMakeTheTotal) {
  Rapida r;
  AbrirRapida(r.p, r.v);
  for (const auto& paso : leerCasos("sale/teclas_rapidas")) {
    SCOPED_TRACE(paso.donde());
    if (!paso.falta("cantidad")) r.v.txtCantidad = paso["cantidad"];
    if (paso.entero("tecla")) r.pulsar(paso.entero("tecla"));
    else EXPECT_TRUE(SalirCantidad(r.p, r.v));
    EXPECT_EQ(paso["queda"], r.v.txtCantidad);
    EXPECT_EQ(q("Sub:") + Rellenar(paso["sub"], 14), r.v.lblSubtotal);
    EXPECT_EQ(q("TOT:") + Rellenar(paso["total"], 14), r.v.lblTotal);
  }
  EXPECT_EQ(q("Cafe             10.00"), r.v.lblProducto);
  EXPECT_EQ(3u, r.v.lineas.size());
  r.v.txtLocal = q("2");
  r.pulsar(kBotonBorra);
  EXPECT_EQ(QString(), r.v.lblProducto + r.v.lblTotal + r.v.lblTipo + r.v.txtCantidad + r.v.txtLocal);
}

TEST(Rapida, MoreThanAShopSellsIsAskedOnce) {
  Rapida r;
  AbrirRapida(r.p, r.v);
  r.pulsar(1);
  r.v.txtCantidad = q("10000");
  r.p.persona().espera(q("La línea queda en 10,000 unidades por S/. 100,000.00."), q("No"));
  EXPECT_FALSE(SalirCantidad(r.p, r.v));
  EXPECT_EQ(q("1"), r.v.txtCantidad);
  EXPECT_TRUE(SalirCantidad(r.p, r.v));
  r.v.txtCantidad = q("10000");
  r.p.persona().espera(q("La línea queda en"), q("Sí"));
  EXPECT_TRUE(SalirCantidad(r.p, r.v));
  r.pulsar(2);  // its quantity is not asked for again
  EXPECT_EQ(2u, r.v.lineas.size());
}

TEST(Rapida, KindsGoRound) {
  Rapida r;
  AbrirRapida(r.p, r.v);
  r.pulsar(kBotonTipo);
  EXPECT_EQ(QString(), r.v.lblTipo);  // without a sale there is none
  r.pulsar(1);
  QStringList tipos{r.v.lblTipo};
  for (int i = 0; i < 3; ++i) {
    r.pulsar(kBotonTipo);
    tipos << r.v.lblTipo;
  }
  EXPECT_EQ((QStringList{q("C/VUELTO"), q("CASH"), q("VOUCHER"), q("C/VUELTO")}), tipos);
  r.p.ses.pnTipoCambio = 0;
  PonerTipoRapida(r.v, ClaseDocumento::VentaVoucher);
  r.p.persona().espera(q("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  r.pulsar(kBotonTipo);
  EXPECT_EQ(q("CASH"), r.v.lblTipo);
  r.pulsar(kBotonPago);
  r.pulsar(kBotonAnula);
  EXPECT_TRUE(r.pantallas.abiertas.isEmpty() && r.pantallas.faltan.isEmpty()) << "no other screen over a sale";
  r.v.txtRuc = q("123");
  r.p.persona().espera(q("El RUC debe poseer 11 dígitos"));
  EXPECT_TRUE(r.pulsar(kBotonImprime).mal);
  EXPECT_EQ(QString(), r.p.filas(kVentas));
}

TEST(Rapida, WhatASaleStores) {
  // clang-format off
  const struct { ClaseDocumento tipo; std::optional<EfectivoDocumento> pago; const char* dinero; } kCasos[] = {
      {ClaseDocumento::VentaExacta, {}, "\n1|0|1|0|0|42.5|0|0|1"},
      {ClaseDocumento::VentaVoucher, {}, ""},
      {ClaseDocumento::VentaConVuelto, EfectivoDocumento{50, 0, 7.5, 0}, "\n1|0|1|-7.5|0|50|0|0|1"},
      {ClaseDocumento::VentaConVuelto, EfectivoDocumento{0, 20, 2.5, 5}, "\n1|0|1|-2.5|0|0|20|5|1"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.dinero);
    Rapida r;
    r.teclear();
    r.v.clase = c.tipo;
    r.pantallas.efectivo = c.pago;
    GrabarVentaRapida(r.p, r.v, r.pantallas);
    const QString tipo = c.tipo == ClaseDocumento::VentaVoucher ? q("2") : q("1");
    EXPECT_EQ(q("1|101|3|10|0|0|0|0|%1\n1|102|1|12.5|10|0|0|0|%1").arg(tipo) + q(c.dinero), r.p.filas(kVentas));
    EXPECT_EQ(q("0|Null|Null|0|Null"),
              r.p.filas(q("SELECT DISTINCT nDscto, cEmisor, cSupervisor, cOperCodeAnula, IdLocal "
                          "FROM Operacion")));
    EXPECT_EQ(ClaseDocumento::VentaExacta, r.v.clase);
    EXPECT_FALSE(r.v.bVentaIniciada);
  }
}

const QHash<QString, ClaseDocumento> kClases{{q("1"), ClaseDocumento::VentaExacta},
                                             {q("2"), ClaseDocumento::VentaVoucher},
                                             {q("5"), ClaseDocumento::VentaConVuelto}};

class TicketRapido : public testing::TestWithParam<std::string> {};

TEST_P(TicketRapido, IsThePaperWeExpect) {
  Rapida r;
  r.p.ejecuta(q("UPDATE Configuracion SET GAVETA='N'"));
  r.v.bVentaIniciada = true;
  int cabeceras = 0;
  const QString caso = q("rapida/") + QString::fromStdString(GetParam());
  for (const auto& [nombre, valor] : leerCaso(caso)) {
    const QStringList c = celdasDe(valor);
    if (nombre == u"linea")
      r.v.lineas.push_back(lineaRapida(c[0].toInt(), c[1], Val(c[2]), c[3].toInt(), c.size() > 4));
    if (nombre == u"cabecera")
      r.p.ejecuta(q("INSERT INTO Cabecera_Impresion VALUES (%1, '%2')").arg(++cabeceras).arg(valor));
    if (nombre == u"txtTarjeta") r.v.txtTarjeta = valor;
    if (nombre == u"txtCliente") r.v.txtNombres = valor;
    if (nombre == u"txtRuc") r.v.txtRuc = valor;
    if (nombre == u"tipo") r.v.clase = kClases.value(valor);
    if (nombre == u"pago") r.pantallas.efectivo = EfectivoDocumento{Val(c[0]), Val(c[1]), Val(c[2]), Val(c[3])};
  }
  GrabarVentaRapida(r.p, r.v, r.pantallas);
  const QByteArray papel = leerGolden(caso + q(".txt"));
  ASSERT_FALSE(papel.isEmpty());
  EXPECT_EQ(conCorte(papel).toStdString(), r.p.papeles().papel[q("LPT1")].toStdString());
}
INSTANTIATE_TEST_SUITE_P(Golden, TicketRapido, testing::ValuesIn(nombresGolden("rapida")),
                         [](const auto& i) { return i.param; });

// The number comes from the settings when its row can't be read; any other statement ends the commit.
TEST(Rapida, EachStatementOfTheCommitHasItsTurn) {
  for (const Falla falla : {Falla::unaVez, Falla::desdeAhi}) {
    int terminados = 0;
    for (int n = 1;; ++n) {
      PlanFallas plan;
      Rapida r([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
      r.p.persona().dejaPasar();
      r.p.ejecuta(q("UPDATE Configuracion SET SerieBOL='009', cOpeB='0'"));
      r.teclear();
      r.v.clase = ClaseDocumento::VentaExacta;
      plan.armar(n, falla);
      GrabarVentaRapida(r.p, r.v, r.pantallas);
      if (plan.van() < n) break;
      const QStringList antes = plan.sentencias.mid(0, n - 1), todas = plan.sentencias;
      const QString cual = plan.sentencias[n - 1];
      plan.armar(0);
      SCOPED_TRACE(qPrintable(QString::number(n) + u' ' + cual));
      const QString usado = r.p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'"));
      const QByteArray papel = r.p.papeles().papel[q("LPT1")];
      if (r.v.bVentaIniciada) {  // ended: the sale stays as it was
        ++terminados;
        EXPECT_EQ(2u, r.v.lineas.size());
        EXPECT_EQ(QString::number(antes.filter(q("INSERT INTO OPERACION")).size()),
                  r.p.filas(q("SELECT COUNT(*) FROM Operacion")));
        EXPECT_EQ(QString::number(antes.filter(q("SET cSerieDoc")).size()), usado);
        EXPECT_EQ(todas.filter(q("idct + 1")).size(), papel.count("TK NRO:"));
      } else {
        EXPECT_EQ(q("3"), r.p.filas(q("SELECT COUNT(*) FROM Operacion")));
        EXPECT_EQ(cual.contains(u"FROM Config_Documento"), papel.contains("TK NRO: 009-000001"));
      }
      const QString hubo = r.p.filas(q("SELECT COUNT(*) FROM Operacion"));
      r.teclear();
      r.v.clase = ClaseDocumento::VentaExacta;
      GrabarVentaRapida(r.p, r.v, r.pantallas);
      EXPECT_EQ(hubo.toInt() + 3, r.p.filas(q("SELECT COUNT(*) FROM Operacion")).toInt());
      EXPECT_EQ(q("3"), r.p.filas(q("SELECT COUNT(*) FROM Operacion WHERE cDocCodigo=%1").arg(usado.toInt() + 1)));
    }
    EXPECT_GT(terminados, 8);  // code, header, number (2), check (2), three rows
  }
}

TEST(Rapida, TheFullRegisterShowsTheSameTotal) {
  PuestoDeVenta p;
  EXPECT_TRUE(rc::check("quick total = full total, there and back", [&p] {
    CajaRegistradora v;
    const int n = *rc::gen::inRange(1, 12);
    for (int i = 0; i < n; ++i) {
      v.lineas.push_back(lineaRapida(i + 1, q("X"), *rc::gen::inRange(0, 200000) / 100.0, *rc::gen::inRange(1, 500),
                                     *rc::gen::arbitrary<bool>()));
    }
    v.txtRuc = q("20512345678");
    MostrarLinea(v);
    CajaRegistradoraFull full;
    RecibirVenta(p, full, LlevarVenta(v));
    RC_ASSERT(Formatear(v.nTotalVenta, u"0.00") == full.txtSoles);
    RC_ASSERT(full.txtRUC == v.txtRuc && full.rejilla.filas.back()[kItem] == Formatear(n, u"000000"));
    CajaRegistradora otra;
    RecibirVenta(otra, LlevarVenta(p, full));
    RC_ASSERT(otra.nTotalVenta == v.nTotalVenta && otra.lblTotal == v.lblTotal && otra.txtCantidad == v.txtCantidad);
  }));
  CajaRegistradoraFull conDescuento;
  conDescuento.rejilla.filas = {filaVenta(101, q("Cafe"), 10, 1, 5)};
  EXPECT_FALSE(CabeEnRapida(conDescuento));
}

}  // namespace
