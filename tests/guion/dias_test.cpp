// Whole days of the shop, played on a new desk: what the person is told, the rows of every table and both rolls of paper,
// letter for letter. What stands beside a play was worked out from its keys, the price list and the layouts.
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "admin/demo_papel.h"
#include "obra.h"

namespace {

const QString kDias = QStringLiteral(TARVOPOS_FUENTES "/guiones");

class Dia : public testing::TestWithParam<QString> {
 protected:
  QString admin(const QStringList& palabras, const QByteArray& entrada = {}) {
    return tocar(carpetaDePruebas() + QStringLiteral("/../bin/tarvopos-admin"), palabras, entrada);
  }
  QString ruta(const QString& de) { return carpeta_.filePath(de); }
  QString rollo(const QString& puerto) {
    QFile f(ruta(QStringLiteral("puesto/puertos/") + puerto));
    return f.open(QIODevice::ReadOnly) ? TextoDePapel(f.readAll()) : QString();
  }
  // The rows of a query "BASE SELECT ...", one a line.
  QString filas(const QString& consulta) {
    const QString base = consulta.section(u' ', 0, 0);
    QString r = admin({QStringLiteral("sql"), QStringLiteral("--puesto"), ruta(QStringLiteral("puesto")),
                       QStringLiteral("--base"), base}, consulta.section(u' ', 1).toUtf8() + '\n');
    r = r.section(QStringLiteral("\"filas\":["), 1).section(QStringLiteral("]}\n"), 0, 0);
    return r.replace(QStringLiteral("],["), QStringLiteral("]\n["));
  }

 private:
  QTemporaryDir carpeta_;
};

TEST_P(Dia, LeavesItsRowsAndItsPaper) {
  const QString base = kDias + u'/' + GetParam(), puesto = ruta(QStringLiteral("puesto"));
  ASSERT_TRUE(admin({QStringLiteral("crear-puesto"), puesto, QStringLiteral("--demo")}).endsWith(u"[estado 0]\n"));
  QString dicho = admin({QStringLiteral("guion"), base + QStringLiteral(".guion"), QStringLiteral("--puesto"), puesto,
                         QStringLiteral("--salida"), ruta(QStringLiteral("capturas"))});
  dicho.remove(QStringLiteral("ok\n"));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".salida")), dicho));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".papel")), rollo(QStringLiteral("LPT1"))));
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".papel_alterna")), rollo(QStringLiteral("LPT2"))));
  const QStringList bloques = leerTexto(base + QStringLiteral(".filas")).trimmed().split(QStringLiteral("\n\n"));
  EXPECT_GT(bloques.size(), 10);
  for (const QString& b : bloques) {
    EXPECT_EQ("", primeraDiferencia(b.section(u'\n', 1), filas(b.section(u'\n', 0, 0)))) << qUtf8Printable(b);
  }
}

INSTANTIATE_TEST_SUITE_P(Dias, Dia, testing::ValuesIn(obrasDe(kDias)),
                         [](const auto& obra) { return obra.param.toStdString(); });

}  // namespace
