#include "voiding/frm_reimpresion.h"

#include "platform/text/texto.h"
#include "voiding/reimpresion.h"

namespace {

PantallaTransaccion pantalla(const QString& idLocal) {
  PantallaTransaccion v;
  v.uso = Uso::Reimprimir;
  v.idLocal = Recortar(idLocal);
  return v;
}

}  // namespace

frmReimpresion::frmReimpresion(Puesto& p, const QString& idLocal, QWidget* padre)
    : frmTransaccion(p, QStringLiteral("frmReimpresion"), QStringLiteral("Imprimir"), pantalla(idLocal),
                     QStringLiteral("cmdImprimir"), QStringLiteral("&Imprimir"), padre),
      puesto_(p) {
  teclaAccion(Qt::ALT | Qt::Key_I, QStringLiteral("imprimir"));
}

void frmReimpresion::actuar(PantallaTransaccion& v) { Reimprimir(puesto_, v); }
