#include "backoffice/frm_tablas.h"

#include "backoffice/frm_tablas_sub.h"
#include "foundation/puesto.h"

namespace {

const QString kTitulo = QStringLiteral("TIPOS DE TARJETA");

FilaLista filaLista(const FilaTipoTarjeta& f) { return {{f.codigo, f.descripcion}, f.codigo, true}; }

AspectoLista aspecto() {
  return {.nombre = QStringLiteral("FrmTablas"),
          .titulo = kTitulo,
          .encabezado = kTitulo,
          .botones = {{QStringLiteral("cmdAdicionar"), QStringLiteral("&Adicionar"), ModoDetalle::Nuevo},
                      {QStringLiteral("cmdModificar"), QStringLiteral("&Modificar"), ModoDetalle::Editar},
                      {QStringLiteral("CmdVer"), QStringLiteral("&Ver"), ModoDetalle::Ver},
                      {QStringLiteral("cmdEliminar"), QStringLiteral("&Eliminar"), {}}},
          .sinFilas = QStringLiteral("No Existen registros.....")};
}

}  // namespace

FrmTablas::FrmTablas(Puesto& p, QWidget* padre)
    : frmMantenimientoLista(p, aspecto(),
                            new Lista(QStringLiteral("grddatos"),
                                      {{QStringLiteral("Codigo"), 0.2}, {QStringLiteral("Descripción"), 0.79}}),
                            padre) {
  std::vector<FilaTipoTarjeta> filas;
  if (LeerTiposTarjeta(p, filas)) llenarCon(filas, filaLista);
}

std::optional<FilaLista> FrmTablas::detalle(ModoDetalle modo, const FilaLista* fila) {
  DetalleTipoTarjeta v;
  const FilaTipoTarjeta mostrada = fila ? FilaTipoTarjeta{fila->celdas[0], fila->celdas[1]} : FilaTipoTarjeta{};
  if (!CargarTipoTarjeta(puesto(), modo, mostrada, v)) return {};
  return FrmTablas_sub(puesto(), v, this).exec() == QDialog::Accepted ? std::optional(filaLista(FilaDe(v)))
                                                                      : std::nullopt;
}

bool FrmTablas::alEntrar(QWidget* campo) {
  const QString busca = textoBuscado();
  if (campo->objectName() != u"txtBuscar" || busca.isEmpty()) return frmMantenimientoLista::alEntrar(campo);
  if (buscar(busca, 1)) {
    lista().setFocus();
  } else {
    puesto().mensajes.mostrar(QStringLiteral("El dato no fue encontrado"), QStringLiteral("Búsqueda finalizada"));
  }
  return true;
}
