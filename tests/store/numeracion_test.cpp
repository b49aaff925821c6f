#include "store/numeracion.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

void abrirCentral(PuestoPrueba& p) { ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral)); }

TipoDocumento tipoDe(const QString& codigo) { return static_cast<TipoDocumento>(codigo.toInt()); }

QString reservar(PuestoPrueba& p, const QString& tipo) {
  NumeroDocumento n;
  if (!ReservarDocumento(p, tipoDe(tipo), kLogCajaFull, n)) return q("failed");
  return n.serie + u'-' + QString::number(n.numero);
}

QByteArray log(PuestoPrueba& p, const char* nombre) {
  QFile f(p.rutas.enTemp(q(nombre)));
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no file)");
}

TEST(Numeracion, EachNumberIsHeldAgainstStoreAndCentral) {
  for (const auto& c : leerCasos("store/numeracion")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ejecuta(q("UPDATE Config_Documento SET nDocCodigo=%1 WHERE cTipoDoc='02'").arg(c.entero("config")));
    if (c.entero("local"))
      p.ejecuta(q("INSERT INTO Operacion (cOperCode, cDocTipo, cDocCodigo) VALUES (1,'01',%1)").arg(c.entero("local")));
    abrirCentral(p);
    for (const auto& [numero, caja] :
         {std::pair(c.entero("central"), "00001"), std::pair(c.entero("otraCaja"), "00002")}) {
      if (numero == 0) continue;
      p.ejecuta(p.poCnnCentral, q("INSERT INTO venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja) "
                                  "VALUES (%1,'02','001','%2','%3')")
                                    .arg(numero)
                                    .arg(numero, 6, 10, QChar(u'0'))
                                    .arg(q(caja)));
    }
    p.poCnnCentral.cerrar();
    if (!c.falta("log")) p.persona().espera(q("Ocurrio un error en la numeración, se asignará el "));
    EXPECT_EQ(c["sale"], reservar(p, c["tipo"]));
    EXPECT_EQ(c["sale"].section(u'-', 1), p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'")));
    EXPECT_EQ(q("0"), p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='01'")));
    const QStringList logs = QDir(p.rutas.temp).entryList({q("*.log")});
    EXPECT_EQ(c["log"], logs.join(u' '));
  }
}

TEST(Numeracion, ACorrectedNumberIsShownAndLogged) {
  PuestoPrueba p;
  p.ejecuta(q("INSERT INTO Operacion (cOperCode, cDocTipo, cDocCodigo) VALUES (1,'02',7)"));
  p.persona().espera(q("Ocurrio un error en la numeración, se asignará el 8 al documento "));
  EXPECT_EQ(q("001-8"), reservar(p, "02"));
  EXPECT_EQ("Codigo generado 1\rNuevo Codigo 8\r24/11/2026 10:30:15\r\n", log(p, "Error_Full_1021.log"));
  EXPECT_EQ(q("001"), p.ses.psSerieBoleta);
}

TEST(Numeracion, AMissingRowIsMade) {
  for (const auto& c : leerCasos("store/fila_nueva")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ses.psCaja = q("12345");
    p.ejecuta(q("DELETE FROM Config_Documento"));
    p.ses.psUsuario = q("O'Brien");
    const TipoDocumento tipo = tipoDe(c["tipo"]);
    EXPECT_EQ(c["sale"], reservar(p, c["tipo"]));
    EXPECT_TRUE(GuardarUltimaOperacion(p, tipo, 51, 1));
    EXPECT_EQ(c["segunda"], reservar(p, c["tipo"]));
    EXPECT_TRUE(GuardarUltimaOperacion(p, tipo, 52, 2));
    QString filas = p.filas(q("SELECT cTipoDoc, cOperCode, nDocCodigo, cSerieDoc, cUserDesc, observacion "
                              "FROM Config_Documento ORDER BY cTipoDoc"));
    EXPECT_EQ(c["filas"], filas.replace(u'|', u',').replace(u'\n', u' '));
    EXPECT_EQ(q("2026-11-24 00:00:00"), p.filas(q("SELECT MAX(dUltAct) FROM Config_Documento")));
  }
}

// A sale that is left before it takes its number.
TEST(Numeracion, ReadingANumberWritesNothing) {
  PuestoPrueba p;
  p.ejecuta(q("DELETE FROM Config_Documento"));
  NumeroDocumento n;
  ASSERT_TRUE(LeerNumeroDocumento(p, TipoDocumento::Boleta, n));
  EXPECT_EQ(q("001-1"), n.serie + u'-' + QString::number(n.numero));
  EXPECT_EQ(q("0"), p.filas(q("SELECT COUNT(*) FROM Config_Documento")));
}

TEST(Numeracion, TheParallelRunsKnowOnlyTheirOwnTable) {
  PuestoPrueba p;
  p.ejecuta(q("INSERT INTO Operacion (cOperCode, cDocTipo, cDocCodigo) VALUES (50,'02',70)"));
  p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cDocTipo, cDocCodigo) VALUES (4,'10',3)"));
  p.persona().espera(q("se asignará el 4"));
  EXPECT_EQ(q("OC1-4"), reservar(p, "10"));
  EXPECT_EQ(q("NC1-1"), reservar(p, "11"));
  qint64 codigo = 0;
  EXPECT_TRUE(CodigoOperacion(p, true, codigo));
  EXPECT_EQ(5, codigo);
  EXPECT_TRUE(CodigoOperacion(p, false, codigo));
  EXPECT_EQ(51, codigo);
  p.ses.psUsuario = q("O'Brien");
  EXPECT_TRUE(GuardarUltimaOperacion(p, TipoDocumento::Factura, 51, 9));
  EXPECT_TRUE(GuardarUltimaOperacion(p, TipoDocumento::NC, 5, 1));
  EXPECT_EQ(q("01|51|0|O'Brien\n11|5|1|O'Brien"),
            p.filas(q("SELECT cTipoDoc, cOperCode, nDocCodigo, cUserDesc FROM Config_Documento "
                      "WHERE cTipoDoc IN ('01','11') ORDER BY cTipoDoc")));
}

TEST(Numeracion, CentralAwayOnlyLeavesItsFigureOut) {
  PuestoPrueba p;
  ASSERT_TRUE(QFile::remove(p.rutas.enPrograma(q("central.db"))));
  EXPECT_EQ(q("001-1"), reservar(p, "02"));
  EXPECT_TRUE(p.ses.bCentralCaida);
}

TEST(Reparacion, PullsUpWhatIsBehind) {
  PuestoPrueba p;
  abrirCentral(p);
  ejecutarArchivo(p, p.poCnnCentral, "store/casos/en_la_central.sql");
  p.ejecuta(q("UPDATE Config_Documento SET nDocCodigo=7 WHERE cTipoDoc IN ('02','10')"));
  p.ejecuta(q("UPDATE Config_Documento SET cSerieDoc='001', nDocCodigo=2 WHERE cTipoDoc='01'"));  // lower: not its type
  EXPECT_TRUE(RepararNumeracion(p));
  EXPECT_TRUE(RepararNumeracionParalela(p));
  EXPECT_EQ(q("41|rovel|2026-11-24 10:30:00|0|0|0|00001|0|01|15|001|02|Null"),
            p.filas(q("SELECT cOperCode,cUserDesc,dOperFech,cOperFlagAnula,cOperCodeAnula,cOperFlagAbierto,cCajaCodi,"
                      "cFlagSincronizacion,cAlmaCode,cDocCodigo,cDocSerie,cDocTipo,cProdCode FROM Operacion")));
  EXPECT_EQ(q("1|0|2026-11-24 10:30:00|0|00001|0|01|ROVEL|0|15|OC1|10"),
            p.filas(q("SELECT cOperCode,cOperTipo,dOperFech,cEstado,cCajaCodi,cFlagSincronizacion,cTurnoCodi,cUserDesc,"
                      "cOperFlagAbierto,cDocCodigo,cDocSerie,cDocTipo FROM OperacionParalela")));
  EXPECT_EQ(
      q("01|41|15\n02|41|15\n10|1|15\n11|0|0"),
      p.filas(q("SELECT cTipoDoc, cOperCode, nDocCodigo FROM Config_Documento WHERE cTipoDoc < '12' ORDER BY 1")));
  // Already level: a second start changes nothing.
  EXPECT_TRUE(RepararNumeracion(p));
  EXPECT_EQ(q("1"), p.filas(q("SELECT COUNT(*) FROM Operacion")));
  EXPECT_EQ(q("001-16"), reservar(p, "02"));
}

TEST(Reparacion, ANewDeskIsLeftAlone) {
  PuestoPrueba p;
  abrirCentral(p);
  p.ejecuta(p.poCnnCentral, q("INSERT INTO operacion (cOperID, cOperCode, cCajaCodi, CDocSerie, cDoccodigo) "
                              "VALUES (1,4,'00001','001',4)"));
  EXPECT_TRUE(RepararNumeracion(p));
  EXPECT_EQ(q("0"), p.filas(q("SELECT COUNT(*) FROM Operacion")));
}

// Its series of orders was begun behind the copy: the number that stands at the centre does not come again.
TEST(Reparacion, ACopyOlderThanASeriesTakesItsNumberUp) {
  PuestoPrueba p;
  abrirCentral(p);
  p.ejecuta(q("INSERT INTO Operacion (cOperCode, cDocTipo, cDocSerie, cDocCodigo) VALUES (5,'02','001',5)"));
  p.ejecuta(p.poCnnCentral, q("INSERT INTO operacionparalela (cOperCode, cCajaCodi, CDocSerie, cDoccodigo) "
                              "VALUES (8,'00001','OC1','000001')"));
  EXPECT_TRUE(RepararNumeracionParalela(p));
  EXPECT_EQ(q("OC1-2"), reservar(p, "10"));
}

}  // namespace
