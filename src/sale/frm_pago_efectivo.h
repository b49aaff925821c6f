#pragma once
#include <optional>

#include "platform/ui/forma.h"
#include "sale/pago_efectivo.h"

class QPushButton;
struct Puesto;

// The cash screen: soles and dollars taken, and the change.
class frmVuelto final : public Forma {
  Q_OBJECT
 public:
  frmVuelto(Puesto& p, double total, QWidget* padre = nullptr);

  // What was paid, once the screen was accepted.
  const EfectivoDocumento& pago() const { return pago_; }

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  Campo* campo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto, CampoEfectivo cual);
  void fijo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto);
  bool esDeDolares(const QWidget* w) const;
  void aceptar();

  // Runs `accion` on the fields between the controls' texts in and out.
  template <class Accion>
  void con(Accion accion) {
    enlaces_.recoger();
    accion();
    enlaces_.mostrar();
  }

  Puesto& p_;
  PagoEnEfectivo v_;
  EfectivoDocumento pago_;
  Enlaces enlaces_;
  Campo *txtEfectivo_ = nullptr, *txtEfectivoDolares_ = nullptr, *txtVueltoDolares_ = nullptr;
  QPushButton* cmdAceptar_ = nullptr;
};

// Shows the screen over `padre`. Nothing when it was closed without accepting.
std::optional<EfectivoDocumento> pedirEfectivo(Puesto& p, QWidget* padre, double total);
