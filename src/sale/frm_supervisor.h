#pragma once
#include "platform/ui/forma.h"

struct Puesto;

// Asks a supervisor for user and password. `acto` stands in the title: what is authorised.
class frmAutorizarOperacion final : public Forma {
  Q_OBJECT
 public:
  frmAutorizarOperacion(Puesto& p, const QString& acto, QWidget* padre = nullptr);

  // The supervisor's name as typed, once the dialog has been accepted.
  QString usuario() const;

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void aceptar();

  Puesto& p_;
  Campo *txtUsuario_, *txtPassword_;
};

// Shows the dialog over `padre`. The supervisor's name as typed; nothing when it was closed in any other way.
std::optional<QString> mostrarAutorizacion(Puesto& p, QWidget* padre, const QString& acto);
