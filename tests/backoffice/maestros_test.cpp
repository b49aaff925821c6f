// Users, print header, card kinds and parameters.
#include <gtest/gtest.h>

#include "apoyo/motor_que_falla.h"
#include "apoyo/puesto_prueba.h"
#include "backoffice/cabecera.h"
#include "backoffice/parametros.h"
#include "backoffice/tipo_tarjeta.h"
#include "backoffice/usuario.h"

namespace {

const char* const kUsuarios = "SELECT sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName, cUserActi FROM Usuario ORDER BY sUserDesc";

void conUsuarios(PuestoPrueba& p) {
  p.ejecuta("INSERT INTO Perfil (cPerfCode, sPerfDesc) VALUES (1, 'SUPERVISOR')");
  p.ejecuta("INSERT INTO Perfil (cPerfCode, sPerfDesc) VALUES (2, 'CAJERO')");
  p.ejecuta("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName) VALUES ('CAJERO', 'caja', 2, 'RÍOS', 'ANA')");
  p.ejecuta("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName) VALUES ('ROSA', 'r', 1, 'PEÑA', 'ÑUSTA')");
  p.ses.psUsuario = "cajero";  // as he typed it at the login
  p.ses.psClaveUsuario = "caja";
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

TEST(Usuarios, AreRefusedInOrderAndThenStored) {
  PuestoPrueba p;
  conUsuarios(p);
  DetalleUsuario v;
  ASSERT_TRUE(CargarUsuario(p, ModoDetalle::Nuevo, "", v));
  const struct { std::function<void()> antes; const char *caja, *campo; } casos[] = {
      {[] {}, "Ingresar Nombre de Usuario", "txtUsuario"},
      {[&] { v.txtUsuario = " rosa "; v.txtPassword = "Ab'1"; }, "Reingresar Password de Usuario", "txtReingresarPassword"},
      {[&] { v.txtReingresarPassword = "ab'1"; }, "Password reingresado incorrecto", "txtReingresarPassword"},
      {[&] { v.txtReingresarPassword = "Ab'1"; }, "Seleccionar Perfil", "dcbPerfil"},
      {[&] { v.dcbPerfil = "2"; }, "Ingresar Apellidos", "txtApellidos"},
      {[&] { v.txtApellidos = "D'ÁVILA"; }, "Ingresar Nombres", "txtNombres"},
      {[&] { v.txtNombres = "LUZ"; }, "Ya hay un usuario con ese nombre.", "txtUsuario"},
  };
  const QString antes = p.filas(kUsuarios);
  for (const auto& c : casos) {
    SCOPED_TRACE(c.caja);
    c.antes();
    p.persona().espera(QString::fromUtf8(c.caja));
    EXPECT_FALSE(GuardarUsuario(p, v));
    EXPECT_EQ(c.campo, v.campoMal);
  }
  EXPECT_EQ(antes, p.filas(kUsuarios));
  v.txtUsuario = "LUZ";
  EXPECT_TRUE(GuardarUsuario(p, v));
  EXPECT_EQ("CAJERO|caja|2|RÍOS|ANA|1\nLUZ|Ab'1|2|D'ÁVILA|LUZ|1\nROSA|r|1|PEÑA|ÑUSTA|1", p.filas(kUsuarios));
  const FilaUsuario f = FilaDe(v);
  EXPECT_EQ("LUZ|CAJERO|LUZ D'ÁVILA", f.usuario + u'|' + f.perfil + u'|' + f.nombre);
}

TEST(Usuarios, NobodyShutsHimselfOut) {
  PuestoPrueba p;
  conUsuarios(p);
  DetalleUsuario v;
  std::vector<FilaUsuario> filas;
  ASSERT_TRUE(LeerUsuarios(p, filas));
  ASSERT_EQ(2u, filas.size());
  EXPECT_EQ("ANA RÍOS", filas[0].nombre);
  p.persona().espera("El usuario no puede borrarse a si mismo");
  EXPECT_FALSE(CargarUsuario(p, ModoDetalle::Borrar, "CAJERO", v));
  p.persona().espera("El usuario no puede desactivarse a si mismo");
  EXPECT_FALSE(ActivarUsuario(p, filas[0]));
  ASSERT_TRUE(CargarUsuario(p, ModoDetalle::Editar, "CAJERO", v));
  v.activo = false;
  p.persona().espera("El usuario no puede desactivarse a si mismo");
  EXPECT_FALSE(GuardarUsuario(p, v));
  v.activo = true;
  v.txtPassword = v.txtReingresarPassword = "nueva";
  EXPECT_TRUE(GuardarUsuario(p, v));
  EXPECT_EQ("nueva", p.ses.psClaveUsuario);
  p.persona().espera("Se procederá a desactivar a ROSA. Desea continuar?", "Sí");
  EXPECT_TRUE(ActivarUsuario(p, filas[1]));
  ASSERT_TRUE(CargarUsuario(p, ModoDetalle::Borrar, "ROSA", v));
  EXPECT_FALSE(v.activo);
  EXPECT_TRUE(GuardarUsuario(p, v));
  EXPECT_EQ("nueva", p.ses.psClaveUsuario) << "another user's";
  EXPECT_EQ("CAJERO|nueva|2|RÍOS|ANA|1", p.filas(kUsuarios));
}

TEST(Cabecera, LinesAreProposedChangedAndDeleted) {
  PuestoPrueba p;
  DetalleCabecera v;
  const struct { ModoDetalle modo; const char *linea, *texto, *queda; } pasos[] = {
      {ModoDetalle::Nuevo, "1", "  L'ÉTOILE ", "1|L'ÉTOILE"},
      {ModoDetalle::Nuevo, "2", "   ", "1|L'ÉTOILE\n2|"},
      {ModoDetalle::Editar, "2", "ÑUÑOA", "1|L'ÉTOILE\n2|ÑUÑOA"},
      {ModoDetalle::Ver, "1", "X", "1|L'ÉTOILE\n2|ÑUÑOA"},
      {ModoDetalle::Borrar, "1", "X", "2|ÑUÑOA"},
      {ModoDetalle::Nuevo, "3", "FIN", "2|ÑUÑOA\n3|FIN"},
  };
  for (const auto& c : pasos) {
    SCOPED_TRACE(c.queda);
    EXPECT_TRUE(CargarCabecera(p, c.modo, QLatin1String(c.linea), v));
    EXPECT_EQ(c.linea, v.txtLinea);
    v.txtDescripcion = QString::fromUtf8(c.texto);
    EXPECT_TRUE(GuardarCabecera(p, v));
    EXPECT_EQ(c.queda, p.filas("SELECT cCabeLinea, sCabeDescripcion FROM Cabecera_Impresion ORDER BY 1"));
  }
}

TEST(TiposTarjeta, CodesAreProposedAndNotTakenTwice) {
  PuestoPrueba p;
  p.ejecuta("INSERT INTO tipo_tarjeta (cod_tar, descrip) VALUES ('009', 'VALE')");
  DetalleTipoTarjeta v;
  ASSERT_TRUE(CargarTipoTarjeta(p, ModoDetalle::Nuevo, {}, v));
  EXPECT_EQ("010", v.txtcod);
  const struct { const char *codigo, *descripcion, *caja, *titulo, *campo; } casos[] = {
      {"009", "", "Se Registro Anteriormente", "TarvoPos", "txtcod"},
      {"010", " ", "Debe ingresar Descripcion", "Atención", "txtDes"},
      {" ", "X", "Debe ingresar Codigo", "Atención", "txtcod"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.caja);
    v.txtcod = c.codigo;
    v.txtDes = c.descripcion;
    p.persona().espera(QString::fromUtf8(c.caja));
    EXPECT_FALSE(GuardarTipoTarjeta(p, v));
    EXPECT_EQ(QString::fromUtf8(c.titulo), p.persona().vistas.back().titulo);
    EXPECT_EQ(c.campo, v.campoMal);
  }
  v = {ModoDetalle::Nuevo, "A'1", "D'OR", {}};
  EXPECT_TRUE(GuardarTipoTarjeta(p, v));
  v = {ModoDetalle::Editar, "009", "CHEQUE", {}};
  EXPECT_TRUE(GuardarTipoTarjeta(p, v));
  EXPECT_EQ("009|CHEQUE\nA'1|D'OR", p.filas("SELECT cod_tar, descrip FROM tipo_tarjeta ORDER BY 1"));
}

TEST(Parametros, TheNumberingStartsAboveWhatIsThere) {
  const struct { const char *porque, *maximo, *numero, *caja, *codigos; } casos[] = {
      {"a gap: one bare row", "4000", "5000", "", "4000\n4999"},
      {"the next one: no row", "4000", "4001", "", "4000"},
      {"empty store", "Null", "1", "", "0\nNull"},
      {"equal", "4000", "4000", "es menor o igual que el maximo valor", "4000"},
      {"blank", "4000", " ", "Debe de ingresar un número para inicializar el comprobante", "4000"},
      {"digits apart", "4000", "5 0", "Debe de ingresar un número para inicializar el comprobante", "4000"},
      {"nothing", "Null", "0", "no puede ser menor o igual que cero", "Null"},
      {"too large", "4000", "99999999999", "es demasiado grande", "4000"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.ejecuta(QStringLiteral("INSERT INTO Operacion (cOperCode) VALUES (%1)").arg(QLatin1String(c.maximo)));
    Parametros v;
    v.txtNumeracion = QLatin1String(c.numero);
    if (*c.caja) p.persona().espera(QString::fromUtf8(c.caja));
    EXPECT_EQ(!*c.caja, GrabarNumeracion(p, v));
    EXPECT_EQ(c.codigos, p.filas("SELECT cOperCode FROM Operacion ORDER BY IIF(cOperCode IS NULL, 9999, cOperCode)"));
  }
}

TEST(Parametros, WhatIsRefusedDoesNotHoldUpTheRest) {
  const QString listo = "Se guardó la configuración satisfactoriamente";
  const struct { const char* porque; bool choque, conAlmacen; const char *numero, *servicio; QStringList cajas; bool cierra; const char *almacen, *porc; } casos[] = {
      {"all well", false, true, "5", "12", {listo}, true, "02 02 02", "12"},
      {"refused number, warehouse moves, service goes on", false, true, "0", "12", {"que cero", listo}, true, "02 02 02", "12"},
      {"refused number alone stops there", false, false, "0", "12", {"que cero"}, false, "01 01 01", "10"},
      {"service of nothing", false, true, "5", "0", {"en % Servicio no puede"}, false, "02 02 02", "10"},
      {"service blank", false, false, "5", "", {"Debe de ingresar un número grabar el % Servicio"}, false, "01 01 01", "10"},
      {"a pair that exists: nothing moves", true, true, "5", "12", {"UNIQUE"}, false, "01 01 01,02", "10"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.articulo(1, "A", 1);
    p.articulo(2, "B", 1);
    if (c.choque) p.ejecuta("INSERT INTO Producto (cAlmaCode, cProdCode) VALUES ('02', 2)");
    conAlmacenes(p);
    Parametros v;
    CargarParametros(p, v);
    ASSERT_EQ(2u, v.almacenes.size());
    EXPECT_EQ("NORTE 01 10", v.almacenes[0].second + u' ' + v.dcbAlmacen + u' ' + v.txtServicio);
    v.chkNumeracion = true;
    v.chkAlmacen = c.conAlmacen;
    v.txtNumeracion = QLatin1String(c.numero);
    v.dcbAlmacen = "02";
    v.txtServicio = QLatin1String(c.servicio);
    for (const QString& caja : c.cajas) p.persona().espera(caja);
    EXPECT_EQ(c.cierra, GrabarParametros(p, v));
    EXPECT_EQ(c.almacen, almacenes(p));
    EXPECT_EQ(c.porc, p.ses.psPorcServ);
    EXPECT_EQ(c.porc, p.filas("SELECT PorcServ FROM Configuracion"));
  }
}

TEST(Parametros, AFailedStatementLeavesDeskAndCatalogueTogether) {
  int n = 1;
  for (;; ++n) {
    SCOPED_TRACE(n);
    PlanFallas plan;
    PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresQueFallan>(m, plan); });
    p.persona().dejaPasar();
    p.articulo(1, "A", 1);
    Parametros v;
    v.dcbAlmacen = "02";
    plan.armar(n);
    const bool bien = GrabarAlmacen(p, v);
    const bool toco = plan.van >= n;
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
