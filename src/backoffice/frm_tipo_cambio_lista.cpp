#include "backoffice/frm_tipo_cambio_lista.h"

#include "backoffice/frm_tipo_cambio.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"

namespace {

Lista* nuevaLista() {
  auto* l =
      new Lista(QStringLiteral("lvwTipoCambio"), {{QStringLiteral("Fecha"), 0.5, false, ColumnaLista::Fecha},
                                                  {QStringLiteral("Tipo Cambio"), 0.48, true, ColumnaLista::Numero}});
  l->textoVacio = QStringLiteral("Sin tipos de cambio: Insert para registrar el de hoy");
  return l;
}

FilaLista filaLista(const FilaTipoCambio& f) { return {{f.fecha, f.monto}, f.fecha, true}; }

}  // namespace

frmTipoCambioLista::frmTipoCambioLista(Puesto& p, QWidget* padre)
    : frmMantenimientoLista(p, {QStringLiteral("frmTipoCambioLista"), QStringLiteral("Relación de Tipo de Cambio")},
                            nuevaLista(), padre) {
  std::vector<FilaTipoCambio> filas;
  if (LeerTiposCambio(p, filas)) llenarCon(filas, filaLista);
  int hoy = 0;  // or the latest day before; others may be noted ahead
  for (int n = 0; n < lista().filas(); ++n) {
    const auto fecha = LeerFecha(lista().fila(n).clave.toString());
    if (fecha && fecha->date() <= p.reloj.now().date()) hoy = n;
  }
  lista().elegir(hoy);
}

std::optional<FilaLista> frmTipoCambioLista::detalle(ModoDetalle modo, const FilaLista* fila) {
  TipoCambio v;
  if (!abrirTipoCambio(puesto(), modo, fila ? fila->clave.toString() : QString(), v, this)) return {};
  return filaLista(FilaDe(v));
}
