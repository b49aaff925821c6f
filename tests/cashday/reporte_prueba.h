#pragma once
// A desk whose day is inserted by statements: tests/golden/reportes/dia.sql.
#include "apoyo/golden.h"
#include "cashday/reportes.h"

struct PuestoDeReporte : PuestoPrueba {
  explicit PuestoDeReporte(const Envolver& e = {}) : PuestoPrueba(e) {}

  void abrirCentral() { EXPECT_TRUE(poDBAdmin.AbrirBD(poCnnCentral, ses.psConexionCentral)); }
  void cargarDia() {
    ejecutarArchivo(*this, "golden/reportes/dia.sql");
    abrirCentral();
    ejecutarArchivo(*this, poCnnCentral, "golden/reportes/dia_central.sql");
  }
  // What the closing does around its two reports.
  bool cerrarZ1() { return ReportesEspeciales1(*this, PedidoZ(3)).hecho(); }
  bool cerrarZ() { return ReportesEspeciales(*this, PedidoZ(4)).hecho(); }
};
