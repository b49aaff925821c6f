#pragma once
#include "cashday/cuadre.h"
#include "cashday/pantallas_principal.h"
#include "platform/ui/forma.h"

class Lista;
class QTabWidget;
struct Puesto;

// The cash count, as the step of a closing or as a plain view. Its button prints when `bReporteImpreso` says that the
// day's report went to print, and closes the screen in any case but one: a count that is no number must be put right
// first. In a closing nothing else closes it.
class frmCuadre final : public Forma {
  Q_OBJECT
 public:
  frmCuadre(Puesto& p, ModoCuadre modo, bool bReporteImpreso, QWidget* padre = nullptr);

 protected:
  bool puedeCerrar() override { return !v_.deCierre; }

 private:
  QWidget* nuevaCaja();
  QFrame* nuevoLado(size_t n, const QString& nota);
  QWidget* nuevosProductos();
  void mostrarProducto(int fila);
  void dejarCaja();
  void cerrar();

  Puesto& p_;
  Cuadre v_;
  bool bReporteImpreso_;
  Enlaces caja_, producto_;
  QTabWidget* SSTab1_ = nullptr;
  Lista* lvwProductos_ = nullptr;
  Campo *txtProductosNombre_ = nullptr, *txtProductosID_ = nullptr;
};
