#pragma once
#include "credit/pantallas_credito.h"
#include "platform/ui/forma.h"

class QTabWidget;
struct Puesto;

// The billing screen. The desk and the screens that it opens outlive it.
class frmCajaFacturacionPagos final : public Forma {
  Q_OBJECT
 public:
  frmCajaFacturacionPagos(Puesto& p, PantallasCredito& pantallas, QWidget* padre = nullptr);

 private:
  Puesto& p_;
  PantallasCredito& pantallas_;
  QTabWidget* pestanas_ = nullptr;
};
