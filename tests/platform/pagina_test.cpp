#include "platform/text/pagina.h"

#include <gtest/gtest.h>

namespace {

// The Spanish alphabet beyond ASCII and its signs, a byte each, in the order of the four pages. Worked out from the
// tables of the pages; 437 has no Á, Í, Ó, Ú, and only 1252 and 858 have the euro.
const struct {
  char16_t letra;
  unsigned char w1252, p858, p850, p437;
} kLetras[] = {
    {u'á', 0xE1, 0xA0, 0xA0, 0xA0}, {u'é', 0xE9, 0x82, 0x82, 0x82}, {u'í', 0xED, 0xA1, 0xA1, 0xA1},
    {u'ó', 0xF3, 0xA2, 0xA2, 0xA2}, {u'ú', 0xFA, 0xA3, 0xA3, 0xA3}, {u'ü', 0xFC, 0x81, 0x81, 0x81},
    {u'ñ', 0xF1, 0xA4, 0xA4, 0xA4}, {u'Á', 0xC1, 0xB5, 0xB5, 'A'},  {u'É', 0xC9, 0x90, 0x90, 0x90},
    {u'Í', 0xCD, 0xD6, 0xD6, 'I'},  {u'Ó', 0xD3, 0xE0, 0xE0, 'O'},  {u'Ú', 0xDA, 0xE9, 0xE9, 'U'},
    {u'Ü', 0xDC, 0x9A, 0x9A, 0x9A}, {u'Ñ', 0xD1, 0xA5, 0xA5, 0xA5}, {u'¿', 0xBF, 0xA8, 0xA8, 0xA8},
    {u'¡', 0xA1, 0xAD, 0xAD, 0xAD}, {u'º', 0xBA, 0xA7, 0xA7, 0xA7}, {u'ª', 0xAA, 0xA6, 0xA6, 0xA6},
    {u'°', 0xB0, 0xF8, 0xF8, 0xF8}, {u'«', 0xAB, 0xAE, 0xAE, 0xAE}, {u'»', 0xBB, 0xAF, 0xAF, 0xAF},
    {u'€', 0x80, 0xD5, '?', '?'},   {u'“', 0x93, '"', '"', '"'},    {u'–', 0x96, '-', '-', '-'},
    {u'Õ', 0xD5, 0xE5, 0xE5, 'O'},  {u'漢', '?', '?', '?', '?'},
};

}  // namespace

TEST(PaginaCodigo, EachLetterIsItsByte) {
  for (const auto& l : kLetras) {
    SCOPED_TRACE(qPrintable(QString(QChar(l.letra))));
    const std::pair<Pagina, unsigned char> bytes[] = {
        {Pagina::Windows1252, l.w1252}, {Pagina::Pc858, l.p858}, {Pagina::Pc850, l.p850}, {Pagina::Pc437, l.p437}};
    for (const auto& [pagina, b] : bytes) {
      EXPECT_EQ(QByteArray(1, static_cast<char>(b)), EnPagina(QString(QChar(l.letra)), pagina))
          << qPrintable(NombrePagina(pagina));
    }
  }
  for (const Pagina p : {Pagina::Windows1252, Pagina::Pc858, Pagina::Pc850, Pagina::Pc437}) {
    EXPECT_EQ("\x1B@ AZaz09?", EnPagina(QStringLiteral("\x1B@ AZaz09\U0001F600"), p)) << "commands pass, a pair is one";
    EXPECT_EQ(p, PaginaDeNombre(NombrePagina(p)));
  }
  EXPECT_EQ("\xA4", EnPagina(QStringLiteral("n\u0303"), Pagina::Pc850)) << "a letter in two pieces is one";
}
