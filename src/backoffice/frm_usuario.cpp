#include "backoffice/frm_usuario.h"

namespace {

std::vector<CampoDetalle> camposDe(DetalleUsuario& v) {
  using C = CampoDetalle;
  // clang-format off
  return {
      // Another name would be another row.
      {C::Texto, QStringLiteral("txtUsuario"), QStringLiteral("&Usuario"), &v.txtUsuario, nullptr,
          {.fijo = v.modo == ModoDetalle::Editar}},
      {C::Clave, QStringLiteral("txtPassword"), QStringLiteral("&Password"), &v.txtPassword},
      {C::Clave, QStringLiteral("txtReingresarPassword"), QStringLiteral("&Reingresar Password"),
          &v.txtReingresarPassword},
      {C::Eleccion, QStringLiteral("dcbPerfil"), QStringLiteral("Per&fil"), &v.dcbPerfil, nullptr,
          {.entradas = v.perfiles}},
      {C::Texto, QStringLiteral("txtApellidos"), QStringLiteral("Ape&llidos"), &v.txtApellidos},
      {C::Texto, QStringLiteral("txtNombres"), QStringLiteral("&Nombres"), &v.txtNombres},
      {C::Opciones, QStringLiteral("optActivo"), QStringLiteral("Estado|Activo|Inactivo"), nullptr, &v.activo},
  };
  // clang-format on
}

}  // namespace

frmUsuario::frmUsuario(Puesto& p, DetalleUsuario& v, QWidget* padre)
    : frmMantenimientoDetalle({QStringLiteral("frmUsuario"), TituloDetalle(v.modo, QStringLiteral("Usuario")), v.modo},
                              camposDe(v), padre),
      p_(p),
      v_(v) {
  for (const char* nombre : {"txtApellidos", "txtNombres"}) {
    control<Campo>(nombre)->filtro = [this](QChar tecla) {
      return FiltrarTeclaNombre(p_, tecla, {ClaseTecla::Mayusculas});
    };
  }
}

bool frmUsuario::guardar(QString& campoMal) {
  const bool guardado = GuardarUsuario(p_, v_);
  campoMal = v_.campoMal;
  return guardado;
}
