#pragma once
#include <functional>

#include "cashday/apertura.h"
#include "platform/ui/forma.h"

// The opening of the desk; not modal. Its screen name is FrmApertura.
class frmApertura final : public Forma {
  Q_OBJECT
 public:
  frmApertura(Puesto& p, QWidget* padre);

  // The opening was tried.
  std::function<void(const ResultadoApertura&)> alAbrir;

 private:
  void grabar();

  Puesto& p_;
  FrmApertura v_;
  Enlaces enlaces_;
};
