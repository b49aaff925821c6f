// The reports that have no place in the papers of the day, asked for at the end of each of the demo days: those of the
// five kinds of parallel document, the workbook cell by cell, and the stock. What they must be was worked out from the
// rows that the days leave.
#include <gtest/gtest.h>
#include <QDir>

#include "apoyo/lector_xlsx.h"
#include "obra.h"
#include "platform/text/texto.h"

namespace {

const QString kGolden = QStringLiteral(TARVOPOS_FUENTES "/tests/golden/paralelos/");

struct DiaDeReportes {
  const char *nombre, *hasta, *reloj;
  QByteArray autoriza;
};

// What went through a driver, from the first document that begins with `desde` on; single-byte text.
QString impresos(const PuestoDeObra& p, const QByteArray& desde) {
  QByteArray todo;
  for (const auto& a :
       QDir(p.ruta() + QStringLiteral("/impresos")).entryInfoList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name)) {
    QFile f(a.filePath());
    if (!f.open(QIODevice::ReadOnly)) continue;
    const QByteArray uno = f.readAll();
    if (!todo.isEmpty() || uno.contains(desde)) todo += uno;
  }
  return DeUnByte(todo.replace("\r", ""));
}

class ReportesDelDia : public testing::TestWithParam<std::tuple<DiaDeReportes, bool>> {};

TEST_P(ReportesDelDia, AreWhatTheRowsSay) {
  const auto& [d, postgres] = GetParam();
  const QString nombre = QString::fromLatin1(d.nombre);
  const QString guion = leerTexto(QStringLiteral(TARVOPOS_FUENTES "/guiones/%1.guion").arg(nombre));
  const qsizetype hasta = guion.indexOf(QString::fromUtf8(d.hasta));
  ASSERT_GT(hasta, 0);
  QByteArray lineas = guion.left(hasta).toUtf8() + "\nreloj " + d.reloj + " 20:50:00\n";
  for (int n = 1; n <= 5; ++n) lineas += "tecla Ctrl+F" + QByteArray::number(n) + "\n" + d.autoriza;
  lineas += "clic mnuOperaciones_Hijo(17)\nespera frmAutorizarOperacion\nescribe txtUsuario SUPERVISOR\n"
            "escribe txtPassword super\ntecla Enter\nespera frmPrincipal\nclic mnuRptStock\n";
  const PuestoDeObra p = postgres ? PuestoDeObra(QStringLiteral("2026-11-25 20:50:00")) : PuestoDeObra();
  const QString dicho = p.tocaLineas(lineas);
  EXPECT_TRUE(dicho.endsWith(u"ok\n[estado 0]\n")) << dicho.right(600).toStdString();
  EXPECT_TRUE(dicho.contains(QStringLiteral("El reporte quedó guardado en:"))) << "the path must be told";

  const auto libros = QDir(p.ruta() + QStringLiteral("/Temp")).entryInfoList({QStringLiteral("*.xlsx")});
  ASSERT_EQ(1, libros.size());
  EXPECT_EQ("",
            primeraDiferencia(leerTexto(kGolden + nombre + QStringLiteral(".libro")), leerXlsx(libros[0].filePath())));
  const QString papeles = impresos(p, "O/C CHECK");
  const qsizetype stock = papeles.indexOf(QStringLiteral("    GRANJA"));
  EXPECT_EQ("", primeraDiferencia(leerTexto(kGolden + nombre + QStringLiteral(".txt")), papeles.left(stock)));
  EXPECT_TRUE(papeles.mid(stock).contains(QStringLiteral("LISTADO DE SALDOS")));
  // The marks are of no kind that anything else looks for.
  EXPECT_EQ(QStringLiteral("[5]"), p.filas(QStringLiteral("SELECT COUNT(*) FROM OperacionParalela WHERE cOperTipo = 30 "
                                                          "AND cEstado = '1' AND cOperFlagAbierto = 1")));
}

const QByteArray kSupervisor =
    "espera frmAutorizarOperacion\nescribe txtUsuario SUPERVISOR\nescribe txtPassword super\ntecla Enter\nespera "
    "frmPrincipal\n";

INSTANTIATE_TEST_SUITE_P(
    Dias, ReportesDelDia,
    testing::Combine(testing::Values(DiaDeReportes{"dia", "## Cierre del día: Z1 y Z", "25/11/2026", kSupervisor},
                                     DiaDeReportes{"dos_turnos", "# X-1 y X del segundo turno", "24/11/2026", {}}),
                     testing::Bool()),
    [](const auto& d) { return std::get<0>(d.param).nombre + std::string(std::get<1>(d.param) ? "EnPostgres" : ""); });

}  // namespace
