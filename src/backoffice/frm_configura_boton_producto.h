#pragma once
#include <array>

#include "backoffice/teclado.h"
#include "platform/ui/forma.h"

class PantallasBackoffice;
class TeclaArticulo;
struct Puesto;

// The 24 function keys of the quick register and the article on each. On this screen a function key chooses itself.
class frmConfiguraBotonProducto final : public Forma {
  Q_OBJECT
 public:
  // Both are owned by the caller and outlive the window.
  frmConfiguraBotonProducto(Puesto& p, PantallasBackoffice& pantallas, QWidget* padre = nullptr);

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  QWidget* crearTeclas();
  QWidget* crearDetalle();
  void elegir(int tecla);
  void buscar();
  void grabar();
  void eliminar();
  void mostrar();

  Puesto& p_;
  PantallasBackoffice& pantallas_;
  ConfiguraBotonProducto v_;
  std::array<TeclaArticulo*, kTeclasConfigurables + 1> cmdTecla_{};
  Campo* txtCodigoProducto_ = nullptr;
  Enlaces enlaces_;
};
