#pragma once
#include <QWidget>

// What stands on the screen while the desk makes ready: sign, name, version, on top of all other windows.
class frmSplash final : public QWidget {
  Q_OBJECT
 public:
  frmSplash();

  // Shows it and paints it at once; the start-up goes on without running events.
  void mostrar();
};
