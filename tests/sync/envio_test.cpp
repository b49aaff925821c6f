// Closed days to the central database: what goes up, once, whatever breaks meanwhile.
#include "apoyo/servidor_prueba.h"
#include "store/numeracion.h"
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

const QString kDia = QStringLiteral("20/11/2026"), kOtroDia = QStringLiteral("21/11/2026");

}  // namespace

TEST(Envio, AClosedDayGoesUpAsItIs) {
  CajaConDias p;
  p.dia(kDia, 10);
  const Corrida c = sincronizar(p);
  EXPECT_TRUE(c.bien);
  EXPECT_EQ(q("La Sincronización ha finalizado"), c.titulo);
  EXPECT_EQ(100, c.barraMaxima);
  // clang-format off
  EXPECT_EQ(q("11|000101|2|38|2026-11-20 09:01:00|0|0|02|001|000011\n"
              "11|000206|1|3|2026-11-20 09:01:00|0|0|02|001|000011\n"
              "12|000101|1|38|2026-11-20 09:02:00|0|0|01|001|000012\n"
              "13|000303|1|18.5|2026-11-20 09:03:00|1|0|02|001|000013\n"
              "14|000303|-1|18.5|2026-11-20 09:04:00|1|13|||000000\n-\n"
              "11|20|57|1|0|0|10|000011\n12|22|100|1|0|0|12|000012\n13|21|3|1|12|0|11|000013\n-\n"
              "11|000101|1|38\n11|000206|2|9.5\n13|000206|1|3\n-\n"
              "1|117|6\n-\n1|1|101|QUESO D'AMBO\n-\n"
              "|000303|-1|-18.5\n01|000101|1|38\n02|000101|2|76\n02|000206|1|3\n02|000303|1|18.5\n"
              "10|000101|1|38\n10|000206|2|19\n11|000206|1|3"), p.todoElCentral());
  EXPECT_EQ((QStringList{q("Sincronizando Operaciones"),
                         q("Se insertó en el Servidor la Operación de código: 11"),
                         q("Se insertó en el Servidor la Operación de código: 11"),
                         q("Se insertó en el Servidor la Operación de código: 12"),
                         q("Se insertó en el Servidor la Operación de código: 13"),
                         q("Se insertó en el Servidor la Operación de código: 14"),
                         q("Sincronizando Operaciones Paralelas"),
                         q("Se insertó en el Servidor la Operación Paralela de código: 11"),
                         q("Se insertó en el Servidor la Operación Paralela de código: 12"),
                         q("Se insertó en el Servidor la Operación Paralela de código: 13"),
                         q("Sincronizando los Z"), q("Registrando procesamiento de movimientos de ventas"),
                         q("Depurando transacciones Historicas"), q("Eliminando operaciones Históricas")}), c.lineas);
  // clang-format on
  EXPECT_EQ(q("Se Sincronizaron 14 registros.\nHubieron 0 errores."), c.etiqueta);
  EXPECT_EQ(q("0/0/0"), p.porEnviar());
  EXPECT_EQ(q("2026-11-24 00:00:00"), p.filas(q("SELECT dFechSincro FROM Sincronizacion")));
  EXPECT_EQ(q("3"), p.enCentral("SELECT COUNT(*) FROM Cuentacte"));
  const QString antes = p.todoElCentral();
  EXPECT_EQ(6, sincronizar(p).lineas.size());  // the headings alone
  EXPECT_EQ(antes, p.todoElCentral());
}

// The same rows on a server of its own.
TEST(Envio, OnPostgresToo) {
  const CadenaConexion base = ServidorPrueba::uno().base(BaseServidor::Central);
  CajaConDias limpia, p;
  p.conCentral(cadenaDeServidor(base.usuario, base.clave, base.catalogo, q("postgres:") + base.servidor));
  for (CajaConDias* caja : {&limpia, &p}) {
    caja->diaCorto(kDia);
    EXPECT_TRUE(sincronizar(*caja).bien);
    EXPECT_TRUE(sincronizar(*caja).bien);
  }
  EXPECT_EQ(limpia.todoElCentral(), p.todoElCentral());
}

// Many rows go in batches: the same rows, marks and lines as one by one.
TEST(Envio, BatchesLeaveWhatSingleRowsLeave) {
  QStringList todo, lineas;
  for (const bool enLotes : {true, false}) {
    CajaConDias p;
    for (int d = 0; d < 20; ++d) p.dia(q("%1/10/2026").arg(d + 1, 2, 10, QChar(u'0')), 10 + 10 * d);
    const Corrida c = sincronizar(p, false, enLotes);
    EXPECT_TRUE(c.bien);
    lineas << c.lineas.join(u'\n');
    p.ejecuta(q("UPDATE Operacion SET cFlagSincronizacion = '0'"));  // all of it once more, as found
    EXPECT_TRUE(sincronizar(p, false, enLotes).bien);
    todo << p.todoElCentral();
    EXPECT_EQ(q("0/0/0"), p.porEnviar());
    EXPECT_EQ(q("100|100"), p.enCentral("SELECT COUNT(*), COUNT(DISTINCT cOperID) FROM Operacion"));
  }
  EXPECT_EQ(todo[0], todo[1]);
  EXPECT_EQ(lineas[0], lineas[1]);
}

// A store put back from yesterday's copy sends only what the centre lacks, and its new rows meet nobody's code or Z.
TEST(Envio, ARestoredStoreDoublesNothing) {
  CajaConDias p;
  p.dia(kDia, 10);
  const QString copia = p.ruta() + q("/copia.mdb");
  p.poCnnLocal.cerrar();
  ASSERT_TRUE(QFile::copy(p.ses.psRutaBD, copia));
  abrirAlmacen(p);
  p.dia(kOtroDia, 20);
  EXPECT_TRUE(sincronizar(p).bien);
  const QString ambos = p.todoElCentral();
  p.poCnnLocal.cerrar();
  for (const char* fin : {"", "-wal", "-shm"}) QFile::remove(p.ses.psRutaBD + q(fin));
  ASSERT_TRUE(QFile::copy(copia, p.ses.psRutaBD));
  abrirAlmacen(p);
  RepararCodigos(p);
  qint64 codigo = 0;
  EXPECT_TRUE(CodigoOperacion(p, false, codigo));
  EXPECT_EQ(25, codigo);
  EXPECT_TRUE(CodigoOperacion(p, true, codigo));
  EXPECT_EQ(24, codigo);
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_EQ(ambos, p.todoElCentral());
  EXPECT_EQ(q("1|Ya existe registro\n2|Numeración reparada"),
            p.filas(q("SELECT IdZ, obs FROM CabeceraZ ORDER BY IdZ")));
  p.dia(q("22/11/2026"), 30);
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_EQ(q("3"), p.enCentral("SELECT COUNT(*) FROM CabeceraZ"));
  EXPECT_EQ(q("15"), p.enCentral("SELECT COUNT(*) FROM Operacion"));
}

// What becomes of a document behind its day goes up as a change of its row.
TEST(Envio, StatesFollow) {
  CajaConDias p;
  p.dia(kDia, 10);
  EXPECT_TRUE(sincronizar(p).bien);
  p.ejecuta(q("UPDATE OperacionParalela SET cEstado = 2, cOperCodeRela = 40 WHERE cOperCode IN (12, 13)"));
  p.ejecuta(q("UPDATE OperacionParalela SET cEstado = '0', cOperCodeAnul = 41 WHERE cOperCode = 11"));
  EXPECT_TRUE(sincronizar(p).lineas.contains(q("Se actualizó en el Servidor la Operación Paralela de código: 12")));
  EXPECT_EQ(q("11|0|0|41\n12|2|40|0\n13|2|40|0"),
            p.enCentral("SELECT cOperCode, cEstado, cOperCodeRela, cOperCodeAnul FROM OperacionParalela ORDER BY 1"));
  // The undoing of a liquidation, and a row that the centre has lost meanwhile.
  p.ejecuta(q("UPDATE OperacionParalela SET cEstado = '1', cOperCodeRela = 0 WHERE cOperCode IN (12, 13)"));
  p.ejecuta(p.central(), q("DELETE FROM OperacionParalela WHERE cOperCode = 13"));
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_EQ(q("11|0\n12|1\n13|1"), p.enCentral("SELECT cOperCode, cEstado FROM OperacionParalela ORDER BY 1"));
}

// A store put back from a copy older than a liquidation does not offer its documents a second time.
TEST(Envio, ARestoredStoreTakesUpWhatWasSettled) {
  CajaConDias p;
  p.dia(kDia, 10);
  EXPECT_TRUE(sincronizar(p).bien);
  p.ejecuta(p.central(), q("UPDATE OperacionParalela SET cEstado = '2', cOperCodeRela = 40 WHERE cOperCode = 12"));
  p.ejecuta(q("UPDATE OperacionParalela SET cOperCodeRela = 9 WHERE cOperCode = 13"));  // not sent yet: its own
  p.ejecuta(p.central(), q("UPDATE OperacionParalela SET cEstado = '2' WHERE cOperCode = 13"));
  RepararCodigos(p);
  EXPECT_EQ(q("12|2|40\n13|1|9"), p.filas(q("SELECT cOperCode, cEstado, cOperCodeRela FROM OperacionParalela WHERE "
                                            "cOperCode IN (12, 13) ORDER BY 1")));
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_EQ(q("12|2|40\n13|1|9"), p.enCentral("SELECT cOperCode, cEstado, cOperCodeRela FROM OperacionParalela WHERE "
                                              "cOperCode IN (12, 13) ORDER BY 1"));
}

// A closing that has written its detail leaves none to the synchronisation; a row that it did not reach has its own.
TEST(Envio, TheDetailOfARowIsWrittenOnce) {
  CajaConDias p;
  p.dia(kDia, 10);
  p.ejecuta(
      q("INSERT INTO DetalleEnviado (nIdZ1, cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin) VALUES (1, 0, 6, 0, "
        "15)"));
  p.dia(kOtroDia, 20);
  p.ses.pbSincronizaCierre = true;
  EXPECT_TRUE(sincronizar(p).bien);
  EXPECT_EQ(q("2026-11-21"), p.enCentral("SELECT DISTINCT CONVERT(varchar, dOperFech, 120) FROM TDETALLEZ1").left(10));
  EXPECT_EQ(q("8"), p.enCentral("SELECT SUM(nProdCant) FROM TDETALLEZ1"));
}

TEST(Envio, WhatEndsARun) {
  // clang-format off
  const struct { const char *porque, *sql, *caja; } casos[] = {
      {"the server is away", "", "El servidor central no responde."},
      {"a closing half done, which the main window tells", "UPDATE Configuracion SET iCierreCaja = 3", ""},
      {"no Z rows to read", "DROP TABLE CabeceraZ", "CabeceraZ"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    CajaConDias p;
    p.dia(kDia, 10);
    if (*c.sql) p.ejecuta(q(c.sql));
    else QFile::remove(p.rutas.enPrograma(q("central.db")));
    const Corrida corrida = sincronizar(p);
    EXPECT_FALSE(corrida.bien);
    EXPECT_EQ(q("Hubieron errores en la sincronización"), corrida.etiqueta);
    ASSERT_EQ(*c.caja ? 1u : 0u, p.persona().vistas.size());
    for (const auto& caja : p.persona().vistas) EXPECT_TRUE(caja.texto.contains(q(c.caja))) << qPrintable(caja.texto);
    EXPECT_EQ(q("2026-11-20 00:00:00"), p.filas(q("SELECT dFechSincro FROM Sincronizacion")));
  }
}
