#include "foundation/cfg_admin.h"

#include "foundation/fin_arranque.h"
#include "foundation/puesto.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/text/numero.h"
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

// A store that can't be reached or written now, as against one that lacks the setting's column: whatever comes next
// would fail the same way.
bool noResponde(const std::optional<ErrorBD>& error) { return error && error->numero != kErrorSentencia; }

QString palabrasDe(const ErrorBD& error, const Sql& sql) {
  return error.descripcion + QStringLiteral(" - ") + sql.texto(Dialecto::Jet);
}

// Gives the words when the store can't be written now; anything else has been shown.
std::optional<QString> escribirEnAmbos(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo,
                                       const QString& valor) {
  if (const auto fallo = EscribirPerfil(archivo, seccion, clave, valor)) p.mensajes.mostrar(*fallo);
  const Sql sql = FormatearSQL(u"UPDATE CONFIGURACION SET CONFIGURACION.$='$'"_sql, {NombreSql(clave), Texto(valor)});
  const auto error = p.poCnnLocal.ejecutar(sql);
  if (!error) return {};
  if (noResponde(error)) return palabrasDe(*error, sql);
  p.mensajes.mostrar(palabrasDe(*error, sql));
  return {};
}

// The same when it can't be asked; the file's value serves then.
std::optional<QString> leerDeAmbos(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo,
                                   QString& valor) {
  const Sql sql = FormatearSQL(u"SELECT $ FROM CONFIGURACION"_sql, {NombreSql(clave)});
  Recordset rs;
  const auto error = p.poCnnLocal.consultar(sql, rs);
  valor = error || rs.Eof() ? QString() : LimpiarNulo(rs[0]);
  if (!valor.isEmpty()) return {};
  valor = Recortar(LeerPerfil(archivo, seccion, clave).value_or(QString()));
  if (noResponde(error)) return palabrasDe(*error, sql);
  if (error) p.mensajes.mostrar(palabrasDe(*error, sql));
  return escribirEnAmbos(p, seccion, clave, archivo, valor);
}

void pararSi(Puesto& p, const std::optional<QString>& fallo) {
  if (!fallo) return;
  TerminarArranque(p,
                   QStringLiteral("El archivo con las ventas de esta caja está ocupado o no deja escribir. Cierre los "
                                  "demás programas, revise que el disco no esté lleno y vuelva a abrir TarvoPos."),
                   *fallo);
}

// The start ends at the first setting that the store can't give or take.
template <size_t N>
void leer(Puesto& p, const Clave (&claves)[N]) {
  for (const Clave& c : claves) {
    pararSi(p, leerDeAmbos(p, QString::fromUtf16(c.seccion), QString::fromUtf16(c.clave), p.ses.psArchivoCfg,
                           p.ses.*c.valor));
  }
}

const QString kAjusteMalo =
    QStringLiteral("A esta caja le falta un ajuste o lo tiene mal escrito. Pida a quien instaló el programa que lo "
                   "corrija; las ventas guardadas están a salvo.");

void fijarIdioma(Puesto& p) {
  QString& idioma = p.ses.psIdiomaSQL;
  idioma = idioma.toUpper();
  if (idioma.isEmpty()) idioma = QStringLiteral("ENGLISH");
  if (idioma == u"ENGLISH") {
    p.ses.psFORMATO_FECHA_SQL_SERVER_INS = QStringLiteral("yyyy/mm/dd hh:nn:ss");
  } else if (idioma == u"SPANISH") {
    p.ses.psFORMATO_FECHA_SQL_SERVER_INS = QStringLiteral("yyyy/dd/mm hh:nn:ss");
  } else {
    TerminarArranque(p, kAjusteMalo,
                     QStringLiteral("Comuníquese con el Proveedor, indicando:\n\n"
                                    "- Idioma Servidor SQL Server no es: 'SPANISH', 'ENGLISH'"),
                     QStringLiteral("Problemas de Configuración"));
  }
}

}  // namespace

QString LeerParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo) {
  QString valor;
  if (const auto fallo = leerDeAmbos(p, seccion, clave, archivo, valor)) p.mensajes.mostrar(*fallo);
  return valor;
}

bool EscribirParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo,
                       const QString& valor) {
  const auto fallo = escribirEnAmbos(p, seccion, clave, archivo, valor);
  if (fallo) p.mensajes.mostrar(*fallo);
  return !fallo;
}

bool EsPorcentajeServicio(const QString& texto) {
  // It stands bare in the statements of a sale, where a comma would begin the next value.
  return EsNumerico(texto) && !texto.contains(u',') && Val(texto) >= 0;
}

void LeerConfiguracion(Puesto& p) {
  leer(p, kLectura);
  for (const auto& c : kObligatorias) {
    if ((p.ses.*c.valor).isEmpty()) TerminarArranque(p, kAjusteMalo, QString::fromUtf16(c.aviso));
  }
  if (!EsPorcentajeServicio(p.ses.psPorcServ)) {
    TerminarArranque(p, kAjusteMalo,
                     QStringLiteral("El porcentaje de servicio «%1» no es un número.\nEscriba en PorcServ, en la tabla "
                                    "Configuracion y en KEB.cfg, un número con punto decimal, como 10 o 10.5.")
                         .arg(p.ses.psPorcServ));
  }
  Sesion& s = p.ses;
  s.textosPapel = LeerTextosPapel(s.psArchivoCfg);
  s.psConexionCentral = cadenaDeServidor(s.psUserName, s.psPassWord, s.psDataBase, s.psDataServer);
  leer(p, kServidorCliente);
  fijarIdioma(p);
  s.psConexionCliente = cadenaDeServidor(s.psUserSQL, s.psPwdUserSQL, s.psBaseDatosSQL, s.psServidorSQL);
  for (const Clave& c : kEscritura) {
    pararSi(p,
            escribirEnAmbos(p, QString::fromUtf16(c.seccion), QString::fromUtf16(c.clave), s.psArchivoCfg, s.*c.valor));
  }
}
