// Plays screenplays on the real till: those of guiones/pruebas, each on a copy of the demo desk that the first of them
// has opened, and sales that a fault or a kill interrupts at one step after the other. What they wrote is compared with
// the file beside them; what they left, with the store, read through the support console, and the paper.
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <numeric>

#include "admin/demo_papel.h"
#include "obra.h"

namespace {

const QString kPruebas = QStringLiteral(TARVOPOS_FUENTES "/guiones/pruebas");

QString admin(const QStringList& palabras, const QByteArray& entrada = {}) {
  return tocar(carpetaDePruebas() + QStringLiteral("/../bin/tarvopos-admin"), palabras, entrada);
}

// A desk of its own in a folder that goes with it.
class Puesto {
 public:
  // A demo desk as it is made.
  Puesto() { EXPECT_TRUE(admin({QStringLiteral("crear-puesto"), ruta(), QStringLiteral("--demo")}).endsWith(u"[estado 0]\n")); }
  Puesto(const Puesto& otro) {
    const QDir de(otro.ruta());
    QDir().mkpath(ruta());
    for (const QString& f : de.entryList(QDir::Files)) QFile::copy(de.filePath(f), ruta() + u'/' + f);
  }
  Puesto& operator=(const Puesto&) = delete;

  QString ruta() const { return carpeta_.filePath(QStringLiteral("puesto")); }
  QString toca(const QString& guion) const {
    return admin({QStringLiteral("guion"), guion, QStringLiteral("--puesto"), ruta()});
  }
  QString tocaLineas(const QByteArray& lineas) const {
    return admin({QStringLiteral("guion"), QStringLiteral("-"), QStringLiteral("--puesto"), ruta()}, lineas);
  }
  // The rows of a query on the store as the console writes them: "[1,"a"],[2,"b"]".
  QString filas(const QString& sql) const {
    const QString r = admin({QStringLiteral("sql"), QStringLiteral("--puesto"), ruta(), QStringLiteral("--base"),
                             QStringLiteral("local")},
                            sql.toUtf8() + '\n');
    const QString marca = QStringLiteral("\"filas\":[");
    const qsizetype i = r.indexOf(marca), fin = r.lastIndexOf(QStringLiteral("]}"));
    return i < 0 || fin < 0 ? r : r.mid(i + marca.size(), fin - i - marca.size());
  }
  QString papel() const {
    QFile f(ruta() + QStringLiteral("/puertos/LPT1"));
    return f.open(QIODevice::ReadOnly) ? TextoDePapel(f.readAll()) : QString();
  }
  // The numbers of the tickets on the paper, in their order.
  QStringList numeros() const {
    static const QRegularExpression nro(QStringLiteral("TK NRO: \\d+-(\\d+)"));
    QStringList r;
    for (auto i = nro.globalMatch(papel()); i.hasNext();) r << i.next().captured(1);
    return r;
  }

 private:
  QTemporaryDir carpeta_;
};

// The desk that the opening's play has opened, made once.
const Puesto& abierto() {
  static const Puesto puesto = [] {
    Puesto p;
    EXPECT_EQ("", primeraDiferencia(leerTexto(kPruebas + QStringLiteral("/apertura.salida")),
                                    p.toca(kPruebas + QStringLiteral("/apertura.guion"))));
    return p;
  }();
  return puesto;
}

void tocaComoSeEspera(const Puesto& p, const QString& obra) {
  EXPECT_EQ("", primeraDiferencia(leerTexto(kPruebas + u'/' + obra + QStringLiteral(".salida")),
                                  p.toca(kPruebas + u'/' + obra + QStringLiteral(".guion"))));
}

const QString kContadores = QStringLiteral(
    "SELECT cTipoDoc, cOperCode, nDocCodigo FROM Config_Documento WHERE cTipoDoc IN ('01','02')");
const QString kCorrelativos = QStringLiteral("SELECT prn, idct FROM _Tmp1 ORDER BY prn");
const QString kFilas = QStringLiteral(
    "SELECT cOperCode, cOperTipo, cDocTipo, cDocCodigo, cRuc, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, "
    "nMontoDolares, cUserDesc, cTurnoCodi FROM Operacion ORDER BY cOperID");

TEST(Caja, OpeningIsStoredWithItsTurnAndFloat) {
  EXPECT_EQ(abierto().filas(QStringLiteral("SELECT cCodiTurno, nImporApertSol, nImporApertDol FROM Configuracion")),
            "[\"01\",1100.5,0]");
}

TEST(Caja, AVoidLeavesAMirrorAndGivesThePointsBack) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("anula"));
  EXPECT_EQ(p.filas(QStringLiteral("SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit, cOperFlagAnula, "
                                   "cOperCodeAnula FROM Operacion ORDER BY cOperID")),
            "[1,101,1,38,1,0],[1,0,1,0,1,0],[2,101,-1,38,1,1]");
  EXPECT_TRUE(p.papel().contains(QLatin1String(" TIENE ACUMULADO: 123 PUNTOS\n")));
  EXPECT_EQ(p.papel().count(QLatin1String("          TRANSACCION ANULADA\n")), 2);
  EXPECT_EQ(p.filas(kCorrelativos), "[1,2],[2,0]");  // the copy draws none
}

TEST(Caja, SalesAreOnPaperAndInTheStore) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("venta"));
  // A boleta paid with 30 dollars, 18.00 soles back; a factura paid exact. Both kinds share one run of numbers.
  EXPECT_EQ(p.filas(kFilas),
            "[1,1,\"02\",1,\"\",101,2,38,0,0,\"CAJERO\",\"01\"],[1,1,\"02\",1,\"\",303,1,18.5,0,0,\"CAJERO\",\"01\"],"
            "[1,1,\"02\",1,\"\",0,1,-18,0,30,\"CAJERO\",\"01\"],"
            "[2,1,\"01\",2,\"20999999991\",807,1,92,0,0,\"CAJERO\",\"01\"],"
            "[2,1,\"01\",2,\"20999999991\",0,1,0,92,0,\"CAJERO\",\"01\"]");
  EXPECT_EQ(p.filas(kContadores), "[\"01\",2,0],[\"02\",1,2]");
  EXPECT_EQ(p.filas(kCorrelativos), "[1,2],[2,0]");
  EXPECT_EQ(p.numeros().join(u' '), "000001 000002");
  for (const char* linea : {" VUELTO(S/)                      18.00\n", " RUC Cliente: 20999999991\n",
                            " IGV                             14.03\n", "         Correlativo: 000002\n"}) {
    EXPECT_TRUE(p.papel().contains(QLatin1String(linea))) << linea;
  }
  QFile prn(p.ruta() + QStringLiteral("/Temp/textfile.prn"));
  ASSERT_TRUE(prn.open(QIODevice::ReadOnly));
  const QByteArray ultimo = prn.readAll();
  EXPECT_TRUE(ultimo.startsWith("\x1B@\r\n") && ultimo.endsWith("\x1DV\x01\r\n"));
  EXPECT_TRUE(ultimo.contains("MA\xCDZ SACO 50 KG     1  92.00     92.00\r\n"));
}

TEST(Caja, MenusAndASecondStartInOnePlay) { tocaComoSeEspera(Puesto(abierto()), QStringLiteral("menus")); }

TEST(Caja, SearchesLeaveTheStoreAsItWas) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("busquedas"));
  EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*) FROM Operacion")), "[0]");
}

TEST(Caja, CardsAndCashPayASale) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("voucher"));
  EXPECT_EQ(p.filas(QStringLiteral("SELECT cOperTipo, cProdCode, nProdPrecUnit, nMontoSoles, cEmisor FROM Operacion")),
            "[2,807,92,0,\",001,002\"],[1,0,0,12,\",001,002\"]");
}

TEST(Caja, DollarsAndChangeOfTheQuickRegister) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("efectivo"));
  EXPECT_EQ(p.filas(QStringLiteral("SELECT nProdPrecUnit, nMontoSoles, nMontoDolares, nVueltoDolares FROM Operacion "
                                   "WHERE cProdCode = 0")),
            "[-17.75,0,30,5],[0,36,0,0]");
}

TEST(Caja, WithdrawalsAndTheirReceipts) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("retiro"));
  EXPECT_EQ(p.filas(QStringLiteral("SELECT cOperCode, nProdPrecUnit FROM Operacion WHERE cOperTipo = 5")),
            "[1,1500.5],[3,40]");
  QFile recibo(p.ruta() + QStringLiteral("/impresos/Ticketera_000002.txt"));
  ASSERT_TRUE(recibo.open(QIODevice::ReadOnly));
  EXPECT_TRUE(recibo.readAll().contains("\n         *40.00")) << "the refused and the failed ones left no receipt";
}

const QString kParalelas = QStringLiteral(
    "SELECT cOperCode, cOperTipo, nMontoSoles, nMontoDolares, nEfectivoSoles, cEstado, cOperCodeRela, sGlosa "
    "FROM OperacionParalela ORDER BY cOperCode");
const QString kDinero = QStringLiteral(
    "SELECT cOperCode, cOperTipo, cDocTipo, cDocSerie, cProdCode, nProdPrecUnit, nMontoSoles, nMontoDolares, "
    "cOperCodeAnula, cEmisor FROM Operacion ORDER BY cOperID");

TEST(Caja, AdvancePaymentsNotesOrdersAndTheirLiquidation) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("paralelas"));
  EXPECT_EQ(p.filas(kParalelas),
            "[1,22,75,20,0,\"2\",6,\"Cumpleaños\"],[2,23,50,13.33,50,\"2\",6,\"\"],[3,21,152,40.53,0,\"2\",6,\"\"],"
            "[4,20,18.5,4.93,18.5,\"1\",0,\"Club Social\"],[5,20,18.5,4.93,0,\"1\",0,\"\"],"
            "[6,24,27,7.2,50,\"2\",0,\"\"]");
  EXPECT_EQ(p.filas(kDinero),
            "[2,2,\"13\",\"001\",0,0,-50,0,0,\"\"],[4,1,\"10\",\"001\",0,0,18.5,0,0,null],"
            "[5,1,\"10\",\"001\",0,-19,0,10,0,null],[6,1,\"14\",\"001\",0,-23,50,0,0,null],"
            "[7,3,\"02\",\"001\",101,38,0,0,6,\"\"],[7,3,\"02\",\"001\",0,0,152,0,6,\"\"]");
}

TEST(Caja, ALiquidationPaidByCardAndItsFactura) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("liquida_con_tarjeta"));
  EXPECT_EQ(p.filas(kParalelas), "[1,22,30,8,30,\"2\",3,\"\"],[2,21,38,10.13,0,\"2\",3,\"\"],[3,24,8,2.13,3,\"2\",0,\"\"]");
  EXPECT_EQ(p.filas(kDinero),
            "[3,1,\"14\",\"001\",0,0,3,0,0,null],[3,2,\"14\",\"001\",0,0,5,0,0,\"\"],"
            "[4,3,\"01\",\"001\",101,38,0,0,3,\",001\"]");
}

TEST(Caja, RefusedCardsAndSupervisors) { tocaComoSeEspera(Puesto(abierto()), QStringLiteral("avisos")); }

TEST(Caja, TheThirdWrongPasswordEndsTheProgram) { tocaComoSeEspera(Puesto(abierto()), QStringLiteral("clave")); }

TEST(Caja, DoesNotStartWithoutTheCentralDatabase) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("sin_central"));
  EXPECT_TRUE(p.tocaLineas("reloj 24/11/2026 09:00:00\ninicia\nespera frmPassword\n").endsWith(u"ok\n[estado 0]\n"))
      << "the next start works";
}

TEST(Caja, TheQuickRegisterSellsAndHandsOver) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("rapida"));
  // Change in both currencies, exact cash, a factura by voucher, and a sale that went over to the full register.
  EXPECT_EQ(p.filas(kFilas),
            "[1,1,\"02\",1,\"\",101,2,38,0,0,\"CAJERO\",\"01\"],[1,1,\"02\",1,\"\",102,1,36,0,0,\"CAJERO\",\"01\"],"
            "[1,1,\"02\",1,\"\",0,1,-38,0,40,\"CAJERO\",\"01\"],"
            "[2,1,\"02\",2,\"\",206,1,3,0,0,\"CAJERO\",\"01\"],[2,1,\"02\",2,\"\",0,1,0,3,0,\"CAJERO\",\"01\"],"
            "[3,2,\"01\",3,\"20999999991\",401,2,15.9,0,0,\"CAJERO\",\"01\"],"
            "[4,1,\"02\",4,\"\",101,3,38,0,0,\"CAJERO\",\"01\"],[4,1,\"02\",4,\"\",301,1,24.9,0,0,\"CAJERO\",\"01\"],"
            "[4,1,\"02\",4,\"\",206,1,3,0,0,\"CAJERO\",\"01\"],[4,1,\"02\",4,\"\",0,1,0,141.9,0,\"CAJERO\",\"01\"]");
  EXPECT_EQ(p.numeros().join(u' '), "000001 000002 000003 000004");
}

TEST(Caja, SellsOnWhateverIsAway) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, QStringLiteral("central_cae"));
  EXPECT_EQ(p.numeros().join(u' '), "000001 000003") << "the second ticket met no paper";
  EXPECT_EQ(p.filas(QStringLiteral("SELECT DISTINCT cDocCodigo FROM Operacion ORDER BY 1")), "[1],[2],[3]");
}

TEST(Caja, ReportsOfTheTurnAndOfADate) {
  const Puesto p(abierto());
  EXPECT_EQ(p.filas(QStringLiteral("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) "
                                   "VALUES ('rovel', 'soporte', 1, 1)")), "{\"afectadas\":1}\n[estado 0]\n");
  tocaComoSeEspera(p, QStringLiteral("reportes"));
  EXPECT_EQ(p.papel().count(QStringLiteral("X  CHECK                             01")), 1) << "the second had no central database";
  EXPECT_EQ(p.papel().count(QStringLiteral("Z  CHECK                             01")), 1);
  EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*) FROM Operacion WHERE cOperTipo = 10")), "[3]");
  EXPECT_EQ(p.filas(QStringLiteral("SELECT idz, Imac FROM _Tmp1 WHERE prn = 1")), "[0,0]") << "by date no counter moves";
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
class Registradoras : public testing::TestWithParam<RegistradoraDePrueba> {};
INSTANTIATE_TEST_SUITE_P(Caja, Registradoras, testing::ValuesIn(kRegistradoras),
                         [](const auto& r) { return r.param.nombre; });

// No number is on two papers, the counters are not behind any number in use, and the store is sound.
void exigirNumerosSanos(const Puesto& p) {
  QStringList numeros = p.numeros();
  EXPECT_EQ(numeros.removeDuplicates(), 0) << qUtf8Printable(p.papel());
  EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*) FROM Operacion WHERE cDocCodigo > "
                                   "(SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc = '02')")),
            "[0]");
  EXPECT_TRUE(admin({QStringLiteral("verificar"), p.ruta()}).endsWith(u"[estado 0]\n"));
}

// Without the long run only the steps around the number and the rows have their turn; with it all that a sale has, up to
// the first that is not there.
std::vector<int> pasosDeLaVenta() {
  if (!qEnvironmentVariableIsSet("TARVOPOS_LARGO")) return {1, 9, 15, 16, 17};
  std::vector<int> todos(60);
  std::iota(todos.begin(), todos.end(), 1);
  return todos;
}

TEST_P(Registradoras, AFailedStatementLeavesADeskThatSellsOn) {
  for (const int n : pasosDeLaVenta()) {
    SCOPED_TRACE(n);
    const Puesto p(abierto());
    const QString escrito =
        p.tocaLineas(GetParam().hastaElPago + QByteArray("falla ") + QByteArray::number(n) +
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
      const Puesto p(abierto());
      const QString escrito = p.tocaLineas(GetParam().hastaElPago + QByteArray("mata ") + momento +
                                           QByteArray::number(n) + "\ntecla Ctrl+Enter\n");
      if (!escrito.endsWith(u"[señal]\n")) {
        EXPECT_GT(n, 17) << qUtf8Printable(escrito);
        return;
      }
      const QString despues =
          p.tocaLineas(GetParam().hastaElPago + QByteArray("tecla Ctrl+Enter\nlee ") + GetParam().vacio + '\n');
      EXPECT_TRUE(despues.endsWith(QString::fromLatin1(GetParam().vacio) + QStringLiteral("=\nok\n[estado 0]\n"))) << qUtf8Printable(despues);
      exigirNumerosSanos(p);
    }
  }
}

const QByteArray kHastaElSupervisor =
    "reloj 24/11/2026 21:00:00\ninicia\nespera frmPassword\nescribe txtPassword caja\ntecla Enter\nespera frmPrincipal\n"
    "responde Sí\nclic Toolbar1(11)\nespera frmAutorizarOperacion\nescribe txtUsuario SUPERVISOR\nescribe txtPassword super\n";
const QByteArray kElCuadre = "espera frmCuadre\nclic Command1\n";

// The opened desk with one sale of 3.00.
const Puesto& vendido() {
  static const Puesto puesto = [] {
    Puesto p(abierto());
    EXPECT_TRUE(p.tocaLineas(kRegistradoras[0].hastaElPago + QByteArray("tecla Ctrl+Enter\n")).endsWith(u"[estado 0]\n"));
    return p;
  }();
  return puesto;
}

std::vector<int> pasosDelCierre() {
  if (!qEnvironmentVariableIsSet("TARVOPOS_LARGO")) return {4, 30, 75, 110, 150};
  std::vector<int> todos(400);
  std::iota(todos.begin(), todos.end(), 1);
  return todos;
}

TEST(Caja, AClosingThatWasKilledIsEndedAfterTheNextStart) {
  for (const int n : pasosDelCierre()) {
    SCOPED_TRACE(n);
    const Puesto p(vendido());
    const QString escrito =
        p.tocaLineas(kHastaElSupervisor + "mata antes " + QByteArray::number(n) + "\ntecla Enter\n" + kElCuadre);
    if (!escrito.endsWith(u"[señal]\n")) {
      EXPECT_GT(n, 150) << qUtf8Printable(escrito);
      return;
    }
    const int paso = p.filas(QStringLiteral("SELECT iCierreCaja FROM Configuracion")).mid(1, 1).toInt();
    const QString despues = p.tocaLineas(kHastaElSupervisor + "tecla Enter\n" + (paso <= 4 ? kElCuadre : QByteArray()) +
                                         "espera frmPrincipal\nestado mnuMantenimiento_Hijo(8)\n");
    EXPECT_TRUE(despues.endsWith(u"visible activo fijo\nok\n[estado 0]\n")) << qUtf8Printable(despues);
    EXPECT_EQ(paso > 0, despues.contains(u"Se ha habilitado la Opcion Reporte Z"));
    EXPECT_EQ(p.filas(QStringLiteral("SELECT iCierreCaja FROM Configuracion")), "[6]");
    EXPECT_EQ(p.filas(QStringLiteral("SELECT prn, idz, Imac FROM _Tmp1 ORDER BY prn")), "[1,1,3],[2,1,3]");
    EXPECT_EQ(p.filas(QStringLiteral("SELECT COUNT(*), SUM(MontoTotal) FROM CabeceraZ")), "[1,3]");
    exigirNumerosSanos(p);
  }
}

// Plays with what they leave beside them: NAME.filas holds a query and its rows in turn, NAME.papel how the paper begins.
class ObraDeCaja : public testing::TestWithParam<QString> {};

TEST_P(ObraDeCaja, LeavesWhatStandsBesideIt) {
  const Puesto p(abierto());
  tocaComoSeEspera(p, GetParam());
  const QString base = kPruebas + u'/' + GetParam();
  const QStringList filas = leerTexto(base + QStringLiteral(".filas")).split(u'\n', Qt::SkipEmptyParts);
  ASSERT_TRUE(!filas.isEmpty() && filas.size() % 2 == 0);
  for (qsizetype i = 0; i < filas.size(); i += 2) EXPECT_EQ(filas[i + 1], p.filas(filas[i])) << qUtf8Printable(filas[i]);
  const QString papel = base + QStringLiteral(".papel");
  if (QFile::exists(papel)) {
    EXPECT_EQ(leerTexto(papel), p.papel().left(leerTexto(papel).size()));
  }
}

std::vector<QString> obrasConFilas() {
  std::vector<QString> obras = obrasDe(kPruebas);
  std::erase_if(obras, [](const QString& o) { return !QFile::exists(kPruebas + u'/' + o + QStringLiteral(".filas")); });
  return obras;
}

INSTANTIATE_TEST_SUITE_P(Pruebas, ObraDeCaja, testing::ValuesIn(obrasConFilas()),
                         [](const auto& obra) { return obra.param.toStdString(); });

}  // namespace
