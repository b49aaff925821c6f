// The registry of a new customer: what it refuses, what it writes in both databases, what a fault leaves, and the
// photograph.
#include <gtest/gtest.h>
#include <QDir>
#include <QFile>

#include "apoyo/casos.h"
#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "foundation/acto_doble.h"
#include "loyalty/cliente_nuevo.h"
#include "loyalty/foto_cliente.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

struct Registro {
  PuestoPrueba p;
  ClienteNuevo v;

  explicit Registro(const Envolver& e = {}) : p(e) {
    for (const char* sql : {"INSERT INTO local VALUES (1, 'SUR', 0), (2, 'NORTE', 1)",
                            "INSERT INTO Localidad VALUES (15, 0, 0, 'LIMA'), (8, 0, 0, 'CUSCO'), (15, 1, 0, 'LIMA'), "
                            "(15, 1, 4, 'LURÍN'), (8, 3, 0, 'ANTA')",
                            "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (6, 2, 'MUÑOZ "
                            "IBÁÑEZ', 'ROSA'), (9, 1, 'D''ALESSIO', 'LUZ')"}) {
      enCliente(sql);
    }
    CargarClienteNuevo(p, v);
    v.txtApellidos = u8("O'BRIEN PAZ");
    v.txtNombres = u8("ANA");
    v.txtDireccion = u8("JR. LUNA 1");
    v.txtEMail = u8("ana@molle.pe");
    ElegirDepartamento(p, v, 15);
    ElegirProvincia(p, v, 1);
    ElegirDistrito(v, kLugarOtro);
    v.distrito.otro = u8("LA HUERTA");
    v.dtpFNacimiento = u8("05/03/1990");
  }
  void enCliente(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCliente));
    p.ejecuta(c, u8(sql));
  }
  QString cliente(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCliente));
    return p.filas(c, u8(sql));
  }
  bool registrar() {
    QString campoMal;
    return ValidarCliente(p, v, campoMal) && GrabarCliente(p, v).has_value();
  }
};

QString lugares(const EleccionLugar& e) {
  QStringList l;
  for (const Lugar& x : e.lugares) l << QString::number(x.codigo) + u' ' + x.nombre;
  return l.join(u',');
}

TEST(ClienteNuevo, OpensWithTheDesksSiteTheNextCardAndThePlaces) {
  Registro r;
  EXPECT_EQ(u8("00000007"), r.v.txtTarjeta);
  EXPECT_EQ(2, r.v.dcbLocal);
  EXPECT_EQ(u8("8 CUSCO,15 LIMA,999 OTRO"), lugares(r.v.departamento));
  EXPECT_EQ(u8("1 LIMA,999 OTRO"), lugares(r.v.provincia));
  EXPECT_EQ(u8("4 LURÍN,999 OTRO"), lugares(r.v.distrito));
  ElegirDepartamento(r.p, r.v, kLugarOtro);
  EXPECT_EQ(u8("999 OTRO"), lugares(r.v.provincia));
  EXPECT_EQ(0, r.v.provincia.codigo + r.v.distrito.codigo);
}

TEST(ClienteNuevo, IsRefusedForWhatItLacks) {
  for (const auto& c : leerCasos("loyalty/cliente_mal")) {
    SCOPED_TRACE(c.donde());
    Registro r;
    const QString campo = c["campo"], valor = c["valor"];
    if (campo == u"tarjeta") r.v.txtTarjeta = valor;
    if (campo == u"apellidos") r.v.txtApellidos = valor;
    if (campo == u"nombres") r.v.txtNombres = valor;
    if (campo == u"departamento") r.v.departamento.codigo = valor.toInt();
    if (campo == u"provincia") r.v.provincia.codigo = valor.toInt();
    if (campo == u"distrito") r.v.distrito.codigo = valor.toInt();
    if (campo == u"nacimiento") r.v.dtpFNacimiento = valor;
    if (campo == u"local") r.v.dcbLocal = valor.toInt();
    r.p.persona().espera(c["aviso"]);
    QString campoMal;
    EXPECT_FALSE(ValidarCliente(r.p, r.v, campoMal));
    EXPECT_EQ(c["foco"], campoMal);
  }
}

TEST(ClienteNuevo, StandsInBothDatabasesWithItsCard) {
  Registro r;
  r.v.txtTarjeta = u8("55");
  r.v.cboTip = 1;
  r.p.persona().espera(u8("Se asignará el número 00000007"));
  ASSERT_TRUE(r.registrar());
  const char* fila =
      "SELECT cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, "
      "sDistDesc, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, iTipo, nPuntCant, bFlagSincro FROM Cliente "
      "WHERE cClieCode = 7";
  const QString esperada = u8(
      "7|2|O'BRIEN PAZ|ANA|JR. LUNA 1|15|1|999||LA HUERTA|ana@molle.pe|1990-03-05 00:00:00|2026-11-24 00:00:00|1||2|0|"
      "0");
  EXPECT_EQ(esperada, r.cliente(fila));
  EXPECT_EQ(esperada, r.p.filas(u8(fila)));
  const char* tarjeta = "SELECT * FROM Tarjeta WHERE nTarjNumb = '00000007'";
  EXPECT_EQ(u8("7|2|00000007|1|2026-11-24 00:00:00|2027-11-23 00:00:00|CAJERO|2026-11-24 10:30:15|0"),
            r.cliente(tarjeta));
  EXPECT_EQ(r.cliente(tarjeta), r.p.filas(u8(tarjeta)));
  EXPECT_EQ("", r.cliente("SELECT cActo FROM Diario_Acto") + r.p.filas(u8("SELECT cActo FROM Diario_Acto")));
}

TEST(ClienteNuevo, ACardEndsAYearAfterItsIssueLessADay) {
  for (const auto& [dia, fin] :
       {std::pair{QDate(2025, 3, 1), "2026-02-28 00:00:00"}, std::pair{QDate(2024, 2, 29), "2025-02-27 00:00:00"}}) {
    Registro r;
    r.v.chkFNacimiento = false;
    r.p.elReloj().ahora = dia.startOfDay();
    ASSERT_TRUE(r.registrar());
    EXPECT_EQ(u8(fin) + u8("|Null"), r.cliente("SELECT t.dCaduDate, c.dNacmDate FROM Tarjeta t INNER JOIN Cliente c ON "
                                               "c.cClieCode = t.cClieCode WHERE c.cClieCode = 7"));
  }
}

TEST(ClienteNuevo, NobodyIsRegisteredTwice) {
  // clang-format off
  const struct { const char *apellidos, *nombres; bool existe; } casos[] = {
      {"munoz ibanez", "rosa", false},  // an Ñ is no N
      {"Muñoz Ibañez", "rosa", true}, {"  Muñoz   Ibañez", "rosa ", true},
      {"MUÑOZ", "IBÁÑEZ ROSA", false}, {"MUÑOZ IBÁÑEZ", "ROSA M", false},
      {"D'ALESSIO", "LUZ", true},       // at another site
      {"%", "%", false}};
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.apellidos);
    Registro r;
    r.v.txtApellidos = u8(c.apellidos);
    r.v.txtNombres = u8(c.nombres);
    if (c.existe) r.p.persona().espera(u8("El Cliente ya existe"));
    EXPECT_EQ(!c.existe, r.registrar());
  }
}

TEST(ClienteNuevo, ANumberThatAnotherDeskTookMeanwhileIsDrawnAgain) {
  Registro r;
  r.enCliente("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 2, 'OTRA', 'CAJA')");
  r.enCliente("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (3, 2, '00000008')");
  r.p.persona().espera(u8("Se asignará el número 00000009"));
  ASSERT_TRUE(r.registrar());
  EXPECT_EQ(u8("9|ANA"), r.cliente("SELECT cClieCode, sClieName FROM Cliente WHERE sClieName = 'ANA'"));
}

// Whatever statement of either database fails, or its process dies there: one story behind the next start.
TEST(ClienteNuevo, AFaultLeavesHimInBothDatabasesOrInNone) {
  struct Muerto {};
  for (const bool muere : {false, true}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      auto plan = std::make_shared<PlanFallas>();
      plan->cuenta = [](const QString&) { return true; };
      plan->morir = [] { throw Muerto{}; };
      Registro r([plan](Motores& reales) { return std::make_unique<MotoresConFallas>(reales, *plan); });
      r.p.persona().dejaPasar();
      plan->armar(n, Falla::unaVez, muere ? Muerte::despues : Muerte::no);
      bool murio = false;
      try {
        (void)GrabarCliente(r.p, r.v);
      } catch (const Muerto&) {
        murio = true;
      }
      const bool toco = plan->van() >= n;
      plan->armar(0);
      plan->apagar(false);
      r.p.poCnnCliente.cerrar();
      r.p.poCnnLocal.cerrar();
      ASSERT_TRUE(r.p.poDBAdmin.AbrirBD(r.p.poCnnLocal,
                                        u8("driver={Microsoft Access Driver (*.mdb)};DBQ=") + r.p.ses.psRutaBD));
      Conexion cliente;
      ASSERT_TRUE(r.p.poDBAdmin.AbrirBD(cliente, r.p.ses.psConexionCliente));
      EXPECT_TRUE(TerminarActos(r.p, ServidorActo::Cliente, cliente));
      const QString alla = r.p.filas(cliente, u8("SELECT COUNT(*) FROM Cliente WHERE sClieName = 'ANA'")),
                    aqui = r.p.filas(u8("SELECT COUNT(*) FROM Cliente WHERE sClieName = 'ANA'")),
                    tarjetas = r.p.filas(u8("SELECT COUNT(*) FROM Tarjeta WHERE cClieCode = 7"));
      EXPECT_EQ(alla, aqui);
      EXPECT_EQ(aqui, tarjetas);
      EXPECT_EQ(
          "", r.p.filas(cliente, u8("SELECT cActo FROM Diario_Acto")) + r.p.filas(u8("SELECT cActo FROM Diario_Acto")));
      if (!toco && !murio) {
        EXPECT_EQ("1", aqui);
        EXPECT_GT(n, 12);
        break;
      }
    }
  }
}

class ProgramasGuion final : public Programas {
 public:
  QStringList pasos;
  bool arranca = true;

  qint64 iniciar(const QString& titulo, const QString& programa, const QStringList& argumentos,
                 const QString& carpeta) override {
    pasos << u8("inicia ") + titulo + u' ' + QFileInfo(programa).fileName() + u' ' +
                 QFileInfo(argumentos.value(0)).fileName() + u' ' + QDir(carpeta).dirName();
    return arranca ? 41 : 0;
  }
  bool esperar(qint64 proceso) override {
    pasos << u8("espera %1").arg(proceso);
    return true;
  }
  qint64 buscar(const QString&) const override { return 40; }
  bool cerrar(const QString& titulo) override {
    pasos << u8("cierra ") + titulo;
    return true;
  }
  bool abrir(const QString&) override { return false; }
};

TEST(Foto, IsTakenFromTheCamerasFolderUnderItsNextNumber) {
  PuestoPrueba p;
  auto programas = std::make_shared<ProgramasGuion>();
  p.programas = programas;
  FotoCliente f;
  p.persona().espera(u8("No se ha definido configuración para el uso de la aplicación del WebCam."));
  EXPECT_FALSE(IniciarFoto(p, f));
  p.ejecuta(u8("UPDATE Configuracion SET sWebCName = 'Camara', sWebCRout = '/no/hay', sFotoPref = 'cli', sFotoExte = "
               "'JPG'"));
  p.persona().espera(u8("Ruta de la aplicación del WebCam definida en la configuración no es válida."));
  EXPECT_FALSE(IniciarFoto(p, f));
  const auto escribir = [&p](const char* nombre) {
    QFile a(p.rutas.enPrograma(u8("Fotos Nuevas/") + u8(nombre)));
    EXPECT_TRUE(a.open(QIODevice::WriteOnly) && a.write(nombre) > 0);
  };
  QFile camara(p.rutas.enPrograma(u8("camara")));
  ASSERT_TRUE(camara.open(QIODevice::WriteOnly));
  p.ejecuta(u8("UPDATE Configuracion SET nUFotNumb = 6, sWebCRout = '%1'").arg(camara.fileName()));
  QDir().mkpath(p.rutas.enPrograma(u8("Fotos Nuevas")));
  escribir("CLI099.jpg");
  ASSERT_TRUE(IniciarFoto(p, f));
  EXPECT_EQ(u8("cierra Camara,espera 40,inicia Camara camara cli007.JPG Fotos Nuevas"), programas->pasos.join(u','));
  QString ruta;
  EXPECT_EQ(TickFoto::Espera, MirarFoto(p, f, ruta)) << "what lay there is gone";
  for (const char* otro : {"cli1.jpg", "cli002.png", "x003.jpg", "cli001.jpg", "Cli010.jpg", "cli009.jpg"})
    escribir(otro);
  EXPECT_EQ(TickFoto::Lista, MirarFoto(p, f, ruta));
  EXPECT_EQ(p.rutas.enPrograma(u8("Fotos/cli007.jpg")), ruta);
  QFile foto(ruta);
  ASSERT_TRUE(foto.open(QIODevice::ReadOnly));
  EXPECT_EQ("Cli010.jpg", foto.readAll()) << "the highest number";
  EXPECT_EQ("7", p.filas(u8("SELECT nUFotNumb FROM Configuracion")));
  EXPECT_EQ(u8("cierra Camara"), programas->pasos.back());

  ASSERT_TRUE(IniciarFoto(p, f));
  for (int n = 1; n <= 60; ++n) EXPECT_EQ(TickFoto::Espera, MirarFoto(p, f, ruta));
  EXPECT_EQ(TickFoto::SinFoto, MirarFoto(p, f, ruta));
  EXPECT_EQ("7", p.filas(u8("SELECT nUFotNumb FROM Configuracion")));
  programas->arranca = false;
  p.persona().espera(u8("No se pudo iniciar la aplicación del WebCam"));
  EXPECT_FALSE(IniciarFoto(p, f));
}

}  // namespace
