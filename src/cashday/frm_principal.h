#pragma once
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include "cashday/principal.h"

class LineaEstado;
class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolBar;
class QToolButton;
class QVBoxLayout;
struct PedidoReporte;
struct ResultadoReporte;
struct Puesto;
class PantallasPrincipal;
enum class PantallaMantenimiento;

// The desk's home screen. Closing it closes the store and ends the process; deleting it does not.
class frmPrincipal final : public QMainWindow {
  Q_OBJECT
 public:
  // Both are owned by the caller and outlive the window.
  frmPrincipal(Puesto& p, PantallasPrincipal& pantallas);
  ~frmPrincipal() override;

  // Shows the window and loads it; the boxes of the loading stand over it.
  void iniciar();
  // The state of the day as it stands now: menus, buttons, title, middle, status line.
  void refrescar();

 protected:
  void closeEvent(QCloseEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  QAction* entrada(QMenu* menu, const QString& nombre, const QString& rotulo, std::function<void()> accion,
                   bool oculta = false);
  void crearMenus();
  void crearMantenimiento();
  void crearOperaciones();
  void crearBarra();
  void crearCentro();
  void crearTeclas();
  void pintarCentro();
  // An action of the clerk: runs it, then shows what it changed.
  std::function<void()> acto(std::function<void()> accion);
  void mantenimiento(int n);
  // Opens a screen of settings once a supervisor allows it; `acto` names it in his dialog.
  void ajustes(PantallaMantenimiento cual, const QString& acto);
  void configurarParametros();
  void cambioTurno();
  void cerrarCaja();
  void operacion(int n);
  // One of the turn's reports, entry `n`, with its authorisation; and one of a past date.
  void reporte(int n, ResultadoReporte (*imprimir)(Puesto&, const PedidoReporte&));
  void exportar();
  // One of the reports that have no visible entry.
  void reporteParalelo(int n);
  void reporteDeFecha(ResultadoReporte (*imprimir)(Puesto&, const QString&));
  void boton(int n);
  void abrirApertura();

  Puesto& p_;
  PantallasPrincipal& pantallas_;
  Principal v_;
  std::shared_ptr<void> tmrBDCliente_;

  std::array<QAction*, 9> mantenimiento_{};
  std::array<QAction*, 18> operaciones_{};
  std::array<QToolButton*, 18> botones_{};
  std::array<QAction*, 18> accionBoton_{};
  QToolBar* barraFecha_ = nullptr;
  std::vector<QAction*> demas_;
  QAction *diaAnterior_ = nullptr, *usuarios_ = nullptr, *ventaFutura_ = nullptr;
  QLabel *titular_ = nullptr, *sentencia_ = nullptr;
  QLineEdit* txtsupervisor_ = nullptr;
  std::vector<QPushButton*> abierta_;
  QPushButton *iniciar_ = nullptr, *reporteZ_ = nullptr;
  LineaEstado* estado_ = nullptr;
  QPointer<QWidget> apertura_;
};
