// House rules, each with an example that breaks it.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace {

// What a room may include beside itself, with all that those may include.
const QMap<QString, QStringList> kPuedeIncluir = {
    {"platform", {}},
    {"foundation", {"platform"}},
    {"store", {"foundation"}},
    {"printing", {"store"}},
    {"documento", {"printing"}},
    {"loyalty", {"documento"}},
    {"backoffice", {"store"}},
    {"sale", {"documento", "loyalty"}},
    {"voiding", {"documento", "loyalty"}},
    {"credit", {"documento", "loyalty"}},
    {"sync", {"documento", "loyalty"}},
    {"cashday", {"documento", "sync"}},
    {"app", {"cashday", "sale", "voiding", "credit", "backoffice"}},
    {"admin", {"app", "servidores"}},
};

QSet<QString> alcance(const QString& sala) {
  QSet<QString> r{sala};
  for (const QString& s : kPuedeIncluir.value(sala)) r.unite(alcance(s));
  return r;
}

bool esForma(const QString& ruta) {
  return ruta.section(u'/', -1).startsWith(u"frm_") || ruta.startsWith(u"platform/ui/");
}

// The faults of one file; `ruta` is its path below src/.
QStringList faltas(const QString& ruta, const QString& texto) {
  const QString sala = ruta.section(u'/', 0, 0);
  const QSet<QString> permitidas = alcance(sala);
  static const QRegularExpression incluye(R"(^\s*#\s*include\s*"([^"/]+)/)", QRegularExpression::MultilineOption);
  QStringList r;
  for (auto i = incluye.globalMatch(texto); i.hasNext();) {
    const QString otra = i.next().captured(1);
    if (kPuedeIncluir.contains(otra) && !permitidas.contains(otra)) r += ruta + ": includes " + otra;
  }
  if (!esForma(ruta) && sala != "app" && sala != "admin") {
    static const QRegularExpression forma(R"(#\s*include\s*["<][^">]*(frm_\w+\.h|platform/ui/|Qt(Widgets|Gui)/))");
    if (forma.match(texto).hasMatch()) r += ruta + ": logic includes a window";
  }
  static const QRegularExpression reloj(
      R"(\bQTimer\b|currentDateTime|currentDate\(|currentTime\(|currentMSecsSinceEpoch)");
  if (!ruta.startsWith("platform/io/reloj_sistema") && !ruta.startsWith("admin/guion") &&
      reloj.match(texto).hasMatch()) {
    r += ruta + ": a clock of its own";
  }
  static const QRegularExpression numero(
      R"(QString::number\([^;]*'[fegEG]'|\barg\([^;)]*'[fegEG]'|\bQLocale\b|\bsprintf)");
  // The dialects write numbers as their engines do, for statements and not for anybody's eyes.
  if (!ruta.startsWith("platform/text/") && !ruta.startsWith("platform/sql/") && numero.match(texto).hasMatch())
    r += ruta + ": formats a number";
  // A statement that comes as it stands comes from a person or was kept by the program, and is not made there.
  if (!ruta.startsWith("platform/sql/") && ruta != "admin/consola_sql.cpp" && ruta != "foundation/acto_doble.cpp" &&
      texto.contains("Sql::crudo"))
    r += ruta + ": a statement past the door";
  static const QRegularExpression color(R"(QColor\(|QFont\(|setStyleSheet|setFont\()");
  if (ruta.section(u'/', -1).startsWith(u"frm_") && color.match(texto).hasMatch()) {
    r += ruta + ": a colour or font of its own";
  }
  return r;
}

QString leer(const QString& archivo) {
  QFile f(archivo);
  EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(archivo);
  return QString::fromUtf8(f.readAll());
}

TEST(Reglas, EachRuleFindsItsBadExample) {
  // clang-format off
  const struct { const char *ruta, *texto; bool bien; } kEjemplos[] = {
      {"store/x.cpp", "#include \"sale/caja_full.h\"\n", false},
      {"sale/x.cpp", "#include \"store/tablas.h\"\n", true},
      {"cashday/x.h", "#include \"sale/commit.h\"\n", false},
      {"sale/commit.cpp", "#include \"sale/frm_caja_full.h\"\n", false},
      {"sale/frm_x.cpp", "#include \"platform/ui/forma.h\"\n", true},
      {"sale/x.cpp", "#include <QtWidgets/QWidget>\n", false},
      {"sale/x.cpp", "QTimer::singleShot(1, f);\n", false},
      {"sale/x.cpp", "auto t = QDateTime::currentDateTime();\n", false},
      {"sale/x.cpp", "QString::number(v, 'f', 2);\n", false},
      {"sale/x.cpp", "auto s = Sql::crudo(texto);\n", false},
      {"admin/consola_sql.cpp", "auto s = Sql::crudo(linea);\n", true},
      {"sale/frm_x.cpp", "b->setFont(QFont(\"Arial\"));\n", false},
  };
  // clang-format on
  for (const auto& e : kEjemplos) {
    EXPECT_EQ(e.bien, faltas(QString::fromLatin1(e.ruta), QString::fromLatin1(e.texto)).isEmpty()) << e.ruta << e.texto;
  }
}

TEST(Reglas, TheSourcesKeepThem) {
  const QDir src(QStringLiteral(TARVOPOS_FUENTES "/src"));
  int vistos = 0;
  for (QDirIterator i(src.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
    const QString archivo = i.next();
    ++vistos;
    for (const QString& f : faltas(src.relativeFilePath(archivo), leer(archivo))) ADD_FAILURE() << qPrintable(f);
  }
  EXPECT_GT(vistos, 20);
}

// A source that no list names is built by nobody and rots unseen.
TEST(Reglas, EverySourceIsBuilt) {
  const QDir raiz(QStringLiteral(TARVOPOS_FUENTES));
  for (const char* carpeta : {"src", "tests", "bench"}) {
    QString listas;
    const QString base = raiz.filePath(QString::fromLatin1(carpeta));
    for (QDirIterator i(base, {"CMakeLists.txt"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
      listas += leer(i.next());
    }
    for (QDirIterator i(base, {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
      const QString nombre = QFileInfo(i.next()).fileName();
      EXPECT_TRUE(listas.contains(nombre)) << qPrintable(nombre) << " is in no list";
    }
  }
}

}  // namespace
