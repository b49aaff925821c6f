#pragma once
#include "cashday/dia.h"
#include "platform/ui/forma.h"

// The opening of the desk; not modal. Its screen name is FrmApertura.
class frmApertura final : public Forma {
  Q_OBJECT
 public:
  // `principal` is the state of the main window, owned by it.
  frmApertura(Puesto& p, Principal& principal, QWidget* padre);

  // The main window's state may have changed.
  std::function<void()> alCambiar;

 private:
  void grabar();

  Puesto& p_;
  Principal& principal_;
  FrmApertura v_;
  Enlaces enlaces_;
};
