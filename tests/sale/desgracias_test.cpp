// Sales beside servers that went silent and on a disk that is full.
#include <sys/resource.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <algorithm>
#include <csignal>

#include "apoyo/servidor_mudo.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

void vender(PuestoDeVenta& p) {
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  v.rejilla.filas = {filaVenta(101, q("Cafe"), 10, 3), filaVenta(102, q("Torta"), 12.5)};
  (void)GrabarVenta(p, v, pantallas);
}

TEST(Silencio, CostsASaleTwoSecondsOnceAMinute) {
  // clang-format off
  const struct { const char* porque; Mudez como; bool central, cliente; qint64 alMenos_ms, aLoMas_ms; } kCasos[] = {
      {"central never answers", Mudez::recibe, true, false, 1500, 2000},
      {"client never answers", Mudez::recibe, false, true, 1500, 2000},
      {"both, on hosts that drop every packet", Mudez::colaLlena, true, true, 1800, 2100},
      {"both refuse", Mudez::nadie, true, true, 0, 500},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    const ServidorMudo central(c.como), cliente(c.como);
    PuestoDeVenta p;
    p.persona().dejaPasar();
    if (c.central) p.ses.psConexionCentral = central.cadena();
    if (c.cliente) p.ses.psConexionCliente = cliente.cadena();
    QElapsedTimer reloj;
    const auto cuesta = [&] {
      reloj.start();
      vender(p);
      return reloj.elapsed();
    };
    const qint64 primera = cuesta();
    EXPECT_GE(primera, c.alMenos_ms);
    EXPECT_LE(primera, c.aLoMas_ms + 500);  // and what the sale itself takes on a busy machine
    p.elReloj().ahora = p.elReloj().ahora.addSecs(59);
    EXPECT_LE(cuesta(), 700);
    EXPECT_EQ(c.central, p.ses.bCentralCaida);
    EXPECT_EQ(c.cliente, p.ses.pbClienteCaido);
    EXPECT_EQ(q("6"), p.filas(q("SELECT COUNT(*) FROM Operacion")));
  }
}

bool dijoLleno(PuestoDeVenta& p) {
  const auto& vistas = p.persona().vistas;
  return std::any_of(vistas.begin(), vistas.end(),
                     [](const auto& caja) { return caja.texto.contains(q("El disco está lleno")); });
}

// Nothing of the store is lost, and with room again the next sale has all its rows and a number of its own.
void sigueVendiendo(PuestoDeVenta& p) {
  EXPECT_EQ(q("ok"), p.filas(q("SELECT integrity_check FROM pragma_integrity_check")));
  const QString numero = p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'"));
  const int filas = p.filas(q("SELECT COUNT(*) FROM Operacion")).toInt();
  vender(p);
  EXPECT_EQ(QString::number(filas + 3), p.filas(q("SELECT COUNT(*) FROM Operacion")));
  EXPECT_LE(numero.toInt(), p.filas(q("SELECT MAX(cDocCodigo) FROM Operacion")).toInt());
}

// The engine's own limit, met at another statement of the sale in each round.
TEST(DiscoLleno, AStoreThatMayNotGrowTellsItAndStaysWhole) {
  for (int paginas = 0; paginas < 5; ++paginas) {
    SCOPED_TRACE(paginas);
    PuestoDeVenta p;
    p.persona().dejaPasar();
    const int hay = p.filas(q("SELECT page_count FROM pragma_page_count")).toInt();
    p.ejecuta(QStringLiteral("PRAGMA max_page_count=%1").arg(hay + paginas));
    for (int i = 0; i < 500 && !dijoLleno(p); ++i) vender(p);
    ASSERT_TRUE(dijoLleno(p));
    p.ejecuta(q("PRAGMA max_page_count=1073741823"));
    sigueVendiendo(p);
  }
}

// Each step lets the store's log grow by one page more before the disk is full.
TEST(DiscoLleno, TheStoreStaysWholeAndTheNextSaleWorks) {
  std::signal(SIGXFSZ, SIG_IGN);
  int fallaron = 0, bien = 0;
  for (rlim_t paginas = 0; paginas < 60 && bien == 0; ++paginas) {
    SCOPED_TRACE(paginas);
    PuestoDeVenta p;
    p.persona().dejaPasar();
    vender(p);
    const auto antes = static_cast<rlim_t>(QFileInfo(p.ses.psRutaBD + q("-wal")).size());
    rlimit limite{}, lleno{};
    ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &limite));
    lleno = {antes + paginas * 4096, limite.rlim_max};
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &lleno));
    vender(p);
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limite));
    (dijoLleno(p) ? fallaron : bien) += 1;
    sigueVendiendo(p);
  }
  EXPECT_GT(fallaron, 3);
  EXPECT_EQ(1, bien) << "some sale found room";
}

}  // namespace
