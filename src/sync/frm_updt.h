#pragma once
#include "platform/ui/forma.h"
#include "sync/updt.h"

class QListWidget;
class QProgressBar;

// The synchronisation on the screen: what it does, how far it is, its newest lines. It paints itself between rows;
// while the pull runs Esc and "&Detener" end it there.
class frmUpdt final : public Forma {
  Q_OBJECT
 public:
  // Both outlive the window.
  frmUpdt(Puesto& p, FrmUpdt& v, QWidget* padre);
  ~frmUpdt() override;

 protected:
  bool puedeCerrar() override;

 private:
  void pintar();
  void dejarPasarTeclas();

  Puesto& p_;
  FrmUpdt& v_;
  QLabel *label1_, *etiqueta_;
  QListWidget* log_;
  QProgressBar* barra_;
  QPushButton *cerrar_, *detener_;
  qint64 mostradas_ = 0;
  QDateTime pintado_;
  int sinPintar_ = 0;
  bool parar_ = false;
};

// Runs the synchronisation on its screen, which is gone when it ends.
void SincronizarEnPantalla(Puesto& p, QWidget* padre);
// The same for the sending of one day again.
void ReprocesarEnPantalla(Puesto& p, QWidget* padre);
