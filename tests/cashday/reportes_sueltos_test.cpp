// The reports beside those of the day: parallel documents of one kind, stock, and the workbook; what they do where
// something is missing. What they print and write of a whole day stands in the tests of the plays.
#include <gtest/gtest.h>
#include <QDir>

#include "apoyo/lector_xlsx.h"
#include "apoyo/plan_fallas.h"
#include "cashday/libro_x1.h"
#include "cashday/reporte_paralelo.h"
#include "cashday/reporte_stock.h"
#include "reporte_prueba.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

QString impreso(PuestoPrueba& p) {
  const auto& todos = p.papeles().impresos;
  return todos.empty() ? QString() : todos.back().second.join(u8("\r\n")).remove(u'\r');
}

TEST(ReporteParalelo, WithoutDocumentsLeavesNoMark) {
  PuestoDeReporte p;
  p.persona().espera(u8("Debe registrar operaciones."));
  EXPECT_FALSE(ReporteParalelo(p, TipoOperacion::NC));
  EXPECT_EQ("0", p.filas(u8("SELECT COUNT(*) FROM OperacionParalela")));
}

TEST(ReporteParalelo, OfAVoidedOneOnlyCountsNothing) {
  PuestoDeReporte p;
  p.ejecuta(u8("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMontoSoles, nEfectivoSoles) "
               "VALUES (3, 20, '0', 10, 10)"));
  p.persona().espera(u8("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  EXPECT_TRUE(ReporteParalelo(p, TipoOperacion::OC));
  const QString papel = impreso(p);
  EXPECT_TRUE(
      papel.contains(u8("  NET-TOTL        0000000   \n                           *0.00\n\n CAJERO 10:30 000004\n")))
      << papel.toStdString();
  EXPECT_EQ(u8("30|O/C|1|1|0"), p.filas(u8("SELECT cOperTipo, sGlosa, cEstado, cOperFlagAbierto, cFlagSincronizacion "
                                           "FROM OperacionParalela WHERE cOperCode = 4")));
}

// Change in soles for dollars, a liquidation that paid out, and one paid by both.
TEST(ReporteParalelo, CountsWhatCameInLessWhatWentOut) {
  PuestoDeReporte p;
  p.ejecuta(u8("INSERT INTO Tipo_Cambio VALUES ('24/11/2026', 3.5)"));
  for (const char* fila : {"1, 24, '2', -20, 0, 0, 20", "2, 24, '2', 15, 0, 10, 20", "3, 24, '2', 30, 10, 0, 0"}) {
    p.ejecuta(u8("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMontoSoles, nEfectivoSoles, "
                 "nEfectivoDolares, nVueltoSoles, cDocTipo) VALUES (%1, '14')")
                  .arg(u8(fila)));
  }
  p.ejecuta(u8("INSERT INTO Operacion (cOperCode, cOperTipo, cDocTipo, nMontoSoles) VALUES (3, 2, '14', 20)"));
  EXPECT_TRUE(ReporteParalelo(p, TipoOperacion::LIQPAD));
  // -20.00, 35.00 - 20.00, 10.00; the card 20.00; three documents, of which one paid out.
  EXPECT_TRUE(impreso(p).contains(
      u8("   CASH/TL        0000001   \n                           *5.00\n   TARJETA        0000001   \n"
         "                           *20.00\n  NET-TOTL        0000001   \n                           *25.00\n"
         "  AV./TRAN                 *25.00\n")))
      << impreso(p).toStdString();
}

TEST(ReporteStock, PrintsTheWarehouseOfTheDesk) {
  PuestoDeReporte p;
  p.persona().espera(u8("No existen datos para su consulta."));
  ReporteStock(p);
  p.abrirCentral();
  for (const char* sql : {"INSERT INTO Almacen VALUES ('01', 'CENTRAL')",
                          "INSERT INTO Articulo (cCodartic, vDscartic, cUndSalida, bSwActivo) VALUES "
                          "('000101', 'ARROZ CON PATO A LA NORTEÑA', 'DOCENA', 0), ('000102', 'CUY', 'UND', 0)",
                          "INSERT INTO SaldoArticulo VALUES ('01', '000101', '2026-11-01', 10.5)",
                          "INSERT INTO ZANKEBMOVIVNTA (dFecha, cAlmaCode, cProdCode, nCantidad) VALUES "
                          "('2026-11-20', '01', '000101', 3), ('2026-11-20', '01', '000102', 2)"}) {
    p.ejecuta(p.poCnnCentral, u8(sql));
  }
  p.ejecuta(u8("INSERT INTO Cabecera_Impresion VALUES (1, 'EL MOLLE'), (2, ' ')"));
  ReporteStock(p);
  EXPECT_EQ(u8("                EL MOLLE\n---------------------------------------\n          LISTADO DE SALDOS\n"
               "---------------------------------------\nFecha Inicio: 24/10/2026\nFecha Fin   : 24/11/2026\n"
               "Almacen     : CENTRAL\n\nCodigo      Descripcion    UM  Cantidad\n"
               "000101  ARROZ CON PATO A  DOC  7.5\n000102  CUY               UND  -2\n"
               "---------------------------------------\n \n "),
            impreso(p));
  const size_t cuantos = p.papeles().impresos.size();
  p.poCnnCentral.cerrar();
  p.ses.psConexionCentral = u8("Provider=SQLOLEDB.1;Data Source=sqlite:/no/hay.db");
  p.persona().espera(u8("La base de datos central no responde"));
  ReporteStock(p);
  EXPECT_EQ(cuantos, p.papeles().impresos.size());
}

class SinPrograma final : public Programas {
 public:
  QString abierto;
  bool hay = false;
  qint64 iniciar(const QString&, const QString&, const QStringList&, const QString&) override { return 0; }
  bool esperar(qint64) override { return false; }
  qint64 buscar(const QString&) const override { return 0; }
  bool cerrar(const QString&) override { return true; }
  bool abrir(const QString& enlace) override {
    abierto = enlace;
    return hay;
  }
};

// Every statement of it fails in turn: its section is named in a box and in its place, all others are there.
TEST(LibroX1, TellsTheSectionThatIsMissing) {
  auto plan = std::make_shared<PlanFallas>();
  PuestoDeReporte p([plan](Motores& reales) { return std::make_unique<MotoresConFallas>(reales, *plan); });
  p.cargarDia();
  auto programas = std::make_shared<SinPrograma>();
  p.programas = programas;
  p.persona().dejaPasar();
  const auto escribir = [&p] {
    p.persona().vistas.clear();
    ExportaX1aExcel(p);
    return leerXlsx(p.rutas.enTemp(u8("ReporteX1_24112026_103015.xlsx")));
  };
  plan->armar(0);
  const QString entero = escribir();
  const int sentencias = plan->van();
  EXPECT_GE(sentencias, 18);
  EXPECT_FALSE(entero.contains(u8("No se pudo leer")));
  EXPECT_TRUE(p.persona().vistas.back().texto.contains(u8("ReporteX1_24112026_103015.xlsx")));
  for (int n = 2; n <= sentencias; ++n) {
    plan->armar(n);
    const QString libro = escribir();
    EXPECT_TRUE(libro.contains(u8("No se pudo leer"))) << n;
    EXPECT_GE(libro.count(u'\n') + 20, entero.count(u'\n')) << n;
    EXPECT_EQ(3, p.persona().vistas.size()) << n << ": the engine's words, the section, the path";
    EXPECT_TRUE(p.persona().vistas[1].texto.startsWith(u8("El libro está incompleto."))) << n;
  }
  plan->armar(0);
  programas->hay = true;
  (void)escribir();
  EXPECT_TRUE(p.persona().vistas.empty());
  EXPECT_TRUE(programas->abierto.startsWith(u8("file:///")) && programas->abierto.endsWith(u8(".xlsx")));
  QDir(p.rutas.temp).removeRecursively();
  QFile(p.rutas.temp).open(QIODevice::WriteOnly);
  ExportaX1aExcel(p);
  EXPECT_TRUE(p.persona().vistas.back().texto.startsWith(u8("No se puede escribir")));
}

}  // namespace
