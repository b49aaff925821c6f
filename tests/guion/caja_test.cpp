// Plays screenplays on the real till: those of guiones/pruebas, each on a copy of the demo desk that the first of them
// has opened, and sales that a fault or a kill interrupts at one step after the other. What they wrote is compared with
// the file beside them; what they left, with the store, read through the support console, and the paper.
#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <numeric>

#include "obra.h"

namespace {

const QString kPruebas = QStringLiteral(TARVOPOS_FUENTES "/guiones/pruebas");

// The desk that the opening's play has opened, made once.
const PuestoDeObra& abierto() {
  static const PuestoDeObra puesto = [] {
    PuestoDeObra p;
    EXPECT_EQ("", primeraDiferencia(leerTexto(kPruebas + QStringLiteral("/apertura.salida")),
                                    p.toca(kPruebas + QStringLiteral("/apertura.guion"))));
    return p;
  }();
  return puesto;
}

void tocaComoSeEspera(const PuestoDeObra& p, const QString& obra) {
  EXPECT_EQ("", primeraDiferencia(leerTexto(kPruebas + u'/' + obra + QStringLiteral(".salida")),
                                  p.toca(kPruebas + u'/' + obra + QStringLiteral(".guion"))));
}

TEST(Caja, OpeningIsStoredWithItsTurnAndFloat) {
  EXPECT_EQ(abierto().filas(QStringLiteral("SELECT cCodiTurno, nImporApertSol, nImporApertDol FROM Configuracion")),
            "[\"01\",1100.5,0]");
}

TEST(Caja, ARefusalToGoOnWithoutTheCentralDatabaseHarmsNothing) {
  const PuestoDeObra p(abierto());
  p.toca(kPruebas + QStringLiteral("/sin_central.guion"));
  EXPECT_TRUE(p.tocaLineas("reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\n").endsWith(u"ok\n[estado 0]\n"))
      << "the next start works";
}

// "Ver Reporte" gives the statement on the alternate printer and as a PDF, whose place is told.
TEST(Caja, AStatementIsPrintedAndKept) {
  const PuestoDeObra p(abierto());
  const QString dicho = p.tocaLineas(
      "reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\nescribe txtPassword caja\ntecla Enter\n"
      "espera frmPrincipal\ntecla Ctrl+F\nespera frmCajaFacturacionPagos\ntecla 1\ntecla Enter\ntecla Enter\n"
      "tecla Down\ntecla Enter\ntecla Enter\ntecla Down 2\ncelda TDGFacturacion 1 1 209\ntecla Ctrl+Enter\n"
      "tecla Esc\nespera frmPrincipal\ntecla Ctrl+E\nespera frmConsultaCtaCteCliente\nescribe txtTarjeta 1\n"
      "tecla Enter\ntecla Alt+R\n");
  const QString pdf = p.ruta() + QStringLiteral("/Temp/EstadoCuenta_00000001_24112026.pdf");
  EXPECT_TRUE(dicho.contains(QStringLiteral("El estado de cuenta quedó guardado en:\\n") + pdf))
      << qUtf8Printable(dicho);
  QFile f(pdf);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_TRUE(f.readAll().startsWith("%PDF-"));
  const QString raya = QString(39, u'-') + u'\n';
  EXPECT_TRUE(p.papel(QStringLiteral("LPT2"))
                  .endsWith(QStringLiteral("           ESTADO DE CUENTA\n           24/11/2026 09:00\n") + raya +
                            QStringLiteral("Cliente: MUÑOZ IBÁÑEZ ROSA ELENA\nTarjeta: 00000001   Local: 1\n") + raya +
                            QStringLiteral("BADE 001-000001 24/11/2026    S/. 45.00\n"
                                           "  Saldo                       S/. 45.00\n") +
                            raya +
                            QStringLiteral("DEUDA EN SOLES                S/. 45.00\n"
                                           "DEUDA EN DOLARES               US$ 0.00\n")))
      << qUtf8Printable(p.papel(QStringLiteral("LPT2")));
}

// A register: the play up to the commit of a first sale, what takes that sale off the screen and types another, with
// article 101, and a field that is empty once a sale is over.
struct RegistradoraDePrueba {
  const char *nombre, *hastaElPago, *otraVenta, *vacio;
};
const RegistradoraDePrueba kRegistradoras[] = {
    {"Full",
     "reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\nescribe txtPassword caja\ntecla Enter\n"
     "espera frmPrincipal\nclic mnuOperaciones_Hijo(4)\nespera frmCajaRegistradoraFull\ncelda TDBGrid1 1 1 206\n",
     "clic cmdTecla(0)\ncelda TDBGrid1 1 1 101\n", "txtSoles"},
    {"Rapida",
     "reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\nescribe txtPassword caja\ntecla Enter\n"
     "espera frmPrincipal\nclic mnuOperaciones_Hijo(3)\nespera frmCajaRegistradora\ntecla F2\ntecla Ctrl+A\n",
     "tecla Ctrl+Z\ntecla F1\ntecla Ctrl+A\n", "lblTotal"},
};
// The smallest screens of the list that ./pantallas plays in whole; a large one takes no more than a small one.
TEST(Caja, EveryScreenIsSeenWhole) {
  QStringList medidas{"1024x768-40", "1920x1080-40@1.5", "1920x1080-40@2"};
  if (qEnvironmentVariableIsSet("TARVOPOS_LARGO")) medidas += {"1366x768-40", "1920x1080-40", "1920x1080-40@1.25"};
  for (const QString& medida : medidas) {
    SCOPED_TRACE(qPrintable(medida));
    const PuestoDeObra p;
    const QString nueva = p.ruta() + QStringLiteral("/nueva");
    ASSERT_TRUE(QDir().mkdir(nueva));
    for (const auto& [obra, puesto] :
         {std::pair(QStringLiteral("pantallas"), p.ruta()), std::pair(QStringLiteral("pantallas_inicio"), nueva)}) {
      const QString dice = p.admin({"guion", QStringLiteral(TARVOPOS_FUENTES "/guiones/") + obra + ".guion", "--puesto",
                                    puesto, "--salida", p.ruta(), "--pantalla", medida});
      EXPECT_TRUE(dice.endsWith(u"[estado 0]\n")) << qPrintable(dice);
      EXPECT_EQ(QStringList(), dice.split(u'\n').filter(QStringLiteral("falta|")));
    }
  }
}

// Keys without any delay follow the key before them; a scanner's do not. Every one of them counts.
TEST(Caja, FastHandsAreNoScanner) {
  const int ventas = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 500 : 40;
  const PuestoDeObra p(abierto());
  QByteArray lineas = "reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\nescribe txtPassword caja\ntecla Enter\n"
                      "espera frmPrincipal\nclic mnuOperaciones_Hijo(3)\nespera frmCajaRegistradora\nritmo 0\n";
  int piezas = 0;
  for (int n = 0; n < ventas; ++n) {
    const int cantidad = n % 3 == 0 ? 1200 + n : 1 + n % 90;
    piezas += cantidad;
    lineas += "tecla F1\n";
    for (const char c : QByteArray::number(cantidad)) lineas += QByteArray("tecla ") + c + '\n';
    lineas += n % 2 == 0 ? "tecla Enter\ntecla F2\ntecla 2\ntecla Ctrl+A\n" : "tecla F2\ntecla 2\ntecla Ctrl+A\n";
    lineas += "tecla Ctrl+Enter\n";
  }
  EXPECT_FALSE(p.tocaLineas(lineas).contains(u"caja|TarvoPos|Articulo"));
  EXPECT_EQ(
      QStringLiteral("[%1,%2]").arg(piezas).arg(2 * ventas),
      p.filas(QStringLiteral("SELECT SUM(IIF(cProdCode=101, nProdCant, 0)), SUM(IIF(cProdCode=102, nProdCant, 0)) "
                             "FROM Operacion")));
  EXPECT_EQ(ventas, p.numeros().size());
}

class Registradoras : public testing::TestWithParam<RegistradoraDePrueba> {};
INSTANTIATE_TEST_SUITE_P(Caja, Registradoras, testing::ValuesIn(kRegistradoras),
                         [](const auto& r) { return r.param.nombre; });
const QByteArray kHastaElPago = kRegistradoras[0].hastaElPago;

// No number is on two papers, the counters are not behind any number in use, and the store is sound.
void exigirNumerosSanos(const PuestoDeObra& p) {
  QStringList numeros = p.numeros();
  EXPECT_EQ(numeros.removeDuplicates(), 0) << qUtf8Printable(p.papel());
  EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*) FROM Operacion WHERE cDocCodigo > "
                                   "(SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc = '02')")),
            "[0]");
  EXPECT_TRUE(p.admin({QStringLiteral("verificar"), p.ruta()}).endsWith(u"[estado 0]\n"));
}

// Without the long run only the steps around the number and the rows have their turn; with it all that a sale has, up
// to the first that is not there.
std::vector<int> pasosDeLaVenta() {
  if (!qEnvironmentVariableIsSet("TARVOPOS_LARGO")) return {1, 9, 15, 16, 17};
  std::vector<int> todos(60);
  std::iota(todos.begin(), todos.end(), 1);
  return todos;
}

TEST_P(Registradoras, AFailedStatementLeavesADeskThatSellsOn) {
  for (const int n : pasosDeLaVenta()) {
    SCOPED_TRACE(n);
    const PuestoDeObra p(abierto());
    const QString escrito = p.tocaLineas(GetParam().hastaElPago + QByteArray("falla ") + QByteArray::number(n) +
                                         "\ntecla Ctrl+Enter\nfalla 0\n" + GetParam().otraVenta + "tecla Ctrl+Enter\n");
    EXPECT_TRUE(escrito.endsWith(u"ok\n[estado 0]\n")) << qUtf8Printable(escrito);
    if (!escrito.contains(u"Falla pedida") && n > 20) return;  // a sale has no such step
    // The sale behind the fault is whole: a line and its tender.
    EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*) FROM Operacion WHERE cOperCode = "
                                     "(SELECT cOperCode FROM Operacion WHERE cProdCode = 101)")),
              "[2]");
    exigirNumerosSanos(p);
  }
}

TEST_P(Registradoras, AKillAtAnyStepLeavesADeskThatStartsAndSellsOn) {
  for (const int n : pasosDeLaVenta()) {
    for (const QByteArray& momento : {QByteArray("antes "), QByteArray("despues ")}) {
      SCOPED_TRACE(momento.toStdString() + std::to_string(n));
      const PuestoDeObra p(abierto());
      const QString escrito = p.tocaLineas(GetParam().hastaElPago + QByteArray("mata ") + momento +
                                           QByteArray::number(n) + "\ntecla Ctrl+Enter\n");
      if (!escrito.endsWith(u"[señal]\n")) {
        EXPECT_GT(n, 17) << qUtf8Printable(escrito);
        return;
      }
      const QString despues =
          p.tocaLineas(GetParam().hastaElPago + QByteArray("tecla Ctrl+Enter\nlee ") + GetParam().vacio + '\n');
      EXPECT_TRUE(despues.endsWith(QString::fromLatin1(GetParam().vacio) + QStringLiteral("=\nok\n[estado 0]\n")))
          << qUtf8Printable(despues);
      exigirNumerosSanos(p);
    }
  }
}

// Beside NAME.guion and NAME.salida, each only where a play needs it: NAME.antes, statements that come before it;
// NAME.filas, a query and its rows in turn; NAME.papel, how the paper of LPT1 begins, NAME.papel_alterna, that of LPT2;
// NAME.renglones, "N:LINE" for a line that stands N times on all paper.
class ObraDeCaja : public testing::TestWithParam<QString> {
 protected:
  QStringList lineas(const char* clase) const {
    const QString archivo = kPruebas + u'/' + GetParam() + QLatin1String(clase);
    return QFile::exists(archivo) ? leerTexto(archivo).split(u'\n', Qt::SkipEmptyParts) : QStringList();
  }
  void dejaLoQueEstaASuLado(const PuestoDeObra& p) const;
};

void ObraDeCaja::dejaLoQueEstaASuLado(const PuestoDeObra& p) const {
  for (const QString& sql : lineas(".antes")) EXPECT_TRUE(p.filas(sql).contains(u"afectadas")) << qUtf8Printable(sql);
  tocaComoSeEspera(p, GetParam());
  const QStringList filas = lineas(".filas"), renglones = p.renglones();
  ASSERT_EQ(filas.size() % 2, 0);
  for (qsizetype i = 0; i < filas.size(); i += 2)
    EXPECT_EQ(filas[i + 1], p.filas(filas[i])) << qUtf8Printable(filas[i]);
  for (const auto& [clase, puerto] : {std::pair(".papel", "LPT1"), {".papel_alterna", "LPT2"}}) {
    const QString archivo = kPruebas + u'/' + GetParam() + QLatin1String(clase);
    const QString papel = QFile::exists(archivo) ? leerTexto(archivo) : QString();
    EXPECT_EQ("", primeraDiferencia(papel, p.papel(QLatin1String(puerto)).left(papel.size()))) << clase;
  }
  for (const QString& r : lineas(".renglones")) {
    EXPECT_EQ(r.section(u':', 0, 0).toInt(), renglones.count(r.section(u':', 1))) << qUtf8Printable(r);
  }
}

// The opening is played by each of the others.
std::vector<QString> obrasSinApertura() {
  std::vector<QString> obras = obrasDe(kPruebas);
  std::erase(obras, QStringLiteral("apertura"));
  return obras;
}

TEST_P(ObraDeCaja, LeavesWhatStandsBesideIt) { dejaLoQueEstaASuLado(PuestoDeObra(abierto())); }

INSTANTIATE_TEST_SUITE_P(Pruebas, ObraDeCaja, testing::ValuesIn(obrasSinApertura()),
                         [](const auto& obra) { return obra.param.toStdString(); });

// Those that write most at the centre, with their servers on PostgreSQL.
class ObraEnPostgres : public ObraDeCaja {};

TEST_P(ObraEnPostgres, LeavesTheSame) {
  const PuestoDeObra p(QStringLiteral("2026-11-24 09:00:00"));
  tocaComoSeEspera(p, QStringLiteral("apertura"));
  dejaLoQueEstaASuLado(p);
}

INSTANTIATE_TEST_SUITE_P(Pruebas, ObraEnPostgres,
                         testing::Values(QStringLiteral("anula_credito"), QStringLiteral("cliente_nuevo"),
                                         QStringLiteral("credito_vida"), QStringLiteral("credito_avisos")),
                         [](const auto& obra) { return obra.param.toStdString(); });

}  // namespace
