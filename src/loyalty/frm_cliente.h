#pragma once
#include <memory>

#include "loyalty/cliente_nuevo.h"
#include "loyalty/foto_cliente.h"
#include "platform/ui/forma.h"

class QCheckBox;
class QComboBox;

// Registers a new customer with his first card and a photograph.
class frmCliente final : public Forma {
  Q_OBJECT
 public:
  // The desk and the search outlive the screen.
  frmCliente(Puesto& p, BuscadorClientes& pantallas, QWidget* padre = nullptr);
  ~frmCliente() override;

  // The customer's card, once the screen was accepted.
  const TarjetaElegida& tarjeta() const { return tarjeta_; }

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  // A list of places and the field of the name that is in none.
  struct ControlesLugar {
    QComboBox* lista = nullptr;
    Campo* otro = nullptr;
    EleccionLugar* datos = nullptr;
  };

  Campo* texto(Panel* panel, const QString& nombre, const QString& rotulo, QString& dato, bool mayusculas = true);
  ControlesLugar lugar(Panel* panel, const QString& nombre, const QString& rotulo, EleccionLugar& datos,
                       void (frmCliente::*elegir)(int));
  QWidget* crearNacimiento();
  QWidget* crearFoto();
  void crearDatos();
  void mostrar();
  void mostrarLugar(const ControlesLugar& c);
  void recoger() const { enlaces_.recoger(); }
  void elegirDepartamento(int codigo);
  void elegirProvincia(int codigo);
  void elegirDistrito(int codigo);
  void trasElegir(const ControlesLugar& c);
  void buscar();
  void fotografiar();
  void tick();
  void aceptar();

  Puesto& p_;
  BuscadorClientes& pantallas_;
  ClienteNuevo v_;
  FotoCliente foto_;
  TarjetaElegida tarjeta_;
  Enlaces enlaces_;
  ControlesLugar departamento_, provincia_, distrito_;
  Campo *txtApellidos_ = nullptr, *txtNombres_ = nullptr, *txtLocal_ = nullptr, *dtpFNacimiento_ = nullptr;
  QCheckBox* chkFNacimiento_ = nullptr;
  QComboBox *cboTip_ = nullptr, *dcbLocal_ = nullptr;
  QFrame* fraFoto_ = nullptr;
  QLabel *imgFoto_ = nullptr, *lblFoto_ = nullptr;
  std::shared_ptr<void> timer_;
};
