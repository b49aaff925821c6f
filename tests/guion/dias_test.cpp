// Whole days of the shop, played on a new desk: what the person is told, the rows of every table and both rolls of
// paper, letter for letter. What stands beside a play was worked out from its keys, the price list and the layouts. And
// voids that a kill interrupts.
#include <gtest/gtest.h>
#include <QFile>
#include <QRegularExpression>

#include "obra.h"
#include "paso_a_paso.h"
#include "postgres/servidor_demo.h"

namespace {

const QString kDias = QStringLiteral(TARVOPOS_FUENTES "/guiones");

// The lines of each block in one order, and the names of servers' columns in small letters: a PostgreSQL server gives
// both as it likes. The desk's settings name its user there.
QString comparable(const QString& texto) {
  static const QRegularExpression nombre(QStringLiteral(" (\\w+)="));
  QStringList bloques;
  const QString sinUsuario =
      QString(texto).replace(QStringLiteral("UserName=\"%1\"").arg(kUsuarioDemo), QStringLiteral("UserName=\"\""));
  for (const QString& b : sinUsuario.split(QStringLiteral("\n\n"))) {
    QStringList lineas = b.trimmed().split(u'\n');
    for (QString& l : lineas) {
      if (!l.contains(u':')) continue;
      QString nueva;
      qsizetype desde = 0;
      for (auto i = nombre.globalMatch(l); i.hasNext();) {
        const auto m = i.next();
        nueva += l.mid(desde, m.capturedStart() - desde) + m.captured().toLower();
        desde = m.capturedEnd();
      }
      l = nueva + l.mid(desde);
      // By the server's own clock, which stands at nine.
      if (l.contains(u"SincronizacionCaja") || l.contains(u"TCABECERAZ1"))
        l = l.section(QStringLiteral(" dfecha="), 0, 0);
    }
    std::sort(lineas.begin() + 1, lineas.end());
    bloques << lineas.join(u'\n');
  }
  return bloques.join(QStringLiteral("\n\n"));
}

void dejaSusFilasYSuPapel(const QString& obra, const PuestoDeObra& p, QString (*forma)(const QString&)) {
  const QString base = kDias + u'/' + obra;
  const DichoYHecho r = TocarPasoAPaso(p, base + QStringLiteral(".guion"));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".salida")), r.dicho));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".papel")), p.papel()));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".papel_alterna")), p.papel(QStringLiteral("LPT2"))));
  // The rows after each step, or those that are left at the end.
  if (leerTexto(base + QStringLiteral(".guion")).contains(QStringLiteral("\n## "))) {
    EXPECT_EQ("", primeraDiferencia(forma(leerTexto(base + QStringLiteral(".pasos"))), forma(r.hecho)));
    return;
  }
  const QStringList bloques = leerTexto(base + QStringLiteral(".filas")).trimmed().split(QStringLiteral("\n\n"));
  EXPECT_GT(bloques.size(), 10);
  for (const QString& b : bloques) {
    const QString filas = p.filas(b.section(u'\n', 0, 0)).replace(QStringLiteral("],["), QStringLiteral("]\n["));
    EXPECT_EQ("", primeraDiferencia(b.section(u'\n', 1), filas)) << qUtf8Printable(b);
  }
}

class Dia : public testing::TestWithParam<QString> {};

TEST_P(Dia, LeavesItsRowsAndItsPaper) {
  dejaSusFilasYSuPapel(GetParam(), {}, [](const QString& t) { return t; });
}

// Both days close at nine in the evening.
TEST_P(Dia, LeavesTheSameOnPostgres) {
  const QString dia = GetParam() == u"dia" ? QStringLiteral("2026-11-25") : QStringLiteral("2026-11-24");
  dejaSusFilasYSuPapel(GetParam(), PuestoDeObra(dia + QStringLiteral(" 21:00:00")), comparable);
}

// What only takes pictures has nothing beside it.
std::vector<QString> dias() {
  std::vector<QString> todas = obrasDe(kDias);
  std::erase_if(todas,
                [](const QString& obra) { return !QFile::exists(kDias + u'/' + obra + QStringLiteral(".salida")); });
  return todas;
}

INSTANTIATE_TEST_SUITE_P(Dias, Dia, testing::ValuesIn(dias()),
                         [](const auto& obra) { return obra.param.toStdString(); });

const QByteArray kHastaLaVenta =
    "inicia\nespera frmPassword\nescribe txtUsuario CAJERO\nescribe txtPassword caja\ntecla Enter\nespera "
    "frmPrincipal\n";

// Killed on its way, a void is ended by the next one: no row twice, none left. What the paper or the points had not got
// by then they don't get.
TEST(Anulacion, KilledAtAnyStepIsEndedByTheNextOne) {
  // clang-format off
  const struct { int codigo; const char *responde, *queda; } casos[] = {
      // mirrors, rows without their mark, liquidations, advance payments and notes in force
      {1, "", "[2,0,1,0]"}, {4, "responde Sí\n", "[1,0,0,2]"}};
  const PuestoDeObra hecha;
  ASSERT_TRUE(hecha.tocaLineas("reloj 24/11/2026 08:00:00\n" + kHastaLaVenta +
                         "tecla Enter\nespera FrmApertura\ntecla Alt+G\nespera frmPrincipal\ntecla Enter\n"
                         "espera frmCajaRegistradoraFull\nescribe txtTarjeta 1\ntecla Enter\ncelda TDBGrid1 1 1 101\n"
                         "tecla Alt+D\ncelda TDBGrid1 2 1 303\ntecla Ctrl+Enter\n"
                         "tecla Alt+O\ntecla Down 4\nescribe txtPagoAdelantado 30\ntecla Ctrl+Enter\n"
                         "tecla Alt+O\ntecla Down 3\ncelda TDBGrid1 1 1 101\nescribe txtPADE 1\ntecla Enter\ntecla "
                         "Ctrl+Enter\n"
                         "tecla Alt+O\ntecla Down 6\nescribe txtTXL(0) 1\ntecla Enter\ntecla Enter\n"
                         "escribe txtEfectivoSoles 10\ntecla Enter\ntecla Ctrl+Enter\ntecla Ctrl+Enter\n")
                  .endsWith(u"ok\n[estado 0]\n"));
  const int salto = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 1 : 5;
  for (const auto& c : casos) {
    const QByteArray anula = "reloj 24/11/2026 10:00:00\n" + kHastaLaVenta +
                             "tecla Enter\nespera frmCajaRegistradoraFull\ntecla Alt+O\ntecla Down 7\n"
                             "espera frmAnulaTransaccion\nescribe txtTransaccion " + QByteArray::number(c.codigo) +
                             "\ntecla Enter\ntecla Alt+A\nespera frmAutorizarOperacion\nescribe txtUsuario SUPERVISOR\n"
                             "escribe txtPassword super\n" + c.responde;
    const QString queda = QStringLiteral(
        "SELECT (SELECT COUNT(*) FROM Operacion WHERE cOperCodeAnula = %1 AND nProdCant < 0), (SELECT COUNT(*) FROM "
        "Operacion WHERE cOperCode = %1 AND cOperFlagAnula = 0), (SELECT COUNT(*) FROM OperacionParalela WHERE "
        "cOperTipo = 24), "
        "(SELECT COUNT(*) FROM OperacionParalela WHERE cEstado = '1') FROM Configuracion").arg(c.codigo);
    int n = 2, repetidas = 0;
    for (bool muere = true; muere; n += salto) {
      SCOPED_TRACE(n);
      const PuestoDeObra m(hecha);
      const QString escrito = m.tocaLineas(anula + "mata despues " + QByteArray::number(n) + "\ntecla Enter\n");
      muere = escrito.endsWith(u"[señal]\n");
      if (m.filas(queda) != QLatin1String(c.queda)) {
        ++repetidas;
        EXPECT_TRUE(m.tocaLineas(anula + "tecla Enter\nespera frmAnulaTransaccion\n").endsWith(u"ok\n[estado 0]\n"));
      }
      EXPECT_EQ(QLatin1String(c.queda), m.filas(queda));
      EXPECT_TRUE(m.admin({QStringLiteral("verificar"), m.ruta()}).endsWith(u"[estado 0]\n"));
    }
    EXPECT_GE(repetidas, 2);
    EXPECT_GT(n, 15);
  }
  // clang-format on
}

// The closing of the day of two turns, killed on its way: after the next start it goes on, and what it leaves is what
// the play without a kill leaves, once.
TEST(Cierre, KilledAtAnyStepClosesTheSameDay) {
  const QString guion = leerTexto(kDias + QStringLiteral("/dos_turnos.guion"));
  const qsizetype hasta = guion.indexOf(QStringLiteral("# X-1 y X del segundo turno"));
  ASSERT_GT(hasta, 0);
  const PuestoDeObra vendida;
  ASSERT_TRUE(vendida.tocaLineas(guion.left(hasta).toUtf8()).endsWith(u"ok\n[estado 0]\n"));
  const QByteArray cierra =
      "reloj 24/11/2026 21:00:00\n" + kHastaLaVenta +
      "responde Sí\nclic Toolbar1(11)\nespera frmAutorizarOperacion\nescribe txtUsuario SUPERVISOR\n"
      "escribe txtPassword super\n";
  const QByteArray cuadre = "espera frmCuadre\ntecla Alt+C\n";
  static const QRegularExpression numero(QStringLiteral("Correlativo: (\\d+)"));
  const int salto = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 1 : 27;
  int n = 3;
  for (bool muere = true; muere; n += salto) {
    SCOPED_TRACE(n);
    const PuestoDeObra m(vendida);
    muere = m.tocaLineas(cierra + "mata despues " + QByteArray::number(n) + "\ntecla Enter\n" + cuadre)
                .endsWith(u"[señal]\n");
    if (muere) {
      const int paso = m.filas(QStringLiteral("SELECT iCierreCaja FROM Configuracion")).mid(1, 1).toInt();
      if (paso != 6) {
        EXPECT_TRUE(
            m.tocaLineas(cierra + "tecla Enter\n" + (paso < 5 ? cuadre : QByteArray()) + "espera frmPrincipal\n")
                .endsWith(u"ok\n[estado 0]\n"));
      }
    }
    EXPECT_EQ("[6,\"\",2,2096.14,2,2232.24,2,2182.44,29,90,4,0,77]",
              m.filas(QStringLiteral(
                  "SELECT iCierreCaja, cCodiTurno, (SELECT idz FROM _Tmp1 WHERE prn = 1), (SELECT Imac FROM "
                  "_Tmp1 WHERE prn = 1), (SELECT idz FROM _Tmp1 WHERE prn = 2), (SELECT Imac FROM _Tmp1 WHERE prn "
                  "= 2), (SELECT COUNT(*) FROM CabeceraZ), (SELECT MontoTotal FROM CabeceraZ WHERE IdZ = 2), "
                  "(SELECT COUNT(*) FROM DetalleZ WHERE IdZ = 2), (SELECT SUM(Cantidad) FROM DetalleZ WHERE IdZ "
                  "= 2), (SELECT COUNT(*) FROM _Tmp), (SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto = "
                  "1), (SELECT COUNT(*) FROM Operacion WHERE cOperTipo < 10) FROM Configuracion")));
    EXPECT_EQ("[38,110,2]",
              m.filas(QStringLiteral("central: SELECT COUNT(*), SUM(nProdCant), (SELECT COUNT(*) FROM TCABECERAZ1 "
                                     "WHERE nidEstado = 0) FROM TDETALLEZ1")));
    QStringList numeros;  // of both printers, whose runs are far apart
    const QString papeles = m.papel() + m.papel(QStringLiteral("LPT2"));
    for (auto i = numero.globalMatch(papeles); i.hasNext();) numeros << i.next().captured(1);
    EXPECT_GE(numeros.size(), 2);
    EXPECT_EQ(0, numeros.removeDuplicates());
  }
  EXPECT_GT(n, 200);
}

}  // namespace
