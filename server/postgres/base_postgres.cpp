#include "postgres/base_postgres.h"

#include <QCryptographicHash>

#include "platform/sql/motor_postgres.h"
#include "platform/text/numero.h"

namespace {

using Error = std::optional<ErrorBD>;
using MotorAbierto = std::unique_ptr<MotorPostgres>;

constexpr int kEspera_ms = 20000;

QString nombreDe(BaseServidor base) {
  return base == BaseServidor::Central ? QStringLiteral("central") : QStringLiteral("cliente");
}

QString entreComillas(QString texto) { return u'\'' + texto.replace(u'\'', QStringLiteral("''")) + u'\''; }
QString citado(QString nombre) { return u'"' + nombre.replace(u'"', QStringLiteral("\"\"")) + u'"'; }

// The functions and procedures of this program, by which a server tells whether it has them.
QString huella(BaseServidor base) {
  const QString todo = dialectoDePostgres() + procedimientosDePostgres(base);
  return QString::fromLatin1(QCryptographicHash::hash(todo.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString enUnTexto(const QStringList& sentencias) {
  QString texto;
  for (const QString& s : sentencias) texto += s + QStringLiteral(";\n");
  return texto;
}

QString sentenciaDeEstado(BaseServidor base) {
  return QStringLiteral("INSERT INTO dbo.version_tablas (base, version, rutinas) VALUES ('%1', %2, '%3') "
                        "ON CONFLICT (base) DO UPDATE SET version = EXCLUDED.version, rutinas = EXCLUDED.rutinas")
      .arg(nombreDe(base))
      .arg(pasosDelServidor(base, LenguajeMotor::Postgres).size())
      .arg(huella(base));
}

// Two desks that make or change the same server at once do it one after the other.
const QString kUnoALaVez = QStringLiteral("SELECT pg_advisory_xact_lock(hashtextextended('tarvopos', 0))");

const QString kSinAvisos = QStringLiteral("SET LOCAL client_min_messages = warning;\n");

// What the server's database holds of ours.
struct Estado {
  bool nuestra = false;  // it has tables of some version
  int version = 0;
  QString rutinas, otra;  // `otra` is the base whose tables it has instead of those asked for
};

Error leerEstado(MotorPostgres& m, BaseServidor base, Estado& estado) {
  estado = {};
  Recordset rs;
  if (auto e = m.crudo(QStringLiteral("SELECT to_regclass('dbo.version_tablas') IS NOT NULL"), &rs)) return e;
  if (rs[0].toInt() == 0) return {};
  if (auto e = m.crudo(QStringLiteral("SELECT base, version, rutinas FROM dbo.version_tablas"), &rs)) return e;
  for (const auto fila : rs) {
    if (fila[0].toString() != nombreDe(base)) {
      estado.otra = fila[0].toString();
      continue;
    }
    estado.nuestra = true;
    estado.version = static_cast<int>(AEntero(fila[1].toDouble()));
    estado.rutinas = fila[2].toString();
  }
  return {};
}

Error crearSiFalta(const CadenaConexion& c) {
  CadenaConexion comun = c;
  comun.catalogo = QStringLiteral("postgres");
  ErrorBD error;
  const MotorAbierto m = MotorPostgres::abrir(comun, kEspera_ms, error);
  if (!m) return {};  // who may not enter there may well enter the database itself
  Recordset rs;
  if (auto e =
          m->crudo(QStringLiteral("SELECT 1 FROM pg_database WHERE datname = ") + entreComillas(c.catalogo), &rs)) {
    return e;
  }
  if (!rs.Eof()) return {};
  return m->crudo(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE_PROVIDER icu "
                                 "ICU_LOCALE 'es' LOCALE 'C'")
                      .arg(citado(c.catalogo)));
}

Error revisarVersion(MotorPostgres& m) {
  Recordset rs;
  if (auto e = m.crudo(QStringLiteral("SELECT current_setting('server_version_num')::int / 10000"), &rs)) return e;
  if (rs[0].toInt() >= kPostgresMinimo) return {};
  return ErrorBD{kErrorGeneral, 0,
                 QStringLiteral("El servidor es PostgreSQL %1; hace falta la versión %2 o una posterior.")
                     .arg(rs[0].toInt())
                     .arg(kPostgresMinimo)};
}

QString guionNuevo(const CadenaConexion& c, BaseServidor base, const QStringList& filas) {
  return QStringLiteral("BEGIN;\n") + kUnoALaVez + QStringLiteral(";\n") + kSinAvisos + dialectoDePostgres() +
         QStringLiteral("\nSET LOCAL search_path = dbo;\n"
                        "CREATE TABLE dbo.version_tablas (base varchar(20) PRIMARY KEY, version integer NOT NULL, "
                        "rutinas varchar(40) NOT NULL);\n") +
         enUnTexto(tablasDelServidor(base, LenguajeMotor::Postgres)) + procedimientosDePostgres(base) +
         QStringLiteral("\nALTER DATABASE %1 SET search_path = dbo, public;\n").arg(citado(c.catalogo)) +
         enUnTexto(filas) + sentenciaDeEstado(base) + QStringLiteral(";\nCOMMIT");
}

}  // namespace

std::optional<CadenaConexion> leerServidorPostgres(const QString& palabras, const CadenaConexion& supuestos) {
  if (!palabras.startsWith(u"postgres:", Qt::CaseInsensitive)) return {};
  const auto sinCifrar = [](const QString& t) {
    return QString::fromUtf8(QByteArray::fromPercentEncoding(t.toUtf8()));
  };
  CadenaConexion c = supuestos;
  c.tipo = TipoMotor::Postgres;
  QString resto = palabras.mid(9).trimmed();
  if (resto.startsWith(u"//")) resto.remove(0, 2);
  if (const auto barra = resto.indexOf(u'/', resto.lastIndexOf(u'@') + 1); barra >= 0) {
    c.catalogo = sinCifrar(resto.mid(barra + 1));
    resto.truncate(barra);
  }
  if (const auto arroba = resto.lastIndexOf(u'@'); arroba >= 0) {
    const QString quien = resto.left(arroba);
    const auto dosPuntos = quien.indexOf(u':');
    c.usuario = sinCifrar(quien.left(dosPuntos));
    if (dosPuntos >= 0) c.clave = sinCifrar(quien.mid(dosPuntos + 1));
    resto.remove(0, arroba + 1);
  }
  c.servidor = resto;
  for (const QString& parte : {c.servidor, c.usuario, c.clave, c.catalogo}) {
    if (parte.contains(u';') || parte.contains(u'\n')) return {};  // it could not stand in a connection string
  }
  if (c.servidor.isEmpty() || c.catalogo.isEmpty()) return {};
  return c;
}

QString cadenaDe(const CadenaConexion& c) {
  return cadenaDeServidor(c.usuario, c.clave, c.catalogo, QStringLiteral("postgres:") + c.servidor);
}

ResultadoBase CrearBasePostgres(const CadenaConexion& c, BaseServidor base, const QStringList& filas) {
  const QString nombre = QStringLiteral("%1 en %2").arg(c.catalogo, c.servidor);
  const auto fallo = [&nombre](const ErrorBD& e) {
    return ResultadoBase{FinBase::Fallo, QStringLiteral("No se pudo crear la base %1: ").arg(nombre) + e.descripcion};
  };
  if (const auto e = crearSiFalta(c)) return fallo(*e);
  ErrorBD error;
  const MotorAbierto m = MotorPostgres::abrir(c, kEspera_ms, error);
  if (!m) return {FinBase::Lejos, error.descripcion};
  if (const auto e = revisarVersion(*m)) return fallo(*e);
  Estado estado;
  if (const auto e = leerEstado(*m, base, estado)) return fallo(*e);
  if (!estado.otra.isEmpty()) {
    return fallo({kErrorGeneral, 0, QStringLiteral("esa base ya tiene las tablas de la base %1.").arg(estado.otra)});
  }
  if (estado.nuestra) return {FinBase::YaEstaba, QStringLiteral("La base %1 ya existe; no se ha tocado.").arg(nombre)};
  if (const auto e = m->crudo(guionNuevo(c, base, filas))) return fallo(*e);
  return {};
}

Actualizacion ActualizarBasePostgres(const CadenaConexion& c, BaseServidor base) {
  const QString nombre = QStringLiteral("%1 de %2").arg(c.catalogo, c.servidor);
  const auto fallo = [&nombre](const QString& porque) {
    return Actualizacion{FinActualizacion::Fallo,
                         QStringLiteral("No se pudo actualizar la base de datos %1: %2\nLa base quedó como estaba.")
                             .arg(nombre, porque)};
  };
  ErrorBD error;
  const MotorAbierto m = MotorPostgres::abrir(c, kEspera_ms, error);
  if (!m) return fallo(error.descripcion);
  Estado estado;
  Recordset rs;
  if (const auto e = m->crudo(QStringLiteral("BEGIN;") + kUnoALaVez, &rs)) return fallo(e->descripcion);
  if (const auto e = leerEstado(*m, base, estado)) return fallo(e->descripcion);
  if (!estado.nuestra) return fallo(QStringLiteral("no tiene las tablas de una base %1.").arg(nombreDe(base)));
  const PasosDeVersion pasos = pasosDelServidor(base, LenguajeMotor::Postgres);
  const int ultima = static_cast<int>(pasos.size());
  if (estado.version > ultima || (estado.version == ultima && estado.rutinas == huella(base))) return {};
  QString guion = kSinAvisos + QStringLiteral("SET LOCAL search_path = dbo;\n") + dialectoDePostgres() + u'\n';
  for (auto i = static_cast<size_t>(estado.version); i < pasos.size(); ++i) guion += enUnTexto(pasos[i]);
  guion += procedimientosDePostgres(base) + u'\n' + sentenciaDeEstado(base) + QStringLiteral(";\nCOMMIT");
  if (const auto e = m->crudo(guion)) return fallo(e->descripcion);
  const QString que =
      estado.version == ultima
          ? QStringLiteral("Las funciones y procedimientos de la base de datos %1 se pusieron al día.").arg(nombre)
          : QStringLiteral("La base de datos %1 se actualizó de la versión %2 a la %3.")
                .arg(nombre)
                .arg(estado.version)
                .arg(ultima);
  return {FinActualizacion::Actualizada, que};
}

QString RevisarBasePostgres(Conexion& servidor, BaseServidor base) {
  const Sql sql = FormatearSQL(u"SELECT version FROM version_tablas WHERE base = '$'"_sql, {Texto(nombreDe(base))});
  Recordset rs;
  if (const auto e = servidor.consultar(sql, rs); e || rs.Eof()) {
    return QStringLiteral("El servidor no tiene las tablas de la base %1%2.\nCréelas con «tarvopos-admin crear-%1».")
        .arg(nombreDe(base), e ? QStringLiteral(" (") + e->descripcion + u')' : QString());
  }
  const int ultima = static_cast<int>(pasosDelServidor(base, LenguajeMotor::Postgres).size());
  if (AEntero(rs[0].toDouble()) >= ultima) return {};
  return QStringLiteral("Las tablas de la base %1 del servidor son de un programa anterior.\nPóngalas al día con "
                        "«tarvopos-admin actualizar».")
      .arg(nombreDe(base));
}
