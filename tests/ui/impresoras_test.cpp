#include "platform/ui/impresoras.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

// Points of the first page's size, and how many pages there are.
std::pair<double, qsizetype> medir(const QString& archivo, double& ancho) {
  QFile f(archivo);
  EXPECT_TRUE(f.open(QIODevice::ReadOnly));
  const QString pdf = QString::fromLatin1(f.readAll());
  EXPECT_TRUE(pdf.startsWith(u"%PDF"));
  const auto hoja = QRegularExpression(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)")).match(pdf);
  ancho = hoja.captured(1).toDouble();
  return {hoja.captured(2).toDouble(), pdf.count(QRegularExpression(QStringLiteral("/Type /Page\\b(?!s)")))};
}

TEST(ImpresorasQt, APdfIsARollAsLongAsItsText) {
  QTemporaryDir carpeta;
  ImpresorasQt impresoras;
  // clang-format off
  const struct { const char* porque; int lineas; qsizetype hojas; } kCasos[] = {
      {"a ticket", 25, 1}, {"a long report", 900, 1}, {"longer than a page can be", 3000, 3}};
  double corto = 0;
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    const QString archivo = carpeta.filePath(QString::number(c.lineas) + QStringLiteral(".pdf"));
    const QStringList textos{QStringLiteral("Ñandú\r\n").repeated(c.lineas), QStringLiteral(" ")};
    ASSERT_EQ(std::nullopt, impresoras.escribirPdf(archivo, QStringLiteral("Courier New"), 8, textos));
    double ancho = 0;
    const auto [largo, hojas] = medir(archivo, ancho);
    EXPECT_NEAR(80 / 25.4 * 72, ancho, 1);
    EXPECT_LE(c.hojas - 1, hojas);
    EXPECT_GE(c.hojas, hojas);
    EXPECT_GT(largo, corto);
    if (hojas == 1) corto = largo;
  }
  // clang-format on
  EXPECT_TRUE(impresoras.escribirPdf(carpeta.filePath(QStringLiteral("no/x.pdf")), QStringLiteral("Courier New"), 8, {})
                  .has_value());
  EXPECT_TRUE(impresoras.imprimir(QStringLiteral("No hay tal"), QStringLiteral("Courier New"), 8, {}).has_value());
}

}  // namespace
