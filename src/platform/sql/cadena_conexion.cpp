#include "platform/sql/cadena_conexion.h"

#include <QHash>

#include "platform/text/texto.h"

namespace {
constexpr QStringView kAccess = u"Microsoft Access";
}

CadenaConexion leerCadenaConexion(const QString& cadena) {
  QHash<QString, QString> valores;
  for (const QString& par : cadena.split(u';', Qt::SkipEmptyParts)) {
    const auto igual = par.indexOf(u'=');
    if (igual < 0) continue;
    valores.insert(par.left(igual).trimmed().toLower(), par.mid(igual + 1).trimmed());
  }

  CadenaConexion c;
  c.usuario = valores.value(QStringLiteral("user id"));
  c.clave = valores.value(QStringLiteral("password"));
  c.catalogo = valores.value(QStringLiteral("initial catalog"));
  if (valores.value(QStringLiteral("driver")).contains(kAccess)) {
    c.tipo = TipoMotor::Local;
    // The path stands last and is taken whole: a folder's name may hold a semicolon.
    const QString marca = QStringLiteral("DBQ=");
    const auto donde = cadena.indexOf(marca, 0, Qt::CaseInsensitive);
    if (donde >= 0) c.archivo = cadena.mid(donde + marca.size());
    return c;
  }
  const QString fuente = valores.value(QStringLiteral("data source"));
  if (fuente.startsWith(u"sqlite:", Qt::CaseInsensitive)) {
    c.tipo = TipoMotor::Embebido;
    c.archivo = fuente.mid(7);
  } else if (fuente.startsWith(u"postgres:", Qt::CaseInsensitive)) {
    c.tipo = TipoMotor::Postgres;
    c.servidor = fuente.mid(9);
  } else {
    c.servidor = fuente;
  }
  return c;
}

// A sale opens its servers again and again: nearly always one look is enough.
Dialecto dialectoDe(const QString& cadena) {
  return cadena.contains(kAccess) && leerCadenaConexion(cadena).tipo == TipoMotor::Local ? Dialecto::Jet
                                                                                         : Dialecto::TSql;
}

QString cadenaDeServidor(const QString& usuario, const QString& clave, const QString& catalogo,
                         const QString& servidor) {
  return QStringLiteral("Provider=SQLOLEDB.1;User ID=%1;Password=%2;Initial Catalog=%3;Data Source=%4")
      .arg(Recortar(usuario), Recortar(clave), Recortar(catalogo), Recortar(servidor));
}
