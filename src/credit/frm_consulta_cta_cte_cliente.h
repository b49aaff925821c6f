#pragma once
#include "credit/cuenta_cliente.h"
#include "loyalty/frm_cliente_documento.h"
#include "platform/ui/forma.h"

class Lista;
class QVBoxLayout;

// The account of one customer.
class frmConsultaCtaCteCliente final : public Forma {
  Q_OBJECT
 public:
  // The desk and the search outlive it.
  frmConsultaCtaCteCliente(Puesto& p, BuscadorClientes& pantallas, QWidget* padre = nullptr);

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void crearCliente();
  void con(const std::function<void()>& accion);
  void mostrar();
  void buscarCliente();
  void consultar();
  void mostrarPagos();

  Puesto& p_;
  BuscadorClientes& pantallas_;
  ConsultaCtaCteCliente v_;
  Enlaces enlaces_;
  ControlesCliente cliente_;
  Lista *documentos_ = nullptr, *pagos_ = nullptr;
  QPushButton* imprimir_ = nullptr;
};
