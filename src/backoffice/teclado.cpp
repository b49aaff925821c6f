#include "backoffice/teclado.h"

#include <limits>

#include "backoffice/mantenimiento.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kTeclasPorFila = 12;
constexpr int kLargoRotulo = 25;

// Keys with an article of the desk's warehouse; `condicion` follows the WHERE.
QString seleccion(const Puesto& p, const QString& condicion) {
  return QStringLiteral(" SELECT C.cTeclCode, C.sTeclDesc, C.sTeclRapd, C.cTeclFlagAsig, C.cProdCode, P.sProdDescCrta"
                        " FROM ConfiguracionTeclado AS C LEFT JOIN Producto AS P ON C.cProdCode = P.cProdCode ") +
         condicion + QStringLiteral(" AND P.cAlmaCode ='") + ReemplazarComilla(p.ses.psAlmacen) + QStringLiteral("'");
}

TeclaMostrada conArticulo(const QString& nombre) {
  const bool larga = nombre.size() > kLargoRotulo;
  return {true, Izquierda(nombre, kLargoRotulo) + (larga ? QStringLiteral("..") : QString())};
}

// The short name of an article of the desk's warehouse; nothing when it has none of that code or can't be asked.
std::optional<QString> nombreEnAlmacen(Puesto& p, const QString& codigo) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(QStringLiteral("SELECT sProdDescCrta FROM Producto WHERE cProdCode = $ "
                                                                "AND cAlmaCode = '$'"),
                                                 {codigo, ReemplazarComilla(p.ses.psAlmacen)}), rs) ||
      rs.Eof()) return {};
  return LimpiarNulo(rs[u"sProdDescCrta"]);
}

// Brings the article from another warehouse; its name, nothing when there is none or the store refuses the move.
std::optional<QString> traerArticulo(Puesto& p, const QString& codigo) {
  Recordset rs;
  const QString enOtro = QStringLiteral("SELECT cAlmaCode FROM Producto WHERE cProdCode=") + codigo;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, enOtro, rs)) return {};
  if (rs.Eof()) {
    p.mensajes.mostrar(QStringLiteral("El artículo %1 no existe.").arg(codigo));
    return {};
  }
  if (!EjecutarConAviso(p, QStringLiteral("UPDATE PRODUCTO set cAlmaCode='") + ReemplazarComilla(p.ses.psAlmacen) +
                               QStringLiteral("' WHERE cProdCode=") + codigo)) return {};
  return nombreEnAlmacen(p, codigo);
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
  return tecla <= kTeclasPorFila ? QStringLiteral("F%1").arg(tecla) : QStringLiteral("SHFT+F%1").arg(tecla - kTeclasPorFila);
}

bool CargarTeclas(Puesto& p, ConfiguraBotonProducto& v) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    seleccion(p, QStringLiteral("WHERE C.cTeclCode between 1 and 24")) +
                                        QStringLiteral(" ORDER BY cTeclCode"), rs)) return false;
  v.cmdTecla.fill({});
  for (const auto& f : rs) {
    v.cmdTecla[static_cast<size_t>(AEntero(Numero(f[u"cTeclCode"])))] = conArticulo(LimpiarNulo(f[u"sProdDescCrta"]));
  }
  return true;
}

bool ElegirTecla(Puesto& p, ConfiguraBotonProducto& v, int tecla) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    seleccion(p, QStringLiteral(" WHERE cTeclCode =%1").arg(tecla)), rs)) return false;
  v.tecla = tecla;
  v.txtBoton = QStringLiteral("DEP %1").arg(tecla);
  v.txtTecla = NombreTeclaRegistro(tecla);
  v.txtCodigoProducto = LimpiarNulo(rs[u"cProdCode"]);
  v.txtNombreProducto = LimpiarNulo(rs[u"sProdDescCrta"]);
  return true;
}

void MostrarProductoDeTecla(Puesto& p, ConfiguraBotonProducto& v) {
  const QString codigo = codigoEscrito(v.txtCodigoProducto);
  const bool hay = !codigo.isEmpty() && codigo != u"0";
  v.txtNombreProducto = hay ? nombreEnAlmacen(p, codigo).value_or(QString()) : QString();
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
  if (conCodigo) {
    // The article first: a key must not be left with one that this warehouse doesn't get.
    nombre = nombreEnAlmacen(p, codigo);
    if (!nombre) nombre = traerArticulo(p, codigo);
    if (!nombre) return false;
  }
  if (!EjecutarConAviso(p, FormatearSQL(QStringLiteral("UPDATE ConfiguracionTeclado SET cProdCode = $, "
                                                       "cTeclFlagAsig = '1' WHERE cTeclCode = $ "),
                                        {codigo, v.tecla}))) return false;
  v.txtNombreProducto = nombre.value_or(QString());
  v.cmdTecla[static_cast<size_t>(v.tecla)] =
      nombre ? conArticulo(*nombre) : TeclaMostrada{false, QStringLiteral("Producto%1").arg(v.tecla)};
  return true;
}
