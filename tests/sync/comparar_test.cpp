// The proof between store and centre, the cross-check of a closing, the reprocess of a day and the emptying of days.
#include "sync/comparar.h"

#include "apoyo/servidor_prueba.h"
#include "sync/cuadre_central.h"
#include "sync/depurar_tablas.h"
#include "sync/reproceso.h"
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

const QString kDia = QStringLiteral("20/11/2026");
const QDate kFecha(2026, 11, 20);

class CajaEnviada : public CajaConDias {
 public:
  explicit CajaEnviada(bool postgres = false) {
    if (postgres) {
      const CadenaConexion b = ServidorPrueba::uno().base(BaseServidor::Central);
      conCentral(cadenaDeServidor(b.usuario, b.clave, b.catalogo, q("postgres:") + b.servidor));
    }
    ejecuta(central(), q("INSERT INTO parametro (cCodParam, nmonto1, vtexto1) VALUES ('IGV', 18, ''), ('CORREODE', 0, "
                         "'caja@example.com'), ('CORREOPARA', 0, 'a@example.com;b@example.com')"));
    dia(kDia, 10);
    EXPECT_TRUE(sincronizar(*this).bien);
    ejecuta(q("UPDATE Config_Documento SET cSerieDoc = '001' WHERE cTipoDoc = '02'"));
  }
  ResultadoCuadre cuadrar() {
    QString error;
    const auto r = CuadrarConCentral(poCnnLocal, central(), {ses.psCaja, kFecha, kFecha}, 0.18, error);
    EXPECT_TRUE(r) << qPrintable(error);
    return r.value_or(ResultadoCuadre());
  }
};

}  // namespace

TEST(CuadreCentral, ALineForEachSeriesOfASoundDay) {
  CajaEnviada p;
  const ResultadoCuadre r = p.cuadrar();
  EXPECT_TRUE(r.igual);
  // clang-format off
  EXPECT_EQ((QStringList{
      q("(anulaciones) 20/11/2026: 1 número, 1 documento, 1 línea, -1 unidades, neto -15.68, bruto -18.50 = centro"),
      q("001 20/11/2026: 3 números, 3 documentos, 4 líneas, 5 unidades, neto 114.83, bruto 135.50 = centro"),
      q("NC1 20/11/2026: 1 número, 1 documento, 1 línea, 1 unidad, neto 2.54, bruto 3.00 = centro"),
      q("OC1 20/11/2026: 1 número, 1 documento, 2 líneas, 3 unidades, neto 48.30, bruto 57.00 = centro"),
      q("PA1 20/11/2026: 1 número, 1 documento, 0 líneas, 0 unidades, neto 0.00, bruto 0.00 = centro")}), r.lineas);
  // clang-format on
}

TEST(CuadreCentral, EachPlantedDifferenceIsNamed) {
  // clang-format off
  const struct { const char *sql, *dice; } casos[] = {
      {"DELETE FROM Operacion WHERE cOperCode = 11 AND cProdCode = '000206'", "000011, operación 11 artículo 206"},
      {"DELETE FROM Operacion WHERE cOperCode = 12", "000012, falta en el centro"},
      {"DELETE FROM Operacion WHERE cOperCode = 14", "000000, falta en el centro"},
      {"INSERT INTO Operacion (cOperID, cOperCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cCajaCodi, "
       "cDocTipo, "
       "cDocSerie, cDocCodigo) VALUES (99, 11, '000206', 1, 3, '20261120 09:01', '00001', '02', '001', '000011')",
       "artículo 206, 1 x 3, 0 %, estado 0: 1 en la tienda y 2 en el centro"},
      {"INSERT INTO Operacion (cOperID, cOperCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cCajaCodi, "
       "cDocTipo, "
       "cDocSerie, cDocCodigo) VALUES (99, 77, '000206', 1, 3, '20261120 10:00', '00001', '02', '001', '000011')",
       "000011, operación 77"},
      {"INSERT INTO Operacion (cOperID, cOperCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cCajaCodi, "
       "cDocTipo, "
       "cDocSerie, cDocCodigo) VALUES (99, 77, '000206', 1, 3, '20261120 10:00', '00001', '02', '001', '000044')",
       "000044, sólo está en el centro"},
      {"UPDATE Operacion SET nProdPrecUnit = 38.01 WHERE cOperCode = 12", "000012, operación 12"},
      {"UPDATE Operacion SET nProdCant = 3 WHERE cOperCode = 11 AND cProdCode = '000101'", "2 x 38, 0 %"},
      {"UPDATE Operacion SET nDscto = -10 WHERE cOperCode = 12", "000012, operación 12"},
      {"UPDATE Operacion SET cProdCode = '000102' WHERE cOperCode = 12", "artículo 101"},
      {"UPDATE Operacion SET cOperFlagAnula = 0 WHERE cOperCode = 13", "000013, operación 13"},
      {"UPDATE Operacion SET cDocCodigo = '000011' WHERE cOperCode = 12", "000011, operación 12"},
      {"UPDATE Operacion SET cDocSerie = '002' WHERE cOperCode = 12", "000012, falta en el centro"},
      {"UPDATE Operacion SET dOperFech = '20261121 09:02' WHERE cOperCode = 12", "000012, falta en el centro"},
      {"UPDATE Operacion SET cCajaCodi = '00002' WHERE cOperCode = 12", "000012, falta en el centro"},
      {"UPDATE OperacionParalela SET cEstado = '2' WHERE cOperCode = 13", "000013, operación 13 total 3"},
      {"UPDATE OperacionParalela SET cOperCodeRela = 9 WHERE cOperCode = 13", "relación 12"},
      {"UPDATE OperacionParalela SET nMontoSoles = 100.01 WHERE cOperCode = 12", "total 100,"},
      {"DELETE FROM OperacionParalela WHERE cOperCode = 12", "000012, falta en el centro"},
      {"DELETE FROM OperacionParalelaProducto WHERE cOperCode = 11 AND cProdCode = '000206'", "artículo 206, 2 x 9.5"},
      {"INSERT INTO OperacionParalela (cCajaCodi, cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo, "
       "cDocTipo) "
       "VALUES ('00001', 15, 20, '20261120 09:05', '1', 'OC1', '000015', '10')", "000015, sólo está en el centro"},
  };
  // clang-format on
  for (const bool postgres : {false, true}) {
    CajaEnviada p(postgres);
    for (const auto& c : casos) {
      SCOPED_TRACE(c.sql);
      ASSERT_FALSE(p.central().iniciar());
      p.ejecuta(p.central(), q(c.sql));
      const ResultadoCuadre r = p.cuadrar();
      EXPECT_FALSE(r.igual);
      EXPECT_TRUE(r.lineas.filter(q("primer número distinto")).join(u'\n').contains(q(c.dice)))
          << qPrintable(r.lineas.join(u'\n'));
      ASSERT_FALSE(p.central().deshacer());
    }
    EXPECT_TRUE(p.cuadrar().igual);
  }
}

TEST(Comparar, EachCheckRaisesItsAlarm) {
  // clang-format off
  const struct { void (*hacer)(Puesto&, QDate); const char *sql, *asunto, *cuerpo, *caja; } casos[] = {
      {CompararCorrelativos, "UPDATE Operacion SET cDocCodigo = '000015' WHERE cOperCode = 13",
       "Error Comparativo RegVta Correlativos SQL - Caja: Caja 01", "Error en correlativo SQL Tipo Doc: 001",
       "Error en correlativo SQL para el Tipo Doc: 001 ...Informe al administrador"},
      {CompararSumaProductos, "UPDATE Operacion SET nProdCant = 5 WHERE cOperCode = 12",
       "Error Comparativo RegVta - Caja: Caja 01",
       "La suma de productos vendidos entre Access y SQL para el dia de hoy no coincide",
       "Error No cuadran la suma de productos vendidos en esta caja, entre Access y SQL...Informe al administrador!"},
      {CompararCantidadProductos, "DELETE FROM Operacion WHERE cOperCode = 12",
       "Error Comparativo RegVta - Caja: Caja 01",
       "La cantidad de productos vendidos entre Access y SQL para el dia de hoy no coincide",
       "Error No cuadran la cantidad de productos vendidos en esta caja, entre Access y SQL...Informe al "
       "administrador!"},
      {CompararTotalesSerie, "UPDATE Operacion SET nProdPrecUnit = 39 WHERE cOperCode = 12",
       "Error Comparativo RegVta - Serie: 001", "Monto Access: 99.15, Monto SQL=100",
       "Error No cuadran la cantidad y/o totales emitidos en esta caja entre Access y SQL...Informe al administrador!"},
  };
  // clang-format on
  for (const auto& c : casos) {
    CajaEnviada p;
    CompararUltimoCierre(p);
    c.hacer(p, kFecha.addDays(1));  // a day without documents
    EXPECT_TRUE(p.persona().vistas.empty());
    p.ejecuta(p.central(), q(c.sql));
    c.hacer(p, kFecha);
    ASSERT_EQ(1u, p.persona().vistas.size());
    EXPECT_EQ(q(c.caja), p.persona().vistas[0].texto);
    EXPECT_EQ(q("20261124|%1|%2").arg(q(c.asunto), q(c.cuerpo)), p.enCentral("SELECT * FROM MsgErrorRegistroVentas"));
    EXPECT_EQ(q("caja@example.com|a@example.com;b@example.com|%1|%2").arg(q(c.asunto), q(c.cuerpo)),
              p.enCentral("SELECT vDe, vPara, vAsunto, vCuerpo FROM CorreoSalida"));
  }
}

TEST(Comparar, ASeriesThatTheStoreLacks) {
  CajaEnviada p;
  p.ejecuta(q("DELETE FROM Operacion"));
  CompararTotalesSerie(p, kFecha);
  EXPECT_EQ(q("Error Comparativo RegVta - Serie: 001|No hay informacion en Access para el dia de hoy"),
            p.enCentral("SELECT vAsunto, vCuerpo FROM CorreoSalida"));
  EXPECT_EQ(q("0"), p.enCentral("SELECT COUNT(*) FROM MsgErrorRegistroVentas"));
  ASSERT_EQ(1u, p.persona().vistas.size());
  EXPECT_EQ(q("Error No cuadran la cantidad y/o totales emitidos en esta caja entre Access y SQL...Informe al "
              "administrador!"),
            p.persona().vistas[0].texto);
}

// A day is cleared and sent again, whatever stands in the history or in both places.
TEST(Reproceso, PutsADayInThePlaceOfWhatTheCentreHolds) {
  CajaEnviada limpia;
  const QString esperado = limpia.todoElCentral();
  limpia.persona().dejaPasar(kDia);
  limpia.ejecuta(limpia.central(), q("DELETE FROM Operacion WHERE cOperCode = 12"));
  limpia.ejecuta(limpia.central(), q("UPDATE OperacionParalela SET nMontoSoles = 1"));
  limpia.ejecuta(q("INSERT INTO Operacion_Historico SELECT * FROM Operacion WHERE cOperCode IN (11, 12)"));
  limpia.ejecuta(q("DELETE FROM Operacion WHERE cOperCode = 12"));  // 11 stands in both
  FrmUpdt v(limpia);
  SincronizarFecha(limpia, v);
  EXPECT_EQ(esperado, limpia.todoElCentral());
  EXPECT_EQ(q("Proceso Terminado. Caja:00001;Fecha:20/11/2026;"), limpia.persona().vistas.back().texto);
}

TEST(Reproceso, WhatItRefuses) {
  // clang-format off
  const struct { const char *respuesta, *sql, *caja; } casos[] = {
      {"32/01/2026", "", "La fecha debe tener el formato dd/mm/yyyy"},
      {"20/11/2026", "UPDATE Operacion SET cOperFlagAbierto = 1", "El día 20/11/2026 todavía no se ha cerrado."},
      {"20-11-2026", "UPDATE CabeceraZ SET bFlagSincro = 0", "El cierre del día 20/11/2026 está pendiente de envío."},
      {"20/11/2026", "DELETE FROM Operacion WHERE cOperCode = 12",
       "No se reprocesa el día 20/11/2026: esta caja tiene 7 registros y el servidor 8."},
  };
  // clang-format on
  for (const auto& c : casos) {
    CajaEnviada p;
    const QString antes = p.todoElCentral();
    if (*c.sql) p.ejecuta(q(c.sql));
    p.persona().dejaPasar(q(c.respuesta));
    FrmUpdt v(p);
    SincronizarFecha(p, v);
    EXPECT_TRUE(p.persona().vistas.back().texto.startsWith(q(c.caja))) << qPrintable(p.persona().vistas.back().texto);
    EXPECT_EQ(antes, p.todoElCentral());
  }
}

// Exactly the chosen days go; what the centre has not got, what is open and the last number of each run stay.
TEST(DepurarTablas, KeepsWhatMustNotBeLost) {
  CajaEnviada p;
  p.dia(q("21/11/2026"), 20);
  p.dia(q("22/11/2026"), 30);
  p.ejecuta(q("UPDATE Operacion SET cFlagSincronizacion = '1' WHERE cOperCode > 21 AND cProdCode <> 0"));
  p.ejecuta(q("UPDATE OperacionParalela SET cFlagSincronizacion = '1', cEstado = '2' WHERE cOperCode NOT IN (21, 22)"));
  FrmDepurarTablas v = AbrirDepurarTablas(p);
  EXPECT_EQ(QDate(2026, 11, 23), v.dtpFechaInicial);
  v.dtpFechaInicial = v.dtpFechaFinal = QDate(2026, 11, 21);
  p.persona().dejaPasar(q("No"));
  EXPECT_EQ(FinDepurar::Nada, DepurarTablas(p, v, [] { return true; }));
  EXPECT_EQ(
      q("En esos días hay 4 registros que no están en el servidor central y 2 documentos abiertos. Se conservan."),
      p.persona().vistas[0].texto);
  p.persona().dejaPasar(q("Sí"));
  EXPECT_EQ(FinDepurar::Nada, DepurarTablas(p, v, [] { return false; }));
  EXPECT_EQ(FinDepurar::Hecho, DepurarTablas(p, v, [] { return true; }));
  EXPECT_EQ(q("11\n12\n13\n14\n21\n31\n32\n33\n34"), p.filas(q("SELECT DISTINCT cOperCode FROM Operacion ORDER BY 1")));
  EXPECT_EQ(q("3"), p.filas(q("SELECT COUNT(*) FROM Operacion WHERE cOperCode = 21"))) << "with its money";
  EXPECT_EQ(q("21\n22"), p.filas(q("SELECT cOperCode FROM OperacionParalela WHERE cOperCode BETWEEN 20 AND 29")));
  EXPECT_EQ(q("1900-01-01 00:00:00"), p.filas(q("SELECT dFechSincro FROM Sincronizacion")));
  v.dtpFechaFinal = QDate(2026, 11, 24);
  EXPECT_EQ(FinDepurar::Hecho, DepurarTablas(p, v, [] { return true; }));
  EXPECT_EQ(q("34|33"), p.filas(q("SELECT MAX(cOperCode), MAX(cDocCodigo) FROM Operacion")));
}
