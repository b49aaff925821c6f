#include "foundation/cfg_admin.h"

#include "foundation/puesto.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/text/texto.h"

namespace {

struct Clave {
  const char16_t* seccion;
  const char16_t* clave;
  QString Sesion::*valor;
};

// Read in this order at the start.
// clang-format off
const Clave kLectura[] = {
    {u"INICIO", u"UserName", &Sesion::psUserName},     {u"INICIO", u"PassWord", &Sesion::psPassWord},
    {u"INICIO", u"DataBase", &Sesion::psDataBase},     {u"INICIO", u"DataServer", &Sesion::psDataServer},
    {u"PARAMETROS", u"cOpeB", &Sesion::psOpeB},        {u"PARAMETROS", u"cOpeF", &Sesion::psOpeF},
    {u"PARAMETROS", u"NC", &Sesion::psNC},             {u"PARAMETROS", u"OC", &Sesion::psOC},
    {u"PARAMETROS", u"PADE", &Sesion::psPADE},         {u"PARAMETROS", u"PADV", &Sesion::psPADV},
    {u"PARAMETROS", u"LIQ", &Sesion::psLIQ},           {u"PARAMETROS", u"Caja", &Sesion::psCaja},
    {u"PARAMETROS", u"Almacen", &Sesion::psAlmacen},   {u"PARAMETROS", u"PorcServ", &Sesion::psPorcServ},
    {u"INICIO", u"RutaBDCliente", &Sesion::psRutaBDCliente},
    {u"PARAMETROS", u"DFlag", &Sesion::psDFlag},
};
// clang-format on

const struct {
  QString Sesion::*valor;
  const char16_t* aviso;
} kObligatorias[] = {
    {&Sesion::psCaja, u"Debe ingresar parámetro de Caja en archivo de Configuración"},
    {&Sesion::psAlmacen, u"Debe ingresar parámetro de almacén en archivo de Configuración"},
    {&Sesion::psPorcServ, u"Debe ingresar parámetro de Porcentaje de Servicio en archivo de Configuración"},
};

// clang-format off
const Clave kServidorCliente[] = {
    {u"SQLServer", u"ServidorSQL", &Sesion::psServidorSQL},
    {u"SQLServer", u"UserSQL", &Sesion::psUserSQL},
    {u"SQLServer", u"PwdUserSQL", &Sesion::psPwdUserSQL},
    {u"SQLServer", u"BaseDatosSQL", &Sesion::psBaseDatosSQL},
    {u"SQLServer", u"IdionaSQLServer", &Sesion::psIdiomaSQL},
};
// clang-format on

// Written back at the end of the reading, so that file and table agree on them.
// clang-format off
const Clave kEscritura[] = {
    {u"INICIO", u"UserName", &Sesion::psUserName},   {u"INICIO", u"PassWord", &Sesion::psPassWord},
    {u"INICIO", u"DataBase", &Sesion::psDataBase},   {u"INICIO", u"DataServer", &Sesion::psDataServer},
    {u"PARAMETROS", u"Caja", &Sesion::psCaja},       {u"PARAMETROS", u"cOpeB", &Sesion::psOpeB},
    {u"PARAMETROS", u"NC", &Sesion::psNC},           {u"PARAMETROS", u"OC", &Sesion::psOC},
    {u"PARAMETROS", u"PADE", &Sesion::psPADE},       {u"PARAMETROS", u"PADV", &Sesion::psPADV},
    {u"PARAMETROS", u"LIQ", &Sesion::psLIQ},         {u"PARAMETROS", u"cOpeF", &Sesion::psOpeF},
    {u"INICIO", u"RutaBDCliente", &Sesion::psRutaBDCliente},
};
// clang-format on

template <size_t N>
void leer(Puesto& p, const Clave (&claves)[N]) {
  for (const Clave& c : claves) {
    p.ses.*c.valor = LeerParametro(p, QString::fromUtf16(c.seccion), QString::fromUtf16(c.clave), p.ses.psArchivoCfg);
  }
}

void fijarIdioma(Puesto& p) {
  QString& idioma = p.ses.psIdiomaSQL;
  idioma = idioma.toUpper();
  if (idioma.isEmpty()) idioma = QStringLiteral("ENGLISH");
  if (idioma == u"ENGLISH") {
    p.ses.psFORMATO_FECHA_SQL_SERVER_INS = QStringLiteral("yyyy/mm/dd hh:nn:ss");
  } else if (idioma == u"SPANISH") {
    p.ses.psFORMATO_FECHA_SQL_SERVER_INS = QStringLiteral("yyyy/dd/mm hh:nn:ss");
  } else {
    p.mensajes.mostrar(QStringLiteral("Comuníquese con el Proveedor, indicando:\n\n"
                                      "- Idioma Servidor SQL Server no es: 'SPANISH', 'ENGLISH'"),
                       QStringLiteral("Problemas de Configuración"), Icono::Critico);
    p.salida.terminar(1);
  }
}

}  // namespace

QString LeerParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo) {
  Recordset rs;
  QString valor;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, FormatearSQL(u"SELECT $ FROM CONFIGURACION"_sql, {NombreSql(clave)}),
                                   rs) &&
      !rs.Eof()) {
    valor = LimpiarNulo(rs[0]);
  }
  if (!valor.isEmpty()) return valor;
  valor = Recortar(LeerPerfil(archivo, seccion, clave).value_or(QString()));
  EscribirParametro(p, seccion, clave, archivo, valor);
  return valor;
}

void EscribirParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo,
                       const QString& valor) {
  if (const auto fallo = EscribirPerfil(archivo, seccion, clave, valor)) p.mensajes.mostrar(*fallo);
  p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal, FormatearSQL(u"UPDATE CONFIGURACION SET CONFIGURACION.$='$'"_sql, {NombreSql(clave), Texto(valor)}),
      true);
}

void LeerConfiguracion(Puesto& p) {
  leer(p, kLectura);
  for (const auto& c : kObligatorias) {
    if (!(p.ses.*c.valor).isEmpty()) continue;
    p.mensajes.mostrar(QString::fromUtf16(c.aviso));
    p.salida.terminar(1);
  }
  Sesion& s = p.ses;
  s.psConexionCentral = cadenaDeServidor(s.psUserName, s.psPassWord, s.psDataBase, s.psDataServer);
  leer(p, kServidorCliente);
  fijarIdioma(p);
  s.psConexionCliente = cadenaDeServidor(s.psUserSQL, s.psPwdUserSQL, s.psBaseDatosSQL, s.psServidorSQL);
  for (const Clave& c : kEscritura) {
    EscribirParametro(p, QString::fromUtf16(c.seccion), QString::fromUtf16(c.clave), s.psArchivoCfg, s.*c.valor);
  }
}
