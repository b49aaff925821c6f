#include "backoffice/tipo_tarjeta.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kTabla = QStringLiteral("tipo_tarjeta");
const QString kSeleccion = QStringLiteral("SELECT cod_tar,descrip From ") + kTabla;

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
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, QStringLiteral("select max(cod_TAR) as cod from ") + kTabla, rs)) {
    return false;
  }
  v.txtcod = Ceros(TextoDe(Val(LimpiarNulo(rs[u"cod"])) + 1), 3);
  return true;
}

bool GuardarTipoTarjeta(Puesto& p, DetalleTipoTarjeta& v) {
  v.campoMal.clear();
  if (v.modo == ModoDetalle::Ver) return true;
  const QString codigo = ReemplazarComilla(Recortar(v.txtcod)), descripcion = ReemplazarComilla(Recortar(v.txtDes));
  const QString donde = QStringLiteral(" Where cod_tar = '") + codigo + u'\'';
  bool repetido = false;
  if (v.modo == ModoDetalle::Nuevo) {
    if (!Comprobar(p, {{codigo.isEmpty(), u"txtcod", u"Debe ingresar Codigo", QStringLiteral("Atención")}},
                   v.campoMal)) {
      return false;
    }
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, kSeleccion + donde, rs)) return false;
    repetido = !rs.Eof();
  }
  if (!Comprobar(p,
                 {{repetido, u"txtcod", u"Se Registro Anteriormente"},
                  {descripcion.isEmpty(), u"txtDes", u"Debe ingresar Descripcion", QStringLiteral("Atención")}},
                 v.campoMal))
    return false;
  return GuardarPorModo(p, v.modo,
                        {QStringLiteral("INSERT INTO ") + kTabla + QStringLiteral(" (cod_tar, Descrip) VALUES('") +
                             codigo + QStringLiteral("','") + descripcion + QStringLiteral("')"),
                         QStringLiteral("UPDATE ") + kTabla + QStringLiteral(" SET  Descrip = '") + descripcion +
                             QStringLiteral("'  WHERE cod_tar = '") + codigo + u'\'',
                         {}});
}

FilaTipoTarjeta FilaDe(const DetalleTipoTarjeta& v) { return {Recortar(v.txtcod), Recortar(v.txtDes)}; }
