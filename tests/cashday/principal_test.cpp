#include "cashday/principal.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "cashday/pantallas_guion.h"

namespace {

template <size_t N>
QString encendidos(const std::array<bool, N>& cuales) {
  QStringList r;
  for (size_t n = 1; n < N; ++n)
    if (cuales[n]) r << QStringLiteral("%1").arg(n);
  return r.join(u' ');
}

}  // namespace

TEST(CargarPrincipal, FreesWhatTheDayAllows) {
  const QHash<QString, ClaseDia> clases{
      {"cerrada", ClaseDia::Cerrada}, {"abierta", ClaseDia::Abierta}, {"sin terminar", ClaseDia::CierreInterrumpido}};
  for (const auto& c : leerCasos("cashday/principal")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ses.psTurno = c["turno"];
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET iCierreCaja = %1").arg(c.entero("cierre")));
    for (const char* caja : {"caja", "otraCaja"}) {
      if (!c.falta(caja)) p.persona().espera(c[caja]);
    }
    Principal v;
    CargarPrincipal(p, v);
    const Menus m = MenusDelDia(ClaseDelDia(p, v), true, p.ses);
    EXPECT_EQ(c["botones"], encendidos(m.botones));
    EXPECT_EQ(c["mantenimiento"], encendidos(m.mantenimiento));
    EXPECT_EQ(c["operaciones"], encendidos(m.operaciones));
    EXPECT_EQ(c.si("demas"), m.demasMenus);
    EXPECT_EQ(c.si("demas"), m.sincronizarDiaAnt);
    EXPECT_EQ(clases.value(c["estado"]), EstadoDelDia(p, v).clase);
    EXPECT_EQ(c["titular"], EstadoDelDia(p, v).titular);
  }
}

TEST(MenusDelDia, WhoSeesWhat) {
  // clang-format off
  const struct { const char *usuario, *perfil; bool fechas, usuarios; } casos[] = {
      {"CAJERO", "2", false, true}, {"CAJERO", "3", false, false}, {"rovel", "1", true, true},
      {"RoVel", "1", true, true},   {"rovel", "2", false, true},   {"rovel", "3", false, false},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(std::string(c.usuario) + " " + c.perfil);
    PuestoPrueba p;
    p.ses.psUsuario = QString::fromLatin1(c.usuario);
    p.ses.psPerfilUsuario = QString::fromLatin1(c.perfil);
    const Menus m = MenusDelDia(ClaseDia::Abierta, false, p.ses);
    for (size_t n : {15u, 16u, 17u}) EXPECT_EQ(c.fechas, m.botonVisible[n]);
    EXPECT_TRUE(m.botonVisible[14]);
    EXPECT_EQ(c.usuarios, m.usuariosVisible);
  }
}

TEST(CargarPrincipal, AStoreThatCantBeAskedShowsTheEmptyBox) {
  PuestoPrueba p;
  p.ejecuta(QStringLiteral("DROP TABLE Configuracion"));
  p.persona().dejaPasar();
  Principal v;
  CargarPrincipal(p, v);
  ASSERT_FALSE(p.persona().vistas.empty());
  EXPECT_EQ("", p.persona().vistas.back().texto);
  EXPECT_EQ(ClaseDia::Abierta, ClaseDelDia(p, v));
}

TEST(PrepararOperacion, CapturesTheRateOnlyWhenItIsUnknown) {
  PuestoPrueba p;
  PantallasGuion pantallas;
  Principal v;
  v.bAcceso = true;
  PrepararOperacion(p, v, pantallas);
  EXPECT_FALSE(v.bAcceso);
  EXPECT_TRUE(pantallas.abiertas.isEmpty());
  p.ses.pnTipoCambio = 0;
  p.persona().espera("Para registrar ventas en dólares");
  PrepararOperacion(p, v, pantallas);
  EXPECT_EQ(QStringList{"T.C. 0"}, pantallas.abiertas);
}

TEST(RevisarCliente, AtMostOnceAMinute) {
  PuestoPrueba p;
  const QDateTime inicio = p.reloj.now();
  p.ses.pdUltimaSincronizacion = inicio;
  p.ses.psConexionCliente = QStringLiteral("Provider=SQLOLEDB.1;Data Source=sqlite:no_existe.db");
  const struct {
    int segundos;
    bool prueba;
  } casos[] = {{25, false}, {50, false}, {75, true}, {100, false}, {135, true}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.segundos);
    p.ses.pbClienteCaido = false;
    p.elReloj().ahora = inicio.addSecs(c.segundos);
    RevisarCliente(p);
    EXPECT_EQ(c.prueba, p.ses.pbClienteCaido);
  }
}
