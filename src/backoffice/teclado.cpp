#include "backoffice/teclado.h"

#include <limits>

#include "foundation/mantenimiento.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kTeclasPorFila = 12;
constexpr int kLargoRotulo = 25;

// Keys with an article of the desk's warehouse; `condicion` follows the WHERE.
Sql seleccion(const Puesto& p, const Sql& condicion) {
  return u" SELECT C.cTeclCode, C.sTeclDesc, C.sTeclRapd, C.cTeclFlagAsig, C.cProdCode, P.sProdDescCrta"
         " FROM ConfiguracionTeclado AS C LEFT JOIN Producto AS P ON C.cProdCode = P.cProdCode "_sql +
         condicion + FormatearSQL(u" AND P.cAlmaCode ='$'"_sql, {Texto(p.ses.psAlmacen)});
}

TeclaMostrada conArticulo(const QString& nombre) {
  const bool larga = nombre.size() > kLargoRotulo;
  return {true, Izquierda(nombre, kLargoRotulo) + (larga ? QStringLiteral("..") : QString())};
}

// The short name of the article in the desk's warehouse, nothing there when it has none. False when it can't be asked;
// the message has been shown.
bool nombreEnAlmacen(Puesto& p, const QString& codigo, std::optional<QString>& nombre) {
  nombre.reset();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(u"SELECT sProdDescCrta FROM Producto WHERE cProdCode = $ "
                                                 "AND cAlmaCode = '$'"_sql,
                                                 {Cifras(codigo), Texto(p.ses.psAlmacen)}),
                                    rs))
    return false;
  if (!rs.Eof()) nombre = LimpiarNulo(rs[u"sProdDescCrta"]);
  return true;
}

// Brings the article from another warehouse. False when there is none, or the store refuses the move; a box has told
// it.
bool traerArticulo(Puesto& p, const QString& codigo, std::optional<QString>& nombre) {
  Recordset rs;
  const Sql donde = FormatearSQL(u" WHERE cProdCode=$"_sql, {Cifras(codigo)});
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT cAlmaCode FROM Producto"_sql + donde, rs)) return false;
  if (rs.Eof()) {
    p.mensajes.mostrar(QStringLiteral("El artículo %1 no existe.").arg(codigo));
    return false;
  }
  return EjecutarConAviso(p,
                          FormatearSQL(u"UPDATE PRODUCTO set cAlmaCode='$'"_sql, {Texto(p.ses.psAlmacen)}) + donde) &&
         nombreEnAlmacen(p, codigo, nombre);
}

// The code as the statements carry it; "0" for a blank one, "" for what is no code.
QString codigoEscrito(const QString& texto) {
  const QString t = Recortar(texto);
  if (t.isEmpty()) return QStringLiteral("0");
  const double n = EsNumerico(t) ? LeerImporte(t) : -1;
  return n >= 0 && n == Int(n) && n <= std::numeric_limits<int>::max() ? TextoDe(n) : QString();
}

}  // namespace

QString NombreTeclaRegistro(int tecla) {
  return tecla <= kTeclasPorFila ? QStringLiteral("F%1").arg(tecla)
                                 : QStringLiteral("Shift+F%1").arg(tecla - kTeclasPorFila);
}

bool CargarTeclas(Puesto& p, ConfiguraBotonProducto& v) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, seleccion(p, u"WHERE C.cTeclCode between 1 and 24"_sql) + u" ORDER BY cTeclCode"_sql, rs))
    return false;
  v.cmdTecla.fill({});
  for (const auto& f : rs) {
    v.cmdTecla[static_cast<size_t>(AEntero(Numero(f[u"cTeclCode"])))] = conArticulo(LimpiarNulo(f[u"sProdDescCrta"]));
  }
  return true;
}

bool ElegirTecla(Puesto& p, ConfiguraBotonProducto& v, int tecla) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, seleccion(p, FormatearSQL(u" WHERE cTeclCode =$"_sql, {tecla})), rs))
    return false;
  v.tecla = tecla;
  v.txtBoton = QStringLiteral("DEP %1").arg(tecla);
  v.txtTecla = NombreTeclaRegistro(tecla);
  v.txtCodigoProducto = LimpiarNulo(rs[u"cProdCode"]);
  v.txtNombreProducto = LimpiarNulo(rs[u"sProdDescCrta"]);
  return true;
}

void MostrarProductoDeTecla(Puesto& p, ConfiguraBotonProducto& v) {
  const QString codigo = codigoEscrito(v.txtCodigoProducto);
  std::optional<QString> nombre;
  if (!codigo.isEmpty() && codigo != u"0" && !nombreEnAlmacen(p, codigo, nombre)) return;
  v.txtNombreProducto = nombre.value_or(QString());
}

bool GrabarTecla(Puesto& p, ConfiguraBotonProducto& v) {
  if (v.tecla == 0) {
    p.mensajes.mostrar(QStringLiteral("Elija primero la tecla que va a configurar."));
    return false;
  }
  const QString codigo = codigoEscrito(v.txtCodigoProducto);
  if (codigo.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("El artículo %1 no existe.").arg(Recortar(v.txtCodigoProducto)));
    return false;
  }
  const bool conCodigo = !Recortar(v.txtCodigoProducto).isEmpty();
  std::optional<QString> nombre;
  // Both or none: a key must not be left with an article that this warehouse doesn't get.
  if (!EnTransaccion(p, [&] {
        if (conCodigo && !nombreEnAlmacen(p, codigo, nombre)) return false;
        if (conCodigo && !nombre && !traerArticulo(p, codigo, nombre)) return false;
        return EjecutarConAviso(p, FormatearSQL(u"UPDATE ConfiguracionTeclado SET cProdCode = $, "
                                                "cTeclFlagAsig = '1' WHERE cTeclCode = $ "_sql,
                                                {Cifras(codigo), v.tecla}));
      }))
    return false;
  v.txtNombreProducto = nombre.value_or(QString());
  v.cmdTecla[static_cast<size_t>(v.tecla)] =
      nombre ? conArticulo(*nombre) : TeclaMostrada{false, QStringLiteral("Producto%1").arg(v.tecla)};
  return true;
}
