#pragma once
// A desk whose day is inserted by statements: tests/golden/reportes/dia.sql.
#include <QFile>

#include "apoyo/puesto_prueba.h"
#include "cashday/principal.h"
#include "cashday/reportes.h"

inline QByteArray leerReporte(const QString& archivo) {
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/golden/reportes/") + archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

struct PuestoDeReporte : PuestoPrueba {
  Principal v;

  explicit PuestoDeReporte(const Envolver& e = {}) : PuestoPrueba(e) {}

  void cargar(Conexion& cnn, const QString& archivo) {
    EXPECT_FALSE(cnn.iniciar());
    for (const QString& linea : QString::fromUtf8(leerReporte(archivo)).split(u'\n', Qt::SkipEmptyParts)) {
      if (!linea.startsWith(u'#')) ejecuta(cnn, linea);
    }
    EXPECT_FALSE(cnn.confirmar());
  }
  void abrirCentral() { EXPECT_TRUE(poDBAdmin.AbrirBD(poCnnCentral, ses.psConexionCentral)); }
  void cargarDia() {
    cargar(poCnnLocal, QStringLiteral("dia.sql"));
    abrirCentral();
    cargar(poCnnCentral, QStringLiteral("dia_central.sql"));
  }
  // What the closing does around its two reports.
  bool cerrarZ1() { v.nIntentosReporte = 1; return ReportesEspeciales1(*this, v, PedidoZ(3)); }
  bool cerrarZ() { v.nIntentosReporte = 1; return ReportesEspeciales(*this, v, PedidoZ(4)); }
};
