#include "foundation/respaldo.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <filesystem>

#include "foundation/disco.h"
#include "foundation/puesto.h"
#include "foundation/version.h"
#include "platform/io/archivo.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/sql/copia_sqlite.h"
#include "platform/text/fecha.h"
#include "platform/text/texto.h"

namespace fs = std::filesystem;

namespace {

const QString kAlmacen = QStringLiteral("TarvoPos.mdb"), kAjustes = QStringLiteral("KEB.cfg");
const QString kPropia = QStringLiteral("respaldos"), kFicha = QStringLiteral("respaldo.txt");
const QString kFormatoNombre = QStringLiteral("yyyymmdd-hhnnss");

using Fallo = std::optional<QString>;

QString palabraDe(MotivoRespaldo m) {
  switch (m) {
    case MotivoRespaldo::Apertura: return QStringLiteral("apertura");
    case MotivoRespaldo::Cierre: return QStringLiteral("cierre");
    case MotivoRespaldo::Pedido: break;
  }
  return QStringLiteral("pedido");
}

fs::path ruta(const QString& texto) { return fs::path(texto.toStdU16String()); }

QString ajuste(const Rutas& r, const char* seccion, const char* clave) {
  return LeerPerfil(r.enPrograma(kAjustes), QString::fromLatin1(seccion), QString::fromLatin1(clave))
      .value_or(QString())
      .trimmed();
}

// Databases of the desk's folder, the store first. A server elsewhere has its own keeper.
QStringList basesDe(const Rutas& r) {
  QStringList bases{kAlmacen};
  const std::pair<const char*, const char*> servidores[] = {{"INICIO", "DataServer"}, {"SQLServer", "ServidorSQL"}};
  for (const auto& [seccion, clave] : servidores) {
    const CadenaConexion c = leerCadenaConexion(QStringLiteral("Data Source=") + ajuste(r, seccion, clave));
    const bool aqui = c.tipo == TipoMotor::Embebido && !c.archivo.contains(u'/') && !c.archivo.contains(u'\\');
    if (aqui && QFileInfo(r.enPrograma(c.archivo)).isFile() && !bases.contains(c.archivo)) bases << c.archivo;
  }
  return bases;
}

// Papers and logs, by their paths in the desk's folder.
QStringList papelesDe(const Rutas& r) {
  const QDir puesto(r.programa);
  QStringList papeles = puesto.entryList({QStringLiteral("*.log")}, QDir::Files, QDir::Name);
  for (const char* carpeta : {"puertos", "impresos", "Temp"}) {
    QDirIterator i(puesto.filePath(QLatin1String(carpeta)), QDir::Files, QDirIterator::Subdirectories);
    while (i.hasNext()) papeles << puesto.relativeFilePath(i.next());
  }
  return papeles;
}

bool igual(const QFileInfo& a, const QFileInfo& b) {
  return a.isFile() && b.isFile() && a.size() == b.size() && a.lastModified() == b.lastModified();
}

// One copy under way. What it has made goes again unless it ends well.
class Copia {
 public:
  Copia(const Rutas& r, const QString& carpeta, const QString& nombre)
      : r_(r),
        carpeta_(carpeta),
        destino_(QDir(carpeta).filePath(nombre)),
        borrador_(destino_ + QStringLiteral(".nuevo")) {
    anterior_ = CopiasEn(carpeta).value(0);
  }
  ~Copia() {
    if (!entera_) QDir(borrador_).removeRecursively();
  }
  Copia(const Copia&) = delete;
  Copia& operator=(const Copia&) = delete;

  Fallo hacer(const QString& ficha) {
    QDir(borrador_).removeRecursively();
    if (auto f = hacerSitio()) return f;
    if (!QDir().mkpath(borrador_)) return QStringLiteral("no se puede crear ") + borrador_;
    for (const QString& base : basesDe(r_)) {
      if (auto f = CopiarBaseSqlite(r_.enPrograma(base), enBorrador(base), false))
        return base + QStringLiteral(": ") + *f;
    }
    QByteArray bytes;
    if (auto f = LeerBytes(r_.enPrograma(kAjustes), bytes, 1'000'000)) return f;
    if (auto f = SustituirArchivo(enBorrador(kAjustes), bytes)) return f;
    for (const QString& papel : papelesDe(r_)) {
      if (auto f = copiarPapel(papel)) return papel + QStringLiteral(": ") + *f;
    }
    if (auto f = SustituirArchivo(enBorrador(kFicha), AUnByte(ficha))) return f;
    std::error_code error;
    fs::rename(ruta(borrador_), ruta(destino_), error);
    if (error) return QString::fromLocal8Bit(error.message().c_str());
    CarpetaAlDisco(carpeta_);
    entera_ = true;
    return {};
  }
  const QString& destino() const { return destino_; }

 private:
  QString enBorrador(const QString& nombre) const { return borrador_ + u'/' + nombre; }
  QString enAnterior(const QString& nombre) const { return carpeta_ + u'/' + anterior_ + u'/' + nombre; }

  qint64 tamano() const {
    qint64 n = 0;
    for (const QString& base : basesDe(r_)) {
      for (const char* cola : {"", "-wal"}) n += QFileInfo(r_.enPrograma(base) + QLatin1String(cola)).size();
    }
    for (const QString& papel : papelesDe(r_)) {
      const QFileInfo f(r_.enPrograma(papel));
      if (anterior_.isEmpty() || !igual(f, QFileInfo(enAnterior(papel)))) n += f.size();
    }
    return n;
  }

  // The oldest copies give way; a copy that would leave too little for the sales is not made.
  Fallo hacerSitio() {
    const qint64 hace_falta = tamano() + kReservaDisco;
    QStringList viejas = CopiasEn(carpeta_);
    qint64 libre = EspacioLibre(carpeta_);
    while (libre >= 0 && libre < hace_falta && viejas.size() > kCopiasIntocables) {
      QDir(carpeta_ + u'/' + viejas.takeLast()).removeRecursively();
      libre = EspacioLibre(carpeta_);
    }
    if (libre < 0 || libre >= hace_falta) return {};
    return QStringLiteral("no hay sitio en el disco: quedan %1").arg(EnBytes(libre));
  }

  Fallo copiarPapel(const QString& papel) {
    const QFileInfo de(r_.enPrograma(papel));
    const QString a = enBorrador(papel);
    if (!QDir().mkpath(QFileInfo(a).absolutePath())) return QStringLiteral("no se puede crear su carpeta");
    std::error_code error;
    if (!anterior_.isEmpty() && igual(de, QFileInfo(enAnterior(papel)))) {
      fs::create_hard_link(ruta(enAnterior(papel)), ruta(a), error);
      if (!error) return {};  // a file system without links takes a copy
    }
    if (!fs::copy_file(ruta(de.filePath()), ruta(a), error)) return QString::fromLocal8Bit(error.message().c_str());
    const auto hora = fs::last_write_time(ruta(de.filePath()), error);
    if (!error) fs::last_write_time(ruta(a), hora, error);
    QFile f(a);
    if (!f.open(QIODevice::ReadWrite) || !AlDisco(f)) return QStringLiteral("no se pudo llevar al disco");
    return {};
  }

  const Rutas& r_;
  const QString carpeta_, destino_, borrador_;
  QString anterior_;
  bool entera_ = false;
};

void quitarViejas(const QString& carpeta) {
  const QStringList copias = CopiasEn(carpeta);
  for (int i = kCopiasGuardadas; i < copias.size(); ++i) QDir(carpeta + u'/' + copias[i]).removeRecursively();
}

void copiarEn(const Rutas& r, const QString& carpeta, const QString& nombre, const QString& ficha,
              ResultadoRespaldo& hecho) {
  if (!QDir().mkpath(carpeta)) {
    hecho.fallos << QStringLiteral("no se puede crear la carpeta ") + carpeta;
    return;
  }
  Copia copia(r, carpeta, nombre);
  if (const auto fallo = copia.hacer(ficha)) {
    hecho.fallos << carpeta + QStringLiteral(": ") + *fallo;
    return;
  }
  hecho.copias << copia.destino();
  quitarViejas(carpeta);
}

}  // namespace

std::optional<QDateTime> MomentoDeCopia(const QString& nombre) {
  if (nombre.size() < 17 || nombre[8] != u'-' || nombre[15] != u'-' || nombre.endsWith(u".nuevo")) return {};
  const QDateTime momento = QDateTime::fromString(nombre.left(15), QStringLiteral("yyyyMMdd-HHmmss"));
  return momento.isValid() ? std::optional(momento) : std::nullopt;
}

QStringList CopiasEn(const QString& carpeta) {
  QStringList copias;
  const QStringList nombres = QDir(carpeta).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed);
  for (const QString& n : nombres) {
    if (MomentoDeCopia(n) && QFileInfo::exists(carpeta + u'/' + n + u'/' + kFicha)) copias << n;
  }
  return copias;
}

ResultadoRespaldo CopiarPuesto(const Rutas& rutas, const QDateTime& ahora, MotivoRespaldo motivo) {
  ResultadoRespaldo hecho;
  if (!QFileInfo::exists(rutas.enPrograma(kAlmacen))) {
    hecho.fallos << QStringLiteral("La carpeta %1 no tiene TarvoPos.mdb.").arg(rutas.programa);
    return hecho;
  }
  const QString caja = ajuste(rutas, "PARAMETROS", "Caja"), otra = ajuste(rutas, "RESPALDO", "Carpeta");
  const QString nombre = FormatearFecha(ahora, kFormatoNombre) + u'-' + palabraDe(motivo);
  const QString ficha = QStringLiteral("Copia de respaldo de TarvoPos %1\r\nCaja: %2\r\nFecha: %3\r\nMotivo: %4\r\n")
                            .arg(Version(), caja, FormatearFecha(ahora, u"dd/mm/yyyy hh:nn:ss"), palabraDe(motivo));
  copiarEn(rutas, rutas.enPrograma(kPropia), nombre, ficha, hecho);
  if (otra.isEmpty()) return hecho;
  // A folder that isn't there is a disk that isn't plugged in: nothing is made in its place.
  if (!QFileInfo(otra).isDir()) {
    hecho.fallos << QStringLiteral("no se encuentra la carpeta ") + otra;
    return hecho;
  }
  copiarEn(rutas, QDir(otra).filePath(QStringLiteral("caja-") + caja), nombre, ficha, hecho);
  return hecho;
}

void RespaldarSesion(Puesto& p, MotivoRespaldo motivo) {
  const ResultadoRespaldo r = CopiarPuesto(p.rutas, p.reloj.now(), motivo);
  for (const QString& f : r.fallos) p.registro.RegistrarErrorLog(QStringLiteral("Copia de respaldo: ") + f);
  p.ses.avisoRespaldo = r.fallos.isEmpty()   ? QString()
                        : r.copias.isEmpty() ? QStringLiteral("No se hizo la copia de respaldo")
                                             : QStringLiteral("Falta una copia de respaldo");
}
