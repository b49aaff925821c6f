#include "printing/frm_cabecera_impresion_lista.h"

#include "printing/frm_cabecera_impresion.h"

namespace {

Lista* nuevaLista() {
  auto* l = new Lista(QStringLiteral("lvwCabecera"), {{QStringLiteral("Linea"), 0.13, true, ColumnaLista::Numero},
                                                      {QStringLiteral("Descripcion"), 0.86}});
  l->setProperty("papel", "impreso");
  l->textoVacio = QStringLiteral("Sin cabecera: Insert para escribir la primera línea");
  return l;
}

FilaLista filaLista(const FilaCabecera& f) { return {{f.linea, f.descripcion}, f.linea, true}; }

}  // namespace

frmCabeceraImpresionLista::frmCabeceraImpresionLista(Puesto& p, QWidget* padre)
    : frmMantenimientoLista(
          p,
          {QStringLiteral("frmCabeceraImpresionLista"), QStringLiteral("Relación de Cabecera de Impresión"),
           QStringLiteral(" Cabecera de Impresión ")},
          nuevaLista(), padre) {
  std::vector<FilaCabecera> filas;
  if (LeerCabecera(p, filas)) llenarCon(filas, filaLista);
}

std::optional<FilaLista> frmCabeceraImpresionLista::detalle(ModoDetalle modo, const FilaLista* fila) {
  DetalleCabecera v;
  if (!CargarCabecera(puesto(), modo, fila ? fila->clave.toString() : QString(), v)) return {};
  return frmCabeceraImpresion(puesto(), v, this).exec() == QDialog::Accepted ? std::optional(filaLista(FilaDe(v)))
                                                                             : std::nullopt;
}
