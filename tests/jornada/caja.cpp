#include "caja.h"

#include <QDir>

#include "alta/crear_puesto.h"
#include "app/arranque.h"
#include "app/login.h"
#include "loyalty/pendientes.h"
#include "platform/text/numero.h"
#include "servidores.h"

namespace jornada {

namespace {

const QString kAlmacen = QStringLiteral("TarvoPos.mdb"), kAjustes = QStringLiteral("KEB.cfg");
const char* const kServidores[] = {"central.db", "cliente.db"};

// Made once a test program, by the command that makes every desk.
const QDir& modelo() {
  static const QTemporaryDir carpeta;
  static const QDir dir = [] {
    const QDir d(carpeta.path());
    for (const int n : {1, 2}) {
      DatosPuesto datos;
      datos.carpeta = d.filePath(QStringLiteral("caja%1").arg(n));
      datos.caja = QStringLiteral("0000%1").arg(n);
      datos.central = QStringLiteral("sqlite:../central.db");
      datos.cliente = QStringLiteral("sqlite:../cliente.db");
      datos.clave = QStringLiteral("super");
      datos.demo = true;
      datos.ahora = QDateTime(QDate(2026, 11, 24), QTime(7, 0));
      const auto error = CrearPuesto(datos);
      EXPECT_FALSE(error) << qPrintable(error.value_or(QString()));
    }
    return d;
  }();
  return dir;
}

QString celda(const QVariant& v) { return v.typeId() == QMetaType::Double ? TextoDe(v.toDouble()) : v.toString(); }

}  // namespace

Tienda::Tienda() {
  reloj.ahora = QDateTime(QDate(2026, 11, 24), QTime(8, 0));
  const QDir d(carpeta_.path());
  for (const char* s : kServidores) {
    EXPECT_TRUE(QFile::copy(modelo().filePath(QLatin1String(s)), d.filePath(QLatin1String(s))));
  }
  for (const int n : {1, 2}) {
    const QString caja = QStringLiteral("caja%1/").arg(n);
    d.mkpath(caja);
    for (const QString& f : {kAlmacen, kAjustes}) {
      EXPECT_TRUE(QFile::copy(modelo().filePath(caja + f), d.filePath(caja + f)));
    }
  }
}

Caja::Caja(Tienda& t, int n)
    : numero(n),
      tienda(t),
      reales_(motoresDelSistema(t.carpetaDe(n), {[&t] { return t.reloj.now(); }, procedimientosDeServidores(), {}})),
      motores_(*reales_, fallas),
      puertos_(papel, fallas) {
  fallas.morir = [] { throw ProgramaMuerto(); };
  fallas.cadenaDe = [this](Fallas::Servidor s) {
    if (!viva_) return QString();
    return s == Fallas::Servidor::Central ? viva_->ses.psConexionCentral : viva_->ses.psConexionCliente;
  };
}

void Caja::arrancar() {
  viva_.reset();
  fallas.apagar(false);
  viva_ =
      std::make_unique<Puesto>(motores_, puertos_, tienda.reloj, persona, salida_, rutasDe(tienda.carpetaDe(numero)));
  Arrancar(p(), {EnviarPendientesCliente, {}});
  Login login;
  CargarLogin(p(), login);
  login.txtUsuario = QStringLiteral("CAJERO");
  login.txtPassword = QStringLiteral("caja");
  ProbarLogin(p(), login);
  if (!login.aceptado) throw ProcesoTerminado(1);  // the cashier tries again
  ventana = {};
  CargarPrincipal(p(), ventana);
  MostrarAlmacen(p());
}

QStringList Caja::filas(const QString& sql, Base base) {
  const QString almacen =
      QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + tienda.carpetaDe(numero) + u'/' + kAlmacen;
  const QString servidor =
      QStringLiteral("Provider=SQLOLEDB.1;User ID=;Password=;Initial Catalog=x;Data Source=sqlite:../%1");
  Conexion cnn;
  Recordset rs;
  const QString cadena =
      base == Base::Local ? almacen : servidor.arg(QLatin1String(kServidores[base == Base::Cliente]));
  auto error = cnn.abrir(*reales_, cadena, 1000);
  if (!error) error = cnn.consultar(Sql::crudo(sql), rs);
  EXPECT_FALSE(error) << qPrintable(sql) << "\n" << qPrintable(error ? error->descripcion : QString());
  QStringList r;
  for (const auto& fila : rs) {
    QStringList celdas;
    for (int i = 0; i < rs.campos().size(); ++i) celdas << celda(fila[i]);
    r << celdas.join(u'|');
  }
  return r;
}

}  // namespace jornada
