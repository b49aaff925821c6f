#include "platform/io/puertos_sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>

#include "platform/io/archivo.h"
#include "platform/io/estado_impresora.h"
#include "platform/io/linea_impresora.h"
#include "platform/io/perfil.h"
#include "platform/io/senales.h"
#include "platform/text/texto.h"

namespace {

constexpr qint64 kMaximoEnvio = 64 << 20;
constexpr int kCola_ms = 10'000;
const QString kImpresoraPdf = QStringLiteral("Impresora PDF");
const QString kPuertoPorDefecto = QStringLiteral("LPT1");
const QString kRed = QStringLiteral("tcp:"), kCola = QStringLiteral("cola:");
const QString kPuertos = QStringLiteral("PUERTOS"), kImpresoras = QStringLiteral("IMPRESORAS");

bool esCola(const QString& lugar) { return lugar.startsWith(kCola, Qt::CaseInsensitive); }

// A place that needs no map: it can't be the name of a port.
bool esLugar(const QString& nombre) {
  return nombre.startsWith(kRed, Qt::CaseInsensitive) || esCola(nombre) || nombre.startsWith(u"/dev/");
}

// A name that may stand in a folder on every system.
QString comoArchivo(const QString& nombre) {
  QString sale = nombre;
  for (QChar& c : sale) {
    if (c.unicode() < 0x20 || QStringLiteral("\\/:*?\"<>|").contains(c)) c = u'_';
  }
  while (sale.endsWith(u'.') || sale.endsWith(u' ')) sale.chop(1);
  return sale.isEmpty() ? QStringLiteral("_") : sale;
}

QByteArray comoBytes(const QStringList& textos) {
  QString todo;
  for (const QString& t : textos) todo += t + QStringLiteral("\r\n");
  return AUnByte(todo);
}

// What section [PUERTOS] has for a port, "" for nothing.
QString lugarEscrito(const QString& configuracion, const QString& puerto) {
  QString mapa;
  for (const auto& [clave, valor] : LeerSeccionPerfil(configuracion, kPuertos)) {
    const bool igual = clave.compare(puerto, Qt::CaseInsensitive) == 0;
    const bool sinDosPuntos = puerto.endsWith(u':') && clave.compare(puerto.chopped(1), Qt::CaseInsensitive) == 0;
    if (igual || sinDosPuntos) mapa = valor;
    if (igual) break;
  }
  return mapa;
}

}  // namespace

struct PuertosSistema::Destino {
  QString ruta;
  bool crear = false;  // a file that is made when it isn't there; a device never is
};

PuertosSistema::PuertosSistema(const QString& carpeta, ImpresorasSistema* sistema, const QString& aparatos)
    : carpeta_(carpeta), sistema_(sistema), aparatos_(aparatos) {
  FallasDeEscrituraComoErrores();  // a printer server that hangs up must not end the till
}

QString PuertosSistema::configuracion() const { return carpeta_ + QStringLiteral("/KEB.cfg"); }

PuertosSistema::Destino PuertosSistema::destinoDe(const QString& puerto) const {
  QString nombre = puerto.trimmed();
  QString mapa = lugarEscrito(configuracion(), nombre);
  if (mapa.isEmpty() && esLugar(nombre)) mapa = nombre;
  if (!mapa.isEmpty()) {
    if (mapa.startsWith(kRed, Qt::CaseInsensitive) || esCola(mapa)) return {mapa, false};
    const QString ruta = QDir(carpeta_).absoluteFilePath(mapa);
    return {ruta, !ruta.startsWith(QStringLiteral("/dev/")) && !ruta.startsWith(QStringLiteral("\\\\.\\"))};
  }
#ifdef Q_OS_WIN
  return {nombre, false};
#else
  return {carpeta_ + QStringLiteral("/puertos/") + comoArchivo(nombre), true};
#endif
}

QStringList DocumentoImpreso::textos() const {
  QStringList lista;
  for (const auto& parte : partes) lista << parte.texto;
  return lista;
}

std::optional<QString> PuertosSistema::copiar(const QString& archivo, const QString& puerto) {
  if (puerto.trimmed().isEmpty()) {
    return QStringLiteral("No se pudo imprimir: la impresora no tiene puerto. Revise la configuración de impresoras.");
  }
  QByteArray bytes;
  if (const auto e = LeerBytes(archivo, bytes, kMaximoEnvio)) {
    return QStringLiteral("No se pudo leer el archivo de impresión %1: %2.").arg(archivo, *e);
  }
  const Destino d = destinoDe(puerto);
  if (d.crear) QDir().mkpath(QFileInfo(d.ruta).path());
  if (const auto e = esCola(d.ruta) ? enCola(archivo, d.ruta.mid(kCola.size())) : enviar(d, bytes)) {
    return QStringLiteral(
               "No se pudo enviar al puerto %1 (%2): %3. Revise la impresora y vuelva a imprimir el documento.")
        .arg(puerto, d.ruta, *e);
  }
  return {};
}

std::optional<QString> PuertosSistema::enviar(const Destino& d, const QByteArray& bytes) {
  LineaImpresora linea;
  if (const auto e = linea.abrir(d.ruta, d.crear, alEsperar)) return e;
  if (linea.responde() && !calladas_.contains(d.ruta)) {
    const EstadoImpresora estado = PreguntarEstado(linea);
    if (!estado.responde) calladas_.insert(d.ruta);  // not asked again: each time would cost the customer's
    if (const auto e = estado.impedimento()) return e;
  }
  return linea.escribir(bytes);
}

// The system's own command, since a queue takes raw bytes by no other way that all systems of printing share.
std::optional<QString> PuertosSistema::enCola(const QString& archivo, const QString& cola) const {
  const auto alFinal = qScopeGuard([this] {
    if (alEsperar) alEsperar({}, 0);
  });
  QProcess lp;
  lp.start(QStringLiteral("lp"),
           {QStringLiteral("-d"), cola, QStringLiteral("-o"), QStringLiteral("raw"), QStringLiteral("--"), archivo});
  int van = 0;
  for (; !lp.waitForFinished(kPasoEspera_ms); van += kPasoEspera_ms) {
    if (lp.error() == QProcess::FailedToStart) {
      return QStringLiteral("este equipo no tiene la orden lp de su sistema de impresión");
    }
    if (van >= kCola_ms) {
      lp.kill();
      lp.waitForFinished(kPasoEspera_ms);
      return QStringLiteral("la cola %1 no acepta el documento").arg(cola);
    }
    if (alEsperar) alEsperar(QStringLiteral("Esperando a la impresora…"), van);
  }
  if (lp.exitStatus() == QProcess::NormalExit && lp.exitCode() == 0) return {};
  const QString palabras = QString::fromLocal8Bit(lp.readAllStandardError()).simplified();
  return palabras.isEmpty() ? QStringLiteral("la cola %1 no acepta el documento").arg(cola) : palabras;
}

void PuertosSistema::enviarSinEsperar(const QString& archivo, const QString& puerto) {
  const Destino d = destinoDe(puerto);
  // A file takes the bytes at once; an address or a queue is nothing that a command could write into.
  if (d.crear || esCola(d.ruta) || d.ruta.startsWith(kRed, Qt::CaseInsensitive)) {
    (void)copiar(archivo, puerto);
    return;
  }
#ifdef Q_OS_WIN
  QProcess::startDetached(QStringLiteral("cmd.exe"),
                          {QStringLiteral("/c"), QStringLiteral("TYPE"), archivo, QStringLiteral(">"), d.ruta});
#else
  QProcess::startDetached(QStringLiteral("/bin/sh"),
                          {QStringLiteral("-c"), QStringLiteral("cat \"$0\" > \"$1\" 2>/dev/null"), archivo, d.ruta});
#endif
}

QList<ImpresoraSistema> PuertosSistema::impresoras() {
  QList<ImpresoraSistema> lista;
  auto propias = LeerSeccionPerfil(configuracion(), kImpresoras);
  if (sistema_) {
    for (const QString& nombre : sistema_->nombres()) {
      // A system printer named in the section too takes its port from there.
      ImpresoraSistema una{nombre, kPuertoPorDefecto};
      propias.removeIf([&una](const auto& propia) {
        if (propia.first != una.nombre) return false;
        una.puerto = propia.second;
        return true;
      });
      lista << una;
    }
  }
  for (const auto& [nombre, puerto] : propias) lista << ImpresoraSistema{nombre, puerto};
  if (lista.isEmpty()) lista << ImpresoraSistema{kImpresoraPdf, kPuertoPorDefecto};
  return lista;
}

// USB printers first, then parallel ports, then what is serial: adapters, and ports that have a chip behind them.
QStringList PuertosSistema::lugares() {
  QStringList lista;
  const QDir raiz(aparatos_);
  for (const char* patron : {"usb/lp*", "lp*", "ttyUSB*", "ttyACM*", "ttyS*"}) {
    const QFileInfo grupo(QString::fromLatin1(patron));
    const QDir carpeta(raiz.filePath(grupo.path()));
    for (const QString& nombre : carpeta.entryList({grupo.fileName()}, QDir::System | QDir::Files, QDir::Name)) {
      QFile clase(QStringLiteral("/sys/class/tty/%1/type").arg(nombre));
      const bool vacia =
          clase.open(QIODevice::ReadOnly) && clase.readAll().trimmed() == "0" && nombre.startsWith(u"ttyS");
      if (!vacia) lista << QDir::cleanPath(carpeta.filePath(nombre));
    }
  }
  if (sistema_) {
    for (const QString& nombre : sistema_->nombres()) lista << kCola + nombre;
  }
  return lista;
}

QString PuertosSistema::lugarDe(const QString& puerto) { return lugarEscrito(configuracion(), puerto.trimmed()); }

std::optional<QString> PuertosSistema::llevar(const QString& puerto, const QString& lugar) {
  calladas_.remove(lugar);  // another printer may stand there now
  return EscribirPerfil(configuracion(), kPuertos, puerto.trimmed(), lugar);
}

std::optional<QString> PuertosSistema::nombrar(const QString& impresora, const QString& puerto) {
  return EscribirPerfil(configuracion(), kImpresoras, impresora, puerto);
}

QString PuertosSistema::impresoraPorDefecto() {
  const QString propia = sistema_ ? sistema_->porDefecto() : QString();
  return propia.isEmpty() ? impresoras().front().nombre : propia;
}

std::optional<QString> PuertosSistema::imprimir(const QString& impresora, const QString& letra, int tamano,
                                                const DocumentoImpreso& documento) {
  if (sistema_ && sistema_->nombres().contains(impresora)) {
    const auto e = sistema_->imprimir(impresora, letra, tamano, documento);
    if (!e) return {};
    return QStringLiteral("No se pudo imprimir en %1: %2. Revise la impresora y vuelva a imprimir el documento.")
        .arg(impresora, *e);
  }
  const auto lista = impresoras();
  for (const auto& i : lista) {
    if (i.nombre == impresora) return imprimirEnCarpeta(impresora, letra, tamano, documento);
  }
  return QStringLiteral("La impresora %1 no está en este equipo. Elija otra en la configuración de impresoras.")
      .arg(impresora);
}

std::optional<QString> PuertosSistema::imprimirEnCarpeta(const QString& impresora, const QString& letra, int tamano,
                                                         const DocumentoImpreso& documento) {
  const QDir impresos(carpeta_ + QStringLiteral("/impresos"));
  const auto fallo = [&impresos](const QString& palabras) {
    return QStringLiteral("No se pudo guardar el documento en %1: %2.").arg(impresos.path(), palabras);
  };
  if (!QDir().mkpath(impresos.path())) return fallo(QStringLiteral("no se pudo crear la carpeta"));
  if (ultimoImpreso_ < 0) {
    ultimoImpreso_ = 0;
    for (const QString& nombre : impresos.entryList({QStringLiteral("*.txt")}, QDir::Files)) {
      ultimoImpreso_ = std::max(ultimoImpreso_, nombre.chopped(4).section(u'_', -1).toInt());
    }
  }
  const QString base = impresos.filePath(comoArchivo(impresora) + u'_' + Ceros(QString::number(++ultimoImpreso_), 6));
  if (const auto e = SustituirArchivo(base + QStringLiteral(".txt"), comoBytes(documento.textos()))) return fallo(*e);
  if (!sistema_) return {};
  if (const auto e = sistema_->escribirPdf(base + QStringLiteral(".pdf"), letra, tamano, documento)) return fallo(*e);
  return {};
}
