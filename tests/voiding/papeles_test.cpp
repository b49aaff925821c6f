// The papers of void and reprint against those typed by hand: tests/golden/anulaciones/<case>.caso fills the store,
// <case>.txt is what goes to the printer without the reset in front and the feed and cut behind.
#include <QDir>
#include <QFile>

#include "anulacion_prueba.h"
#include "platform/text/texto.h"
#include "voiding/reimpresion.h"

namespace {

const QString kCarpeta = QStringLiteral(TARVOPOS_FUENTES "/tests/golden/anulaciones/");

QString leer(const QString& archivo) {
  QFile f(kCarpeta + archivo);
  return f.open(QIODevice::ReadOnly) ? DeUnByte(f.readAll()) : QString();
}

std::vector<std::string> casos() {
  std::vector<std::string> lista;
  for (const QString& a : QDir(kCarpeta).entryList({QStringLiteral("*.caso")}, QDir::Files, QDir::Name)) {
    lista.push_back(a.section(u'.', 0, 0).toStdString());
  }
  return lista;
}

class Papel : public testing::TestWithParam<std::string> {};

TEST_P(Papel, IsThePaperWeExpect) {
  const QString caso = QString::fromStdString(GetParam());
  PuestoConDocumentos p;
  PantallaTransaccion v;
  p.ejecuta(QStringLiteral("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (1, 'BODEGA EL MOLINO')"));
  for (const QString& linea : leer(caso + QStringLiteral(".caso")).split(u'\n')) {
    const QString nombre = linea.section(u'=', 0, 0).trimmed(), valor = linea.section(u'=', 1).trimmed();
    if (nombre.isEmpty() || nombre.startsWith(u'#')) continue;
    if (nombre == u"sql") p.ejecuta(valor);
    else if (nombre == u"reimprime") v.uso = valor == u"si" ? Uso::Reimprimir : Uso::Anular;
    else if (nombre == u"alterno") v.chkAlterno = valor == u"si";
    else FAIL() << qPrintable(linea);
  }
  v.txtTransaccion = QStringLiteral("1");
  BuscarTransaccion(p, v);
  if (v.uso == Uso::Anular) Anular(p, v, p.jefe);
  else Reimprimir(p, v);
  const QString esperado = QStringLiteral("\x1B@\r\n") + leer(caso + QStringLiteral(".txt")) +
                           QStringLiteral("\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\x1D\x56\x01\r\n");
  EXPECT_EQ(esperado, DeUnByte(p.papeles().papel[v.chkAlterno ? QStringLiteral("LPT2") : QStringLiteral("LPT1")]));
  EXPECT_FALSE(v.accion);
  EXPECT_EQ(v.uso == Uso::Anular ? QStringLiteral("1") : QStringLiteral("0"),
            p.filas(QStringLiteral("SELECT SUM(idct) FROM _Tmp1")));
}

INSTANTIATE_TEST_SUITE_P(Golden, Papel, testing::ValuesIn(casos()), [](const auto& i) { return i.param; });

TEST(Papeles, EveryCaseHasItsPaper) {
  EXPECT_EQ(4u, casos().size());
  for (const auto& c : casos()) EXPECT_FALSE(leer(QString::fromStdString(c) + QStringLiteral(".txt")).isEmpty()) << c;
}

}  // namespace
