#pragma once
#include <QFrame>
#include <QString>

#include "platform/io/datos_estado.h"

class QLabel;

// The status line of the main window and of both registers: what a cashier must know, in words.
class LineaEstado final : public QFrame {
  Q_OBJECT
 public:
  explicit LineaEstado(QWidget* padre = nullptr);

  void mostrar(const DatosEstado& datos);

 private:
  QLabel *caja_, *turno_, *usuario_, *tc_, *central_, *clientes_, *aviso_, *papel_;
};
