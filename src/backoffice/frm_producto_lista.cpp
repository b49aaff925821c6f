#include "backoffice/frm_producto_lista.h"

#include "backoffice/frm_producto.h"
#include "platform/ui/tema.h"

namespace {

Lista* nuevaLista() {
  auto* l = new Lista(QStringLiteral("lvwProducto"), {{QStringLiteral("Cód."), 0.1, true, ColumnaLista::Numero},
                                                      {QStringLiteral("Producto"), 0.34},
                                                      {QStringLiteral("Abrev."), 0.25},
                                                      {QStringLiteral("P.Unit."), 0.13, true, ColumnaLista::Numero},
                                                      {QStringLiteral("Tipo"), 0.09},
                                                      {QStringLiteral("Stock"), 0.08}});
  l->textoVacio = QStringLiteral("Sin productos: Insert para crear el primero");
  return l;
}

FilaLista filaLista(const FilaProducto& f) {
  return {{f.codigo, f.descripcion, f.corta, f.precio, f.tipo, f.stock}, f.codigo, f.activo};
}

FilaProducto productoDe(const FilaLista& f) {
  const auto& c = f.celdas;
  return {c[0], c[1], c[2], c[3], c[4], c[5], f.activa};
}

}  // namespace

frmProductoLista::frmProductoLista(Puesto& p, QWidget* padre)
    : frmMantenimientoLista(p, {QStringLiteral("frmProductoLista"), QStringLiteral("Relación de Productos")},
                            nuevaLista(), padre) {
  conActivar();
  std::vector<FilaProducto> filas;
  if (LeerProductos(p, filas)) llenarCon(filas, filaLista);
  resize(tema::px(1000), tema::px(680));
}

std::optional<FilaLista> frmProductoLista::detalle(ModoDetalle modo, const FilaLista* fila) {
  DetalleProducto v;
  if (!CargarProducto(puesto(), modo, fila ? fila->clave.toString() : QString(), v)) return {};
  return frmProducto(puesto(), v, this).exec() == QDialog::Accepted ? std::optional(filaLista(FilaDe(v)))
                                                                    : std::nullopt;
}

std::optional<FilaLista> frmProductoLista::activar(const FilaLista& fila) {
  FilaProducto f = productoDe(fila);
  return ActivarProducto(puesto(), f) ? std::optional(filaLista(f)) : std::nullopt;
}
