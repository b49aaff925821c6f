#include "admin/consola_sql.h"

#include <QDateTime>
#include <QFileInfo>
#include <QStringDecoder>
#include <cmath>
#include <istream>
#include <ostream>
#include <string>

#include "foundation/db_admin.h"
#include "foundation/rutas.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

constexpr int kEspera_ms = 20000;

QString enJson(const QString& texto) {
  QString s(u'"');
  for (const QChar c : texto) {
    switch (c.unicode()) {
      case u'"': s += QStringLiteral("\\\""); break;
      case u'\\': s += QStringLiteral("\\\\"); break;
      case u'\n': s += QStringLiteral("\\n"); break;
      case u'\r': s += QStringLiteral("\\r"); break;
      case u'\t': s += QStringLiteral("\\t"); break;
      default:
        if (c.unicode() < 0x20) s += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QChar(u'0'));
        else s += c;
    }
  }
  return s + u'"';
}

QString celdaEnJson(const QVariant& v) {
  if (v.isNull()) return QStringLiteral("null");
  switch (v.typeId()) {
    case QMetaType::Double: return std::isfinite(v.toDouble()) ? TextoDe(v.toDouble()) : QStringLiteral("null");
    case QMetaType::QDateTime: return enJson(FechaISO(v.toDateTime()));
    case QMetaType::QString: return enJson(v.toString());
    default: return QString::number(v.toLongLong());
  }
}

QString filasEnJson(const Recordset& rs) {
  QStringList columnas, filas;
  for (const QString& c : rs.campos()) columnas << enJson(c);
  for (const auto& fila : rs) {
    QStringList celdas;
    for (int i = 0; i < rs.campos().size(); ++i) celdas << celdaEnJson(fila[i]);
    filas << u'[' + celdas.join(u',') + u']';
  }
  return QStringLiteral("\"columnas\":[%1],\"filas\":[").arg(columnas.join(u',')) + filas.join(u',') + u']';
}

// The words of a statement one after the other, with the depth of brackets round each; texts, quoted names and
// comments are passed over.
class Palabras {
 public:
  explicit Palabras(const QString& sql) : sql_(sql) {}
  // False at the end.
  bool siguiente(QString& palabra, int& profundidad) {
    while (i_ < sql_.size()) {
      const QChar c = sql_[i_];
      if (c == u'(' || c == u')') {
        profundidad_ += c == u'(' ? 1 : -1;
        ++i_;
      } else if (c == u'\'' || c == u'"' || c == u'[') {
        saltarHasta(c == u'[' ? QStringLiteral("]") : QString(c), 1);
      } else if (sql_.mid(i_, 2) == u"--") {
        saltarHasta(QStringLiteral("\n"), 2);
      } else if (sql_.mid(i_, 2) == u"/*") {
        saltarHasta(QStringLiteral("*/"), 2);
      } else if (c.isLetter()) {
        const qsizetype desde = i_;
        while (i_ < sql_.size() && (sql_[i_].isLetterOrNumber() || sql_[i_] == u'_')) ++i_;
        palabra = sql_.mid(desde, i_ - desde).toLower();
        profundidad = profundidad_;
        return true;
      } else {
        ++i_;
      }
    }
    return false;
  }

 private:
  void saltarHasta(const QString& fin, int cabeza) {
    const qsizetype donde = sql_.indexOf(fin, i_ + cabeza);
    i_ = donde < 0 ? sql_.size() : donde + fin.size();
  }
  const QString& sql_;
  qsizetype i_ = 0;
  int profundidad_ = 0;
};

// Where one server's settings are kept.
struct ClavesServidor {
  const char *seccion, *usuario, *clave, *catalogo, *servidor;
};
constexpr ClavesServidor kCentral{"INICIO", "UserName", "PassWord", "DataBase", "DataServer"};
constexpr ClavesServidor kCliente{"SQLServer", "UserSQL", "PwdUserSQL", "BaseDatosSQL", "ServidorSQL"};

}  // namespace

QString CadenaDeServidor(Conexion& local, const QString& carpeta, BasePuesto base) {
  const ClavesServidor& claves = base == BasePuesto::Central ? kCentral : kCliente;
  const QString archivo = rutasDe(carpeta).enPrograma(QStringLiteral("KEB.cfg"));
  QStringList valores;
  for (const char* c : {claves.usuario, claves.clave, claves.catalogo, claves.servidor}) {
    const QString clave = QString::fromLatin1(c);
    Recordset rs;
    QString valor;
    if (!local.consultar(FormatearSQL(u"SELECT $ FROM CONFIGURACION"_sql, {NombreSql(clave)}), rs))
      valor = LimpiarNulo(rs[0]);
    if (valor.isEmpty()) valor = LeerPerfil(archivo, QString::fromLatin1(claves.seccion), clave).value_or(QString());
    valores += valor;
  }
  return cadenaDeServidor(valores[0], valores[1], valores[2], valores[3]);
}

std::optional<QString> AbrirBase(Motores& motores, const QString& carpeta, BasePuesto base, Conexion& cnn) {
  const Rutas rutas = rutasDe(carpeta);
  const QString almacen = rutas.enPrograma(QStringLiteral("TarvoPos.mdb"));
  if (!QFileInfo::exists(almacen)) return QStringLiteral("La carpeta %1 no tiene TarvoPos.mdb.").arg(carpeta);
  Conexion local;
  const QString cadenaLocal = QStringLiteral("driver={Microsoft Access Driver (*.mdb)};Password=tulvek;DBQ=") + almacen;
  if (const auto e = (base == BasePuesto::Local ? cnn : local).abrir(motores, cadenaLocal, kEspera_ms)) {
    return e->descripcion;
  }
  if (base == BasePuesto::Local) return {};
  if (const auto e = cnn.abrir(motores, CadenaDeServidor(local, carpeta, base), kEspera_ms)) return e->descripcion;
  return {};
}

bool SoloCambia(const QString& sql) {
  static const QStringList kCambian{QStringLiteral("insert"), QStringLiteral("update"),   QStringLiteral("delete"),
                                    QStringLiteral("create"), QStringLiteral("drop"),     QStringLiteral("alter"),
                                    QStringLiteral("set"),    QStringLiteral("truncate"), QStringLiteral("begin"),
                                    QStringLiteral("commit"), QStringLiteral("rollback")};
  Palabras palabras(sql);
  QString palabra;
  int profundidad = 0;
  if (!palabras.siguiente(palabra, profundidad)) return false;
  // Behind WITH the first verb outside all brackets is the statement's own.
  if (palabra == u"with") {
    while (palabras.siguiente(palabra, profundidad)) {
      if (profundidad == 0 && (palabra == u"select" || kCambian.contains(palabra))) break;
    }
  }
  while (palabra == u"select" && palabras.siguiente(palabra, profundidad)) {  // SELECT ... INTO makes a table
    if (palabra != u"into" || profundidad != 0) palabra = QStringLiteral("select");
    else return true;
  }
  return kCambian.contains(palabra);
}

QByteArray ResponderSentencia(Conexion& cnn, const QString& sql, bool traducir) {
  Recordset rs;
  qint64 afectadas = 0;
  const bool cambia = SoloCambia(sql);
  const auto error = cambia ? cnn.ejecutar(Sql::crudo(sql), &afectadas) : cnn.consultar(Sql::crudo(sql), rs);
  QString respuesta;
  if (error) {
    respuesta = QStringLiteral("\"error\":{\"numero\":%1,\"nativo\":%2,\"descripcion\":")
                    .arg(error->numero)
                    .arg(error->nativo) +
                enJson(error->descripcion) + u'}';
  } else if (cambia || rs.campos().isEmpty()) {
    respuesta = QStringLiteral("\"afectadas\":%1").arg(afectadas);
  } else {
    respuesta = filasEnJson(rs);
  }
  if (traducir) respuesta += QStringLiteral(",\"sql\":") + enJson(cnn.traducir(sql));
  return (u'{' + respuesta + u'}').toUtf8();
}

void ConsolaSql(Conexion& cnn, std::istream& entrada, std::ostream& salida, bool traducir) {
  std::string linea;
  for (bool primera = true; std::getline(entrada, linea); primera = false) {
    QStringDecoder lector(QStringDecoder::Utf8);
    QString sql = lector(QByteArrayView(linea.data(), static_cast<qsizetype>(linea.size())));
    if (lector.hasError()) {  // another encoding: its letters would be stored as marks of what they are not
      salida << "{\"error\":{\"numero\":" << kErrorSentencia << ",\"nativo\":0,\"descripcion\":"
             << enJson(QStringLiteral("La línea no es texto UTF-8.")).toUtf8().constData() << "}}" << std::endl;
      continue;
    }
    if (primera && sql.startsWith(QChar(0xFEFF))) sql.remove(0, 1);  // some editors put it in front
    sql = sql.trimmed();
    if (sql.isEmpty()) continue;
    salida << ResponderSentencia(cnn, sql, traducir).constData() << std::endl;
  }
}
