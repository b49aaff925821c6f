// What moves to the history, and what never does.
#include "sync/depuracion.h"
#include "store/numeracion.h"
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

// Ten days up to today, sent, a ticket a day.
class CajaVieja : public CajaConDias {
 public:
  CajaVieja() {
    for (int d = 0; d < 11; ++d) dia(q("%1/11/2026").arg(14 + d), 10 + 10 * d);
    ejecuta(q("UPDATE Operacion SET cFlagSincronizacion = '1' WHERE cProdCode <> 0"));
    ejecuta(q("UPDATE OperacionParalela SET cFlagSincronizacion = '1'"));
    ejecuta(q("UPDATE CabeceraZ SET bFlagSincro = 1"));
    ejecuta(q("INSERT INTO ParalelaEnviada SELECT cOperCode, cEstado, cOperCodeRela, cOperCodeAnul FROM "
              "OperacionParalela"));
    ejecuta(q("UPDATE OperacionParalela SET cEstado = '2' WHERE cOperCode IN (11, 13, 23)"));
    ejecuta(q("UPDATE ParalelaEnviada SET cEstado = '2' WHERE cOperCode IN (11, 13)"));  // 23: not told yet
  }
  bool depurar() {
    FrmUpdt v(*this);
    return DepurarHistoria(*this, v);
  }
  QString resumen() { return viejas(); }
};

}  // namespace

// Today is the 24th and yesterday doesn't count: of the eight days 24, 22, 21 ... 16 the oldest is the 16th.
TEST(Depuracion, MovesWhatIsSentAndOlderThanEightDays) {
  CajaVieja p;
  p.ejecuta(q("UPDATE Operacion SET cFlagSincronizacion = '0' WHERE cOperCode = 21 AND cProdCode = 206"));
  for (const auto& [codigo, dia] : {std::pair("8", "23"), {"9", "14"}}) {  // the mark of a report is never sent
    p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cOperFlagAbierto, "
                "cFlagSincronizacion) VALUES (%1, 30, '%2/11/2026', '1', 0, '0')")
                  .arg(q(codigo), q(dia)));
  }
  EXPECT_TRUE(p.depurar());
  // The boletas of the 14th with their money, of the 15th the sent lines alone; facturas and mirrors stay.
  EXPECT_EQ(q("11|0|02\n11|101|02\n11|206|02\n13|303|02\n21|101|02\n23|303|02\n-\n"
              "9\n11\n13\n14\n15\n24\n25\n-\n11|101\n11|206\n13|206\n14|101\n24|101\n-\n60\n-\n50\n-\n39\n-\n"),
            p.resumen());
  const QString antes = p.resumen();
  EXPECT_TRUE(p.depurar());
  EXPECT_EQ(antes, p.resumen());
  // Nothing of a Z that waits moves, whatever its mark.
  CajaVieja pendiente;
  pendiente.ejecuta(q("UPDATE CabeceraZ SET bFlagSincro = 0"));
  EXPECT_TRUE(pendiente.depurar());
  EXPECT_TRUE(pendiente.resumen().startsWith(q("\n-\n\n-\n"))) << qPrintable(pendiente.resumen());
  qint64 codigo = 0;
  p.ejecuta(q("DELETE FROM Operacion"));
  EXPECT_TRUE(CodigoOperacion(p, false, codigo));
  EXPECT_EQ(24, codigo) << "behind the history";
}

// History of more than three months goes, but for the rows that hold the highest number of a run.
TEST(Depuracion, OldHistoryGoesAndNoNumberComesTwice) {
  CajaVieja p;
  EXPECT_TRUE(p.depurar());
  for (const char* sql : {"DELETE FROM Operacion", "DELETE FROM OperacionParalela", "DELETE FROM ParalelaEnviada",
                          "UPDATE Operacion_Historico SET dOperFech = '01/07/2026'",
                          "UPDATE OperacionParalela_Historico SET dOperFech = '01/07/2026'"}) {
    p.ejecuta(q(sql));
  }
  EXPECT_TRUE(p.depurar());
  EXPECT_EQ(q("23"), p.filas(q("SELECT DISTINCT cOperCode FROM Operacion_Historico")));
  EXPECT_EQ(q("13\n25"), p.filas(q("SELECT cOperCode FROM OperacionParalela_Historico ORDER BY 1")));
  NumeroDocumento n;
  EXPECT_TRUE(VerificarNumeroDocumento(p, TipoDocumento::Boleta, kLogCajaFull, n));
  EXPECT_EQ(24, n.numero);
}
