#pragma once
#include <QFrame>
#include <QString>

class QLabel;

// The status line of the main window and of both registers: what a cashier must know, in words.
class LineaEstado final : public QFrame {
  Q_OBJECT
 public:
  struct Datos {
    QString caja, turno, usuario;
    QString tipoCambio;  // as shown; "" while there is none
    bool central = true, clientes = true;  // whether each database answered last time
    QString papel;  // printer and correlative of the last paper; "" before the first
  };

  explicit LineaEstado(QWidget* padre = nullptr);

  void mostrar(const Datos& datos);
  // What a long step is doing, painted at once; "" takes it away.
  void ocupado(const QString& texto);

 private:
  QLabel *caja_, *turno_, *usuario_, *tc_, *central_, *clientes_, *papel_;
};
