#pragma once
#include "app/login.h"
#include "platform/ui/forma.h"

// The login. Not modal: exactly one of the two calls comes when it has closed.
class frmPassword final : public Forma {
  Q_OBJECT
 public:
  frmPassword(Puesto& p, std::function<void()> aceptado, std::function<void()> rechazado);

  void done(int resultado) override;

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void probar();

  Puesto& p_;
  std::function<void()> aceptado_, rechazado_;
  Login v_;
  Campo *usuario_, *password_;
};
