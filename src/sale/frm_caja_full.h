#pragma once
#include "loyalty/frm_cliente_documento.h"
#include "platform/ui/forma.h"
#include "platform/ui/rejilla.h"
#include "sale/caja_full.h"
#include "sale/frm_caja_full_liquidacion.h"
#include "sale/frm_caja_full_paneles.h"

class LineaEstado;
class QComboBox;
class QTabWidget;

// The full register. The desk and the screens that it opens outlive it.
class frmCajaRegistradoraFull final : public Forma {
  Q_OBJECT
 public:
  // Holds the date against the last operation and runs Inicio.
  frmCajaRegistradoraFull(Puesto& p, PantallasVenta& pantallas, QWidget* padre = nullptr);

  // The sale on the screen. Call mostrar() after a change.
  CajaRegistradoraFull& venta() { return v_; }
  // The struct to the controls.
  void mostrar();

 protected:
  bool alEntrar(QWidget* campo) override;
  bool puedeCerrar() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void fijo(Panel* panel, const QString& nombre, const QString& etiqueta, int ancho, QString& campo);
  QWidget* nuevaCabecera();
  QWidget* nuevoCliente();
  QWidget* nuevosArticulos();
  QWidget* nuevoPago();
  QWidget* nuevaBotonera();
  void nuevasTeclas();
  void enlazarPagos();
  void enlazarDocumentos();

  void recoger();
  void mostrarTipos();
  void mostrarPaneles();

  // Runs `accion` on the struct between the controls' texts in and out.
  template <class Accion>
  void con(Accion accion) {
    recoger();
    accion();
    mostrar();
  }
  void pulsar(int indice);
  void despues(const TrasTecla& tras);
  bool agregarFila();
  void eliminarFila();
  bool salirCelda(int fila, int columna, QString& texto);
  void buscarTarjeta();
  void trasTarjeta(ResultadoTarjeta r);
  void buscarCliente();
  void buscarArticulo(int fila);
  void buscarAdelanto();
  void letraP();
  void buscarTX(int lista);
  void agregarTX(int lista);
  void eliminarTX(int lista);
  int listaDelFoco() const;
  void alEscanear(const QString& leido);
  void espacio();
  void verPestana(int n);
  void enfocar(QWidget* control);
  void enfocar(const Foco& foco);
  void irALineas();

  Puesto& p_;
  PantallasVenta& pantallas_;
  CajaRegistradoraFull v_;
  Enlaces enlaces_;
  bool mostrando_ = false;  // lists are being filled, not chosen from
  bool conFlecha_ = false;  // the kind was reached by an arrow

  Rejilla* rejilla_ = nullptr;
  QComboBox* cboTipoVenta_ = nullptr;
  ControlesCliente cliente_;
  Campo* txtRUC_ = nullptr;
  QTabWidget* pestanas_ = nullptr;
  PanelPago pago_;
  PanelesAdelanto adelanto_;
  PanelLiquidacion liquidacion_;
  QPushButton *cmdVoucher_ = nullptr, *agregarArt_ = nullptr, *eliminarArt_ = nullptr;
  std::array<QPushButton*, 5> cmdTecla_{};
  LineaEstado* estado_ = nullptr;
};
