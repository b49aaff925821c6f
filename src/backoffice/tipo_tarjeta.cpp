#include "backoffice/tipo_tarjeta.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr LiteralSql kSeleccion = u"SELECT cod_tar,descrip From tipo_tarjeta"_sql;

}  // namespace

bool LeerTiposTarjeta(Puesto& p, std::vector<FilaTipoTarjeta>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, kSeleccion, rs)) return false;
  for (const auto& f : rs) filas.push_back({LimpiarNulo(f[u"cod_tar"]), LimpiarNulo(f[u"descrip"])});
  return true;
}

QString TituloTipoTarjeta(ModoDetalle modo) {
  switch (modo) {
    case ModoDetalle::Nuevo: return QStringLiteral("Crear Nuevo");
    case ModoDetalle::Editar: return QStringLiteral("Modificar");
    default: return QStringLiteral("Consulta");
  }
}

bool CargarTipoTarjeta(Puesto& p, ModoDetalle modo, const FilaTipoTarjeta& fila, DetalleTipoTarjeta& v) {
  v = {modo, fila.codigo, fila.descripcion, {}};
  if (modo != ModoDetalle::Nuevo) return true;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"select max(cod_TAR) as cod from tipo_tarjeta"_sql, rs)) {
    return false;
  }
  v.txtcod = Ceros(TextoDe(Val(LimpiarNulo(rs[u"cod"])) + 1), 3);
  return true;
}

bool GuardarTipoTarjeta(Puesto& p, DetalleTipoTarjeta& v) {
  v.campoMal.clear();
  if (v.modo == ModoDetalle::Ver) return true;
  const QString codigo = Recortar(v.txtcod), descripcion = Recortar(v.txtDes);
  bool repetido = false;
  if (v.modo == ModoDetalle::Nuevo) {
    if (!Comprobar(p, {{codigo.isEmpty(), u"txtcod", u"Debe ingresar Codigo", QStringLiteral("Atención")}},
                   v.campoMal)) {
      return false;
    }
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                      FormatearSQL(kSeleccion + u" Where cod_tar = '$'"_sql, {Texto(codigo)}), rs))
      return false;
    repetido = !rs.Eof();
  }
  if (!Comprobar(p,
                 {{repetido, u"txtcod", u"Se Registro Anteriormente"},
                  {descripcion.isEmpty(), u"txtDes", u"Debe ingresar Descripcion", QStringLiteral("Atención")}},
                 v.campoMal))
    return false;
  return GuardarPorModo(p, v.modo,
                        {FormatearSQL(u"INSERT INTO tipo_tarjeta (cod_tar, Descrip) VALUES('$','$')"_sql,
                                      {Texto(codigo), Texto(descripcion)}),
                         FormatearSQL(u"UPDATE tipo_tarjeta SET  Descrip = '$'  WHERE cod_tar = '$'"_sql,
                                      {Texto(descripcion), Texto(codigo)}),
                         {}});
}

FilaTipoTarjeta FilaDe(const DetalleTipoTarjeta& v) { return {Recortar(v.txtcod), Recortar(v.txtDes)}; }
