#include "admin/guion_lexico.h"
#include "apoyo/casos.h"

#include <gtest/gtest.h>

namespace {

// "verb|argument|...", "" for nothing to do, "error" for a line that is refused.
QString leida(const QString& linea) {
  try {
    const auto a = leerAccion(linea, 1);
    return a ? QStringList(QStringList{a->verbo} + a->argumentos).join(u'|') : QString();
  } catch (const ErrorGuion&) {
    return QStringLiteral("error");
  }
}

TEST(Lexico, TheLastArgumentRunsToTheEndOfTheLine) {
  for (const auto& c : leerCasos("guion/lexico")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(leida(c["linea"]), c["leida"]);
  }
}

TEST(Lexico, WholeNumbersAreDigitsOnly) {
  for (const auto& c : leerCasos("guion/enteros")) {
    SCOPED_TRACE(c.donde());
    const Accion a{1, QStringLiteral("falla"), {c["texto"]}};
    int valor = -1;
    try {
      valor = a.entero(0, c.entero("minimo"));
    } catch (const ErrorGuion&) {
    }
    EXPECT_EQ(valor, c.entero("valor"));
  }
}

TEST(Lexico, EveryLineBreakBecomesOneMark) {
  EXPECT_EQ(enUnaLinea(QStringLiteral("a\r\nb\rc\nd\r\n\r\ne")), "a\\nb\\nc\\nd\\n\\ne");
}

// Takes all lines that are there: "n:line" each, "n!" for one that is no UTF-8, "." for more to come, "$" at the end.
QString tomadas(FuenteGuion& f) {
  QStringList r;
  for (;;) {
    QString linea;
    try {
      const auto estado = f.tomar(linea);
      if (estado == FuenteGuion::Estado::Hay) {
        r << QString::number(f.numero()) + u':' + linea;
        continue;
      }
      r << (estado == FuenteGuion::Estado::Fin ? QStringLiteral("$") : QStringLiteral("."));
      return r.join(u' ');
    } catch (const ErrorGuion&) {
      r << QString::number(f.numero()) + u'!';
    }
  }
}

TEST(Fuente, LinesComeWholeWhateverTheChunks) {
  FuenteGuion f;
  int avisos = 0;
  f.alLlegar = [&] { ++avisos; };
  f.alimentar("\xEF\xBB\xBFuno\r\ndo");
  EXPECT_EQ(tomadas(f), "1:uno .");
  f.alimentar("s \xC3");
  EXPECT_EQ(tomadas(f), ".");
  EXPECT_EQ(avisos, 1) << "half a line is no news";
  f.alimentar("\xB1\n\n");
  EXPECT_EQ(tomadas(f), QStringLiteral("2:dos ñ 3: ."));
  f.alimentar("mal \xF1\nbien\n");
  EXPECT_EQ(tomadas(f), "4! 5:bien .");
  f.alimentar("fin");
  f.cerrar();
  EXPECT_EQ(tomadas(f), "6:fin $") << "the last line needs no break";
  EXPECT_EQ(tomadas(f), "$");
}

TEST(Fuente, AnEmptyInputEndsAtOnce) {
  FuenteGuion f;
  EXPECT_EQ(tomadas(f), ".");
  f.cerrar();
  EXPECT_EQ(tomadas(f), "$");
}

}  // namespace
