// A desk as the program before there were versions left it, taken up by this one through the real screens.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QFile>

#include "obra.h"

namespace {

const char* const kBases[][2] = {{"puesto", "TarvoPos.mdb"}, {"central", "central.db"}, {"cliente", "cliente.db"}};

void dejarComoAntes(const PuestoDeObra& p) {
  for (const auto& [volcado, nombre] : kBases) {
    QFile sql(QStringLiteral(TARVOPOS_FUENTES "/tests/store/version0/%1.sql").arg(QLatin1String(volcado)));
    ASSERT_TRUE(sql.open(QIODevice::ReadOnly));
    const QString archivo = p.ruta() + u'/' + QLatin1String(nombre);
    for (const char* fin : {"", "-wal", "-shm"}) QFile::remove(archivo + QLatin1String(fin));
    sqlite3* db = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(qPrintable(archivo), &db));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(db, sql.readAll().constData(), nullptr, nullptr, nullptr)) << sqlite3_errmsg(db);
    sqlite3_close(db);
  }
}

const QByteArray kEntrar = R"(reloj 26/11/2026 08:55:00
inicia
espera frmPassword
escribe txtUsuario CAJERO
tecla Enter
escribe txtPassword caja
tecla Enter
espera frmPrincipal
)";
const QByteArray kVender = R"(tecla Enter
espera FrmApertura
escribe txtimporsoles 100.00
tecla Enter
tecla Alt+G
espera frmPrincipal
tecla Alt+M
tecla Right
tecla Down
tecla Enter
espera frmCajaRegistradora
tecla F1
tecla Ctrl+Enter
espera frmVuelto
tecla Ctrl+Enter
espera frmCajaRegistradora
)";

const QString kVentas = QStringLiteral("SELECT COUNT(*) FROM Operacion WHERE cOperTipo = 1 AND cProdCode <> 0");
// The customers' tables have had one step less.
const QString kAviso = QStringLiteral("se actualizó de la versión 0 a la ");

TEST(VersionAnterior, ItsDeskIsBroughtUpToDateToldAndSells) {
  PuestoDeObra p;
  dejarComoAntes(p);
  const int antes = p.filas(kVentas).mid(1).chopped(1).toInt();
  ASSERT_GT(antes, 10);
  EXPECT_TRUE(p.admin({QStringLiteral("verificar"), p.ruta()}).contains(QStringLiteral("es de la versión 0")));
  const QString escrito = p.tocaLineas(kEntrar + kVender);
  EXPECT_EQ(3, escrito.count(kAviso)) << qPrintable(escrito);
  EXPECT_EQ(antes + 1, p.filas(kVentas).mid(1).chopped(1).toInt()) << qPrintable(escrito);
  for (const auto& [base, version] : {std::pair("", "[2]"), {"central: ", "[5]"}, {"cliente: ", "[1]"}}) {
    EXPECT_EQ(version, p.filas(QLatin1String(base) + QStringLiteral("PRAGMA user_version")).toStdString()) << base;
  }
  EXPECT_EQ(1, p.numeros().size()) << "its paper came";
  const QString otra = p.tocaLineas(kEntrar);
  EXPECT_EQ(0, otra.count(kAviso)) << "once";
}

TEST(VersionAnterior, TheServiceCommandDoesTheSame) {
  PuestoDeObra p;
  dejarComoAntes(p);
  const QString dicho = p.admin({QStringLiteral("actualizar"), p.ruta()});
  EXPECT_EQ(3, dicho.count(kAviso)) << qPrintable(dicho);
  EXPECT_TRUE(dicho.endsWith(QStringLiteral("[estado 0]\n")));
  EXPECT_EQ("El puesto ya está al día.\n[estado 0]\n", p.admin({QStringLiteral("actualizar"), p.ruta()}).toStdString());
  EXPECT_EQ(0, p.tocaLineas(kEntrar).count(kAviso));
  // What is newer is left alone.
  EXPECT_TRUE(p.admin({QStringLiteral("sql"), QStringLiteral("--puesto"), p.ruta(), QStringLiteral("--base"),
                       QStringLiteral("central")},
                      "PRAGMA user_version = 99\n")
                  .endsWith(QStringLiteral("[estado 0]\n")));
  EXPECT_EQ("[estado 1]\n", p.admin({QStringLiteral("actualizar"), p.ruta()}).right(11).toStdString());
  EXPECT_TRUE(p.tocaLineas(kEntrar).endsWith(QStringLiteral("fin 1\n[estado 1]\n")));
}

TEST(Llamadas, OneThatOnlyAsksIsAnsweredAndEndsWell) {
  const QString admin = programaAdmin(), caja = carpetaDePruebas() + QStringLiteral("/../bin/tarvopos");
  const struct {
    const char* porque;
    QString programa;
    QStringList palabras;
    QString dice;
  } kCasos[] = {
      {"the service command alone", admin, {}, QStringLiteral("crear-puesto DIR")},
      {"its help", admin, {QStringLiteral("--help")}, QStringLiteral("crear-puesto DIR")},
      {"its version", admin, {QStringLiteral("--version")}, QStringLiteral("tarvopos-admin 1.")},
      {"the till's help", caja, {QStringLiteral("--help")}, QStringLiteral("TARVOPOS_HOME")},
      {"the till's version", caja, {QStringLiteral("--version")}, QStringLiteral("tarvopos 1.")},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    const QString dicho = tocar(c.programa, c.palabras);
    EXPECT_TRUE(dicho.contains(c.dice)) << qPrintable(dicho);
    EXPECT_TRUE(dicho.endsWith(QStringLiteral("[estado 0]\n"))) << qPrintable(dicho);
  }
}

}  // namespace
