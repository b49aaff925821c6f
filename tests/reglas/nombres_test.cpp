// One number, one name: what names and codes must not do, each rule with an example that breaks it.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace {

// path below src/ -> text
using Fuentes = QMap<QString, QString>;

Fuentes fuentes() {
  Fuentes r;
  const QDir src(QStringLiteral(TARVOPOS_FUENTES "/src"));
  for (QDirIterator i(src.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
    QFile f(i.next());
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(f.fileName());
    r[src.relativeFilePath(f.fileName())] = QString::fromUtf8(f.readAll());
  }
  return r;
}

QSet<QString> nombres(const QRegularExpression& regla, const QString& texto) {
  QSet<QString> r;
  for (auto i = regla.globalMatch(texto); i.hasNext();) r += i.next().captured(1);
  return r;
}

// Functions at the margin, declared or defined.
QSet<QString> funciones(const QString& texto) {
  static const QRegularExpression regla(
      R"(^(?!return|else|using|typedef|template|struct|class|enum|namespace|case)[\[\w])"
      R"([\[\]\w:<>,&*. ]*[ &*>](\w+)\((?!\*))",
      QRegularExpression::MultilineOption);
  return nombres(regla, texto);
}

// Types that a header gives to everybody.
QSet<QString> tipos(const QString& texto) {
  static const QRegularExpression regla(R"(^(?:struct|class|enum class|enum) (\w+)(?: final)?(?: : [^;{]*)? \{)",
                                        QRegularExpression::MultilineOption);
  return nombres(regla, texto);
}

// A code of a row or of a document that is written out in place of its name.
bool codigoSuelto(const QString& ruta, const QString& texto) {
  static const QRegularExpression regla(R"('1[0-4]'|\bcOperTipo\b[^"$%]{0,12}\b2[0-4]\b)",
                                        QRegularExpression::CaseInsensitiveOption);
  return !ruta.startsWith(u"platform/") && regla.match(texto).hasMatch();
}

// The ground rooms speak the words of engines and toolkit, which a room may say in its own way.
bool esSuelo(const QString& ruta) { return ruta.startsWith(u"platform/") || ruta.startsWith(u"foundation/"); }

QStringList faltas(const Fuentes& todas) {
  QStringList r;
  QMap<QString, QSet<QString>> publicas;  // in lower case -> as written
  QMap<QString, QString> dueno;
  for (auto i = todas.begin(); i != todas.end(); ++i) {
    if (!i.key().endsWith(u".h")) continue;
    for (const QString& t : tipos(i.value())) {
      if (dueno.contains(t)) r += t + QStringLiteral(" is a type in ") + dueno[t] + QStringLiteral(" and ") + i.key();
      dueno[t] = i.key();
    }
    if (esSuelo(i.key())) continue;
    for (const QString& f : funciones(i.value())) publicas[f.toLower()] += f;
  }
  for (auto i = todas.begin(); i != todas.end(); ++i) {
    if (codigoSuelto(i.key(), i.value())) r += i.key() + QStringLiteral(" writes a code out");
    if (esSuelo(i.key())) continue;
    for (const QString& f : funciones(i.value())) {
      const QSet<QString> otras = publicas.value(f.toLower());
      if (!otras.isEmpty() && otras != QSet<QString>{f})
        r += i.key() + QStringLiteral(": ") + f + QStringLiteral(" is taken");
    }
  }
  return r;
}

TEST(Nombres, EachRuleFindsItsBadExample) {
  const QString publica = QStringLiteral("// A line.\nLineaDocumento LineaDe(const Puesto& p, int fila);\n");
  // clang-format off
  const struct { Fuentes fuentes; bool bien; } kEjemplos[] = {
      {{{"sale/a.h", publica}, {"sale/b.cpp", "  LineaDocumento lineaDe(1);\n"}}, true},
      {{{"sale/a.h", publica}, {"voiding/b.cpp", "QString lineaDe(const Linea& l) {\n"}}, false},
      {{{"sale/a.h", publica + "[[nodiscard]] bool LINEADE(Puesto& p);\n"}}, false},
      {{{"platform/a.h", publica}, {"sale/b.cpp", "QString lineaDe(int n) {\n"}}, true},
      {{{"sale/a.h", "struct Linea {\n"}, {"documento/b.h", "struct Linea;\n"}}, true},
      {{{"sale/a.h", "struct Linea {\n"}, {"documento/b.h", "enum class Linea {\n"}}, false},
      {{{"sale/a.cpp", "u\" AND cOperTipo = $\"_sql\nconstexpr int kDias = 21;\n"}}, true},
      {{{"sale/a.cpp", "u\" AND cOperTipo IN (22, 23)\"_sql\n"}}, false},
      {{{"voiding/a.cpp", "u\" AND cDocTipo = '14'\"_sql\n"}}, false},
  };
  // clang-format on
  for (const auto& e : kEjemplos) EXPECT_EQ(e.bien, faltas(e.fuentes).isEmpty()) << qPrintable(e.fuentes.last());
}

TEST(Nombres, TheSourcesKeepThem) {
  const Fuentes todas = fuentes();
  EXPECT_GT(todas.size(), 20);
  for (const QString& f : faltas(todas)) ADD_FAILURE() << qPrintable(f);
}

}  // namespace
