#pragma once
#include "backoffice/parametros.h"
#include "platform/ui/forma.h"

class QComboBox;

// The desk's numbering start, warehouse and service percentage.
class frmParametros final : public Forma {
  Q_OBJECT
 public:
  explicit frmParametros(Puesto& p, QWidget* padre = nullptr);

 private:
  void grabar();

  Puesto& p_;
  Parametros v_;
  QComboBox* dcbAlmacen_;
  Enlaces enlaces_;
};
