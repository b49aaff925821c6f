#include "app/login.h"

#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"

namespace {

void usuarios(PuestoPrueba& p) {
  const struct { const char *nombre, *clave; int activo, marca, perfil; } filas[] = {
      {"ANA", "Secreta", 1, 0, 2}, {"JEFE", "jefe", 1, 1, 1}, {"BAJA", "x", 0, 0, 1}, {"O''HARA", "q", 1, 0, 2}};
  for (const auto& f : filas) {
    p.ejecuta(QStringLiteral("INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) "
                             "VALUES ('%1', '%2', %3, %4, '%5')")
                  .arg(QString::fromLatin1(f.nombre), QString::fromLatin1(f.clave)).arg(f.activo).arg(f.marca).arg(f.perfil));
  }
}

}  // namespace

TEST(Login, OneAttempt) {
  const struct { const char *porque, *usuario, *clave, *caja, *foco; int intentos; bool entra; } casos[] = {
      {"blank name counts nothing", "  ", "x", "Ingresar Usuario", "txtUsuario", 0, false},
      {"unknown", "NADIE", "x", "Usuario no válido", "txtUsuario", 1, false},
      {"inactive before the password is looked at", "BAJA", "mal", "Usuario no activo. Contactar al supervisor.", "txtPassword", 1, false},
      {"inactive with the right password", "BAJA", "x", "Usuario no activo", "txtPassword", 1, false},
      {"case of the password counts", "ANA", "secreta", "Password no válido", "txtPassword", 1, false},
      {"blank password", "ANA", "", "Password no válido", "txtPassword", 1, false},
      {"blanks around either do not count", " ana ", " Secreta ", "", "", 1, true},
      {"a quote in the name", "O'HARA", "q", "", "", 1, true},
      {"a quote that would open the door", "x' OR '1'='1", "q", "Usuario no válido", "txtUsuario", 1, false},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    usuarios(p);
    p.ses.psUsuario.clear();
    Login v;
    v.txtUsuario = QString::fromLatin1(c.usuario);
    v.txtPassword = QString::fromLatin1(c.clave);
    if (*c.caja) p.persona().espera(QString::fromUtf8(c.caja));
    ProbarLogin(p, v);
    EXPECT_EQ(c.entra, v.aceptado);
    EXPECT_EQ(c.entra, v.cierra);
    EXPECT_EQ(c.intentos, v.intentos);
    if (!c.entra) {
      EXPECT_EQ(c.foco, v.foco);
      EXPECT_EQ("", p.ses.psUsuario);
    }
  }
}

TEST(Login, AcceptedUserBecomesTheLastOne) {
  PuestoPrueba p;
  usuarios(p);
  Login v;
  CargarLogin(p, v);
  EXPECT_EQ("JEFE", v.txtUsuario);
  EXPECT_EQ("txtPassword", v.foco) << "only the password is left to type";
  v.txtUsuario = " ANA ";
  v.txtPassword = "Secreta ";
  ProbarLogin(p, v);
  EXPECT_EQ("ANA|Secreta|2", p.ses.psUsuario + u'|' + p.ses.psClaveUsuario + u'|' + p.ses.psPerfilUsuario);
  EXPECT_EQ("ANA", p.filas("SELECT sUserDesc FROM Usuario WHERE cUserFlag = 1"));
}

TEST(Login, TheThirdAttemptCloses) {
  PuestoPrueba p;
  usuarios(p);
  p.persona().dejaPasar();
  Login v;
  const struct { const char *usuario, *clave; bool cierra; } casos[] = {
      {"NADIE", "x", false}, {"", "x", false}, {"BAJA", "x", false}, {"ANA", "mal", true}};
  for (const auto& c : casos) {
    v.txtUsuario = QString::fromLatin1(c.usuario);
    v.txtPassword = QString::fromLatin1(c.clave);
    ProbarLogin(p, v);
    EXPECT_EQ(c.cierra, v.cierra) << c.usuario;
  }
  EXPECT_FALSE(v.aceptado);
}
