// The databases of the day before there were versions (version0/), opened by this program and by every later one.
#include "foundation/versiones.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "apoyo/plan_fallas.h"
#include "platform/sql/base_sqlite.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

const QDateTime kAhora(QDate(2026, 11, 26), QTime(8, 30));

struct Clase {
  const char *nombre, *cadena;
  QStringList (*tablas)();
  PasosDeVersion (*pasos)();
};
const Clase kClases[] = {
    {"puesto", "driver={Microsoft Access Driver (*.mdb)};DBQ=%1", tablasDelPuesto, pasosDelPuesto},
    {"central", "Data Source=sqlite:%1", tablasDelCentral, pasosDelCentral},
    {"cliente", "Data Source=sqlite:%1", tablasDelCliente, pasosDelCliente},
};

// One database in a folder of its own.
class Base {
 public:
  Base(const Clase& clase, const QStringList& sentencias) : clase_(clase) {
    QString error;
    const BaseSqlite db = AbrirSqlite(archivo(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, error);
    for (const QString& s : sentencias) {
      char* palabras = nullptr;
      EXPECT_EQ(SQLITE_OK, sqlite3_exec(db.get(), s.toUtf8().constData(), nullptr, nullptr, &palabras)) << palabras;
    }
  }
  // As the program of version 0 left it.
  explicit Base(const Clase& clase) : Base(clase, {volcado(clase)}) {}

  QString archivo() const { return carpeta_.filePath(QString::fromLatin1(clase_.nombre) + QStringLiteral(".db")); }
  QString cadena() const { return QString::fromLatin1(clase_.cadena).arg(archivo()); }
  QStringList copias() const { return QDir(carpeta_.filePath(QStringLiteral("respaldos"))).entryList(QDir::Files); }

  QStringList filas(const QString& sql, const QString& deArchivo = {}) const {
    QString error;
    const BaseSqlite db = AbrirSqlite(deArchivo.isEmpty() ? archivo() : deArchivo, SQLITE_OPEN_READWRITE, error);
    QList<QStringList> f;
    EXPECT_TRUE(db && FilasSqlite(db.get(), sql, f, error)) << qPrintable(sql + u' ' + error);
    QStringList lineas;
    for (const QStringList& fila : f) lineas << fila.join(u'|');
    return lineas;
  }
  QString version() const { return filas(QStringLiteral("PRAGMA user_version")).join(u' '); }
  QStringList esquema() const {
    return filas(
        QStringLiteral("SELECT type, name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY 1, 2"));
  }
  // Every row of the tables that version 0 had.
  QStringList contenido() const {
    static const QString kNuevas = QStringLiteral("('Diario_Acto', 'ConsumoVenta')");
    QStringList todo;
    for (const QString& t :
         filas(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT IN ") + kNuevas +
               QStringLiteral(" ORDER BY 1"))) {
      todo << t << filas(QStringLiteral("SELECT * FROM \"%1\"").arg(t));
    }
    return todo;
  }

  Actualizacion actualizar(PlanFallas& plan) {
    const auto reales = motoresDelSistema(carpeta_.path());
    Conexion cnn;
    plan.cuenta = {};
    MotoresConFallas motores(*reales, plan);
    EXPECT_FALSE(cnn.abrir(motores, cadena(), 1000));
    plan.armar(plan.n, plan.falla, plan.muerte);
    return ActualizarBase(cnn, archivo(), clase_.pasos(), kAhora);
  }
  Actualizacion actualizar() {
    PlanFallas plan;
    return actualizar(plan);
  }

 private:
  static QString volcado(const Clase& clase) {
    QFile f(QStringLiteral(TARVOPOS_FUENTES "/tests/store/version0/%1.sql").arg(QLatin1String(clase.nombre)));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return QString::fromUtf8(f.readAll());
  }

  QTemporaryDir carpeta_;
  const Clase& clase_;
};

std::string u8(const QStringList& l) { return l.join(u'\n').toStdString(); }

TEST(Versiones, AnOldOneIsBroughtUpToDateOnceAndKeepsEveryRow) {
  for (const Clase& clase : kClases) {
    SCOPED_TRACE(clase.nombre);
    Base vieja(clase);
    const QStringList antes = vieja.contenido(), esquemaDeAntes = vieja.esquema();
    ASSERT_GT(antes.size(), 20);
    EXPECT_EQ("0", vieja.version().toStdString());
    const Actualizacion a = vieja.actualizar();
    EXPECT_EQ(FinActualizacion::Actualizada, a.fin) << qPrintable(a.palabras);
    EXPECT_TRUE(a.palabras.contains(QStringLiteral("respaldos"))) << qPrintable(a.palabras);
    EXPECT_EQ(u8(antes), u8(vieja.contenido()));
    EXPECT_EQ(u8(Base(clase, clase.tablas()).esquema()), u8(vieja.esquema())) << "the same tables as in a new one";
    // The dated copy is the old one.
    const QString copia = vieja.copias().value(0);
    EXPECT_EQ(std::string(clase.nombre) + "-v0-20261126-083000.db", copia.toStdString());
    const QString ruta = QFileInfo(vieja.archivo()).path() + QStringLiteral("/respaldos/") + copia;
    EXPECT_EQ("0", u8(vieja.filas(QStringLiteral("PRAGMA user_version"), ruta)));
    EXPECT_EQ(u8(esquemaDeAntes),
              u8(vieja.filas(QStringLiteral("SELECT type, name, sql FROM sqlite_master WHERE name NOT "
                                            "LIKE 'sqlite_%' ORDER BY 1, 2"),
                             ruta)));
    EXPECT_EQ(FinActualizacion::AlDia, vieja.actualizar().fin);
    EXPECT_EQ(1, vieja.copias().size());
  }
}

TEST(Versiones, CutOffAnywhereItIsTheOldOneOrTheNewOne) {
  for (const Clase& clase : kClases) {
    const std::string nueva = u8(Base(clase, clase.tablas()).esquema());
    for (const Muerte muerte : {Muerte::no, Muerte::antes, Muerte::despues}) {
      int visto = 0;
      for (int n = 1; n < 100; ++n) {
        SCOPED_TRACE(std::string(clase.nombre) + " " + std::to_string(static_cast<int>(muerte)) + " at " +
                     std::to_string(n));
        Base b(clase);
        const std::string vieja = u8(b.esquema()), filas = u8(b.contenido());
        bool toco = false;
        PlanFallas plan;
        plan.armar(n, Falla::unaVez, muerte);
        if (muerte == Muerte::no) {
          const Actualizacion a = b.actualizar(plan);
          toco = plan.van() >= n;
          EXPECT_EQ(toco, a.fin == FinActualizacion::Fallo);
        } else {
          const pid_t hijo = ::fork();
          if (hijo == 0) {
            (void)b.actualizar(plan);
            ::_exit(0);
          }
          int estado = -1;
          ASSERT_EQ(hijo, ::waitpid(hijo, &estado, 0));
          toco = WIFSIGNALED(estado);
        }
        EXPECT_EQ(b.version() == u"0" ? vieja : nueva, u8(b.esquema()));
        EXPECT_EQ(filas, u8(b.contenido()));
        EXPECT_NE(FinActualizacion::Fallo, b.actualizar().fin) << "the next start goes on";
        EXPECT_EQ(nueva, u8(b.esquema()));
        if (!toco) break;
        visto = n;
      }
      EXPECT_GE(visto, 6);  // the version twice, begin, a statement at least, the new version, commit
    }
  }
}

TEST(Versiones, ANewerOneIsLeftAsItIs) {
  for (const Clase& clase : kClases) {
    Base b(clase, clase.tablas());
    b.filas(QStringLiteral("PRAGMA user_version = 99"));
    const Actualizacion a = b.actualizar();
    EXPECT_EQ(FinActualizacion::MasNueva, a.fin);
    EXPECT_TRUE(a.palabras.contains(QStringLiteral("es de la versión 99, más nueva que este programa")));
    EXPECT_EQ("99", b.version().toStdString());
    EXPECT_EQ(0, b.copias().size());
  }
}

TEST(Versiones, WithoutACopyNothingIsTouched) {
  Base b(kClases[0]);
  QFile estorbo(QFileInfo(b.archivo()).path() + QStringLiteral("/respaldos"));
  ASSERT_TRUE(estorbo.open(QIODevice::WriteOnly));
  EXPECT_EQ(FinActualizacion::Fallo, b.actualizar().fin);
  EXPECT_EQ("0", b.version().toStdString());
}

}  // namespace
