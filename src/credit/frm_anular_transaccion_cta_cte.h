#pragma once
#include "credit/anulacion_credito.h"
#include "platform/ui/forma.h"

class Lista;
class QComboBox;

// Voids a billing document, or a payment whose receipt came along.
class frmAnularTransaccionCtaCte final : public Forma {
  Q_OBJECT
 public:
  // The desk and the screens outlive it.
  frmAnularTransaccionCtaCte(Puesto& p, PantallasCredito& pantallas, ModoAnular modo, QWidget* padre = nullptr);

  // Takes the receipt of a payment and loads it. False when it can't be voided: the box has been shown, and the screen
  // need not be.
  [[nodiscard]] bool recibir(const QString& serie, const QString& numero);

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void cargar();
  void aceptar();
  void mostrar();

  Puesto& p_;
  PantallasCredito& pantallas_;
  AnularTransaccionCtaCte v_;
  Campo *txtSerie_ = nullptr, *txtNumero_ = nullptr, *txtsupervisor_ = nullptr;
  QPushButton *cmdCargar_ = nullptr, *cmdAceptar_ = nullptr;
  Lista* dgdDetalle_ = nullptr;
};
