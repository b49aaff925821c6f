// What the manual and the guide tell a shop: words in quotes, and what is pressed, are those of the screens, and the
// pictures are there.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace {

const QString kRaiz = QStringLiteral(TARVOPOS_FUENTES);

QString leer(const QString& ruta) {
  QFile f(ruta);
  EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(ruta);
  return QString::fromUtf8(f.readAll());
}

QString llano(QString texto) {
  return texto.replace(QStringLiteral("\\n"), QStringLiteral(" ")).remove(u'&').simplified().toLower();
}

// All words of the program, texts that are written over several lines put together.
QString palabras() {
  static const QRegularExpression seguido(R"("\s*\n\s*u?")");
  QString r;
  for (QDirIterator i(kRaiz + QStringLiteral("/src"), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
       i.hasNext();) {
    r += leer(i.next()).remove(seguido) + u'\n';
  }
  return llano(r);
}

// Pieces of `texto` between two marks; what stands for something else ("…") parts one.
QStringList citas(const QString& texto, const QRegularExpression& regla) {
  static const QRegularExpression corte(QStringLiteral("…|\\.\\.\\.|→")), borde(QStringLiteral("^[ .,:;]+|[ .,:;]+$"));
  QStringList r;
  for (auto i = regla.globalMatch(texto); i.hasNext();) {
    for (QString p : i.next().captured(1).split(corte))
      if (p = llano(p.remove(borde)); !p.isEmpty()) r += p;
  }
  return r;
}

}  // namespace

TEST(Manual, SaysWhatTheScreensSay) {
  // What is no text of a screen: an example with a figure of its own, or two captions in one.
  const QSet<QString> kPropias{"mantenga alt y pulse g", "central: sin conexión", "el recibo pa2-",
                               "es de la caja 00002", "no se encuentra / no se puede abrir el archivo con las ventas"};
  static const QRegularExpression cita(QStringLiteral("«([^»]+)»"));
  static const QRegularExpression foto(QStringLiteral("\\]\\(([^)#]+)[#)]"));
  static const QRegularExpression muestra(QStringLiteral("```.*?```"), QRegularExpression::DotMatchesEverythingOption);
  const QString todas = palabras();
  for (const char* nombre : {"manual.md", "instalar.md"}) {
    const QString texto = leer(kRaiz + QStringLiteral("/docs/") + nombre).remove(muestra);
    const QStringList dichas = citas(texto, cita);
    EXPECT_GT(dichas.size(), 5);
    for (const QString& c : dichas)
      EXPECT_TRUE(kPropias.contains(c) || todas.contains(c)) << nombre << ": " << qPrintable(c);
    for (auto i = foto.globalMatch(texto); i.hasNext();) {
      const QString archivo = kRaiz + QStringLiteral("/docs/") + i.next().captured(1);
      EXPECT_TRUE(QFile::exists(archivo)) << qPrintable(archivo);
    }
  }
}
