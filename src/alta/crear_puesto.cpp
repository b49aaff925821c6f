#include "alta/crear_puesto.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include "alta/crear_servidor.h"
#include "alta/filas.h"
#include "alta/tienda_demo.h"
#include "foundation/acceso.h"
#include "foundation/clave.h"
#include "platform/io/archivo.h"
#include "platform/sql/crear_sqlite.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "postgres/base_postgres.h"
#include "servidores.h"
#include "store/codigos.h"
#include "store/numeracion.h"
#include "store/tablas.h"

namespace {

const QString kAlmacenDatos = QStringLiteral("TarvoPos.mdb");
const QString kAjustes = QStringLiteral("KEB.cfg");

struct Ajuste {
  const char *seccion, *clave;
  QString valor;
};

// A PostgreSQL server with what was told beside its name.
std::optional<CadenaConexion> postgresDe(const QString& palabras, const AccesoServidor& acceso, BaseServidor base) {
  auto c = ServidorDePalabras(palabras, base);
  if (!c) return {};
  if (!acceso.base.isEmpty()) c->catalogo = acceso.base;
  if (!acceso.usuario.isEmpty()) c->usuario = acceso.usuario;
  if (!acceso.clave.isEmpty()) c->clave = acceso.clave;
  return c;
}

// What the settings say of a server; another kind than PostgreSQL bears no user in its name.
CadenaConexion enAjustes(const DatosPuesto& d, BaseServidor base) {
  const bool central = base == BaseServidor::Central;
  const QString& palabras = central ? d.central : d.cliente;
  const AccesoServidor& acceso = central ? d.accesoCentral : d.accesoCliente;
  if (auto c = postgresDe(palabras, acceso, base)) {
    c->servidor.prepend(QStringLiteral("postgres:"));
    return *c;
  }
  CadenaConexion c;
  c.servidor = palabras;
  c.usuario = acceso.usuario;
  c.clave = acceso.clave;
  c.catalogo = !acceso.base.isEmpty() ? acceso.base : central ? QStringLiteral("central") : QStringLiteral("cliente");
  return c;
}

// Every setting, once: the file and the row of Configuracion are both made of this list.
std::vector<Ajuste> ajustes(const DatosPuesto& d) {
  const QString serie = SerieInicial(TipoDocumento::Boleta, d.caja);
  const QString cero = QStringLiteral("0");
  const CadenaConexion central = enAjustes(d, BaseServidor::Central);
  const CadenaConexion cliente = enAjustes(d, BaseServidor::Cliente);
  return {
      {"INICIO", "UserName", central.usuario},
      {"INICIO", "PassWord", central.clave},
      {"INICIO", "DataBase", central.catalogo},
      {"INICIO", "DataServer", central.servidor},
      {"INICIO", "RutaBDCliente", {}},
      {"PARAMETROS", "Caja", d.caja},
      {"PARAMETROS", "Almacen", d.almacen},
      {"PARAMETROS", "PorcServ", d.servicio},
      {"PARAMETROS", "cOpeB", cero},
      {"PARAMETROS", "cOpeF", cero},
      {"PARAMETROS", "NC", cero},
      {"PARAMETROS", "OC", cero},
      {"PARAMETROS", "PADE", cero},
      {"PARAMETROS", "PADV", cero},
      {"PARAMETROS", "LIQ", cero},
      {"PARAMETROS", "SerieBOL", serie},
      {"PARAMETROS", "SerieFAC", serie},
      {"PARAMETROS", "DFlag", QStringLiteral("S")},
      {"PARAMETROS", "GAVETA", d.demo ? QStringLiteral("S") : QStringLiteral("N")},
      {"PARAMETROS", "PRINTER", QStringLiteral("EPSON")},
      {"PARAMETROS", "PuertoPrinter", QStringLiteral("LPT1")},
      {"PARAMETROS", "nIGV", {}},
      {"SQLServer", "ServidorSQL", cliente.servidor},
      {"SQLServer", "UserSQL", cliente.usuario},
      {"SQLServer", "PwdUserSQL", cliente.clave},
      {"SQLServer", "BaseDatosSQL", cliente.catalogo},
      {"SQLServer", "IdionaSQLServer", QStringLiteral("ENGLISH")},
  };
}

QByteArray textoDeAjustes(const DatosPuesto& d) {
  QString texto, seccion;
  for (const Ajuste& a : ajustes(d)) {
    if (seccion != QLatin1String(a.seccion)) {
      seccion = QLatin1String(a.seccion);
      texto += u'[' + seccion + QStringLiteral("]\r\n");
    }
    texto += QLatin1String(a.clave) + u'=' + a.valor + QStringLiteral("\r\n");
  }
  if (d.demo) texto += ImpresorasDeTienda();
  return AUnByte(texto);
}

QString filaDeConfiguracion(const DatosPuesto& d) {
  QStringList columnas;
  QVariantList valores;
  for (const Ajuste& a : ajustes(d)) {
    columnas << QLatin1String(a.clave);
    valores << a.valor;
  }
  // A plain desk prints through the driver: raw bytes with a cut command are only for who knows the printer.
  const int corta = d.demo ? 1 : 0;
  columnas << QStringLiteral("sImpresora, sImpresoraAlterna, nFlagCortaPapel, nFlagCortaPapelALT, cCodiTurno, "
                             "iCierreCaja, nImporApertSol, nImporApertDol, cOperId, cOperIdP");
  valores << (d.demo ? kImpresoraTienda : QString()) << (d.demo ? kImpresoraAlternaTienda : QString()) << corta << corta
          << QString() << 0 << 0 << 0 << 0 << 0;
  return Insercion(QStringLiteral("Configuracion"), columnas.join(QStringLiteral(", ")), valores);
}

QStringList filasDelPuesto(const DatosPuesto& d) {
  QStringList s{filaDeConfiguracion(d)};
  for (const TipoDocumento t : kTiposDocumento) {
    const QString tipo = Codigo(t);
    s << Insercion(QStringLiteral("Config_Documento"),
                   QStringLiteral("cTipoDoc, cOperCode, nDocCodigo, cSerieDoc, cUserDesc, dUltAct, observacion"),
                   {tipo, 0, 0, SerieInicial(t, d.caja), QString(), d.ahora.date().startOfDay(),
                    QStringLiteral("Primer Registro")});
  }
  for (int n : {1, 2}) {
    s << Insercion(QStringLiteral("_Tmp1"), QStringLiteral("prn, idct, maxid, nsmr, idz, Imac"),
                   {n, 0, 999999, QStringLiteral("TV%1-%2").arg(d.caja).arg(n), 0, 0});
  }
  const QString perfil = QStringLiteral("cPerfCode, sPerfDesc");
  s << Insercion(QStringLiteral("Perfil"), perfil, {kPerfilSupervisor, QStringLiteral("SUPERVISOR")})
    << Insercion(QStringLiteral("Perfil"), perfil, {kPerfilCajero, QStringLiteral("CAJERO")})
    << Insercion(QStringLiteral("Usuario"),
                 QStringLiteral("sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName, cUserActi, cUserFlag"),
                 {d.usuario, CifrarClave(d.clave).value_or(d.clave), kPerfilSupervisor, QStringLiteral("DE TIENDA"),
                  QStringLiteral("SUPERVISOR"), 1, 0})
    << Insercion(QStringLiteral("Regla_Punto"), QStringLiteral("nImpoMaxi, nPuntImpo, nPuntCant"), {1000, 10, 1});
  // Both only ever see updates: the date of the last synchronisation and the keys of the register.
  s << Insercion(QStringLiteral("Sincronizacion"), QStringLiteral("dFechSincro"),
                 {d.demo ? QVariant(FechaDeTienda()) : QVariant()});
  if (d.demo) return s + TiendaDelPuesto(d.almacen, d.ahora);
  for (int tecla = 1; tecla <= 24; ++tecla) s << TeclaDelRegistro(tecla, 0);
  return s;
}

std::optional<QString> revisar(const DatosPuesto& d) {
  const auto esCodigo = [](const QString& t, int largo) {
    if (t.isEmpty() || t.size() > largo) return false;
    for (const QChar c : t)
      if (!c.isLetterOrNumber() || c.unicode() > 127) return false;
    return true;
  };
  if (!esCodigo(d.caja, 5)) return QStringLiteral("El código de caja tiene de 1 a 5 letras o cifras.");
  if (!esCodigo(d.almacen, 5)) return QStringLiteral("El código de almacén tiene de 1 a 5 letras o cifras.");
  // The text stands bare in the statements of a sale, where a comma would begin the next value.
  if (!EsNumerico(d.servicio) || d.servicio.contains(u',') || Val(d.servicio) < 0 || Val(d.servicio) > 100) {
    return QStringLiteral("El porcentaje de servicio es un número de 0 a 100.");
  }
  for (const QString& texto : {d.accesoCentral.base, d.accesoCentral.usuario, d.accesoCentral.clave,
                               d.accesoCliente.base, d.accesoCliente.usuario, d.accesoCliente.clave}) {
    // They stand in a connection string and in a line of the settings.
    if (texto.contains(u';') || texto.contains(u'\n') || texto.size() > 254) {
      return QStringLiteral("Base, usuario y clave de un servidor no pueden llevar punto y coma.");
    }
  }
  for (const QString& servidor : {d.central, d.cliente}) {
    const bool ilegible = servidor.startsWith(u"postgres:") && !ServidorDePalabras(servidor, BaseServidor::Central);
    if (servidor.trimmed().isEmpty() || servidor.contains(u';') || servidor == u"sqlite:" || ilegible) {
      return QStringLiteral("El nombre de servidor «%1» no es válido.").arg(servidor);
    }
  }
  if (d.usuario.trimmed().isEmpty() || d.clave.trimmed().isEmpty()) {
    return QStringLiteral("El usuario y su clave no pueden estar en blanco.");
  }
  const QFileInfo carpeta(d.carpeta);
  if (carpeta.exists() && !carpeta.isDir()) return QStringLiteral("%1 no es una carpeta.").arg(d.carpeta);
  for (const QString& nombre : {kAlmacenDatos, kAjustes}) {
    if (QFileInfo::exists(QDir(d.carpeta).filePath(nombre))) {
      return QStringLiteral("La carpeta %1 ya tiene %2; no se ha tocado.").arg(d.carpeta, nombre);
    }
  }
  return {};
}

// Files and folders of this call; they are removed again unless it ends well.
class Obra {
 public:
  ~Obra() {
    if (terminada_) return;
    for (const QString& f : hechos_) QFile::remove(f);
    for (const QString& c : carpetas_) QDir().rmdir(c);
  }
  std::optional<QString> carpeta(const QString& ruta) {
    for (QString c = QFileInfo(ruta).absoluteFilePath(); !QFileInfo::exists(c); c = QFileInfo(c).absolutePath()) {
      carpetas_ << c;
    }
    if (QDir().mkpath(ruta)) return {};
    return QStringLiteral("No se pudo crear la carpeta %1.").arg(ruta);
  }
  // Made under another name first: a file under its own name is always a whole one.
  std::optional<QString> base(const QString& archivo, const QStringList& sentencias) {
    const QString borrador = archivo + QStringLiteral(".nuevo");
    for (const char* cola : {"", "-wal", "-shm", "-journal"}) QFile::remove(borrador + QLatin1String(cola));
    if (const auto error = crearBaseSqlite(borrador, sentencias)) {
      return QStringLiteral("No se pudo crear %1: %2").arg(archivo, error->descripcion);
    }
    if (!QFile::rename(borrador, archivo)) {
      QFile::remove(borrador);
      return QStringLiteral("No se pudo crear %1.").arg(archivo);
    }
    hechos_ << archivo;
    CarpetaAlDisco(QFileInfo(archivo).absolutePath());
    return {};
  }
  std::optional<QString> archivo(const QString& ruta, const QByteArray& bytes) {
    if (const auto error = SustituirArchivo(ruta, bytes)) {
      return QStringLiteral("No se pudo crear %1: %2.").arg(ruta, *error);
    }
    hechos_ << ruta;
    return {};
  }
  void terminar() { terminada_ = true; }

 private:
  bool terminada_ = false;
  QStringList hechos_, carpetas_;  // the innermost folder first
};

std::optional<QString> servidorQueFalta(Obra& obra, const DatosPuesto& d, BaseServidor base, const QStringList& filas,
                                        QStringList& hecho) {
  const bool central = base == BaseServidor::Central;
  const QString& servidor = central ? d.central : d.cliente;
  if (const auto archivo = ArchivoDeServidor(servidor, d.carpeta)) {
    if (QFileInfo::exists(*archivo)) return {};
    return obra.base(*archivo, tablasDelServidor(base, LenguajeMotor::Sqlite) + filas);
  }
  const auto c = postgresDe(servidor, central ? d.accesoCentral : d.accesoCliente, base);
  if (!c) return {};
  const ResultadoBase r = CrearBasePostgres(*c, base, filas);
  if (r.fin == FinBase::Fallo) return r.palabras;
  if (r.fin == FinBase::Hecha) {
    hecho << QStringLiteral("Base de datos %1 creada en el servidor %2.").arg(c->catalogo, c->servidor);
  } else if (r.fin == FinBase::Lejos) {
    hecho << QStringLiteral("Aviso: no se pudo entrar en el servidor %1: %2").arg(c->servidor, r.palabras);
  }
  return {};
}

}  // namespace

QString ClaveAlAzar() {
  const QString letras = QStringLiteral("abcdefghjkmnpqrstuvwxyz23456789");
  QString clave;
  for (int i = 0; i < 8; ++i) clave += letras[QRandomGenerator::system()->bounded(int(letras.size()))];
  return clave;
}

QString CadenaDelServidor(const DatosPuesto& d, BaseServidor base) {
  const CadenaConexion c = enAjustes(d, base);
  return cadenaDeServidor(c.usuario, c.clave, c.catalogo, c.servidor);
}

QStringList AvisosDePuesto(const DatosPuesto& d) {
  QStringList avisos;
  if (d.caja.size() > 2 && Val(d.caja) > 99) {
    avisos << QStringLiteral("Aviso: la serie de boletas y facturas %1 toma sólo las dos últimas cifras de la caja; "
                             "ninguna otra caja puede terminar igual.")
                  .arg(SerieInicial(TipoDocumento::Boleta, d.caja));
  }
  for (const auto& [servidor, acceso] : {std::pair(d.central, d.accesoCentral), {d.cliente, d.accesoCliente}}) {
    if (ArchivoDeServidor(servidor, d.carpeta) || ServidorDePalabras(servidor, BaseServidor::Central)) continue;
    if (!acceso.usuario.isEmpty()) continue;
    avisos << QStringLiteral("Aviso: el servidor %1 no se crea aquí; escriba su usuario y su clave en KEB.cfg y en la "
                             "tabla Configuracion.")
                  .arg(servidor);
  }
  return avisos;
}

std::optional<QString> CrearPuesto(const DatosPuesto& d, QStringList* hecho) {
  if (auto error = revisar(d)) return error;
  QStringList propio;
  QStringList& dicho = hecho ? *hecho : propio;
  Obra obra;
  if (auto error = obra.carpeta(d.carpeta)) return error;
  QStringList central = FilasDelCentral(d.almacen), cliente = FilasDelCliente();
  if (d.demo) {
    central += TiendaDelCentral(d.ahora);
    cliente += TiendaDelCliente(d.ahora);
  }
  if (auto e = servidorQueFalta(obra, d, BaseServidor::Central, central, dicho)) return e;
  if (auto e = servidorQueFalta(obra, d, BaseServidor::Cliente, cliente, dicho)) return e;
  const QDir carpeta(d.carpeta);
  if (auto error = obra.archivo(carpeta.filePath(kAjustes), textoDeAjustes(d))) return error;
  // The store comes last: a folder that holds it holds all the rest.
  if (auto error = obra.base(carpeta.filePath(kAlmacenDatos), tablasDelPuesto() + filasDelPuesto(d))) return error;
  obra.terminar();
  return {};
}
