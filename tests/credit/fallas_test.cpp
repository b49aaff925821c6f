// Each act of the billing screen with a statement of it failing, or the process dying before or behind it, at one
// statement after the other of both databases: behind the next start store and centre tell one story, the act as a
// whole or nothing of it, and where nothing stands the same screen does it.
#include <gtest/gtest.h>

#include <QFile>

#include "apoyo/plan_fallas.h"
#include "credit/anulacion_credito.h"
#include "credito_prueba.h"
#include "foundation/acto_doble.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

struct Muerto {};

enum class Modo { Falla, FallaDesdeAhi, MataAntes, MataDespues };

// Both databases of the act.
struct PlanDeAmbas : PlanFallas {
  PlanDeAmbas() {
    cuenta = [](const QString& cadena) { return !cadena.contains(u"cliente"); };
    catalogo = false;
    morir = [] { throw Muerto{}; };
  }
};

struct Escena {
  const char* nombre;
  void (*preparar)(Credito&);
  QString (*hacer)(Credito&);
};

QString comoTexto(const std::optional<QString>& r) { return r.value_or(QStringLiteral("hecho")); }

QString anular(Credito& e, ModoAnular modo, const char* serie) {
  AnularTransaccionCtaCte v;
  v.Modo = modo;
  v.txtSerie = q(serie);
  v.txtNumero = q("1");
  e.pantallas.supervisor = q("JEFE");
  const bool hecho = CargarDocumentoAnular(e.p, v) && v.cargado() && AceptarAnulacion(e.p, v, e.pantallas);
  return hecho ? q("hecho") : q("no");
}

// clang-format off
const Escena kEscenas[] = {
    {"Fade", [](Credito& e) { e.cliente(0); e.linea(e.v.factura.rejilla, "807", "9"); e.linea(e.v.factura.rejilla, "102", "1"); },
     [](Credito& e) { return e.facturar(); }},
    {"Pade", [](Credito& e) { (void)e.facturar(1, "10"); e.cargarPago("02", "000001"); },
     [](Credito& e) { return e.pagar(0, 1, "10"); }},
    {"Deposito", [](Credito& e) {
       e.cliente(0); e.linea(e.v.factura.rejilla, "807", "9"); (void)e.facturar(); e.cargarPago("01", "000001");
       e.v.pago.dcbFormaPago = 3; CambiarForma(e.v); e.v.pago.dcbBanco = 1; CambiarBanco(e.v);
       e.v.pago.txtNroOperacion = QStringLiteral("D-1"); },
     [](Credito& e) { return comoTexto(GrabarPago(e.p, e.v)); }},
    {"Nota", [](Credito& e) {
       (void)e.facturar(1, "10"); (void)e.consumir(1, "2"); e.cargarNota(1); e.linea(e.v.nota.rejilla, "101", "3");
       TotalesNota(e.p, e.v.nota); },
     [](Credito& e) { return comoTexto(GrabarNota(e.p, e.v, e.pantallas)); }},
    {"Liquidacion", [](Credito& e) {
       (void)e.facturar(1, "10"); (void)e.consumir(1, "2"); (void)e.consumir(1, "3"); e.cargarPago("02", "000001");
       (void)e.pagar(0, 0, "100"); e.v.liquidacion.txtTXL = QStringLiteral("1");
       (void)AgregarDocumentoLQ(e.p, e.v.liquidacion); },
     [](Credito& e) { return comoTexto(GrabarLiquidacion(e.p, e.v)); }},
    {"AnulaPago", [](Credito& e) { (void)e.facturar(1, "10"); e.cargarPago("02", "000001"); (void)e.pagar(0, 0, "40"); },
     [](Credito& e) { return anular(e, ModoAnular::PADE, "PA1"); }},
    {"AnulaBade", [](Credito& e) { (void)e.facturar(1, "10"); },
     [](Credito& e) { return anular(e, ModoAnular::BADE, "001"); }},
};
// clang-format on

// All that the acts write, in both places.
QString historia(Credito& e) {
  return e.central(
             "SELECT cCodVta, TipoDoc, NroDoc, TotVta, bLiquidado, FechaAnulacion FROM Venta01 ORDER BY cCodVta") +
         e.central("SELECT cCodVta, NroItem, cCodartic FROM Venta02 ORDER BY cCodVta, NroItem") +
         e.central(
             "SELECT cSerieDocPago, NroDocPago, NroItem, Monto, Moneda, FechaAnulacion FROM Pagos ORDER BY idpago") +
         e.central("SELECT NroDoc, Estado FROM Detraccion") +
         e.central("SELECT cCodVta, cOperCode, nMonto, bAnulado FROM ConsumoVenta ORDER BY cOperCode") + u'/' +
         e.local("SELECT cOperCode, cOperTipo, nMontoSoles, cEstado, cOperCodeRela, cDocCodigo FROM OperacionParalela "
                 "ORDER BY cOperCode") +
         e.local("SELECT cOperCode, cProdCode, nProdCant FROM OperacionParalelaProducto ORDER BY cOperCode") +
         e.local("SELECT cOperCode, nProdPrecUnit, cDocTipo FROM Operacion ORDER BY cOperID") +
         e.local("SELECT cTipoDoc, nDocCodigo, cSerieDoc FROM Config_Documento ORDER BY cTipoDoc") + u'/' +
         e.central("SELECT cActo FROM Diario_Acto") + e.local("SELECT cActo FROM Diario_Acto");
}

// The files of the desk as they lie at rest.
struct Archivos {
  PuestoPrueba& p;
  std::vector<std::pair<QString, QByteArray>> contenido;

  explicit Archivos(PuestoPrueba& puesto) : p(puesto) {
    p.poCnnLocal.cerrar();
    for (const char* nombre : {"TarvoPos.mdb", "central.db", "cliente.db"}) {
      QFile f(p.rutas.enPrograma(q(nombre)));
      EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << nombre;
      contenido.emplace_back(f.fileName(), f.readAll());
    }
    abrir();
  }
  void devolver() {
    p.poCnnLocal.cerrar();
    p.poCnnCentral.cerrar();
    for (const auto& [nombre, bytes] : contenido) {
      QFile::remove(nombre + q("-wal"));
      QFile::remove(nombre + q("-shm"));
      QFile f(nombre);
      EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    }
    abrir();
  }
  void abrir() {
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
  }
};

// The next start: nothing of the old connections lives, and the central database is looked at.
void empezarDeNuevo(Credito& e, PlanFallas& plan, Archivos& archivos) {
  plan.armar(0);
  plan.apagar(false);
  e.p.poCnnLocal.cerrar();
  e.p.poCnnCentral.cerrar();
  archivos.abrir();
  Conexion central;
  ASSERT_TRUE(e.p.poDBAdmin.AbrirBD(central, e.p.ses.psConexionCentral));
  EXPECT_TRUE(TerminarActos(e.p, ServidorActo::Central, central));
}

class ActosConFallas : public testing::TestWithParam<std::tuple<Modo, Escena>> {};

TEST_P(ActosConFallas, LeaveOneStory) {
  const auto& [modo, escena] = GetParam();
  PlanDeAmbas plan;
  plan.armar(0);
  Credito e([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
  e.p.persona().dejaPasar();
  escena.preparar(e);
  const CajaFacturacionPagos pantalla = e.v;
  const QString antes = historia(e);
  Archivos archivos(e.p);
  ASSERT_EQ(q("hecho"), escena.hacer(e));
  const QString despues = historia(e);
  ASSERT_NE(antes, despues);
  int veces = 0;
  // Every third statement has its turn; all of them in the long run.
  const int paso = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 1 : 3;
  for (int n = 1 + static_cast<int>(modo) % paso; n < 200; n += paso, ++veces) {
    SCOPED_TRACE(n);
    archivos.devolver();
    e.v = pantalla;
    const bool mata = modo == Modo::MataAntes || modo == Modo::MataDespues;
    plan.armar(n, modo == Modo::FallaDesdeAhi ? Falla::desdeAhi : Falla::unaVez,
               !mata                     ? Muerte::no
               : modo == Modo::MataAntes ? Muerte::antes
                                         : Muerte::despues);
    QString fin;
    bool muerto = false;
    try {
      fin = escena.hacer(e);
    } catch (const Muerto&) {
      muerto = true;
    }
    const bool tocado = mata ? muerto : plan.van() >= n;
    const QString laQueFue = plan.sentencias.value(n - 1);
    empezarDeNuevo(e, plan, archivos);
    if (!tocado) break;
    const QString ahora = historia(e);
    if (ahora == despues) continue;
    EXPECT_EQ(antes.toStdString(), ahora.toStdString()) << qPrintable(laQueFue);
    EXPECT_NE(q("hecho"), fin) << qPrintable(laQueFue);
    // The screen of a process that lives on still holds it all.
    if (mata) e.v = pantalla;
    EXPECT_EQ(q("hecho"), escena.hacer(e)) << qPrintable(laQueFue);
    EXPECT_EQ(despues.toStdString(), historia(e).toStdString()) << qPrintable(laQueFue);
  }
  EXPECT_GE(veces * paso, 15);
}

std::string nombreDe(const testing::TestParamInfo<std::tuple<Modo, Escena>>& caso) {
  const char* const modos[] = {"Falla", "FallaDesdeAhi", "MataAntes", "MataDespues"};
  return std::string(std::get<1>(caso.param).nombre) + modos[static_cast<int>(std::get<0>(caso.param))];
}

INSTANTIATE_TEST_SUITE_P(Credito, ActosConFallas,
                         testing::Combine(testing::Values(Modo::Falla, Modo::FallaDesdeAhi, Modo::MataAntes,
                                                          Modo::MataDespues),
                                          testing::ValuesIn(kEscenas)),
                         nombreDe);

}  // namespace
