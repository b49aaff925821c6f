#include "platform/io/perfil.h"

#include <QFileInfo>
#include <QStringList>

#include "platform/io/archivo.h"
#include "platform/text/texto.h"

namespace {

constexpr qint64 kMaximo = 1 << 20;  // far above any settings file; a picture in its place is not read whole
const QByteArray kMarcaUtf8("\xEF\xBB\xBF");

// The lines of the file, each with its line end, and the mark that some editors put in front.
struct Contenido {
  bool conMarca = false;
  QStringList lineas;
};

QStringList enLineas(const QString& texto) {
  QStringList lineas;
  for (qsizetype i = 0; i < texto.size();) {
    const qsizetype fin = texto.indexOf(u'\n', i);
    const qsizetype hasta = fin < 0 ? texto.size() : fin + 1;
    lineas << texto.mid(i, hasta - i);
    i = hasta;
  }
  return lineas;
}

// Bytes that no settings text holds: control characters other than blanks and the editor's end mark.
bool esBinario(const QByteArray& bytes) {
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x20 && b != '\t' && b != '\r' && b != '\n' && b != '\f' && b != 0x1A) return true;
  }
  return false;
}

// Gives the words of a failure, without the path.
std::optional<QString> leer(const QString& archivo, Contenido& c) {
  const QFileInfo info(archivo);
  if (!info.exists() && !info.isSymLink()) return {};
  if (info.isDir()) return QStringLiteral("es una carpeta");
  if (info.exists() && !info.isFile())
    return QStringLiteral("no es un archivo de texto");  // a pipe would wait for ever
  QByteArray bytes;
  if (auto e = LeerBytes(archivo, bytes, kMaximo)) return e;
  if (esBinario(bytes)) return QStringLiteral("no es un archivo de texto");
  c.conMarca = bytes.startsWith(kMarcaUtf8);
  if (c.conMarca) bytes.remove(0, kMarcaUtf8.size());
  c.lineas = enLineas(DeUnByte(bytes));
  return {};
}

QString conRuta(const QString& archivo, const QString& palabras) {
  return QStringLiteral("El archivo de configuración %1: %2.").arg(archivo, palabras);
}

std::optional<QString> nombreSeccion(const QString& linea) {
  const QString t = linea.trimmed();
  if (!t.startsWith(u'[')) return {};
  const qsizetype fin = t.indexOf(u']');
  return t.mid(1, fin < 0 ? -1 : fin - 1).trimmed();
}

std::optional<std::pair<QString, QString>> claveValor(const QString& linea) {
  const QString t = linea.trimmed();
  const qsizetype igual = t.indexOf(u'=');
  if (igual <= 0 || t.startsWith(u';')) return {};
  QString valor = t.mid(igual + 1).trimmed();
  if (valor.size() >= 2 && (valor[0] == u'"' || valor[0] == u'\'') && valor.back() == valor[0]) {
    valor = valor.mid(1, valor.size() - 2);
  }
  return std::pair(t.left(igual).trimmed(), Izquierda(valor, kLargoValorPerfil));
}

bool iguales(const QString& a, const QString& b) { return a.compare(b.trimmed(), Qt::CaseInsensitive) == 0; }

// The lines [desde, hasta) that belong to the first section of that name; false when there is none.
bool hallarSeccion(const QStringList& lineas, const QString& seccion, qsizetype& desde, qsizetype& hasta) {
  desde = -1;
  for (hasta = 0; hasta < lineas.size(); ++hasta) {
    const auto nombre = nombreSeccion(lineas[hasta]);
    if (!nombre) continue;
    if (desde >= 0) return true;
    if (iguales(*nombre, seccion)) desde = hasta + 1;
  }
  return desde >= 0;
}

// A value that would lose its own quotes or outer blanks when it is read gets quotes around it.
QString comoValor(const QString& valor) {
  const bool pierde = valor != valor.trimmed() ||
                      (valor.size() >= 2 && (valor[0] == u'"' || valor[0] == u'\'') && valor.back() == valor[0]);
  return pierde ? u'"' + valor + u'"' : valor;
}

void ponerClave(QStringList& lineas, const QString& seccion, const QString& clave, const QString& valor) {
  const QString fin = lineas.isEmpty() || lineas[0].endsWith(u"\r\n") ? QStringLiteral("\r\n") : QStringLiteral("\n");
  const QString linea = clave + u'=' + comoValor(valor) + fin;
  if (!lineas.isEmpty() && !lineas.back().endsWith(u'\n')) lineas.back() += fin;
  qsizetype desde = 0, hasta = 0;
  if (!hallarSeccion(lineas, seccion, desde, hasta)) {
    lineas << u'[' + seccion + u']' + fin << linea;
    return;
  }
  for (qsizetype i = desde; i < hasta; ++i) {
    const auto kv = claveValor(lineas[i]);
    if (!kv || !iguales(kv->first, clave)) continue;
    lineas[i] = lineas[i].left(lineas[i].indexOf(u'=') + 1) + comoValor(valor) + fin;
    return;
  }
  // Blank lines that set the next section off stay where they are.
  while (hasta > desde && lineas[hasta - 1].trimmed().isEmpty()) --hasta;
  lineas.insert(hasta, linea);
}

bool tieneControl(const QString& texto) {
  for (const QChar c : texto) {
    if (c.unicode() < 0x20 && c != u'\t') return true;
  }
  return false;
}

}  // namespace

std::optional<QString> LeerPerfil(const QString& archivo, const QString& seccion, const QString& clave) {
  Contenido c;
  if (leer(archivo, c)) return {};
  qsizetype desde = 0, hasta = 0;
  if (!hallarSeccion(c.lineas, seccion, desde, hasta)) return QString();
  for (qsizetype i = desde; i < hasta; ++i) {
    const auto kv = claveValor(c.lineas[i]);
    if (kv && iguales(kv->first, clave)) return kv->second;
  }
  return QString();
}

QList<std::pair<QString, QString>> LeerSeccionPerfil(const QString& archivo, const QString& seccion) {
  QList<std::pair<QString, QString>> claves;
  Contenido c;
  qsizetype desde = 0, hasta = 0;
  if (leer(archivo, c) || !hallarSeccion(c.lineas, seccion, desde, hasta)) return claves;
  for (qsizetype i = desde; i < hasta; ++i) {
    if (const auto kv = claveValor(c.lineas[i])) claves << *kv;
  }
  return claves;
}

std::optional<QString> EscribirPerfil(const QString& archivo, const QString& seccion, const QString& clave,
                                      const QString& valor) {
  if (valor.size() > kLargoValorPerfil) {
    return conRuta(archivo, QStringLiteral("el valor de %1 pasa de %2 caracteres").arg(clave).arg(kLargoValorPerfil));
  }
  if (tieneControl(valor)) return conRuta(archivo, QStringLiteral("el valor de %1 ocupa más de una línea").arg(clave));
  Contenido c;
  if (auto e = leer(archivo, c)) return conRuta(archivo, *e);
  const QStringList antes = c.lineas;
  ponerClave(c.lineas, seccion, clave, valor);
  if (c.lineas == antes) return {};  // settings are written far more often than they change
  const QByteArray bytes = (c.conMarca ? kMarcaUtf8 : QByteArray()) + AUnByte(c.lineas.join(QString()));
  if (auto e = SustituirArchivo(archivo, bytes)) return conRuta(archivo, *e);
  return {};
}

std::optional<QString> ComprobarPerfil(const QString& archivo) {
  Contenido c;
  if (auto e = leer(archivo, c)) return conRuta(archivo, *e);
  return {};
}
