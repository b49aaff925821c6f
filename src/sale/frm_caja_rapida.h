#pragma once
#include "loyalty/frm_cliente_documento.h"
#include "platform/ui/forma.h"
#include "sale/caja_rapida.h"

class LineaEstado;
class QGridLayout;
class QLabel;
class Renglon;
class TeclaArticulo;
struct VentaEnCurso;

// The quick register. The desk and the screens that it opens outlive it.
class frmCajaRegistradora final : public Forma {
  Q_OBJECT
 public:
  // Holds the date against the last operation and reads the keys.
  frmCajaRegistradora(Puesto& p, PantallasVenta& pantallas, QWidget* padre = nullptr);

  // Takes over a sale of the full register.
  void recibir(const VentaEnCurso& venta);

 protected:
  bool alEntrar(QWidget* campo) override;
  bool puedeCerrar() override;
  void keyPressEvent(QKeyEvent* e) override;

 private:
  QWidget* nuevasTeclasProducto();
  QWidget* nuevaPantalla();
  QWidget* nuevosCampos();
  QWidget* nuevosBotones();
  void ponerBoton(QGridLayout* g, int columna, QPushButton* boton, const QString& nombreTecla, const QString& tecla);
  void nuevasTeclas();

  void recoger() { enlaces_.recoger(); }
  void mostrar();
  // Runs `accion` on the struct between the controls' texts in and out.
  template <class Accion>
  void con(Accion accion) {
    recoger();
    accion();
    mostrar();
  }
  void pulsar(int indice);
  void cambiar();
  void despues(const TrasTeclaRapida& tras);
  void salirCantidad();
  void buscarTarjeta();
  void alEscanear(const QString& leido);
  void espacio();
  void enfocar(QWidget* control);

  Puesto& p_;
  PantallasVenta& pantallas_;
  CajaRegistradora v_;
  Enlaces enlaces_;
  bool pulsando_ = false;  // a key runs: it looks at the quantity itself

  std::array<TeclaArticulo*, kTeclasProducto + 1> teclas_{};
  std::array<QPushButton*, kBotonPago + 1> cmdTecla_{};  // by index; no entry where there is no button
  Campo *txtCantidad_ = nullptr, *txtRuc_ = nullptr;
  ControlesCliente cliente_;
  QLabel* lblTipo_ = nullptr;
  Renglon *lblProducto_ = nullptr, *lblSubtotal_ = nullptr, *lblTotal_ = nullptr;
  LineaEstado* estado_ = nullptr;
};
