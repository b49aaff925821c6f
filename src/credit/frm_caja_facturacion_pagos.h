#pragma once
#include <array>

#include "credit/frm_pestana_credito.h"
#include "platform/ui/forma.h"

class LineaEstado;
class QTabWidget;

// The billing screen. The desk and the screens that it opens outlive it.
class frmCajaFacturacionPagos final : public Forma {
  Q_OBJECT
 public:
  // Reads the lists of the central database.
  frmCajaFacturacionPagos(Puesto& p, PantallasCredito& pantallas, QWidget* padre = nullptr);

 protected:
  bool alEntrar(QWidget* campo) override;
  bool puedeCerrar() override;

 private:
  void nuevasTeclas();
  void mostrar();
  void con(const std::function<void()>& accion);
  void verPestana(int n);
  void enfocar(const QString& control);
  PestanaCredito& actual();

  Puesto& p_;
  PantallasCredito& pantallas_;
  CajaFacturacionPagos v_;
  Enlaces enlaces_;
  int mostrando_ = 0;  // actions inside actions: only the outermost one shows
  QTabWidget* pestanas_ = nullptr;
  std::array<PestanaCredito*, 4> hojas_{};
  LineaEstado* estado_ = nullptr;
};
