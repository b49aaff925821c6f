// The registers as windows, painted off the screen: a key with its repaint, a sale of the quick register by its keys,
// opening.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>

#include "breve.h"
#include "con_ventanas.h"
#include "duelo.h"
#include "platform/ui/rejilla.h"
#include "sale/frm_caja_full.h"
#include "sale/frm_caja_rapida.h"
#include "sale/venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

// Counts what reaches the pixels of a window.
class Pinceladas final : public QObject {
 public:
  explicit Pinceladas(QWidget& w) { w.installEventFilter(this); }
  int van = 0;
  bool eventFilter(QObject*, QEvent* e) override {
    van += e->type() == QEvent::Paint;
    return false;
  }
};

void mostrar(QWidget& w) {
  w.resize(1024, 768);
  w.show();
  w.activateWindow();
  if (!QTest::qWaitForWindowActive(&w)) romper("the window does not come up");
  QCoreApplication::processEvents();
}

void pulsar(Qt::Key tecla, Qt::KeyboardModifiers m = {}) {
  QWidget* w = QApplication::focusWidget();
  QTest::keyClick(w ? w : QApplication::activeWindow(), tecla, m);
}

// What a key costs until the screen shows it.
double duracion_s(const std::function<void()>& f) {
  QElapsedTimer reloj;
  reloj.start();
  f();
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  return static_cast<double>(reloj.nsecsElapsed()) / 1e9;
}

// A quantity of the 150th of 200 lines: the key that opens the cell, and the one that leaves it with new totals.
void TeclaEnRejilla200(benchmark::State& estado) {
  const bool enter = estado.range(0) != 0;
  PuestoDeVenta p;
  PantallasGuion pantallas;
  frmCajaRegistradoraFull caja(p, pantallas);
  auto& lineas = caja.venta().rejilla.filas;
  lineas.clear();
  for (int i = 0; i < 200; ++i) lineas.push_back(filaVenta(101 + i % 40, q("ARTICULO"), 4.5 + i, 1 + i % 2));
  CalculaTotales(p, caja.venta());
  caja.mostrar();
  mostrar(caja);
  auto& rejilla = *caja.findChild<Rejilla*>(q("TDBGrid1"));
  Pinceladas pinceladas(*rejilla.viewport());
  rejilla.irA({150, kCant});
  rejilla.setFocus();
  QCoreApplication::processEvents();
  std::vector<double> ms;
  int vez = 0;
  for (auto _ : estado) {
    const Qt::Key cifra = ++vez % 2 ? Qt::Key_3 : Qt::Key_4;
    const int antes = pinceladas.van;
    const QString total = caja.venta().txtSoles;
    const double abre = duracion_s([=] { pulsar(cifra); });
    const double deja = duracion_s([] { pulsar(Qt::Key_Return); });
    if (pinceladas.van == antes || caja.venta().txtSoles == total || rejilla.editando()) {
      estado.SkipWithError("the key did not reach the screen");
      break;
    }
    estado.SetIterationTime(enter ? deja : abre);
    ms.push_back((enter ? deja : abre) * 1e3);
  }
  if (!ms.empty()) estado.counters["mediana_ms"] = mediana(ms);
}
BENCHMARK(TeclaEnRejilla200)
    ->ArgName("enter")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Iterations(vueltas(200))
    ->Unit(benchmark::kMillisecond);

void ponerTeclado(PuestoPrueba& p) {
  for (int i = 1; i <= kTeclasProducto; ++i) {
    p.articulo(100 + i, q("ARTICULO %1").arg(i), 4.5 + i);
    p.ejecuta(q("INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (%1, '', %2)")
                  .arg(i)
                  .arg(100 + i));
  }
}

// A desk with a keyboard, whose cashier pays a sale with a hundred.
struct TiendaRapida : PuestoDeVenta {
  explicit TiendaRapida(qint64 filas) {
    ponerTeclado(*this);
    poCnnLocal.cerrar();
    correrEn(ses.psRutaBD, sentenciasDeHistoria(filas));
    pantallas.efectivo = EfectivoDocumento{100, 0, 60, 0};
  }
  PantallasGuion pantallas;
};

const QStringList kFilasDeVenta = {q("SELECT * FROM Operacion WHERE cOperFlagAbierto = 1 ORDER BY cOperId"),
                                   q("SELECT * FROM _Tmp1"), q("SELECT * FROM Config_Documento")};

// Five F-keys, then the one that pays and prints, until the screen is clear again; all of it painted. Arguments as for
// Venta.
void VentaRapida5(benchmark::State& estado) {
  TiendaRapida base(estado.range(0));
  Duelo duelo(base, estado.range(1) != 0);
  frmCajaRegistradora caja(duelo.puesto(), base.pantallas);
  mostrar(caja);
  const auto* cantidad = caja.findChild<QLineEdit*>(q("txtCantidad"));
  duelo.aprender([&](Puesto&) {
    for (const Qt::Key tecla : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F5}) {
      pulsar(tecla);
      QCoreApplication::processEvents();
    }
    if (cantidad->text().isEmpty()) romper("no sale on the screen");
    pulsar(Qt::Key_Return, Qt::ControlModifier);
    QCoreApplication::processEvents();
    if (!cantidad->text().isEmpty()) romper("the screen was not cleared");
    base.pantallas.abiertas.clear();
  });
  duelo.medir(estado, kFilasDeVenta);
}

// The same without the window.
void RutinasRapida5(benchmark::State& estado) {
  TiendaRapida base(estado.range(0));
  Duelo duelo(base, estado.range(1) != 0);
  CajaRegistradora v;
  AbrirRapida(duelo.puesto(), v);
  duelo.aprender([&](Puesto& p) {
    for (int tecla = 1; tecla <= 5; ++tecla) PulsarBotonRapida(p, v, base.pantallas, tecla);
    PulsarBotonRapida(p, v, base.pantallas, kBotonImprime);
    if (v.bVentaIniciada) romper("the screen was not cleared");
    base.pantallas.abiertas.clear();
  });
  duelo.medir(estado, kFilasDeVenta);
}

void argumentos(benchmark::internal::Benchmark* b) {
  b->ArgNames({"filas", "disco"})
      ->Args({filas(1'000), 1})
      ->Args({filas(1'000'000), 1})
      ->Args({filas(1'000), 0})
      ->Args({filas(1'000'000), 0});
  b->UseManualTime()->Iterations(vueltas(150))->Unit(benchmark::kMicrosecond);
}
BENCHMARK(VentaRapida5)->Apply(argumentos);
BENCHMARK(RutinasRapida5)->Apply(argumentos);

// From the call to the painted window, with 5,000 articles in the store.
template <class Caja>
void Abrir5000(benchmark::State& estado) {
  PuestoDeVenta p;
  ponerTeclado(p);
  p.poCnnLocal.cerrar();
  correrEn(
      p.ses.psRutaBD,
      q("WITH RECURSIVE n(i) AS (SELECT 201 UNION ALL SELECT i + 1 FROM n WHERE i < 5176) "
        "INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, cCodCatalogo, nProdPrecUnit, cProdEstd,"
        " nActivo) SELECT '01', i, 'ARTICULO ' || i, 'CORTA ' || i, 'CAT' || i, 4.5, 1, 1 FROM n"));
  if (!p.poDBAdmin.AbrirBD(p.poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD)) {
    romper("the store does not open");
  }
  PantallasGuion pantallas;
  std::vector<double> ms;
  for (auto _ : estado) {
    std::unique_ptr<Caja> caja;
    const double s = duracion_s([&] {
      caja = std::make_unique<Caja>(p, pantallas);
      mostrar(*caja);
    });
    estado.SetIterationTime(s);
    ms.push_back(s * 1e3);
  }
  estado.counters["mediana_ms"] = mediana(ms);
}
BENCHMARK(Abrir5000<frmCajaRegistradoraFull>)
    ->Name("AbrirFull5000")
    ->UseManualTime()
    ->Iterations(vueltas(40))
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Abrir5000<frmCajaRegistradora>)
    ->Name("AbrirRapida5000")
    ->UseManualTime()
    ->Iterations(vueltas(40))
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return MedirConVentanas(argc, argv); }
