// A payment that another desk has voided takes its receipt here with it, at the next synchronisation of this desk.
#include <gtest/gtest.h>

#include "sync_prueba.h"

namespace {

using namespace prueba_sync;

TEST(RecibosAnulados, FollowWhatAnotherDeskHasVoided) {
  CajaConDias p;
  Conexion central;
  ASSERT_TRUE(p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral));
  // clang-format off
  const struct {
    int codigo, tipo; const char* serie; qint64 numero; const char* glosa; int abierto; bool anulado;
  } filas[] = {
      {1, 22, "PA1", 1, "PAGO REF. SIST. LOGISTICA", 1, true},
      {2, 23, "PV1", 1234567, "PAGO REF. SIST. LOGISTICA", 1, true},
      {3, 22, "PA1", 2, "PAGO REF. SIST. LOGISTICA", 1, false},
      {4, 22, "PA1", 3, "PAGO REF. SIST. LOGISTICA", 0, true},   // of a closed day
      {5, 22, "PA1", 4, "Bautizo", 1, true},                     // an advance payment of the register
      {6, 22, "PA9", 1, "PAGO REF. SIST. LOGISTICA", 1, false},  // the number of another series
  };
  // clang-format on
  for (const auto& f : filas) {
    p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nMontoSoles, sGlosa, cEstado, "
                "cCajaCodi, cFlagSincronizacion, cOperCodeAnul, cOperFlagAbierto, cDocSerie, cDocCodigo) VALUES (%1, "
                "%2, '24/11/2026 09:00', 40, '%3', '1', '00001', '1', 0, %4, '%5', %6)")
                  .arg(f.codigo)
                  .arg(f.tipo)
                  .arg(q(f.glosa))
                  .arg(f.abierto)
                  .arg(q(f.serie))
                  .arg(f.numero));
    p.ejecuta(central, q("INSERT INTO Pagos (cSerieDocPago, NroDocPago, Monto, Moneda, FechaAnulacion) VALUES ('%1', "
                         "'%2', 40, 'N', %3)")
                           .arg(q(f.serie))
                           .arg(f.numero, 6, 10, QChar(u'0'))
                           .arg(f.anulado ? q("'20261124'") : q("Null")));
  }
  const char* estados = "SELECT cOperCode, cOperTipo, sGlosa, cEstado, cOperCodeAnul FROM OperacionParalela ORDER BY "
                        "cOperCode";
  const Corrida c = sincronizar(p);
  EXPECT_TRUE(c.bien);
  EXPECT_TRUE(c.lineas.join(u'\n').contains(q("Anulado el recibo PA1-000001: otra caja anuló su pago")));
  EXPECT_TRUE(c.lineas.join(u'\n').contains(q("Anulado el recibo PV1-1234567: otra caja anuló su pago")));
  const QString esperado =
      q("1|22|PAGO REF. SIST. LOGISTICA|0|7\n2|23|PAGO REF. SIST. LOGISTICA|0|8\n"
        "3|22|PAGO REF. SIST. LOGISTICA|1|0\n4|22|PAGO REF. SIST. LOGISTICA|1|0\n5|22|Bautizo|1|0\n"
        "6|22|PAGO REF. SIST. LOGISTICA|1|0\n7|22|ANULACION|0|0\n8|23|ANULACION|0|0");
  EXPECT_EQ(esperado, p.filas(q(estados)));
  EXPECT_FALSE(sincronizar(p).lineas.join(u'\n').contains(q("Anulado el recibo"))) << "once";
  EXPECT_EQ(esperado, p.filas(q(estados)));
}

}  // namespace
