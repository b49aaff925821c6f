#include "printing/canal.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "platform/text/texto.h"
#include "printing/ajustes_impresora.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const QByteArray kPie = QByteArray("\r\n\r\n").repeated(4) + "\x1D\x56\x01\r\n";

QByteArray bytes(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no file)");
}

QString registro(PuestoPrueba& p, const char* cual = "Err") {
  return DeUnByte(bytes(p.rutas.enPrograma(q("%1_20261124.log").arg(QLatin1String(cual)))));
}

TEST(Canal, ARawTextIsResetTextFeedCut) {
  PuestoPrueba p;
  SeleccionarImpresora(p, q("Ticketera"));
  QString tronco = q("  ");
  ImprimirTextoPuerto(p, q("Ñandú\r\n2"), 1, tronco);
  const QByteArray esperado = "\x1B@\r\n\xD1"
                              "and\xFA\r\n2\r\n" +
                              kPie;
  EXPECT_EQ(q("textfile"), tronco);
  EXPECT_EQ(esperado, bytes(p.rutas.enTemp(q("textfile.prn"))));
  EXPECT_EQ(esperado, p.papeles().papel[q("LPT1")]);
  EXPECT_EQ(q("(no file)"), registro(p)) << "the log of faults has none";
  EXPECT_TRUE(registro(p, "Imp").endsWith(
      q("p:1;kPAR_IMPRESORA:Ticketera;printer.Port:LPT1;psPuertoPrint:;kPAR_IMPRESORA_ALTERNA:Alterna;NameArchivo:") +
      p.rutas.enTemp(q("textfile.prn")) + q(";\r\n")))
      << qPrintable(registro(p, "Imp"));
}

// Each printer's own page, on its own route; the command behind the reset, since the reset forgets it.
TEST(Canal, ThePaperIsInThePrintersCodePage) {
  const struct {
    Pagina pagina;
    bool conOrden;
    QByteArray comienzo, letras;
  } kCasos[] = {
      {Pagina::Windows1252, false, "\x1B@\r\n", "\xD1\xE1\xDA\x80"},
      {Pagina::Windows1252, true, "\x1B@\x1Bt\x10\r\n", "\xD1\xE1\xDA\x80"},
      {Pagina::Pc858, true, "\x1B@\x1Bt\x13\r\n", "\xA5\xA0\xE9\xD5"},
      {Pagina::Pc850, true, "\x1B@\x1Bt\x02\r\n", "\xA5\xA0\xE9?"},
      {Pagina::Pc437, true, QByteArray("\x1B@\x1Bt\x00\r\n", 7), "\xA5\xA0U?"},
      {Pagina::Pc850, false, "\x1B@\r\n", "\xA5\xA0\xE9?"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(qPrintable(NombrePagina(c.pagina)));
    PuestoPrueba p;
    ASSERT_EQ(std::nullopt, GuardarAjustes(p, q("Alterna"), {c.pagina, c.conOrden}));
    ImprimirDocumento(p, q("ÑáÚ€"), kImpresoraAlterna);
    EXPECT_EQ(c.comienzo + c.letras + "\r\n" + kPie, p.papeles().papel[q("LPT2")]);
    ImprimirDocumento(p, q("Ñ"), kImpresoraPrincipal);
    EXPECT_EQ("\x1B@\r\n\xD1\r\n" + kPie, p.papeles().papel[q("LPT1")]) << "the other printer is left alone";
    BloquesInforme b;
    QString linea = q("Ñ");
    AgregarLineaBloque(b, linea);
    p.papeles().papel.clear();
    ImprimirInforme(p, b, kImpresoraAlterna, q("repx"));
    EXPECT_EQ(c.comienzo + c.letras.first(1) + "\r\n\r\n" + kPie, p.papeles().papel[q("LPT2")]);
  }
}

TEST(Canal, TheTestPageHasAccentsCutAndDrawer) {
  PuestoPrueba p;
  EXPECT_EQ(std::nullopt, ImprimirPrueba(p, q("LPT1"), {Pagina::Pc850, true}, q("epson")));
  const QByteArray papel = p.papeles().papel[q("LPT1")];
  EXPECT_TRUE(papel.startsWith("\x1B@\x1Bt\x02\r\nTarvoPos"));
  EXPECT_TRUE(papel.contains("\xB5\x90\xD6\xE0\xE9\x9A\xA5 \xA0\x82\xA1\xA2\xA3\x81\xA4"));
  EXPECT_TRUE(papel.endsWith(kPie + QByteArray("\x1Bp\x00\x19\xFA\r\n", 7)));
}

TEST(Canal, RoutesByPrinterSelectorAndPort) {
  for (const auto& c : leerCasos("printing/rutas")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ses.kPAR_IMPRESORA = c["principal"];
    p.ses.kPAR_IMPRESORA_ALTERNA = c["alterna"];
    p.papeles().lista = {{q("Actual"), c["puerto"]}};
    p.ejecuta(q("UPDATE Configuracion SET PuertoPrinter='%1'").arg(c["puertoPrinter"]));
    QString tronco = q("x");
    ImprimirTextoPuerto(p, q("texto"), c.entero("selector"), tronco);
    EXPECT_EQ(c["sale"], QStringList(p.papeles().papel.keys()).join(u' '));
  }
}

TEST(Canal, APrinterThatIsNotListedLeavesTheCurrentOne) {
  PuestoPrueba p;
  SeleccionarImpresora(p, q("Alterna"));
  SeleccionarImpresora(p, q("alterna "));
  EXPECT_EQ(q("Alterna"), p.ses.impresoraActual);
}

TEST(Canal, DocumentsGoByThePrintersFlag) {
  PuestoPrueba p;
  p.ses.pnCortaPapel = 0;
  p.ses.pnCortaPapelAlterna = 7;
  ImprimirDocumento(p, q("uno"), kImpresoraPrincipal);
  ImprimirDocumento(p, q("dos"), kImpresoraAlterna);  // neither driver nor port
  ASSERT_EQ(1u, p.papeles().impresos.size());
  EXPECT_EQ(q("Ticketera"), p.papeles().impresos[0].first);
  EXPECT_EQ((QStringList{q("uno"), q(" "), q(" ")}), p.papeles().impresos[0].second);
  EXPECT_TRUE(p.papeles().papel.isEmpty());
}

TEST(Canal, AFailureShowsItsWordsAndGoesOn) {
  PuestoPrueba p;
  p.papeles().fallo = q("sin papel");
  for (int corta : {0, 1}) {
    p.ses.pnCortaPapel = corta;
    p.persona().espera(q("sin papel"));
    ImprimirDocumento(p, q("uno"), kImpresoraPrincipal);
  }
  AbrirGaveta(p, q("EPSON"));  // silent
  ASSERT_TRUE(QDir(p.rutas.temp).removeRecursively());
  p.papeles().fallo.clear();
  p.persona().espera(q("no existe"));
  ImprimirDocumento(p, q("uno"), kImpresoraPrincipal);
  AbrirGaveta(p, q("EPSON"));
  EXPECT_TRUE(p.papeles().papel.isEmpty());
}

TEST(Canal, DrawerPulseByModel) {
  // clang-format off
  const struct { const char* modelo; QByteArray pulso; } kCasos[] = {
      {" samsung ", QByteArray("\x1B\x70\x30\x37\x79\r\n", 7)},
      {"EPSON", QByteArray("\x1B\x70\x00\x19\xFA\r\n", 7)},
      {"Start", QByteArray("\x1B\x07\x0B\x37\x07\r\n", 7)},
      {"OTRA", QByteArray()},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.modelo);
    PuestoPrueba p;
    AbrirGaveta(p, q(c.modelo));
    EXPECT_EQ(c.pulso, bytes(p.rutas.enTemp(q("textfile.prn"))));
    EXPECT_EQ(c.pulso, p.papeles().papel.value(q("LPT1")));
  }
}

TEST(Canal, AReportIsBlocksWithARestBehindEach) {
  PuestoPrueba p;
  BloquesInforme b;
  QString linea = q("L");
  for (int i = 0; i < 102; ++i) {
    linea = q("L");
    AgregarLineaBloque(b, linea);
    EXPECT_EQ(i == 100 ? q("L") : q("L\r\n"), linea);  // the 101st closes the block
  }
  EXPECT_EQ(1, b.actual);
  EXPECT_EQ(1, b.lineas);
  ImprimirInforme(p, b, kImpresoraPrincipal, q("repz"));
  const QByteArray primero = "\x1B@\r\n" + QByteArray("L\r\n").repeated(101);
  EXPECT_EQ(primero + "L\r\n\r\n" + kPie, p.papeles().papel[q("LPT1")]);
  EXPECT_EQ(primero + "L\r\n\r\n" + kPie, bytes(p.rutas.enTemp(q("repz_24112026.prn"))));
  EXPECT_EQ("L\r\n\r\n" + kPie, bytes(p.rutas.enTemp(q("repz.prn"))));
  EXPECT_EQ((301 / 150 + 1 + 1) * 1000, p.elReloj().dormido_ms);
  EXPECT_EQ(2, registro(p, "Imp").count(q("p:1;kPAR_IMPRESORA:Ticketera;printer.Port:LPT1;psPuertoPrint:;\r\n")));
}

TEST(Canal, AReportKeepsAllItsLinesBeyondTheLastBlock) {
  BloquesInforme b;
  for (int i = 0; i < 3000; ++i) {
    QString linea = q("L");
    AgregarLineaBloque(b, linea);
  }
  EXPECT_EQ(20, b.actual);
  qsizetype lineas = 0;
  for (const QString& bloque : b.bloques) lineas += bloque.count(u'L');
  EXPECT_EQ(3000, lineas);
}

TEST(Correlativo, RunsPerPrinterAndComesRound) {
  PuestoPrueba p;
  p.ejecuta(q("UPDATE _Tmp1 SET idct=998, maxid=999 WHERE prn=1"));
  EXPECT_EQ(q("000999"), CorrelativoImpresion(p, 1));
  EXPECT_EQ(q("Ticketera 000999"), p.ses.ultimoPapel);
  EXPECT_EQ(q("000001"), CorrelativoImpresion(p, 1));
  EXPECT_EQ(q("000001"), CorrelativoImpresion(p, 2));
  EXPECT_EQ(q("1|1\n2|1"), p.filas(q("SELECT prn, idct FROM _Tmp1 ORDER BY prn")));
  p.ejecuta(q("UPDATE _Tmp1 SET idct=1234566, maxid=9999999 WHERE prn=1"));
  EXPECT_EQ(q("234567"), CorrelativoImpresion(p, 1));
  p.ejecuta(q("DELETE FROM _Tmp1"));
  EXPECT_EQ(q("000001"), CorrelativoImpresion(p, 1));
  EXPECT_EQ(QString(), LeerSerieImpresora(p, 1));
  EXPECT_TRUE(registro(p).endsWith(q(" No se ha encontrado el codigo de impresora\r\n")));
}

TEST(Correlativo, AFailureIsToldLoggedAndBlank) {
  PuestoPrueba p;
  EXPECT_EQ(q("SER-2"), LeerSerieImpresora(p, 2));
  p.poCnnLocal.cerrar();
  p.persona().espera(q("idct"));
  p.persona().espera(q("Error al generar Correlativo de impresion "));
  EXPECT_EQ(QString(), CorrelativoImpresion(p, 2));
  EXPECT_TRUE(registro(p).endsWith(q("Error al generar numeracion correlativa en impresora Cod 2\r\n")));
}

TEST(Cabecera, StaysAsItWasWithoutRows) {
  PuestoPrueba p;
  p.ses.psCabeceraImpresion = {q("vieja")};
  EXPECT_TRUE(CargarCabeceraImpresion(p));
  EXPECT_EQ(q("vieja"), p.ses.psCabeceraImpresion.join(u'|'));
  p.ejecuta(q("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (10, 'diez')"));
  p.ejecuta(q("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (2, 'dos')"));
  EXPECT_TRUE(CargarCabeceraImpresion(p));
  EXPECT_EQ(q("dos|diez"), p.ses.psCabeceraImpresion.join(u'|'));
}

}  // namespace
