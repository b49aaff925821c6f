#include "admin/verificar.h"

#include <QDir>
#include <QFileInfo>

#include "alta/crear_servidor.h"
#include "foundation/cfg_admin.h"
#include "foundation/versiones.h"
#include "platform/io/perfil.h"
#include "platform/sql/archivo_sqlite.h"
#include "platform/sql/base_sqlite.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "store/codigos.h"
#include "store/tablas.h"

namespace {

const QString kColumnas =
    QStringLiteral("SELECT lower(m.name), lower(c.name), m.name, c.name, c.type FROM sqlite_master m, "
                   "pragma_table_info(m.name) c WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite_%'");

class Verificacion {
 public:
  explicit Verificacion(const QString& carpeta) : carpeta_(carpeta) {}

  QStringList todo() {
    ajustes();
    const QString archivo = carpeta_.filePath(QStringLiteral("TarvoPos.mdb"));
    if (!QFileInfo::exists(archivo)) {
      hallar(QStringLiteral("Falta TarvoPos.mdb."));
      return hallazgos_;
    }
    // A file that is damaged or short of tables would only answer with more of the same.
    if (abrir(archivo, pasosDelPuesto()) && estructura()) {
      filasUnicas();
      ajustesIguales();
      numeracion();
      usuarios();
      actos();
      const QString servidores[] = {servidor(QStringLiteral("INICIO"), QStringLiteral("DataServer")),
                                    servidor(QStringLiteral("SQLServer"), QStringLiteral("ServidorSQL"))};
      const PasosDeVersion pasos[] = {pasosDelCentral(), pasosDelCliente()};
      for (int n : {0, 1}) {
        const auto suyo = ArchivoDeServidor(servidores[n], carpeta_.absolutePath());
        if (suyo && QFileInfo::exists(*suyo)) (void)abrir(*suyo, pasos[n]);
      }
    }
    return hallazgos_;
  }

 private:
  void hallar(const QString& linea) { hallazgos_ << linea; }

  // A database that programs can work on: to be written, sound, of this program's version. Opening one that can't be
  // written would leave an index behind that can't be written either.
  bool abrir(const QString& archivo, const PasosDeVersion& pasos) {
    nombre_ = QFileInfo(archivo).fileName();
    if (const auto porque = RevisarArchivoSqlite(archivo)) {
      hallar(*porque);
      return false;
    }
    QString error;
    db_ = AbrirSqlite(archivo, SQLITE_OPEN_READWRITE, error);
    if (!db_) {
      hallar(nombre_ + QStringLiteral(" no se puede abrir: ") + error);
      return false;
    }
    return sano() && actual(static_cast<int>(pasos.size()));
  }

  bool actual(int ultima) {
    const int version = valor(QStringLiteral("PRAGMA user_version")).toInt();
    if (version == ultima) return true;
    hallar(
        version < ultima
            ? QStringLiteral("%1 es de la versión %2 y este programa usa la %3: la pone al día el próximo inicio de la "
                             "caja o «tarvopos-admin actualizar».")
                  .arg(nombre_)
                  .arg(version)
                  .arg(ultima)
            : QStringLiteral("%1 es de la versión %2, más nueva que este programa, que llega a la %3.")
                  .arg(nombre_)
                  .arg(version)
                  .arg(ultima));
    return false;
  }

  QList<QStringList> filas(const QString& sql) {
    QList<QStringList> f;
    QString error;
    if (!FilasSqlite(db_.get(), sql, f, error)) hallar(nombre_ + QStringLiteral(": ") + error);
    return f;
  }
  QString valor(const QString& sql) { return filas(sql).value(0).value(0); }

  QString ajuste(const QString& seccion, const QString& clave) const {
    return LeerPerfil(carpeta_.filePath(QStringLiteral("KEB.cfg")), seccion, clave).value_or(QString());
  }

  void ajustes() {
    const QString archivo = carpeta_.filePath(QStringLiteral("KEB.cfg"));
    if (!QFileInfo::exists(archivo)) {
      hallar(QStringLiteral("Falta KEB.cfg."));
      return;
    }
    if (const auto error = ComprobarPerfil(archivo)) {
      hallar(*error);
      return;
    }
    for (const char* clave : {"Caja", "Almacen", "PorcServ"}) {
      if (ajuste(QStringLiteral("PARAMETROS"), QString::fromLatin1(clave)).isEmpty()) {
        hallar(QStringLiteral("KEB.cfg: falta la clave %1.").arg(QString::fromLatin1(clave)));
      }
    }
    const QString idioma = ajuste(QStringLiteral("SQLServer"), QStringLiteral("IdionaSQLServer")).toUpper();
    if (!idioma.isEmpty() && idioma != u"SPANISH" && idioma != u"ENGLISH") {
      hallar(QStringLiteral("KEB.cfg: IdionaSQLServer no es SPANISH ni ENGLISH."));
    }
  }

  bool sano() {
    const auto lineas = filas(QStringLiteral("PRAGMA integrity_check"));
    bool bien = !lineas.isEmpty();
    for (const QStringList& l : lineas) {
      if (l.value(0) == u"ok") continue;
      hallar(nombre_ + QStringLiteral(" está dañado: ") + l.value(0));
      bien = false;
    }
    return bien;
  }

  // Against a store made here and now from the same statements as every other.
  bool estructura() {
    QString error;
    const BaseSqlite patron =
        AbrirSqlite(QStringLiteral(":memory:"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, error);
    QList<QStringList> debidas, vacio;
    for (const QString& s : tablasDelPuesto()) FilasSqlite(patron.get(), s, vacio, error);
    FilasSqlite(patron.get(), kColumnas, debidas, error);
    QHash<QString, QString> hay;  // "table.column" -> type
    QSet<QString> tablas;
    for (const QStringList& f : filas(kColumnas)) {
      tablas << f[0];
      hay.insert(f[0] + u'.' + f[1], f[4]);
    }
    const auto antes = hallazgos_.size();
    QSet<QString> faltan;
    for (const QStringList& f : debidas) {
      const auto columna = hay.constFind(f[0] + u'.' + f[1]);
      if (!tablas.contains(f[0])) {
        if (!faltan.contains(f[0])) hallar(QStringLiteral("Falta la tabla %1.").arg(f[2]));
        faltan << f[0];
      } else if (columna == hay.constEnd()) {
        hallar(QStringLiteral("Falta la columna %1 de la tabla %2.").arg(f[3], f[2]));
      } else if (*columna != f[4]) {
        hallar(QStringLiteral("La columna %1 de la tabla %2 es %3 y debe ser %4.").arg(f[3], f[2], *columna, f[4]));
      }
    }
    indices(patron.get());
    return hallazgos_.size() == antes;
  }

  void indices(sqlite3* patron) {
    const QString sql = QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL");
    QList<QStringList> debidos;
    QString error;
    FilasSqlite(patron, sql, debidos, error);
    const auto hay = filas(sql);
    for (const QStringList& i : debidos) {
      if (!hay.contains(i))
        hallar(QStringLiteral("Falta el índice %1: las ventas serán cada vez más lentas.").arg(i[0]));
    }
  }

  void filasUnicas() {
    // clang-format off
    const struct { const char *tabla, *filas; } kTablas[] = {
        {"Configuracion", "1"}, {"Sincronizacion", "1"}, {"Regla_Punto", "1"}, {"_Tmp1", "2"}};
    for (const auto& t : kTablas) {
      const QString tabla = QString::fromLatin1(t.tabla);
      const QString n = valor(QStringLiteral("SELECT count(*) FROM ") + tabla);
      if (n != QLatin1String(t.filas)) {
        hallar(QStringLiteral("La tabla %1 tiene %2 filas y debe tener %3.").arg(tabla, n, QLatin1String(t.filas)));
      }
    }
    // clang-format on
  }

  // The till would follow the table; a desk whose file says otherwise has been touched by hand.
  void ajustesIguales() {
    for (const char* c : {"Caja", "Almacen", "PorcServ"}) {
      const QString clave = QString::fromLatin1(c);
      const QString enTabla = valor(QStringLiteral("SELECT %1 FROM Configuracion").arg(clave));
      const QString enArchivo = ajuste(QStringLiteral("PARAMETROS"), clave);
      if (!enArchivo.isEmpty() && !enTabla.isEmpty() && enTabla != enArchivo) {
        hallar(
            QStringLiteral("%1 es «%2» en la tabla Configuracion y «%3» en KEB.cfg.").arg(clave, enTabla, enArchivo));
      }
    }
    const QString servicio = valor(QStringLiteral("SELECT PorcServ FROM Configuracion")).trimmed();
    if (!servicio.isEmpty() && !EsPorcentajeServicio(servicio)) {
      hallar(QStringLiteral("PorcServ es «%1» en la tabla Configuracion y debe ser un número con punto decimal.")
                 .arg(servicio));
    }
    const QString paso = valor(QStringLiteral("SELECT ifnull(iCierreCaja, 0) FROM Configuracion"));
    if (Val(paso) < 0 || Val(paso) > 6) hallar(QStringLiteral("iCierreCaja vale %1; sólo va de 0 a 6.").arg(paso));
  }

  void numeracion() {
    for (const TipoDocumento tipo : kTiposDocumento) {
      if (tipo == TipoDocumento::Factura) continue;  // shares the run of the boletas
      const QString t = Codigo(tipo);
      const auto fila = filas(QStringLiteral("SELECT cSerieDoc, ifnull(nDocCodigo, 0) FROM Config_Documento "
                                             "WHERE cTipoDoc = '%1'")
                                  .arg(t))
                            .value(0);
      if (fila.isEmpty()) {
        hallar(QStringLiteral("Config_Documento no tiene la fila %1.").arg(t));
        continue;
      }
      if (fila[0].trimmed().isEmpty()) hallar(QStringLiteral("Config_Documento: la fila %1 no tiene serie.").arg(t));
      const QString maximo =
          valor(EsFiscal(tipo)
                    ? QStringLiteral("SELECT ifnull(max(cDocCodigo), 0) FROM Operacion WHERE cDocTipo IN ('01', '02')")
                    : QStringLiteral("SELECT ifnull(max(cDocCodigo), 0) FROM OperacionParalela WHERE cDocTipo = '%1'")
                          .arg(t));
      if (Val(fila[1]) < Val(maximo)) {
        hallar(QStringLiteral("Config_Documento: el último número de la fila %1 es %2, pero ya existe el %3.")
                   .arg(t, fila[1], maximo));
      }
    }
    for (const QStringList& f : filas(QStringLiteral(
             "SELECT cSerieDoc, group_concat(cTipoDoc, ', ') FROM Config_Documento WHERE trim(ifnull(cSerieDoc, '')) "
             "<> '' "
             "GROUP BY cSerieDoc HAVING count(*) > 1 AND max(cTipoDoc NOT IN ('01', '02'))"))) {
      hallar(QStringLiteral("Config_Documento: las filas %1 comparten la serie %2.").arg(f[1], f[0]));
    }
  }

  void usuarios() {
    if (valor(QStringLiteral("SELECT count(*) FROM Usuario WHERE cPerfCode = 1 AND cUserActi = 1")) == u"0") {
      hallar(QStringLiteral("No hay ningún supervisor activo en la tabla Usuario."));
    }
  }

  void actos() {
    for (const QStringList& f :
         filas(QStringLiteral("SELECT cActo, cServidor FROM Diario_Acto WHERE cEstado = 'R' ORDER BY nDiario"))) {
      hallar(QStringLiteral("Diario_Acto: «%1» con el servidor %2 quedó a medias.").arg(f[0], f[1]));
    }
  }

  // A server's name as the till reads it: the table wins.
  QString servidor(const QString& seccion, const QString& clave) {
    const QString enTabla = valor(QStringLiteral("SELECT %1 FROM Configuracion").arg(clave)).trimmed();
    return enTabla.isEmpty() ? ajuste(seccion, clave) : enTabla;
  }

  QDir carpeta_;
  BaseSqlite db_;
  QString nombre_;  // of the file that is open
  QStringList hallazgos_;
};

}  // namespace

QStringList VerificarPuesto(const QString& carpeta) { return Verificacion(carpeta).todo(); }
