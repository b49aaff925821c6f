#include "admin/guion_lexico.h"

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
  const struct { const char *porque, *linea, *leida; } kCasos[] = {
      {"blank", " \t ", ""},
      {"comment", "  # inicia", ""},
      {"no argument", "\tinicia", "inicia"},
      {"array element", "clic cmdTecla(2)", "clic|cmdTecla(2)"},
      {"blanks inside and behind count, those in front don't", "escribe  txtRUC   a  b ", "escribe|txtRUC|a  b "},
      {"a number sign in a text is text", "escribe txtRUC # 1", "escribe|txtRUC|# 1"},
      {"behind other arguments it is a comment", "tecla F5 # busca", "tecla|F5"},
      {"text may be empty", "escribe txtRUC", "escribe|txtRUC"},
      {"cell with text", "celda TDBGrid1 1 6 2 x", "celda|TDBGrid1|1|6|2 x"},
      {"cell emptied", "celda TDBGrid1 1 6", "celda|TDBGrid1|1|6"},
      {"entry with blanks", "elige cboTipoVenta ANULAR TRANSACCION", "elige|cboTipoVenta|ANULAR TRANSACCION"},
      {"answer without text", "responde Sí", "responde|Sí"},
      {"port with blanks", "cae puerto \\\\sala\\mi ticketera", "cae|puerto|\\\\sala\\mi ticketera"},
      {"unknown", "pulsa F5", "error"},
      {"case counts", "Inicia", "error"},
      {"one short", "reloj 25/11/2026", "error"},
      {"one too many", "clic cmdA cmdB", "error"},
      {"entry without text", "elige cboTipoVenta", "error"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(leida(QString::fromUtf8(c.linea)), QString::fromUtf8(c.leida));
  }
}

TEST(Lexico, WholeNumbersAreDigitsOnly) {
  const struct { const char* texto; int minimo, valor; } kCasos[] = {
      {"1", 1, 1}, {"007", 1, 7}, {"999999999", 0, 999999999}, {"0", 0, 0},
      {"0", 1, -1}, {"-1", 0, -1}, {"1.5", 0, -1}, {"1e3", 0, -1}, {"", 0, -1}, {"1000000000", 0, -1}, {"٣", 0, -1},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.texto);
    const Accion a{1, QStringLiteral("falla"), {QString::fromUtf8(c.texto)}};
    int valor = -1;
    try {
      valor = a.entero(0, c.minimo);
    } catch (const ErrorGuion&) {
    }
    EXPECT_EQ(valor, c.valor);
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
