#pragma once
#include <QPointer>
#include <QString>

class QLabel;

// Says over the window in front what a long step is doing. The window is painted whole first, since the screen that
// closed over it may have left its picture there. A window with the property "diceQueHace" says it itself and takes the
// keys of who waits. Runs no events.
class CartelOcupado {
 public:
  CartelOcupado() = default;
  ~CartelOcupado();
  CartelOcupado(const CartelOcupado&) = delete;
  CartelOcupado& operator=(const CartelOcupado&) = delete;

  // "" takes it away, and what was pressed and clicked meanwhile goes with it.
  void mostrar(const QString& que);

 private:
  QPointer<QLabel> cartel_;
  bool puesto_ = false;
};

// Keys and clicks that wait to be delivered are dropped: all that come before the event loop has nothing else in hand.
void DescartarPulsaciones();
