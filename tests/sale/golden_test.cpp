// Tickets against papers typed by hand: tests/golden/ventas/<case>.caso holds the screen, <case>.txt the paper in
// Windows-1252, as it goes to the printer without the reset in front and the feed and cut behind.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "venta_prueba.h"

namespace {

const QString kCarpeta = QStringLiteral(TARVOPOS_FUENTES "/tests/golden/ventas/");

QByteArray leer(const QString& archivo) {
  QFile f(kCarpeta + archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList nombres(const char* mascara) {
  QStringList lista;
  for (const QString& a : QDir(kCarpeta).entryList({QString::fromLatin1(mascara)}, QDir::Files, QDir::Name)) {
    lista << a.section(u'.', 0, 0);
  }
  return lista;
}

std::vector<std::string> casos() {
  std::vector<std::string> lista;
  for (const QString& n : nombres("*.caso")) lista.push_back(n.toStdString());
  return lista;
}

// The first line that differs, with its number; "" when both are equal.
std::string primeraDiferencia(const QByteArray& esperado, const QByteArray& hay) {
  if (esperado == hay) return {};
  const auto a = esperado.split('\n'), b = hay.split('\n');
  qsizetype i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  const auto linea = [i](const QList<QByteArray>& l) {
    return i < l.size() ? '"' + DeUnByte(l[i]).replace(u'\r', QStringLiteral("\\r")).toStdString() + '"' : "nothing";
  };
  return "line " + std::to_string(i + 1) + ": expected " + linea(a) + ", printed " + linea(b);
}

FilaVenta filaDe(const QString& texto) {
  QStringList c = texto.split(u'|');
  for (QString& celda : c) celda = celda.trimmed();
  while (c.size() < 7) c << (c.size() == 4 ? QStringLiteral("-") : QStringLiteral("0"));
  return filaVenta(c[0].toInt(), c[1], Val(c[2]), c[3].toInt(), Val(c[5]), c[4], c[6] == u"SI");
}

// Desk and screen, filled from "name = value" lines.
struct Escena {
  PuestoDeVenta p;
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  int cabeceras = 0;

  Escena() { v.lineas.clear(); }

  // False on a name that it doesn't know.
  bool aplicar(const QString& nombre, const QString& valor) {
    static const std::map<QString, QString CajaRegistradoraFull::*> kCampos = {
        {QStringLiteral("txtTarjeta"), &CajaRegistradoraFull::txtTarjeta},
        {QStringLiteral("txtNombres"), &CajaRegistradoraFull::txtNombres},
        {QStringLiteral("txtLocal"), &CajaRegistradoraFull::txtLocal},
        {QStringLiteral("txtRUC"), &CajaRegistradoraFull::txtRUC},
        {QStringLiteral("txtEfectivoSoles"), &CajaRegistradoraFull::txtEfectivoSoles},
        {QStringLiteral("txtEfectivoDolares"), &CajaRegistradoraFull::txtEfectivoDolares},
    };
    if (const auto c = kCampos.find(nombre); c != kCampos.end()) {
      if (nombre.startsWith(u"txtEfectivo")) CalculaTotales(p, v);  // the total stands before cash is typed
      v.*(c->second) = valor;
      v.efectivoTecleado = v.efectivoTecleado || nombre == u"txtEfectivoSoles";
    } else if (nombre == u"linea") {
      v.lineas.push_back(filaDe(valor));
    } else if (nombre == u"cabecera") {
      p.ejecuta(QStringLiteral("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (%1, '%2')")
                    .arg(++cabeceras).arg(valor));
    } else if (nombre == u"supervisor") {
      pantallas.supervisor = valor;
    } else {
      return false;
    }
    return true;
  }
};

class Ticket : public testing::TestWithParam<std::string> {};

TEST_P(Ticket, IsThePaperWeExpect) {
  const QString caso = QString::fromStdString(GetParam());
  Escena e;
  e.p.ejecuta(QStringLiteral("UPDATE Configuracion SET GAVETA='N'"));
  for (const QString& linea : QString::fromUtf8(leer(caso + QStringLiteral(".caso"))).split(u'\n')) {
    if (linea.trimmed().isEmpty() || linea.startsWith(u'#')) continue;
    ASSERT_TRUE(e.aplicar(linea.section(u'=', 0, 0).trimmed(), linea.section(u'=', 1).trimmed())) << qPrintable(linea);
  }
  GrabarVenta(e.p, e.v, e.pantallas);
  const QByteArray papel = leer(caso + QStringLiteral(".txt"));
  ASSERT_FALSE(papel.isEmpty());
  EXPECT_EQ("", primeraDiferencia(conCorte(papel), e.p.papeles().papel[QStringLiteral("LPT1")]));
}

INSTANTIATE_TEST_SUITE_P(Golden, Ticket, testing::ValuesIn(casos()),
                         [](const auto& i) { return i.param; });

TEST(Golden, EveryCaseHasItsPaperAndEveryPaperItsCase) {
  EXPECT_FALSE(nombres("*.caso").isEmpty());
  EXPECT_EQ(nombres("*.caso").join(u' ').toStdString(), nombres("*.txt").join(u' ').toStdString());
  EXPECT_NE("", primeraDiferencia("a\r\nb \r\n", "a\r\nb\r\n"));  // the comparison sees a blank
}

}  // namespace
