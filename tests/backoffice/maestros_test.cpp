// Users, parameters and rates.
#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "backoffice/parametros.h"
#include "backoffice/tipo_cambio.h"
#include "backoffice/usuario.h"
#include "foundation/clave.h"

namespace {

void conUsuarios(PuestoPrueba& p) {
  p.ejecuta("INSERT INTO Perfil (cPerfCode, sPerfDesc) VALUES (1, 'SUPERVISOR')");
  p.ejecuta("INSERT INTO Perfil (cPerfCode, sPerfDesc) VALUES (2, 'CAJERO')");
  p.ejecuta("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName) VALUES ('CAJERO', 'caja', 2, "
            "'RÍOS', 'ANA')");
  p.ejecuta(
      "INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName) VALUES ('ROSA', 'r', 1, 'PEÑA', "
      "'ÑUSTA')");
  p.ses.psUsuario = "cajero";  // as he typed it at the login
}

void conAlmacenes(PuestoPrueba& p) {
  Conexion central;
  ASSERT_TRUE(p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral));
  for (const char* a : {"'01','SUR'", "'02','NORTE'"})
    p.ejecuta(central, QStringLiteral("INSERT INTO Almacen (cCodAlmac, vDscAlmac) VALUES (%1)").arg(QLatin1String(a)));
}

// The desk's warehouse as the session, the table, the file and the catalogue have it.
QString almacenes(PuestoPrueba& p) {
  return p.ses.psAlmacen + u' ' + p.filas("SELECT Almacen FROM Configuracion") + u' ' +
         p.filas("SELECT DISTINCT cAlmaCode FROM Producto ORDER BY 1").replace(u'\n', u',');
}

}  // namespace

TEST(Usuarios, APasswordStaysUntilBothFieldsSayAnotherOne) {
  PuestoPrueba p;
  conUsuarios(p);
  DetalleUsuario v;
  ASSERT_TRUE(CargarUsuario(p, ModoDetalle::Editar, "ROSA", v));
  v.txtNombres = "ROSA";
  EXPECT_TRUE(GuardarUsuario(p, v));
  const QString cifrada = p.filas("SELECT sUserPass FROM Usuario WHERE sUserDesc = 'ROSA'");
  EXPECT_TRUE(EstaCifrada(cifrada) && EsLaClave(cifrada, "r")) << "what an older desk kept";
  ASSERT_TRUE(CargarUsuario(p, ModoDetalle::Editar, "ROSA", v));
  EXPECT_TRUE(GuardarUsuario(p, v));
  EXPECT_EQ(cifrada, p.filas("SELECT sUserPass FROM Usuario WHERE sUserDesc = 'ROSA'"));
  // Typed behind what stands there, it would be a password that nobody can type again.
  v.txtPassword = v.txtReingresarPassword = v.txtPassword + "x";
  p.persona().espera("Password reingresado incorrecto");
  EXPECT_FALSE(GuardarUsuario(p, v));
  v.txtPassword = v.txtReingresarPassword = "x";
  EXPECT_TRUE(GuardarUsuario(p, v));
  EXPECT_TRUE(EsLaClave(p.filas("SELECT sUserPass FROM Usuario WHERE sUserDesc = 'ROSA'"), " x "));
}

TEST(Parametros, TheNumberingStartsAboveWhatIsThere) {
  for (const auto& c : leerCasos("backoffice/numeracion")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ejecuta(QStringLiteral("INSERT INTO Operacion (cOperCode) VALUES (%1)").arg(c["maximo"]));
    Parametros v;
    v.txtNumeracion = c["numero"];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    EXPECT_EQ(c["caja"].isEmpty(), GrabarNumeracion(p, v));
    EXPECT_EQ(c["codigos"],
              p.filas("SELECT cOperCode FROM Operacion ORDER BY IIF(cOperCode IS NULL, 9999, cOperCode)"));
  }
}

TEST(Parametros, WhatIsRefusedDoesNotHoldUpTheRest) {
  for (const auto& c : leerCasos("backoffice/parametros")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.articulo(1, "A", 1);
    p.articulo(2, "B", 1);
    if (c.si("choque")) p.ejecuta("INSERT INTO Producto (cAlmaCode, cProdCode) VALUES ('02', 2)");
    conAlmacenes(p);
    Parametros v;
    CargarParametros(p, v);
    ASSERT_EQ(2u, v.almacenes.size());
    EXPECT_EQ("NORTE 01 10", v.almacenes[0].second + u' ' + v.dcbAlmacen + u' ' + v.txtServicio);
    v.chkNumeracion = true;
    v.chkAlmacen = c.si("conAlmacen");
    v.txtNumeracion = c["numero"];
    v.dcbAlmacen = "02";
    v.txtServicio = c["servicio"];
    for (const QString& caja : c["cajas"].split(QStringLiteral("; "))) p.persona().espera(caja);
    EXPECT_EQ(c.si("cierra"), GrabarParametros(p, v));
    EXPECT_EQ(c["almacen"], almacenes(p));
    EXPECT_EQ(c["porc"], p.ses.psPorcServ);
    EXPECT_EQ(c["porc"], p.filas("SELECT PorcServ FROM Configuracion"));
  }
}

TEST(Parametros, AFailedStatementLeavesDeskAndCatalogueTogether) {
  int n = 1;
  for (;; ++n) {
    SCOPED_TRACE(n);
    PlanFallas plan;
    PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.persona().dejaPasar();
    p.articulo(1, "A", 1);
    Parametros v;
    v.dcbAlmacen = "02";
    plan.armar(n);
    const bool bien = GrabarAlmacen(p, v);
    const bool toco = plan.van() >= n;
    plan.armar(0);
    EXPECT_EQ(!toco, bien);
    EXPECT_EQ(bien ? "02 02 02" : "01 01 01", almacenes(p));
    EXPECT_TRUE(GrabarAlmacen(p, v)) << "the next try works";
    EXPECT_EQ("02 02 02", almacenes(p));
    if (!toco) break;
  }
  EXPECT_GT(n, 5);  // begin, articles, setting, its reading, commit
}

TEST(Parametros, WithoutTheCentralDatabaseTheListIsEmpty) {
  PuestoPrueba p;
  p.ses.psConexionCentral.replace("central.db", "otra.db");
  p.persona().espera("No se pudo conectar a la BD de Logistica en SQL SERVER. ");
  Parametros v;
  CargarParametros(p, v);
  EXPECT_TRUE(v.almacenes.empty());
  v.dcbAlmacen.clear();
  p.persona().espera("Debe elegir el almacén");
  EXPECT_FALSE(GrabarAlmacen(p, v));
}

TEST(TipoCambio, ADayWithoutARowIsTold) {
  PuestoPrueba p;
  p.ejecuta("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('03/04/2026', '3.60')");
  std::vector<FilaTipoCambio> filas;
  ASSERT_TRUE(LeerTiposCambio(p, filas) && filas.size() == 1);
  EXPECT_EQ("03/04/2026 3.60", filas[0].fecha + u' ' + filas[0].monto) << "3 April, day before month";
  TipoCambio v;
  EXPECT_TRUE(CargarTipoCambio(p, ModoDetalle::Ver, filas[0].fecha, v));
  p.persona().espera("ya no existe");
  EXPECT_FALSE(CargarTipoCambio(p, ModoDetalle::Ver, "04/03/2026", v));
}

TEST(TipoCambio, OneOffTheLastByMoreThanATenthIsAskedFor) {
  PuestoPrueba p;
  for (const char* fila : {"'20/11/2026', '3.00'", "'23/11/2026', '3.70'", "'30/11/2026', '9.00'"}) {
    p.ejecuta(
        QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES (%1)").arg(QLatin1String(fila)));
  }
  TipoCambio v;
  ASSERT_TRUE(CargarTipoCambio(p, ModoDetalle::Nuevo, {}, v));
  for (const char* lejos : {"4.08", "3.32", "375"}) {
    v.txtTC = lejos;
    p.persona().espera("se aparta más de la décima parte del último, 3.70.\n¿Desea continuar?", "No");
    EXPECT_FALSE(GuardarTipoCambio(p, v)) << lejos;
    EXPECT_EQ("txtTC", v.campoMal);
  }
  v.txtTC = "4.07";
  EXPECT_TRUE(GuardarTipoCambio(p, v)) << "a tenth is no more than a tenth";
  ASSERT_TRUE(CargarTipoCambio(p, ModoDetalle::Editar, "24/11/2026", v));
  v.txtTC = "3.30";
  p.persona().espera("se aparta", "Sí");
  EXPECT_TRUE(GuardarTipoCambio(p, v));
  EXPECT_EQ("3.3", p.filas("SELECT nTipoCambMont FROM Tipo_Cambio WHERE dTipoCambFech = #11/24/2026#"));
  ASSERT_TRUE(CargarTipoCambio(p, ModoDetalle::Editar, "20/11/2026", v));
  v.txtTC = "8.00";
  EXPECT_TRUE(GuardarTipoCambio(p, v)) << "no rate before it";
}
