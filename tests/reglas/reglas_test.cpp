// House rules, each with an example that breaks it.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include "medidas.h"

namespace {

// What a room may include beside itself, with all that those may include.
const QMap<QString, QStringList> kPuedeIncluir = {
    {"platform", {}},
    {"foundation", {"platform"}},
    {"store", {"foundation"}},
    {"alta", {"store"}},
    {"printing", {"store"}},
    {"documento", {"printing"}},
    {"loyalty", {"documento"}},
    {"backoffice", {"store"}},
    {"sale", {"documento", "loyalty"}},
    {"voiding", {"documento", "loyalty"}},
    {"credit", {"documento", "loyalty"}},
    {"sync", {"documento", "loyalty"}},
    {"cashday", {"documento", "sync"}},
    {"app", {"alta", "cashday", "sale", "voiding", "credit", "backoffice"}},
    {"admin", {"app", "servidores"}},
};

// Who may open a database: the desk's data access, and the support console, which has no desk.
const QStringList kAbrenBases = {"platform/sql/conexion.cpp", "foundation/db_admin.cpp", "admin/consola_sql.cpp"};

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
  static const QRegularExpression apertura(R"(\bmotores(_|\(\))?\.abrir\(|\.abrir\((p\.|p_\.)?motores)");
  if (!kAbrenBases.contains(ruta) && apertura.match(texto).hasMatch()) r += ruta + ": opens a database";
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
      {"sale/x.cpp", "central.abrir(p.motores, cadena, 20000);\n", false},
      {"foundation/db_admin.cpp", "cnn.abrir(p_.motores, cadena, espera_ms);\n", true},
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

TEST(Reglas, EachMeasureFindsItsBadExample) {
  const QString linea = QStringLiteral("  a();\n");
  const QString funcion = QStringLiteral("void f() {\n") + linea.repeated(kLineasFuncion - 2) + QStringLiteral("}\n");
  EXPECT_EQ(QStringList(), excesos("x.cpp", funcion));
  EXPECT_EQ(QStringList("x.cpp:1: a function of 81 lines"), excesos("x.cpp", QString(funcion).replace("{\n", "{\n\n")));
  EXPECT_EQ(QStringList(), excesos("x.cpp", linea.repeated(kLineasArchivo)));
  EXPECT_EQ(QStringList("x.cpp: 401 lines"), excesos("x.cpp", linea.repeated(kLineasArchivo + 1)));
  EXPECT_EQ(QStringList(), excesos("x.cpp", QString(kColumnas, u'a')));
  EXPECT_EQ(QStringList("x.cpp:1: 121 columns"), excesos("x.cpp", QString(kColumnas + 1, u'a')));
}

TEST(Reglas, TheSourcesKeepTheirMeasures) {
  const QDir raiz(QStringLiteral(TARVOPOS_FUENTES));
  for (const char* carpeta : {"src", "server", "tests", "bench"}) {
    const QString base = raiz.filePath(QString::fromLatin1(carpeta));
    for (QDirIterator i(base, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
      const QString archivo = i.next();
      for (const QString& e : excesos(raiz.relativeFilePath(archivo), leer(archivo))) ADD_FAILURE() << qPrintable(e);
    }
  }
}

// The list that has to name a source: the one of its own folder, else the nearest above it.
QString listaDe(const QFileInfo& fuente) {
  QDir d = fuente.dir();
  while (!d.exists(QStringLiteral("CMakeLists.txt"))) d.cdUp();
  return d.filePath(QStringLiteral("CMakeLists.txt"));
}

bool nombra(const QString& lista, const QString& relativa) {
  return QRegularExpression(R"((^|[\s(]))" + QRegularExpression::escape(relativa) + R"(($|[\s)]))")
      .match(lista)
      .hasMatch();
}

// A source that its room's list does not name is built by nobody, or by a room that does not answer for it.
TEST(Reglas, EverySourceIsInItsOwnRoomsList) {
  EXPECT_TRUE(nombra("sala(x LOGICA a.cpp sub/b.cpp)", "sub/b.cpp"));
  EXPECT_FALSE(nombra("sala(x LOGICA otra_a.cpp)", "a.cpp"));
  const QDir raiz(QStringLiteral(TARVOPOS_FUENTES));
  for (const char* carpeta : {"src", "server", "tests", "bench"}) {
    const QString base = raiz.filePath(QString::fromLatin1(carpeta));
    for (QDirIterator i(base, {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories); i.hasNext();) {
      const QFileInfo fuente(i.next());
      const QString lista = listaDe(fuente);
      const QString relativa = QFileInfo(lista).dir().relativeFilePath(fuente.filePath());
      EXPECT_TRUE(nombra(leer(lista), relativa)) << qPrintable(raiz.relativeFilePath(fuente.filePath()));
    }
  }
}

}  // namespace
