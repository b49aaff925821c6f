#include "platform/text/numero.h"

#include <gtest/gtest.h>
#include <QRandomGenerator>

#include <cmath>

#include "apoyo/casos.h"
#include "platform/text/fecha.h"
#include "platform/text/texto.h"

namespace {

QString operator""_q(const char* s, size_t n) { return QString::fromUtf8(s, static_cast<qsizetype>(n)); }

TEST(Mascara, RoundsAndGroupsAsTheScreenShows) {
  for (const auto& c : leerCasos("platform/mascara")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(c["sale"], Formatear(c.numero("valor"), c["mascara"]));
  }
}

TEST(Numero, ReadsBackWhatAFieldHolds) {
  EXPECT_DOUBLE_EQ(1234.5, LeerImporte("1,234.50"_q));
  EXPECT_DOUBLE_EQ(12, Val(u"  12abc"));
  EXPECT_DOUBLE_EQ(0, Val(u"abc"));
  EXPECT_DOUBLE_EQ(-0.5, Val(u"-.5"));
  EXPECT_DOUBLE_EQ(1, Val(u"1,200"));
  EXPECT_EQ(-3, AEntero(-2.5));
  EXPECT_EQ("0.18"_q, TextoDe(0.18));
  EXPECT_EQ("5"_q, TextoDe(5));
  EXPECT_EQ("0.00001"_q, TextoDe(1e-5));
  EXPECT_EQ("100000000000000000000"_q, TextoDe(1e20));
  for (const char* si : {"1", "-1.5", "1,234.00", "12,345,678", " 7 ", ".5"})
    EXPECT_TRUE(EsNumerico(QString::fromLatin1(si))) << si;
  for (const char* no :
       {"", " ", "a", "1a", "1.2.3", "1e5", "-", ".", "1 2", ",5", "3,75", "1234,567", "1,23.5", "1,"}) {
    EXPECT_FALSE(EsNumerico(QString::fromLatin1(no))) << no;
  }
  for (const char* coma : {"3,75", "-0,5", "1.234,56", "1,23,456"}) {
    EXPECT_TRUE(ConComaDecimal(QString::fromLatin1(coma))) << coma;
    EXPECT_DOUBLE_EQ(0, LeerImporte(QString::fromLatin1(coma))) << coma;
  }
  for (const char* otra : {"3.75", "3,750", "3,x", "", ","}) {
    EXPECT_FALSE(ConComaDecimal(QString::fromLatin1(otra))) << otra;
  }
}

// Figures that end at the fourth decimal take a short way to their text; it must be the text of the long one.
TEST(Numero, TheDecimalTextHasFifteenDigitsWhateverTheFigure) {
  QRandomGenerator azar(26);
  for (int i = 0; i < 50'000; ++i) {
    const double entero = static_cast<double>(azar.generate64() >> azar.bounded(20, 63));
    double v = entero / std::pow(10, azar.bounded(0, 8));
    if (i % 3 == 1) v *= 1.18;
    if (i % 3 == 2) v = std::nextafter(v, i % 2 == 0 ? 0 : 1e9);
    if (v >= 1e15 || v < 1e-4) continue;
    ASSERT_EQ(QString::number(v, 'g', 15), TextoDe(v));
    ASSERT_EQ(QString::number(-v, 'g', 15), TextoDe(-v));
  }
}

TEST(Texto, CutsByCharactersAndKeepsOneByteEach) {
  EXPECT_EQ("ÑANDÚ"_q, Izquierda("ÑANDÚ asado"_q, 5));
  EXPECT_EQ("000042"_q, Ceros("42"_q, 6));
  EXPECT_EQ("34567"_q, Ceros("1234567"_q, 5));
  EXPECT_EQ("  x"_q, Rellenar("x"_q, 3));
  EXPECT_EQ("larga"_q, Rellenar("larga"_q, 3));
  EXPECT_EQ(QByteArray("\xD1\xE1\x80?"), AUnByte("Ñá€→"_q));
  EXPECT_EQ(QByteArray("?x"), AUnByte("😀x"_q));
  for (int b = 0; b < 256; ++b) {
    const QByteArray uno(1, static_cast<char>(b));
    EXPECT_EQ(uno, AUnByte(DeUnByte(uno))) << b;
  }
  EXPECT_LT(CompararEspanol("nube"_q, "ñandú"_q), 0);
  EXPECT_LT(CompararEspanol("Ñandú"_q, "oso"_q), 0);
  EXPECT_EQ(0, CompararEspanol("ÁRBOL"_q, "arbol"_q));
}

TEST(Fecha, EitherOrder) {
  for (const auto& c : leerCasos("platform/fechas")) {
    SCOPED_TRACE(c.donde());
    const auto f = LeerFecha(c["texto"], c["orden"] == u"mes primero" ? OrdenFecha::MesDia : OrdenFecha::DiaMes);
    EXPECT_EQ(c["sale"], f ? FechaISO(*f) : QString());
  }
  const QDateTime t(QDate(2026, 11, 25), QTime(9, 5));
  EXPECT_EQ("(mié) 25/11/2026 09:05"_q, FormatearFecha(t, u"(DDD) DD/MM/YYYY hh:mm"));
  EXPECT_EQ("20261125"_q, FormatearFecha(t, u"yyyymmdd"));
}

}  // namespace
