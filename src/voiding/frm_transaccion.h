#pragma once
#include "platform/ui/forma.h"
#include "voiding/pantalla_transaccion.h"

class QCheckBox;
class QHBoxLayout;
class QPlainTextEdit;
struct Puesto;

// The window that void and reprint share: the search on the left, the document's text on the right.
class frmTransaccion : public Forma {
  Q_OBJECT
 protected:
  // `boton` is the screen's main button, which acts on what is shown.
  frmTransaccion(Puesto& p, const QString& nombre, const QString& titulo, const PantallaTransaccion& v,
                 const QString& boton, const QString& rotulo, QWidget* padre);

  // The main button, once what was typed has been looked up.
  virtual void actuar(PantallaTransaccion& v) = 0;
  bool alEntrar(QWidget* campo) override;
  Panel* panel() { return panel_; }
  // A key that presses the main button.
  void teclaAccion(QKeyCombination combinacion, const QString& indicio);

 private:
  void crearBusqueda();
  void mostrar();
  void con(const std::function<void()>& accion);
  // A code or number that was typed but not looked up yet.
  bool pendiente(const Campo* campo, const QString& visto) const;
  void alDejar(const Campo* campo);
  void pulsar();

  Puesto& p_;
  PantallaTransaccion v_;
  Enlaces enlaces_;
  Panel* panel_;
  Campo *txtTransaccion_, *txtSerie_, *txtNumero_;
  QCheckBox* chkAlterno_;
  QPushButton *accion_, *buscar_;
  QLabel* anulada_;
  QPlainTextEdit* txtTexto_;
};
