#pragma once
#include <QWidget>

// What stands on the screen while the desk makes ready: sign, name, version.
class frmSplash final : public QWidget {
  Q_OBJECT
 public:
  enum Sitio {
    Encima,  // the splash of a desk that is ready
    Debajo   // a plain window, which boxes stand above, while the start still asks and waits
  };
  explicit frmSplash(Sitio sitio = Encima);

  // Shows it and paints it at once; the start-up goes on without running events.
  void mostrar();
};
