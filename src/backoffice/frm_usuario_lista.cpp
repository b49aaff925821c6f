#include "backoffice/frm_usuario_lista.h"

#include "backoffice/frm_usuario.h"

namespace {

FilaLista filaLista(const FilaUsuario& f) { return {{f.usuario, f.perfil, f.nombre}, f.usuario, f.activo}; }

}  // namespace

frmUsuarioLista::frmUsuarioLista(Puesto& p, QWidget* padre)
    : frmMantenimientoLista(p, {QStringLiteral("frmUsuarioLista"), QStringLiteral("Relación de Usuarios")},
                            new Lista(QStringLiteral("lvwUsuario"), {{QStringLiteral("Usuario"), 0.25},
                                                                     {QStringLiteral("Perfil"), 0.25},
                                                                     {QStringLiteral("Nombre"), 0.48}}),
                            padre) {
  conActivar();
  std::vector<FilaUsuario> filas;
  if (LeerUsuarios(p, filas)) llenarCon(filas, filaLista);
}

std::optional<FilaLista> frmUsuarioLista::detalle(ModoDetalle modo, const FilaLista* fila) {
  DetalleUsuario v;
  if (!CargarUsuario(puesto(), modo, fila ? fila->clave.toString() : QString(), v)) return {};
  return frmUsuario(puesto(), v, this).exec() == QDialog::Accepted ? std::optional(filaLista(FilaDe(v))) : std::nullopt;
}

std::optional<FilaLista> frmUsuarioLista::activar(const FilaLista& fila) {
  FilaUsuario f{fila.celdas[0], fila.celdas[1], fila.celdas[2], fila.activa};
  return ActivarUsuario(puesto(), f) ? std::optional(filaLista(f)) : std::nullopt;
}
