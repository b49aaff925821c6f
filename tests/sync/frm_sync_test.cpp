// The screens of the synchronisation: under way, stopped, at both ends.
#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "sync/frm_depurar_tablas.h"
#include "sync/frm_updt.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

struct Pantalla {
  PuestoPrueba p;
  FrmUpdt v{p};
  frmUpdt f{p, v, nullptr};
  Pantalla() {
    v.alMostrar();
    v.sePuedeDetener = true;
    v.InsertaLinea(q("Sincronizando Articulos"));
  }
  void lineas(int n) {
    for (int i = 0; i < n; ++i) v.InsertaLinea(q("Se insertó Artículo de código: %1").arg(i, 6, 10, QChar(u'0')));
    v.AumentaBarra(35);
  }
};

}  // namespace

TEST(frmUpdt, ShowsTheNewestLinesAndItsEnds) {
  Pantalla s;
  s.lineas(2000);
  capturar(s.f, q("sincroniza-en-marcha"));
  auto* log = control<QListWidget>(s.f, q("lstLog"));
  EXPECT_EQ(static_cast<int>(kLineasALaVista), log->count());
  EXPECT_TRUE(log->item(log->count() - 1)->text().endsWith(q("001999")));
  EXPECT_EQ(35, control<QProgressBar>(s.f, q("prgBar"))->value());
  EXPECT_FALSE(control<QPushButton>(s.f, q("cmdClose"))->isEnabled());
  s.v.InsertaLinea(q("No se pudo insertar Cliente de código: 5"));
  s.v.Refrescar();
  EXPECT_EQ(q("Se Sincronizaron 2001 registros.\nHubieron 1 errores."), control<QLabel>(s.f, q("lblEtiqueta"))->text());
  s.v.terminar(q("La Sincronización ha finalizado"));
  capturar(s.f, q("sincroniza-bien"));
  EXPECT_EQ(q("La Sincronización ha finalizado"), control<QLabel>(s.f, q("Label1"))->text());
  EXPECT_TRUE(control<QPushButton>(s.f, q("cmdClose"))->isEnabled());
  Pantalla mal;
  mal.lineas(3);
  mal.v.lblEtiqueta = q("Hubieron errores en la sincronización");
  mal.v.terminar(mal.v.lblEtiqueta);
  capturar(mal.f, q("sincroniza-mal"));
  EXPECT_EQ(0, control<QProgressBar>(mal.f, q("prgBar"))->value());
}

TEST(frmUpdt, StopsByItsButtonAndByEsc) {
  Pantalla boton, esc;
  EXPECT_FALSE(boton.v.detener());
  control<QPushButton>(boton.f, q("cmdDetener"))->click();
  EXPECT_TRUE(boton.v.detener());
  esc.f.reject();
  EXPECT_TRUE(esc.f.isVisible()) << "it goes when the run has ended";
  EXPECT_TRUE(esc.v.detener());
}

TEST(frmDepurarTablas, OpensOnYesterdayAndToday) {
  PuestoPrueba p;
  frmDepurarTablas f(
      p, [] { return false; }, nullptr);
  mostrar(f);
  capturar(f, q("depurar-tablas"));
  p.persona().espera(q("Esta seguro de eliminar información importante del sistema"), q("Sí"));
  control<QPushButton>(f, q("cmdDepurar"))->click();
  EXPECT_FALSE(f.porSincronizar());
}
