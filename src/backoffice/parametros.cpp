#include "backoffice/parametros.h"

#include <limits>

#include "foundation/cfg_admin.h"
#include "foundation/mantenimiento.h"
#include "foundation/puesto.h"
#include "platform/io/perfil.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kSeccion = QStringLiteral("PARAMETROS");

// What is no whole number counts as none.
std::optional<double> entero(const QString& texto) {
  if (!EsNumerico(texto)) return {};
  const double n = LeerImporte(texto);
  return n == Int(n) ? std::optional(n) : std::nullopt;
}

// Writes a setting. False when the table, which wins at the next start, didn't take it; its box has been shown.
bool escribir(Puesto& p, const QString& clave, const QString& valor) {
  if (!EscribirParametro(p, kSeccion, clave, p.ses.psArchivoCfg, valor)) return false;
  Recordset rs;
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                      FormatearSQL(u"SELECT $ FROM CONFIGURACION"_sql, {NombreSql(clave)}), rs) &&
         (rs.Eof() || LimpiarNulo(rs[0]) == Recortar(valor));
}

bool consultar(Puesto& p, const Sql& sql, Recordset& rs) { return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs); }

}  // namespace

void CargarParametros(Puesto& p, Parametros& v) {
  v = {};
  v.dcbAlmacen = p.ses.psAlmacen;
  v.txtServicio = p.ses.psPorcServ;
  Conexion central;
  Recordset rs;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return;
  if (p.poDBAdmin.EjecutarConsulta(central, u" SELECT cCodAlmac, vDscAlmac FROM Almacen ORDER BY vDscAlmac "_sql, rs)) {
    for (const auto& f : rs) v.almacenes.emplace_back(LimpiarNulo(f[u"cCodAlmac"]), LimpiarNulo(f[u"vDscAlmac"]));
  }
  p.poDBAdmin.CerrarBD(central);
}

bool GrabarNumeracion(Puesto& p, Parametros& v) {
  const auto numero = entero(v.txtNumeracion);
  if (!Comprobar(
          p,
          {{!numero, u"txtNumeracion", u"Debe de ingresar un número para inicializar el comprobante"},
           {numero <= 0, u"txtNumeracion", u"El numero ingresado en Numeración no puede ser menor o igual que cero"},
           {numero > std::numeric_limits<int>::max(), u"txtNumeracion",
            u"El número ingresado en Numeración es demasiado grande"}},
          v.campoMal))
    return false;
  Recordset rs;
  if (!consultar(p, u" SELECT max(cOperCode) as Maximo FROM Operacion "_sql, rs)) return false;
  if (!Comprobar(p,
                 {{numero <= Numero(rs[u"Maximo"]), u"txtNumeracion",
                   u"El número con el que desea inicializar es menor o igual que el maximo valor de los comprobantes "
                   u"existentes"}},
                 v.campoMal))
    return false;
  const double anterior = *numero - 1;
  if (!consultar(p, FormatearSQL(u" SELECT cOperCode    FROM Operacion   WHERE cOperCode = $"_sql, {anterior}), rs))
    return false;
  return !rs.Eof() ||
         EjecutarConAviso(p, FormatearSQL(u" INSERT INTO Operacion(cOperCode) VALUES ('$')"_sql, {anterior}));
}

bool GrabarAlmacen(Puesto& p, Parametros& v) {
  if (!Comprobar(p, {{v.dcbAlmacen.isEmpty(), u"dcbAlmacen", u"Debe elegir el almacén"}}, v.campoMal)) return false;
  const QString clave = QStringLiteral("Almacen");
  // Both or none: a desk whose catalogue stays behind would find no article.
  if (EnTransaccion(p, [&] {
        return EjecutarConAviso(p, FormatearSQL(u"UPDATE Producto set cAlmaCode='$'"_sql, {Texto(v.dcbAlmacen)})) &&
               escribir(p, clave, v.dcbAlmacen);
      })) {
    p.ses.psAlmacen = v.dcbAlmacen;
    return true;
  }
  (void)EscribirPerfil(p.ses.psArchivoCfg, kSeccion, clave, p.ses.psAlmacen);
  return false;
}

bool GrabarServicio(Puesto& p, Parametros& v) {
  const bool hay = EsNumerico(v.txtServicio);
  if (!Comprobar(p,
                 {{!hay, u"txtServicio", u"Debe de ingresar un número grabar el % Servicio"},
                  {LeerImporte(v.txtServicio) <= 0, u"txtServicio",
                   u"El numero ingresado en % Servicio no puede ser menor o igual que cero"}},
                 v.campoMal))
    return false;
  const QString porcentaje = TextoDe(LeerImporte(v.txtServicio));
  if (!escribir(p, QStringLiteral("PorcServ"), porcentaje)) return false;
  p.ses.psPorcServ = porcentaje;
  return true;
}

bool GrabarParametros(Puesto& p, Parametros& v) {
  v.campoMal.clear();
  bool pasa = true;
  if (v.chkNumeracion) pasa = GrabarNumeracion(p, v);
  // A move that went well lets the rest go on, whatever became of the number.
  if (v.chkAlmacen) pasa = GrabarAlmacen(p, v);
  if (pasa) pasa = GrabarServicio(p, v);
  if (pasa) p.mensajes.mostrar(QStringLiteral("Se guardó la configuración satisfactoriamente"));
  return pasa;
}
