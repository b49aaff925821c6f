#include "admin/restaurar.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "admin/consola_sql.h"
#include "admin/puesto_mudo.h"
#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "foundation/respaldo.h"
#include "platform/io/archivo.h"
#include "platform/io/cerrojo.h"
#include "platform/io/perfil.h"
#include "platform/io/puertos_sistema.h"
#include "platform/sql/base_sqlite.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "store/codigos.h"
#include "store/numeracion.h"
#include "store/tablas.h"

namespace {

const QString kAlmacen = QStringLiteral("TarvoPos.mdb"), kAjustes = QStringLiteral("KEB.cfg");
const QString kFicha = QStringLiteral("respaldo.txt");

using Fallo = std::optional<QString>;

QString cajaDe(const QString& ajustes) {
  return LeerPerfil(ajustes, QStringLiteral("PARAMETROS"), QStringLiteral("Caja")).value_or(QString()).trimmed();
}

class Restauracion {
 public:
  Restauracion(const PedidoRestaurar& pedido, QStringList& dicho)
      : pedido_(pedido),
        dicho_(dicho),
        carpeta_(QDir(pedido.carpeta).absolutePath()),
        borrador_(carpeta_.filePath(QStringLiteral("restauracion.nueva"))) {}
  ~Restauracion() { QDir(borrador_).removeRecursively(); }
  Restauracion(const Restauracion&) = delete;
  Restauracion& operator=(const Restauracion&) = delete;

  Fallo hacer() {
    if (auto f = elegirCopia()) return f;
    if (!QDir().mkpath(carpeta_.path())) return QStringLiteral("No se pudo crear la carpeta ") + carpeta_.path();
    Cerrojo unico(carpeta_.filePath(QStringLiteral("TarvoPos.lock")));
    if (unico.tomar(pedido_.ahora) != Cerrojo::Fin::Tomado) {
      return QStringLiteral("La caja de %1 está abierta, o no se puede escribir en su carpeta; no se ha tocado nada.")
          .arg(carpeta_.path());
    }
    if (auto f = revisarCaja()) return f;
    if (auto f = traer()) return f;
    if (auto f = revisarAlmacen()) return f;
    if (auto f = apartar()) return f;
    if (auto f = poner()) return f;
    contar();
    return {};
  }

 private:
  QString enBorrador(const QString& nombre) const { return borrador_ + u'/' + nombre; }

  Fallo elegirCopia() {
    const QDir dada(pedido_.copia);
    const QStringList copias = CopiasEn(dada.path());
    copia_ = QDir(copias.isEmpty() ? dada.path() : dada.filePath(copias.front()));
    for (const QString& n : {kFicha, kAlmacen, kAjustes}) {
      if (!QFileInfo(copia_.filePath(n)).isFile()) {
        return QStringLiteral("%1 no es una copia de respaldo completa: le falta %2.").arg(copia_.path(), n);
      }
    }
    QDir hermanas = copia_;
    if (copias.isEmpty() && hermanas.cdUp()) {
      const QString ultima = CopiasEn(hermanas.path()).value(0);
      if (!ultima.isEmpty() && ultima > copia_.dirName()) {
        dicho_ << QStringLiteral("Aviso: hay una copia más nueva que ésta: ") + ultima;
      }
    }
    return {};
  }

  Fallo revisarCaja() {
    const QString deCopia = cajaDe(copia_.filePath(kAjustes)), aqui = cajaDe(carpeta_.filePath(kAjustes));
    if (aqui.isEmpty() || aqui == deCopia) return {};
    return QStringLiteral("La copia es de la caja %1 y la carpeta %2 es de la caja %3; no se ha tocado nada.")
        .arg(deCopia, carpeta_.path(), aqui);
  }

  // Looked at only once it lies here: the copy's own folder may be on a disk that can't be written.
  Fallo traer() {
    QDir(borrador_).removeRecursively();
    QDirIterator i(copia_.path(), QDir::Files, QDirIterator::Subdirectories);
    while (i.hasNext()) {
      const QString de = i.next(), a = enBorrador(copia_.relativeFilePath(de));
      if (QDir().mkpath(QFileInfo(a).absolutePath()) && QFile::copy(de, a)) continue;
      return QStringLiteral("No se pudo copiar %1 (¿disco lleno?); no se ha tocado nada.").arg(de);
    }
    for (const QString& n : {kAlmacen, kAjustes}) {
      QFile f(enBorrador(n));
      f.setPermissions(f.permissions() | QFile::ReadOwner | QFile::WriteOwner);
      if (!f.open(QIODevice::ReadWrite) || !AlDisco(f)) return QStringLiteral("No se pudo escribir ") + f.fileName();
    }
    return {};
  }

  QString valor(sqlite3* db, const char* sql) const {
    QList<QStringList> filas;
    QString error;
    return FilasSqlite(db, QString::fromLatin1(sql), filas, error) ? filas.value(0).value(0) : QString();
  }

  Fallo revisarAlmacen() {
    QString error;
    const BaseSqlite db = AbrirSqlite(enBorrador(kAlmacen), SQLITE_OPEN_READWRITE, error);
    if (!db || valor(db.get(), "PRAGMA integrity_check") != u"ok" ||
        valor(db.get(), "SELECT count(*) FROM Configuracion") != u"1") {
      return QStringLiteral("La copia %1 está dañada; no se ha tocado nada. Pruebe con otra.").arg(copia_.path());
    }
    if (valor(db.get(), "PRAGMA user_version").toInt() > static_cast<int>(pasosDelPuesto().size())) {
      return QStringLiteral("La copia %1 es de un programa más nuevo que éste; no se ha tocado nada. Instale primero "
                            "la última versión.")
          .arg(copia_.path());
    }
    numero_ =
        valor(db.get(), "SELECT ifnull(max(cDocCodigo), 0) FROM Operacion WHERE cDocTipo IN ('01', '02')").toLongLong();
    codigo_ = valor(db.get(), "SELECT ifnull(max(cOperCode), 0) FROM Operacion").toLongLong();
    ultima_ = valor(db.get(), "SELECT max(dOperFech) FROM Operacion");
    if (auto f = seguirParalelas(db.get())) return f;
    return pedido_.ultimoDocumento > numero_ ? seguirDesde(db.get()) : std::nullopt;
  }

  // A row that no report sees, as the repair of the numbers leaves one: the next document follows it. As old as the
  // last operation, so that no clock seems to be behind it.
  Fallo seguirDesde(sqlite3* db) {
    const QString sql =
        QStringLiteral("BEGIN;"
                       "INSERT INTO Operacion (cOperCode, cUserDesc, dOperFech, cOperFlagAnula, cOperCodeAnula, "
                       "cOperFlagAbierto, cCajaCodi, cFlagSincronizacion, cAlmaCode, cDocCodigo, cDocSerie, cDocTipo) "
                       "SELECT %1, 'rovel', ifnull((SELECT max(dOperFech) FROM Operacion), '%2'), 0, 0, 0, c.Caja, "
                       "'0', c.Almacen, %3, d.cSerieDoc, '02' "
                       "FROM Configuracion c, Config_Documento d WHERE d.cTipoDoc = '02';"
                       "UPDATE Config_Documento SET cOperCode = %1, nDocCodigo = %3 WHERE cTipoDoc = '02';"
                       "COMMIT")
            .arg(codigo_ + 1)
            .arg(FechaISO(pedido_.ahora))
            .arg(pedido_.ultimoDocumento);
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK) return {};
    return QStringLiteral("No se pudo poner el último número: ") + QString::fromUtf8(sqlite3_errmsg(db));
  }

  // The same beside the sales, series by series. Their lines are told by the operation code alone, and no paper tells
  // the codes of what was lost: the next ones begin well behind them.
  Fallo seguirParalelas(sqlite3* db) const {
    constexpr int kCodigosDeMargen = 1000;
    const QString caja = cajaDe(enBorrador(kAjustes));
    const auto maximo = [&](const QString& columna, const QString& cuales) {
      qint64 m = 0;
      for (const char* tabla : {"OperacionParalela", "OperacionParalela_Historico"}) {
        const QString sql =
            QStringLiteral("SELECT max(%1) FROM %2 WHERE %3").arg(columna, QLatin1String(tabla), cuales);
        m = std::max(m, valor(db, sql.toUtf8().constData()).toLongLong());
      }
      return m;
    };
    qint64 codigo = maximo(QStringLiteral("cOperCode"), QStringLiteral("1")) + kCodigosDeMargen;
    for (const auto& [serie, numero] : pedido_.ultimosParalelos) {
      const auto es = [&, &suya = serie](TipoDocumento t) {
        const QString sql =
            QStringLiteral("SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc = '%1'").arg(Codigo(t));
        const QString puesta = valor(db, sql.toUtf8().constData());
        return !EsFiscal(t) && (puesta.isEmpty() ? SerieInicial(t, caja) : puesta) == suya;
      };
      const auto tipo = std::find_if(kTiposDocumento.begin(), kTiposDocumento.end(), es);
      if (tipo == kTiposDocumento.end()) {
        return QStringLiteral("%1 no es una serie de la caja %2; no se ha tocado nada.").arg(serie, caja);
      }
      if (numero <= maximo(QStringLiteral("cDocCodigo"), QStringLiteral("cDocTipo = '%1'").arg(Codigo(*tipo))))
        continue;
      const QString sql =
          QStringLiteral(
              "BEGIN;"
              "INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cCajaCodi, "
              "cFlagSincronizacion, cTurnoCodi, cUserDesc, cOperFlagAbierto, cDocCodigo, cDocSerie, cDocTipo) "
              "SELECT %1, '0', ifnull((SELECT max(dOperFech) FROM Operacion), '%2'), '0', '%3', '0', '01', "
              "'ROVEL', '0', %4, '%5', '%6';"
              "INSERT INTO Config_Documento (cTipoDoc, cSerieDoc) SELECT '%6', '%5' WHERE NOT EXISTS "
              "(SELECT 1 FROM Config_Documento WHERE cTipoDoc = '%6');"
              "UPDATE Config_Documento SET cOperCode = %1, nDocCodigo = %4 WHERE cTipoDoc = '%6';"
              "COMMIT")
              .arg(codigo++)
              .arg(FechaISO(pedido_.ahora), caja)
              .arg(numero)
              .arg(serie, Codigo(*tipo));
      if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        return QStringLiteral("No se pudo poner el último número: ") + QString::fromUtf8(sqlite3_errmsg(db));
      }
    }
    return {};
  }

  // By renaming, so that it costs no room and is whole.
  Fallo apartar() {
    const QString aparte = carpeta_.filePath(QStringLiteral("respaldos/antes-de-restaurar-") +
                                             FormatearFecha(pedido_.ahora, u"yyyymmdd-hhnnss"));
    bool hubo = false;
    for (const char* n : {"TarvoPos.mdb-wal", "TarvoPos.mdb-shm", "TarvoPos.mdb", "KEB.cfg"}) {
      const QString de = carpeta_.filePath(QLatin1String(n));
      if (!QFileInfo::exists(de)) continue;
      hubo = true;
      if (!QDir().mkpath(aparte) || !QFile::rename(de, aparte + u'/' + QLatin1String(n))) {
        return QStringLiteral("No se pudo apartar %1; lo demás está en %2.").arg(de, aparte);
      }
    }
    if (hubo) dicho_ << QStringLiteral("Lo que había en la carpeta quedó en ") + aparte;
    return {};
  }

  // The store last: a folder that holds it holds all the rest.
  Fallo poner() {
    QStringList archivos;
    QDirIterator i(borrador_, QDir::Files, QDirIterator::Subdirectories);
    while (i.hasNext()) archivos << QDir(borrador_).relativeFilePath(i.next());
    for (const QString& ultimo : {kAjustes, kAlmacen}) {
      archivos.removeAll(ultimo);
      archivos << ultimo;
    }
    archivos.removeAll(kFicha);
    for (const QString& n : archivos) {
      const QString a = carpeta_.filePath(n);
      if (QFileInfo::exists(a)) {
        if (n.endsWith(u".db")) dicho_ << QStringLiteral("%1 se quedó como estaba.").arg(n);
        continue;
      }
      if (QDir().mkpath(QFileInfo(a).absolutePath()) && QFile::rename(enBorrador(n), a)) continue;
      return QStringLiteral("No se pudo poner %1 en su sitio; vuelva a restaurar.").arg(a);
    }
    CarpetaAlDisco(carpeta_.path());
    return {};
  }

  void contar() {
    dicho_ << QStringLiteral("Restaurado en %1 desde %2.").arg(carpeta_.path(), copia_.path());
    dicho_ << QStringLiteral("La copia llega hasta la operación %1, el documento %2%3.")
                  .arg(codigo_)
                  .arg(numero_)
                  .arg(ultima_.isEmpty() ? QString() : QStringLiteral(", del ") + ultima_);
    if (pedido_.ultimoDocumento > numero_) {
      dicho_ << QStringLiteral("El próximo documento será el %1.").arg(pedido_.ultimoDocumento + 1);
    } else {
      dicho_ << QStringLiteral("Si la tienda tiene un ticket con un número mayor, restaure otra vez con "
                               "--ultimo-documento y ese número.");
    }
    for (const auto& [serie, numero] : pedido_.ultimosParalelos) {
      dicho_ << QStringLiteral("El último de la serie %1 que se conoce en papel es el %2.").arg(serie).arg(numero);
    }
    compararConCentral();
  }

  void compararConCentral() {
    const auto motores = motoresDelSistema(carpeta_.path(), {{}, procedimientosDeServidores(), {}});
    Conexion central;
    if (const auto f = AbrirBase(*motores, carpeta_.path(), BasePuesto::Central, central)) {
      dicho_ << QStringLiteral("El servidor central no responde, así que no se comparó con él: ") + *f;
      dicho_ << QStringLiteral(
          "No venda hasta que la caja haya arrancado con él: podría repetir números que ya tiene.");
      return;
    }
    const Texto caja(cajaDe(carpeta_.filePath(kAjustes)));
    const auto cifra = [&central](const Sql& sql) {
      Recordset rs;
      return central.consultar(sql, rs) ? qint64(0) : AEntero(Numero(rs[0]));
    };
    const qint64 codigo =
        cifra(FormatearSQL(u"select MAX(cOperCode) as maximo from operacion where cCajaCodi='$'"_sql, {caja}));
    const qint64 numero = std::max(
        cifra(FormatearSQL(u"select isnull(max(cast(NroDoc as int)),0) as maximo from venta01 where cCodCaja='$' and "
                           "TipoDoc in ('01','02')"_sql,
                           {caja})),
        cifra(FormatearSQL(u"select isnull(max(cast(cDocCodigo as int)),0) as maximo from operacion where "
                           "cCajaCodi='$' and cDocTipo in ('01','02')"_sql,
                           {caja})));
    numerarPorElCentro(*motores);
    if (codigo <= codigo_ && numero <= numero_) {
      dicho_ << QStringLiteral("El servidor central no tiene nada de esta caja que falte en la copia.");
      return;
    }
    dicho_ << QStringLiteral("Atención: el servidor central tiene más que la copia: hasta la operación %1 y el "
                             "documento %2. Lo vendido desde la copia está allí y no aquí; al abrir la caja la "
                             "numeración sigue desde la del servidor.")
                  .arg(std::max(codigo, codigo_))
                  .arg(std::max(numero, numero_));
  }

  // At once, so that a start without it meets none of its numbers and codes.
  void numerarPorElCentro(Motores& motores) {
    RelojParado reloj;
    reloj.ahora = pedido_.ahora;
    PersonaQueAsiente persona;
    SalidaComoExcepcion salida;
    PuertosSistema puertos(carpeta_.path());
    Puesto p(motores, puertos, reloj, persona, salida, rutasDe(carpeta_.path()));
    p.ses.psArchivoCfg = p.rutas.enPrograma(kAjustes);
    if (!p.poDBAdmin.AbrirBD(p.poCnnLocal, QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") +
                                               p.rutas.enPrograma(kAlmacen))) {
      return;
    }
    LeerConfiguracion(p);
    if (RepararNumeracion(p) && RepararNumeracionParalela(p)) RepararCodigos(p);
  }

  const PedidoRestaurar& pedido_;
  QStringList& dicho_;
  const QDir carpeta_;
  const QString borrador_;
  QDir copia_;
  qint64 numero_ = 0, codigo_ = 0;  // the highest of the copy
  QString ultima_;
};

}  // namespace

std::optional<QString> RestaurarPuesto(const PedidoRestaurar& pedido, QStringList& dicho) {
  return Restauracion(pedido, dicho).hacer();
}
