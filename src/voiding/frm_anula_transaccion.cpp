#include "voiding/frm_anula_transaccion.h"

#include "voiding/anulacion.h"

frmAnulaTransaccion::frmAnulaTransaccion(Puesto& p, PantallasAnulacion& pantallas, QWidget* padre)
    : frmTransaccion(p, QStringLiteral("frmAnulaTransaccion"), QStringLiteral("Anula Transacción"), {},
                     QStringLiteral("cmdAnular"), QStringLiteral("&Anular"), padre),
      puesto_(p),
      pantallas_(pantallas) {
  txtsupervisor_ = panel()->fijo(QStringLiteral("txtsupervisor"), QStringLiteral("Supervisor"));
  teclaAccion(Qt::ALT | Qt::Key_A, QStringLiteral("anular"));
}

void frmAnulaTransaccion::actuar(PantallaTransaccion& v) {
  Anular(puesto_, v, pantallas_);
  txtsupervisor_->setText(v.txtsupervisor);
}
