#include "app/login.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"

const char* const kUsuarios = "app/casos/usuarios.sql";

TEST(Login, OneAttempt) {
  for (const auto& c : leerCasos("app/login")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    ejecutarArchivo(p, kUsuarios);
    p.ses.psUsuario.clear();
    Login v;
    v.txtUsuario = c["usuario"];
    v.txtPassword = c["clave"];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    ProbarLogin(p, v);
    EXPECT_EQ(c.si("entra"), v.aceptado);
    EXPECT_EQ(c.si("entra"), v.cierra);
    EXPECT_EQ(c.entero("intentos"), v.intentos);
    if (!c.si("entra")) {
      EXPECT_EQ(c["foco"], v.foco);
      EXPECT_EQ("", p.ses.psUsuario);
    }
  }
}

TEST(Login, AcceptedUserBecomesTheLastOne) {
  PuestoPrueba p;
  ejecutarArchivo(p, kUsuarios);
  Login v;
  CargarLogin(p, v);
  EXPECT_EQ("JEFE", v.txtUsuario);
  EXPECT_EQ("txtPassword", v.foco) << "only the password is left to type";
  v.txtUsuario = " ANA ";
  v.txtPassword = "Secreta ";
  ProbarLogin(p, v);
  EXPECT_EQ("ANA|2", p.ses.psUsuario + u'|' + p.ses.psPerfilUsuario);
  EXPECT_EQ("ANA", p.filas("SELECT sUserDesc FROM Usuario WHERE cUserFlag = 1"));
}
